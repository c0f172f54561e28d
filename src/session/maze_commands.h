// The commands that start, restart, switch or leave a maze. Each changes state and pictures; the
// running loop acts on it at its next pass.
#pragma once

#include "state/program.h"

namespace gridwright {

void newmaze(Program& program);        ///< "New maze "
void nrefresh(Program& program);       ///< "New maze and refresh picture"
void mpdrawing(Program& program);      ///< "Make current maze part of every maze"
void backtodrawing(Program& program);  ///< "Go back to Drawing"
void backtomaze(Program& program);     ///< "Go back to Maze"
void createreg(Program& program);      ///< "Create regular 2-d mazes inside drawing"
void create3d(Program& program);       ///< "Create 3d-mazes inside drawing"
void create3dpipe(Program& program);   ///< "Create 3d-pipe-mazes inside drawing"

}  // namespace gridwright
