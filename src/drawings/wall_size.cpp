#include "drawings/wall_size.h"

#include <algorithm>
#include <string>

#include "drawings/last_picture.h"
#include "maze/makemaze2.h"
#include "menus/menu_rules.h"
#include "menus/panels.h"
#include "state/grid.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

constexpr int kSmallest = 5;
constexpr int kLargest = 50;

/// A new wall size means a new grid: the brush goes to the first cell, no end is placed, and a maze
/// that was made part of every maze is one no more, since its stops lie on the old grid.
void startNewGrid(ProgramState& s, int wallSize) {
  s.wallWidth = s.wallHeight = wallSize;
  pitchFromKind(s);
  s.cur = s.prev = s.drawing.savedCur = firstCell(s);
  s.start = {0, 0, -5, -5};
  s.finish = {0, 0, -3, -3};
  s.drawing.skipPaintOnce = true;
  s.symmetryMode = Symmetry::off;
  s.drawingOff = false;
  s.nrefreshDue = false;
}

}  // namespace

void fillWithBackColor(Canvas& canvas) {
  canvas.setAutoRedraw(true);
  canvas.fill(0, 0, canvas.scaleWidth() - 1, canvas.scaleHeight() - 1, canvas.backColor());
  canvas.setAutoRedraw(false);
}

void repairBackColor(Program& program) {
  const ColourSets& sets = program.colours;
  const Colour back = program.canvas.backColor();
  if (!sets.isMaze(back) && !sets.isBackground(back)) return;
  const auto& border = sets.border();
  const auto* plain = std::find_if(border.begin(), border.end(),
                                   [&](Colour c) { return !sets.isMaze(c) && !(c >= 299 && c <= 401); });
  if (plain != border.end()) program.canvas.setBackColor(*plain);
}

// A maze under way may end while the panel is up, and with it what its drawing counts as: what Enter does
// to the picture is what the panel was opened for.
void changewallsize(Program& program) {
  ProgramState& s = program.state;
  s.drawing.newSizeEmpties = s.drawing.newSizeRequest || !s.mazeMadeOnce;
  openPanel(program, kWallSizePanel, std::to_string(program.state.wallWidth));
}

void newwallsize(Program& program) {
  const bool pipes = program.state.mazeKind == MazeKind::pipe;
  program.state.drawing.newSizeRequest = true;
  for (const Item item : {Item::createreg, Item::create3d}) program.menus.setVisible(item, !pipes);
  for (const Item item : {Item::create3dpipe, Item::changewallsize}) program.menus.setVisible(item, false);
  changewallsize(program);
}

void wallSizeEntered(Program& program) {
  ProgramState& s = program.state;
  const int wallSize = std::clamp(numberTyped(program.controls[ControlId::Text2].text), kSmallest, kLargest);
  Canvas& canvas = program.canvas;
  program.platform.maximise();
  if (s.phase != Phase::drawing) paintWorkPicture(program, "drawing1.bmp");  // not the half-made maze
  canvas.setAutoRedraw(false);
  canvas.cls();
  closePanel(program, kWallSizePanel);
  s.phase = Phase::drawing;
  if (s.drawing.newSizeRequest) {
    giveUpDrawing(program);
    fillWithBackColor(canvas);
    s.mazeMadeOnce = s.drawing.newSizeRequest = false;
  }
  if (s.drawing.newSizeEmpties) {
    canvas.clearPicture();
    s.creationMode = CreationMode::user;
  }
  startNewGrid(s, wallSize);
  program.pictures.save("drawing1.bmp", canvas.imageView());
  program.pictures.save("drawing1b.bmp", canvas.imageView());
  repairBackColor(program);
  s.drawColor = canvas.backColor();
  s.drawing.savedDrawColor = s.drawColor;
}

void wallSizeEscaped(Program& program) {
  closePanel(program, kWallSizePanel);
  program.state.drawing.newSizeRequest = false;
}

}  // namespace gridwright
