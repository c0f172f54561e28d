#include "maze/makemaze.h"

#include "colours/mixcolors.h"
#include "maze/finish_reached.h"
#include "maze/finishmaking.h"
#include "maze/makemaze2.h"
#include "maze/notrap1.h"
#include "maze/regular_step.h"
#include "maze/stranded.h"
#include "maze/underpass_step.h"
#include "maze/walk_paint.h"
#include "maze/wander.h"
#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "patterns/pattern_editor.h"
#include "patterns/random_patterns.h"

// The pass on one page. `At` says where a pass goes on; a row is a step, in the order in which one follows
// the other, with the routine that takes it and where it may jump to. Without a jump the next row follows.
//
//   At             step                                         routine            jumps to
//   status         many passes at once, where nobody looks      statusOrWander     any
//                  else: count, help a stranded walker, menus   status
//   shortPass      minimise, redraw kept; on the finish?        wholePass          leave
//   finishPassed   paint what the last step carved, mix it      paintEntry
//                  the corridor's own colour comes back         colourUnderSquare
//   choosePattern  a direction by chance, and on the way back   choosePattern
//                  random steps
//   drawStep       a step by chance                             drawStep
//                  fill cursor; the yield; what it changed      sweepAndYield      leave
//                  the direction's step file is opened          openPattern
//   readStep       the next number; the end chooses anew        readStep           choosePattern
//   tryStep        what was refused before is not tried again   chooseStep         readStep, drawStep
//                  after a refused underpass all codes in turn  sweepStep
//                  code to offset; 5 turns to walking back      offsetFromStep     readStep
//                  no offset: nothing to step                                      shortPass
//                  hop, trap test, then the kind's own step     makeStep           status, finishPassed

namespace gridwright {

namespace {

/// Where a pass goes on: the rows of the page above, and out.
enum class At { status, shortPass, finishPassed, choosePattern, drawStep, readStep, tryStep, leave };

/// Step files are read through channel 1; closing it is to forget how far it was read.
void closeChannel(ProgramState& s) { s.walker.channelPosition = 0; }

void status(Program& program) {
  rescueIfStranded(program);
  if (loopRulesStand(program)) return;
  printStatus(program);
  declaremenus1(program);
  showCreateItems(program);
  noteLoopRules(program);
}

/// Works unseen when asked to: a minimised window needs no repainting.
void minimiseOnce(Program& program) {
  ProgramState& s = program.state;
  if (s.autoMinimize && !s.paused) {
    if (s.creationMode == CreationMode::user) {
      s.minimizedNow = false;
    } else if (!s.minimizedNow) {
      program.platform.setWindowState(WindowState::minimised);
      s.minimizedNow = true;
    }
  }
  if (!s.paused) program.canvas.setAutoRedraw(true);
}

/// A pipe's new cell may lie in another background than the one before it.
void remixPipe(Program& program) {
  ProgramState& s = program.state;
  s.cur = s.cur.moved(-s.deltaX, -s.deltaY);
  s.walker.previousMazeColor = s.mazeColor;
  mixcolors(program);
  s.cur = s.cur.moved(s.deltaX, s.deltaY);
  if (s.mazeColor == s.walker.previousMazeColor) return;
  program.canvas.fill(s.cur.left, s.cur.top, s.cur.right - s.deltaX, s.cur.bottom - s.deltaY, s.mazeColor);
  program.canvas.fill(s.cur.left - s.deltaX, s.cur.top - s.deltaY, s.cur.right, s.cur.bottom, s.mazeColor);
}

/// Paints what the last step carved, and settles the colours of the square left behind.
void paintEntry(Program& program) {
  ProgramState& s = program.state;
  const bool moved = walkerMoved(s);
  if (s.creationMode == CreationMode::user && !s.panelOpen) boxSquare(program, s.prev);
  mixcolors2(program);
  s.walker.cellColorAtEntry = program.canvas.point(s.cur.left, s.cur.top);
  if (s.walkMode == WalkMode::carve && moved && !s.panelOpen) paintJoin(program);
  if (s.mazeKind == MazeKind::pipe && s.walkMode == WalkMode::carve && moved) remixPipe(program);

  if (s.walker.lastWalkMode != s.walkMode && s.walkMode == WalkMode::back &&
      s.patternState != PatternState::random) {
    takeUpRandomSteps(s);
    closeChannel(s);
  }
  const bool modeChanged = s.walker.lastWalkMode != s.walkMode;
  const bool userWalksBack = s.creationMode == CreationMode::user && s.walkMode == WalkMode::back;
  if ((moved && (modeChanged || userWalksBack)) || s.creationMode != s.walker.lastCreationMode) {
    boxSquare(program, s.prev);
  }
  if (moved) s.walker.lastWalkMode = s.walkMode;
  const Colour here = program.canvas.point(s.cur.left, s.cur.top);
  if (userWalksBack && moved && s.walkMode == s.walker.lastWalkMode && here != kCursorColour) {
    s.mazeColor = here;
  }
}

/// The corridor keeps its own colour when the walker leaves it.
void colourUnderSquare(Program& program) {
  ProgramState& s = program.state;
  if (s.paused || !walkerMoved(s)) return;
  if (program.colours.isMaze(s.walker.coveredColor)) s.mazeColor = s.walker.coveredColor;
  const Colour here = program.canvas.point(s.cur.left, s.cur.top);
  if (here != kCursorColour) s.walker.coveredColor = here;
}

void choosePattern(Program& program) {
  ProgramState& s = program.state;
  if (s.patternState == PatternState::choose) {
    closeChannel(s);
    s.patternDirection = program.random.oneToFour();  // drawn even where it is overwritten at once
    if (s.walkMode == WalkMode::back) takeUpRandomSteps(s);
  }
  s.walker.lastStepCode = s.stepCode;
  s.stepCode = step::none;
  if (s.creationMode == CreationMode::user && s.patternState == PatternState::choose) s.patternDirection = 0;
}

void drawStep(Program& program) {
  ProgramState& s = program.state;
  if (s.patternState == PatternState::random) s.stepCode = program.random.oneToFour();
  if (s.creationMode == CreationMode::user) s.stepCode = step::none;
}

/// A carved square with one open side is a dead end; the last one is a finish of last resort.
void rememberDeadEnd(Program& program) {
  ProgramState& s = program.state;
  const bool carving = s.walkMode == WalkMode::carve;
  if (!carving && s.walker.stopSeen) return;
  const Pixels pixels = program.pixels();
  const Square& q = s.cur;
  const int closedSides = !pixels.maze(q.left - 1, q.top) + !pixels.maze(q.right + 1, q.top) +
                          !pixels.maze(q.left, q.top - 1) + !pixels.maze(q.left, q.bottom + 1);
  const bool deadEnd = closedSides == 3 && carving;
  if ((!deadEnd && s.walker.stopSeen) || q.sameCorner(s.start)) return;
  if (carving) s.walker.stopSeen = true;
  s.walker.lastStop = q;
}

void wipeCursor(Program& program) {
  ProgramState& s = program.state;
  if (s.creationMode != CreationMode::computer) return;
  const auto wipe = [&](const Square& square) {
    if (program.canvas.point(square.left + 1, square.top + 1) == kCursorColour) boxSquare(program, square);
  };
  wipe(s.cur);
  if (walkerMoved(s)) wipe(s.prev);
}

/// The user's maze may wait for a key once the fill sweep has met a free cell with no step since:
/// until then the sweep must run on, because it can end the maze. The sweep over all directions needs no key.
Pace paceOf(const ProgramState& s) {
  const bool waits = s.creationMode == CreationMode::user && s.walker.freeCellMetSinceStep &&
                     !s.walker.sweepActive && s.patternState != PatternState::reading && !walkerMoved(s);
  return s.paused || waits ? Pace::idle : Pace::working;
}

/// A restart in mid-maze asks for random patterns; they are made before the walker goes on.
/// \returns false at a quit to the title.
bool runRandomPatternsIfWanted(Program& program) {
  ProgramState& s = program.state;
  if (!s.randomPatterns.randomPatternsWanted || s.phase != Phase::making) return true;
  s.randomPatterns.randomPatternsWanted = false;
  return makeRandomPatterns(program);
}

/// The fill sweep, the yield, and what handlers may have changed in it. \returns whether to go on.
bool sweepAndYield(Program& program) {
  ProgramState& s = program.state;
  s.walker.lastCreationMode = s.creationMode;
  finishmaking(program);
  if (!advancefillcursor(s) && !beginTreeOnIsland(program)) {
    s.phase = Phase::placing;
    return false;
  }
  const bool wasPaused = s.paused;
  yield(program, paceOf(s));
  if (!runRandomPatternsIfWanted(program)) return false;
  if (wasPaused && !s.paused && s.creationMode == CreationMode::user)
    program.canvas.fill(s.cur, kCursorColour);
  if (s.walker.stopMaking) return false;
  rememberDeadEnd(program);
  wipeCursor(program);
  if (s.phase == Phase::quitToTitle) return false;
  if (s.editedPattern != 0) editpat(program);
  if (s.phase == Phase::quitToTitle) return false;
  if (s.creationMode != s.walker.lastCreationMode) boxSquare(program, s.prev);
  return s.phase != Phase::drawing && s.phase != Phase::placing;
}

/// Opens the step file of the direction drawn.
void openPattern(ProgramState& s) {
  if (s.patternState == PatternState::choose) {
    if (s.patternDirection != 0) {
      s.walker.channelPosition = 0;
      s.walker.lastStop = s.cur;
    }
    s.patternState = PatternState::reading;
  }
  if (s.patternDirection == 0 && s.patternState != PatternState::random) {
    s.patternState = PatternState::choose;
    s.stepCode = step::none;
  }
}

At readStep(Program& program) {
  ProgramState& s = program.state;
  if (s.patternDirection == 0 || s.patternState == PatternState::random) return At::tryStep;
  const Steps& steps = program.steps.steps(s.mazeKind, s.patternDirection);
  const std::size_t position = s.walker.channelPosition++;
  s.walker.patternValue = position < steps.size() ? steps[position] : step::endMark;
  if (s.walker.patternValue == step::endMark) {
    s.patternState = PatternState::choose;
    s.patternDirection = 0;
    s.walker.lastStop = s.cur;
    return At::choosePattern;
  }
  if (s.patternState != PatternState::choose) s.stepCode = s.walker.patternValue;
  return At::tryStep;
}

/// A carving walker never reverses on itself, and none repeats a step that has just failed.
bool isRefused(const ProgramState& s) {
  const auto opposites = [](int a, int b) {
    return a >= step::left && a <= step::down && (a - 1) == ((b - 1) ^ 1);
  };
  return (!walkerMoved(s) && s.stepCode == s.walker.lastStepCode) ||
         (s.walkMode == WalkMode::carve && opposites(s.stepCode, s.walker.lastStepCode));
}

/// After a refused underpass the codes 1 to 5 are tried in turn, until the walker leaves the square.
void sweepStep(ProgramState& s) {
  if (!s.walker.sweepActive) return;
  if (!s.paused) ++s.walker.sweepCode;
  const bool exhausted = s.walker.sweepCode > step::walkBack;
  if (s.cur.left != s.sweepX || s.cur.top != s.sweepY || exhausted) s.walker.sweepActive = false;
  if (exhausted) s.walkMode = WalkMode::back;
  if (s.walker.sweepActive) s.stepCode = s.walker.sweepCode;
}

/// Turns the step into an offset. \returns whether a pattern ordered the walk back instead.
bool offsetFromStep(ProgramState& s) {
  s.prev = s.cur;
  s.deltaX = s.deltaY = 0;
  if (s.paused) s.stepCode = step::none;
  switch (s.stepCode) {
    case step::left:
      s.deltaX = -s.wallWidth;
      break;
    case step::right:
      s.deltaX = s.wallWidth;
      break;
    case step::up:
      s.deltaY = -s.wallHeight;
      break;
    case step::down:
      s.deltaY = s.wallHeight;
      break;
    case step::walkBack:
      if (s.walker.sweepActive) break;
      s.walkMode = s.walker.lastWalkMode = WalkMode::back;
      return true;
    default:
      break;
  }
  return false;
}

At makeStep(Program& program) {
  ProgramState& s = program.state;
  hopOverBorder(program);
  leadFromDelta(s);
  notrap1(program);
  if (releasePipe(program) == StepResult::walkBackEnded) {
    closeChannel(s);
    return At::finishPassed;
  }
  if (s.stepCode == step::none) return At::status;
  if (s.walkMode != WalkMode::back &&
      program.pixels().noGround(s.walker.leadX + s.deltaX, s.walker.leadY + s.deltaY)) {
    return At::status;
  }
  const auto step = s.mazeKind == MazeKind::regular ? regularStep : underpassStep;
  return step(program) == StepResult::walkBackEnded ? At::finishPassed : At::status;
}

At chooseStep(Program& program) {
  ProgramState& s = program.state;
  if (!s.walker.sweepActive && isRefused(s)) {
    if (s.patternDirection != 0 && s.patternState != PatternState::random && !s.paused) return At::readStep;
    if (s.patternState == PatternState::random) return At::drawStep;
  }
  sweepStep(s);
  if (offsetFromStep(s)) return At::readStep;
  if (s.deltaX == 0 && s.deltaY == 0 && s.stepCode != step::walkBack) return At::shortPass;
  s.walker.freeCellMetSinceStep = false;
  return makeStep(program);
}

/// From the choice of a pattern to the yield and the step file.
At fromPatternOn(Program& program, bool choosing) {
  if (choosing) choosePattern(program);
  drawStep(program);
  if (!sweepAndYield(program)) return At::leave;
  openPattern(program.state);
  return At::readStep;
}

At wholePass(Program& program, At from) {
  ProgramState& s = program.state;
  if (from == At::status) status(program);
  if (from != At::finishPassed) {
    minimiseOnce(program);
    if (s.cur.sameCorner(s.finish) && finishReached(program)) return At::leave;
  }
  paintEntry(program);
  colourUnderSquare(program);
  if (!s.paused && s.creationMode == CreationMode::user) program.canvas.fill(s.cur, kCursorColour);
  return At::choosePattern;
}

/// Stands where the full passes would after a wandering: makes its last step anew and, where it ended in
/// a pass, the beginning of that.
At afterWandering(Program& program, const Wandered& wandered) {
  ProgramState& s = program.state;
  if (wandered.tried > 0) {
    offsetFromStep(s);
    makeStep(program);
  }
  if (wandered.end != Wandered::End::beforePass) {
    wholePass(program, At::status);
    colourUnderSquare(program);
    choosePattern(program);
  }
  s.walker.freeCellMetSinceStep = wandered.metFreeCell;
  if (wandered.end == Wandered::End::beforePass) return At::status;
  if (wandered.end == Wandered::End::beforeDraw) return At::drawStep;
  s.stepCode = wandered.drawn;
  return At::tryStep;
}

/// A full pass, or a wandering in place of many.
At statusOrWander(Program& program) {
  const Wandered wandered = wander(program);
  const bool wentNowhere = wandered.tried == 0 && wandered.end == Wandered::End::beforePass;
  return wentNowhere ? wholePass(program, At::status) : afterWandering(program, wandered);
}

At goOn(Program& program, At at) {
  switch (at) {
    case At::status:
      return statusOrWander(program);
    case At::shortPass:
    case At::finishPassed:
      return wholePass(program, at);
    case At::choosePattern:
      colourUnderSquare(program);
      return fromPatternOn(program, true);
    case At::drawStep:
      return fromPatternOn(program, false);
    case At::readStep:
      return readStep(program);
    case At::tryStep:
      return chooseStep(program);
    case At::leave:
      break;
  }
  return At::leave;
}

}  // namespace

void makemaze(Program& program) {
  ProgramState& s = program.state;
  s.walker.stopMaking = false;
  makemaze2(program);
  if (s.phase == Phase::quitToTitle) return;
  for (At at = At::status; at != At::leave;) at = goOn(program, at);
  if (s.phase != Phase::quitToTitle) s.mazeMadeOnce = s.walker.savedMazeMadeOnce;
}

}  // namespace gridwright
