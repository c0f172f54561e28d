// A maze in every region: what the walker does when it cannot reach the ground that is left.
//
// The walker wanders over carved ground and hops over one cell of border, no more; a region behind a
// thicker border, or one whose only way in is the finish, it never finds, and the fill cursor never
// gets through. So when nothing was carved for a hundred passes, for two hundred, four hundred and so on, a
// look (maze/reach.h) tells whether it can still get to free ground; if not, it is put where it can go on.
// When nothing was carved for a hundred passes to each cell of the grid it is put there without a look.
//
// Where that was beside a free cell, and nothing is carved until the next time, the cell cannot be helped:
// it is given up, stays free, and holds the maze open no longer. A walker that came over the finish first,
// which sends it far away, or lost its way otherwise, is put there once more, and then the finish sends it
// back.
#pragma once

#include "state/program.h"

namespace gridwright {

/// What every start and restart of a maze does: the wait begins anew, no cell is given up.
void forgetRescues(WalkerState& walker);

/// How many full passes that carve nothing may begin before one in which there is a look or a rescue.
std::int64_t passesBeforeLook(const ProgramState& state);

/// Called at the head of every full pass of a maze that the computer makes.
void rescueIfStranded(Program& program);

/// When the fill cursor of a 3-d maze has got through, free cells may still hang together with no
/// carved ground beside any of them: a tree of its own begins there.
/// \returns whether one did, and the maze goes on.
bool beginTreeOnIsland(Program& program);

}  // namespace gridwright
