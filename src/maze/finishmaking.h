// When is a maze done? Nothing counts its cells: a fill cursor moves one cell a pass over the whole
// grid, and every free cell it meets sends it back to the beginning. When it gets through, the maze
// is done.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Puts the fill cursor one pitch before the first cell.
void resetfillcursor(ProgramState& state);

/// Whether the cell whose square begins at (x, y) is wholly free: no carved pixel, no cursor. A cell that
/// the rescue has given up counts as not free.
bool isFreeForMaze(const Program& program, int x, int y);

/// Whether the fill cursor begins again when it comes upon the cell whose square begins at (x, y): it is
/// free, and in a 3-d maze it can also be entered.
bool stopsFillCursor(const Program& program, int x, int y);

/// Tests the cell under the fill cursor and resets the cursor when that stops it.
void finishmaking(Program& program);

/// One cell on. \returns false when the cursor has got through the whole Canvas.
bool advancefillcursor(ProgramState& state);

}  // namespace gridwright
