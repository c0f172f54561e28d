// Start and finish made good after a maze: a square that the walker never carved moves to one it did.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Whether the square is placed on carved ground: a maze pixel or the walker's cursor.
bool standsOnCarved(const Program& program, const Square& square);

/// A carved cell searched from the far corner, passing over the start's.
/// \returns an unplaced square (all 0) when there is none.
Square searchCarvedFinish(const Program& program);

/// The same while the maze is still made: a cell that is carved or still free serves.
Square searchFinishToBeCarved(const Program& program);

/// Leaves `finish` and `start` on carved squares where there are any, and reads the cover colours.
void makeEndsGood(Program& program);

}  // namespace gridwright
