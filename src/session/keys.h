// All keys of the program come through one handler: a set of tables, one per phase. In making,
// playing and the pattern editor a key only leaves a request, which the owner loop takes up at its
// next pass.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Runs the key's row in the table of the present phase; an unlisted key does nothing.
void dispatchKey(Program& program, int code);

}  // namespace gridwright
