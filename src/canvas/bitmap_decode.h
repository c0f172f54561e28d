// Bitmap files to exact 24-bit colour.
//
// The system's decoders take cut-off files without a word, make 248 of a full five-bit channel, so that
// white is white no more, and know only some of the headers in use. A drawing's colours mean something
// to the pixel, so the program reads the format itself.
#pragma once

#include <string_view>

#include "canvas/bitmap.h"
#include "canvas/outcome.h"

namespace gridwright {

/// Decodes a bitmap file of 1 to 32 bits a pixel, either row order, plain or run-length coded; alpha is
/// dropped, and what lies beyond `side` pixels to the right and below is left out.
/// \returns a malformed Fault when the file is not whole.
Outcome<Bitmap> decodeBitmapFile(std::string_view bytes, int side);

}  // namespace gridwright
