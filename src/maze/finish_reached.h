// The walker on the finish.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Paints the finish and puts the walker back on the origin, or where the rescue holds it, in walking-back
/// mode, so that the finish stays a dead end. \returns whether the maze is done instead, because both ends
/// are carved and `stopAtFinish` asks for no more; `phase` is 2 then.
bool finishReached(Program& program);

}  // namespace gridwright
