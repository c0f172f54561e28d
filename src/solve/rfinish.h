// "Reset end-points": start and finish are searched for anew on what is carved.
#pragma once

#include "state/program.h"

namespace gridwright {

/// In drawing both are unset; while a maze is made they go to carved or still free ground; while they
/// are placed, to carved ground, painted at once. May end a maze that runs until both are reached.
void rfinish(Program& program);

}  // namespace gridwright
