// The moment at which the walk stands on the finish: last strokes, captions.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Paints the last stroke and the stub that enters the finish, and sets `phase` 4: the answer of a job can be
/// printed.
void reachFinish(Program& program);

/// What a solved maze that waits for a command shows besides.
void standSolved(Program& program);

}  // namespace gridwright
