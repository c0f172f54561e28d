// The three kinds of maze, with the numbers that scripts and drawing files know them by. The kind decides the
// pitch of the cells: one wall size, and two in pipes.
#pragma once

namespace gridwright {

enum class MazeKind : int { regular = 0, pipe = 1, threeD = 2 };

}  // namespace gridwright
