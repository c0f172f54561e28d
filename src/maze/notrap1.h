// Is there any way on from the walker's square? If not it is in a trap, and the direction chooser
// alone would try for ever.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Reads the square, `walkMode`, kind and wall size. May set `walkMode` to walking back and, in the
/// regular and 3-d kinds, box the square in `mazeColor`.
void notrap1(Program& program);

/// Whether that would set it. Changes nothing.
bool isTrapped(const Program& program);

}  // namespace gridwright
