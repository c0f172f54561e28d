// gridwright: the program in its window. It takes no arguments; its files lie in the present folder.
#include <QApplication>
#include <filesystem>
#include <memory>

#include "core/main_loop.h"
#include "core/program.h"
#include "platform/qt/qt_desktop.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Gridwright");
  QGuiApplication::setDesktopFileName("gridwright");
  const std::filesystem::path folder = std::filesystem::current_path();
  gridwright::QtDesktop desktop(folder);
  const auto program = std::make_unique<gridwright::Program>(desktop, folder);
  try {
    gridwright::runProgram(*program);
  } catch (const gridwright::ProgramEnd&) {
    return 0;  // the window was closed; what was written is whole
  }
}
