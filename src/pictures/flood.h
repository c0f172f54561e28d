// What a fill floods, and where it ran out.
#pragma once

#include <optional>

#include "canvas/bitmap.h"
#include "canvas/cell_grid.h"
#include "pictures/bit_plane.h"

namespace gridwright {

struct Flood {
  BitPlane pixels;  ///< Of one colour and joined by their sides.
  /// The narrowest place through which the flood left for the sheet's edge; nothing where it did not reach
  /// the edge, and where it would have reached it through places as wide as a cell too.
  std::optional<Corner> gap;
};

/// \param x,y on the picture. \param cell as wide and high as a place has to be to be none that one runs out
/// of.
Flood floodOf(const Bitmap& picture, int x, int y, Size cell);

}  // namespace gridwright
