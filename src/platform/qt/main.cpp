// gridwright: the program in its window. It takes no arguments; its files lie in the present folder, or
// beside it where another program works in that one.
#include <QApplication>
#include <filesystem>
#include <memory>
#include <system_error>

#include "files/work_place.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/run_window.h"
#include "state/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Gridwright");
  QGuiApplication::setDesktopFileName("gridwright");
  std::error_code gone;
  const std::filesystem::path data = gridwright::personalDataFolder();
  const auto place = gridwright::placeForWindow(std::filesystem::current_path(gone), data);
  gridwright::QtDesktop desktop(place.folder);
  const auto program = std::make_unique<gridwright::Program>(desktop, place.folder);
  program->dataFolder = data;
  program->wordsAtBegin = place.words;
  program->toldUnwritable = place.saysUnwritable;
  return gridwright::runInWindow(desktop, *program);
}
