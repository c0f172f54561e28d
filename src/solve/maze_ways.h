// The ways of a finished maze, read from its pixels: which cells are joined, and which underpasses lead from
// where to where. For who counts; the walker and the solver know nothing of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "canvas/bitmap_view.h"
#include "canvas/colour_sets.h"
#include "canvas/geometry.h"
#include "canvas/maze_kind.h"

namespace gridwright {

/// A maze with both ends on it and no trail.
struct MazePicture {
  BitmapView pixels;
  const ColourSets& sets;
  Colour startColor = 0, finishColor = 0;  ///< As they are painted.
  MazeKind kind = MazeKind::regular;
  int wall = 10;
  Square start, finish;
};

/// Cells are the squares of one wall size that lie in line with the start, numbered row by row; in pipes
/// every other one of them, in a row and in a column, is only the join between two.
class MazeWays {
 public:
  enum Side : std::uint8_t { left, right, up, down };
  struct Way {
    int to = 0;
    Side side = left;    ///< In which direction it leaves.
    bool under = false;  ///< An underpass.
  };
  /// The ways from one cell.
  struct Fork {
    std::array<Way, 6> ways;
    std::size_t count = 0;
    [[nodiscard]] const Way* begin() const { return ways.data(); }
    [[nodiscard]] const Way* end() const { return ways.data() + count; }
  };

  /// Reads all of it; the picture need not stay.
  explicit MazeWays(const MazePicture& maze);

  [[nodiscard]] const Fork& from(int cell) const { return forks_[static_cast<std::size_t>(cell)]; }
  [[nodiscard]] int cells() const { return static_cast<int>(forks_.size()); }
  [[nodiscard]] int columns() const { return columns_; }
  [[nodiscard]] int start() const { return start_; }    ///< -1 where it lies in no cell.
  [[nodiscard]] int finish() const { return finish_; }  ///< Likewise.
  /// How many cells of the kind are carved, also where no way leads to.
  [[nodiscard]] int carvedCells() const;
  /// Whether the cell is one of the kind's, and no join between pipes.
  [[nodiscard]] bool isOfKind(int cell) const;

 private:
  [[nodiscard]] int cellAt(const Square& square) const;
  [[nodiscard]] int beside(int cell, Side side) const;
  [[nodiscard]] std::uint8_t openSides(const MazePicture& maze, int cell) const;
  [[nodiscard]] bool isOpen(int cell, Side side) const {
    return (open_[static_cast<std::size_t>(cell)] >> side & 1U) != 0;
  }
  [[nodiscard]] bool isClosed(int cell) const { return (open_[static_cast<std::size_t>(cell)] & 15U) == 0; }
  [[nodiscard]] bool opensOnly(int cell, Side side) const {
    return (open_[static_cast<std::size_t>(cell)] & 15U) == 1U << side;
  }
  [[nodiscard]] bool isCarved(int cell) const {
    return (open_[static_cast<std::size_t>(cell)] & kCarved) != 0;
  }
  void join(int from, int to, Side side, bool under);
  void followUnderpass(int mouth, Side side);

  static constexpr std::uint8_t kCarved = 16;
  int wall_, left_, top_, columns_, rows_;
  int pitch_ = 1;  // cells from one of the kind to the next
  int start_ = -1, finish_ = -1;
  std::vector<std::uint8_t> open_;  // one bit for each side, and whether the cell is carved
  std::vector<Fork> forks_;
};

/// The side across.
constexpr MazeWays::Side opposite(MazeWays::Side side) {
  return static_cast<MazeWays::Side>(static_cast<unsigned>(side) ^ 1U);
}

}  // namespace gridwright
