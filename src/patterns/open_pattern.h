// The pattern that an editor holds open for appending: the step file of the edited direction.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Writes one step to the open pattern.
void appendToOpenPattern(Program& program, int code);

/// Closes the open pattern with its end mark: the working file holds every step shown. Does nothing
/// when none is open.
void closeOpenPattern(Program& program);

/// Forgets the open pattern, because its file is written anew by something else.
void dropOpenPattern(ProgramState& state);

}  // namespace gridwright
