#include "platform/qt/run_window.h"

#include <cstdlib>
#include <utility>

#include "platform/shared/end_signals.h"
#include "session/main_loop.h"

namespace gridwright {

namespace {

struct Running {
  QtDesktop* desktop = nullptr;
  Program* program = nullptr;
};
Running running;  // for the end of the process, which hands nothing on

void keepWhatWasDrawn() {
  const Running last = std::exchange(running, {});
  if (last.program == nullptr) return;
  last.desktop->nobodyReads();
  finishProgram(*last.program);
}

}  // namespace

int runInWindow(QtDesktop& desktop, Program& program) {
  const EndSignals asked;
  desktop.endBy(asked);
  running = {&desktop, &program};
  std::atexit(keepWhatWasDrawn);
  try {
    runProgram(program);
  } catch (const ProgramEnd&) {
    running = {};
    desktop.rememberPlace();
    desktop.endByNone();
    return 0;  // what was written is whole
  }
}

}  // namespace gridwright
