// The slow twin for mazes whose corridors run under each other: reads cells, joins and tunnels from the
// pixels of a picture.
#pragma once

#include <algorithm>
#include <array>
#include <deque>
#include <utility>
#include <vector>

#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {

class TunnelReading {
 public:
  /// \param band the walls along the top and left that hold no cell: none where a region reaches the edge of
  /// the picture, since a walker goes there too.
  TunnelReading(const Bitmap& picture, PlainSets sets, int wall, bool withTunnels = true, int band = 1)
      : picture_(picture), sets_(std::move(sets)), wall_(wall), band_(band) {
    columns_ = picture.width / wall - band;
    rows_ = picture.height / wall - band;
    cells_ = columns_ * rows_;
    ways_.resize(static_cast<std::size_t>(cells_));
    for (int cell = 0; cell < cells_; ++cell) readJoins(cell);
    for (int cell = 0; withTunnels && cell < cells_; ++cell) {
      for (const int d : {0, 2}) readTunnel(cell, d);
    }
  }

  struct Way {
    int to;
    int span;  // 0: a join
  };

  [[nodiscard]] bool carved(int cell) const {
    const Square q = squareAt(cell);
    return maze(q.left, q.top) && maze(q.right, q.bottom);
  }
  [[nodiscard]] std::vector<int> carvedCells() const {
    std::vector<int> list;
    for (int cell = 0; cell < cells_; ++cell) {
      if (carved(cell)) list.push_back(cell);
    }
    return list;
  }
  [[nodiscard]] Square squareAt(int cell) const {
    return squareOf(cell % columns_ + band_, cell / columns_ + band_, wall_);
  }
  [[nodiscard]] int cellOf(const Square& q) const {
    return (q.top / wall_ - band_) * columns_ + q.left / wall_ - band_;
  }
  [[nodiscard]] int wayCount() const {
    std::size_t ends = 0;
    for (const auto& ways : ways_) ends += ways.size();
    return static_cast<int>(ends / 2);
  }
  [[nodiscard]] int tunnels() const { return tunnels_; }
  [[nodiscard]] bool isMouth(int cell) const {
    const auto& ways = ways_[static_cast<std::size_t>(cell)];
    return std::any_of(ways.begin(), ways.end(), [](const Way& way) { return way.span > 0; });
  }
  [[nodiscard]] bool hasClosedCells() const { return closedCells_; }
  [[nodiscard]] const std::vector<Way>& waysFrom(int cell) const {
    return ways_[static_cast<std::size_t>(cell)];
  }
  [[nodiscard]] int columns() const { return columns_; }

  struct Reach {
    bool reached = false;
    int from = -1;
    int joins = 0, spans = 0, underpasses = 0;
  };
  [[nodiscard]] std::vector<Reach> reachFrom(int start) const {
    std::vector<Reach> reach(static_cast<std::size_t>(cells_));
    reach[static_cast<std::size_t>(start)].reached = true;
    std::deque<int> open{start};
    while (!open.empty()) {
      const int cell = open.front();
      open.pop_front();
      const Reach here = reach[static_cast<std::size_t>(cell)];
      for (const Way& way : ways_[static_cast<std::size_t>(cell)]) {
        Reach& there = reach[static_cast<std::size_t>(way.to)];
        if (there.reached) continue;
        there = {true, cell, here.joins + (way.span == 0), here.spans + way.span,
                 here.underpasses + (way.span != 0)};
        open.push_back(way.to);
      }
    }
    return reach;
  }

  /// The cells in the order in which a walk from the start with its left hand on the wall first meets
  /// them, in a maze without tunnels.
  [[nodiscard]] std::vector<int> leftHandOrder(int start) const {
    std::vector<int> order;
    meet(start, -1, kNorth, order);
    return order;
  }

 private:
  static constexpr int kNorth = 0;  // of the compass: north, east, south, west
  static constexpr std::array kSideOfCompass = {3, 0, 2, 1};

  void meet(int cell, int from, int first, std::vector<int>& order) const {
    order.push_back(cell);
    for (int turn = 0; turn < 4; ++turn) {
      const int compass = (first + turn) % 4;
      const int side = kSideOfCompass.at(static_cast<std::size_t>(compass));
      const int next = beside(cell, side);
      if (next == -1 || next == from || !open(cell, side)) continue;
      meet(next, cell, (compass + 3) % 4, order);  // there the turn to the left comes first
    }
  }

  static constexpr std::array kDx = {1, -1, 0, 0};
  static constexpr std::array kDy = {0, 0, 1, -1};

  [[nodiscard]] bool maze(int x, int y) const {
    if (x < 0 || y < 0 || x >= picture_.width || y >= picture_.height) return false;
    return sets_.isMaze(picture_.at(x, y));
  }
  [[nodiscard]] int beside(int cell, int d) const {
    const int column = cell % columns_ + kDx.at(static_cast<std::size_t>(d));
    const int row = cell / columns_ + kDy.at(static_cast<std::size_t>(d));
    if (column < 0 || row < 0 || column >= columns_ || row >= rows_) return -1;
    return row * columns_ + column;
  }
  /// The two pixels of wall between neighbours are both gone.
  [[nodiscard]] bool open(int cell, int d) const {
    if (beside(cell, d) == -1) return false;
    const Square q = squareAt(cell);
    switch (d) {
      case 0:
        return maze(q.right + 1, q.top) && maze(q.right + 2, q.top);
      case 1:
        return maze(q.left - 1, q.top) && maze(q.left - 2, q.top);
      case 2:
        return maze(q.left, q.bottom + 1) && maze(q.left, q.bottom + 2);
      default:
        return maze(q.left, q.top - 1) && maze(q.left, q.top - 2);
    }
  }
  [[nodiscard]] int openings(int cell) const {
    return open(cell, 0) + open(cell, 1) + open(cell, 2) + open(cell, 3);
  }
  void join(int a, int b, int span) {
    ways_[static_cast<std::size_t>(a)].push_back({b, span});
    ways_[static_cast<std::size_t>(b)].push_back({a, span});
  }
  void readJoins(int cell) {
    if (!carved(cell)) return;
    for (const int d : {0, 2}) {
      if (open(cell, d)) join(cell, beside(cell, d), 0);
    }
  }
  /// A cell whose one opening is behind it, with carved ground before it, is a tunnel's mouth: the
  /// tunnel ends at the mouth that matches as brackets do, or stops on the way at a cell closed all
  /// round, from which it goes on where carved ground lies before that.
  void readTunnel(int mouth, int d) {
    const int back = d ^ 1;
    if (!carved(mouth) || openings(mouth) != 1 || !open(mouth, back)) return;
    if (beside(mouth, d) == -1 || !carved(beside(mouth, d))) return;
    int from = mouth;
    int depth = 1;
    int span = 0;
    for (int cell = beside(mouth, d); cell != -1; cell = beside(cell, d)) {
      ++span;
      const int count = carved(cell) ? openings(cell) : 0;
      if (count == 0) {
        if (depth != 1) continue;
        closedCells_ = true;
      } else if (count == 1 && open(cell, back)) {
        ++depth;
        continue;
      } else if (count != 1 || !open(cell, d) || --depth != 0) {
        continue;
      }
      join(from, cell, span);
      ++tunnels_;
      if (depth == 0 || beside(cell, d) == -1 || !carved(beside(cell, d))) return;
      from = cell;
      span = 0;
    }
  }

  const Bitmap& picture_;
  PlainSets sets_;
  int wall_, band_, columns_ = 0, rows_ = 0, cells_ = 0, tunnels_ = 0;
  bool closedCells_ = false;
  std::vector<std::vector<Way>> ways_;
};

}  // namespace gridwright::test
