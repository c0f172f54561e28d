// The panel that says how pages look.
#pragma once

#include "state/program.h"

namespace gridwright {

/// "Page setup…": the panel opens with what is in force, and holds the program.
void pagesetup(Program& program);

/// What the panel shows is in force, and the panel closes. Blanks and line ends of the title become single
/// blanks, margins stay within
/// `kMostMargin`, and tiles within `kMostTiles`. Nothing while it is closed.
void takePageSetup(Program& program, PageSetup setup);

/// The panel closes, and everything stays as it was.
void leavePageSetup(Program& program);

}  // namespace gridwright
