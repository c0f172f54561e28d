// The Canvas as a page shows it.
#pragma once

#include "state/program.h"

namespace gridwright {

void whiteground(Program& program);  ///< "White ground": on, or off again.

/// The shown plane as paper takes it. Paper is plain white there, since a printer may put dots for what is
/// only nearly white. With a white ground it is no more than the smallest box outside which every pixel is
/// `BackColor`, with one wall size round it where the Canvas has that, and `BackColor` is white; where there
/// is nothing but ground, the whole of it.
Bitmap pageOf(const Program& program);

}  // namespace gridwright
