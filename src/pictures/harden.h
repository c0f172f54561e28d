// Noise goes, soft edges become hard, and lines too thin for that stay whole.
#pragma once

#include "canvas/bitmap.h"
#include "pictures/picture_work.h"

namespace gridwright {

/// Whether a picture is one of a camera or a scanner, with grain all over. Its edges cannot be made hard
/// before the grain is gone; all others' should be, since a median rounds what is soft. \param clear one a
/// pixel: not 0 where it is not looked at.
bool isNoisy(const Bitmap& picture, const Mask& clear);

/// A median of `side` by `side` pixels, but where a line is thinner than what a median keeps: there the
/// line's own pixels stand, its faint ones as bold as it is for the most part. Pieces of line
/// less than `speck` pixels wide and high go with the noise.
/// \param part where the picture is: farther than four pixels from it all pixels have one colour.
Bitmap withoutNoise(const Bitmap& picture, const Square& part, int side, int speck, PictureWork& work);

/// Every pixel of a soft edge takes the colour of the side that is nearer to it, `times` over: each time the
/// edge gets narrower by a pixel on both sides.
void hardenEdges(Bitmap& picture, int times);

}  // namespace gridwright
