#include "printing/print_window.h"

#include "printing/page.h"
#include "printing/run_words.h"

namespace gridwright {

void printfff(Program& program) {
  const Page page = pageOf(program);
  tellPrinted(program, "the window is printed", program.platform.printAlone(page.view(), page.look()));
}

void printpreview(Program& program) {
  const Page page = pageOf(program);
  program.platform.previewPage(page.view(), page.look());
}

}  // namespace gridwright
