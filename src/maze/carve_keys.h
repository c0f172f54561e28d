// The keys of a maze made by hand.
#pragma once

#include "state/program.h"

namespace gridwright {

/// J hands the maze over between computer and user, the arrows carve, G allows walking back.
void carveKey(Program& program, int code);

}  // namespace gridwright
