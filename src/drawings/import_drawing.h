// A bitmap from the working folder becomes the drawing. What a message cannot say is told as a notice: that
// the picture was cut, that the file is of another format, or why it could not be read.
#pragma once

#include "state/program.h"

namespace gridwright {

void importdrawing(Program& program);  ///< "Import Bitmap"

void importEntered(Program& program);
void importEscaped(Program& program);

}  // namespace gridwright
