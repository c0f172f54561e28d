#include "maze/cursor_way.h"

#include <algorithm>

namespace gridwright {

namespace {

struct Range {
  int from, to;
};

/// The farthest pixel that a cell's test reads lies two walls and a pixel before its square, or three
/// walls behind its corner.
Range readers(int first, int last, int origin, int step, int wall, int count) {
  const int from = (first - 3 * wall - origin) / step - 1;
  const int to = (last + 2 * wall + 1 - origin) / step + 1;
  return {std::clamp(from, 0, count), std::clamp(to, 0, count)};
}

}  // namespace

CursorWay::CursorWay(const ProgramState& s)
    : wallWidth_(s.wallWidth),
      wallHeight_(s.wallHeight),
      stepX_(s.stepX),
      stepY_(s.stepY),
      left_(s.wallWidth + 1 - s.stepX),
      top_(s.wallHeight + 1 - s.stepY),
      columns_(std::max(0, (s.canvasWidth - left_) / s.stepX + 1)),
      rows_(std::max(0, (s.canvasHeight - top_) / s.stepY + 1)) {}

bool CursorWay::holds(CellCorner corner) const {
  const int right = corner.left - left_;
  const int down = corner.top - top_;
  return right >= 0 && down >= 0 && right % stepX_ == 0 && down % stepY_ == 0 && holds(place(corner));
}

CellSpan CursorWay::around(CellCorner corner) const {
  const CellPlace at = place(corner);
  return {std::clamp(at.column - 1, 0, columns_), std::clamp(at.column + 2, 0, columns_),
          std::clamp(at.row - 1, 0, rows_), std::clamp(at.row + 2, 0, rows_)};
}

CellSpan CursorWay::readersOf(int left, int top, int right, int bottom) const {
  const Range columns = readers(left, right - 1, left_, stepX_, wallWidth_, columns_);
  const Range rows = readers(top, bottom - 1, top_, stepY_, wallHeight_, rows_);
  return {columns.from, columns.to, rows.from, rows.to};
}

}  // namespace gridwright
