#include "solve/maze_ways.h"

#include <algorithm>

namespace gridwright {

namespace {

constexpr std::array kSides = {MazeWays::left, MazeWays::right, MazeWays::up, MazeWays::down};

/// How many squares of a size fit behind an offset.
int fitting(int extent, int offset, int wall) { return std::max(0, (extent - offset) / wall); }

}  // namespace

MazeWays::MazeWays(const MazePicture& maze)
    : wall_(maze.wall),
      left_(std::max(0, maze.start.left - 1) % maze.wall),
      top_(std::max(0, maze.start.top - 1) % maze.wall),
      columns_(fitting(maze.pixels.width, left_, maze.wall)),
      rows_(fitting(maze.pixels.height, top_, maze.wall)),
      pitch_(maze.kind == MazeKind::pipe ? 2 : 1) {
  const auto count = static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_);
  forks_.resize(count);
  open_.resize(count);
  start_ = cellAt(maze.start);
  finish_ = cellAt(maze.finish);
  for (int cell = 0; cell < cells(); ++cell) open_[static_cast<std::size_t>(cell)] = openSides(maze, cell);
  for (int cell = 0; cell < cells(); ++cell) {
    for (const Side side : {right, down}) {
      if (isOpen(cell, side)) join(cell, beside(cell, side), side, false);
    }
  }
  if (maze.kind == MazeKind::regular) return;
  for (int cell = 0; cell < cells(); ++cell) {
    for (const Side side : {right, down}) followUnderpass(cell, side);
  }
}

int MazeWays::cellAt(const Square& square) const {
  const int x = square.left - 1 - left_;
  const int y = square.top - 1 - top_;
  if (x < 0 || y < 0 || x / wall_ >= columns_ || y / wall_ >= rows_) return -1;
  return y / wall_ * columns_ + x / wall_;
}

bool MazeWays::isOfKind(int cell) const {
  const int across = cell % columns_ - start_ % columns_;
  const int along = cell / columns_ - start_ / columns_;
  return across % pitch_ == 0 && along % pitch_ == 0;
}

int MazeWays::carvedCells() const {
  int count = 0;
  for (int cell = 0; cell < cells(); ++cell) count += isCarved(cell) && isOfKind(cell);
  return count;
}

int MazeWays::beside(int cell, Side side) const {
  switch (side) {
    case left:
      return cell % columns_ > 0 ? cell - 1 : -1;
    case right:
      return cell % columns_ + 1 < columns_ ? cell + 1 : -1;
    case up:
      return cell >= columns_ ? cell - columns_ : -1;
    default:
      return cell / columns_ + 1 < rows_ ? cell + columns_ : -1;
  }
}

/// Two pixels of wall lie between the squares of two cells; where both are carved the cells are joined.
std::uint8_t MazeWays::openSides(const MazePicture& maze, int cell) const {
  const int x = left_ + cell % columns_ * wall_ + 1;
  const int y = top_ + cell / columns_ * wall_ + 1;
  const int farX = x + wall_ - 3;
  const int farY = y + wall_ - 3;
  const auto isWay = [&](int px, int py) {
    const Colour pixel = maze.pixels.row(py)[px] & kColourBits;
    return maze.sets.isMaze(pixel) || pixel == maze.startColor || pixel == maze.finishColor;
  };
  if (!isWay(x, y) || !isWay(farX, farY)) return 0;
  std::uint8_t sides = kCarved;
  for (const Side side : kSides) {
    if (beside(cell, side) == -1) continue;
    const bool level = side == left || side == right;
    const int away = side == left || side == up ? -1 : 1;
    const int px = level ? (away < 0 ? x : farX) : x;
    const int py = level ? y : (away < 0 ? y : farY);
    const auto carved = [&](int far) {
      return level ? isWay(px + away * far, py) : isWay(px, py + away * far);
    };
    if (carved(1) && carved(2)) sides = static_cast<std::uint8_t>(sides | 1U << side);
  }
  return sides;
}

void MazeWays::join(int from, int to, Side side, bool under) {
  const auto add = [&](int cell, const Way& way) {
    Fork& fork = forks_[static_cast<std::size_t>(cell)];
    if (fork.count < fork.ways.size()) fork.ways.at(fork.count++) = way;
  };
  add(from, {to, side, under});
  add(to, {from, opposite(side), under});
}

/// A cell whose one opening lies behind it, with carved ground before it, is the mouth of an underpass, which
/// leads straight on to the mouth that closes it as brackets do; a cell that is closed all round is a stop on
/// its way.
void MazeWays::followUnderpass(int mouth, Side side) {
  const Side back = opposite(side);
  const int first = beside(mouth, side);
  if (!isCarved(mouth) || !opensOnly(mouth, back) || first == -1 || !isCarved(first)) return;
  int from = mouth;
  int depth = 1;
  for (int cell = first; cell != -1; cell = beside(cell, side)) {
    if (!isCarved(cell)) return;
    if (isClosed(cell)) {
      if (depth != 1) continue;
    } else if (opensOnly(cell, back)) {
      ++depth;
      continue;
    } else if (!opensOnly(cell, side) || --depth != 0) {
      continue;
    }
    join(from, cell, side, true);
    if (depth == 0) return;
    from = cell;
  }
}

}  // namespace gridwright
