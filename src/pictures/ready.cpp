#include "pictures/ready.h"

#include <algorithm>

#include "canvas/canvas.h"
#include "pictures/on_paper.h"

namespace gridwright {

namespace {

constexpr int kFirstBorder = 8;  // the palette's first eight are backgrounds at the start

bool standsInADrawing(Colour pixel) {
  return pixel == kPaper ||
         (pixel != qb::white && std::find(kPalette.begin(), kPalette.end(), pixel) != kPalette.end());
}

}  // namespace

bool isReady(const Bitmap& picture, const ColourSets& sets) {
  const bool fits = picture.width > 1 && picture.height > 1 && picture.width <= Canvas::kSide &&
                    picture.height <= Canvas::kSide && picture.cutFrom == Size{};
  if (!fits) return false;
  const Colour frame = picture.at(1, 1);
  return (frame == kPaper || sets.isBorder(frame)) &&
         std::all_of(picture.pixels.begin(), picture.pixels.end(), standsInADrawing);
}

bool isReady(const Picture& picture, const ColourSets& sets) {
  return picture.isWholeAsItIs() && picture.middle.colours.pixels.empty() &&
         isReady(onPaper(picture.whole), sets);
}

bool sameSets(const ColourSets& one, const ColourSets& other) {
  return one.background() == other.background() && one.border() == other.border() &&
         one.maze() == other.maze() && one.extraBackground() == other.extraBackground();
}

ColourSets startingSets() {
  ColourSets sets;
  for (int slot = 0; slot < kSlots; ++slot) sets.classify(slot, slot < kFirstBorder);
  sets.setAllMaze(qb::white);
  sets.setExtraBackgroundByRule();
  return sets;
}

}  // namespace gridwright
