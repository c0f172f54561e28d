// How far a maze has grown, counted over the grid. Who shows it counts now and then, never in a pass.
#pragma once

#include "menus/status_words.h"
#include "state/program.h"

namespace gridwright {

/// Every cell of the present kind's grid that holds a corridor, and every one that is free. Reads one pixel
/// of a cell that is carved, and those of a free one.
Growth growthOf(const Program& program);

/// Only those that hold a corridor: one pixel of each cell, for who begins a maze and must not be held up.
int carvedCells(const Program& program);

/// Both of the maze in hand: what counted as carved before it was begun is not of it.
Growth growthOfMaze(const Program& program);

}  // namespace gridwright
