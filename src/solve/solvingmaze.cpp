#include "solve/solvingmaze.h"

#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "solve/circles.h"
#include "solve/crossing.h"
#include "solve/finish_search.h"
#include "solve/firstnoxy.h"
#include "solve/follow.h"
#include "solve/placesandf.h"
#include "solve/plain_way.h"
#include "solve/play.h"
#include "solve/probe.h"
#include "solve/reach_finish.h"
#include "solve/trail.h"

namespace gridwright {

namespace {

PlayMode playModeInMenu(const MenuModel& menus) {
  if (menus.checked(Item::easymode)) return PlayMode::easy;
  return menus.checked(Item::hardmode) ? PlayMode::hard : PlayMode::off;
}

void prepareSolving(Program& program) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  if (!sets.isMaze(s.mazeColor)) s.mazeColor = s.ends.startMazeColor;
  if (!sets.isMaze(s.mazeColor)) s.mazeColor = sets.maze()[0];
  if (!isSearching(s)) s.playMode = playModeInMenu(program.menus);
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
  if (!s.trailOff || isSearching(s) || s.paused) return;
  const Colour corner = program.canvas.point(s.cur.left, s.cur.top);
  if (program.colours.isMaze(corner)) s.solver.markerGround = corner;
}

/// The ends are placed anew: what the squares cover is known from the last time.
void restoreCovers(EndsState& ends) {
  ends.underStart = ends.kept.underStart;
  ends.underFinish = ends.kept.underFinish;
  ends.startMazeColor = ends.kept.startMazeColor;
  ends.finishMazeColor = ends.kept.finishMazeColor;
}

/// What handlers may have done in the yield. \returns whether the loop goes on.
bool goesOn(Program& program) {
  ProgramState& s = program.state;
  if (s.phase == Phase::quitToTitle) return false;
  s.mazeStage = Phase::solving;
  if (s.phase == Phase::placing) restoreCovers(s.ends);
  return s.phase == Phase::solving || s.phase == Phase::solved;
}

void menusOfPass(Program& program) {
  if (loopRulesStand(program)) return;
  keysmenu(program);
  mazemenus(program);
  printmenus(program);
  if (program.state.print.printMode != PrintMode::none) printStatus(program);
  noteLoopRules(program);
}

/// \returns whether the finish has been reached.
bool standsOnFinish(const ProgramState& s) {
  return !s.paused && s.cur.sameCorner(s.finish) && !isSearching(s);
}

/// A marker without a trail lies on the screen alone; it must not stay there, and on an answer that is
/// printed, once the computer walks.
void dropMarker(Program& program) {
  if (program.state.paused) return;
  program.canvas.setAutoRedraw(false);
  program.canvas.cls();
  program.canvas.setAutoRedraw(true);
}

void walkOn(Program& program) {
  ProgramState& s = program.state;
  s.solver.trailPaint = s.startColor;
  if (s.playMode == PlayMode::off || !s.trailOff) updateTrail(program);
  playUpdate(program);
  if (s.playMode == PlayMode::off && s.solver.playModeSeen != PlayMode::off) {
    if (s.solver.trailOffSeen) dropMarker(program);
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

/// Asked once a pass of the computer's walk, the finish not met in it. Beyond the Canvas there is no wall to
/// follow: a walk that got there drifts away for ever and comes no more to where it was.
bool walkCircles(Program& program, Repetition& repetition) {
  ProgramState& s = program.state;
  if (s.paused || s.playMode != PlayMode::off) return false;
  if (!program.canvas.inside(s.solver.probeX, s.solver.probeY)) return true;
  const bool startAgain = !isSearching(s) && standsInStartAsBefore(s);
  return repetition.isComplete(s) || startAgain;
}

/// Something was typed or chosen: the walk may have been put elsewhere, and walk where it has walked before.
void forgetWhatWasSeen(ProgramState& s, Repetition& repetition) {
  repetition = {};
  if (!isSearching(s)) s.solver.seenInStart.clear();  // a search counts its own returns
}

/// The walk would go round for ever: a run goes on with its next maze, else the ends are placed anew.
void stopWithoutWay(Program& program) {
  ProgramState& s = program.state;
  if (answerIsDue(program.state)) return;
  if (s.print.printMode == PrintMode::none) {  // else a job takes this maze in hand, and tells at its end
    if (s.autoMinimize) program.platform.setWindowState(WindowState::maximised);
    program.platform.messageBox("Error: there is no way from start to finish.");
  }
  sandf(program);
  restoreCovers(s.ends);
}

bool leavesSolver(Phase phase) {
  return phase == Phase::quitToTitle || phase == Phase::drawing || phase == Phase::making ||
         phase == Phase::placing;
}

/// The part of a pass before anything is walked. \returns false when the loop ends here: the option
/// was changed, or the search is done.
bool beforeStep(Program& program) {
  ProgramState& s = program.state;
  loadthispic(program);
  if (!s.paused) s.solver.playModeAtPause = s.playMode;
  minimiseOnce(program);
  choosePlane(program);
  if (s.solver.activeFinishMethod != s.finishMethod && !s.paused) {
    finishMethodChanged(program);
    return false;
  }
  menusOfPass(program);
  if (!s.paused) s.solver.activeFinishMethod = s.finishMethod;
  endsolution2(program);
  return !searchEnded(program);
}

}  // namespace

void putWalkOnStart(ProgramState& state) {
  state.cur = state.prev = state.start;
  state.solver.probeX = state.cur.left + 1;
  state.solver.probeY = state.cur.top;
  state.deltaX = 1;
  state.deltaY = 0;
}

void waitSolved(Program& program) {
  standSolved(program);
  const ProgramState& s = program.state;
  do {
    if (program.canvas.point(s.prev.left, s.prev.top) == s.startColor)
      program.canvas.fill(s.start, s.startColor);
    yield(program, Pace::idle);
    noteMarkerGround(program);
  } while (goesOn(program));
}

namespace {

enum class Pass { ended, works, waits };

void arrive(Program& program) {
  reachFinish(program);
  if (!answerIsDue(program.state)) waitSolved(program);
}

/// A pass up to its yield, or several. \returns whether the loop has ended, and else its pace.
Pass passToYield(Program& program, Repetition& repetition) {
  const ProgramState& s = program.state;
  if (follow(program, repetition)) return Pass::works;
  if (!beforeStep(program)) return Pass::ended;
  if (standsOnFinish(s)) {
    arrive(program);
    return Pass::ended;
  }
  const bool moved = cellChanged(s);
  walkOn(program);
  if (walkCircles(program, repetition)) {
    if (isSearching(s)) {
      endSearch(program);  // what was not met until now never will be
    } else if (takePlainWay(program)) {
      arrive(program);
    } else {
      stopWithoutWay(program);
    }
    return Pass::ended;
  }
  return s.paused || (s.playMode != PlayMode::off && !moved) ? Pass::waits : Pass::works;
}

}  // namespace

void solvingmaze(Program& program) {
  ProgramState& s = program.state;
  s.solver.pathUnderpasses = s.solver.bestPathUnderpasses = s.solver.underpassLock = 0;
  s.solver.seenInStart.clear();
  if (s.mazeKind == MazeKind::threeD) firstnoxy(program);
  prepareSolving(program);
  s.solver.startReturns = 0;
  Repetition repetition;
  for (;;) {
    const Pass pass = passToYield(program, repetition);
    if (pass == Pass::ended) return;
    const bool searching = isSearching(s);
    yield(program, pass == Pass::waits ? Pace::idle : Pace::working);
    if (s.keyBusy || s.paused) forgetWhatWasSeen(s, repetition);
    noteMarkerGround(program);
    if (searching && isSearching(s) && leavesSolver(s.phase)) s.playMode = s.chosenPlayMode;
    if (!goesOn(program)) return;
    if (s.playMode == PlayMode::off && !s.paused) probeStep(program);
    maze3dunderpass(program);
    longUnderpass(program);
  }
}

}  // namespace gridwright
