#include "pictures/on_paper.h"

#include "pictures/ready.h"

namespace gridwright {

Bitmap onPaper(const Layer& layer) {
  Bitmap picture = layer.colours;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    if (layer.isClear(i)) picture.pixels[i] = kPaper;
  }
  return picture;
}

}  // namespace gridwright
