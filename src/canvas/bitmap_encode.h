// A picture as the bytes of a 24-bit bitmap file.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "canvas/bitmap_view.h"

namespace gridwright {

/// Rows from the bottom, blue, green and red a byte each, rows filled up to four bytes. The file is handed
/// over block by block, from one place that stays in the processor's cache: in one piece it would go through
/// memory once more. \returns whether every block was taken; after one that was not there comes no other.
bool encodeBitmapFile(const BitmapView& picture, const std::function<bool(std::string_view)>& take);

/// The same in one piece.
std::string encodeBitmapFile(const BitmapView& picture);

}  // namespace gridwright
