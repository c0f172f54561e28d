// The desktop's turn: the only place where keys, commands and the window's events run.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Frees one command for this pump, lets events run, and brings the menus in line with what they
/// changed. Its caller tests `phase` next. While the sheet of keys is shown it does not come back.
void yield(Program& program, Pace pace);

/// Events that are no command: repaints, timers and resizes. Keys and commands wait.
void housekeeping(Program& program);

/// Waits in the pump until no panel holds the window.
void waitForPanel(Program& program);

}  // namespace gridwright
