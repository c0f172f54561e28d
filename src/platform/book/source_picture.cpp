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

Size SourcePicture::canvas() const {
  constexpr int kShortest = 50;
  return {std::clamp(bitmap.width, kShortest, Canvas::kSide),
          std::clamp(bitmap.height, kShortest, Canvas::kSide)};
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
