#include "solve/solvingmaze.h"

#include "core/menu_rules.h"
#include "core/pump.h"
#include "solve/probe.h"
#include "solve/reach_finish.h"
#include "solve/trail.h"

namespace gridwright {

namespace {

bool finishIsPlaced(const ProgramState& s) { return s.finishMethod == FinishMethod::user || s.finishFound; }

PlayMode playModeInMenu(const MenuModel& menus) {
  if (menus.checked(Item::easymode)) return PlayMode::easy;
  return menus.checked(Item::hardmode) ? PlayMode::hard : PlayMode::off;
}

void prepareSolving(Program& program) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  if (!sets.isMaze(s.mazeColor)) s.mazeColor = s.ends.startMazeColor;
  if (!sets.isMaze(s.mazeColor)) s.mazeColor = sets.maze()[0];
  if (finishIsPlaced(s)) s.playMode = playModeInMenu(program.menus);
  s.mazeStage = Phase::solving;
  s.sweepX = s.sweepY = -1;
}

void minimiseOnce(Program& program) {
  ProgramState& s = program.state;
  if (!s.autoMinimize || s.playMode != PlayMode::off || s.minimizedNow || s.paused) return;
  program.platform.setWindowState(WindowState::minimised);
  s.minimizedNow = true;
}

/// A walk without a trail shows on the screen alone.
void choosePlane(Program& program) {
  const ProgramState& s = program.state;
  if (s.playMode != PlayMode::off && s.trailOff) {
    program.canvas.setAutoRedraw(false);
  } else if (!s.paused) {
    program.canvas.setAutoRedraw(true);
  }
}

void keepStartWhole(Program& program) {
  const ProgramState& s = program.state;
  const auto bare = [&](const Square& cell) {
    return cell.sameCorner(s.start) &&
           program.canvas.point(centreX(s, cell), centreY(s, cell)) != s.startColor;
  };
  if (program.canvas.point(s.prev.left, s.prev.top) == s.startColor || bare(s.prev) || bare(s.cur)) {
    program.canvas.fill(s.start, s.startColor);
  }
}

void noteMarkerGround(Program& program) {
  ProgramState& s = program.state;
  if (!s.trailOff || !finishIsPlaced(s) || s.paused) return;
  const Colour corner = program.canvas.point(s.cur.left, s.cur.top);
  if (program.colours.isMaze(corner)) s.solver.markerGround = corner;
}

/// What handlers may have done in the yield. \returns whether the loop goes on.
bool goesOn(Program& program) {
  ProgramState& s = program.state;
  if (s.phase == Phase::quitToTitle) return false;
  s.mazeStage = Phase::solving;
  if (s.phase == Phase::placing) {
    const EndsState::Covers& kept = s.ends.kept;
    s.ends.underStart = kept.underStart;
    s.ends.underFinish = kept.underFinish;
    s.ends.startMazeColor = kept.startMazeColor;
    s.ends.finishMazeColor = kept.finishMazeColor;
  }
  return s.phase == Phase::solving || s.phase == Phase::solved;
}

void menusOfPass(Program& program) {
  keysmenu(program);
  mazemenus(program);
  printmenus(program);
  if (program.state.printMode != PrintMode::none) printStatus(program);
}

/// \returns whether the finish has been reached.
bool standsOnFinish(const ProgramState& s) {
  return !s.paused && s.cur.sameCorner(s.finish) && finishIsPlaced(s);
}

void walkOn(Program& program) {
  ProgramState& s = program.state;
  s.solver.trailPaint = s.startColor;
  if (s.playMode == PlayMode::off || !s.trailOff) updateTrail(program);
  if (s.playMode == PlayMode::off && s.solver.playModeSeen != PlayMode::off) {
    program.canvas.fill(s.start, s.startColor);
  }
  if (!s.paused) {
    s.solver.playModeSeen = s.playMode;
    s.solver.trailOffSeen = s.trailOff;
  }
  if (cellChanged(s)) {
    s.sweepX = s.prev.left;
    s.sweepY = s.prev.top;
  }
  s.prev = s.cur;
  keepStartWhole(program);
}

void solvedWait(Program& program) {
  const ProgramState& s = program.state;
  do {
    if (program.canvas.point(s.prev.left, s.prev.top) == s.startColor)
      program.canvas.fill(s.start, s.startColor);
    yield(program, Pace::idle);
    noteMarkerGround(program);
  } while (goesOn(program));
}

}  // namespace

void putWalkOnStart(ProgramState& state) {
  state.cur = state.prev = state.start;
  state.solver.probeX = state.cur.left + 1;
  state.solver.probeY = state.cur.top;
  state.deltaX = 1;
  state.deltaY = 0;
}

void solvingmaze(Program& program) {
  ProgramState& s = program.state;
  s.solver.pathUnderpasses = s.solver.bestPathUnderpasses = s.solver.underpassLock = 0;
  prepareSolving(program);
  s.solver.startReturns = 0;
  for (;;) {
    if (!s.paused) s.solver.playModeAtPause = s.playMode;
    minimiseOnce(program);
    choosePlane(program);
    menusOfPass(program);
    if (standsOnFinish(s)) {
      if (!reachFinish(program)) return;
      return solvedWait(program);
    }
    walkOn(program);
    yield(program, s.paused ? Pace::idle : Pace::working);
    noteMarkerGround(program);
    if (!goesOn(program)) return;
    if (s.playMode == PlayMode::off && !s.paused) probeStep(program);
  }
}

}  // namespace gridwright
