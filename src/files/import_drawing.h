// A bitmap from the working folder becomes the drawing.
#pragma once

#include "core/program.h"

namespace gridwright {

void importdrawing(Program& program);  ///< "Import Bitmap"

void importEntered(Program& program);
void importEscaped(Program& program);

}  // namespace gridwright
