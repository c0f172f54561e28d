#include "drawing/drawing_settings.h"

#include "menus/menu_rules.h"

namespace gridwright {

namespace {

void setDrawingOff(Program& program, bool off) {
  program.state.drawingOff = off;
  program.state.editor.drawingOffSaved = off;  // under the panel that saves patterns it is this that stays
  markSettings(program);
}

void setSymmetry(Program& program, Symmetry symmetry) {
  program.state.symmetryMode = symmetry;
  markSettings(program);
}

}  // namespace

void drawingon(Program& program) { setDrawingOff(program, false); }
void drawingoff(Program& program) { setDrawingOff(program, true); }
void turnsoff(Program& program) { setSymmetry(program, Symmetry::off); }
void horizontal(Program& program) { setSymmetry(program, Symmetry::horizontal); }
void vertical(Program& program) { setSymmetry(program, Symmetry::vertical); }
void way4(Program& program) { setSymmetry(program, Symmetry::fourWay); }

}  // namespace gridwright
