#include "canvas/folded_bitmap.h"

#include <algorithm>

namespace gridwright {

void FoldedBitmap::take(const BitmapView& picture) {
  width_ = picture.width;
  height_ = picture.height;
  const auto columns = static_cast<std::size_t>(width_);
  rows_.clear();
  rows_.reserve(columns * static_cast<std::size_t>(height_));  // what is not written to costs nothing
  places_.clear();
  std::size_t count = 0;
  for (int y = 0; y < height_; ++y) {
    if (y == 0 || !picture.isLikeRowAbove(y)) {
      rows_.insert(rows_.end(), picture.row(y), picture.row(y) + columns);
      const auto begin = rows_.end() - static_cast<std::ptrdiff_t>(columns);
      std::transform(begin, rows_.end(), begin, [](Colour pixel) { return pixel & kColourBits; });
      ++count;
    }
    places_.push_back(count - 1);
  }
}

}  // namespace gridwright
