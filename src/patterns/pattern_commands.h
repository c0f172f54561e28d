// Patterns reset, and turned into all four directions.
#pragma once

#include "state/program.h"

namespace gridwright {

void resetpattern(Program& program);   ///< "Reset current pattern"
void resetpatterns(Program& program);  ///< "Reset all patterns"
void makeidentical(Program& program);  ///< "Make all patterns identical"

/// The left pattern's images in the other three files; nothing unless the left one is edited.
void mkidentical(Program& program);

/// What a step of direction `from`'s pattern becomes in direction `to`'s: a quarter or half turn that
/// takes the one direction's own code to the other's. 5 stays 5.
int imageOfStep(int from, int to, int code);

/// Ends what is open in the editor, complete on disk, and has the field rebuilt.
void finishOpenPattern(Program& program);

}  // namespace gridwright
