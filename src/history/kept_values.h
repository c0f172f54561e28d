// The values beside the picture that a step of the drawing can change.
#pragma once

#include <array>

#include "state/program.h"

namespace gridwright {

/// Which drawing it is, see `LastPicture`: taken back with a step, but another number alone makes none.
struct DrawingNumber {
  int number = 0;
  friend bool operator==(const DrawingNumber&, const DrawingNumber&) { return true; }
};

struct KeptValues {
  Square cur, mirror;
  Size canvas{};  ///< On which the mirror was measured.
  Colour drawColor = 0, backgroundDrawColor = 0, borderDrawColor = 0;
  bool drawingOff = false, firstPaint = true;
  int wallWidth = 0, wallHeight = 0;
  MazeKind mazeKind = MazeKind::regular;
  Symmetry symmetryMode = Symmetry::off;
  std::array<int, kSlots> swatches{};
  ColourSets::Slots mazeColors{};
  bool individualMazeColors = false;
  Colour mazeColor = 0, keptMazeColor = 0, backColor = 0;
  bool mazeMadeOnce = false;
  DrawingNumber drawing;
  friend bool operator==(const KeptValues&, const KeptValues&) = default;
};

KeptValues keptValuesOf(const Program& program);

/// Gives what differs between the two the value that it has in the second; what they have in common stays as
/// it is now. The grid is measured; the mirror is the one of then, unless the Canvas has another size now.
/// The next pass paints no stroke. Marks and captions are brought in line; `BackColor` shows where nothing is
/// covered.
void changeValues(Program& program, const KeptValues& from, const KeptValues& to);

}  // namespace gridwright
