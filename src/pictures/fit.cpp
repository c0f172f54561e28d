#include "pictures/fit.h"

#include <algorithm>
#include <cmath>

#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

constexpr Colour kHalf = 128;

/// The mask as a picture in grey: black, and white where it holds.
Bitmap greyOf(const Mask& mask, Size size) {
  Bitmap grey = plainBitmap(size.width, size.height, 0);
  std::transform(mask.begin(), mask.end(), grey.pixels.begin(),
                 [](std::uint8_t clear) { return clear != 0 ? qb::white : 0; });
  return grey;
}

}  // namespace

Size fittedInto(Size box, Size shape) {
  const double times =
      std::min(static_cast<double>(box.width) / shape.width, static_cast<double>(box.height) / shape.height);
  const auto side = [&](int length, int most) {
    return std::clamp(static_cast<int>(std::lround(length * times)), 1, most);
  };
  return {side(shape.width, box.width), side(shape.height, box.height)};
}

Layer scaledLayer(const Layer& layer, Size size, PictureWork& work) {
  Layer scaled{work.scaled(layer.colours, size), {}};
  if (layer.clear.empty()) return scaled;
  const Bitmap grey = work.scaled(greyOf(layer.clear, layer.size()), size);
  scaled.clear.resize(grey.pixels.size());
  std::transform(grey.pixels.begin(), grey.pixels.end(), scaled.clear.begin(),
                 [](Colour pixel) { return (pixel & 0xFF) >= kHalf ? 1 : 0; });
  return scaled;
}

Layer cutOut(const Layer& layer, const Square& part) {
  Layer cut{plainBitmap(part.right - part.left + 1, part.bottom - part.top + 1, 0), {}};
  if (!layer.clear.empty()) cut.clear.resize(cut.colours.pixels.size());
  const int width = cut.colours.width;
  for (int y = 0; y < cut.colours.height; ++y) {
    const std::size_t from = placeOf(layer.size(), part.left, part.top + y);
    const std::size_t to = placeOf(cut.size(), 0, y);
    std::copy_n(layer.colours.pixels.data() + from, width, cut.colours.pixels.data() + to);
    if (!cut.clear.empty()) std::copy_n(layer.clear.data() + from, width, cut.clear.data() + to);
  }
  return cut;
}

}  // namespace gridwright
