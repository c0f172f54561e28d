// The way of the fill cursor: the cells of the grid, and a band of cells along the top and left of it.
#pragma once

#include <cstddef>

#include "state/program_state.h"

namespace gridwright {

/// Columns and rows are counted from the band, which is column 0 and row 0; corners are those of the
/// walker's squares, in pixels.
class CursorWay {
 public:
  explicit CursorWay(const ProgramState& state);

  [[nodiscard]] int columns() const { return columns_; }
  [[nodiscard]] int rows() const { return rows_; }
  [[nodiscard]] CellSpan whole() const { return {0, columns_, 0, rows_}; }
  [[nodiscard]] std::size_t cells() const {
    return static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_);
  }

  [[nodiscard]] CellCorner corner(CellPlace place) const {
    return {left_ + place.column * stepX_, top_ + place.row * stepY_};
  }
  /// Where a corner lies; only for one that the way holds.
  [[nodiscard]] CellPlace place(CellCorner corner) const {
    return {(corner.left - left_) / stepX_, (corner.top - top_) / stepY_};
  }
  [[nodiscard]] bool holds(CellCorner corner) const;
  [[nodiscard]] bool holds(CellPlace place) const {
    return place.column >= 0 && place.row >= 0 && place.column < columns_ && place.row < rows_;
  }

  /// The cells counted row by row, and back.
  [[nodiscard]] std::size_t number(CellPlace place) const {
    return static_cast<std::size_t>(place.row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(place.column);
  }
  [[nodiscard]] CellPlace place(std::size_t number) const {
    const auto columns = static_cast<std::size_t>(columns_);
    return {static_cast<int>(number % columns), static_cast<int>(number / columns)};
  }

  /// The cells around the one that has this corner, and that one.
  [[nodiscard]] CellSpan around(CellCorner corner) const;
  /// The cells whose tests may read a pixel of the box, right and bottom excluded.
  [[nodiscard]] CellSpan readersOf(int left, int top, int right, int bottom) const;

 private:
  int wallWidth_, wallHeight_, stepX_, stepY_, left_, top_, columns_, rows_;
};

}  // namespace gridwright
