// gridwright-prepare as it is started: what it writes, what it says, and how it ends.
#include <gtest/gtest.h>

#include <algorithm>

#include "canvas/bitmap_encode.h"
#include "canvas/free_cell.h"
#include "pictures/brought.h"
#include "pictures/ready.h"
#include "pictures/regions.h"
#include "platform/pictures/prepare_words.h"
#include "platform/shared/image_files.h"
#include "support/child_program.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// A folder in which the program is started, and how it ended there.
struct Desk {
  int run(std::vector<std::string> words) {
    ChildProgram program({GRIDWRIGHT_PREPARE, std::move(words), temp.path(), {}, {}});
    const int status = program.wait();
    said = program.said();
    return status;
  }
  [[nodiscard]] bool hasFiles() const { return !std::filesystem::is_empty(temp.path()); }
  [[nodiscard]] bool saidOneLine() const {
    return std::count(said.begin(), said.end(), '\n') == 1 && said.back() == '\n';
  }
  TempFolder temp;
  std::string said;  ///< On standard error.
};

TEST(PreparingAPicture, WritesABitmapThatIsReady) {
  Desk desk;
  EXPECT_EQ(desk.run({brought("clip_art.png"), "out.bmp", "--size", "500x400", "--wall", "8"}), 0)
      << desk.said;
  EXPECT_EQ(desk.said, "");
  const auto made = readBitmapFile(desk.temp.path() / "out.bmp");
  ASSERT_TRUE(made);
  EXPECT_EQ(made.value().width, 500);
  EXPECT_EQ(made.value().height, 400);
  EXPECT_TRUE(isReady(made.value(), startingSets()));
}

TEST(PreparingWithoutASize, KeepsThePicturesShapeWithinAThousandPixels) {
  const std::array<std::pair<const char*, Size>, 4> sizes = {{{"clip_art.png", {600, 450}},
                                                              {"large.jpg", {1000, 750}},
                                                              {"drawing.svg", {1000, 750}},
                                                              {"tiny.png", {64, 64}}}};
  for (const auto& [name, size] : sizes) {
    Desk desk;
    EXPECT_EQ(desk.run({brought(name), "out.bmp"}), 0) << desk.said;
    const auto made = readBitmapFile(desk.temp.path() / "out.bmp");
    ASSERT_TRUE(made) << name;
    EXPECT_EQ((Size{made.value().width, made.value().height}), size) << name;
  }
}

TEST(APictureThatIsReady, ComesOutUnchanged) {
  Desk desk;
  const Bitmap ready = drawing({"..,,", "oo.k", "=#ry"});
  ASSERT_TRUE(writeBitmapFile(ready, desk.temp.path() / "in.bmp"));
  EXPECT_EQ(desk.run({"in.bmp", "out.bmp", "--size", "700x300"}), 0) << desk.said;
  EXPECT_EQ(bytesOf(desk.temp.path() / "out.bmp"), bytesOf(desk.temp.path() / "in.bmp"));
}

TEST(WhatWasPrepared, ComesOutUnchangedTheNextTime) {
  Desk desk;
  EXPECT_EQ(desk.run({brought("word.png"), "one.bmp"}), 0);
  EXPECT_EQ(desk.run({"one.bmp", "two.bmp"}), 0);
  EXPECT_EQ(bytesOf(desk.temp.path() / "one.bmp"), bytesOf(desk.temp.path() / "two.bmp"));
}

TEST(AFileThatIsThere, IsWrittenOverByForceAlone) {
  Desk desk;
  desk.temp.put("out.bmp", "mine");
  EXPECT_EQ(desk.run({brought("tiny.png"), "out.bmp"}), 1);
  EXPECT_TRUE(desk.saidOneLine()) << desk.said;
  EXPECT_EQ(desk.temp.get("out.bmp"), "mine");
  EXPECT_EQ(desk.run({brought("tiny.png"), "out.bmp", "--force"}), 0) << desk.said;
  EXPECT_TRUE(readBitmapFile(desk.temp.path() / "out.bmp"));
}

TEST(WhatCannotBeReadOrWritten, IsToldInOneLineAndLeavesNoFile) {
  for (const std::string& in : {std::string("gone.png"), std::string("/"), std::string("/dev/zero"),
                                std::string(GRIDWRIGHT_PREPARE)}) {
    Desk desk;
    EXPECT_EQ(desk.run({in, "out.bmp"}), 1) << in;
    EXPECT_TRUE(desk.saidOneLine()) << desk.said;
    EXPECT_FALSE(desk.hasFiles()) << in;
  }
  Desk desk;
  EXPECT_EQ(desk.run({brought("tiny.png"), "no/such/folder/out.bmp"}), 1);
  EXPECT_TRUE(desk.saidOneLine()) << desk.said;
}

TEST(APictureThatIsCutOff, IsToldInOneLine) {
  for (const char* name : {"clip_art.png", "words.tiff", "scan.jpg"}) {
    Desk desk;
    const std::string bytes = bytesOf(brought(name));
    desk.temp.put("cut", bytes.substr(0, bytes.size() / 2));
    EXPECT_EQ(desk.run({"cut", "out.bmp"}), 1) << name;
    EXPECT_EQ(desk.said, "gridwright-prepare: cut is cut off or broken\n") << name;
  }
}

TEST(TheNamesOfAClass, BecomeAPictureOfOneRegionEach) {
  for (const std::string name :
       {"Mia",   "Jonas", "Zoë",    "Ängela", "Björn", "Łukasz", "Çelik",  "Noah",   "Emma", "Liam",
        "Sofía", "Jürg",  "Ólafur", "Ida",    "Ivo",   "Lilli",  "Willi",  "Joëlle", "Timo", "Åsa",
        "Đorđe", "İrem",  "Ñusta",  "Gülay",  "Max",   "Ōta",    "Quirin", "Ruža",   "Žiga", "Anne-Marie"}) {
    Desk desk;
    EXPECT_EQ(desk.run({"--words", name, "out.bmp"}), 0) << desk.said;
    const auto made = readBitmapFile(desk.temp.path() / "out.bmp");
    ASSERT_TRUE(made) << name;
    const Bitmap& picture = made.value();
    const RegionCount count =
        countRegions(picture, startingSets(), gridOn({picture.width, picture.height}, 10, MazeKind::regular));
    EXPECT_EQ(count.regions, 1) << name;
    EXPECT_EQ(picture.at(1, 1), kPaper) << name;
  }
}

TEST(AWrongUse, IsToldInOneLine) {
  const std::vector<std::vector<std::string>> uses = {{},
                                                      {"in.png"},
                                                      {"a", "b", "c"},
                                                      {"a", "b", "--size"},
                                                      {"a", "b", "--size", "10"},
                                                      {"a", "b", "--size", "1001x5"},
                                                      {"a", "b", "--wall", "4"},
                                                      {"a", "b", "--wall", "51"},
                                                      {"a", "b", "--kind", "round"},
                                                      {"a", "b", "--colours", "17"},
                                                      {"a", "b", "--colours", "1"},
                                                      {"a", "b", "--detail", "0"},
                                                      {"a", "b", "--outlines", "bold"},
                                                      {"a", "b", "--grow", "1,,2"},
                                                      {"a", "b", "--grow", ""},
                                                      {"a", "b", "--bogus", "1"},
                                                      {"a", "b", "--frame"},
                                                      {"a", "b", "--font", "Sans"},
                                                      {"--words", "Mia"},
                                                      {"--words", "Mia", "a", "b"},
                                                      {"--words", "", "a"},
                                                      {"--words", "Mia", "a", "--size", "9x9"},
                                                      {"--words", "Mia", "a", "--height", "0"},
                                                      {"--words", "Mia", "a", "--colour", "15"},
                                                      {"--words", "Mia", "a", "--join", "2"}};
  for (const auto& words : uses) {
    Desk desk;
    EXPECT_EQ(desk.run(words), 2);
    EXPECT_TRUE(desk.saidOneLine()) << desk.said;
    EXPECT_FALSE(desk.hasFiles());
  }
}

TEST(PreparingWords, WritesThemAsOneRegionWithTwoCellsOfPaperAllRound) {
  for (const char* name : {"Mia", "Jonas B.", "Zoë", "Łukasz", "Ayşe-Nur"}) {
    for (const int wall : {6, 10}) {
      Desk desk;
      EXPECT_EQ(desk.run({"--words", name, "--wall", std::to_string(wall), "out.bmp"}), 0) << desk.said;
      const auto made = readBitmapFile(desk.temp.path() / "out.bmp");
      ASSERT_TRUE(made);
      const Bitmap& picture = made.value();
      EXPECT_TRUE(isReady(picture, startingSets()));
      const CellGrid grid = gridOn({picture.width, picture.height}, wall, MazeKind::regular);
      EXPECT_EQ(countRegions(picture, startingSets(), grid).regions, 1) << name;
      EXPECT_GT(std::max(picture.width, picture.height), 900) << "as large as fits";
      EXPECT_LE(std::max(picture.width, picture.height), 1000);
      for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
          const int far = std::min({x, y, picture.width - 1 - x, picture.height - 1 - y});
          if (far >= 2 * wall) continue;
          ASSERT_EQ(picture.at(x, y), kPaper) << name << ' ' << x << ',' << y;
        }
      }
    }
  }
}

TEST(PreparingWords, TakesHeightColourFrameAndKind) {
  Desk desk;
  EXPECT_EQ(desk.run({"--words", "H", "--height", "14", "--colour", "4", "--frame", "--kind", "pipe",
                      "--wall", "5", "--join", "0", "--font", "DejaVu Serif", "out.bmp"}),
            0)
      << desk.said;
  const auto made = readBitmapFile(desk.temp.path() / "out.bmp");
  ASSERT_TRUE(made);
  EXPECT_EQ(made.value().height, 140 + 2 * 40 + 2 * 20)
      << "letters, frame and paper in pitches of ten pixels";
  EXPECT_EQ(made.value().at(25, 25), kBlue);
  EXPECT_GT(std::count(made.value().pixels.begin(), made.value().pixels.end(), kMaroon), 1000);
}

TEST(PreparingWords, ThatPaintNothingMakesNoFile) {
  Desk desk;
  EXPECT_EQ(desk.run({"--words", "   ", "out.bmp"}), 1);
  EXPECT_EQ(desk.said, "gridwright-prepare: there is nothing to paint\n");
  EXPECT_FALSE(desk.hasFiles());
}

TEST(HelpAndVersion, AreNoFaults) {
  Desk desk;
  EXPECT_EQ(desk.run({"--help"}), 0);
  EXPECT_EQ(desk.run({"--version"}), 0);
  EXPECT_EQ(desk.said, "");
}

TEST(EveryOption, IsUnderstood) {
  const auto line =
      readPrepareWords({"--size", "300x200", "in.png", "--wall", "7", "--kind", "3d", "--colours", "9",
                        "--detail", "5", "--outlines", "thick", "--grow", "1,3,4", "--", "-out.bmp"});
  ASSERT_TRUE(line) << line.fault().words;
  EXPECT_EQ(line.value().in, "in.png");
  EXPECT_EQ(line.value().out, "-out.bmp");
  EXPECT_EQ(line.value().size, (Size{300, 200}));
  EXPECT_EQ(line.value().wallSize, 7);
  EXPECT_EQ(line.value().kind, MazeKind::threeD);
  EXPECT_EQ(line.value().settings.colours, 9);
  EXPECT_EQ(line.value().settings.detail, 5);
  EXPECT_EQ(line.value().settings.outlines, Outlines::thick);
  EXPECT_EQ(line.value().settings.grow, (std::vector<int>{1, 3, 4}));
  EXPECT_FALSE(line.value().mayReplace);
}

TEST(WordsInAnSvg, AreDrawn) {
  Desk desk;
  desk.temp.put("words.svg",
                "<svg xmlns='http://www.w3.org/2000/svg' width='300' height='100'><text x='10' y='80' "
                "font-size='90' font-weight='bold'>MIA</text></svg>");
  EXPECT_EQ(desk.run({"words.svg", "out.bmp"}), 0) << desk.said;
  const auto made = readBitmapFile(desk.temp.path() / "out.bmp");
  ASSERT_TRUE(made);
  EXPECT_GT(std::count(made.value().pixels.begin(), made.value().pixels.end(), kBlack), 10000);
}

}  // namespace
}  // namespace gridwright::test
