#include "printing/print_window.h"

#include "printing/page.h"
#include "printing/run_words.h"

namespace gridwright {

void printfff(Program& program) {
  tellPrinted(program, "the window is printed", program.platform.printAlone(pageOf(program).view()));
}

}  // namespace gridwright
