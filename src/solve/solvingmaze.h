// Phases 3 and 4: a single pixel, the probe, follows the walls of the drawn maze with one hand on
// them. There is no graph and no stack; what stays on the Canvas when the finish is reached is the
// solution path.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Owner loop of phases 3 and 4. Expects the walk's cell, probe and direction on the start, as the
/// main loop leaves them. Returns when `phase` is -6, 0, 1 or 2; the trail stays on the Canvas.
///
/// Where the computer walks in a circle that does not meet the finish, it says so and sets `phase` 2, as
/// `sandf` does; in a job with answers it leaves the answer out and sets 1, without a word.
void solvingmaze(Program& program);

/// Puts the walk on the start box, the probe along its top edge heading right.
void putWalkOnStart(ProgramState& state);

}  // namespace gridwright
