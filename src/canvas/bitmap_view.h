// A picture where it lies, for what only reads it: files, printers and the copies that are kept.
#pragma once

#include <algorithm>
#include <cstddef>

#include "canvas/bitmap.h"

namespace gridwright {

/// Rows from the top that belong to a bitmap or to the Canvas and stand as long as that does and nothing is
/// painted. A picture has two megabytes, and a job would copy each several times on its way into a file or
/// onto a page. What a pixel holds above its 24 bits of colour is its owner's alone: readers look past it.
struct BitmapView {
  int width = 0, height = 0;
  const Colour* first = nullptr;
  std::size_t stride = 0;  ///< From one row to the next, in pixels.
  /// Where rows that are alike lie in memory once: by row of the picture, which of those it is.
  const std::size_t* places = nullptr;

  BitmapView(int columns, int rows, const Colour* begin, std::size_t apart,
             const std::size_t* rowPlaces = nullptr)
      : width(columns), height(rows), first(begin), stride(apart), places(rowPlaces) {}
  /// A whole bitmap is a view of itself, so that whoever takes a view takes bitmaps too.
  BitmapView(const Bitmap& picture)
      : BitmapView(picture.width, picture.height, picture.pixels.data(),
                   static_cast<std::size_t>(picture.width)) {}

  [[nodiscard]] const Colour* row(int y) const {
    const auto at = static_cast<std::size_t>(y);
    return first + (places == nullptr ? at : places[at]) * stride;
  }
  /// Whether a row, not the first, is plainly the same as the one above: who has dealt with that one may do
  /// the same again. Rows that differ in no more than what is above their colours may count as others.
  [[nodiscard]] bool isLikeRowAbove(int y) const {
    const Colour* above = row(y - 1);
    return row(y) == above || std::equal(above, above + width, row(y));
  }
  [[nodiscard]] bool isEmpty() const { return width <= 0 || height <= 0; }

  /// The picture as a bitmap of its own, pixels without what is above their colour.
  [[nodiscard]] Bitmap copied() const;
  /// The same into a bitmap that is there, which keeps its memory.
  void copyTo(Bitmap& bitmap) const;
  /// Whether another is just this picture.
  [[nodiscard]] bool isSameAs(const BitmapView& other) const;
};

}  // namespace gridwright
