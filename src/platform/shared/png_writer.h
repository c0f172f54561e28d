// PNG files of any size, row by row: at 1200 dots an inch a page has two hundred million pixels, which nobody
// holds in memory, and nearly every row of them is the one above.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "canvas/bitmap_view.h"

namespace gridwright {

/// Takes the next bytes of a file. \returns whether they were taken.
using TakeBytes = std::function<bool(std::string_view)>;

/// Writes a picture as a PNG, each pixel as a square of `scale` by `scale` of just its colour, see-through
/// where it has `kSeeThrough`. The same picture gives the same bytes.
/// \param dpi what the file says of its dots an inch.
/// \returns whether all bytes were taken.
bool writePng(const BitmapView& picture, int scale, int dpi, const TakeBytes& take);

/// The same as bytes, for pictures of a moderate size.
std::string pngOf(const BitmapView& picture, int scale, int dpi);

}  // namespace gridwright
