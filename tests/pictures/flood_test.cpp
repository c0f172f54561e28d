// A fill, and the gap through which it runs out.
#include "pictures/flood.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "pictures/sheet.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// Paper with a ring of black, one pixel thick, and a fill in hand.
Sheet ringed(Size size, const Square& ring) {
  Sheet sheet(size);
  sheet.setPitch({10, 10, 10});
  ToolSettings tool;
  tool.tool = Tool::rectangle;
  tool.outline = true;
  tool.colour = 0;
  sheet.choose(tool);
  sheet.press(ring.left, ring.top);
  sheet.release(ring.right, ring.bottom);
  tool.tool = Tool::fill;
  tool.colour = 4;
  sheet.choose(tool);
  return sheet;
}

void erase(Sheet& sheet, const Square& gap) {
  const ToolSettings before = sheet.settings();
  ToolSettings tool;
  tool.tool = Tool::rectangle;
  tool.colour = kPaperInk;
  sheet.choose(tool);
  sheet.press(gap.left, gap.top);
  sheet.release(gap.right, gap.bottom);
  sheet.choose(before);
}

TEST(AFill, FloodsWhatIsJoinedByItsSides) {
  const Bitmap picture = pixels({"..#..", ".#...", "#...#"});
  const Flood flood = floodOf(picture, 0, 0, {10, 10});
  EXPECT_EQ(flood.pixels.count(), 3) << "not past a corner";
  EXPECT_TRUE(flood.pixels.at(0, 1));
  EXPECT_FALSE(flood.pixels.at(3, 0));
}

/// A stack of pixels, and nothing clever.
std::set<std::pair<int, int>> plainFlood(const Bitmap& picture, int x, int y) {
  std::set<std::pair<int, int>> done;
  std::vector<std::pair<int, int>> open{{x, y}};
  const Colour colour = picture.at(x, y);
  while (!open.empty()) {
    const auto [ax, ay] = open.back();
    open.pop_back();
    if (ax < 0 || ay < 0 || ax >= picture.width || ay >= picture.height || picture.at(ax, ay) != colour)
      continue;
    if (!done.insert({ax, ay}).second) continue;
    for (const auto& [dx, dy] : {std::pair{1, 0}, std::pair{-1, 0}, std::pair{0, 1}, std::pair{0, -1}})
      open.emplace_back(ax + dx, ay + dy);
  }
  return done;
}

TEST(AFill, FloodsWhatAPlainOneDoes) {
  std::mt19937 random(4);
  for (int i = 0; i < 300; ++i) {
    const int width = 1 + static_cast<int>(random() % 150);
    const int height = 1 + static_cast<int>(random() % 20);
    const unsigned few = 2 + random() % 4;
    Bitmap picture = plainBitmap(width, height, kPaper);
    for (Colour& pixel : picture.pixels) pixel = random() % few == 0 ? kNavy : kPaper;
    const int x = static_cast<int>(random() % static_cast<unsigned>(width));
    const int y = static_cast<int>(random() % static_cast<unsigned>(height));
    const Flood flood = floodOf(picture, x, y, {3, 3});
    const auto plain = plainFlood(picture, x, y);
    ASSERT_EQ(flood.pixels.count(), static_cast<std::int64_t>(plain.size()));
    for (const auto& [px, py] : plain) ASSERT_TRUE(flood.pixels.at(px, py));
  }
}

TEST(AFillThatStaysInside, HasNothingToSay) {
  Sheet sheet = ringed({200, 150}, {40, 30, 160, 120});
  sheet.press(100, 70);
  EXPECT_EQ(sheet.note(), "");
  EXPECT_EQ(sheet.inkAt(0, 0), kPaperInk);
  EXPECT_EQ(sheet.inkAt(41, 31), 4);
}

TEST(AFillThatRunsOutThroughANarrowPlace, SaysWhereAndIsTakenBack) {
  Sheet sheet = ringed({200, 150}, {40, 30, 160, 120});
  erase(sheet, {90, 120, 92, 120});
  const Bitmap before = sheet.picture();
  for (const Corner at : {Corner{100, 70}, Corner{41, 31}, Corner{159, 119}}) {  // from corners too
    sheet.press(at.x, at.y);
    EXPECT_EQ(sheet.inkAt(0, 0), 4);
    EXPECT_EQ(sheet.note(), "the fill ran out through a gap at 91, 120") << at.x;
    EXPECT_TRUE(sheet.undo());
    EXPECT_EQ(sheet.picture(), before);
    EXPECT_EQ(sheet.note(), "");
  }
}

TEST(AFillThatRunsOutWhereACellHasRoom, IsWanted) {
  Sheet narrow = ringed({200, 150}, {40, 30, 160, 120});
  erase(narrow, {90, 120, 98, 120});
  narrow.press(100, 70);
  EXPECT_EQ(narrow.note(), "the fill ran out through a gap at 94, 120") << "nine pixels are less than a cell";
  Sheet wide = ringed({200, 150}, {40, 30, 160, 120});
  erase(wide, {90, 120, 99, 120});
  wide.press(100, 70);
  EXPECT_EQ(wide.note(), "");
}

TEST(AFillOfTheGround, HasNothingToSay) {
  Sheet sheet = ringed({200, 150}, {40, 30, 160, 120});
  erase(sheet, {90, 120, 92, 120});
  sheet.press(2, 2);
  EXPECT_EQ(sheet.note(), "");
}

TEST(AFillOfAThinPlace, GoesOnWithoutAWord) {
  Sheet sheet({50, 5});
  ToolSettings tool;
  tool.tool = Tool::fill;
  sheet.choose(tool);
  sheet.press(25, 2);
  EXPECT_EQ(sheet.note(), "");
  EXPECT_EQ(sheet.inkAt(49, 4), 1);
}

TEST(AGapInARoundOutline, IsFoundToo) {
  Sheet sheet({300, 300});
  sheet.setPitch({10, 10, 10});
  ToolSettings tool;
  tool.tool = Tool::ellipse;
  tool.outline = true;
  tool.size = 3;
  tool.colour = 0;
  sheet.choose(tool);
  sheet.press(50, 50);
  sheet.release(250, 250);
  erase(sheet, {216, 76, 226, 80});
  tool.tool = Tool::fill;
  tool.colour = 4;
  sheet.choose(tool);
  sheet.press(150, 150);
  int x = 0;
  int y = 0;
  ASSERT_EQ(std::sscanf(sheet.note().c_str(), "the fill ran out through a gap at %d, %d", &x, &y), 2)
      << sheet.note();
  EXPECT_NEAR(x, 220, 6);
  EXPECT_NEAR(y, 78, 6);
}

}  // namespace
}  // namespace gridwright::test
