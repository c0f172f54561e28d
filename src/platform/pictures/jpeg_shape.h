// What a JPEG file says of itself between its markers, before anything decodes it.
#pragma once

#include <QIODevice>

#include "canvas/geometry.h"

namespace gridwright {

struct JpegShape {
  Size size;             ///< In its own pixels, unturned; 0 by 0 when it does not say.
  bool oneScan = false;  ///< Whether it can be decoded row by row, with no more memory than a few rows.
  bool whole = false;    ///< Whether it comes to its end. Decoders fill what is missing with grey.
};

/// Reads the device from its beginning to the picture's end, and leaves it there.
JpegShape shapeOfJpeg(QIODevice& device);

}  // namespace gridwright
