#include "maze/walk_paint.h"

#include <algorithm>

namespace gridwright {

void boxSquare(Program& program, const Square& square) {
  if (!program.colours.isMaze(program.canvas.point(square.left, square.top))) {
    noteCarved(program.state.walker);
  }
  program.canvas.fill(square, program.state.mazeColor);
}

void paintJoin(Program& program) {
  const Square& p = program.state.prev;
  const Square& q = program.state.cur;
  if (walkerMoved(program.state)) noteCarved(program.state.walker);
  boxAcross(program, p, q);
}

void boxAcross(Program& program, const Square& a, const Square& b) {
  const Colour colour = program.state.mazeColor;
  const bool inARow = (a.top == b.top && a.bottom == b.bottom) || (a.left == b.left && a.right == b.right);
  if (inARow && a.left <= a.right && a.top <= a.bottom && b.left <= b.right && b.top <= b.bottom) {
    // One box lies inside the other, which is the larger one of both.
    program.canvas.fill(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                        std::max(a.bottom, b.bottom), colour);
    return;
  }
  program.canvas.fill(a.left, a.top, b.right, b.bottom, colour);
  program.canvas.fill(b.left, b.top, a.right, a.bottom, colour);
}

void releaseRandomSteps(ProgramState& state) {
  state.randomStepsTemporary = false;
  state.patternState = PatternState::choose;
  state.patternDirection = state.stepCode;
}

void takeUpRandomSteps(ProgramState& state) {
  state.patternDirection = step::up;
  state.patternState = PatternState::random;
  state.randomStepsTemporary = true;
}

}  // namespace gridwright
