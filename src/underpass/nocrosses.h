// Corridors beside a tunnel's exit that run across its path: in a picture they would read as a
// crossing that is none.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Whether beside the cell one step past `square` lies a carved cell that is closed along the step's
/// direction, in one of the two rows (or columns) beside. `leadX`, `leadY` is the leading edge.
bool corridorAcross(const Program& program, const Square& square, int leadX, int leadY);

/// Reads the probe square and its leading edge; clears `underpassOk` when the tunnel would surface
/// beside such a corridor. A maze pixel right ahead refuses nothing.
void nocrosses(Program& program);

}  // namespace gridwright
