#include "pictures/letter_cells.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace gridwright {

namespace {

/// The neighbours of a pixel, going round, sides at the even places.
constexpr std::array<Corner, 8> kRound = {
    {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}}};

/// Whether a pixel of paper may become ink without closing a hole, making one or joining what was apart:
/// going round it one meets exactly one stretch of ink that touches it by a side. Ink hangs together by
/// sides.
bool joinsOnce(unsigned around) {
  int stretches = 0;
  for (unsigned i = 0; i < 8; i += 2) {
    if ((around >> i & 1) == 0) continue;
    const bool goesOn = (around >> ((i + 7) % 8) & 1) != 0 && (around >> ((i + 6) % 8) & 1) != 0;
    stretches += goesOn ? 0 : 1;
  }
  return stretches == 1;
}

std::array<bool, 256> joinsOnceTable() {
  std::array<bool, 256> table{};
  for (unsigned around = 0; around < 256; ++around) table[around] = joinsOnce(around);
  return table;
}

unsigned around(const BitPlane& ink, int x, int y) {
  unsigned bits = 0;
  for (unsigned i = 0; i < 8; ++i)
    bits |= static_cast<unsigned>(ink.at(x + kRound[i].x, y + kRound[i].y)) << i;
  return bits;
}

}  // namespace

LetterCells::LetterCells(Size plane, const CellPitch& pitch)
    : pitch_(pitch),
      columns_(std::max(0, (plane.width - 2 * pitch.wall) / pitch.stepX + 1)),
      rows_(std::max(0, (plane.height - 2 * pitch.wall) / pitch.stepY + 1)) {}

BitPlane LetterCells::cellsOf(const BitPlane& ink) const {
  const BitPlane fit = ink.boxesThatFit({pitch_.wall, pitch_.wall});
  BitPlane cells({columns_, rows_});
  for (int row = 0; row < rows_; ++row) {
    for (int column = 0; column < columns_; ++column) {
      if (fit.at(pitch_.wall + column * pitch_.stepX, pitch_.wall + row * pitch_.stepY))
        cells.set(column, row);
    }
  }
  return cells;
}

BitPlane LetterCells::regionFrom(const BitPlane& ink, const BitPlane& cells, Corner cell) const {
  const bool apart = pitch_.stepX > pitch_.wall || pitch_.stepY > pitch_.wall;
  if (!apart) return floodedFrom(cells, cell.x, cell.y);
  BitPlane ways(
      {2 * columns_, 2 * rows_});  // cells at the even places, the way from one to the next between them
  forRuns(cells, [&](int row, int left, int right) {
    for (int column = left; column <= right; ++column) {
      ways.set(2 * column, 2 * row);
      const Square here = pixelsOf({column, row, column, row});
      if (cells.at(column + 1, row) && ink.all({here.left, here.top, here.right, here.top + pitch_.wall - 1}))
        ways.set(2 * column + 1, 2 * row);
      if (cells.at(column, row + 1) &&
          ink.all({here.left, here.top, here.left + pitch_.wall - 1, here.bottom}))
        ways.set(2 * column, 2 * row + 1);
    }
  });
  const BitPlane walked = floodedFrom(ways, 2 * cell.x, 2 * cell.y);
  BitPlane region(cells.size());
  forRuns(cells, [&](int row, int left, int right) {
    for (int column = left; column <= right; ++column) {
      if (walked.at(2 * column, 2 * row)) region.set(column, row);
    }
  });
  return region;
}

bool LetterCells::isOneRegion(const BitPlane& ink) const {
  const BitPlane cells = cellsOf(ink);
  for (int row = 0; row < rows_; ++row) {
    const int column = cells.next(row, 0, true);
    if (column < columns_) return regionFrom(ink, cells, {column, row}) == cells;
  }
  return false;
}

Square LetterCells::pixelsOf(const Square& cells) const {
  return {pitch_.wall + cells.left * pitch_.stepX, pitch_.wall + cells.top * pitch_.stepY,
          pitch_.wall + (cells.right + 1) * pitch_.stepX - 1,
          pitch_.wall + (cells.bottom + 1) * pitch_.stepY - 1};
}

BitPlane thickened(const BitPlane& ink, const BitPlane& barred, bool corners) {
  static const std::array<bool, 256> kJoinsOnce = joinsOnceTable();
  BitPlane rim(ink.size());
  forRuns(ink, [&](int y, int left, int right) {
    const int aside = corners ? 1 : 0;
    rim.setSpan(y, left - 1, right + 1);
    rim.setSpan(y - 1, left - aside, right + aside);
    rim.setSpan(y + 1, left - aside, right + aside);
  });
  rim.without(ink).without(barred);
  BitPlane thicker = ink;
  for (int again = 0; again < 2; ++again) {  // a pixel at a corner joins once those beside it have
    forRuns(rim, [&](int y, int left, int right) {
      for (int x = left; x <= right; ++x) {
        if (!thicker.at(x, y) && kJoinsOnce[around(thicker, x, y)]) thicker.set(x, y);
      }
    });
  }
  return thicker;
}

BitPlane withRim(const BitPlane& ink) {
  BitPlane wide = ink;
  forRuns(ink, [&](int y, int left, int right) {
    for (int by = -1; by <= 1; ++by) wide.setSpan(y + by, left - 1, right + 1);
  });
  return wide;
}

BitPlane holesOf(const BitPlane& ink) {
  const Size size{ink.width() + 2, ink.height() + 2};  // paper all round, so that all outside hangs together
  BitPlane paper(size);
  paper.setBox({0, 0, size.width - 1, size.height - 1});
  forRuns(ink, [&](int y, int left, int right) { paper.clearSpan(y + 1, left + 1, right + 1); });
  BitPlane holes = paper;
  holes.without(floodedFrom(paper, 0, 0));
  return holes.cut({1, 1, ink.width(), ink.height()});
}

namespace {

/// The nearest two cells of a row, of one letter and of the other: from the left one to the right one.
struct Pair {
  int left = 0, right = 0;
};

std::optional<Pair> nearestInRow(const BitPlane& from, const BitPlane& to, int row) {
  std::optional<Pair> nearest;
  if (row < 0 || row >= from.height()) return nearest;
  for (const auto& [one, other] : {std::pair{&from, &to}, std::pair{&to, &from}}) {
    for (int x = one->next(row, 0, true); x < one->width(); x = one->next(row, x + 1, true)) {
      const int beyond = other->next(row, x, true);
      if (beyond == other->width()) break;
      const int last = one->previous(row, beyond + 1, true);
      if (!nearest || beyond - last < nearest->right - nearest->left) nearest = Pair{last, beyond};
      x = last;
    }
  }
  return nearest;
}

BitPlane turned(const BitPlane& plane) {
  BitPlane other({plane.height(), plane.width()});
  forRuns(plane, [&](int y, int left, int right) {
    for (int x = left; x <= right; ++x) other.set(y, x);
  });
  return other;
}

/// The shortest level bar; one whose two rows are both solid in both letters rather than one of whose one row
/// is. \param fits whether a box of cells may be filled.
template <class Fits>
std::optional<Square> shortestLevel(const BitPlane& from, const BitPlane& to, Fits fits) {
  std::optional<Square> best;
  int least = 0;
  constexpr int kWorse = 1'000'000;
  const int middle = (from.bounds().top + from.bounds().bottom) / 2;
  for (int row = 0; row < from.height(); ++row) {
    const auto pair = nearestInRow(from, to, row);
    if (!pair) continue;
    for (const int second : {row + 1, row - 1}) {
      const auto other = nearestInRow(from, to, second);
      if (second < 0 || second >= from.height()) continue;
      const Square bar{std::min(pair->left, other ? other->left : pair->left), std::min(row, second),
                       std::max(pair->right, other ? other->right : pair->right), std::max(row, second)};
      const int cost = 1000 * (bar.right - bar.left) + std::abs(row - middle) + (other ? 0 : kWorse);
      if ((best && cost >= least) || !fits(bar)) continue;
      best = bar;
      least = cost;
    }
  }
  return best;
}

}  // namespace

std::optional<Bar> BarSearch::level() const {
  const auto box =
      shortestLevel(from, to, [&](const Square& cells) { return !closed.any(grid.pixelsOf(cells)); });
  return box ? std::optional<Bar>(Bar{*box}) : std::nullopt;
}

std::optional<Bar> BarSearch::upright() const {
  const auto box = shortestLevel(turned(from), turned(to), [&](const Square& cells) {
    return !closed.any(grid.pixelsOf({cells.top, cells.left, cells.bottom, cells.right}));
  });
  return box ? std::optional<Bar>(Bar{{box->top, box->left, box->bottom, box->right}}) : std::nullopt;
}

std::optional<Bar> BarSearch::bent() const {
  std::optional<Bar> best;
  int least = 0;
  const auto tryBar = [&](Corner one, Corner other) {  // level from the one, upright into the other
    const int cost = 2 * (std::abs(one.x - other.x) + std::abs(one.y - other.y)) +
                     (one.x != other.x && one.y != other.y ? 1 : 0);
    if (best && cost >= least) return;
    const bool above = (from.at(one.x, one.y - 1) || to.at(one.x, one.y - 1)) && one.y > 0;
    const bool before = (from.at(other.x - 1, other.y) || to.at(other.x - 1, other.y)) && other.x > 0;
    const int second = one.y + (above ? -1 : 1);
    const int beside = other.x + (before ? -1 : 1);
    const Square along{std::min({one.x, other.x, beside}), std::min(one.y, second),
                       std::max({one.x, other.x, beside}), std::max(one.y, second)};
    const Square down{std::min(other.x, beside), std::min({one.y, second, other.y}),
                      std::max(other.x, beside), std::max({one.y, second, other.y})};
    if (closed.any(grid.pixelsOf(along)) || closed.any(grid.pixelsOf(down))) return;
    best = one.x == other.x ? Bar{down} : one.y == other.y ? Bar{along} : Bar{along, down};
    least = cost;
  };
  const auto forCells = [](const BitPlane& cells, auto take) {
    forRuns(cells, [&](int y, int left, int right) {
      for (int x = left; x <= right; ++x) take(Corner{x, y});
    });
  };
  forCells(from, [&](Corner one) {
    forCells(to, [&](Corner other) {
      tryBar(one, other);
      tryBar(other, one);
    });
  });
  return best;
}

Bar BarSearch::underline() const {
  const int below = std::max(from.bounds().bottom, to.bounds().bottom) + 1;
  Bar bar;
  Square along{from.width(), below, -1, below + 1};
  for (const BitPlane* letter : {&from, &to}) {
    const int bottom = letter->bounds().bottom;
    const int column = letter->next(bottom, 0, true);
    const int beside = letter->at(column + 1, bottom) || column == 0 ? column + 1 : column - 1;
    bar.push_back({std::min(column, beside), bottom, std::max(column, beside), below});
    along.left = std::min(along.left, bar.back().left);
    along.right = std::max(along.right, bar.back().right);
  }
  bar.push_back(along);
  return bar;
}

}  // namespace gridwright
