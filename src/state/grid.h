// The grid of the present kind and wall size, as the record has it.
#pragma once

#include "canvas/cell_grid.h"
#include "state/program.h"

namespace gridwright {

/// A finish that a search has in hand lies here, off every Canvas.
inline constexpr Square kTakenOff{-100, -100, -100, -100};

/// Whether an end is placed: sides apart and none negative.
bool isPlaced(const Square& square);

/// The grid as measured last.
CellGrid presentGrid(const ProgramState& state);

/// The grid at twice the wall size, whatever the kind, over the Canvas as it is.
CellGrid pipeGrid(const Program& program);

/// Reads wall size, pitch and the Canvas; leaves `gridRight`, `gridBottom`, `canvasWidth` and
/// `canvasHeight`, which belong together.
void measureGrid(Program& program);

/// The size of the Canvas in a window's client area.
Size canvasFor(Size client);

/// The Canvas follows the window's client area; a minimised window's size is none to follow, and it
/// reports another when it comes back.
void followWindow(Program& program, Size client);

/// `stepX` and `stepY` from the wall size: twice it for pipes.
void pitchFromKind(ProgramState& state);

/// The paint square in the first cell: a whole cell, right and bottom included.
Square firstCell(const ProgramState& state);

/// Whether a whole cell is ground a walker may carve.
bool isFreeCell(const Program& program, const CellGrid& grid, Corner cell);

/// Right and bottom of a square from its left and top, as walker and ends have them.
Square normalised(const ProgramState& state, const Square& square);

}  // namespace gridwright
