// The settings as they stand when the program starts, and after a return to the title.
#pragma once

#include "state/program.h"

namespace gridwright {

/// The menu's settings to their defaults, with their marks: "Reset all maze settings".
void resetsettings(Program& program);

/// Run at every return to the title: the settings, the print job, symmetry, and the step files of the
/// present kind.
void mbsub(Program& program);

/// Everything that a new start from the title forgets, so that it starts from nothing.
void forgetEverything(Program& program);

}  // namespace gridwright
