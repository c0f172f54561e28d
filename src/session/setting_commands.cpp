#include "session/setting_commands.h"

#include "drawings/last_picture.h"
#include "menus/menu_rules.h"

namespace gridwright {

void aon(Program& program) {
  ProgramState& s = program.state;
  if (!s.autoMinimize) {
    s.autoMinimize = true;
    s.session.autoMinimizeStyle = 2;
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

void markcolours(Program& program) {
  program.markColours = !program.markColours;
  program.menus.setChecked(Item::markcolours, program.markColours);
}

void statusline(Program& program) {
  program.statusLineOff = !program.statusLineOff;
  program.menus.setChecked(Item::statusline, !program.statusLineOff);
}

void wholescreen(Program& program) { program.platform.switchWholeScreen(); }

void quit2(Program& program) {
  ProgramState& s = program.state;
  giveUpDrawing(program);
  s.editedPattern = 0;
  s.panelOpen = false;
  s.phase = Phase::quitToTitle;
}

}  // namespace gridwright
