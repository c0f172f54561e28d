// Noise goes, soft edges become hard, and lines too thin for that stay whole.
#pragma once

#include "canvas/bitmap.h"
#include "pictures/picture_work.h"

namespace gridwright {

/// A median of `side` by `side` pixels, but where a line is thinner than what a median keeps: there the
/// line's own darkest (or lightest) pixels stand, so that one drawn with soft steps is solid. Pieces of line
/// of fewer than `speck` pixels go with the noise.
Bitmap withoutNoise(const Bitmap& picture, int side, int speck, PictureWork& work);

/// Every pixel of a soft edge takes the colour of the side that is nearer to it, `times` over: each time the
/// edge gets narrower by a pixel on both sides.
void hardenEdges(Bitmap& picture, int times);

}  // namespace gridwright
