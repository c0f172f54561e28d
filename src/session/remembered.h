// What the program remembers between runs, where its desktop does: the files opened last, the white ground,
// the status line, what was told once, and the workshop's last tool and font. Of the settings of mazes
// nothing: each run begins with them as told.
#pragma once

#include "state/program.h"

namespace gridwright {

/// The program begins: what was remembered stands. What is malformed counts as nothing.
void recallSettings(Program& program);

/// Tells the desktop what has changed since it was asked or told; a few comparisons when nothing has.
void rememberSettings(Program& program);

}  // namespace gridwright
