#include "session/maze_commands.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "maze/finishmaking.h"
#include "maze/makemaze2.h"
#include "maze/stranded.h"
#include "menus/menu_rules.h"
#include "solve/finish_methods.h"
#include "solve/saved_finish.h"
#include "state/grid.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

/// What every restart forgets of the step in hand.
void forgetStep(ProgramState& s) {
  resetfillcursor(s);
  forgetRescues(s.walker);
  s.stepCode = step::none;
  s.patternDirection = 0;
}

/// The brush stays where one of its corners lies on the pipe grid; ends off it are unset.
void putOnPipeGrid(Program& program) {
  ProgramState& s = program.state;
  const CellGrid grid = pipeGrid(program);
  const bool topLeft = grid.onPipeGrid(Corner{s.cur.left, s.cur.top});
  const bool bottomRight =
      grid.onPipeGrid(Corner{s.cur.right - s.wallWidth + 1, s.cur.bottom - s.wallHeight + 1});
  if (!topLeft && !bottomRight) s.cur = firstCell(s);
  for (Square* end : {&s.start, &s.finish}) {
    if (!grid.onPipeGrid(*end)) *end = {-10, -10, -10, -10};
  }
}

/// In the drawing phase a create command for another kind only switches the kind; the one of the
/// present kind starts the maze. Neither starts one under a panel.
void createInDrawing(Program& program, MazeKind kind) {
  ProgramState& s = program.state;
  if (kind == s.mazeKind) {
    if (!s.panelOpen) s.phase = Phase::making;
    return;
  }
  s.drawing.skipPaintOnce = true;
  s.mazeKind = kind;
  s.files.lastSet.clear();
  pitchFromKind(s);
  if (kind == MazeKind::pipe) putOnPipeGrid(program);
  keepFinishMethodPossible(program);
  markKind(program);
  captionDrawing(program);
  mazemenus(program);
}

/// Off the pipe grid start and finish are kept in the pipe squares, and come back with the pipes.
void exchangePipeEnds(Program& program, MazeKind kind) {
  ProgramState& s = program.state;
  if (s.mazeKind == MazeKind::pipe) {
    s.ends.pipeStart = s.start;
    s.ends.pipeFinish = s.finish;
    s.drawing.skipPaintOnce = true;
  } else if (kind == MazeKind::pipe && s.ends.pipeStart.left > 0) {
    s.start = s.walker.walkStart = s.ends.pipeStart;
    s.finish = s.ends.pipeFinish;
  }
}

std::string_view nameOf(MazeKind kind) {
  constexpr std::array<std::string_view, 3> kNames = {"2-d mazes", "3d-pipe-mazes", "3d-mazes"};
  return kNames.at(static_cast<std::size_t>(kind));
}

/// Why the maze in hand cannot become one of this kind; empty when it can.
std::string whyNot(const Program& program, MazeKind kind, Item item) {
  if (program.menus.checked(item))
    return "These are " + std::string(nameOf(kind)) + " already: choose New maze for another one";
  if (kind == MazeKind::pipe && program.state.session.tightForPipes)
    return "No room for 3d-pipe-mazes: fewer than three of their cells are free";
  return {};
}

/// Outside it the maze starts anew in the bare drawing, unless the item is marked already.
void createAnew(Program& program, MazeKind kind, Item item) {
  ProgramState& s = program.state;
  if (std::string reason = whyNot(program, kind, item); !reason.empty()) {
    program.notices.tell(std::move(reason));
    return;
  }
  restoreSavedFinish(program);
  s.nrefreshDue = false;
  s.walker.phaseAtRestart = s.phase;
  exchangePipeEnds(program, kind);
  s.mazeKind = kind;
  pitchFromKind(s);
  chooseUnderpassLength(program);
  if (kind == MazeKind::pipe) {
    s.gridRight = lastGridLine(s.wallWidth, s.stepX, s.canvasWidth);
    s.gridBottom = lastGridLine(s.wallHeight, s.stepY, s.canvasHeight);
  }
  keepFinishMethodPossible(program);
  markKind(program);
  captionMaking(program);
  mazemenus(program);
  forgetStep(s);
  s.randomPatterns.randomPatternsWanted = true;
  paintWorkPicture(program, "drawing1.bmp");
  s.cur = s.walker.walkStart = s.start;
  program.pictures.save("drawing1b.bmp", program.canvas.imageView());
  showCursorSquare(program);
  s.phase = Phase::making;
}

void create(Program& program, MazeKind kind, Item item) {
  if (program.state.phase == Phase::drawing) {
    createInDrawing(program, kind);
  } else {
    createAnew(program, kind, item);
  }
}

}  // namespace

void newmaze(Program& program) {
  ProgramState& s = program.state;
  if (s.panelOpen) return;
  restoreSavedFinish(program);
  s.walker.phaseAtRestart = s.phase;
  s.walker.stopSeen = false;
  forgetStep(s);
  if (!s.nrefreshDue) chooseUnderpassLength(program);
  if (s.phase == Phase::making) {
    s.randomPatterns.randomPatternsWanted = true;
    paintWorkPicture(program, "drawing1b.bmp");
    s.cur = s.walker.walkStart;
    showCursorSquare(program);
  }
  s.phase = Phase::making;
  if (s.nrefreshDue) {
    s.walker.lastStop = s.walker.keptStop;
    s.walker.stopSeen = true;
    s.walkMode = WalkMode::back;
  }
}

void nrefresh(Program& program) {
  ProgramState& s = program.state;
  restoreSavedFinish(program);
  s.walker.phaseAtRestart = s.phase;
  s.walker.stopSeen = false;
  forgetStep(s);
  chooseUnderpassLength(program);
  s.walker.walkStartKept = false;
  s.randomPatterns.randomPatternsWanted = s.phase == Phase::making;
  if (s.phase != Phase::drawing) {
    paintWorkPicture(program, "drawing1.bmp");
    s.cur = s.walker.walkStart = s.start;
  }
  program.pictures.save("drawing1b.bmp", program.canvas.imageView());
  showCursorSquare(program);
  s.phase = Phase::making;
  s.nrefreshDue = false;
}

void mpdrawing(Program& program) {
  ProgramState& s = program.state;
  s.walker.keptStop = s.walker.lastStop;
  s.walker.walkStartKept = true;
  const bool redraw = program.canvas.autoRedraw();
  if (s.panelOpen) program.canvas.setAutoRedraw(true);
  program.canvas.fill(s.cur, s.mazeColor);
  program.pictures.save("drawing1b.bmp", program.canvas.imageView());
  if (s.creationMode == CreationMode::user) program.canvas.fill(s.cur, kCursorColour);
  program.canvas.setAutoRedraw(redraw);
  s.nrefreshDue = true;
}

void backtodrawing(Program& program) {
  ProgramState& s = program.state;
  restoreSavedFinish(program);
  s.drawing.skipPaintOnce = true;
  s.phase = Phase::drawing;
  s.nrefreshDue = false;
}

void backtomaze(Program& program) {
  ProgramState& s = program.state;
  restoreSavedFinish(program);
  s.walker.backToMaze = true;
  s.keepPicture = true;
  paintWorkPicture(program, "drawing3.bmp");
  s.mazeStage = s.phase;
  s.phase = Phase::making;
  s.session.resumeMaze = true;
  s.walker.stopSeen = true;
  s.walkMode = WalkMode::back;
}

void createreg(Program& program) { create(program, MazeKind::regular, Item::createreg); }
void create3d(Program& program) { create(program, MazeKind::threeD, Item::create3d); }
void create3dpipe(Program& program) { create(program, MazeKind::pipe, Item::create3dpipe); }

}  // namespace gridwright
