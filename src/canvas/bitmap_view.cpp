#include "canvas/bitmap_view.h"

#include <algorithm>

namespace gridwright {

Bitmap BitmapView::copied() const {
  Bitmap bitmap;
  copyTo(bitmap);
  return bitmap;
}

void BitmapView::copyTo(Bitmap& bitmap) const {
  bitmap.width = width;
  bitmap.height = height;
  bitmap.cutFrom = {};
  bitmap.pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  Colour* out = bitmap.pixels.data();
  for (int y = 0; y < height; ++y, out += width)
    std::transform(row(y), row(y) + width, out, [](Colour pixel) { return pixel & kColourBits; });
}

bool BitmapView::isSameAs(const BitmapView& other) const {
  if (other.width != width || other.height != height) return false;
  for (int y = 0; y < height; ++y) {
    const Colour* mine = row(y);
    const Colour* its = other.row(y);
    Colour differ = 0;  // the row as a whole: a loop that may stop at each pixel costs several times that
    for (int x = 0; x < width; ++x) differ |= (mine[x] ^ its[x]) & kColourBits;
    if (differ != 0) return false;
  }
  return true;
}

}  // namespace gridwright
