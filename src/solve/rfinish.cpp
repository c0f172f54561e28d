#include "solve/rfinish.h"

#include "maze/finish_reached.h"
#include "solve/ends_after_maze.h"
#include "state/grid.h"

namespace gridwright {

namespace {

Square searchCarvedStart(const Program& program) {
  const CellGrid grid = presentGrid(program.state);
  const auto cell = grid.first([&](Corner at) {
    return program.pixels().allCarved(at.x + 1, at.y + 1, at.x + grid.wallWidth - 3,
                                      at.y + grid.wallHeight - 3);
  });
  return cell ? grid.squareIn(*cell) : Square{-10, -10, -10, -10};
}

void resetWhileMaking(Program& program) {
  ProgramState& s = program.state;
  const Square found = searchFinishToBeCarved(program);
  if (isPlaced(found)) s.finish = found;
  if (!s.cur.sameCorner(s.finish)) return;
  s.walker.stopMaking = finishReached(program);
}

void resetWhilePlacing(Program& program) {
  ProgramState& s = program.state;
  const Square found = searchCarvedFinish(program);
  if (isPlaced(found)) s.finish = found;
  s.ends.lastFinish = s.finish;
  s.prev = s.start;
  const auto takeCover = [&](const Square& q, Colour& under, Colour& cover) {
    if (program.pixels().carved(q.left + 1, q.top + 1)) under = cover = program.canvas.point(q.left, q.top);
  };
  takeCover(s.start, s.ends.underStart, s.ends.startMazeColor);
  takeCover(s.finish, s.ends.underFinish, s.ends.finishMazeColor);
  program.canvas.fill(s.start, s.startColor);
  program.canvas.fill(s.finish, s.finishColor);
  s.ends.savedFinish = s.finish;
}

}  // namespace

void rfinish(Program& program) {
  ProgramState& s = program.state;
  Canvas& canvas = program.canvas;
  program.platform.maximise();
  const bool redraw = canvas.autoRedraw();
  canvas.setAutoRedraw(true);
  s.walker.stopMaking = false;
  if (s.phase == Phase::placing) {
    canvas.fill(s.start, s.ends.startMazeColor);
    canvas.fill(s.finish, s.ends.finishMazeColor);
  }
  s.start = s.finish = {-1, -1, -1, -1};
  if (s.phase == Phase::making || s.phase == Phase::placing) {
    s.start = searchCarvedStart(program);
    // Before anything is carved there is no start; the walker must still have a cell to go back to.
    if (isPlaced(s.start)) s.walker.walkStart = s.start;
    if (s.phase == Phase::making) {
      resetWhileMaking(program);
    } else {
      resetWhilePlacing(program);
    }
  }
  canvas.setAutoRedraw(redraw);
}

}  // namespace gridwright
