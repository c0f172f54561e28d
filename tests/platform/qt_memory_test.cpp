#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <QTimer>
#include <fstream>

#include "platform/qt/memory.h"
#include "qt_session.h"

namespace gridwright {
namespace {

namespace fs = std::filesystem;

struct Folder {
  QTemporaryDir folder;
  fs::path file = fs::path(folder.path().toStdString()) / "in/gridwright.conf";
};

TEST(AMemory, GivesBytesBackAsTheyWerePutThere) {
  const Folder f;
  for (const std::string value : {"/home/me/a cat.png", "\xE4\xF6 \\n;=\",%41@", "1 2 3", " blank "}) {
    Memory(f.file).put("recent1", value);
    EXPECT_EQ(Memory(f.file).value("recent1"), value);
  }
  Memory(f.file).put("recent1", "");
  EXPECT_EQ(Memory(f.file).value("recent1"), "");
}

TEST(AMemoryThatIsBroken, HoldsNothingAndIsWrittenAnew) {
  const Folder f;
  fs::create_directory(f.file.parent_path());
  std::ofstream(f.file) << "window=1 2 3 4\n\x01\x02 no settings at all\n[[[\n";
  Memory memory(f.file);
  EXPECT_EQ(memory.value("window"), "");
  memory.put("font", "Serif");
  EXPECT_EQ(Memory(f.file).value("font"), "Serif");
  EXPECT_EQ(Memory(f.file).value("window"), "");
}

TEST(AMemoryThatIsNoFile, HoldsNothing) {
  for (const bool isPipe : {false, true}) {
    const Folder f;
    fs::create_directory(f.file.parent_path());
    ASSERT_EQ(isPipe ? mkfifo(f.file.c_str(), 0600) : mkdir(f.file.c_str(), 0700), 0);
    Memory memory(f.file);
    memory.put("font", "Serif");
    EXPECT_EQ(memory.value("font"), "");
  }
}

TEST(AMemoryThatCannotBeWritten, HoldsNothingInTheNextRun) {
  Memory("/proc/self/none/gridwright.conf").put("font", "Serif");
  EXPECT_EQ(Memory("/proc/self/none/gridwright.conf").value("font"), "");
}

TEST(TheWindow, OpensWhereItWasWhenItWasNotMaximised) {
  const Folder f;
  {
    Session session;
    session.desktop.rememberIn(f.file);
    session.desktop.window().setGeometry(40, 30, 700, 520);
    session.desktop.maximise();
    session.desktop.rememberPlace();
  }
  Session next;
  next.desktop.rememberIn(f.file);
  EXPECT_EQ(next.desktop.window().geometry(), QRect(40, 30, 700, 520));
  EXPECT_EQ(next.desktop.windowState(), WindowState::normal);
}

TEST(TheWindow, OpensAsEverWhereItsPlaceIsNone) {
  for (const char* place : {"9000 9000 700 520", "10 10", "a b c d", "10 10 -5 100", "10 10 99999 99999"}) {
    const Folder f;
    Memory(f.file).put("window", place);
    Session session;
    const QRect before = session.desktop.window().geometry();
    session.desktop.rememberIn(f.file);
    EXPECT_EQ(session.desktop.window().geometry(), before) << place;
  }
}

TEST(TheWindow, RemembersWhileItWaitsForAPerson) {
  const Folder f;
  Session session;
  session.desktop.rememberIn(f.file);
  session.program.recent = {"/a.png"};
  session.program.keysHintTold = true;
  QTimer::singleShot(50, [&] { session.desktop.window().close(); });
  EXPECT_THROW(session.pump(Pace::idle), ProgramEnd);
  EXPECT_EQ(Memory(f.file).value("recent1"), "/a.png");
  EXPECT_EQ(Memory(f.file).value("keystold"), "on");
  EXPECT_NE(Memory(f.file).value("window"), "");
}

}  // namespace
}  // namespace gridwright
