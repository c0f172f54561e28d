// The keys of the drawing phase. They change the square and its colour alone; the drawing loop paints.
#pragma once

#include "state/program.h"

namespace gridwright {

/// The key's action, if the drawing phase has one; a move or size at its limit does nothing.
void brushKey(Program& program, int code);

}  // namespace gridwright
