// Walking back while nobody looks.
//
// Most passes of a maze are steps of a walk back: the walker wanders at random over carved ground, paints
// nothing, and all that a pass leaves behind is overwritten by the next. While the desktop is sure to look
// at nothing, such passes are taken here in a tight loop: a draw, a step of the fill cursor, and a few
// pixels ahead. Free ground in reach, the finish, a rescue, a stop of the fill sweep, or anything that is
// not plainly a step over a corridor ends it, and the full pass goes on from there.
//
// The full pass in makemaze.cpp is the one that says what happens. What this leaves equals what so many
// full passes leave, to the last value; a test drives both beside each other.
#pragma once

#include "state/program.h"

namespace gridwright {

/// How a wandering ended, and what is left to do to stand where the full passes would.
struct Wandered {
  enum class End {
    beforePass,  ///< A full pass follows.
    beforeDraw,  ///< In a pass, whose next draw follows.
    stepDrawn,   ///< In a pass, whose draw was just pumped: `drawn` is to be tried.
  };
  End end = End::beforePass;
  int tried = 0;  ///< Passes that are over. The last one's step is to be made anew, from `cur`.
  int drawn = 0;
  bool metFreeCell = false;  ///< `freeCellMetSinceStep` for after that.
};

/// Called before a full pass; wanders if that is all the pass would do. Leaves the walker before the last
/// step tried, colours and cursor as they are then.
Wandered wander(Program& program);

}  // namespace gridwright
