#include "support/maze_reading.h"

#include <algorithm>
#include <deque>
#include <utility>

#include "support/pictures.h"

namespace gridwright::test {

PlainSets::PlainSets(const ColourSets& sets)
    : background(sets.background().begin(), sets.background().end()),
      maze(sets.maze().begin(), sets.maze().end()) {
  background.push_back(sets.extraBackground());
}

bool PlainSets::isMaze(Colour c) const { return std::find(maze.begin(), maze.end(), c) != maze.end(); }

bool PlainSets::isFree(Colour c) const {
  return !isMaze(c) && std::find(background.begin(), background.end(), c) != background.end();
}

MazeReading::MazeReading(Bitmap before, Bitmap after, PlainSets sets, int wall)
    : before_(std::move(before)),
      after_(std::move(after)),
      sets_(std::move(sets)),
      wall_(wall),
      columns_(before_.width / wall),
      rows_(before_.height / wall) {
  for (int cell = 0; cell < columns_ * rows_; ++cell) {
    const int left = cell % columns_ * wall_;
    const int top = cell / columns_ * wall_;
    bool isFree = true;
    for (int y = top; y < top + wall_; ++y) {
      for (int x = left; x < left + wall_; ++x) isFree = isFree && sets_.isFree(before_.at(x, y));
    }
    free_.push_back(isFree);
  }
}

int MazeReading::cellOf(const Square& square) const {
  return square.top / wall_ * columns_ + square.left / wall_;
}

Square MazeReading::squareAt(int cell) const {
  const int left = cell % columns_ * wall_;
  const int top = cell / columns_ * wall_;
  return {left + 1, top + 1, left + wall_ - 2, top + wall_ - 2};
}

int MazeReading::freeCells() const { return static_cast<int>(std::count(free_.begin(), free_.end(), true)); }

std::vector<int> MazeReading::neighbours(int cell) const {
  std::vector<int> found;
  const auto add = [&](bool inside, int other) {
    if (inside && free_[static_cast<std::size_t>(other)]) found.push_back(other);
  };
  add(cell % columns_ > 0, cell - 1);
  add(cell % columns_ < columns_ - 1, cell + 1);
  add(cell >= columns_, cell - columns_);
  add(cell < columns_ * (rows_ - 1), cell + columns_);
  return found;
}

Square MazeReading::wallBetween(int a, int b) const {
  const Square p = squareAt(std::min(a, b));
  const bool beside = std::abs(a - b) == 1;
  return beside ? Square{p.right + 1, p.top, p.right + 2, p.bottom}
                : Square{p.left, p.bottom + 1, p.right, p.bottom + 2};
}

bool MazeReading::all(const Square& box, bool carved) const {
  for (int y = box.top; y <= box.bottom; ++y) {
    for (int x = box.left; x <= box.right; ++x) {
      if (sets_.isMaze(after_.at(x, y)) != carved) return false;
    }
  }
  return true;
}

bool MazeReading::joined(int a, int b) const {
  const Square wall = wallBetween(a, b);
  return sets_.isMaze(after_.at(wall.left, wall.top));
}

std::vector<int> MazeReading::regionOf(int cell, bool overJoins) const {
  std::vector<bool> seen(free_.size());
  std::vector<int> region{cell};
  seen[static_cast<std::size_t>(cell)] = true;
  for (std::size_t i = 0; i < region.size(); ++i) {
    for (const int next : neighbours(region[i])) {
      if (seen[static_cast<std::size_t>(next)] || (overJoins && !joined(region[i], next))) continue;
      seen[static_cast<std::size_t>(next)] = true;
      region.push_back(next);
    }
  }
  return region;
}

int MazeReading::regions() const {
  std::vector<bool> seen(free_.size());
  int count = 0;
  for (int cell = 0; cell < columns_ * rows_; ++cell) {
    if (!free_[static_cast<std::size_t>(cell)] || seen[static_cast<std::size_t>(cell)]) continue;
    ++count;
    for (const int member : regionOf(cell, false)) seen[static_cast<std::size_t>(member)] = true;
  }
  return count;
}

int MazeReading::joins() const {
  int count = 0;
  for (int cell = 0; cell < columns_ * rows_; ++cell) {
    if (!free_[static_cast<std::size_t>(cell)]) continue;
    for (const int next : neighbours(cell)) count += next > cell && joined(cell, next);
  }
  return count;
}

std::string MazeReading::where(int cell) const {
  return " at column " + std::to_string(cell % columns_) + ", row " + std::to_string(cell / columns_);
}

std::string MazeReading::pixelFault() const {
  Bitmap expected = before_;
  const auto carve = [&](const Square& box) {
    for (int y = box.top; y <= box.bottom; ++y) {
      for (int x = box.left; x <= box.right; ++x) {
        pixelAt(expected, x, y) = after_.at(x, y);  // which maze colour it got is another test's matter
      }
    }
  };
  for (int cell = 0; cell < columns_ * rows_; ++cell) {
    if (!free_[static_cast<std::size_t>(cell)]) continue;
    carve(squareAt(cell));
    for (const int next : neighbours(cell)) {
      if (joined(cell, next)) carve(wallBetween(cell, next));
    }
  }
  const auto [is, was] = std::mismatch(after_.pixels.begin(), after_.pixels.end(), expected.pixels.begin());
  if (is == after_.pixels.end()) return {};
  const auto i = static_cast<int>(is - after_.pixels.begin());
  return "the pixel (" + std::to_string(i % before_.width) + ", " + std::to_string(i / before_.width) +
         ") was " + std::to_string(*was) + " and is " + std::to_string(*is);
}

std::string MazeReading::fault() const {
  for (int cell = 0; cell < columns_ * rows_; ++cell) {
    if (!free_[static_cast<std::size_t>(cell)]) continue;
    if (!all(squareAt(cell), true)) return "a free cell is not carved" + where(cell);
    for (const int next : neighbours(cell)) {
      if (joined(cell, next) && !all(wallBetween(cell, next), true))
        return "a join is not whole" + where(cell);
    }
    if (regionOf(cell, true).size() != regionOf(cell, false).size()) return "a region is cut" + where(cell);
  }
  if (joins() != freeCells() - regions()) {
    return std::to_string(joins()) + " joins in " + std::to_string(freeCells()) + " cells of " +
           std::to_string(regions()) + " regions";
  }
  return pixelFault();
}

std::optional<std::vector<int>> MazeReading::way(const Square& from, const Square& to) const {
  const int start = cellOf(from);
  const int finish = cellOf(to);
  std::vector<int> cameFrom(free_.size(), -1);
  cameFrom[static_cast<std::size_t>(start)] = start;
  std::deque<int> open{start};
  while (!open.empty()) {
    const int cell = open.front();
    open.pop_front();
    for (const int next : neighbours(cell)) {
      if (cameFrom[static_cast<std::size_t>(next)] != -1 || !joined(cell, next)) continue;
      cameFrom[static_cast<std::size_t>(next)] = cell;
      open.push_back(next);
    }
  }
  if (cameFrom[static_cast<std::size_t>(finish)] == -1) return std::nullopt;
  std::vector<int> way{finish};
  while (way.back() != start) way.push_back(cameFrom[static_cast<std::size_t>(way.back())]);
  std::reverse(way.begin(), way.end());
  return way;
}

Bitmap withAnswer(const MazeReading& maze, const Bitmap& picture, const ProgramState& state) {
  Bitmap answer = picture;
  const auto fill = [&](int x1, int y1, int x2, int y2, Colour colour) {
    for (int y = std::min(y1, y2); y <= std::max(y1, y2); ++y) {
      for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x) {
        pixelAt(answer, x, y) = colour;
      }
    }
  };
  const Square& f = state.finish;
  fill(f.left, f.top, f.right, f.bottom, state.finishColor);
  const auto way = maze.way(state.start, state.finish);
  const int half = state.wallWidth / 2 - 1;
  for (std::size_t i = 1; i < way->size(); ++i) {
    const Square a = maze.squareAt((*way)[i - 1]);
    const Square b = maze.squareAt((*way)[i]);
    fill(a.left + half, a.top + half, b.left + half, b.top + half, state.startColor);
  }
  const Square& s = state.start;
  fill(s.left, s.top, s.right, s.bottom, state.startColor);
  return answer;
}

}  // namespace gridwright::test
