#include "files/work_folder.h"

#include <gtest/gtest.h>

#include "support/work_folders.h"

namespace gridwright::test {
namespace {

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
  EXPECT_EQ(folder.writeText("sub.pt", "x").fault().kind, Fault::Kind::notWritable);
}

TEST(AFolderThatIsGone, RefusesQuietly) {
  WorkFolder folder("/no/such/folder/anywhere");
  EXPECT_FALSE(folder.readText("a"));
  EXPECT_FALSE(folder.writeText("a", "b"));
  EXPECT_TRUE(folder.list(".bmp").empty());
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

}  // namespace
}  // namespace gridwright::test
