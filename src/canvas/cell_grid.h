// Cells on the Canvas: where they lie, and the two scans that look for one.
//
// Columns stand at the wall size plus whole pitches, rows likewise; the band of one wall size along
// the top and left is no cell. A scan works on scratch values and gives only a hit.
#pragma once

#include <optional>

#include "canvas/geometry.h"

namespace gridwright {

/// Left of the last column (or top of the last row): starts at the wall size and grows by the pitch
/// while it plus the pitch is not greater than the extent less the pitch.
int lastGridLine(int wall, int pitch, int extent);

/// A cell's top left corner.
struct Corner {
  int x = 0, y = 0;
};

struct CellGrid {
  int wallWidth = 10, wallHeight = 10;  ///< A cell's size in pixels.
  int stepX = 10, stepY = 10;           ///< Pitch.
  int right = 10, bottom = 10;          ///< Left of the last column, top of the last row.

  /// The square that the walker and the ends have in a cell: one pixel in from its left and top.
  [[nodiscard]] Square squareIn(Corner cell) const {
    return {cell.x + 1, cell.y + 1, cell.x + wallWidth - 2, cell.y + wallHeight - 2};
  }

  /// Whether a cell lies on the grid of twice the wall size.
  [[nodiscard]] bool onPipeGrid(Corner cell) const {
    return cell.x >= wallWidth && cell.y >= wallHeight && (cell.x - wallWidth) % (2 * wallWidth) == 0 &&
           (cell.y - wallHeight) % (2 * wallHeight) == 0;
  }
  /// The same of the cell that a square lies in as `squareIn` gives it: an end.
  [[nodiscard]] bool onPipeGrid(const Square& square) const {
    return onPipeGrid(Corner{square.left - 1, square.top - 1});
  }

  /// The first cell in row order that passes.
  template <class Test>
  std::optional<Corner> first(Test test) const {
    for (int y = wallHeight; y <= bottom; y += stepY) {
      for (int x = wallWidth; x <= right; x += stepX) {
        if (test(Corner{x, y})) return Corner{x, y};
      }
    }
    return std::nullopt;
  }

  /// How many cells pass, counted up to `enough`.
  template <class Test>
  int count(int enough, Test test) const {
    int found = 0;
    first([&](Corner cell) { return test(cell) && ++found == enough; });
    return found;
  }

  /// The first cell that passes on the way back from beyond the far corner. The scan begins outside
  /// the grid, one pitch further when the wall size is 5, and after the first row it goes on in the
  /// columns of the far corner: its first row lies off the grid in part, as it always did.
  template <class Test>
  std::optional<Corner> fromFarCorner(Test test) const {
    int farRight = right + stepX - 1 + (wallWidth == 5 ? stepX : 0);
    int farBottom = bottom + stepY + wallHeight - 1 + (wallHeight == 5 ? stepY : 0);
    for (;;) {
      farRight -= stepX;
      if (farRight < 0) {
        farRight = right + stepX - wallWidth - 1;
        farBottom -= stepY;
      }
      if (farBottom < 0) return std::nullopt;
      const Corner cell{farRight - wallWidth + 1, farBottom - wallHeight + 1};
      if (test(cell)) return cell;
    }
  }
};

}  // namespace gridwright
