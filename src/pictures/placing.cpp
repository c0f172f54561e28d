#include "pictures/placing.h"

#include <algorithm>

#include "pictures/fit.h"
#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

struct Subject {
  Paper paper;
  Square box;
};

int widthOf(const Square& box) { return box.right - box.left + 1; }
int heightOf(const Square& box) { return box.bottom - box.top + 1; }

Subject subjectIn(const Layer& layer, int speck, PictureWork& work) {
  Subject subject{findPaper(layer), {}};
  subject.box = subjectOf(subject.paper.mask, layer.size(), speck, work);
  if (subject.box.right < subject.box.left) {
    subject.box = {0, 0, layer.colours.width - 1, layer.colours.height - 1};
  }
  return subject;
}

/// The picture so large that it fits into the Canvas, and its subject into what the frame leaves of it.
Layer fittedLayer(const Layer& whole, Size canvas, Size room, int speck, PictureWork& work) {
  Layer fitted = scaledLayer(whole, fittedInto(canvas, whole.size()), work);
  const Square box = subjectIn(fitted, speck, work).box;
  const double times = std::min(static_cast<double>(room.width) / widthOf(box),
                                static_cast<double>(room.height) / heightOf(box));
  if (times >= 1) return fitted;
  const auto side = [&](int length) { return std::max(1, static_cast<int>(length * times)); };
  return scaledLayer(whole, {side(fitted.colours.width), side(fitted.colours.height)}, work);
}

}  // namespace

Placed placed(const Picture& picture, bool asItsSize, Size canvas, int frame, int speck, PictureWork& work) {
  const Size room{std::max(1, canvas.width - 2 * frame), std::max(1, canvas.height - 2 * frame)};
  Placed result;
  const Layer layer = asItsSize ? picture.asItIs() : fittedLayer(picture.whole, canvas, room, speck, work);
  if (!asItsSize) result.enlarged = static_cast<double>(layer.colours.width) / std::max(1, picture.own.width);
  const Subject subject = subjectIn(layer, speck, work);
  // The subject's middle comes to the Canvas's; of the picture, what the frame leaves room for.
  const int left = (canvas.width - widthOf(subject.box)) / 2 - subject.box.left;
  const int top = (canvas.height - heightOf(subject.box)) / 2 - subject.box.top;
  result.layer.colours = plainBitmap(canvas.width, canvas.height, subject.paper.colour);
  result.layer.clear.assign(result.layer.colours.pixels.size(), 1);
  result.part = {std::max(left, frame), std::max(top, frame),
                 std::min(left + layer.colours.width, canvas.width - frame) - 1,
                 std::min(top + layer.colours.height, canvas.height - frame) - 1};
  for (int y = result.part.top; y <= result.part.bottom; ++y) {
    for (int x = result.part.left; x <= result.part.right; ++x) {
      const std::size_t from = placeOf(layer.size(), x - left, y - top);
      const std::size_t to = placeOf(canvas, x, y);
      if (layer.isClear(from)) continue;
      result.layer.colours.pixels[to] = layer.colours.pixels[from];
      result.layer.clear[to] = 0;
    }
  }
  const bool isCut = asItsSize && (widthOf(subject.box) > room.width || heightOf(subject.box) > room.height ||
                                   !picture.isWholeAsItIs());
  result.taken =
      isCut ? Size{std::min(picture.own.width, room.width), std::min(picture.own.height, room.height)}
            : picture.own;
  return result;
}

}  // namespace gridwright
