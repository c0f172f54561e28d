// Pages that documents draw in rectangles, on one sheet and spread over several, as other programs see them.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "support/page_printer.h"

namespace gridwright::test {
namespace {

using ADrawnPage = PagePrinter;

/// Corridors of two colours in walls of a third, each three pixels wide, as large as a small maze.
Bitmap mazeLikePage(int width, int height) {
  constexpr int kBlock = 3;
  Bitmap page = plainBitmap(width, height, 0);
  std::uint32_t value = 11;
  for (int y = 0; y < height; y += kBlock) {
    for (int x = 0; x < width; x += kBlock) {
      value = value * 1664525U + 1013904223U;
      const Colour colour = kPalette[(value >> 30) < 2 ? 14 : (value >> 30) == 2 ? 1 : 12];
      for (int v = y; v < std::min(height, y + kBlock); ++v)
        for (int u = x; u < std::min(width, x + kBlock); ++u) pixelAt(page, u, v) = colour;
    }
  }
  return page;
}

/// Paper of whole points, so that nothing rounds it, that the picture fills from edge to edge.
constexpr PaperSize kSmallPaper{508, 762};  // 144 by 216 points, on its side here
constexpr int kSmallWidth = 216, kSmallHeight = 144;

/// How many Canvas pixels have another colour in their middle than `at` says of a place on the page, both
/// from 0 to 1.
template <class At>
int wrongMiddles(const Bitmap& picture, At at) {
  int wrong = 0;
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x)
      wrong += at((x + 0.5) / picture.width, (y + 0.5) / picture.height) != picture.at(x, y) ? 1 : 0;
  return wrong;
}

TEST_F(ADrawnPage, DrawnInRectanglesHasEachPixelsColourInItsMiddleInEveryResolution) {
  PageLook look;
  look.setup.paper = kSmallPaper;
  look.setup.margins = allRound(0);
  const Bitmap picture = mazeLikePage(kSmallWidth, kSmallHeight);
  printed(picture, look);
  EXPECT_EQ(outputOf("pdfimages -list '" + file() + "' | tail -n +3"), "") << "no picture, but rectangles";
  for (const int dots : {300, 600}) {
    const Bitmap sheet = sheetAt(1, dots);
    EXPECT_EQ(wrongMiddles(picture,
                           [&](double x, double y) {
                             return sheet.at(static_cast<int>(x * sheet.width),
                                             static_cast<int>(y * sheet.height));
                           }),
              0)
        << dots;
  }
}

TEST_F(ADrawnPage, LetsNothingShineThroughBetweenTwoColours) {
  Bitmap picture = plainBitmap(61, 47, kPalette[14]);  // yellow, most of it
  for (int y = 5; y < 30; ++y)
    for (int x = 7; x < 40; ++x) pixelAt(picture, x, y) = kPalette[x < 23 ? 1 : 12];
  printed(picture, {});
  for (const int dots : {97, 150, 211}) {
    const Bitmap sheet = sheetAt(1, dots);
    const auto across = [&](double x) { return static_cast<int>(x / picture.width * sheet.width); };
    const auto down = [&](double y) { return static_cast<int>(y / picture.height * sheet.height); };
    int green = 0;  // what yellow has of it, and the two colours that meet have not
    for (int y = down(10); y < down(25); ++y)
      for (int x = across(15); x < across(33); ++x) green += (sheet.at(x, y) >> 8 & 255) > 0 ? 1 : 0;
    EXPECT_EQ(green, 0) << dots;
  }
}

TEST_F(ADrawnPage, IsDrawnInRectanglesWhereItsMazeHasCellsEnoughForThem) {
  const Bitmap picture = motleyPage(200, 150);
  const auto images = [&] { return outputOf("pdfimages -list '" + file() + "' | tail -n +3"); };
  printed(picture, {});
  EXPECT_NE(images(), "");
  PageLook look;
  look.cells = 40000;
  printed(picture, look);
  EXPECT_EQ(images(), "");
}

/// Each range of labels: its first page, its words, its first number.
std::string labelsOf(const std::string& json) {
  std::string labels;
  std::istringstream in(json);
  for (std::string line; std::getline(in, line);) {
    const auto value = [&](const std::string& key) {
      const auto at = line.find(key);
      return at == std::string::npos
                 ? ""
                 : line.substr(at + key.size(), line.find_last_not_of("\",") + 1 - at - key.size());
    };
    if (const auto page = value("\"index\": "); !page.empty()) labels += page + " ";
    labels += value(R"("/P": "u:)");
    if (const auto number = value("\"/St\": "); !number.empty()) labels += number + "|";
  }
  return labels;
}

TEST_F(ADrawnPage, SaysWhatItShowsAndWhichMazeOfTheRunItIs) {
  PdfDocument document(temp_.path() / "out.pdf");
  PageLook look;
  look.about = {"M\u00e4uschen (a)", "kind 3d; wall 9", 4000000000U, {1, false}};
  for (const MazeInRun maze : {MazeInRun{1, false}, {1, true}, {2, false}, {3, false}, {0, false}}) {
    look.about.maze = maze;
    look.setup.tiles = maze.number == 3 ? PageTiles{2, 1} : PageTiles{};
    ASSERT_TRUE(document.addPage(plainBitmap(40, 30, kPalette[1]), look));
  }
  ASSERT_TRUE(document.finish());
  const std::string about = outputOf("pdfinfo -enc UTF-8 '" + file() + "'");
  for (const char* line :
       {"Title:           M\u00e4uschen (a)\n", "Subject:         3 mazes from seed 4000000000\n",
        "Keywords:        seed 4000000000; kind 3d; wall 9\n", "Creator:         Gridwright\n",
        "CreationDate:", "Pages:           6\n"})
    EXPECT_NE(about.find(line), std::string::npos) << line << about;
  EXPECT_EQ(outputOf("qpdf --check '" + file() + "' > /dev/null"), "");
  EXPECT_EQ(labelsOf(outputOf("qpdf --json --json-key=pagelabels '" + file() + "'")),
            "0 maze 1|1 answer 1|2 maze 2|3 maze 3, sheet 1|5 6|");
}

TEST_F(ADrawnPage, OfOneMazeAloneHasNoLabels) {
  printed(plainBitmap(40, 30, kPalette[1]), {});
  EXPECT_EQ(outputOf("qpdf --json --json-key=pagelabels '" + file() + "' | grep -c index || true"), "0\n");
  EXPECT_NE(outputOf("pdfinfo '" + file() + "'").find("Subject:         A page from seed 0\n"),
            std::string::npos);
}

/// A page over three sheets across and two down.
class APoster : public PagePrinter {
 protected:
  static constexpr int kColumns = 3, kRows = 2;
  static constexpr double kDotsAMillimetre = 150 / 25.4;

  std::vector<Bitmap> sheetsOf(const Bitmap& picture, PageLook look) {
    look.setup.tiles = {kColumns, kRows};
    look.setup.paper = kSmallPaper;
    look.setup.landscape = true;
    look.setup.margins = allRound(5);
    printed(picture, look);
    std::vector<Bitmap> sheets;
    for (int sheet = 1; sheet <= kColumns * kRows; ++sheet) sheets.push_back(sheetAt(sheet, 150));
    return sheets;
  }
  // Of each sheet is kept what lies within the margin and half of the overlap, in millimetres.
  static constexpr double kEdge = 5 + 5, kWide = 76.2 - 2 * kEdge, kHigh = 50.8 - 2 * kEdge;

  /// What the sheets show at a place of the page, cut at their marks and laid edge to edge.
  static Colour joined(const std::vector<Bitmap>& sheets, double x, double y) {
    const int column = std::min(kColumns - 1, static_cast<int>(x / kWide));
    const int row = std::min(kRows - 1, static_cast<int>(y / kHigh));
    return sheets[static_cast<std::size_t>(row) * static_cast<std::size_t>(kColumns) +
                  static_cast<std::size_t>(column)]
        .at(static_cast<int>((kEdge + x - column * kWide) * kDotsAMillimetre),
            static_cast<int>((kEdge + y - row * kHigh) * kDotsAMillimetre));
  }
};

TEST_F(APoster, IsThePageWhenItsSheetsArePutTogether) {
  const Bitmap picture = mazeLikePage(120, 62);
  const auto sheets = sheetsOf(picture, {});
  const double width = kColumns * kWide, height = kRows * kHigh;
  const double scale = std::min(width / picture.width, height / picture.height);
  const double left = (width - picture.width * scale) / 2, top = (height - picture.height * scale) / 2;
  EXPECT_EQ(wrongMiddles(picture,
                         [&](double x, double y) {
                           return joined(sheets, left + x * picture.width * scale,
                                         top + y * picture.height * scale);
                         }),
            0);
}

TEST_F(APoster, HasMarksInTheRimsOfItsSheetsAndTheirNumbers) {
  const auto sheets = sheetsOf(plainBitmap(120, 62, kPalette[14]), {});
  EXPECT_EQ(words(), "1/6 2/6 3/6 4/6 5/6 6/6");
  for (const Bitmap& sheet : sheets) {
    const auto isBlackBy = [&](double x, double y) {  // a line is a dot wide
      const auto dot = [](double at) { return static_cast<int>(at * kDotsAMillimetre); };
      for (int v = dot(y) - 1; v <= dot(y) + 1; ++v)
        for (int u = dot(x) - 1; u <= dot(x) + 1; ++u)
          if ((sheet.at(u, v) & 255) < 100) return true;
      return false;
    };
    for (const double x : {kEdge, kEdge + kWide}) {
      for (const double y : {kEdge, kEdge + kHigh}) {
        const double outX = x > kEdge ? 2.5 : -2.5;
        const double outY = y > kEdge ? 2.5 : -2.5;
        EXPECT_TRUE(isBlackBy(x + outX, y) && isBlackBy(x, y + outY));
        EXPECT_FALSE(isBlackBy(x - outX, y) || isBlackBy(x, y - outY)) << "nothing of them is kept";
      }
    }
  }
}

TEST_F(APoster, HasOneHeadForAllSheetsAndLargerLetters) {
  PageLook look;
  look.setup.title = "W";
  const auto heightOfInk = [](const Bitmap& sheet) {
    const Square ink = boxOf(sheet, 0);
    return ink.bottom - ink.top;
  };
  look.setup.paper = kSmallPaper;
  printed(plainBitmap(120, 62, kPalette[14]), look);
  const int alone = heightOfInk(sheetAt(1, 150));
  const auto sheets = sheetsOf(plainBitmap(120, 62, kPalette[14]), look);
  Bitmap middle = sheets[1];  // of it what is kept
  for (int y = 0; y < middle.height; ++y)
    for (int x = 0; x < middle.width; ++x)
      if (y < kEdge * kDotsAMillimetre || y > (kEdge + kHigh) * kDotsAMillimetre)
        pixelAt(middle, x, y) = qb::white;
  EXPECT_GT(heightOfInk(middle), alone * 3 / 2);
}

TEST_F(APoster, TurnsItsSheetsSoThatThePictureBecomesLargest) {
  const auto sizeWith = [&](PageTiles tiles) {
    PageLook look;
    look.setup.tiles = tiles;
    printed(plainBitmap(800, 600, kPalette[1]), look);
    return outputOf("pdfinfo '" + file() + "' | grep 'Page size'");
  };
  EXPECT_NE(sizeWith({1, 1}).find("842 x 595"), std::string::npos);
  EXPECT_NE(sizeWith({2, 1}).find("595 x 842"), std::string::npos);
  EXPECT_NE(sizeWith({2, 2}).find("842 x 595"), std::string::npos);
}

}  // namespace
}  // namespace gridwright::test
