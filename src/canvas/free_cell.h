// Whether a maze can begin in a cell, and on which grid a kind of maze lies.
#pragma once

#include "canvas/cell_grid.h"
#include "canvas/colour_sets.h"
#include "canvas/maze_kind.h"

namespace gridwright {

/// The pitch of a kind's cells: the wall size, and twice it in pipes.
int pitchOf(int wallSize, MazeKind kind);

/// The grid of a kind over a Canvas of this size.
CellGrid gridOn(Size canvas, int wallSize, MazeKind kind);

/// Whether a whole cell is ground a walker may carve.
bool isFreeCell(const Pixels& pixels, const CellGrid& grid, Corner cell);

}  // namespace gridwright
