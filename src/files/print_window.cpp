#include "files/print_window.h"

namespace gridwright {

void printfff(Program& program) { program.platform.printAlone(program.canvas.shownImage()); }

}  // namespace gridwright
