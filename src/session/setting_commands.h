// Work unseen, and the quit.
#pragma once

#include "state/program.h"

namespace gridwright {

void aon(Program& program);   ///< Auto-minimize on.
void aoff(Program& program);  ///< Auto-minimize off.

void quit2(Program& program);  ///< "Quit to Main Menu"

}  // namespace gridwright
