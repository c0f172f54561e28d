// A picture laid on a Canvas of paper.
#pragma once

#include "pictures/paper.h"
#include "pictures/picture.h"
#include "pictures/picture_work.h"

namespace gridwright {

struct Placed {
  Layer layer;          ///< As large as the Canvas; around the picture it is clear.
  Square part;          ///< Where the picture, or what of it was taken, lies on the Canvas.
  double enlarged = 1;  ///< How many times larger than by itself the picture is.
  Size taken;  ///< How much of the picture came onto the Canvas, in its own pixels; with `asItsSize` alone.
};

/// The subject in the middle of the Canvas, `frame` pixels of paper all round it at least: the picture fitted
/// into the Canvas, or in its own pixels, cut about its subject's middle where the Canvas is too small.
/// \param speck what stands on the paper and is less than so many pixels wide and high is no subject.
Placed placed(const Picture& picture, bool asItsSize, Size canvas, int frame, int speck, PictureWork& work);

}  // namespace gridwright
