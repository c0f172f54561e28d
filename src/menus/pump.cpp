#include "menus/pump.h"

#include "menus/enable_table.h"

namespace gridwright {

void yield(Program& program, Pace pace) {
  program.state.keyBusy = false;
  applyEnableTableIfChanged(program);
  program.platform.doEvents(program, pace);
}

void housekeeping(Program& program) {
  if (program.lookOn) program.lookOn(program);
  applyEnableTableIfChanged(program);
  program.platform.doEvents(program, Pace::housekeeping);
}

void waitForPanel(Program& program) {
  while (program.state.panelOpen) yield(program, Pace::idle);
}

}  // namespace gridwright
