// A picture for keeping: a row that is like the one above it lies in memory once.
#pragma once

#include <cstddef>
#include <vector>

#include "canvas/bitmap_view.h"

namespace gridwright {

/// A drawing is plain over wide parts, and a maze's cells are many pixels high, so most rows are like the one
/// above. A copy without them takes a tenth of the memory, and of the time, which is mostly the system's for
/// memory that it gives anew.
class FoldedBitmap {
 public:
  /// Becomes a copy of the picture, in the memory that is there. It may be a view of another one of these.
  void take(const BitmapView& picture);

  /// The picture, until the next `take`.
  [[nodiscard]] BitmapView view() const {
    return {width_, height_, rows_.data(), static_cast<std::size_t>(width_), places_.data()};
  }

 private:
  int width_ = 0, height_ = 0;
  std::vector<Colour> rows_;
  std::vector<std::size_t> places_;  ///< By row of the picture, which of `rows_` it is.
};

}  // namespace gridwright
