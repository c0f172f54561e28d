// A picture in memory, as files and printers get it.
#pragma once

#include <cstddef>
#include <vector>

#include "canvas/colour.h"
#include "canvas/geometry.h"

namespace gridwright {

/// Rows from the top, each pixel 0x00BBGGRR. An empty picture has no pixels and both sizes 0.
struct Bitmap {
  int width = 0, height = 0;
  std::vector<Colour> pixels;
  Size cutFrom{};  ///< How large it is in its file, where reading has cut it; else 0 by 0.

  [[nodiscard]] Colour at(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
  [[nodiscard]] const Colour* row(int y) const {
    return pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
  }
  friend bool operator==(const Bitmap&, const Bitmap&) = default;
};

/// A picture of one colour.
inline Bitmap plainBitmap(int width, int height, Colour colour) {
  return {width, height,
          std::vector<Colour>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour)};
}

}  // namespace gridwright
