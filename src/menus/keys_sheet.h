// The sheet of the present phase's keys.
#pragma once

#include "state/program.h"

namespace gridwright {

/// "Keys…": shows what the keys of the present phase do, and those of the menus that lead on from here. The
/// program stands still in its pump until the next key or click, which does nothing else.
void showkeys(Program& program);

/// \returns whether it was shown.
bool hideKeys(Program& program);

/// Tells once how the keys are shown.
void hintAtKeys(Program& program);

}  // namespace gridwright
