#include "files/saved_pair.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <random>
#include <thread>

#include "files/drawing_files.h"
#include "files/drawing_record.h"
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
  void oldPair() const {
    temp.put("cat.maze", "old record");
    temp.put("cat.bmp", "old bitmap");
  }
};

TEST(ACompletePair, TakesTheOldOnesPlace) {
  Pair p;
  p.oldPair();
  p.temp.put("cat.maze.building", "new record");
  p.temp.put("cat.bmp.building", "new bitmap");
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

TEST(ATakeoverThatTheFolderRefuses, LeavesTheOldPair) {
  for (const char* blocked : {"cat.maze", "cat.bmp"}) {
    Pair p;
    p.oldPair();
    fs::remove(p.temp.path() / blocked);
    fs::create_directory(p.temp.path() / blocked);
    p.temp.put("cat.maze.building", "new record");
    p.temp.put("cat.bmp.building", "new bitmap");
    EXPECT_FALSE(takePairOver(p.paths));
    EXPECT_EQ(p.temp.get(std::string(blocked) == "cat.maze" ? "cat.bmp" : "cat.maze"),
              std::string(blocked) == "cat.maze" ? "old bitmap" : "old record");
    p.expectNothingElse(2);
  }
}

TEST(ARecordThatCannotMoveAfterItsBitmapHas, StaysReadyAndARecoveryCompletesThePair) {
  Pair p;
  p.oldPair();
  // A folder never takes a file's place: it stands for a record that the disk refuses to move.
  fs::create_directory(p.paths.buildingRecord());
  p.temp.put("cat.bmp.building", "new bitmap");
  EXPECT_FALSE(takePairOver(p.paths));
  p.expect("old record", "new bitmap");
  EXPECT_TRUE(fs::exists(p.paths.readyRecord()));
  recoverPair(p.paths);
  EXPECT_TRUE(fs::exists(p.paths.readyRecord())) << "as long as it cannot move";
  fs::remove_all(p.paths.readyRecord());
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

/// Saves drawing after drawing, each all of one colour that its record names too, until it is killed.
[[noreturn]] void saveForEver(const fs::path& folder) {
  DiskDesktop desktop;
  Program program(desktop, folder);
  program.canvas.resize({300, 200});
  program.steps.resetAll();
  for (int n = 1;; n = n % 200 + 1) {
    program.canvas.setPicture(plainBitmap(300, 200, n));
    program.state.drawColor = n;
    program.controls.setText(ControlId::text1, "cat");
    saveEntered(program);
  }
}

TEST(ASaveKilledAtAnyMoment, LeavesTheOldOrTheNewPairWhole) {
  TempFolder temp;
  std::mt19937 moments(1);
  int seen = 0;
  for (int kill = 0; kill < 300; ++kill) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) saveForEver(temp.path());
    std::this_thread::sleep_for(std::chrono::microseconds(3000 + moments() % 20000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    recoverSaves(WorkFolder(temp.path()));
    if (!fs::exists(temp.path() / "cat.maze") && seen == 0) continue;  // killed before the first
    ++seen;
    const auto drawing = parseDrawing(temp.get("cat.maze"));
    ASSERT_TRUE(drawing) << "kill " << kill;
    const auto picture = readBitmapFile(temp.path() / "cat.bmp");
    ASSERT_TRUE(picture) << "kill " << kill;
    EXPECT_EQ(picture.value(), plainBitmap(300, 200, drawing.value().values[record::drawColor]))
        << "kill " << kill;
    for (const auto& entry : fs::directory_iterator(temp.path())) {
      EXPECT_NE(entry.path().extension(), ".building");
      EXPECT_NE(entry.path().extension(), ".ready");
    }
  }
  EXPECT_GT(seen, 10);
}

}  // namespace
}  // namespace gridwright::test
