#include "files/saved_pair.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <thread>
#include <utility>

#include "drawings/drawing_files.h"
#include "drawings/drawing_record.h"
#include "support/as_nobody.h"
#include "support/disk_desktop.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

struct Pair {
  TempFolder temp;
  PairPaths paths{temp.path() / "cat.maze", temp.path() / "cat.bmp"};
  void expect(const std::string& record, const std::string& bitmap) const {
    EXPECT_EQ(temp.get("cat.maze"), record);
    EXPECT_EQ(temp.get("cat.bmp"), bitmap);
  }
  void expectNothingElse(int files) const {
    int found = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(temp.path())) ++found;
    EXPECT_EQ(found, files);
  }
  void expectBefore(const std::string& record, const std::string& bitmap) const {
    EXPECT_EQ(temp.get("cat.maze~"), record);
    EXPECT_EQ(temp.get("cat.bmp~"), bitmap);
  }
  void oldPair() const {
    temp.put("cat.maze", "old record");
    temp.put("cat.bmp", "old bitmap");
  }
  void newPairBuilt() const {
    temp.put("cat.maze.building", "new record");
    temp.put("cat.bmp.building", "new bitmap");
  }
};

TEST(ACompletePair, TakesTheOldOnesPlaceWhichStaysAsTheOneBefore) {
  Pair p;
  p.oldPair();
  p.newPairBuilt();
  EXPECT_TRUE(takePairOver(p.paths));
  p.expect("new record", "new bitmap");
  p.expectBefore("old record", "old bitmap");
  p.expectNothingElse(4);
}

TEST(TheOneBefore, IsOfOneGeneration) {
  Pair p;
  p.oldPair();
  p.temp.put("cat.maze~", "older record");
  p.temp.put("cat.bmp~", "older bitmap");
  p.newPairBuilt();
  EXPECT_TRUE(takePairOver(p.paths));
  p.expectBefore("old record", "old bitmap");
  p.expectNothingElse(4);
}

TEST(APictureThatADrawingIsSavedOver, StaysAsTheOneBeforeAlone) {
  Pair p;
  p.temp.put("cat.bmp", "a picture");
  p.temp.put("cat.maze~", "the record of another");
  p.newPairBuilt();
  EXPECT_TRUE(takePairOver(p.paths));
  p.expect("new record", "new bitmap");
  EXPECT_EQ(p.temp.get("cat.bmp~"), "a picture");
  p.expectNothingElse(3);
}

TEST(APairOfANewName, LeavesNoOneBefore) {
  Pair p;
  p.newPairBuilt();
  EXPECT_TRUE(takePairOver(p.paths));
  p.expect("new record", "new bitmap");
  p.expectNothingElse(2);
}

TEST(ARecovery, GivesTheOldPairUntilTheNewOneIsReadyAndTheNewOneFromThenOn) {
  struct Moment {
    std::map<std::string, std::string> files;  ///< What a kill left beside the record and the bitmap.
    bool isNew;
  };
  const std::vector<Moment> moments = {
      {{{"cat.maze.building", "new"}}, false},
      {{{"cat.maze.building", "new record"}, {"cat.bmp.building", "new bi"}}, false},
      {{{"cat.maze.building", "new record"}, {"cat.bmp.building", "new bitmap"}}, false},
      {{{"cat.maze.ready", "new record"}, {"cat.bmp.building", "new bitmap"}}, true},
      {{{"cat.maze.ready", "new record"}, {"cat.bmp", "new bitmap"}}, true}};
  for (const Moment& moment : moments) {
    Pair p;
    p.oldPair();
    for (const auto& [name, bytes] : moment.files) p.temp.put(name, bytes);
    recoverSaves(WorkFolder(p.temp.path()));
    p.expect(moment.isNew ? "new record" : "old record", moment.isNew ? "new bitmap" : "old bitmap");
    p.expectNothingElse(2);
  }
}

TEST(ARecovery, KeepsTheOneBeforeOnceTheNewOneIsThereAndTheOlderOneUntilThen) {
  const std::map<std::string, std::string> held = {{"cat.maze~.building", "old record"},
                                                   {"cat.bmp~.building", "old bitmap"}};
  struct Moment {
    std::map<std::string, std::string> files;  ///< What a kill left beside what is held.
    bool isNew;
  };
  const std::vector<Moment> moments = {
      {{{"cat.maze.building", "new record"}, {"cat.bmp.building", "new bitmap"}}, false},
      {{{"cat.maze.building", "new record"}}, false},
      {{{"cat.maze.ready", "new record"}, {"cat.bmp.building", "new bitmap"}}, true},
      {{{"cat.maze.ready", "new record"}, {"cat.bmp", "new bitmap"}}, true},
      {{{"cat.maze", "new record"}, {"cat.bmp", "new bitmap"}}, true}};
  for (const Moment& moment : moments) {
    Pair p;
    p.oldPair();
    p.temp.put("cat.maze~", "older record");
    p.temp.put("cat.bmp~", "older bitmap");
    for (const auto& [name, bytes] : held) p.temp.put(name, bytes);
    for (const auto& [name, bytes] : moment.files) p.temp.put(name, bytes);
    recoverSaves(WorkFolder(p.temp.path()));
    p.expect(moment.isNew ? "new record" : "old record", moment.isNew ? "new bitmap" : "old bitmap");
    p.expectBefore(moment.isNew ? "old record" : "older record",
                   moment.isNew ? "old bitmap" : "older bitmap");
    p.expectNothingElse(4);
  }
}

TEST(ARecoveryCutOffBetweenTheTwoOnesBefore, IsCompletedByTheNext) {
  Pair p;
  p.temp.put("cat.maze", "new record");
  p.temp.put("cat.bmp", "new bitmap");
  p.temp.put("cat.bmp~", "old bitmap");
  p.temp.put("cat.maze~", "older record");
  p.temp.put("cat.maze~.building", "old record");
  recoverSaves(WorkFolder(p.temp.path()));
  p.expectBefore("old record", "old bitmap");
  p.expectNothingElse(4);
}

TEST(ARecovery, TouchesNoFilesThatAreNotTheProgrammes) {
  const TempFolder temp;
  const TempFolder elsewhere;
  elsewhere.put("mine", "precious");
  const std::vector<std::string> names = {"notes.txt~.building", "notes.txt.building.building",
                                          "house.building", "work.pats~.building"};
  for (const std::string& name : names) temp.put(name, "of somebody else");
  const std::vector<std::string> links = {"wave.pat~.building", "cat.maze.ready", "dog.bmp~.building",
                                          "cow.bmp.building.building"};
  for (const std::string& name : links) fs::create_symlink(elsewhere.path() / "mine", temp.path() / name);
  recoverSaves(WorkFolder(temp.path()));
  for (const std::string& name : names) EXPECT_EQ(temp.get(name), "of somebody else") << name;
  for (const std::string& name : links) EXPECT_TRUE(fs::is_symlink(temp.path() / name)) << name;
}

TEST(ALinkCalledAsARecordThatIsReady, TakesNoDrawingsPlace) {
  Pair p;
  const TempFolder elsewhere;
  elsewhere.put("mine", "precious");
  p.oldPair();
  fs::create_symlink(elsewhere.path() / "mine", p.paths.readyRecord().path());
  recoverPair(p.paths);
  p.expect("old record", "old bitmap");
  EXPECT_EQ(elsewhere.get("mine"), "precious");
}

TEST(AnExportThatWasKilled, KeepsTheOneBeforeAndLeavesNothingElse) {
  const TempFolder temp;
  temp.put("a.png", "new");
  temp.put("a.png~.building", "old");
  temp.put("b.svg", "kept");
  temp.put("b.svg.abcdefgh.building", "half");
  const WorkFolder folder(temp.path());
  recoverSaves(folder);
  folder.removeLeftOvers();
  EXPECT_EQ(temp.get("a.png") + temp.get("a.png~") + temp.get("b.svg"), "newoldkept");
  for (const char* name : {"a.png~.building", "b.svg.abcdefgh.building"})
    EXPECT_FALSE(fs::exists(temp.path() / name)) << name;
}

TEST(ARecovery, KeepsTheSetThatWasReplaced) {
  for (const std::string name : {"wave.pat", "wave.3d-pat", "WAVE.3D-PIPE-PAT"}) {
    const TempFolder temp;
    temp.put(name, "new");
    temp.put(name + "~.building", "old");
    recoverSaves(WorkFolder(temp.path()));
    EXPECT_EQ(temp.get(name + "~"), "old");
    EXPECT_FALSE(fs::exists(temp.path() / (name + "~.building")));
  }
}

TEST(ARecovery, FindsAPairWhoseNamesAreSpeltInDifferentCase) {
  TempFolder temp;
  temp.put("cat.maze", "old record");
  temp.put("CAT.BMP", "old bitmap");
  temp.put("cat.maze.ready", "new record");
  temp.put("CAT.BMP.building", "new bitmap");
  recoverSaves(WorkFolder(temp.path()));
  EXPECT_EQ(temp.get("cat.maze"), "new record");
  EXPECT_EQ(temp.get("CAT.BMP"), "new bitmap");
  EXPECT_FALSE(fs::exists(temp.path() / "cat.maze.ready"));
}

TEST(ATakeoverThatTheFolderRefuses, LeavesTheOldPairAndTheOneBeforeIt) {
  for (const char* blocked : {"cat.maze", "cat.bmp", "cat.maze~", "cat.bmp~"}) {
    Pair p;
    p.oldPair();
    p.temp.put("cat.maze~", "older record");
    p.temp.put("cat.bmp~", "older bitmap");
    fs::remove(p.temp.path() / blocked);
    fs::create_directory(p.temp.path() / blocked);
    p.newPairBuilt();
    EXPECT_FALSE(takePairOver(p.paths)) << blocked;
    for (const auto& [name, bytes] : std::map<std::string, std::string>{{"cat.maze", "old record"},
                                                                        {"cat.bmp", "old bitmap"},
                                                                        {"cat.maze~", "older record"},
                                                                        {"cat.bmp~", "older bitmap"}}) {
      if (name == blocked) continue;
      EXPECT_EQ(p.temp.get(name), bytes) << blocked;
    }
    p.expectNothingElse(4);
  }
}

TEST(ARecordThatCannotMoveAfterItsBitmapHas, GivesTheOldBitmapItsPlaceBack) {
  Pair p;
  p.oldPair();
  p.temp.put("cat.maze~", "older record");
  p.temp.put("cat.bmp~", "older bitmap");
  // A folder never takes a file's place: it stands for a record that the disk refuses to move.
  fs::create_directory(p.paths.buildingRecord().path());
  p.temp.put("cat.bmp.building", "new bitmap");
  EXPECT_FALSE(takePairOver(p.paths));
  p.expect("old record", "old bitmap");
  p.expectBefore("older record", "older bitmap");
  p.expectNothingElse(4);
}

TEST(ARecordThatCannotMoveInARecovery, StaysReadyUntilItCan) {
  Pair p;
  p.oldPair();
  fs::create_directory(p.paths.readyRecord().path());
  p.temp.put("cat.bmp.building", "new bitmap");
  recoverPair(p.paths);
  p.expect("old record", "new bitmap");
  EXPECT_TRUE(fs::exists(p.paths.readyRecord().path())) << "as long as it cannot move";
  fs::remove_all(p.paths.readyRecord().path());
  p.temp.put("cat.maze.ready", "new record");  // now it can
  recoverPair(p.paths);
  p.expect("new record", "new bitmap");
  p.expectNothingElse(2);
}

TEST(AReadOnlyFolder, RefusesASaveAndKeepsThePair) {
  Pair p;
  p.oldPair();
  DiskDesktop desktop;
  Program program(desktop, p.temp.path());
  program.canvas.resize({100, 80});
  program.controls.setText(ControlId::text1, "cat");
  {
    const ReadOnly readOnly(p.temp.path());
    saveEntered(program);
  }
  EXPECT_EQ(desktop.messages, std::vector<std::string>{"Error: bad file name."});
  p.expect("old record", "old bitmap");
  p.expectNothingElse(2);
}

TEST(AFolderThatDisappears, RefusesASave) {
  Pair p;
  DiskDesktop desktop;
  Program program(desktop, p.temp.path());
  program.canvas.resize({100, 80});
  program.controls.setText(ControlId::text1, "cat");
  fs::remove_all(p.temp.path());
  saveEntered(program);
  EXPECT_EQ(desktop.messages, std::vector<std::string>{"Error: bad file name."});
  EXPECT_FALSE(fs::exists(p.temp.path()));
}

/// Saves drawing after drawing, each all of one colour that its record names too, until it is killed; says
/// when the first is saved.
[[noreturn]] void saveForEver(const fs::path& folder, int says) {
  DiskDesktop desktop;
  Program program(desktop, folder);
  program.canvas.resize({300, 200});
  program.steps.resetAll();
  for (int n = 1;; n = n % 200 + 1) {
    program.canvas.setPicture(plainBitmap(300, 200, n));
    program.state.drawColor = n;
    program.controls.setText(ControlId::text1, "cat");
    saveEntered(program);
    if (says >= 0 && ::write(std::exchange(says, -1), "!", 1) != 1) std::abort();
  }
}

TEST(ASaveKilledAtAnyMoment, LeavesTheOldOrTheNewPairWhole) {
  TempFolder temp;
  std::mt19937 moments(1);
  int withOneBefore = 0;
  std::array<int, 2> saved{};
  ASSERT_EQ(::pipe(saved.data()), 0);
  for (int kill = 0; kill < 300; ++kill) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) saveForEver(temp.path(), saved[1]);
    char first = 0;  // however slow the machine is, the kill comes among the saves
    ASSERT_EQ(::read(saved[0], &first, 1), 1);
    std::this_thread::sleep_for(std::chrono::microseconds(moments() % 20000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    recoverSaves(WorkFolder(temp.path()));
    const auto drawing = parseDrawing(temp.get("cat.maze"));
    ASSERT_TRUE(drawing) << "kill " << kill;
    const int colour = drawing.value().values[record::drawColor];
    const auto picture = readBitmapFile(temp.path() / "cat.bmp");
    ASSERT_TRUE(picture) << "kill " << kill;
    EXPECT_EQ(picture.value(), plainBitmap(300, 200, colour)) << "kill " << kill;
    if (fs::exists(temp.path() / "cat.maze~")) {
      ++withOneBefore;
      const auto earlier = parseDrawing(temp.get("cat.maze~"));
      ASSERT_TRUE(earlier) << "kill " << kill;
      const int colourBefore = earlier.value().values[record::drawColor];
      const auto pictureBefore = readBitmapFile(temp.path() / "cat.bmp~");
      ASSERT_TRUE(pictureBefore) << "kill " << kill;
      EXPECT_EQ(pictureBefore.value(), plainBitmap(300, 200, colourBefore)) << "kill " << kill;
    }
    for (const auto& entry : fs::directory_iterator(temp.path())) {
      EXPECT_NE(entry.path().extension(), ".building");
      EXPECT_NE(entry.path().extension(), ".ready");
    }
  }
  EXPECT_GT(withOneBefore, 10);
  ::close(saved[0]);
  ::close(saved[1]);
}

}  // namespace
}  // namespace gridwright::test
