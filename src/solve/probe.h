// The probe: a pixel that keeps a wall at its left hand.
#pragma once

#include "state/program.h"

namespace gridwright {

/// One pixel on. Leaves `probeX`, `probeY`, the direction, and the cell the probe is in.
void probeStep(Program& program);

}  // namespace gridwright
