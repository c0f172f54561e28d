// gridwright: the program in its window. Its files lie in the present folder, or beside it where another
// program works in that one. A picture or a drawing that it is started with is opened as one that is dropped.
#include <QApplication>
#include <QIcon>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>
#include <vector>

#include "files/work_place.h"
#include "platform/qt/command_line.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/run_window.h"
#include "state/program.h"

namespace {

namespace fs = std::filesystem;

constexpr int kBadInput = 2;

/// A path that stays right in any folder.
fs::path wholePath(const fs::path& named) {
  std::error_code gone;
  const fs::path whole = fs::absolute(named, gone);
  return gone ? named : whole;
}

/// In each size that a desktop asks for; one that goes by the name of the menu entry has its own.
QIcon windowIcon() {
  QIcon icon;
  for (const int side : {16, 32, 48, 64, 128, 256}) icon.addFile(QString(":/gridwright-%1.png").arg(side));
  return icon;
}

int say(const char* words) {
  std::cout << words << std::endl;
  return std::cout ? 0 : kBadInput;
}

/// Qt ends a program that finds no screen with a core dump; there is nothing in it for anybody.
void endWithoutScreen(QtMsgType type, const QMessageLogContext& /*where*/, const QString& words) {
  if (type != QtFatalMsg) {
    std::cerr << words.toStdString() << '\n';
    return;
  }
  std::cerr << "gridwright: there is no screen to open a window on; gridwright-headless needs none"
            << std::endl;
  std::_Exit(1);
}

int openWindow(gridwright::CommandLine& line) {
  // Qt takes its words out of these, and reads them until its end.
  int count = static_cast<int>(line.forQt.size());
  line.forQt.push_back(nullptr);
  qInstallMessageHandler(endWithoutScreen);
  QApplication application(count, line.forQt.data());
  qInstallMessageHandler(nullptr);
  QApplication::setApplicationName("Gridwright");
  QGuiApplication::setDesktopFileName("gridwright");
  QApplication::setWindowIcon(windowIcon());
  std::error_code gone;
  const fs::path data = gridwright::personalDataFolder();
  const auto place = gridwright::placeForWindow(fs::current_path(gone), data);
  const gridwright::HeldFolder folder = place.held();
  gridwright::QtDesktop desktop(folder);
  desktop.rememberIn(gridwright::memoryFile());
  if (line.file) desktop.bring({*line.file});
  const auto program =
      std::make_unique<gridwright::Program>(desktop, std::make_unique<gridwright::WorkFolder>(folder));
  program->dataFolder = data;
  program->wordsAtBegin = place.words;
  program->toldUnwritable = place.saysUnwritable;
  return gridwright::runInWindow(desktop, *program);
}

}  // namespace

int main(int argc, char** argv) {
  auto line = gridwright::readCommandLine({argv, argv + argc});
  if (!line.complaint.empty()) {
    std::cerr << line.complaint << '\n';
    return kBadInput;
  }
  if (line.wantsHelp) return say(gridwright::kUsage);
  if (line.wantsVersion) return say("gridwright " GRIDWRIGHT_VERSION);
  if (line.file) line.file = wholePath(*line.file);
  if (line.workFolder) {
    std::error_code failed;
    fs::current_path(*line.workFolder, failed);
    if (failed) {
      std::cerr << "gridwright: no such folder: " << line.workFolder->string() << '\n';
      return kBadInput;
    }
  }
  return openWindow(line);
}
