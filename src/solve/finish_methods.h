// The end-point options: who finds the finish.
#pragma once

#include "state/program.h"

namespace gridwright {

void userplace(Program& program);  ///< "(0)-User places the finish"

void largestsolution(Program& program);     ///< "(1)-Computer finds largest solution from start"
void includeunderpasses(Program& program);  ///< "(2)-... (include underpasses)"
void mostunderpasses(Program& program);     ///< "(3)-Computer finds most underpasses from start"

/// Regular mazes have no underpasses: an option that counts them becomes the largest solution.
void keepFinishMethodPossible(Program& program);

}  // namespace gridwright
