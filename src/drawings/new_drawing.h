// New drawings of each kind: an empty Canvas in the present `BackColor`.
#pragma once

#include "state/program.h"

namespace gridwright {

void rmazes(Program& program);    ///< "regular 2-d mazes"
void mazes3d1(Program& program);  ///< "3d-mazes"
void mazes3d(Program& program);   ///< "3d-pipe-mazes"

}  // namespace gridwright
