// What a run of mazes tells in passing: what it waits for, how far it is, and how it ended.
#pragma once

#include <string>

#include "state/program.h"

namespace gridwright {

/// Tells how a run stands that was just set up, or that begins its next maze: "maze 3 of 40", or
/// "500 mazes with answers will be printed". Without a run nothing is told.
void tellRun(Program& program);

/// "40 mazes are printed", or "3 of 40 mazes are printed" of a run that was stopped. To be asked while
/// the counts of the run still stand.
std::string runEndWords(const ProgramState& state);

/// "; 2 have no answer, because no way leads from start to finish", or nothing where every maze has its
/// answer. To be asked while the counts of the run still stand.
std::string answersLeftOutWords(const ProgramState& state);

/// Tells that something was printed, and where it went. A failure is told by whoever met it.
/// \param what such as "the window is printed".
/// \param more what is to be said behind the place, its separator with it.
void tellPrinted(Program& program, const std::string& what, const Outcome<PagesWent>& went,
                 const std::string& more = {});

}  // namespace gridwright
