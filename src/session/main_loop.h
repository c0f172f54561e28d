// The spine: one long sequence of stages, each of which prepares a phase, calls its owner loop and
// says where the program goes on.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Lives as long as the program does.
/// \throws ProgramEnd when the window is closed, from wherever the program stands.
[[noreturn]] void runProgram(Program& program);

/// What every end of the program leaves: the picture in last-drawing.bmp, what is remembered between
/// runs, and the pages of a job as a document. `runProgram` calls it on its way out; a tenant does where
/// nothing unwinds.
void finishProgram(Program& program);

/// Ends the process at once: "Click to Quit Program", and both close events of the window.
[[noreturn]] void endProgram();

}  // namespace gridwright
