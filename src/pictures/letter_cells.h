// Ink as the cells of a maze see it, made thick enough for them and joined.
#pragma once

#include <optional>
#include <vector>

#include "canvas/cell_grid.h"
#include "pictures/bit_plane.h"
#include "pictures/tool.h"

namespace gridwright {

/// The cells of a pitch on a plane of ink: cell (0, 0) has its upper left at `wall`, `wall`.
class LetterCells {
 public:
  LetterCells(Size plane, const CellPitch& pitch);

  /// One bit a cell: whether a maze can begin there, all of it being ink.
  [[nodiscard]] BitPlane cellsOf(const BitPlane& ink) const;
  /// The cells that a walk over ink from a cell comes to.
  [[nodiscard]] BitPlane regionFrom(const BitPlane& ink, const BitPlane& cells, Corner cell) const;
  /// Whether there are cells and all are one region.
  [[nodiscard]] bool isOneRegion(const BitPlane& ink) const;
  /// The pixels of blocks of cells, corner cells included.
  [[nodiscard]] Square pixelsOf(const Square& cells) const;
  [[nodiscard]] const CellPitch& pitch() const { return pitch_; }

 private:
  CellPitch pitch_;
  int columns_, rows_;
};

/// Ink one pixel thicker all round, by sides; or, with `corners`, by corners too. Neither does a hole close
/// nor do pieces that were apart come together, and what is `barred` stays paper.
BitPlane thickened(const BitPlane& ink, const BitPlane& barred, bool corners);

/// The pixels beside ink, by sides or corners, and the ink.
BitPlane withRim(const BitPlane& ink);

/// Paper that is closed in.
BitPlane holesOf(const BitPlane& ink);

/// A way of boxes of cells, to be filled with ink.
using Bar = std::vector<Square>;

/// The shortest bar two cells thick from one letter to another.
struct BarSearch {
  const LetterCells& grid;
  BitPlane from, to;  ///< Their cells.
  BitPlane closed;    ///< Pixels that a bar must leave alone: holes.
  /// Level, where both are solid beside one another; upright, where they are above one another.
  [[nodiscard]] std::optional<Bar> level() const;
  [[nodiscard]] std::optional<Bar> upright() const;
  /// The shortest with at most one bend, whichever way it goes.
  [[nodiscard]] std::optional<Bar> bent() const;
  /// Down from both, and along below them. There is always one where both have cells.
  [[nodiscard]] Bar underline() const;
};

}  // namespace gridwright
