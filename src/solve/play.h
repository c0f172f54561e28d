// A person solves the maze in the solver's own loop: keys move the current cell, and a trail or a
// moving marker shows the walk.
#pragma once

#include "state/program.h"
#include "state/ways.h"

namespace gridwright {

void easymode(Program& program);     ///< "(1)-easy"
void hardmode(Program& program);     ///< "(2)-hard"
void playmodeoff(Program& program);  ///< "(0)-off (computer finds solutions)"
void leavetrail(Program& program);   ///< "Leave trail"

/// Hands the walk to the computer: from where the person stands when a trail is kept, else from the
/// start.
void endPlay(Program& program);

/// A walk that was played without a trail begins anew as the computer's: its strokes stay from now on, and
/// the start box is whole. A tunnel that begins in the start is painted before the next pass sees to either.
void keepWalkFromStart(Program& program);

/// Each solver pass while `playMode` is not 0: the throw back of hard play, and the marker.
void playUpdate(Program& program);

/// Each solver pass: a trail that was switched on or off in mid-play puts the maze back.
void loadthispic(Program& program);

/// The arrow keys of play.
void playKey(Program& program, int code);

/// Where those keys would lead from the current cell. Reads the Canvas and changes nothing.
Ways waysInPlay(const Program& program);

}  // namespace gridwright
