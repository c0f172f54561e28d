// Is a bitmap file whole, before anything decodes it?
//
// The system's decoder takes cut-off files without a word and trusts the sizes in the header; a
// drawing must come whole or not at all.
#pragma once

#include <string_view>

#include "canvas/geometry.h"
#include "canvas/outcome.h"

namespace gridwright {

/// Reads the headers of a bitmap file of 1 to 32 bits a pixel, either row order, plain or run-length
/// coded, and holds the file's length against them.
/// \returns the picture's size in pixels, or a malformed Fault: cut off, a header that lies, or more
/// than 100 million pixels.
Outcome<Size> checkBitmapFile(std::string_view bytes);

}  // namespace gridwright
