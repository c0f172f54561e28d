// Following the walls while nobody looks.
//
// Most passes of the computer's walk through a regular maze move the probe by a pixel within a cell, and
// leave nothing that the next pass does not overwrite; the others draw a stroke, or take one back. While the
// desktop is sure to look at nothing, such passes are taken here in a tight loop. The start, the finish, the
// edge of the Canvas, a place where a circle may close, or anything that is not plainly a walk is left to the
// full pass.
//
// The full pass in solvingmaze.cpp is the one that says what happens. What this leaves equals what so many
// full passes leave, to the last value; a test drives both beside each other.
#pragma once

#include "solve/circles.h"
#include "state/program.h"

namespace gridwright {

/// Called before a full pass; goes on as long as that is all the passes would do. After each stroke it asks
/// the desktop again, which may want to show it. Leaves everything as it stands before the next full pass.
/// \returns whether that pass is over already but for its yield, because of a stroke that is to be seen.
bool follow(Program& program, Repetition& repetition);

}  // namespace gridwright
