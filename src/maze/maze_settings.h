// What a maze is made with: who carves, how hard 3-d mazes are, which patterns steer, when it is done. Each
// command stores a value and moves a check mark.
#pragma once

#include "state/program.h"

namespace gridwright {

void ugenerate(Program& program);  ///< "(1)-User creates maze"
void cgenerate(Program& program);  ///< "(2)-Computer creates maze"
/// The user takes over or hands over in mid-maze: inside a corridor the walk goes back.
void setCreationMode(Program& program, CreationMode mode);

void usepattern(Program& program);      ///< "Use user-editable pattern for making maze"
void dontusepattern(Program& program);  ///< "Use default (no pattern) for making maze"
void gofinish(Program& program);        ///< "Fill entire drawing with maze"
void stopfinish(Program& program);      ///< "Make maze only until start and finish are reached"

void mode1(Program& program);  ///< Difficulty 1 to 6.
void mode2(Program& program);
void mode3(Program& program);
void mode4(Program& program);
void mode5(Program& program);
void mode6(Program& program);
void pnormal(Program& program);  ///< "(1)-Paths normal size"
void plarge(Program& program);   ///< "(2)-Paths large"
void pthick(Program& program);   ///< Short underpasses.
void pthin(Program& program);    ///< Long ones.

}  // namespace gridwright
