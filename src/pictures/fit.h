// Sizes that keep a picture's shape, layers at another size, and parts of them.
#pragma once

#include "pictures/picture.h"
#include "pictures/picture_work.h"

namespace gridwright {

/// The largest size of this shape that `box` holds, at least 1 by 1.
Size fittedInto(Size box, Size shape);

/// The layer at another size; a pixel is clear where more than half of what it stands for was.
Layer scaledLayer(const Layer& layer, Size size, PictureWork& work);

/// A part of a picture, or of a layer, that lies inside it.
Bitmap cutOut(const Bitmap& picture, const Square& part);
Layer cutOut(const Layer& layer, const Square& part);

}  // namespace gridwright
