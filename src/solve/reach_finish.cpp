#include "solve/reach_finish.h"

#include "menus/menu_rules.h"
#include "solve/trail.h"

namespace gridwright {

namespace {

/// From the finish's centre to its edge on the side of arrival, so that the trail visibly enters it.
void strokeStub(Program& program) {
  const ProgramState& s = program.state;
  const Square& q = s.cur;
  const int cx = centreX(s, q);
  const int cy = centreY(s, q);
  const int a = s.shortUnderpasses ? 0 : 1;
  if (s.prev.left > q.left) program.canvas.fill(cx, cy, q.right + a, cy, s.startColor);
  if (s.prev.left < q.left) program.canvas.fill(cx, cy, q.left - a, cy, s.startColor);
  if (s.prev.top > q.top) program.canvas.fill(cx, cy, cx, q.bottom + a, s.startColor);
  // The wall's width stands in for its height here; both are always set together.
  if (s.prev.top < q.top) program.canvas.fill(cx, q.top - a, cx, q.top + s.wallWidth / 2 - 1, s.startColor);
}

void lastStroke(Program& program) {
  ProgramState& s = program.state;
  const int cx = centreX(s, s.cur);
  const int cy = centreY(s, s.cur);
  s.solver.trailEndX = s.prev.left != s.cur.left ? centreX(s, s.prev) : cx;
  s.solver.trailEndY = s.prev.top != s.cur.top ? centreY(s, s.prev) : cy;
  if ((s.playMode == PlayMode::off || !s.trailOff) && s.testCount != 0) {
    program.canvas.fill(s.solver.trailEndX, s.solver.trailEndY, cx, cy, s.startColor);
  }
}

}  // namespace

void reachFinish(Program& program) {
  ProgramState& s = program.state;
  if (s.playMode != PlayMode::off && cellChanged(s)) ++s.solver.playSteps;
  closedCellTest(program);
  if (s.testCount == 0) strokeThroughClosedCell(program, s.startColor);
  program.controls.setCaption(program.menus.checked(Item::playmodeoff)
                                  ? "Gridwright-(computer has solved maze)"
                                  : "Gridwright-(user has solved maze)");
  if (s.autoMinimize && !s.paused) program.platform.setWindowState(WindowState::maximised);
  program.platform.raise();
  if (cellChanged(s)) program.canvas.fill(s.finish, s.finishColor);
  if (s.playMode != PlayMode::off && s.trailOff && !s.paused) program.canvas.fill(s.prev, s.mazeColor);
  lastStroke(program);
  program.canvas.fill(s.start, s.startColor);
  s.phase = Phase::solved;
  if (!s.trailOff || s.playMode == PlayMode::off) strokeStub(program);
}

void standSolved(Program& program) {
  ProgramState& s = program.state;
  printmenus(program);
  s.finishFound = false;
  if (!s.trailOff || s.finishMethod == FinishMethod::user) strokeStub(program);
  if (s.playMode != PlayMode::off && s.trailOff) program.canvas.fill(s.finish, s.finishColor);
}

}  // namespace gridwright
