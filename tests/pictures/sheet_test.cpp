// The workshop's sheet: what each tool paints, and that every step is taken back to the pixel.
#include "pictures/sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string_view>

#include "support/pictures.h"

namespace gridwright::test {
namespace {

constexpr int kNavyInk = 1, kMaroonInk = 4, kBlueInk = 9;

Sheet sheetOf(int width, int height, const ToolSettings& tool = {}) {
  Sheet sheet({width, height});
  sheet.setPitch({4, 4, 4});
  sheet.choose(tool);
  return sheet;
}

ToolSettings with(Tool tool) {
  ToolSettings settings;
  settings.tool = tool;
  return settings;
}

void stroke(Sheet& sheet, Corner from, Corner to, bool straight = false) {
  sheet.press(from.x, from.y);
  sheet.release(to.x, to.y, straight);
}

/// Which pixels are ink, `.` for navy, `o` for maroon, `#` for blue and a blank for paper.
Text inkOn(const Sheet& sheet) {
  Text rows;
  for (int y = 0; y < sheet.size().height; ++y) {
    std::string row;
    for (int x = 0; x < sheet.size().width; ++x)
      row += sheet.picture().at(x, y) == kPaper ? ' ' : letterOf(sheet.picture().at(x, y));
    rows.push_back(row);
  }
  return rows;
}

TEST(ANewSheet, IsPaper) {
  const Sheet sheet = sheetOf(5, 3);
  EXPECT_EQ(sheet.picture(), plainBitmap(5, 3, kPaper));
  EXPECT_FALSE(sheet.canUndo());
}

TEST(ANewSheet, IsNeverLargerThanTheCanvasCanBeNorEmpty) {
  EXPECT_EQ(Sheet({4000, 0}).size(), (Size{1000, 1}));
}

TEST(ThePencil, PaintsWhereItGoes) {
  Sheet sheet = sheetOf(6, 4);
  sheet.press(0, 0);
  sheet.drag(3, 0);
  sheet.drag(3, 3);
  sheet.release(5, 3);
  EXPECT_EQ(inkOn(sheet), (Text{"....  ", "   .  ", "   .  ", "   ..."}));
}

TEST(APencilOfSize, IsADisc) {
  ToolSettings tool;
  tool.size = 5;
  Sheet sheet = sheetOf(7, 7, tool);
  stroke(sheet, {3, 3}, {3, 3});
  EXPECT_EQ(inkOn(sheet),
            (Text{"       ", "  ...  ", " ..... ", " ..... ", " ..... ", "  ...  ", "       "}));
}

TEST(APencilOfOneCell, IsABoxAsLargeAsThePitch) {
  ToolSettings tool;
  tool.oneCell = true;
  Sheet sheet = sheetOf(6, 6, tool);
  sheet.setPitch({4, 3, 3});
  stroke(sheet, {2, 2}, {2, 2});
  EXPECT_EQ(inkOn(sheet), (Text{"      ", " .... ", " .... ", " .... ", "      ", "      "}));
}

TEST(AThickStroke, HasNoHolesWhicheverWayItGoes) {
  std::mt19937 random(3);
  for (int size = 1; size <= kThickest; size += 7) {
    ToolSettings tool;
    tool.size = size;
    for (int i = 0; i < 20; ++i) {
      Sheet sheet = sheetOf(200, 200, tool);
      const auto place = [&] { return 60 + static_cast<int>(random() % 80); };
      const Corner from{place(), place()};
      const Corner to{place(), place()};
      stroke(sheet, from, to);
      Sheet dots = sheetOf(200, 200, tool);
      for (int step = 0; step <= 400; ++step) {
        const Corner at{from.x + (to.x - from.x) * step / 400, from.y + (to.y - from.y) * step / 400};
        dots.press(at.x, at.y);
        dots.release(at.x, at.y);
      }
      int missing = 0;
      for (std::size_t p = 0; p < dots.picture().pixels.size(); ++p)
        missing += dots.picture().pixels[p] != kPaper && sheet.picture().pixels[p] == kPaper ? 1 : 0;
      EXPECT_LE(missing, 4 * (size + 100)) << size;  // the rim, where a step is rounded another way
      Bitmap painted = sheet.picture();
      for (int y = 0; y < 200; ++y) {
        int runs = 0;
        for (int x = 1; x < 200; ++x) runs += painted.at(x, y) != kPaper && painted.at(x - 1, y) == kPaper;
        EXPECT_LE(runs, 1) << "row " << y << " of size " << size;
      }
    }
  }
}

TEST(TheEraser, PaintsPaper) {
  Sheet sheet = sheetOf(5, 1);
  stroke(sheet, {0, 0}, {4, 0});
  sheet.choose(with(Tool::eraser));
  stroke(sheet, {1, 0}, {3, 0});
  EXPECT_EQ(inkOn(sheet), (Text{".   ."}));
  EXPECT_EQ(sheet.settings().colour, kNavyInk) << "the colour in hand stays";
}

TEST(ALine, ShowsBeforeTheButtonIsLetGoAndLeavesOnlyTheLast) {
  Sheet sheet = sheetOf(5, 3, with(Tool::line));
  sheet.press(0, 0);
  sheet.drag(4, 0);
  EXPECT_EQ(inkOn(sheet), (Text{".....", "     ", "     "}));
  sheet.drag(0, 2);
  EXPECT_EQ(inkOn(sheet), (Text{".    ", ".    ", ".    "}));
  sheet.release(2, 2);
  EXPECT_EQ(inkOn(sheet), (Text{".    ", " .   ", "  .  "}));
  EXPECT_TRUE(sheet.undo());
  EXPECT_EQ(sheet.picture(), plainBitmap(5, 3, kPaper));
  EXPECT_FALSE(sheet.undo());
}

TEST(AStraightLine, GoesLevelUprightOrDiagonal) {
  const std::vector<std::pair<Corner, Corner>> ends = {
      {{20, 3}, {20, 0}}, {{3, 20}, {0, 20}}, {{18, 12}, {18, 18}}, {{-12, 15}, {-15, 15}}};
  for (const auto& [to, straight] : ends) {
    EXPECT_EQ(straightened({0, 0}, to).x, straight.x);
    EXPECT_EQ(straightened({0, 0}, to).y, straight.y);
  }
}

TEST(ARectangle, IsFullOrAnOutlineAsThickAsTheSize) {
  ToolSettings tool = with(Tool::rectangle);
  Sheet full = sheetOf(6, 6, tool);
  stroke(full, {4, 5}, {0, 1});
  EXPECT_EQ(inkOn(full), (Text{"      ", "..... ", "..... ", "..... ", "..... ", "..... "}));
  tool.outline = true;
  Sheet outline = sheetOf(6, 6, tool);
  stroke(outline, {0, 1}, {4, 5});
  EXPECT_EQ(inkOn(outline), (Text{"      ", "..... ", ".   . ", ".   . ", ".   . ", "..... "}));
  tool.size = 2;
  Sheet thick = sheetOf(6, 6, tool);
  stroke(thick, {0, 0}, {5, 5});
  EXPECT_EQ(inkOn(thick), (Text{"......", "......", "..  ..", "..  ..", "......", "......"}));
  tool.size = 3;
  Sheet closed = sheetOf(6, 6, tool);
  stroke(closed, {0, 0}, {5, 5});
  EXPECT_EQ(inkOn(closed), Text(6, "......")) << "no room is left inside";
}

TEST(AStraightRectangle, HasEqualSides) {
  Sheet sheet = sheetOf(6, 4, with(Tool::rectangle));
  stroke(sheet, {1, 0}, {2, 3}, true);
  EXPECT_EQ(inkOn(sheet), (Text{" .... ", " .... ", " .... ", " .... "}));
}

TEST(AnEllipse, HoldsThePixelsWhoseMiddlesItHolds) {
  Sheet sheet = sheetOf(9, 5, with(Tool::ellipse));
  stroke(sheet, {0, 0}, {8, 4});
  EXPECT_EQ(inkOn(sheet), (Text{"  .....  ", ".........", ".........", ".........", "  .....  "}));
}

TEST(AnOutlineOfAnEllipse, KeepsAFloodInsideAtAnyShape) {
  for (const Size box : {Size{200, 6}, Size{6, 200}, Size{77, 78}, Size{199, 40}, Size{30, 30}}) {
    for (int size = 1; size <= 7; size += 3) {
      ToolSettings tool = with(Tool::ellipse);
      tool.outline = true;
      tool.size = size;
      Sheet sheet = sheetOf(220, 220, tool);
      stroke(sheet, {5, 5}, {4 + box.width, 4 + box.height});
      const int x = 5 + box.width / 2;
      const int y = 5 + box.height / 2;
      if (sheet.inkAt(x, y) != kPaperInk) continue;  // so thick that it is full
      tool.tool = Tool::fill;
      tool.colour = kMaroonInk;
      sheet.choose(tool);
      sheet.press(x, y);
      EXPECT_EQ(sheet.inkAt(0, 0), kPaperInk) << box.width << 'x' << box.height << " size " << size;
    }
  }
}

TEST(SnapToCells, PaintsEveryCellThatTheStrokeTouchesWhole) {
  ToolSettings tool;
  tool.snap = true;
  Sheet sheet = sheetOf(14, 10, tool);
  stroke(sheet, {5, 5}, {8, 5});
  EXPECT_EQ(inkOn(sheet),
            (Text{"              ", "              ", "              ", "              ", "    ........  ",
                  "    ........  ", "    ........  ", "    ........  ", "              ", "              "}));
}

TEST(SnapToCells, TakesThePitchOfPipesSoThatBlocksTouch) {
  ToolSettings tool;
  tool.snap = true;
  Sheet sheet = sheetOf(11, 8, tool);
  sheet.setPitch({4, 4, 2});
  stroke(sheet, {3, 3}, {3, 3});
  stroke(sheet, {6, 3}, {6, 3});
  EXPECT_EQ(inkOn(sheet), (Text{"           ", "           ", "  ........ ", "  ........ ", "  ........ ",
                                "  ........ ", "           ", "           "}));
}

TEST(APencilOfOneCellThatSnaps, IsTheCellUnderThePointer) {
  ToolSettings tool;
  tool.snap = tool.oneCell = true;
  Sheet sheet = sheetOf(12, 12, tool);
  stroke(sheet, {4, 7}, {4, 7});
  EXPECT_EQ(std::count(sheet.picture().pixels.begin(), sheet.picture().pixels.end(), kPaper), 144 - 16);
  EXPECT_EQ(sheet.inkAt(4, 4), kNavyInk);
}

TEST(AMirror, PaintsAboutTheMiddleOfTheSheet) {
  ToolSettings tool;
  tool.mirror = Mirror::both;
  Sheet sheet = sheetOf(5, 4, tool);
  stroke(sheet, {0, 0}, {1, 0});
  EXPECT_EQ(inkOn(sheet), (Text{".. ..", "     ", "     ", ".. .."}));
  tool.mirror = Mirror::leftRight;
  sheet.choose(tool);
  stroke(sheet, {0, 1}, {0, 1});
  tool.mirror = Mirror::topBottom;
  sheet.choose(tool);
  stroke(sheet, {2, 1}, {2, 1});
  EXPECT_EQ(inkOn(sheet), (Text{".. ..", ". . .", "  .  ", ".. .."}));
}

TEST(AMirror, HoldsForFillsToo) {
  ToolSettings tool;
  Sheet sheet = sheetOf(5, 1, tool);
  stroke(sheet, {2, 0}, {2, 0});
  tool.tool = Tool::fill;
  tool.colour = kMaroonInk;
  tool.mirror = Mirror::leftRight;
  sheet.choose(tool);
  sheet.press(0, 0);
  EXPECT_EQ(inkOn(sheet), (Text{"oo.oo"}));
  EXPECT_TRUE(sheet.undo());
  EXPECT_EQ(inkOn(sheet), (Text{"  .  "})) << "both are one step";
}

TEST(PickColour, TakesTheInkBeneath) {
  Sheet sheet = sheetOf(3, 1);
  stroke(sheet, {0, 0}, {0, 0});
  ToolSettings tool = with(Tool::pick);
  tool.colour = kBlueInk;
  sheet.choose(tool);
  sheet.press(0, 0);
  EXPECT_EQ(sheet.settings().colour, kNavyInk);
  sheet.press(2, 0);
  EXPECT_EQ(sheet.settings().colour, kPaperInk);
  sheet.press(3, 0);
  EXPECT_EQ(sheet.settings().colour, kPaperInk) << "off the sheet there is none";
  EXPECT_FALSE(sheet.isPressed());
}

TEST(WhatGoesOffTheSheet, PaintsNothingOutsideAndEndsNothing) {
  for (const Tool tool :
       {Tool::pencil, Tool::line, Tool::rectangle, Tool::ellipse, Tool::eraser, Tool::fill}) {
    for (const bool outline : {false, true}) {
      ToolSettings settings = with(tool);
      settings.size = kThickest;
      settings.outline = outline;
      settings.mirror = Mirror::both;
      Sheet sheet = sheetOf(50, 50, settings);
      sheet.press(-2'000'000'000, 40);
      sheet.drag(2'000'000'000, -2'000'000'000);
      sheet.release(20, 2'000'000'000);
      EXPECT_EQ(sheet.picture().pixels.size(), 2500U);
    }
  }
}

TEST(ButtonsPressedTogether, AreOneStroke) {
  Sheet sheet = sheetOf(5, 1);
  sheet.press(0, 0);
  sheet.press(4, 0);
  sheet.release(1, 0);
  sheet.release(4, 0);
  sheet.drag(4, 0);
  EXPECT_EQ(inkOn(sheet), (Text{"..   "}));
}

TEST(AnUndoInTheMiddleOfAStroke, TakesBackThatStroke) {
  Sheet sheet = sheetOf(5, 1);
  sheet.press(0, 0);
  sheet.drag(3, 0);
  EXPECT_TRUE(sheet.undo());
  EXPECT_EQ(inkOn(sheet), (Text{"     "}));
  sheet.release(4, 0);
  EXPECT_EQ(inkOn(sheet), (Text{"     "}));
  EXPECT_TRUE(sheet.redo());
  EXPECT_EQ(inkOn(sheet), (Text{".... "}));
}

TEST(WhatChangesNothing, IsNoStep) {
  Sheet sheet = sheetOf(5, 1, with(Tool::eraser));
  stroke(sheet, {0, 0}, {4, 0});
  sheet.newsheet({5, 1});
  sheet.placeInk(plainBitmap(2, 1, kPaper), {0, 0});
  ToolSettings fill = with(Tool::fill);
  fill.colour = kPaperInk;
  sheet.choose(fill);
  sheet.press(2, 0);
  EXPECT_FALSE(sheet.canUndo());
}

TEST(APlacedPicture, PutsInkDownAlone) {
  Sheet sheet = sheetOf(4, 2);
  stroke(sheet, {0, 0}, {3, 0});
  Bitmap ink = plainBitmap(3, 2, kPaper);
  pixelAt(ink, 1, 0) = kMaroon;
  pixelAt(ink, 2, 1) = kBlue;
  sheet.placeInk(ink, {1, 0});
  EXPECT_EQ(inkOn(sheet), (Text{"..o.", "   #"}));
  sheet.placeInk(ink, {3, 0});
  EXPECT_EQ(inkOn(sheet), (Text{"..o.", "   #"})) << "what lies off the sheet is left out";
  sheet.newsheet({4, 2});
  sheet.placeInk(ink, {0, 0}, Mirror::leftRight);
  EXPECT_EQ(inkOn(sheet), (Text{" oo ", " ## "}));
}

TEST(APictureOfOtherColours, ComesInTheNearestInks) {
  Sheet sheet = sheetOf(4, 1);
  Bitmap picture = plainBitmap(4, 1, kPaper);
  pixelAt(picture, 0, 0) = kNavy + 2;
  pixelAt(picture, 1, 0) = kWhite;
  pixelAt(picture, 2, 0) = kMaroon;
  EXPECT_EQ(sheet.replace(picture), 2);
  EXPECT_EQ(inkOn(sheet), (Text{". o "}));
  EXPECT_TRUE(sheet.undo());
  EXPECT_EQ(inkOn(sheet), (Text{"    "}));
}

TEST(ASheetOfAnotherSize, ComesBackWithItsOwn) {
  Sheet sheet = sheetOf(5, 2);
  stroke(sheet, {4, 0}, {4, 1});
  sheet.newsheet({3, 4});
  stroke(sheet, {0, 3}, {2, 3});
  EXPECT_EQ(inkOn(sheet), (Text{"   ", "   ", "   ", "..."}));
  EXPECT_TRUE(sheet.undo());
  EXPECT_TRUE(sheet.undo());
  EXPECT_EQ(inkOn(sheet), (Text{"    .", "    ."}));
  EXPECT_TRUE(sheet.redo());
  EXPECT_TRUE(sheet.redo());
  EXPECT_EQ(inkOn(sheet), (Text{"   ", "   ", "   ", "..."}));
}

TEST(WhatWasChanged, IsToldOnceForThoseWhoShowIt) {
  Sheet sheet = sheetOf(20, 20, with(Tool::line));
  EXPECT_EQ(sheet.takeChanged(), (Square{0, 0, 19, 19}));
  sheet.press(2, 2);
  sheet.drag(10, 2);
  EXPECT_EQ(sheet.takeChanged(), (Square{2, 2, 10, 2}));
  sheet.drag(2, 9);
  EXPECT_EQ(sheet.takeChanged(), (Square{2, 2, 10, 9})) << "what the shape has left counts";
  sheet.release(2, 9);
  sheet.takeChanged();
  const Square none = sheet.takeChanged();
  EXPECT_GT(none.left, none.right);
}

TEST(AStepAfterAnUndo, TakesThePlaceOfWhatWasTakenBack) {
  Sheet sheet = sheetOf(5, 1);
  stroke(sheet, {0, 0}, {0, 0});
  sheet.undo();
  stroke(sheet, {4, 0}, {4, 0});
  EXPECT_FALSE(sheet.canRedo());
  EXPECT_FALSE(sheet.redo());
  EXPECT_EQ(inkOn(sheet), (Text{"    ."}));
}

// ---- many strokes by chance

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}
  int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

  void doSomething(Sheet& sheet) {
    switch (below(16)) {
      case 0:
        return sheet.placeInk(noise(1 + below(60), 1 + below(40)), {below(260) - 30, below(200) - 30},
                              mirror());
      case 1:
        if (below(20) == 0) return sheet.newsheet({120 + below(100), 100 + below(60)});
        [[fallthrough]];
      default:
        return drawSomething(sheet);
    }
  }

 private:
  Mirror mirror() { return static_cast<Mirror>(below(4)); }
  Bitmap noise(int width, int height) {
    Bitmap picture = plainBitmap(width, height, kPaper);
    for (Colour& pixel : picture.pixels) pixel = colourOfInk(below(kInks));
    return picture;
  }
  void drawSomething(Sheet& sheet) {
    ToolSettings tool;
    tool.tool = static_cast<Tool>(below(7));
    tool.size = 1 + below(below(4) == 0 ? kThickest : 6);
    tool.oneCell = below(5) == 0;
    tool.snap = below(4) == 0;
    tool.outline = below(2) == 0;
    tool.mirror = mirror();
    tool.colour = below(kInks);
    sheet.choose(tool);
    sheet.press(below(260) - 20, below(200) - 20);
    for (int drags = below(4); drags > 0; --drags)
      sheet.drag(below(260) - 20, below(200) - 20, below(3) == 0);
    sheet.release(below(260) - 20, below(200) - 20, below(3) == 0);
  }
  std::mt19937 random_;
};

std::size_t markOf(const Sheet& sheet) {
  const auto& pixels = sheet.picture().pixels;
  const std::string_view bytes(reinterpret_cast<const char*>(pixels.data()), pixels.size() * sizeof(Colour));
  return std::hash<std::string_view>{}(bytes)*31 + static_cast<std::size_t>(sheet.size().width);
}

TEST(TenThousandStrokes, AreTakenBackAndDoneAgainToThePixel) {
  Sheet sheet({220, 160});
  Chance chance(16);
  std::vector<std::size_t> marks{markOf(sheet)};
  while (marks.size() <= 10'000) {
    const auto before = sheet.revision();
    chance.doSomething(sheet);
    if (sheet.revision() == before || markOf(sheet) == marks.back()) continue;
    marks.push_back(markOf(sheet));
  }
  for (std::size_t i = marks.size() - 1; i > 0; --i) {
    ASSERT_TRUE(sheet.undo()) << i;
    ASSERT_EQ(markOf(sheet), marks[i - 1]) << i;
  }
  EXPECT_FALSE(sheet.canUndo());
  for (std::size_t i = 1; i < marks.size(); ++i) {
    ASSERT_TRUE(sheet.redo()) << i;
    ASSERT_EQ(markOf(sheet), marks[i]) << i;
  }
  EXPECT_FALSE(sheet.canRedo());
}

TEST(StrokesByChance, LeaveInksAlone) {
  Sheet sheet({220, 160});
  Chance chance(5);
  for (int i = 0; i < 500; ++i) {
    chance.doSomething(sheet);
    ASSERT_EQ(inInks(sheet.picture()).others, 0) << i;
  }
}

TEST(TheStepsOfASheet, NeverTakeMoreThanTheyMayAndTheOldestGoFirst) {
  constexpr std::size_t kMost = 100'000;
  Sheet sheet({220, 160}, kMost);
  Chance chance(8);
  std::vector<std::size_t> marks{markOf(sheet)};
  for (int i = 0; i < 3000; ++i) {
    chance.doSomething(sheet);
    ASSERT_LE(sheet.stepBytes(), kMost);
    if (markOf(sheet) != marks.back()) marks.push_back(markOf(sheet));
  }
  EXPECT_GT(sheet.stepBytes(), kMost / 2);
  std::size_t at = marks.size() - 1;
  while (sheet.undo()) ASSERT_EQ(markOf(sheet), marks[--at]);
  EXPECT_GT(at, 0U) << "the oldest are gone";
  EXPECT_LT(at, marks.size() - 50) << "the newest are there";
}

TEST(AStepTooLargeToKeep, IsPaintedAllTheSame) {
  Sheet sheet({200, 200}, 1000);
  Bitmap noise = plainBitmap(200, 200, kPaper);
  for (std::size_t i = 0; i < noise.pixels.size(); ++i)
    noise.pixels[i] = colourOfInk(static_cast<int>(i * 7 % 15));
  sheet.placeInk(noise, {0, 0});
  EXPECT_EQ(sheet.picture(), noise);
  EXPECT_FALSE(sheet.canUndo());
  EXPECT_EQ(sheet.stepBytes(), 0U);
}

TEST(AnOutlineOfOneCellThatIsSnapped, IsOneCellThick) {
  Sheet sheet({300, 300});
  sheet.setPitch({10, 10, 10});
  ToolSettings tool;
  tool.tool = Tool::rectangle;
  tool.oneCell = tool.snap = tool.outline = true;
  sheet.choose(tool);
  sheet.press(105, 105);
  sheet.release(195, 195);
  EXPECT_EQ(sheet.inkAt(100, 150), 1);
  EXPECT_EQ(sheet.inkAt(109, 150), 1);
  EXPECT_EQ(sheet.inkAt(110, 150), kPaperInk);
  EXPECT_EQ(sheet.inkAt(189, 150), kPaperInk);
  EXPECT_EQ(sheet.inkAt(190, 150), 1);
  EXPECT_EQ(sheet.inkAt(199, 150), 1);
}

}  // namespace
}  // namespace gridwright::test
