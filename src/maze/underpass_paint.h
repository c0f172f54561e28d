// An underpass on the picture: cells on either side of the corridors it passes, which keep their
// walls.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Expects a trial that was allowed. Paints entry, tunnel and far end, each cell in the maze colour of
/// its own ground, and leaves the walker beyond, the previous square the same.
void paintUnderpass(Program& program);

}  // namespace gridwright
