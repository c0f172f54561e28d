// Stages D to H: a drawing becomes a maze, its ends are placed, and it is solved.
#include <array>

#include "colours/colour_repairs.h"
#include "drawing/drawpicture.h"
#include "history/history.h"
#include "maze/finishmaking.h"
#include "maze/makemaze.h"
#include "maze/makemaze2.h"
#include "menus/growth.h"
#include "menus/keys_sheet.h"
#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "menus/status_words.h"
#include "patterns/random_patterns.h"
#include "printing/print_job.h"
#include "printing/run_words.h"
#include "session/arrivals.h"
#include "session/stages.h"
#include "solve/default_ends.h"
#include "solve/ends_after_maze.h"
#include "solve/placesandf.h"
#include "solve/solvingmaze.h"
#include "state/grid.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

/// Waits while a panel holds the window. \returns whether the stage's own phase still stands.
bool panelGivesWay(Program& program, Phase own) {
  waitForPanel(program);
  return program.state.phase == own;
}

/// The paint square kept from the last time lies on the pipe grid with both corners, or goes to the
/// first cell.
void putSavedSquareOnPipeGrid(ProgramState& s) {
  if (s.mazeKind != MazeKind::pipe) return;
  const auto onGrid = [](int position, int wall) {
    return position >= wall && (position - wall) % (2 * wall) == 0;
  };
  const Square& q = s.drawing.savedCur;
  const bool topLeft = onGrid(q.left, s.wallWidth) && onGrid(q.top, s.wallHeight);
  const bool bottomRight =
      onGrid(q.right - s.wallWidth + 1, s.wallWidth) && onGrid(q.bottom - s.wallHeight + 1, s.wallHeight);
  if (!topLeft || !bottomRight) s.drawing.savedCur = firstCell(s);
}

void giveBrushBack(ProgramState& s) {
  const Square& saved = s.drawing.savedCur;
  if (saved.left != saved.right && saved.top != saved.bottom && s.drawing.cursorRestoreAllowed) {
    s.cur = saved;
    s.drawColor = s.drawing.savedDrawColor;
  }
  s.drawing.cursorRestoreAllowed = true;
  s.prev = s.cur;
  s.drawing.firstPaint = true;
}

bool hasThreeFreeCells(const Program& program, const CellGrid& grid) {
  return grid.count(3, [&](Corner at) { return isFreeCell(program, grid, at); }) == 3;
}

void keepBrush(ProgramState& s) {
  s.drawing.savedCur = s.cur;
  s.drawing.savedDrawColor = s.drawColor;
}

void putWalkerOnOrigin(Program& program) {
  ProgramState& s = program.state;
  WalkerState& w = s.walker;
  if (!w.walkStartKept || program.pixels().maze(s.start.left, s.start.top)) w.walkStart = s.start;
  s.cur = s.session.resumeMaze ? w.resume : w.walkStart;
  if (s.session.resumeMaze) {
    s.walkMode = w.resumeWalkMode;
  } else {
    resetfillcursor(s);
  }
  s.prev = s.cur;
  s.session.resumeMaze = false;
}

/// A finish that a search took off, or that moved on, must not show at its old place.
void wipeOldFinish(Program& program) {
  const ProgramState& s = program.state;
  const Square& old = s.ends.lastFinish;
  if (program.canvas.point(old.left, old.top) != nudged(s.finishColor)) return;
  if (isSearching(s) || !old.sameCorner(s.finish)) program.canvas.fill(old, s.ends.finishMazeColor);
}

void keepEndColours(ProgramState& s) {
  s.ends.kept = {s.ends.underStart, s.ends.underFinish, s.ends.startMazeColor, s.ends.finishMazeColor};
  s.savedStartColor = unNudged(s.startColor);
  s.savedFinishColor = unNudged(s.finishColor);
  s.savedStartColorValid = s.savedFinishColorValid = true;
}

void unNudgeEndColours(ProgramState& s) {
  s.startColor = unNudged(s.startColor);
  s.finishColor = unNudged(s.finishColor);
}

void captionSolving(Program& program) {
  const ProgramState& s = program.state;
  program.controls.setCaption(isSearching(s) ? "Gridwright-(searching for finish)"
                              : program.menus.checked(Item::playmodeoff)
                                  ? "Gridwright-(computer is solving maze)"
                                  : "Gridwright-(user is solving maze)");
}

/// A maze opens into a ground of its corridors' colour.
void tellOfGround(Program& program) {
  const ProgramState& s = program.state;
  if (s.creationMode == CreationMode::user || s.session.resumeMaze) return;
  const Colour ground = program.canvas.point(1, 1);
  if (!program.colours.isMaze(ground)) return;
  program.notices.tell("the ground of this picture is " + colourWords(ground) +
                       ", the colour of corridors: File › Prepare this picture makes it ready");
}

/// Phases that no stage waits for: commands still work, and the first that has a stage goes on.
Stage waitForAStage(Program& program) {
  const auto hasStage = [&] {
    const Phase phase = program.state.phase;
    return phase == Phase::quitToTitle || phase == Phase::drawing || phase == Phase::making ||
           phase == Phase::placing;
  };
  while (!hasStage()) yield(program, Pace::idle);
  return stageOf(program.state.phase);
}

}  // namespace

Stage drawingStage(Program& program) {
  ProgramState& s = program.state;
  putSavedSquareOnPipeGrid(s);
  if (!panelGivesWay(program, Phase::drawing)) return stageOf(s.phase);
  s.mazeColor = s.keptMazeColor;
  s.keepPicture = s.walker.walkStartKept = false;
  captionDrawing(program);
  followWindow(program, program.platform.clientSize());
  program.canvas.setAutoRedraw(true);
  if (s.drawing.reloadDrawing) paintWorkPicture(program, "drawing1.bmp");
  s.drawing.reloadDrawing = false;
  program.canvas.setAutoRedraw(false);
  giveBrushBack(s);
  s.drawing.skipPaintOnce = true;  // each way here measures: the Canvas and the grid may be others now
  comeBackToDrawing(program);
  if (!takeWhatWaited(program)) hintAtKeys(program);  // what came has its own words
  drawpicture(program);
  if (s.phase == Phase::quitToTitle) return Stage::title;
  program.canvas.resize(program.platform.maximise());
  measureGrid(program);
  s.mazeStage = Phase::drawing;
  return Stage::checks;
}

Stage checksStage(Program& program) {
  ProgramState& s = program.state;
  repairSetsBeforeMaze(program);
  program.canvas.setAutoRedraw(false);
  program.canvas.cls();
  program.canvas.setAutoRedraw(true);
  if (!hasThreeFreeCells(program, presentGrid(s))) {
    program.notices.tell("Nothing to fill: fewer than three cells of a background colour are free");
    s.phase = Phase::drawing;
    keepBrush(s);
    return Stage::drawing;
  }
  s.session.tightForPipes = false;
  if (s.mazeKind != MazeKind::pipe && program.menus.visible(Item::create3dpipe)) {
    CellGrid wide = presentGrid(s);
    wide.stepX = 2 * s.wallWidth;
    wide.stepY = 2 * s.wallHeight;
    s.session.tightForPipes = !hasThreeFreeCells(program, wide);
  }
  placedefaultends(program);
  placepipefinish(program);
  program.pictures.save("drawing1.bmp", program.canvas.imageView());
  program.pictures.save("drawing1b.bmp", program.canvas.imageView());
  s.drawing.reloadDrawing = true;
  keepBrush(s);
  return Stage::making;
}

Stage makingStage(Program& program) {
  ProgramState& s = program.state;
  if (!panelGivesWay(program, Phase::making)) return stageOf(s.phase);
  s.stepCode = step::none;
  repairEndColours(program);
  captionMaking(program);
  s.minimizedNow = false;
  tellOfGround(program);
  endJobWhenDone(program);
  tellRun(program);
  s.phase = Phase::making;
  program.canvas.setAutoRedraw(true);
  ++s.session.begun;
  if (!s.session.resumeMaze && !s.keepPicture) {
    paintWorkPicture(program, "drawing1b.bmp");
    s.session.carvedBefore = carvedCells(program);
  }
  if (s.randomPatterns.randomPatternsWanted) {
    s.randomPatterns.randomPatternsWanted = false;
    if (!makeRandomPatterns(program)) return Stage::title;
  }
  putWalkerOnOrigin(program);
  beginCarving(program);
  makemaze(program);
  s.mazeStage = Phase::making;
  if (s.phase == Phase::quitToTitle || s.phase == Phase::drawing) return stageOf(s.phase);
  program.canvas.setAutoRedraw(true);
  program.canvas.fill(s.cur, s.mazeColor);
  if (program.canvas.point(s.prev.left + 1, s.prev.top + 1) == kCursorColour) {
    program.canvas.fill(s.prev, s.mazeColor);
  }
  program.pictures.save("drawing3.bmp", program.canvas.imageView());
  s.walker.resume = s.cur;
  s.walker.resumeWalkMode = s.walkMode;
  s.finishFound = false;
  s.chosenPlayMode = PlayMode::off;
  return Stage::ends;
}

Stage endsStage(Program& program) {
  ProgramState& s = program.state;
  if (!panelGivesWay(program, Phase::placing)) return stageOf(s.phase);
  makeEndsGood(program);
  program.controls.setCaption("Gridwright-(placing start and finish)");
  if (s.autoMinimize) program.platform.setWindowState(WindowState::maximised);
  program.platform.raise();
  program.canvas.setAutoRedraw(false);
  restoreSavedEndColours(program);
  program.canvas.setAutoRedraw(true);
  if (s.mazeStage == Phase::solving || s.mazeStage == Phase::solved) {
    paintWorkPicture(program, "drawing2.bmp");
  }
  wipeOldFinish(program);
  s.startColor = nudged(s.startColor);
  s.finishColor = nudged(s.finishColor);
  placesandf(program);
  // A page that the disk does not take has ended the job: a person places on.
  while (s.phase == Phase::placing && !printPlacedMaze(program)) placesandf(program);
  s.mazeStage = Phase::placing;
  keepEndColours(s);
  if (s.phase < Phase::placing) unNudgeEndColours(s);
  return stageOf(s.phase);
}

Stage solvingStage(Program& program) {
  ProgramState& s = program.state;
  program.canvas.setAutoRedraw(true);
  if (s.finishMethod == FinishMethod::user || s.finishFound) {
    program.canvas.fill(s.start, s.startColor);
    program.canvas.fill(s.finish, s.finishColor);
  }
  putWalkOnStart(s);
  program.pictures.save("drawing2.bmp", program.canvas.imageView());
  s.solver.pathLength = s.solver.bestPathLength = s.solver.playSteps = 0;
  ++s.session.begun;
  s.solver.activeFinishMethod = s.finishMethod;
  s.minimizedNow = false;
  captionSolving(program);
  s.solver.playModeSeen = s.playMode;
  solvingmaze(program);
  if (s.phase == Phase::solving) leaveAnswerOut(program);
  if (s.phase == Phase::solved && !printSolvedMaze(program)) waitSolved(program);
  if (s.mazeStage != Phase::solved) s.mazeStage = Phase::solving;
  s.print.printedNow = false;
  unNudgeEndColours(s);
  if (s.phase == Phase::placing) {
    const auto recover = [&](const Square& square, Colour cover) {
      if (program.colours.isMaze(cover)) program.canvas.fill(square, cover);
    };
    recover(s.start, s.ends.startMazeColor);
    recover(s.finish, s.ends.finishMazeColor);
  }
  return waitForAStage(program);
}

}  // namespace gridwright
