// Filling the whole screen with another border colour.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Only a picture of one colour, by samples at wall size, is refilled: with the border colour before
/// (-1, key N) or after (1, key M) `BackColor`. N samples the whole Canvas; M begins at `scanX`,
/// `scanY` as they stand, where these lie on it. A Canvas too small for the first sample is refused too.
/// A refused key changes nothing, and a notice says why.
void fillScreen(Program& program, int direction);

}  // namespace gridwright
