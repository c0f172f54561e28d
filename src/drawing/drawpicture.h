// The keyboard paint tool: a square moves over the cell grid and leaves a stripe of `drawColor`.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Owner loop of phase 0. Compares the square with where it was and paints what lies between, with
/// persistent drawing; the square's outline goes to the screen alone. Returns when `phase` is 1 or -6.
void drawpicture(Program& program);

}  // namespace gridwright
