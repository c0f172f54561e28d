// Pictures as Qt decodes them, as layers of exact colours that are no larger than a Canvas.
#pragma once

#include <QImage>

#include "pictures/picture.h"

namespace gridwright {

/// A part of the image in its own pixels. What is half transparent lies on white.
Layer layerOf(const QImage& image, const QRect& part);

/// All of the image, reduced where a side is longer than `kLongestSide`. It goes by strips: beside the image
/// it takes a few tens of megabytes, whatever its size.
Layer reducedLayerOf(const QImage& image);

/// As much of the middle as a Canvas can hold.
QRect middleOf(Size size);

}  // namespace gridwright
