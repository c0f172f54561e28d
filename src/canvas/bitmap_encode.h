// A picture as the bytes of a 24-bit bitmap file.
#pragma once

#include <string>

#include "canvas/bitmap_view.h"

namespace gridwright {

/// Rows from the bottom, blue, green and red a byte each, rows filled up to four bytes.
std::string encodeBitmapFile(const BitmapView& picture);

}  // namespace gridwright
