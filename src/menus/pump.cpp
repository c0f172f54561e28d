#include "menus/pump.h"

#include "menus/enable_table.h"
#include "menus/keys_sheet.h"

namespace gridwright {

namespace {

void pumpOnce(Program& program, Pace pace) {
  program.state.keyBusy = false;
  applyEnableTableIfChanged(program);
  program.platform.doEvents(program, pace);
}

}  // namespace

void yield(Program& program, Pace pace) {
  pumpOnce(program, pace);
  while (program.keys.shown) {
    pumpOnce(program, Pace::idle);
    if (program.state.panelOpen)
      hideKeys(program);  // what arrived from beside the program has the window now
  }
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
