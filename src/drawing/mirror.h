// The measure of the drawing phase: columns, rows, and where symmetry repeats the square.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Counts columns and rows from 1 and sets the mirror and the centre cell up by the square's own.
/// A square that a smaller Canvas left outside goes to the first cell.
void measureDrawing(Program& program);

}  // namespace gridwright
