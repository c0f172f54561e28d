// The program's life in its window, from the first stage to whatever ends it.
#pragma once

#include "platform/qt/qt_desktop.h"

namespace gridwright {

/// Runs the program until its window is closed, or a signal asks it to end. \returns the exit status, 0.
///
/// When the display is lost it does not come back: Qt ends the process with status 1 from within its event
/// loop. The picture is kept then, too, and so are the pages of a job.
int runInWindow(QtDesktop& desktop, Program& program);

}  // namespace gridwright
