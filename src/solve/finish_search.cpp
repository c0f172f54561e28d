#include "solve/finish_search.h"

#include <array>

#include "maze/makemaze2.h"
#include "solve/circles.h"
#include "solve/trail.h"
#include "state/grid.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

/// A stub of the trail beside the start, told by the corner pixel just outside the start box.
struct Stub {
  int colourX, colourY;
  int trailX, trailY;  // where the trail shows
  bool asksTrail;      // the downward test does not, wanted so
  int endX, endY;
};

void clearStub(Program& program, const Stub& stub) {
  const ProgramState& s = program.state;
  const Colour colour = program.canvas.point(stub.colourX, stub.colourY);
  if (!program.colours.isMaze(colour)) return;
  if (stub.asksTrail && program.canvas.point(stub.trailX, stub.trailY) != s.startColor) return;
  program.canvas.fill(centreX(s, s.start), centreY(s, s.start), stub.endX, stub.endY, colour);
}

void endsolution(Program& program) {
  const ProgramState& s = program.state;
  const int x = s.start.left;
  const int y = s.start.top;
  const int w = s.wallWidth;
  const int h = s.wallHeight;
  const int cx = centreX(s, s.start);
  const int cy = centreY(s, s.start);
  const std::array<Stub, 4> stubs = {{{x - 1, y + 1, x - 3, cy, true, cx - w, cy},
                                      {x + w - 1, y + 1, x + w + 2, cy, true, cx + w, cy},
                                      {x + 1, y - 1, cx, y - 3, true, cx, cy - h},
                                      {x + 1, y + h - 1, 0, 0, false, cx, cy + h}}};
  for (const Stub& stub : stubs) clearStub(program, stub);
}

bool backAtStart(const ProgramState& s) {
  const bool onCorner = s.solver.probeX == s.start.left && s.solver.probeY == s.start.top;
  return onCorner && (s.solver.startReturns == 2 || s.deltaX == 1);
}

}  // namespace

void endsolution2(Program& program) {
  ProgramState& s = program.state;
  if (!isSearching(s)) return;
  if (s.playMode != PlayMode::off) {
    s.chosenPlayMode = s.playMode;
    s.playMode = PlayMode::off;
    s.solver.seenInStart.clear();  // the walk stood still for this pass, which is no repetition
  }
  if (!s.paused && s.solver.probeX == s.start.left && s.solver.probeY == s.start.top) ++s.solver.startReturns;
}

bool searchEnded(Program& program) {
  ProgramState& s = program.state;
  if (!isSearching(s) || s.paused) return false;
  const bool repeats = standsInStartAsBefore(s);
  if (!backAtStart(s) && !repeats) return false;
  endSearch(program);
  return true;
}

void endSearch(Program& program) {
  ProgramState& s = program.state;
  endsolution(program);
  const Colour cover = program.canvas.point(s.finish.left, s.finish.top);
  if (program.colours.isMaze(cover)) s.ends.underFinish = s.ends.finishMazeColor = cover;
  program.canvas.fill(s.start, s.ends.startMazeColor);
  s.playMode = s.chosenPlayMode;
  s.finishFound = true;
  s.phase = Phase::placing;
}

void bestCellTest(ProgramState& state) {
  if (!isSearching(state)) return;
  SolverState& solver = state.solver;
  const bool longer = solver.pathLength > solver.bestPathLength;
  const bool underpassesCount = state.finishMethod == FinishMethod::mostUnderpasses;
  const bool longerWins =
      longer && (!underpassesCount || solver.pathUnderpasses >= solver.bestPathUnderpasses);
  const bool moreWins = (underpassesCount || longer) && solver.pathUnderpasses > solver.bestPathUnderpasses;
  if (!longerWins && !moreWins) return;
  solver.bestPathUnderpasses = solver.pathUnderpasses;
  solver.bestPathLength = solver.pathLength;
  state.finish = state.cur;
}

void finishMethodChanged(Program& program) {
  ProgramState& s = program.state;
  paintWorkPicture(program, "drawing2.bmp");
  s.phase = Phase::placing;
  if (s.finishMethod == FinishMethod::user) {
    s.finish = s.ends.savedFinish;
    const Colour corner = program.canvas.point(s.finish.left, s.finish.top);
    if (program.colours.isMaze(corner)) s.ends.underFinish = s.ends.finishMazeColor = corner;
    s.playMode = s.chosenPlayMode;
  } else {
    s.finishFound = false;
    const Colour corner = program.canvas.point(s.finish.left, s.finish.top);
    if (corner != s.finishColor && program.colours.isMaze(corner)) s.finish = kTakenOff;
  }
  program.canvas.fill(s.finish, s.mazeColor);
}

}  // namespace gridwright
