// What a pixel of the preview field is. Black belongs to all four sets: a dead end's mark counts as
// everything.
#pragma once

#include "canvas/canvas.h"

namespace gridwright {

namespace preview {
inline constexpr Colour path = kPalette[15];
inline constexpr Colour field = kPalette[1];
inline constexpr Colour outside = kPalette[14];
inline constexpr Colour marker = kPalette[0];
}  // namespace preview

class PreviewPixels {
 public:
  explicit PreviewPixels(const Canvas& canvas) : canvas_(canvas) {}

  [[nodiscard]] Colour at(int x, int y) const { return canvas_.point(x, y); }
  [[nodiscard]] bool maze(int x, int y) const { return isOneOf(at(x, y), preview::path); }
  [[nodiscard]] bool free(int x, int y) const { return isOneOf(at(x, y), preview::field); }
  /// Beyond the Canvas lies wall: no trial leaves it.
  [[nodiscard]] bool wall(int x, int y) const {
    return isOneOf(at(x, y), preview::outside) || at(x, y) == kOutside;
  }
  [[nodiscard]] bool closed(int x, int y) const { return maze(x, y) || wall(x, y); }

 private:
  static bool isOneOf(Colour pixel, Colour own) { return pixel == own || pixel == preview::marker; }

  const Canvas& canvas_;
};

}  // namespace gridwright
