// Phases 3 and 4: a single pixel, the probe, follows the walls of the drawn maze with one hand on
// them. There is no graph and no stack; what stays on the Canvas when the finish is reached is the
// solution path.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Owner loop of phases 3 and 4. Expects the walk's cell, probe and direction on the start, as the
/// main loop leaves them. Returns when `phase` is -6, 0, 1 or 2; the trail stays on the Canvas.
///
/// Where the computer walks in a circle that does not meet the finish, or out of the Canvas, it says so and
/// sets `phase` 2, as `sandf` does; in a job whose answer is due it says nothing and returns with `phase` 3:
/// that answer is left out. In a search for the finish it stands idle then. It returns with `phase` 4 where
/// the answer that is due stands on the Canvas.
void solvingmaze(Program& program);

/// A solved maze waits for a command, as `solvingmaze` has it wait where no answer is due. Returns when
/// `phase` is -6, 0, 1 or 2.
void waitSolved(Program& program);

/// Puts the walk on the start box, the probe along its top edge heading right.
void putWalkOnStart(ProgramState& state);

}  // namespace gridwright
