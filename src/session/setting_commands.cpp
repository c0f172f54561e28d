#include "session/setting_commands.h"

#include "drawings/drawing_files.h"
#include "menus/menu_rules.h"

namespace gridwright {

void aon(Program& program) {
  ProgramState& s = program.state;
  if (!s.autoMinimize) {
    s.autoMinimize = true;
    s.autoMinimizeStyle = 2;
    const bool computerWorks = (s.phase == Phase::solving && s.playMode == PlayMode::off) ||
                               (s.phase == Phase::making && s.creationMode != CreationMode::user);
    if (computerWorks && !s.paused) {
      program.platform.setWindowState(WindowState::minimised);
      s.minimizedNow = true;
    }
  }
  markOne(program.menus, {Item::aon, Item::aoff}, Item::aon);
}

void aoff(Program& program) {
  ProgramState& s = program.state;
  if (s.autoMinimize) s.autoMinimize = s.minimizedNow = false;
  markOne(program.menus, {Item::aon, Item::aoff}, Item::aoff);
}

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

void setDifficulty(Program& program, int level) {
  program.state.difficultyLevel = level;
  mazemenus(program);
}

void setPathSize(Program& program, int size) {
  program.state.pathSize = size;
  markSettings(program);
}

}  // namespace

void mode1(Program& program) { setDifficulty(program, 1); }
void mode2(Program& program) { setDifficulty(program, 2); }
void mode3(Program& program) { setDifficulty(program, 3); }
void mode4(Program& program) { setDifficulty(program, 4); }
void mode5(Program& program) { setDifficulty(program, 5); }
void mode6(Program& program) { setDifficulty(program, 6); }
void pnormal(Program& program) { setPathSize(program, 1); }
void plarge(Program& program) { setPathSize(program, 2); }

// Only the mark: it is read when a maze starts.
void pthick(Program& program) { markOne(program.menus, {Item::pthick, Item::pthin}, Item::pthick); }
void pthin(Program& program) { markOne(program.menus, {Item::pthick, Item::pthin}, Item::pthin); }

void drawingon(Program& program) { setDrawingOff(program, false); }
void drawingoff(Program& program) { setDrawingOff(program, true); }
void turnsoff(Program& program) { setSymmetry(program, Symmetry::off); }
void horizontal(Program& program) { setSymmetry(program, Symmetry::horizontal); }
void vertical(Program& program) { setSymmetry(program, Symmetry::vertical); }
void way4(Program& program) { setSymmetry(program, Symmetry::fourWay); }

void quit2(Program& program) {
  ProgramState& s = program.state;
  keepLastDrawing(program);
  s.editedPattern = 0;
  s.panelOpen = false;
  s.phase = Phase::quitToTitle;
}

}  // namespace gridwright
