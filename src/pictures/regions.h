// What would come of a drawing: how many cells in how many regions, and which areas are too small for one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/bitmap_view.h"
#include "canvas/cell_grid.h"
#include "canvas/colour_sets.h"

namespace gridwright {

struct RegionCount {
  int cells = 0;     ///< Free cells, as they are counted before a maze.
  int regions = 0;   ///< Cells joined by their sides.
  int tooSmall = 0;  ///< Areas, free pixels joined by their sides, that hold no cell.
  friend bool operator==(const RegionCount&, const RegionCount&) = default;
};

/// The count, and where everything lies, to be shown in colours.
struct RegionMap {
  RegionCount count;
  std::vector<int> regions;  ///< One a pixel: the number of the region whose cell covers it, from 1; else 0.
  std::vector<std::uint8_t> small;  ///< One a pixel: 1 in an area that is too small for a cell.
};

/// \param grid the grid of the kind over a Canvas of the picture's size, see `gridOn`.
/// \param sets as they stand in the drawing. The colour at (1, 1) counts as a border, as it will before a
/// maze.
RegionMap mapRegions(const Bitmap& picture, const ColourSets& sets, const CellGrid& grid);
RegionCount countRegions(const Bitmap& picture, const ColourSets& sets, const CellGrid& grid);

/// The first cell, in rows, of the region with most cells, and of two with as many the one that comes first;
/// nothing where no cell is free.
std::optional<Corner> firstCellOfLargest(const BitmapView& picture, const ColourSets& sets,
                                         const CellGrid& grid);

/// The map in colours to be laid over the picture: regions side by side differ, areas too small for a cell
/// are red, and what is neither is `kOutside`.
Bitmap inColours(const RegionMap& map, Size size);

/// "2,156 cells in 3 regions; 12 areas too small for a cell": thousands with commas, no singular.
std::string regionLine(const RegionCount& count);

}  // namespace gridwright
