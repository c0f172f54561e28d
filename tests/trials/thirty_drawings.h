// Thirty drawings that a walker may get lost in: the smallest and the narrowest, ground of every colour,
// edges off the grid and within each other.
#pragma once

#include <random>

#include "canvas/bitmap.h"

namespace gridwright::test {

inline constexpr int kDrawingCount = 30;

struct DrawingKind {
  const char* name;
  /// Its ground or its walls may have a colour that corridors or ends have, which counts as carved: its mazes
  /// are no trees then, and go over more than the free cells.
  bool showsMazeColours;
};

/// \param which from 0.
const DrawingKind& drawingKind(int which);

/// The drawing on a Canvas of this size, its cells on the grid of the wall size where it has cells.
/// \param chance decides where things stand in those that have no fixed place for them.
Bitmap trialDrawing(int which, Size size, int wall, std::mt19937& chance);

}  // namespace gridwright::test
