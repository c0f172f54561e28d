#include "maze/walk_paint.h"

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
  program.canvas.fill(p.left, p.top, q.right, q.bottom, program.state.mazeColor);
  program.canvas.fill(q.left, q.top, p.right, p.bottom, program.state.mazeColor);
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
