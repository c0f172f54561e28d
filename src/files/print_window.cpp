#include "files/print_window.h"

namespace gridwright {

void printfff(Program& program) {
  program.platform.printForm(program.canvas.shownImage());
  program.platform.endOfPages();
}

}  // namespace gridwright
