// A picture laid on paper.
#pragma once

#include "pictures/picture.h"

namespace gridwright {

/// The colours of a layer, with paper where it is transparent.
Bitmap onPaper(const Layer& layer);

/// Whether there is nothing on the paper.
bool isPaperAlone(const Bitmap& picture);

}  // namespace gridwright
