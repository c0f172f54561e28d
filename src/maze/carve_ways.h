// The ways that a person who carves finds round the square.
#pragma once

#include "state/program.h"
#include "state/ways.h"

namespace gridwright {

/// Where the arrows would lead from the walker's square: onto free ground, and on the way back onto carved
/// ground too. Reads the Canvas and changes nothing. In the kinds with underpasses a step can still be
/// refused where a tunnel finds no end or a corridor lies alongside.
Ways waysToCarve(const Program& program);

}  // namespace gridwright
