// How the brush draws: whether at all, and mirrored where. Each command stores a value and moves a check
// mark.
#pragma once

#include "state/program.h"

namespace gridwright {

void drawingon(Program& program);
void drawingoff(Program& program);
void turnsoff(Program& program);    ///< "(0)-Symmetrical drawing off"
void horizontal(Program& program);  ///< "(1)-Horizontal "
void vertical(Program& program);    ///< "(2)-Vertical"
void way4(Program& program);        ///< "(3)-4 way symmetrical"

}  // namespace gridwright
