#include "pictures/figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "pictures/bit_plane.h"

namespace gridwright {

namespace {

int signOf(int number) { return (number > 0) - (number < 0); }

/// Calls `take` with each pixel of the way between two corners, both included.
template <class Take>
void forLine(Corner from, Corner to, Take take) {
  const int dx = std::abs(to.x - from.x);
  const int dy = std::abs(to.y - from.y);
  int error = dx - dy;
  for (Corner at = from;;) {
    take(at);
    if (at.x == to.x && at.y == to.y) return;
    const int doubled = 2 * error;
    if (doubled > -dy) {
      error -= dy;
      at.x += signOf(to.x - from.x);
    }
    if (doubled < dx) {
      error += dx;
      at.y += signOf(to.y - from.y);
    }
  }
}

/// What a convex pen covers in each of its rows, from its place on; a row of it is never empty.
Spans rowsOf(const Pen& pen) {
  Spans rows;
  const double middleX = (pen.width - 1) / 2.0;
  const double middleY = (pen.height - 1) / 2.0;
  const int left = -((pen.width - 1) / 2);
  const int top = -((pen.height - 1) / 2);
  for (int y = 0; y < pen.height; ++y) {
    const double far = (y - middleY) / (pen.height / 2.0);
    const double half = pen.isRound ? pen.width / 2.0 * std::sqrt(1 - far * far) : middleX;
    rows.push_back({top + y, left + static_cast<int>(std::ceil(middleX - half)),
                    left + static_cast<int>(std::floor(middleX + half))});
  }
  return rows;
}

Square boxOf(Corner from, Corner to) {
  return {std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
}

/// The part of an ellipse's row that lies in it, where the row is one of its box.
class Ellipse {
 public:
  explicit Ellipse(const Square& box)
      : box_(box),
        middleX_((box.left + box.right) / 2.0),
        middleY_((box.top + box.bottom) / 2.0),
        halfWidth_((box.right - box.left + 1) / 2.0),
        halfHeight_((box.bottom - box.top + 1) / 2.0) {}

  [[nodiscard]] bool has(int y) const { return y >= box_.top && y <= box_.bottom; }
  [[nodiscard]] Span row(int y) const {
    const double far = (y - middleY_) / halfHeight_;
    const double half = halfWidth_ * std::sqrt(1 - far * far);
    const auto left = static_cast<int>(std::ceil(middleX_ - half));
    const auto right = static_cast<int>(std::floor(middleX_ + half));
    if (left <= right) return {y, left, right};
    return {y, static_cast<int>(std::floor(middleX_)), static_cast<int>(std::ceil(middleX_))};
  }

  /// What of a row is further from all that is not in the ellipse than the outline is thick.
  [[nodiscard]] Span inner(int y, Size thick) const {
    Span inner{y, box_.left, box_.right};
    for (int dy = -thick.height; dy <= thick.height; ++dy) {
      if (!has(y + dy)) return {y, 0, -1};
      const double far = static_cast<double>(dy) / thick.height;
      const auto aside = static_cast<int>(std::lround(thick.width * std::sqrt(1 - far * far)));
      const Span beside = row(y + dy);
      inner.left = std::max(inner.left, beside.left + aside);
      inner.right = std::min(inner.right, beside.right - aside);
    }
    return inner;
  }

 private:
  Square box_;
  double middleX_, middleY_, halfWidth_, halfHeight_;
};

/// A row without its inner part, if it has one.
void addAround(Spans& spans, const Span& outer, const Span& inner) {
  if (inner.left > inner.right) {
    spans.push_back(outer);
    return;
  }
  spans.push_back({outer.y, outer.left, inner.left - 1});
  spans.push_back({outer.y, inner.right + 1, outer.right});
}

int blockOf(int at, int wall, int step) {
  const int from = at - wall + step;  // the block that the band along the edge lies in is number 0
  return from >= 0 ? from / step : -1;
}

}  // namespace

Spans lineFigure(Corner from, Corner to, const Pen& pen, int sheetHeight) {
  const Spans penRows = rowsOf(pen);
  const int top = std::max(0, std::min(from.y, to.y) - pen.height);
  const int bottom = std::min(sheetHeight - 1, std::max(from.y, to.y) + pen.height);
  if (top > bottom) return {};
  constexpr int kFar = 1 << 20;
  Spans rows;
  for (int y = top; y <= bottom; ++y) rows.push_back({y, kFar, -kFar});
  forLine(from, to, [&](Corner at) {
    for (const Span& part : penRows) {
      const int y = at.y + part.y;
      if (y < top || y > bottom) continue;
      Span& row = rows[static_cast<std::size_t>(y - top)];
      row.left = std::min(row.left, at.x + part.left);
      row.right = std::max(row.right, at.x + part.right);
    }
  });
  std::erase_if(rows, [](const Span& row) { return row.left > row.right; });
  return rows;
}

Spans rectangleFigure(Corner from, Corner to, Size thick, int sheetHeight) {
  const Square box = boxOf(from, to);
  Spans spans;
  for (int y = std::max(0, box.top); y <= std::min(sheetHeight - 1, box.bottom); ++y) {
    const bool isInside = thick.height > 0 && y >= box.top + thick.height && y <= box.bottom - thick.height;
    const Span inner{y, box.left + thick.width, box.right - thick.width};
    addAround(spans, {y, box.left, box.right}, isInside ? inner : Span{y, 0, -1});
  }
  return spans;
}

Spans ellipseFigure(Corner from, Corner to, Size thick, int sheetHeight) {
  const Square box = boxOf(from, to);
  const Ellipse ellipse(box);
  Spans spans;
  for (int y = std::max(0, box.top); y <= std::min(sheetHeight - 1, box.bottom); ++y) {
    addAround(spans, ellipse.row(y), thick.height > 0 ? ellipse.inner(y, thick) : Span{y, 0, -1});
  }
  return spans;
}

Corner straightened(Corner from, Corner to) {
  const int dx = to.x - from.x;
  const int dy = to.y - from.y;
  if (5 * std::abs(dy) < 2 * std::abs(dx)) return {to.x, from.y};
  if (5 * std::abs(dx) < 2 * std::abs(dy)) return {from.x, to.y};
  return squared(from, to);
}

Corner squared(Corner from, Corner to) {
  const int side = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
  return {to.x < from.x ? from.x - side : from.x + side, to.y < from.y ? from.y - side : from.y + side};
}

Spans mirrored(const Spans& spans, Mirror mirror, Size sheet) {
  Spans all = spans;
  const auto addEach = [&](auto mirrorOf) {
    const std::size_t count = all.size();
    for (std::size_t i = 0; i < count; ++i) all.push_back(mirrorOf(Span(all[i])));
  };
  if (mirror == Mirror::leftRight || mirror == Mirror::both)
    addEach([&](const Span& s) { return Span{s.y, sheet.width - 1 - s.right, sheet.width - 1 - s.left}; });
  if (mirror == Mirror::topBottom || mirror == Mirror::both)
    addEach([&](const Span& s) { return Span{sheet.height - 1 - s.y, s.left, s.right}; });
  return all;
}

Spans snappedToCells(const Spans& spans, const CellPitch& pitch, Size sheet) {
  BitPlane cells({blockOf(sheet.width - 1, pitch.wall, pitch.stepX) + 1,
                  blockOf(sheet.height - 1, pitch.wall, pitch.stepY) + 1});
  for (const Span& s : spans) {
    const int left = std::max(s.left, 0);
    const int right = std::min(s.right, sheet.width - 1);
    if (s.y < 0 || s.y >= sheet.height || left > right) continue;
    cells.setSpan(blockOf(s.y, pitch.wall, pitch.stepY), blockOf(left, pitch.wall, pitch.stepX),
                  blockOf(right, pitch.wall, pitch.stepX));
  }
  Spans whole;
  forRuns(cells, [&](int row, int first, int last) {
    const int top = pitch.wall + (row - 1) * pitch.stepY;
    for (int y = std::max(top, 0); y < std::min(top + pitch.stepY, sheet.height); ++y) {
      whole.push_back({y, pitch.wall + (first - 1) * pitch.stepX, pitch.wall + last * pitch.stepX - 1});
    }
  });
  return whole;
}

}  // namespace gridwright
