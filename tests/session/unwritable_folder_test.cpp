// Sessions in folders that take no files, or where names stand for something else: it is told once, and no
// drawing is lost.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "files/work_place.h"
#include "support/as_nobody.h"
#include "support/disk_session.h"
#include "support/full_disk.h"
#include "support/no_plain_files.h"
#include "support/pictures.h"
#include "support/turkish.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

const Bitmap kRoom = drawing({"......", "......", "......", "......"});

/// A session that draws a room, with a data folder that is not there yet.
struct Session : DiskSession {
  explicit Session(const fs::path& folder) : DiskSession(folder, kRoom) {
    ReadOnly::giveAway(home.path());
    program.dataFolder = data;
    draw();
  }
  void expectToldOnce() const {
    EXPECT_EQ(desktop.messages, std::vector<std::string>{wordsOnUnwritableFolder(data)});
  }
  void expectKept() const {
    const auto kept = readBitmapFile(data / "last-drawing.bmp");
    ASSERT_TRUE(kept);
    EXPECT_TRUE(samePicture(kept.value(), kRoom));
  }
  TempFolder home;
  fs::path data = home.path() / "share/gridwright";
};

TEST(AReadOnlyFolder, IsToldOnceAndTheDrawingIsKeptInTheDataFolder) {
  const TempFolder temp;
  Session s(temp.path());
  s.look([&](Program&) { s.expectToldOnce(); });
  s.desktop.menu(Item::quit2);
  s.desktop.click(ControlId::Command2);
  s.desktop.untilPhase(Phase::drawing);
  s.desktop.pumpsPass(2);
  s.draw();
  {
    const ReadOnly readOnly(temp.path());
    s.run();
  }
  s.expectToldOnce();
  s.expectKept();
  EXPECT_TRUE(fs::is_empty(temp.path()));
}

TEST(AReadOnlyFolder, IsStillReadFrom) {
  const TempFolder temp;
  ASSERT_TRUE(writeBitmapFile(kRoom, temp.path() / "cat.bmp"));
  Session s(temp.path());
  s.desktop.menu(Item::importdrawing);
  s.desktop.enter(ControlId::Text8, "cat");
  s.desktop.pumpsPass(2);
  s.look([&](Program& p) { EXPECT_TRUE(p.state.mazeMadeOnce); });
  {
    const ReadOnly readOnly(temp.path());
    s.run();
  }
  s.expectToldOnce();
  s.expectKept();
}

TEST(AFolderThatIsGone, IsToldOnceAndTheDrawingIsKeptInTheDataFolder) {
  const TempFolder temp;
  const fs::path folder = temp.path() / "gone";
  Session s(folder);
  s.run();
  s.expectToldOnce();
  s.expectKept();
}

TEST(AFolderThatTakesNoFilesAnyMore, IsToldWhenADrawingCouldNotBeKeptThere) {
  const TempFolder temp;
  const fs::path folder = temp.path() / "mazes";
  fs::create_directory(folder);
  Session s(folder);
  s.look([&](Program&) {
    EXPECT_TRUE(s.desktop.messages.empty());
    fs::remove_all(folder);
  });
  s.desktop.menu(Item::rmazes);
  s.desktop.pumpsPass(2);
  s.look([&](Program&) {
    s.expectToldOnce();
    s.expectKept();
  });
  s.run();
  s.expectToldOnce();
}

TEST(AFullDiskAtTheStart, IsToldOnce) {
  const TempFolder temp;
  Session s(temp.path());
  {
    const FullDisk full(0);
    s.run();
  }
  EXPECT_EQ(s.desktop.messages, std::vector<std::string>{wordsOnUnwritableFolder({})})
      << "and the data folder takes none either";
}

TEST(AFolderThatIsGone, PromisesNoDataFolderThatTakesNoFiles) {
  const TempFolder temp;
  Session s(temp.path() / "gone");
  s.data = s.program.dataFolder = s.home.path();
  {
    const ReadOnly readOnly(s.home.path());
    s.run();
  }
  EXPECT_EQ(s.desktop.messages, std::vector<std::string>{wordsOnUnwritableFolder({})});
}

TEST(ADrawing, IsSaidToBeLostWhereTheDataFolderDoesNotKeepItAfterAll) {
  const TempFolder temp;
  Session s(temp.path() / "gone");
  fs::create_directories(s.data / "last-drawing.bmp");
  s.desktop.menu(Item::rmazes);
  s.desktop.pumpsPass(2);
  s.run();
  const std::vector<std::string> told{
      wordsOnUnwritableFolder(s.data),
      "Error: last-drawing.bmp is not a plain file; nothing is written to it.",
      "Error: the drawing can be kept neither in this folder nor in " + s.data.string() + "; it is lost."};
  EXPECT_EQ(s.desktop.messages, told);
}

TEST(AFolderWithoutAPlaceForTheDrawing, IsToldToLoseIt) {
  const TempFolder temp;
  Session s(temp.path() / "gone");
  s.program.dataFolder.clear();
  s.run();
  EXPECT_EQ(s.desktop.messages, std::vector<std::string>{wordsOnUnwritableFolder({})});
}

TEST(ASessionAmongNamesThatAreNoPlainFiles, WritesToNoneAndTellsEachOnce) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "precious");
    const std::vector<std::string> names{"title.bmp",     "left.pt",          "last-drawing.bmp",
                                         "3dpipedown.pt", "cat.bmp.building", "wave.pat"};
    for (const std::string& name : names) put(kind, temp.path() / name, elsewhere.path() / "mine");
    Session s(temp.path());
    s.save("cat");
    s.save("cat");
    s.desktop.menu(Item::savepatterns);
    s.desktop.enter(ControlId::Text5, "wave");
    s.desktop.pumpsPass(2);
    s.run();
    std::vector<std::string> expected;
    for (const std::string& name : {names[0], names[1], names[2], names[3], names[4]})
      expected.push_back("Error: " + name + " is not a plain file; nothing is written to it.");
    expected.emplace_back("Error: bad file name.");  // what could not be saved is said each time
    expected.emplace_back("Error: wave.pat is not a plain file; nothing is written to it.");
    EXPECT_EQ(s.desktop.messages, expected);
    EXPECT_EQ(elsewhere.get("mine"), "precious");
    EXPECT_FALSE(fs::exists(elsewhere.path() / "made"));
    for (const std::string& name : names) EXPECT_TRUE(isNoPlainFile(temp.path() / name)) << name;
    s.expectKept();
  }
}

TEST(ADrawing, IsNotSavedOverALink) {
  for (const char* name : {"cat.maze", "cat.bmp"}) {
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "precious");
    put(NoPlainFile::link, temp.path() / name, elsewhere.path() / "mine");
    Session s(temp.path());
    s.save("cat");
    s.run();
    EXPECT_EQ(s.desktop.messages,
              std::vector<std::string>{"Error: " + std::string(name) +
                                       " is not a plain file; nothing is written to it."});
    EXPECT_EQ(elsewhere.get("mine"), "precious");
    EXPECT_TRUE(isNoPlainFile(temp.path() / name));
    EXPECT_FALSE(fs::exists(temp.path() / "cat.maze.building"));
  }
}

TEST(AFolderExchangedForALinkInTheMiddleOfASession, IsToldOnceAndNothingGoesWhereTheLinkLeads) {
  const TempFolder temp;
  const TempFolder elsewhere;
  const fs::path mazes = temp.path() / "Mazes";
  const fs::path away = temp.path() / "Away";
  fs::create_directory(mazes);
  Session s(mazes);
  s.save("cat");
  s.look([&](Program&) {
    fs::rename(mazes, away);
    fs::create_directory_symlink(elsewhere.path(), mazes);
  });
  s.save("dog");
  s.load("cat");
  s.desktop.menu(Item::savepatterns);
  s.desktop.enter(ControlId::Text5, "wave");
  s.desktop.pumpsPass(2);
  s.desktop.menu(Item::rmazes);
  s.desktop.pumpsPass(2);
  s.run();
  EXPECT_EQ(s.desktop.messages, std::vector<std::string>{"The folder that this program works in is " +
                                                         away.string() + " now; what is saved goes there."});
  for (const char* name : {"cat.maze", "dog.maze", "dog.bmp", "wave.pat", "last-drawing.bmp", "Left.pt"})
    EXPECT_TRUE(fs::is_regular_file(away / name)) << name;
  EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

TEST(TheStart, RemovesWhatAKilledProgramLeftBehind) {
  const TempFolder temp;
  for (const char* name : {"drawing1.bmp.building", "wave.pat.building", "gridwright-0001.pdf.building"})
    temp.put(name, "half");
  const BuildingFile held = makeBuildingFile(temp.path() / "page-0001.bmp");
  Session s(temp.path());
  s.look([&](Program&) {
    int building = 0;
    for (const auto& entry : fs::directory_iterator(temp.path()))
      if (entry.path().extension() == ".building") ++building;
    EXPECT_EQ(building, 1) << "the one that somebody holds";
  });
  s.run();
  EXPECT_TRUE(isThere(held.place));
}

TEST(ASessionInTurkish, SavesAndLoadsADrawingByANameWithAnI) {
  const Turkish turkish;
  const TempFolder temp;
  temp.put("SIDI.MAZE", "");
  temp.put("LEFT.PT", "");
  temp.put("RIGHT.PT", "");
  Session s(temp.path());
  s.save("sidi");
  s.load("Sidi");
  s.run();
  EXPECT_TRUE(s.desktop.messages.empty());
  EXPECT_EQ(temp.get("RIGHT.PT").substr(0, 1), "2") << "and no second file beside it";
  EXPECT_FALSE(fs::exists(temp.path() / "Right.pt"));
  EXPECT_FALSE(fs::exists(temp.path() / "sidi.maze"));
  EXPECT_GT(temp.get("SIDI.MAZE").size(), 100U);
}

}  // namespace
}  // namespace gridwright::test
