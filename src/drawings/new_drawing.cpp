#include "drawings/new_drawing.h"

#include "drawings/last_picture.h"
#include "drawings/wall_size.h"
#include "menus/menu_rules.h"
#include "solve/finish_methods.h"
#include "state/grid.h"

namespace gridwright {

namespace {

void newDrawing(Program& program, MazeKind kind) {
  ProgramState& s = program.state;
  program.platform.maximise();
  giveUpDrawing(program);
  repairBackColor(program);
  program.canvas.clearPicture();
  fillWithBackColor(program.canvas);
  if (s.mazeKind != kind) s.files.lastSet.clear();
  s.mazeKind = kind;
  pitchFromKind(s);
  captionDrawing(program);
  s.cur = s.prev = firstCell(s);
  s.start = s.finish = {};
  s.creationMode = CreationMode::user;
  s.drawing.skipPaintOnce = true;
  s.mazeMadeOnce = false;
  s.drawColor = program.canvas.backColor();
  keepFinishMethodPossible(program);
  markSettings(program);
  mazemenus(program);
  showCreateItems(program);
  for (const char* name : {"drawing1.bmp", "drawing1b.bmp"})
    program.pictures.save(name, program.canvas.imageView());
}

}  // namespace

void rmazes(Program& program) { newDrawing(program, MazeKind::regular); }
void mazes3d1(Program& program) { newDrawing(program, MazeKind::threeD); }
void mazes3d(Program& program) { newDrawing(program, MazeKind::pipe); }

}  // namespace gridwright
