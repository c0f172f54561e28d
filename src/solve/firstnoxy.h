// How the walk leaves a start that is closed on all sides: a 3-d maze may put it on an underpass cell.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Reads the start box. Leaves probe, direction and `underpassLock` for the way out, or everything as
/// it was when the start is open.
void firstnoxy(Program& program);

/// The walk starts again: cell, probe and direction on the start, no lock, and in a 3-d maze the way
/// out of a closed start.
void restartWalk(Program& program);

}  // namespace gridwright
