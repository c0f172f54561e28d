// The pictures of a book's mazes beside it: whole runs, and what other programs find.
#include "platform/book/book_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "book/shop.h"
#include "platform/book/pictures_on_their_way.h"
#include "support/rendered.h"

namespace gridwright::test {
namespace {

using namespace book;
namespace fs = std::filesystem;

/// A folder's files; empty too where there is none.
Words namesIn(const fs::path& folder) {
  Words names;
  std::error_code failed;
  for (const auto& entry : fs::directory_iterator(folder, failed))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

struct BesideTheBook : AShop {
  /// A run that names its folders `s.` and `p.`, which the shop makes paths of.
  [[nodiscard]] Ended make(const Words& more) const {
    Words words = {"room.bmp", "hall.bmp", "-n", "1", "--seed", "9", "-o", "b.pdf"};
    words.insert(words.end(), more.begin(), more.end());
    return run(words);
  }
  [[nodiscard]] fs::path at(const std::string& name) const { return folder.path() / name; }
};

TEST_F(BesideTheBook, EachMazeAndItsAnswerIsAnSvgAndAPngOfTheSamePixels) {
  const Ended ended = make({"--svg", "s.d", "--png", "p.d:120"});
  EXPECT_EQ(ended.err, "");
  ASSERT_EQ(ended.status, 0);
  EXPECT_EQ(namesIn(at("s.d")),
            (Words{"maze-0001-answer.svg", "maze-0001.svg", "maze-0002-answer.svg", "maze-0002.svg"}));
  EXPECT_EQ(namesIn(at("p.d")),
            (Words{"maze-0001-answer.png", "maze-0001.png", "maze-0002-answer.png", "maze-0002.png"}));
  const Size size{110, 70};
  const int scale = 7;  // A4 upright less 15 mm on both sides: 180 mm are 850 dots
  for (const std::string name : {"maze-0001", "maze-0001-answer"}) {
    const Bitmap png = readPng(at("p.d/" + name + ".png"));
    ASSERT_EQ((Size{png.width, png.height}), (Size{size.width * scale, size.height * scale}));
    EXPECT_TRUE(samePicture(middlesOf(drawnSvg(at("s.d/" + name + ".svg")), size), middlesOf(png, size)));
  }
  EXPECT_EQ(QImage(QString::fromStdString(in("p.d/maze-0001.png"))).dotsPerMeterX(), 4724);
  EXPECT_FALSE(samePicture(readPng(at("p.d/maze-0001.png")), readPng(at("p.d/maze-0001-answer.png"))));
  EXPECT_NE(folder.get("s.d/maze-0002-answer.svg").find("<title>answer 2: hall, seed 10</title>"),
            std::string::npos);
}

TEST_F(BesideTheBook, ThePicturesAreThoseOfTheBooksPages) {
  ASSERT_EQ(make({"--png", "p.d", "--caption", "", "--margin", "15mm", "--answers", "none"}).status, 0);
  EXPECT_EQ(namesIn(at("p.d")), (Words{"maze-0001.png", "maze-0002.png"})) << "the book has no answers";
  ASSERT_EQ(outputOf("pdftoppm -r 150 -f 1 -l 1 -singlefile '" + in("b.pdf") + "' '" + in("page.x") + "'"),
            "");
  const Bitmap page = readPpm(at("page.x.ppm"));
  const Bitmap png = readPng(at("p.d/maze-0001.png"));
  const double width = page.width * 180 / 210.0, height = width * 70 / 110;
  const Bitmap drawn =
      middlesOf(page, {110, 70}, (page.width - width) / 2, (page.height - height) / 2, width, height);
  EXPECT_TRUE(samePicture(drawn, middlesOf(png, {110, 70})));
}

TEST_F(BesideTheBook, PartsWriteThePicturesOfTheirMazesAndAListMakesThemAgain) {
  ASSERT_EQ(make({"--svg", "whole.d", "--list", "l.json"}).status, 0);
  for (const std::string part : {"1", "2"}) {
    const Ended ended = run({"room.bmp", "hall.bmp", "-n", "1", "--seed", "9", "--part", part + "/2", "-o",
                             part + ".pdf", "--svg", "parts.d"});
    EXPECT_EQ(ended.err, "");
  }
  EXPECT_EQ(run({"--from", "l.json", "-o", "again.pdf", "--svg", "again.d"}).status, 0);
  for (const char* folderOf : {"parts.d", "again.d"}) {
    EXPECT_EQ(namesIn(at(folderOf)), namesIn(at("whole.d")));
    for (const std::string& name : namesIn(at("whole.d")))
      EXPECT_EQ(folder.get(folderOf + ("/" + name)), folder.get("whole.d/" + name)) << name;
  }
  EXPECT_EQ(run({"--join", "1.pdf", "2.pdf", "-o", "j.pdf", "--svg", "j.d"}).status, 2);
}

TEST_F(BesideTheBook, APictureThatIsThereStaysUnlessItMayBeReplaced) {
  fs::create_directory(at("p.d"));
  folder.put("p.d/maze-0002.png", "before");
  folder.put("p.d/maze-0003.png", "of another book");
  const Ended ended = make({"--png", "p.d", "--svg", "s.d"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err,
            "gridwright-book: " + in("p.d/maze-0002.png") + " is there already; --force writes over it\n");
  EXPECT_EQ(namesIn(at("p.d")), (Words{"maze-0002.png", "maze-0003.png"}));
  EXPECT_FALSE(fs::exists(at("b.pdf")) || fs::exists(at("s.d")));
  EXPECT_EQ(make({"--png", "p.d", "--force"}).status, 0);
  EXPECT_NE(folder.get("p.d/maze-0002.png"), "before");
  EXPECT_EQ(folder.get("p.d/maze-0003.png"), "of another book");
}

TEST_F(BesideTheBook, WhatCannotBeWrittenIsToldBeforeAMazeIsMade) {
  folder.put("file.d", "");
  for (const std::string name : {"none.d/s", "file.d"}) {
    const Ended ended = make({"--svg", name});
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err,
              "gridwright-book: " + in(name) + (name == "file.d" ? " is no folder\n" : " can't be made\n"));
    EXPECT_FALSE(fs::exists(at("b.pdf")));
  }
  for (const std::string value : {"p:71", "p:1201", ":300", ""})
    EXPECT_EQ(run({"room.bmp", "--png", value}).status, 2) << value;
}

TEST_F(BesideTheBook, ABookThatFailsLeavesNoPictureAndNoFolder) {
  fs::create_directory(at("old.d"));
  fs::create_directory(at("b.pdf"));
  EXPECT_EQ(make({"--svg", "s.d", "--png", "old.d"}).status, 1);
  EXPECT_FALSE(fs::exists(at("s.d")));
  EXPECT_EQ(namesIn(at("old.d")), Words{});
  fs::remove(at("b.pdf"));
  // No maze of three cells has both its ends.
  paint("dot", {"###", "#.#", "###"});
  EXPECT_EQ(run({"room.bmp", "dot.bmp", "-n", "1", "--strict", "-o", "b.pdf", "--svg", "s.d"}).status, 1);
  EXPECT_FALSE(fs::exists(at("s.d")) || fs::exists(at("b.pdf")));
}

/// What is written for a name, and what a folder's files hold afterwards.
struct OnTheirWay : AShop {
  void put(const PicturesOnTheirWay& pictures, const std::string& name) {
    EXPECT_TRUE(pictures.put(name, [&](const TakeBytes& take) { return take("new " + name); }));
  }
  static constexpr auto kAll = [](const std::string&) { return true; };
};

TEST_F(OnTheirWay, FilesThatTookTheirNamesGiveThemBack) {
  folder.put("a", "old a");
  {
    PicturesOnTheirWay pictures(folder.path());
    ASSERT_TRUE(pictures.begin(true, [](const std::string& name) { return name == "a"; }));
    put(pictures, "a");
    put(pictures, "b");
    ASSERT_TRUE(pictures.takeNames(true));
    EXPECT_EQ(folder.get("a") + folder.get("b"), "new anew b");
    pictures.giveBack();
  }
  EXPECT_EQ(folder.get("a"), "old a");
  EXPECT_FALSE(fs::exists(folder.path() / "b"));
}

TEST_F(OnTheirWay, ANameThatCameMeanwhileIsNotTakenAndNothingElseIs) {
  PicturesOnTheirWay pictures(folder.path() / "d");
  ASSERT_TRUE(pictures.begin(false, kAll));
  put(pictures, "a");
  put(pictures, "b");
  folder.put("d/b", "another's");
  const auto taken = pictures.takeNames(false);
  ASSERT_FALSE(taken);
  EXPECT_EQ(taken.fault().words, in("d/b") + " can't be written");
  pictures.giveBack();
  EXPECT_FALSE(fs::exists(folder.path() / "d/a"));
  EXPECT_EQ(folder.get("d/b"), "another's");
}

TEST_F(OnTheirWay, AFolderExchangedForALinkLeadsNoPictureElsewhere) {
  const TempFolder elsewhere;
  PicturesOnTheirWay pictures(folder.path() / "d");
  ASSERT_TRUE(pictures.begin(false, kAll));
  put(pictures, "a");
  fs::rename(folder.path() / "d", folder.path() / "away");
  fs::create_directory_symlink(elsewhere.path(), folder.path() / "d");
  put(pictures, "b");
  ASSERT_TRUE(pictures.takeNames(false));
  EXPECT_EQ(folder.get("away/a") + folder.get("away/b"), "new anew b");
  EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

TEST_F(OnTheirWay, WhatAKilledRunLeftGoesAndWhatLivesOrIsAnothersStays) {
  fs::create_directory(folder.path() / "d");
  PicturesOnTheirWay alive(folder.path() / "d");
  ASSERT_TRUE(alive.begin(false, kAll));
  put(alive, "a");
  fs::create_directory(folder.path() / "d/.gridwright-pictures-abcdefgh");
  folder.put("d/.gridwright-pictures-abcdefgh/x", "");
  fs::create_directory(folder.path() / "d/.gridwright-pictures-of-mine");
  const auto none = [](const std::string&) { return false; };
  {
    PicturesOnTheirWay later(folder.path() / "d");
    ASSERT_TRUE(later.begin(false, none));
    EXPECT_FALSE(fs::exists(folder.path() / "d/.gridwright-pictures-abcdefgh"));
    EXPECT_EQ(namesIn(folder.path() / "d").size(), 3U);
  }
  ASSERT_TRUE(alive.takeNames(false));
  EXPECT_EQ(folder.get("d/a"), "new a");
  EXPECT_TRUE(fs::exists(folder.path() / "d/.gridwright-pictures-of-mine"));
}

}  // namespace
}  // namespace gridwright::test
