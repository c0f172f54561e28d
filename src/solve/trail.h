// The trail: the solution lives in the Canvas alone, as strokes in the start colour from cell centre
// to cell centre.
#pragma once

#include "state/program.h"

namespace gridwright {

inline bool isEndColour(const ProgramState& state, Colour colour) {
  return colour == state.startColor || colour == state.finishColor;
}

/// A pixel the solver may go over: an end square, the trail, or carved ground. The rest is wall.
inline bool isWay(const Program& program, int x, int y) {
  const Colour pixel = program.canvas.point(x, y);
  return program.colours.isMaze(pixel) || isEndColour(program.state, pixel);
}

/// Centre of a cell box, rounded as everywhere.
int centreX(const ProgramState& state, const Square& box);
int centreY(const ProgramState& state, const Square& box);

/// Whether the solver's cell differs from the one the trail was drawn up to.
inline bool cellChanged(const ProgramState& state) { return !state.cur.sameCorner(state.prev); }

/// `testCount`: 0 when the previous cell is closed on all sides, which only a crossing reaches.
void closedCellTest(Program& program);

/// The line through a previous cell that a crossing passed, along the walk's direction.
void strokeThroughClosedCell(Program& program, Colour colour);

/// Whether the trail, or what is taken for it, lies on a cell's centre.
bool showsTrail(const Program& program, const Square& cell);

/// Draws the trail up to the current cell, or takes it back where the walk retraces it.
void updateTrail(Program& program);

}  // namespace gridwright
