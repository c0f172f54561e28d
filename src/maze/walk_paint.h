// The strokes of the walker, and the note they leave that something was carved.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Something was carved: nobody is stranded, and the last rescue has helped.
inline void noteCarved(WalkerState& walker) {
  walker.passesSinceCarved = 0;
  walker.help.reset();
}

/// Whether the walker has moved since the last step.
inline bool walkerMoved(const ProgramState& state) { return !state.cur.sameCorner(state.prev); }

/// Boxes a square in `mazeColor`.
void boxSquare(Program& program, const Square& square);

/// Two boxes in `mazeColor`, each from one square's left and top to the other's right and bottom.
void boxAcross(Program& program, const Square& a, const Square& b);

/// Two boxes in `mazeColor` that cover the previous square, the current one and the two-pixel wall
/// between them, whichever way the step went.
void paintJoin(Program& program);

/// Temporary random steps end: patterns are in force again and `patternDirection` is the step's.
void releaseRandomSteps(ProgramState& state);

/// The walk back runs on random steps of its own, whatever the pattern settings.
void takeUpRandomSteps(ProgramState& state);

}  // namespace gridwright
