// The end-point options: who finds the finish.
#pragma once

#include "core/program.h"

namespace gridwright {

void userplace(Program& program);  ///< "(0)-User places the finish"

/// Regular mazes have no underpasses: an option that counts them becomes the largest solution.
void keepFinishMethodPossible(Program& program);

}  // namespace gridwright
