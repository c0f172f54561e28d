// The moment at which the walk stands on the finish: last strokes, captions, the answer's page.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Paints the last stroke and the stub that enters the finish, and sets `phase` 4.
/// \returns whether the solved maze waits for a command; false when a print job goes on.
bool reachFinish(Program& program);

}  // namespace gridwright
