// The window at its end, on a display of its own: told to go by a signal, or its display gone.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include "menus/panels.h"
#include "platform/qt/run_window.h"
#include "platform/shared/growing_file.h"
#include "platform/shared/image_files.h"
#include "support/pictures.h"
#include "support/pipe.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

/// A display without a screen.
class Display {
 public:
  Display() {
    Pipe number;
    process_ = ::fork();
    if (process_ == 0) {
      const std::string descriptor = std::to_string(number.ends[1]);
      ::execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "1000x900x24", "-nolisten",
               "tcp", nullptr);
      ::_exit(127);
    }
    name_ = ":" + number.readLine();
  }
  ~Display() { goAway(); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  [[nodiscard]] const std::string& name() const { return name_; }
  void goAway() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  pid_t process_ = 0;
  std::string name_;
};

enum class Where { drawing, message, making, printing };

/// What a person does, one thing at a time, until the program stands where the end is to find it.
class Person {
 public:
  Person(QtDesktop& desktop, Program& program, Where where, const Pipe& there)
      : desktop_(desktop), program_(program), where_(where), there_(there) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { doNext(); });
    timer_.start(10);
  }

 private:
  void doNext() {
    const Phase phase = program_.state.phase;
    if (phase == Phase::title) {
      static_cast<QPushButton*>(desktop_.controls().widget(ControlId::Command2))->click();
    } else if (phase == Phase::drawing && program_.state.cur.left < 60) {  // room for a maze
      const bool navy = program_.state.drawColor == kNavy;                 // one key a pump
      QTest::keyClick(&desktop_.window().view(), navy ? Qt::Key_L : Qt::Key_Period);
    } else if (isThere()) {
      timer_.stop();
      there_.writeLine("there");
    } else {
      goThere();
    }
  }
  [[nodiscard]] bool isThere() const {
    switch (where_) {
      case Where::drawing:
        return true;
      case Where::message:
        return QApplication::activeModalWidget() != nullptr;
      case Where::making:
        return program_.state.phase == Phase::making;
      case Where::printing:
        return program_.state.print.printedCount > 0;
    }
    return false;
  }
  void goThere() {
    if (where_ == Where::message) {
      timer_.setInterval(100);  // the box that comes has a loop of its own, and this goes on in it
      if (!asked_) QTimer::singleShot(0, [this] { desktop_.messageBox("read me"); });
      asked_ = true;
    } else if (where_ == Where::printing && !isJobBegun()) {
      beginJob();
    } else {
      desktop_.menus().action(Item::newmaze)->trigger();  // a person carves: it waits for keys
    }
  }

  /// A job of many pages is asked for; the first maze is not begun.
  [[nodiscard]] bool isJobBegun() const {
    return program_.state.creationMode == CreationMode::computer &&
           program_.state.print.printMode != PrintMode::none;
  }
  void beginJob() {
    if (program_.state.creationMode != CreationMode::computer) {
      desktop_.menus().action(Item::cgenerate)->trigger();
    } else if (!program_.state.panelOpen) {
      desktop_.menus().action(Item::printnosolutions)->trigger();
    } else {
      auto* count = static_cast<QLineEdit*>(desktop_.controls().widget(ControlId::Text3));
      count->setText("");
      QTest::keyClicks(count, "999");
      QTest::keyClick(count, Qt::Key_Return);
    }
  }

  QtDesktop& desktop_;
  Program& program_;
  Where where_;
  const Pipe& there_;
  QTimer timer_;
  bool asked_ = false;
};

/// The child process: the program in its window.
[[noreturn]] void runProgramOn(const std::string& display, const std::filesystem::path& folder, Where where,
                               const Pipe& there) {
  ::setenv("DISPLAY", display.c_str(), 1);
  ::unsetenv("WAYLAND_DISPLAY");
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) std::signal(signal, SIG_DFL);  // whoever runs the tests
  int count = 3;
  std::string name = "gridwright";
  std::string option = "-platform";
  std::string value = "xcb";
  std::array<char*, 4> arguments{name.data(), option.data(), value.data(), nullptr};
  int status = 0;
  {
    QApplication application(count, arguments.data());
    QtDesktop desktop(folder);
    const auto program = std::make_unique<Program>(desktop, folder);
    const Person person(desktop, *program, where, there);
    status = runInWindow(desktop, *program);
  }
  std::exit(status);
}

/// How the process ended, and whether the picture was kept, and the pages.
struct Ended {
  int status = -1;
  bool pictureKept = false;
  bool pagesKept = false;
};

/// Whether the first document of a folder is whole, and nothing else of it is there.
bool hasWholeDocument(const TempFolder& temp) {
  const std::string bytes = temp.get("gridwright-0001.pdf");
  const std::size_t end = bytes.rfind("%%EOF");
  return bytes.rfind("%PDF-", 0) == 0 && end != std::string::npos && bytes.size() - end <= 6 &&
         bytes.find("/Type /Page\n") != std::string::npos && !isGrowing(temp.path() / "gridwright-0001.pdf");
}

Ended endOf(Where where, const std::function<void(pid_t, Display&)>& makeItEnd) {
  const TempFolder temp;
  Display display;
  Pipe there;
  const pid_t child = ::fork();
  if (child == 0) runProgramOn(display.name(), temp.path(), where, there);
  EXPECT_EQ(there.readLine(), "there");
  makeItEnd(child, display);
  int status = 0;
  ::waitpid(child, &status, 0);
  const auto kept = readBitmapFile(temp.path() / "last-drawing.bmp");
  // The square of the drawing colour that the key has moved to.
  const bool painted = kept && kept.value().width > 30 && kept.value().at(25, 15) == kNavy;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), painted, hasWholeDocument(temp)};
}

class AWindow : public ::testing::TestWithParam<Where> {};
INSTANTIATE_TEST_SUITE_P(In, AWindow, ::testing::Values(Where::drawing, Where::message, Where::making));

TEST_P(AWindow, ThatASignalEndsKeepsThePicture) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    const Ended ended = endOf(GetParam(), [signal](pid_t program, Display&) { ::kill(program, signal); });
    EXPECT_EQ(ended.status, 0) << signal;
    EXPECT_TRUE(ended.pictureKept) << signal;
  }
}

TEST_P(AWindow, WhoseDisplayIsLostKeepsThePicture) {
  const Ended ended = endOf(GetParam(), [](pid_t, Display& display) { display.goAway(); });
  EXPECT_EQ(ended.status, 1) << "Qt's own";
  EXPECT_TRUE(ended.pictureKept);
}

TEST(AJobOfPages, ThatASignalEndsLeavesThePrintedOnesInADocument) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    const Ended ended =
        endOf(Where::printing, [signal](pid_t program, Display&) { ::kill(program, signal); });
    EXPECT_EQ(ended.status, 0) << signal;
    EXPECT_TRUE(ended.pagesKept) << signal;
  }
}

TEST(AJobOfPages, WhoseDisplayIsLostLeavesThePrintedOnesInADocument) {
  const Ended ended = endOf(Where::printing, [](pid_t, Display& display) { display.goAway(); });
  EXPECT_EQ(ended.status, 1) << "Qt's own";
  EXPECT_TRUE(ended.pagesKept);
}

}  // namespace
}  // namespace gridwright::test
