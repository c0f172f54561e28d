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

/// One value a pixel, row by row.
template <class Values>
void copyPart(const Values& from, Size size, const Square& part, Values& to) {
  const int width = part.right - part.left + 1;
  for (int y = part.top; y <= part.bottom; ++y) {
    const auto row = from.begin() + static_cast<std::ptrdiff_t>(placeOf(size, part.left, y));
    to.insert(to.end(), row, row + width);
  }
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

Bitmap cutOut(const Bitmap& picture, const Square& part) {
  Bitmap cut{part.right - part.left + 1, part.bottom - part.top + 1, {}};
  copyPart(picture.pixels, {picture.width, picture.height}, part, cut.pixels);
  return cut;
}

Layer cutOut(const Layer& layer, const Square& part) {
  Layer cut{cutOut(layer.colours, part), {}};
  if (!layer.clear.empty()) copyPart(layer.clear, layer.size(), part, cut.clear);
  return cut;
}

}  // namespace gridwright
