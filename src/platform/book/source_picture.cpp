#include "platform/book/source_picture.h"

#include <algorithm>

#include "canvas/canvas.h"

namespace gridwright::book {

namespace {

template <class Value>
auto valueAt(const std::vector<Value>& list, int index) {
  std::optional<Value> value;
  if (!list.empty()) value = list[static_cast<std::size_t>(index) % list.size()];
  return value;
}

}  // namespace

PackedPicture::PackedPicture(const Bitmap& picture) : size_{picture.width, picture.height} {
  RunWriter runs;
  const auto width = static_cast<std::size_t>(picture.width);
  std::vector<Colour> changed(width);
  for (int y = 0; y < picture.height; ++y) {
    const Colour* row = picture.row(y);
    for (std::size_t x = 0; x < width; ++x) changed[x] = y == 0 ? row[x] : row[x] ^ picture.row(y - 1)[x];
    runs.add(changed.data(), width);
  }
  runs_ = runs.take();
}

Bitmap PackedPicture::unpacked() const {
  Bitmap picture{size_.width, size_.height, gridwright::unpacked(runs_)};
  const auto width = static_cast<std::size_t>(size_.width);
  for (std::size_t i = width; i < picture.pixels.size(); ++i) picture.pixels[i] ^= picture.pixels[i - width];
  return picture;
}

Size SourcePicture::canvas() const {
  constexpr int kShortest = 50;
  return {std::clamp(picture.size().width, kShortest, Canvas::kSide),
          std::clamp(picture.size().height, kShortest, Canvas::kSide)};
}

MazeWish wishOf(const WishedSettings& wished, int index) {
  return {valueAt(wished.kinds, index),
          valueAt(wished.walls, index),
          valueAt(wished.difficulties, index),
          valueAt(wished.largePaths, index),
          valueAt(wished.shortUnderpasses, index),
          valueAt(wished.patterns, index),
          valueAt(wished.ends, index),
          wished.mazeColours};
}

}  // namespace gridwright::book
