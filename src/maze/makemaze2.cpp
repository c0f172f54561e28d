#include "maze/makemaze2.h"

#include "colours/mixcolors.h"
#include "maze/finishmaking.h"
#include "maze/stranded.h"
#include "maze/sweep_memory.h"
#include "patterns/random_patterns.h"
#include "state/grid.h"
#include "state/work_picture.h"

namespace gridwright {

void chooseUnderpassLength(Program& program) {
  const bool longPipes = program.state.mazeKind == MazeKind::pipe && program.menus.checked(Item::pthin);
  program.state.shortUnderpasses = !longPipes;
}

void showCursorSquare(Program& program) {
  const ProgramState& s = program.state;
  if (s.creationMode == CreationMode::user && !s.paused) program.canvas.fill(s.cur, kCursorColour);
}

void makemaze1(Program& program) {
  ProgramState& s = program.state;
  s.walker.channelPosition = 0;
  if (s.patternState == PatternState::random && s.randomStepsTemporary) s.patternState = PatternState::choose;
  if (s.patternState != PatternState::random) {
    s.patternDirection = 0;
    s.patternState = PatternState::choose;
  }
  s.walker.lastCreationMode = s.creationMode;
  s.randomStepsTemporary = false;
  s.walker.cellBaseKnown = false;
  s.editedPattern = 0;
  s.prev = s.cur;
}

void makemaze2(Program& program) {
  ProgramState& s = program.state;
  s.walker.stopSeen = true;
  s.walker.coveredColor = -20;
  forgetRescues(s.walker);
  s.walker.sweepActive = false;
  resetfillcursor(s);
  s.ends.firstPlacement = true;
  s.finishFound = false;
  if (!s.nrefreshDue && !s.walker.backToMaze) chooseUnderpassLength(program);
  program.steps.rereadFromDisk();
  makeSweepMemory(program);
  s.walker.channelPosition = 0;
  s.mazeStage = s.walker.phaseAtRestart;
  if (s.phase != Phase::drawing && !s.keepPicture) {
    paintWorkPicture(program, "drawing1b.bmp");
    s.cur = s.walker.walkStart;
    showCursorSquare(program);
  }
  s.keepPicture = false;
  s.walker.lastWalkMode = WalkMode::none;
  s.walkMode = WalkMode::back;
  mixcolors(program);
  if (!s.walker.backToMaze && !makeRandomPatterns(program)) return;
  s.phase = Phase::making;
  s.walker.savedMazeMadeOnce = s.mazeMadeOnce;
  s.mazeMadeOnce = true;
  s.walker.backToMaze = false;
  makemaze1(program);
  s.start = normalised(s, s.start);
  s.walker.walkStart = normalised(s, s.walker.walkStart);
  s.finish = normalised(s, s.finish);
  s.cur = normalised(s, s.cur);
}

}  // namespace gridwright
