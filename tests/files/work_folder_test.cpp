#include "files/work_folder.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "files/plain_file.h"
#include "support/full_disk.h"
#include "support/no_plain_files.h"
#include "support/turkish.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

TEST(ATextThatSaysItIsWithoutEnd, IsRefusedAndTakesNoMemoryForIt) {
  const TempFolder temp;
  temp.put("Left.pt", "1");
  std::filesystem::resize_file(temp.path() / "Left.pt", std::uintmax_t{1} << 40);
  const auto text = WorkFolder(temp.path()).readText("Left.pt");
  ASSERT_FALSE(text);
  EXPECT_EQ(text.fault().kind, Fault::Kind::malformed);
}

TEST(AName, LeadsToItsExactSpellingFirst) {
  const TempFolder temp;
  temp.put("left.pt", "1");
  temp.put("Left.pt", "2");
  WorkFolder folder(temp.path());
  EXPECT_EQ(folder.readText("Left.pt").value(), "2");
  EXPECT_EQ(folder.readText("left.pt").value(), "1");
}

TEST(AName, LeadsToTheOneEntryThatIsEqualButForCase) {
  const TempFolder temp;
  temp.put("3DPipeLEFT.PT", "1,9999,88");
  WorkFolder folder(temp.path());
  EXPECT_EQ(folder.readText("3dpipeLeft.pt").value(), "1,9999,88");
  EXPECT_EQ(folder.readText("3dpipeleft.pt").value(), "1,9999,88");
}

TEST(AName, LeadsNowhereWhenTwoEntriesDifferFromItByCaseAlone) {
  const TempFolder temp;
  temp.put("LEFT.pt", "1");
  temp.put("left.PT", "2");
  WorkFolder folder(temp.path());
  EXPECT_FALSE(folder.readText("Left.pt"));
}

TEST(Writing, GoesToTheEntryThatReadingFinds) {
  const TempFolder temp;
  temp.put("LEFT.PT", "old and longer");
  WorkFolder folder(temp.path());
  EXPECT_TRUE(folder.writeText("Left.pt", "new"));
  EXPECT_EQ(temp.get("LEFT.PT"), "new");
  EXPECT_FALSE(std::filesystem::exists(temp.path() / "Left.pt"));
}

TEST(AText, ComesBackByteForByte) {
  const TempFolder temp;
  WorkFolder folder(temp.path());
  const std::string text("1\r\n9999,88\r\n\0end", 16);
  EXPECT_TRUE(folder.writeText("bytes", text));
  EXPECT_EQ(folder.readText("bytes").value(), text);
}

TEST(AMissingFileAndAFolder, AreNotFound) {
  const TempFolder temp;
  std::filesystem::create_directory(temp.path() / "sub.pt");
  WorkFolder folder(temp.path());
  EXPECT_EQ(folder.readText("none.pt").fault().kind, Fault::Kind::notFound);
  EXPECT_EQ(folder.readText("sub.pt").fault().kind, Fault::Kind::notFound);
  EXPECT_EQ(folder.writeText("sub.pt", "x").fault().kind, Fault::Kind::notPlain);
}

TEST(AFolderThatIsGone, RefusesQuietly) {
  WorkFolder folder("/no/such/folder/anywhere");
  EXPECT_FALSE(folder.readText("a"));
  EXPECT_FALSE(folder.writeText("a", "b"));
  EXPECT_TRUE(folder.list(".bmp").empty());
}

TEST(ATextThroughALink, IsReadAndNotWritten) {
  const TempFolder temp;
  const TempFolder elsewhere;
  elsewhere.put("mine", "1,9999,88");
  put(NoPlainFile::link, temp.path() / "Left.pt", elsewhere.path() / "mine");
  WorkFolder folder(temp.path());
  EXPECT_EQ(folder.readText("left.pt").value(), "1,9999,88");
  EXPECT_EQ(folder.writeText("left.pt", "2").fault().kind, Fault::Kind::notPlain);
  EXPECT_EQ(elsewhere.get("mine"), "1,9999,88");
}

TEST(ALinkThatLeadsNowhere, BearsItsNameLikeAFile) {
  const TempFolder temp;
  const TempFolder elsewhere;
  put(NoPlainFile::linkToNothing, temp.path() / "Left.pt", elsewhere.path() / "mine");
  temp.put("LEFT.PT", "1,9999,88");
  EXPECT_EQ(WorkFolder(temp.path()).resolve("Left.pt").path(), temp.path() / "Left.pt");
}

TEST(ANameThatIsNoPlainFiles, IsToldOnceAndNotBeforeSomebodyCanBeTold) {
  WorkFolder folder("/no/such/folder");
  const Fault notPlain{Fault::Kind::notPlain, "/no/such/folder/Left.pt"};
  EXPECT_FALSE(folder.tellIfNoPlainFile({Fault::Kind::notWritable, "/no/such/folder/Left.pt"}));
  EXPECT_TRUE(folder.tellIfNoPlainFile(notPlain));
  std::vector<std::string> told;
  folder.tellThrough([&](std::string_view words) { told.emplace_back(words); });
  const std::vector<std::string> once{"Error: Left.pt is not a plain file; nothing is written to it."};
  EXPECT_EQ(told, once);
  EXPECT_FALSE(folder.tellIfNoPlainFile(notPlain));
  EXPECT_EQ(told, once);
  EXPECT_TRUE(folder.tellIfNoPlainFile({Fault::Kind::notPlain, "/no/such/folder/up.pt"}));
  EXPECT_EQ(told.size(), 2U);
}

TEST(AFolder, TakesFilesUnlessItIsGoneOrItsDiskIsFull) {
  const TempFolder temp;
  const WorkFolder folder(temp.path());
  EXPECT_TRUE(folder.takesFiles());
  EXPECT_TRUE(std::filesystem::is_empty(temp.path())) << "the trial leaves nothing behind";
  {
    const FullDisk full(0);
    EXPECT_FALSE(folder.takesFiles());
  }
  EXPECT_TRUE(std::filesystem::is_empty(temp.path()));
  EXPECT_FALSE(WorkFolder(temp.path() / "none").takesFiles());
}

TEST(LeftOvers, AreTheFilesOfTheProgramThatWereNotWhole) {
  const TempFolder temp;
  for (const char* name :
       {"drawing1.bmp.building", "CAT.BMP.building", "wave.pat.building", "a.3d-pat.building",
        "a.3d-pipe-pat.building", "gridwright-0001.pdf.building", "sheet.png.abcdefgh.building",
        "Left.pt.abcdefgh.building", "cat.maze.building.abcdefgh.building",
        "wave.pat~.building.abcdefgh.building", ".gridwright.abcdefgh.building"})
    temp.put(name, "half");
  const std::set<std::string> others{"house.building", "cat.bmp", "notes.txt.abcdefgh.building"};
  for (const std::string& name : others) temp.put(name, "mine");
  const BuildingFile held = makeBuildingFile(temp.path() / "page-0001.bmp");
  std::filesystem::create_directory(temp.path() / "folder.bmp.building");
  WorkFolder(temp.path()).removeLeftOvers();
  std::set<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(temp.path()))
    left.insert(entry.path().filename());
  std::set<std::string> expected = others;
  expected.insert({"folder.bmp.building", held.place.filename()});
  EXPECT_EQ(left, expected);
}

/// A folder "Mazes" with a text in it, and one that is somebody else's.
struct Moved {
  Moved() { std::filesystem::create_directory(mazes); }
  void moveAway() const { std::filesystem::rename(mazes, away); }
  void exchangeForALink() const {
    moveAway();
    std::filesystem::create_directory_symlink(elsewhere.path(), mazes);
  }
  TempFolder temp, elsewhere;
  std::filesystem::path mazes = temp.path() / "Mazes", away = temp.path() / "Away";
};

TEST(AFolderThatWasExchangedForALink, IsStillTheOneThatIsWorkedIn) {
  const Moved moved;
  WorkFolder folder(moved.mazes);
  ASSERT_TRUE(folder.writeText("Left.pt", "old"));
  moved.exchangeForALink();
  moved.elsewhere.put("Left.pt", "theirs");
  moved.elsewhere.put("theirs.bmp", "");
  EXPECT_EQ(folder.readText("left.pt").value(), "old");
  EXPECT_TRUE(folder.writeText("Left.pt", "new"));
  EXPECT_TRUE(folder.takesFiles());
  EXPECT_TRUE(folder.list(".bmp").empty());
  EXPECT_EQ(readPlainFile(moved.away / "Left.pt").value(), "new");
  EXPECT_EQ(moved.elsewhere.get("Left.pt"), "theirs");
  EXPECT_EQ(folder.path(), moved.mazes) << "it is the same folder";
  EXPECT_EQ(folder.presentPath(), moved.away);
  EXPECT_EQ(folder.resolve("LEFT.PT").path(), moved.away / "Left.pt");
}

TEST(AFolderThatBearsAnotherName, IsToldOnceForEach) {
  const Moved moved;
  WorkFolder folder(moved.mazes);
  std::vector<std::string> told;
  folder.tellThrough([&](std::string_view words) { told.emplace_back(words); });
  folder.tellIfMoved();
  EXPECT_TRUE(told.empty());
  moved.moveAway();
  folder.tellIfMoved();
  folder.tellIfMoved();
  EXPECT_EQ(told, std::vector<std::string>{"The folder that this program works in is " + moved.away.string() +
                                           " now; what is saved goes there."});
  std::filesystem::remove_all(moved.away);
  folder.tellIfMoved();
  EXPECT_EQ(told.size(), 1U) << "it has no name any more";
  EXPECT_FALSE(folder.takesFiles());
}

TEST(AList, HasTheFilesOfOneEndingSortedWithoutRegardToCase) {
  const TempFolder temp;
  for (const char* name : {"b.bmp", "A.BMP", "c.Bmp", "notes.txt", "bmp", ".bmp", "x.bmp.bak"})
    temp.put(name, "");
  std::filesystem::create_directory(temp.path() / "folder.bmp");
  const WorkFolder folder(temp.path());
  EXPECT_EQ(folder.list(".bmp"), (std::vector<std::string>{".bmp", "A.BMP", "b.bmp", "c.Bmp"}));
}

TEST(ABaseName, LosesLeadingBlanksAndAllFromTheFirstPointOn) {
  EXPECT_EQ(baseName("cat"), "cat");
  EXPECT_EQ(baseName("   cat.bmp"), "cat");
  EXPECT_EQ(baseName("cat.tar.gz"), "cat");
  EXPECT_EQ(baseName("two words .bmp"), "two words ");
  EXPECT_EQ(baseName(""), "");
  EXPECT_EQ(baseName("   "), "");
  EXPECT_EQ(baseName(".bmp"), "");
}

TEST(Names, AreComparedWithoutRegardToCase) {
  EXPECT_TRUE(equalButForCase("Drawing1.BMP", "drawing1.bmp"));
  EXPECT_FALSE(equalButForCase("drawing1.bmp", "drawing1b.bmp"));
  EXPECT_FALSE(equalButForCase("", "a"));
  EXPECT_TRUE(equalButForCase("\xC4.bmp", "\xC4.BMP")) << "bytes above 127 are themselves";
}

TEST(NamesUnderTurkish, HaveTheCaseThatTheyHaveEverywhere) {
  const Turkish turkish;
  EXPECT_TRUE(equalButForCase("RIGHT.PT", "right.pt"));
  EXPECT_TRUE(equalButForCase("SIDI.BMP", "sidi.bmp"));
  EXPECT_EQ(inLowerCase("SIDI\xC4\xB0"), "sidi\xC4\xB0");
  const TempFolder temp;
  temp.put("RIGHT.PT", "old");
  temp.put("SIDI.BMP", "");
  temp.put("sidh.bmp", "");
  temp.put("sidj.bmp", "");
  WorkFolder folder(temp.path());
  EXPECT_TRUE(folder.writeText("Right.pt", "new"));
  EXPECT_EQ(temp.get("RIGHT.PT"), "new");
  EXPECT_EQ(folder.resolve("sidi.bmp").path(), temp.path() / "SIDI.BMP");
  temp.put("A.3D-PIPE-PAT", "");
  EXPECT_EQ(folder.list(".3d-pipe-pat"), std::vector<std::string>{"A.3D-PIPE-PAT"});
  EXPECT_EQ(folder.list(".bmp"), (std::vector<std::string>{"sidh.bmp", "SIDI.BMP", "sidj.bmp"}));
}

}  // namespace
}  // namespace gridwright::test
