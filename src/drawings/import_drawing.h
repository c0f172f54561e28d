// A bitmap from the working folder becomes the drawing. What a message cannot say is told as a notice: that
// the picture was cut, that the file is of another format, or why it could not be read.
#pragma once

#include "state/program.h"

namespace gridwright {

void importdrawing(Program& program);  ///< "Import Bitmap"

void importEntered(Program& program);
void importEscaped(Program& program);

/// A picture becomes the drawing, whatever way it came, in the drawing phase: what was drawn goes to
/// last-drawing.bmp, the window is maximised, and all kinds can be made now. Tells when it is cut.
void takePicture(Program& program, const Bitmap& picture);

}  // namespace gridwright
