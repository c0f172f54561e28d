// Menu items that only store a setting and move a check mark, and the quit.
#pragma once

#include "state/program.h"

namespace gridwright {

void aon(Program& program);
void aoff(Program& program);

void drawingon(Program& program);
void drawingoff(Program& program);
void turnsoff(Program& program);
void horizontal(Program& program);
void vertical(Program& program);
void way4(Program& program);

void mode1(Program& program);
void mode2(Program& program);
void mode3(Program& program);
void mode4(Program& program);
void mode5(Program& program);
void mode6(Program& program);
void pnormal(Program& program);
void plarge(Program& program);
void pthick(Program& program);
void pthin(Program& program);

void quit2(Program& program);  ///< "Quit to Main Menu"

}  // namespace gridwright
