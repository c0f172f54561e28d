// One step of the walker in a 3-d or pipe maze: a plain move, a walk over carved ground, or the start
// of an underpass.
//
// In the pipe kind every move is two wall sizes, the cell pitch, with the cell between as the pipe's
// join; in the 3-d kind the pitch is one wall size and corridors may pass under one another.
#pragma once

#include "maze/regular_step.h"
#include "state/program.h"

namespace gridwright {

/// Expects the step's offset and leading edge. Leaves the walker where the step took it, underpasses
/// painted.
StepResult underpassStep(Program& program);

/// In the pipe kind a walk back ends where the cell ahead and the one after it are free.
/// \returns `walkBackEnded` when its own random steps were released: the pass goes on at the entry.
StepResult releasePipe(Program& program);

/// Whether a carved corridor lies alongside the step's target, in the 3-d kind; left in `sideState`.
void declaremmb(Program& program);

}  // namespace gridwright
