// gridwright: the program in its window. Its files lie in the present folder, or beside it where another
// program works in that one. A picture or a drawing that it is started with is opened as one that is dropped.
#include <QApplication>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "files/work_place.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/run_window.h"
#include "state/program.h"

namespace {

/// The files that words of the command line name, as paths that stay right in any folder.
std::vector<std::filesystem::path> filesOf(char** first, char** last) {
  std::vector<std::filesystem::path> files;
  std::error_code gone;
  for (; first != last; ++first) {
    const std::filesystem::path named(*first);
    const std::filesystem::path whole = std::filesystem::absolute(named, gone);
    files.push_back(gone ? named : whole);
  }
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Gridwright");
  QGuiApplication::setDesktopFileName("gridwright");
  std::error_code gone;
  const std::filesystem::path data = gridwright::personalDataFolder();
  const auto place = gridwright::placeForWindow(std::filesystem::current_path(gone), data);
  gridwright::QtDesktop desktop(place.folder);
  if (argc > 1) desktop.bring(filesOf(argv + 1, argv + argc));
  const auto program = std::make_unique<gridwright::Program>(desktop, place.folder);
  program->dataFolder = data;
  program->wordsAtBegin = place.words;
  program->toldUnwritable = place.saysUnwritable;
  return gridwright::runInWindow(desktop, *program);
}
