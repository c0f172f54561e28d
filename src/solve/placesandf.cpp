#include "solve/placesandf.h"

#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "solve/finish_search.h"
#include "state/grid.h"

namespace gridwright {

namespace {

/// The square has left a cell: the cell gets its maze colour back, and the next one's is kept.
void uncover(Program& program, const Square& left, bool& movedOnce, Colour under, Colour& cover,
             bool endColoursCount) {
  const ProgramState& s = program.state;
  program.canvas.fill(left, cover);
  const bool isMaze = program.colours.isMaze(under);
  if (!movedOnce && isMaze) cover = under;
  movedOnce = true;
  if (endColoursCount && (under == s.startColor || under == s.finishColor)) return;
  if (isMaze) cover = under;
}

/// The finish is the solver's to find: it is taken off the Canvas.
void startSearch(Program& program, bool firstPass, bool finishMoved) {
  ProgramState& s = program.state;
  const auto cover = [&](Colour colour) { return program.colours.isMaze(colour) ? colour : s.mazeColor; };
  if (!firstPass && finishMoved) program.canvas.fill(s.finish, cover(s.ends.underFinish));
  program.canvas.fill(s.ends.lastFinish, cover(s.ends.finishMazeColor));
  s.finish = kTakenOff;
  s.phase = Phase::solving;
}

/// Paints both squares where they stand. \returns whether placing goes on.
bool placeOnce(Program& program, bool firstPass) {
  ProgramState& s = program.state;
  EndsState& ends = s.ends;
  if (!s.start.sameCorner(s.prev)) {
    uncover(program, s.prev, ends.startMovedOnce, ends.underStart, ends.startMazeColor, true);
  }
  const bool finishMoved = !s.finish.sameCorner(ends.lastFinish);
  if (finishMoved) {
    uncover(program, ends.lastFinish, ends.finishMovedOnce, ends.underFinish, ends.finishMazeColor, false);
  }
  ends.underStart = program.canvas.point(s.start.left, s.start.top);
  ends.underFinish = program.canvas.point(s.finish.left, s.finish.top);
  program.canvas.fill(s.start, s.startColor);
  if (isSearching(s)) {
    startSearch(program, firstPass, finishMoved);
    return false;
  }
  program.canvas.fill(s.finish, s.finishColor);
  ends.savedFinish = s.finish;
  if (s.print.printMode != PrintMode::none) return false;  // the page is due
  s.prev = s.start;
  ends.lastFinish = s.finish;
  return true;
}

void beginPlacing(Program& program) {
  ProgramState& s = program.state;
  if (s.ends.firstPlacement) s.ends.savedFinish = s.finish;
  s.ends.firstPlacement = false;
  program.canvas.setAutoRedraw(true);
  s.prev = s.start;
  s.ends.lastFinish = s.finish;
  s.ends.startMovedOnce = s.ends.finishMovedOnce = false;
}

bool placingGoesOn(Phase phase) {
  return phase != Phase::quitToTitle && phase != Phase::drawing && phase != Phase::making &&
         phase != Phase::solving;
}

}  // namespace

void placesandf(Program& program) {
  ProgramState& s = program.state;
  beginPlacing(program);
  bool firstPass = true;
  do {
    printStatus(program);
    enableKeyHelp(program, Item::ksandf);
    mazemenus(program);
    s.ends.startColorMoved = s.ends.finishColorMoved = false;
    if (!s.paused && !placeOnce(program, firstPass)) return;
    firstPass = false;
    yield(program, Pace::idle);
  } while (placingGoesOn(s.phase));
}

void sandf(Program& program) {
  ProgramState& s = program.state;
  if (s.phase == Phase::making) {
    const CellGrid grid = presentGrid(s);
    const Pixels pixels = program.pixels();
    const auto isCarved = [&](Corner at) {
      const Square q = grid.squareIn(at);
      return q.sameCorner(s.cur) || pixels.allCarved(q.left, q.top, q.right, q.bottom);
    };
    if (grid.count(3, isCarved) < 3) {
      program.notices.tell("Nothing to place: fewer than three cells are carved");
      return;
    }
  }
  if (s.phase == Phase::solving && isSearching(s)) {
    const Colour corner = program.canvas.point(s.finish.left, s.finish.top);
    if (program.colours.isMaze(corner) && corner != s.finishColor) s.finish = kTakenOff;
  }
  s.mazeStage = s.phase;
  s.phase = Phase::placing;
}

void solvemaze(Program& program) { program.state.phase = Phase::solving; }

}  // namespace gridwright
