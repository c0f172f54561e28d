// Gives the finish back that a search for another took off the Canvas.
#pragma once

#include "state/program.h"

namespace gridwright {

/// In phase 3, while a finish is being searched for, and when the saved finish lies on maze or
/// background ground: the finish square is the saved one again.
void restoreSavedFinish(Program& program);

}  // namespace gridwright
