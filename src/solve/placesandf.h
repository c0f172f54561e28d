// Phase 2: a person moves start and finish over the carved cells, or the computer is asked to find
// the finish.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Owner loop of phase 2. Reads both squares and what they cover; paints them with persistent drawing
/// on. Returns when `phase` is -6, 0, 1 or 3; and with `phase` 2 where a print job is on: both ends stand,
/// and the maze is to be printed.
void placesandf(Program& program);

/// "Place start and finish": in phase 1 only with at least three carved cells.
void sandf(Program& program);

/// "Solve maze"
void solvemaze(Program& program);

}  // namespace gridwright
