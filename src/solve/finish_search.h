// The computer finds the finish: the solver walks once round the whole maze with no finish on the
// Canvas, and the best cell it stood on becomes the finish.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Every solver pass: parks a play mode chosen in mid-search, and counts the returns to the start.
void endsolution2(Program& program);

/// Ends the search when the walk is back at the start. \returns whether it did; `phase` is 2 then.
bool searchEnded(Program& program);

/// Ends the search with the best cell so far, wherever the walk stands; `phase` is 2 then.
void endSearch(Program& program);

/// The last step of a trail update: is the present cell the best so far?
void bestCellTest(ProgramState& state);

/// The option was changed while the solver ran: the maze is put back and `phase` becomes 2.
void finishMethodChanged(Program& program);

}  // namespace gridwright
