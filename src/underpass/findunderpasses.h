// May a tunnel start here and run straight on, under everything carved in its way, until free ground
// comes again?
//
// The cell ahead is free and the one after it is carved. The search walks a probe square forward
// along the step and paints nothing. It runs in the 3-d and the pipe kinds only.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Expects the probe at the current square moved by twice the step, with its leading edge, and
/// `underpassOk` 1 and `crossCount` 0. Clears `underpassOk` when the tunnel is refused.
void findunderpasses(Program& program);

/// Puts the probe somewhere and works out its leading edge.
void putProbe(ProgramState& state, const Square& square);

}  // namespace gridwright
