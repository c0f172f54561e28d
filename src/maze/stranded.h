// A maze in every region: what the walker does when it cannot reach the ground that is left.
//
// The walker wanders over carved ground and hops over one cell of border, no more; a region behind a
// thicker border, or one whose only way in is the finish, it never finds, and the fill cursor never
// gets through. When nothing was carved for a hundred passes to each cell of the grid the picture is
// looked over once, and the walker is put where it can go on.
#pragma once

#include "core/program.h"

namespace gridwright {

/// Called at the head of every full pass of a maze that the computer makes.
void rescueIfStranded(Program& program);

/// When the fill cursor of a 3-d maze has got through, free cells may still hang together with no
/// carved ground beside any of them: a tree of its own begins there.
/// \returns whether one did, and the maze goes on.
bool beginTreeOnIsland(Program& program);

}  // namespace gridwright
