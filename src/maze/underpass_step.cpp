#include "maze/underpass_step.h"

#include <array>

#include "maze/underpass_paint.h"
#include "maze/walk_paint.h"
#include "underpass/findunderpasses.h"
#include "underpass/nocrosses.h"

namespace gridwright {

namespace {

/// Whether three of right, left, down and up, no more and no fewer, lead at this distance to picture
/// border, as far as they are not carved.
bool threeWaysBordered(const Program& program, int times) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  const int w = times * s.wallWidth;
  const int h = times * s.wallHeight;
  struct Direction {
    int dx, dy, sampleX, sampleY;
  };
  const std::array<Direction, 4> directions = {{{w, 0, s.cur.right + w, s.cur.top},
                                                {-w, 0, s.cur.left - w, s.cur.top},
                                                {0, h, s.cur.left, s.cur.bottom + h},
                                                {0, -h, s.cur.left, s.cur.top - h}}};
  int open = 0;
  for (const Direction& d : directions) {
    const Square cell = s.cur.moved(d.dx, d.dy);
    const bool bordered = !pixels.maze(d.sampleX, d.sampleY) &&
                          (pixels.border(d.sampleX, d.sampleY) ||
                           !pixels.allGround(cell.left - 1, cell.top - 1, cell.right + 1, cell.bottom + 1));
    if (!bordered && ++open == 2) return false;  // whole cells are costly to look at
  }
  return open == 1;
}

/// Three directions closed by the picture's border leave only the way the walker came from. Two cells
/// ahead that is asked of pipes alone.
void trapCounts(Program& program) {
  ProgramState& s = program.state;
  if (s.walkMode != WalkMode::carve) return;
  const bool pipe = s.mazeKind == MazeKind::pipe;
  if ((pipe && threeWaysBordered(program, 2)) || threeWaysBordered(program, 1)) s.walkMode = WalkMode::back;
}

int stateAhead(const Program& program, int times) {
  const ProgramState& s = program.state;
  const int dx = times * s.deltaX;
  const int dy = times * s.deltaY;
  const Colour pixel = program.canvas.point(s.walker.leadX + dx, s.walker.leadY + dy);
  if (program.colours.isMaze(pixel)) return 1;
  // Two ahead the 3-d kind asks no more: a plain move needs only the cell one ahead.
  if (times == 2 && s.mazeKind == MazeKind::threeD) return 0;
  return program.colours.isBackground(pixel) && wholeCellIsFree(program, dx, dy) ? 0 : 3;
}

/// \returns whether a walk back ended on its own random steps instead of moving.
bool plainMove(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  if (s.patternState == PatternState::random && s.randomStepsTemporary && s.walkMode == WalkMode::back) {
    releaseRandomSteps(s);
    s.stepCode = step::none;  // so that nothing counts as just refused
    s.walkMode = WalkMode::carve;
    return true;
  }
  s.walkMode = WalkMode::carve;
  const int times = s.mazeKind == MazeKind::pipe ? 2 : 1;
  s.cur = s.cur.moved(times * s.deltaX, times * s.deltaY);
  program.canvas.fill(s.cur.left, s.cur.top, s.prev.right, s.prev.bottom, s.mazeColor);
  u.notMovedYet = u.underpassOk = false;
  return false;
}

void walkOverCarvedGround(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  const Pixels pixels = program.pixels();
  u.sideState = pixels.maze(s.walker.leadX + 2 * s.deltaX, s.walker.leadY + 2 * s.deltaY) ? 2 : 0;
  if (s.mazeKind == MazeKind::threeD && pixels.maze(s.walker.leadX + s.deltaX, s.walker.leadY + s.deltaY)) {
    u.sideState = 1;
  }
  if (!u.underpassOk || s.walkMode != WalkMode::back || u.sideState == 0) return;
  const int times = s.mazeKind == MazeKind::pipe || u.sideState == 2 ? 2 : 1;
  s.cur = s.cur.moved(times * s.deltaX, times * s.deltaY);
  u.notMovedYet = false;
}

void tryUnderpass(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  u.crossCount = 0;
  putProbe(s, s.cur);
  if (s.mazeKind == MazeKind::threeD) nocrosses(program);
  putProbe(s, s.cur.moved(2 * s.deltaX, 2 * s.deltaY));
  findunderpasses(program);
}

/// A refused underpass begins the sweep over all directions, or with paths of normal size the walk
/// back at once.
void underpassRefused(ProgramState& s) {
  if (!s.walker.sweepActive) {
    s.walker.sweepActive = true;
    s.walker.sweepCode = 0;
    s.sweepX = s.cur.left;
    s.sweepY = s.cur.top;
  }
  if (s.pathSize == 1) {
    s.walkMode = WalkMode::back;
    s.walker.sweepActive = false;
  }
}

}  // namespace

void declaremmb(Program& program) {
  ProgramState& s = program.state;
  s.underpass.sideState = 0;
  if (s.mazeKind != MazeKind::threeD) return;
  const Pixels pixels = program.pixels();
  const Square& q = s.cur;
  const bool horizontal = s.stepCode == step::left || s.stepCode == step::right;
  bool alongside = false;
  if (s.walkMode == WalkMode::back) {
    const bool left = pixels.maze(q.left - 1, q.top);
    const bool right = pixels.maze(q.right + 1, q.top);
    const bool top = pixels.maze(q.left, q.top - 1);
    const bool bottom = pixels.maze(q.left, q.bottom + 1);
    if (horizontal) {
      alongside = (pixels.maze(q.left, q.bottom + s.wallHeight) && !left && !right && !bottom) ||
                  (pixels.maze(q.left, q.top - s.wallHeight) && !left && !right && !top);
    } else {
      alongside = (pixels.maze(q.right + s.wallWidth, q.top) && !top && !bottom && !right) ||
                  (pixels.maze(q.left - s.wallWidth, q.top) && !top && !bottom && !left);
    }
  }
  if (alongside || corridorAcross(program, q, s.walker.leadX, s.walker.leadY)) s.underpass.sideState = 1;
}

StepResult underpassStep(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  trapCounts(program);
  u.underpassOk = u.notMovedYet = true;
  u.aheadTwoState = stateAhead(program, 2);
  u.aheadOneState = stateAhead(program, 1);
  declaremmb(program);
  if (u.aheadTwoState == 0 && u.aheadOneState == 0 && u.sideState != 1 && plainMove(program)) {
    return StepResult::walkBackEnded;
  }
  walkOverCarvedGround(program);
  u.sideState = s.testCount = 0;
  const bool meetsCorridor = u.aheadTwoState == 1 && u.aheadOneState == 0;
  if (s.walkMode != WalkMode::carve || !meetsCorridor || !u.notMovedYet) return StepResult::done;
  tryUnderpass(program);
  if (u.underpassOk) {
    paintUnderpass(program);
  } else {
    underpassRefused(s);
  }
  return StepResult::done;
}

StepResult releasePipe(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind != MazeKind::pipe || s.walkMode != WalkMode::back) return StepResult::done;
  const Pixels pixels = program.pixels();
  const int dx = s.deltaX;
  const int dy = s.deltaY;
  if (!pixels.free(s.walker.leadX + 2 * dx, s.walker.leadY + 2 * dy)) return StepResult::done;
  if (!pixels.free(s.walker.leadX + dx, s.walker.leadY + dy)) return StepResult::done;
  if (!wholeCellIsFree(program, 2 * dx, 2 * dy) || !wholeCellIsFree(program, dx, dy)) return StepResult::done;
  const bool own = s.patternState == PatternState::random && s.randomStepsTemporary;
  if (own) {
    releaseRandomSteps(s);
    s.stepCode = step::none;
  }
  s.walkMode = WalkMode::carve;
  return own ? StepResult::walkBackEnded : StepResult::done;
}

}  // namespace gridwright
