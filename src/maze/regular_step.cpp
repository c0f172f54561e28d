#include "maze/regular_step.h"

#include "maze/walk_paint.h"

namespace gridwright {

void hopOverBorder(Program& program) {
  ProgramState& s = program.state;
  if (s.walkMode != WalkMode::back || s.mazeKind != MazeKind::regular) return;
  if (s.deltaX == 0 && s.deltaY == 0) return;
  const Pixels pixels = program.pixels();
  if (!pixels.noGround(s.cur.left + s.deltaX, s.cur.top + s.deltaY)) return;
  if (!pixels.maze(s.cur.left + 2 * s.deltaX, s.cur.top + 2 * s.deltaY)) return;
  s.cur = s.cur.moved(2 * s.deltaX, 2 * s.deltaY);
  s.deltaX = s.deltaY = 0;
}

void leadFromDelta(ProgramState& state) {
  state.walker.leadX = state.deltaX > 0 ? state.cur.right : state.cur.left;
  state.walker.leadY = state.deltaY > 0 ? state.cur.bottom : state.cur.top;
}

bool wholeCellIsFree(const Program& program, int dx, int dy) {
  const ProgramState& s = program.state;
  if (!s.mazeMadeOnce) return true;
  const Square cell = s.cur.moved(dx, dy);
  return program.pixels().allFree(cell.left - 1, cell.top - 1, cell.right + 1, cell.bottom + 1);
}

bool entersCell(const Program& program, WalkMode mode, Colour ahead, int dx, int dy) {
  if (program.colours.isMaze(ahead)) return mode != WalkMode::carve;
  return program.colours.isBackground(ahead) && wholeCellIsFree(program, dx, dy);
}

StepResult regularStep(Program& program) {
  ProgramState& s = program.state;
  const Colour ahead = program.canvas.point(s.walker.leadX + s.deltaX, s.walker.leadY + s.deltaY);
  if (!entersCell(program, s.walkMode, ahead, s.deltaX, s.deltaY)) return StepResult::done;
  s.cur = s.cur.moved(s.deltaX, s.deltaY);
  if (!program.pixels().free(s.cur.left, s.cur.top)) return StepResult::done;

  // The square stands on free ground.
  const bool ownRandomSteps =
      s.patternState == PatternState::random && s.randomStepsTemporary && s.walkMode == WalkMode::back;
  if (ownRandomSteps) releaseRandomSteps(s);
  s.walkMode = WalkMode::carve;
  return ownRandomSteps ? StepResult::walkBackEnded : StepResult::done;
}

}  // namespace gridwright
