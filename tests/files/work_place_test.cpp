#include "files/work_place.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>

#include "support/as_nobody.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

/// A folder "Mazes" in a folder of its own, and a data folder that is not there yet.
struct Desk {
  Desk() { fs::create_directory(mazes); }
  TempFolder temp;
  fs::path mazes = temp.path() / "Mazes";
  fs::path data = temp.path() / "home/data/gridwright";
};

/// An environment variable that is as it was when the test ends.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    value == nullptr ? ::unsetenv(name) : ::setenv(name, value, 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { before_ ? ::setenv(name_, before_->c_str(), 1) : ::unsetenv(name_); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(AFolder, IsLockedByOneProgramAtATime) {
  const Desk desk;
  {
    const auto first = lockFolder(desk.mazes);
    ASSERT_TRUE(first);
    EXPECT_FALSE(lockFolder(desk.mazes));
    EXPECT_TRUE(fs::is_empty(desk.mazes)) << "the lock is no file";
  }
  EXPECT_TRUE(lockFolder(desk.mazes));
}

TEST(AKilledProgram, LeavesNoLock) {
  const Desk desk;
  std::array<int, 2> ready{};
  ASSERT_EQ(::pipe(ready.data()), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const auto lock = lockFolder(desk.mazes);
    if (::write(ready[1], "x", 1) != 1) ::_exit(1);
    ::pause();
    ::_exit(lock ? 0 : 1);
  }
  char sign = 0;
  ASSERT_EQ(::read(ready[0], &sign, 1), 1);
  EXPECT_FALSE(lockFolder(desk.mazes));
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(lockFolder(desk.mazes));
}

TEST(AFolderThatCannotBeOpened, IsGoneOnWithWithoutALock) {
  const auto lock = lockFolder("/no/such/folder");
  ASSERT_TRUE(lock);
  EXPECT_FALSE(*lock);
}

TEST(TheWindow, WorksWhereItWasStarted) {
  const Desk desk;
  const WorkPlace place = placeForWindow(desk.mazes, desk.data);
  EXPECT_EQ(place.folder, desk.mazes);
  EXPECT_EQ(place.words, "");
  EXPECT_FALSE(fs::exists(desk.data)) << "nothing is made that is not needed";
}

TEST(EachFurtherWindow, WorksInAFolderBesideTheFirst) {
  const Desk desk;
  const WorkPlace first = placeForWindow(desk.mazes, desk.data);
  {
    const WorkPlace second = placeForWindow(desk.mazes, desk.data);
    const WorkPlace third = placeForWindow(desk.mazes, desk.data);
    EXPECT_EQ(second.folder, desk.temp.path() / "Mazes 2");
    EXPECT_EQ(third.folder, desk.temp.path() / "Mazes 3");
    EXPECT_TRUE(fs::is_directory(third.folder));
    EXPECT_EQ(second.words, "Error: another Gridwright works in " + desk.mazes.string() +
                                "; this one works in " + desk.mazes.string() + " 2.");
  }
  EXPECT_EQ(placeForWindow(desk.mazes, desk.data).folder, desk.temp.path() / "Mazes 2")
      << "free again, and taken with all it holds";
}

TEST(AFurtherWindow, TakesNoLinkAndNoFileForAFolder) {
  const Desk desk;
  const TempFolder elsewhere;
  fs::create_directory_symlink(elsewhere.path(), desk.temp.path() / "Mazes 2");
  desk.temp.put("Mazes 3", "a file");
  const WorkPlace first = placeForWindow(desk.mazes, desk.data);
  EXPECT_EQ(placeForWindow(desk.mazes, desk.data).folder, desk.temp.path() / "Mazes 4");
  EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

TEST(AFurtherWindow, WorksInATemporaryFolderWhereNoneCanBeMadeBeside) {
  const Desk desk;
  const TempFolder temporary;
  const Variable here("TMPDIR", temporary.path().c_str());
  const WorkPlace first = placeForWindow(desk.mazes, desk.data);
  ReadOnly::giveAway(temporary.path());
  const ReadOnly readOnly(desk.temp.path());
  const WorkPlace second = placeForWindow(desk.mazes, desk.data);
  EXPECT_EQ(second.folder.parent_path(), temporary.path());
  EXPECT_TRUE(fs::is_directory(second.folder));
  EXPECT_EQ(second.words, "Error: another Gridwright works in " + desk.mazes.string() +
                              "; this one works in " + second.folder.string() + ".");
  fs::remove(second.folder);
}

TEST(AWindowStartedInAFolderThatIsGone, WorksInThePersonsDataFolder) {
  const Desk desk;
  const WorkPlace place = placeForWindow({}, desk.data);
  EXPECT_EQ(place.folder, desk.data);
  EXPECT_TRUE(fs::is_directory(desk.data));
  EXPECT_EQ(place.words, wordsOnUnwritableFolder(desk.data));
  const WorkPlace second = placeForWindow({}, desk.data);
  EXPECT_EQ(second.folder, desk.data.parent_path() / "gridwright 2");
  EXPECT_EQ(second.words, wordsOnUnwritableFolder(second.folder));
}

TEST(AWindowStartedInAFolderThatIsGone, WorksInATemporaryFolderWhereThePersonHasNone) {
  for (const fs::path& data : {fs::path(), fs::path("/proc/none/gridwright")}) {
    const WorkPlace place = placeForWindow({}, data);
    EXPECT_EQ(place.folder.parent_path(), fs::temp_directory_path());
    EXPECT_EQ(place.words, wordsOnUnwritableFolder(place.folder));
    fs::remove(place.folder);
  }
}

TEST(AWindowForWhichNoFolderCanBeHad, SaysSoOnce) {
  const Desk desk;
  const Variable here("TMPDIR", "/proc/none");
  const WorkPlace place = placeForWindow({}, "/proc/none/gridwright");
  EXPECT_EQ(place.folder, "");
  EXPECT_EQ(place.words, wordsOnUnwritableFolder({}));
  EXPECT_TRUE(place.saysUnwritable) << "the program does not tell it a second time";
  EXPECT_FALSE(placeForWindow({}, desk.data).saysUnwritable);
}

TEST(TheDataFolder, IsTheOneThatADesktopNames) {
  const Variable home("HOME", "/home/ann");
  {
    const Variable named("XDG_DATA_HOME", "/data/ann");
    EXPECT_EQ(personalDataFolder(), "/data/ann/gridwright");
  }
  for (const char* none : {static_cast<const char*>(nullptr), "", "not/whole"}) {
    const Variable named("XDG_DATA_HOME", none);
    EXPECT_EQ(personalDataFolder(), "/home/ann/.local/share/gridwright");
    const Variable homeless("HOME", nullptr);
    EXPECT_EQ(personalDataFolder(), "");
  }
}

TEST(APersonsFolder, IsMadeWithAllAboveItAndForThePersonAlone) {
  const Desk desk;
  EXPECT_TRUE(makePersonalFolder(desk.data));
  EXPECT_EQ(fs::status(desk.data).permissions(), fs::perms::owner_all);
  EXPECT_TRUE(makePersonalFolder(desk.data));
  EXPECT_FALSE(makePersonalFolder("/proc/none/gridwright"));
}

TEST(WhatIsToldOfAFolderThatTakesNoFiles, NamesWhereTheDrawingIsKept) {
  EXPECT_EQ(wordsOnUnwritableFolder("/home/ann/.local/share/gridwright"),
            "Error: this folder cannot be written; nothing is saved in it, and the drawing is kept in "
            "/home/ann/.local/share/gridwright instead.");
  EXPECT_EQ(wordsOnUnwritableFolder({}),
            "Error: this folder cannot be written; nothing is saved in it, and the drawing is lost when the "
            "program ends.");
}

}  // namespace
}  // namespace gridwright::test
