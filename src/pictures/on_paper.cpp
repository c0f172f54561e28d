#include "pictures/on_paper.h"

#include <algorithm>

#include "pictures/ready.h"

namespace gridwright {

Bitmap onPaper(const Layer& layer) {
  Bitmap picture = layer.colours;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    if (layer.isClear(i)) picture.pixels[i] = kPaper;
  }
  return picture;
}

bool isPaperAlone(const Bitmap& picture) {
  return std::all_of(picture.pixels.begin(), picture.pixels.end(),
                     [](Colour pixel) { return pixel == kPaper; });
}

}  // namespace gridwright
