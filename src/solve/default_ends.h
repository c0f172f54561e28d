// Start and finish before a maze exists: kept where they are good, else searched for.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Whether an end may stay in its square: that is a cell's, all of it is free on the Canvas, and a finish
/// lies elsewhere than the start. Ends that are kept are those of which this is true.
bool isGoodStart(const Program& program, const Square& q);
bool isGoodFinish(const Program& program, const Square& q, const Square& start);

/// Reads the Canvas and the grid; leaves `start` and `finish` on free cells. Without a free cell the
/// start is -10 on all sides and the finish stays as it was.
void placedefaultends(Program& program);

/// The same on the grid of twice the wall size, whatever the kind, for the pipe squares alone: a later
/// switch to pipes finds valid ends.
void placepipefinish(Program& program);

/// The start goes into the cell of the present kind that holds this pixel; whether it is kept there shows
/// before the maze. \returns false, and leaves it as it is, where no cell does.
bool startat(Program& program, int x, int y);

}  // namespace gridwright
