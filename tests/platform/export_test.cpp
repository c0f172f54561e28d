// The picture on the Canvas taken elsewhere by scripts, and what other programs find there.
#include <gtest/gtest.h>

#include <QImageReader>
#include <array>
#include <cmath>
#include <filesystem>

#include "platform/twin.h"
#include "support/as_nobody.h"
#include "support/full_disk.h"
#include "support/offscreen.h"
#include "support/rendered.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

constexpr Colour kPaperColour = 0xFEFEFE;

/// A picture with a ground for mazes, a border in it, paper, and the yellow that surrounds pictures.
struct Exports : Twin {
  Exports() {
    beginOffscreen();
    options.size = {220, 200};
    Bitmap hall = drawing({"....................", "....................", "....................",
                           "....................", ".....#####..........", ".....#...#..........",
                           ".....#...#..........", ".....#####..........", "....................",
                           "....................", "....................", "....................",
                           "....................", "....................", "...................."});
    for (int y = 60; y < 80; ++y)
      for (int x = 130; x < 150; ++x) pixelAt(hall, x, y) = kPaperColour;
    put("room.bmp", hall);
  }
  [[nodiscard]] Bitmap bitmap(const std::string& name) const {
    const auto read = readBitmapFile(temp.path() / name);
    EXPECT_TRUE(read) << name;
    return read ? read.value() : Bitmap{};
  }
  [[nodiscard]] fs::path at(const std::string& name) const { return temp.path() / name; }
  [[nodiscard]] bool has(const std::string& name) const { return fs::exists(at(name)); }
};

/// Paper and ground as holes, or as a renderer shows them on a white page.
Bitmap cleared(Bitmap picture, Colour hole) {
  for (Colour& pixel : picture.pixels)
    if (pixel == kPaperColour || pixel == kYellow) pixel = hole;
  return picture;
}

std::string exportsOf(const std::string& name) {
  std::string lines = "snapshot " + name + ".bmp\n";
  for (const char* ending : {"png", "svg", "pdf"}) {
    lines.append("export ").append(name).append(".").append(ending);
    lines.append("\nexport ").append(name).append("-clear.").append(ending).append(" clear=1\n");
  }
  return lines;
}

/// Every pixel's middle in all three formats, with its ground and without.
void expectExported(const Exports& twin, const std::string& name) {
  const Bitmap shown = twin.bitmap(name + ".bmp");
  const Size size{shown.width, shown.height};
  const Bitmap png = readPng(twin.at(name + ".png"));
  const int scale = 2244 / 200;  // A4 lying at 300 dots an inch, less 10 mm above and below
  ASSERT_EQ((Size{png.width, png.height}), (Size{size.width * scale, size.height * scale})) << name;
  EXPECT_TRUE(samePicture(middlesOf(png, size), shown)) << name;
  EXPECT_TRUE(samePicture(middlesOf(readPng(twin.at(name + "-clear.png")), size), cleared(shown, kHole)));
  EXPECT_TRUE(samePicture(middlesOf(drawnSvg(twin.at(name + ".svg")), size), shown)) << name;
  EXPECT_TRUE(samePicture(middlesOf(drawnSvg(twin.at(name + "-clear.svg")), size), cleared(shown, kHole)));
  EXPECT_TRUE(samePicture(middlesOnPage(twin.at(name + ".pdf"), size), shown)) << name;
  EXPECT_TRUE(samePicture(middlesOnPage(twin.at(name + "-clear.pdf"), size), cleared(shown, kWhite)));
}

class EachKind : public ::testing::TestWithParam<const char*> {};

TEST_P(EachKind, IsExportedAsItStandsOnTheCanvas) {
  const std::string kind = std::string("menu ") + GetParam() + "\n";
  Exports twin;
  const std::string started = GetParam() == std::string("createreg") ? kind : kind + kind;
  ASSERT_EQ(twin.run("seed 7\n" + kDrawing + "pumps 2\n" + exportsOf("drawing") + "menu cgenerate\n" +
                     started + "until phase 2\n" + exportsOf("maze") + "menu solvemaze\nuntil phase 4\n" +
                     exportsOf("answer") + "export without.png answer=0\nexport with.png answer=1\n")
                .words,
            "");
  for (const char* name : {"drawing", "maze", "answer"}) expectExported(twin, name);
  const Bitmap answer = twin.bitmap("answer.bmp");
  const Size size{answer.width, answer.height};
  EXPECT_TRUE(samePicture(middlesOf(readPng(twin.at("with.png")), size), answer));
  EXPECT_TRUE(samePicture(middlesOf(readPng(twin.at("without.png")), size), twin.bitmap("drawing2.bmp")));
  EXPECT_FALSE(samePicture(answer, twin.bitmap("drawing2.bmp")));
}
INSTANTIATE_TEST_SUITE_P(OfThree, EachKind, ::testing::Values("createreg", "create3d", "create3dpipe"));

TEST(AnExport, TakesTheLargestMultipleThatThePageInForceHolds) {
  Exports twin;
  ASSERT_EQ(twin.run(kDrawing +
                     "pumps 2\nexport a.png\nexport b.png dpi=72\nexport c.png dpi=1200\n"
                     "pagesetup paper=a6 margin=20\nexport d.png\npagesetup paper=a6 margin=20 title=\"T\"\n"
                     "export d.pdf\n")
                .words,
            "");
  EXPECT_EQ(readPng(twin.at("a.png")).width, 220 * 11);
  EXPECT_EQ(readPng(twin.at("b.png")).width, 220 * 2) << "190 mm are 538 dots";
  EXPECT_EQ(QImage(QString::fromStdString(twin.at("b.png"))).dotsPerMeterX(), 2835);
  EXPECT_EQ(QImageReader(QString::fromStdString(twin.at("c.png"))).size().height(), 200 * 44);
  EXPECT_EQ(readPng(twin.at("d.png")).width, 220 * 3) << "A6 lying, less 20 mm: 65 mm are 767 dots";
  EXPECT_EQ(outputOf("pdftotext '" + twin.at("d.pdf").string() + "' -").find('T'), std::string::npos);
  EXPECT_NE(outputOf("pdfinfo '" + twin.at("d.pdf").string() + "'").find("420 x 297"), std::string::npos);
}

TEST(AWhiteGround, IsExportedAsItsPageHasIt) {
  Exports twin;
  twin.options.pagesFolder = twin.temp.path();
  twin.options.size = {300, 260};  // yellow round the picture
  ASSERT_EQ(twin.run(kDrawing + "pumps 2\nmenu whiteground\nmenu printfff\nexport a.png\nexport a.svg\n"
                                "export a.pdf\nexport c.png clear=1\n")
                .words,
            "");
  const Bitmap page = twin.bitmap("page-0001.bmp");
  const Size size{page.width, page.height};
  EXPECT_LT(page.width, 300);
  EXPECT_TRUE(samePicture(middlesOf(readPng(twin.at("a.png")), size), page));
  EXPECT_TRUE(samePicture(middlesOf(drawnSvg(twin.at("a.svg")), size), page));
  EXPECT_TRUE(samePicture(middlesOnPage(twin.at("a.pdf"), size), page));
  const Bitmap clear = middlesOf(readPng(twin.at("c.png")), size);
  EXPECT_EQ(clear.at(0, size.height - 1), kHole);
  EXPECT_EQ(clear.at(15, 15), kNavy);
}

TEST(APdfOfAnExport, IsDrawnInRectangles) {
  Exports twin;
  ASSERT_EQ(twin.run(kDrawing + "pumps 2\nexport a.pdf\nexport b.pdf clear=1\n").words, "");
  for (const char* name : {"a.pdf", "b.pdf"}) {
    const std::string images = outputOf("pdfimages -list '" + twin.at(name).string() + "'");
    EXPECT_EQ(std::count(images.begin(), images.end(), '\n'), 2) << "a head and no picture: " << images;
  }
}

struct Refusal {
  const char* line;
  const char* words;
};

TEST(AnExportThatCannotBe, TellsWhyInOneLineAndLeavesWhatWasThere) {
  Exports twin;
  fs::create_directory(twin.at("folder.png"));
  fs::create_symlink("elsewhere.png", twin.at("link.png"));
  twin.temp.put("kept.png", "what was there");
  const std::string folder = twin.temp.path().string();
  const std::array refusals = {
      Refusal{"export picture", "a name ends in .png, .svg or .pdf, not so picture"},
      Refusal{"export picture.jpg", "a name ends in .png, .svg or .pdf, not so picture.jpg"},
      Refusal{"export .png", "a name ends in .png, .svg or .pdf, not so .png"},
      Refusal{"export folder.png", "folder.png is no plain file"},
      Refusal{"export link.png", "link.png is no plain file"},
      Refusal{"export folder.png/", "the file has no name"},
      Refusal{"export kept.png answer=1", "no solved maze is on the Canvas"}};
  std::string script = kMaze;
  for (const Refusal& refusal : refusals) {
    const std::string told = std::string("\"Nothing is exported: ") + refusal.words + "\"\n";
    script.append(refusal.line)
        .append("\nexpect notice ")
        .append(told)
        .append("expect message ")
        .append(told);
  }
  EXPECT_EQ(twin.run(script + "export none/a.svg\nexpect notice \"Nothing is exported: there is no folder " +
                     folder + "/none\"\nexpect paused 0\nexpect phase 2\n")
                .words,
            "");
  EXPECT_EQ(twin.temp.get("kept.png"), "what was there");
  EXPECT_FALSE(twin.has("elsewhere.png"));
  EXPECT_TRUE(fs::is_symlink(twin.at("link.png")));
}

TEST(AnExportOverAFile, KeepsTheOneBefore) {
  Exports twin;
  for (const char* name : {"a.png", "a.svg", "a.pdf"}) twin.temp.put(name, "before");
  ASSERT_EQ(twin.run(kDrawing +
                     "pumps 2\nexport a.png\nexport a.svg\nexport a.pdf\nexpect notice \"the picture is "
                     "exported to a.pdf, in " +
                     twin.temp.path().string() + "\"\n")
                .words,
            "");
  for (const char* name : {"a.png", "a.svg", "a.pdf"}) {
    EXPECT_EQ(twin.temp.get(name + std::string("~")), "before");
    EXPECT_NE(twin.temp.get(name), "before");
  }
}

/// Behind these lines an export that cannot be written, and what is said of it.
std::string refusedExport(const std::string& before, const fs::path& file, const std::string& name) {
  return before + "pumps 2\nexport " + name + "\nexpect notice \"Nothing is exported: " + file.string() +
         " can't be written\"\n";
}

TEST(AFolderThatTakesNoFiles, GetsNoExport) {
  Exports twin;
  fs::create_directory(twin.at("locked"));
  ReadOnly::giveAway(twin.temp.path());
  const ReadOnly locked(twin.at("locked"));
  for (const std::string name : {"locked/a.png", "locked/a.svg", "locked/a.pdf"}) {
    EXPECT_EQ(twin.run(refusedExport(kDrawing, twin.at(name), name)).words, "");
    EXPECT_FALSE(twin.has(name));
  }
}

TEST(AFullDisk, TakesNoExportAndLeavesWhatWasThere) {
  for (const std::string name : {"a.png", "a.svg", "a.pdf"}) {
    Exports twin;
    twin.temp.put(name, "before");
    {
      const FullDisk full(100);  // bytes a file; pictures in progress are kept in memory
      EXPECT_EQ(twin.run(refusedExport("click Command2\n", twin.at(name), name)).words, "");
    }
    EXPECT_EQ(twin.temp.get(name), "before");
    for (const auto& entry : fs::directory_iterator(twin.temp.path())) {
      const std::string left = entry.path().filename().string();
      EXPECT_TRUE(!left.starts_with("a.") || left == name) << left;
    }
  }
}

TEST(AnExportInTheMiddle, OfAMazeOfASearchOrUnderAPanelIsNotDone) {
  Exports twin;
  EXPECT_EQ(twin.run("export a.png\nexpect notice \"Not now: there is no drawing yet\"\n" + kDrawing +
                     "menu cgenerate\nmenu largestsolution\nmenu newmaze\nuntil phase 1\n"
                     "expect menu exportmaze disabled\nexpect menu copymaze disabled\n"
                     "export a.png\nexpect notice \"Not now: a maze is being made\"\n"
                     "expect message \"Not now: a maze is being made\"\n"
                     "until phase 3\nexpect menu exportmaze disabled\nexport a.png\n"
                     "expect notice \"Not now: the finish is being looked for\"\n"
                     "until phase 2\nexpect menu exportmaze enabled\nmenu pagesetup\nexport a.png\n"
                     "expect notice \"Not now: a panel is open\"\ncancel\n")
                .words,
            "");
  EXPECT_FALSE(twin.has("a.png"));
}

TEST(AScriptsExport, IsRefusedWhereItIsNotUnderstood) {
  Exports twin;
  for (const char* word : {"dpi=71", "dpi=1201", "dpi=", "answer=2", "clear=yes", "size=3", "dpi"}) {
    const Ended ended = twin.run(kDrawing + "export a.png " + word + "\n");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.words, std::string("s.txt:5: not understood: ") + word);
  }
  EXPECT_EQ(twin.run("export\n").words, "s.txt:1: a word is missing");
  EXPECT_FALSE(twin.has("a.png"));
}

TEST(TheExportPanel, HoldsTheProgramUntilItCouldBeDoneOrIsLeft) {
  Exports twin;
  EXPECT_EQ(twin.run(kMaze + "menu exportmaze\nexpect paused 1\nexpect menu exportmaze disabled\n"
                             "export no.gif\nexpect paused 1\nexport \"my maze.png\"\nexpect paused 0\n"
                             "expect file \"my maze.png\"\nmenu exportmaze\ncancel\nexpect paused 0\n")
                .words,
            "");
}

TEST(Copy, TakesThePictureInItsOwnPixels) {
  Exports twin;
  EXPECT_EQ(
      twin.run(kMaze + "menu copymaze\nexpect notice \"The picture is copied\"\nexpect copied 220x200\n")
          .words,
      "");
  EXPECT_EQ(twin.run("pumps 1\nexpect copied 220x200\n").words,
            "s.txt:2: expect copied 220x200 failed: it is 0x0");
}

}  // namespace
}  // namespace gridwright::test
