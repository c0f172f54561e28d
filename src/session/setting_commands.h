// Work unseen, what the window shows, and the quit.
#pragma once

#include "state/program.h"

namespace gridwright {

void aon(Program& program);   ///< Auto-minimize on.
void aoff(Program& program);  ///< Auto-minimize off.

void markcolours(Program& program);  ///< Marks colours, start and finish, or takes the marks away.
void statusline(Program& program);   ///< Takes the status line away, or brings it back.
void wholescreen(Program& program);  ///< The window covers the screen, or no more.

void quit2(Program& program);  ///< "Quit to Main Menu"

}  // namespace gridwright
