// The window on paper.
#pragma once

#include "state/program.h"

namespace gridwright {

/// "print the window": the Canvas as it is shown now, one page, a document of its own. Says where
/// it went.
void printfff(Program& program);

/// "Print preview…": shows that page, and prints nothing by itself.
void printpreview(Program& program);

}  // namespace gridwright
