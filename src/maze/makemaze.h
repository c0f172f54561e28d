// The carving walker, the heart of the program.
//
// One small square moves over the Canvas, reads single pixels to learn what lies around it, and
// paints what it has carved. It remembers no path. When it cannot go on it walks back: it wanders at
// random over carved ground, straight through the walls, until a step takes it onto an uncarved cell
// beside it; the join into that cell is painted and carving goes on. A cell is entered only while it
// is wholly uncarved, so each hangs on by one join and the maze is a tree in a region of any shape.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Owner loop of phase 1. Reads the Canvas, the colour sets, the step files and the settings; paints
/// the maze with persistent drawing on.
///
/// Returns when `phase` is 2 (the maze is done, or a command ended it), 0 (back to drawing) or -6
/// (quit). Leaves the walker where it stood in `cur` and `prev`.
void makemaze(Program& program);

}  // namespace gridwright
