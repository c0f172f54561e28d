// Picture work as plain as can be, for tests of what is made of its results: no smoothing, the first colours
// met are the segments, and nothing is a speck.
#pragma once

#include <algorithm>
#include <cstdlib>

#include "pictures/picture_work.h"

namespace gridwright::test {

class PlainWork : public PictureWork {
 public:
  Bitmap scaled(const Bitmap& picture, Size size) override {
    if (picture.pixels.empty()) return {};
    Bitmap result = plainBitmap(size.width, size.height, 0);
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x)
        result.pixels[static_cast<std::size_t>(y * size.width + x)] =
            picture.at(x * picture.width / size.width, y * picture.height / size.height);
    }
    return result;
  }
  Bitmap smoothed(const Bitmap& picture, int /*side*/) override { return picture; }
  Segments segmented(const Bitmap& picture, int most) override {
    Segments segments;
    for (const Colour pixel : picture.pixels) {
      auto found = std::find(segments.colours.begin(), segments.colours.end(), pixel);
      if (found == segments.colours.end() && static_cast<int>(segments.colours.size()) < most)
        found = segments.colours.insert(found, pixel);
      const auto label = found == segments.colours.end() ? 0 : found - segments.colours.begin();
      segments.labels.push_back(static_cast<std::uint8_t>(label));
    }
    return segments;
  }
  Mask withoutSpecks(const Mask& mask, Size /*size*/, int /*least*/) override { return mask; }
  std::vector<std::uint8_t> depths(const Mask& mask, Size size) override {
    std::vector<std::uint8_t> depths(mask.size(), 0);
    const auto at = [&](int x, int y) {
      const bool inside = x >= 0 && y >= 0 && x < size.width && y < size.height;
      return inside ? static_cast<int>(depths[static_cast<std::size_t>(y * size.width + x)]) : 0;
    };
    const auto pass = [&](int x, int y, int step) {
      const auto i = static_cast<std::size_t>(y * size.width + x);
      if (mask[i] == 0) return;
      const int near =
          std::min({at(x - step, y), at(x - step, y - step), at(x, y - step), at(x + step, y - step)});
      const int now = step > 0 ? 255 : static_cast<int>(depths[i]);
      depths[i] = static_cast<std::uint8_t>(std::min({now, near + 1, 255}));
    };
    for (int y = 0; y < size.height; ++y)
      for (int x = 0; x < size.width; ++x) pass(x, y, 1);
    for (int y = size.height - 1; y >= 0; --y)
      for (int x = size.width - 1; x >= 0; --x) pass(x, y, -1);
    return depths;
  }
};

}  // namespace gridwright::test
