// The keys of phase 2: both squares move over carved ground alone, and change their colours.
#pragma once

#include "state/program.h"

namespace gridwright {

/// The arrows move the finish and J, L, I, K the start; Z, X and N, M step the colours.
void placeKey(Program& program, int code);

}  // namespace gridwright
