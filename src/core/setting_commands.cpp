#include "core/setting_commands.h"

#include "core/menu_rules.h"
#include "core/panels.h"

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

void quit2(Program& program) {
  ProgramState& s = program.state;
  s.editedPattern = 0;
  s.phase = Phase::quitToTitle;
}

}  // namespace gridwright
