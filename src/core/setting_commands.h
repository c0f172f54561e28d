// Menu items that only store a setting and move a check mark, and the quit.
#pragma once

#include "core/program.h"

namespace gridwright {

void aon(Program& program);
void aoff(Program& program);

void drawingon(Program& program);
void drawingoff(Program& program);
void turnsoff(Program& program);
void horizontal(Program& program);
void vertical(Program& program);
void way4(Program& program);

void quit2(Program& program);  ///< "Quit to Main Menu"

}  // namespace gridwright
