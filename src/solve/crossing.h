// Taking an underpass: where the cell has a wall ahead but a way one cell further, the walk jumps to
// the underpass's matching exit in one move.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Run on every pass of the solver in 3-d mazes and Short pipes. Tries left, right, up and down in
/// turn; each sees the cell as the one before left it.
void maze3dunderpass(Program& program);

/// The same for Long pipes, whose tunnel mouths reach one pixel further out.
void longUnderpass(Program& program);

/// Whether a walk that stands at the wall on that side of the current cell would try to cross there: a wall,
/// a way behind it, and walls across. \param stepCode 1 to 4.
bool crossingBegins(const Program& program, int stepCode);

}  // namespace gridwright
