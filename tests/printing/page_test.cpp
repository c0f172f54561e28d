#include "printing/page.h"

#include <gtest/gtest.h>

#include "pictures/ready.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A wall size of one pixel, so that a page is seen as text; the ground is yellow.
struct Sheet : World {
  explicit Sheet(const Text& rows) : World(pixels(rows)) {
    canvas.setBackColor(kYellow);
    state.wallWidth = state.wallHeight = 1;
  }
};

TEST(APage, ShowsTheWholeCanvasWithItsGround) {
  Sheet w({"yyyyy", "yy.yy", "yyyyy"});
  EXPECT_EQ(textOf(pageOf(w.program).view().copied()), textOf(pixels({"yyyyy", "yy.yy", "yyyyy"})));
}

TEST(APage, IsTheShownPlaneItselfUnlessPaperIsOnIt) {
  Sheet w({"yyyyy", "yy.yy", "yyyyy"});
  EXPECT_EQ(pageOf(w.program).view().first, w.canvas.shownRow(0));
  w.canvas.fill(4, 2, 4, 2, kPaper);
  EXPECT_NE(pageOf(w.program).view().first, w.canvas.shownRow(0));
}

TEST(Paper, IsPlainWhiteOnAPageAndStaysWhatItIsOnTheCanvas) {
  Sheet w({"yyy", "y.y"});
  w.canvas.setAutoRedraw(true);
  w.canvas.fill(2, 0, 2, 1, kPaper);
  EXPECT_EQ(textOf(pageOf(w.program).view().copied()), textOf(pixels({"yy*", "y.*"})));
  EXPECT_EQ(w.canvas.shownPoint(2, 1), kPaper);
}

TEST(AWhiteGround, LeavesThePictureWithOneWallSizeOfWhiteRoundIt) {
  Sheet w({"yyyyyyy", "yyyyyyy", "yyyy.yy", "yy.yyyy", "yyyyyyy", "yyyyyyy"});
  whiteground(w.program);
  EXPECT_EQ(textOf(pageOf(w.program).view().copied()), textOf(pixels({"*****", "***.*", "*.***", "*****"})));
}

TEST(AWhiteGround, EndsWhereTheCanvasEnds) {
  Sheet w({".yyyy", "yyyyy", "yyyyy"});
  whiteground(w.program);
  EXPECT_EQ(textOf(pageOf(w.program).view().copied()), textOf(pixels({".*", "**"})));
}

TEST(AWhiteGround, IsAWholeWhitePageWhereNothingIsDrawn) {
  Sheet w({"yyy", "yyy"});
  whiteground(w.program);
  EXPECT_EQ(textOf(pageOf(w.program).view().copied()), textOf(pixels({"***", "***"})));
}

TEST(AWhiteGround, IsTickedAndTakenBackByTheSameItem) {
  World w(drawing({"...", "..."}));
  EXPECT_FALSE(w.program.menus.checked(Item::whiteground));
  w.program.menus.setVisible(Item::filet, true);
  input::menuClick(w.program, Item::whiteground);
  EXPECT_TRUE(w.state.print.whiteGround);
  EXPECT_TRUE(w.program.menus.checked(Item::whiteground));
  w.state.keyBusy = false;
  input::menuClick(w.program, Item::whiteground);
  EXPECT_FALSE(w.state.print.whiteGround);
  EXPECT_FALSE(w.program.menus.checked(Item::whiteground));
}

TEST(AWhiteGround, CannotBeChangedWhileARunIsSetUpOrPatternsAreMade) {
  World w(drawing({"...", "..."}));
  w.program.menus.setVisible(Item::filet, true);
  w.state.print.printTotal = 2;
  input::menuClick(w.program, Item::whiteground);
  EXPECT_FALSE(w.state.print.whiteGround);
  w.state.print.printTotal = 0;
  w.state.editor.preparing = true;
  input::menuClick(w.program, Item::whiteground);
  EXPECT_FALSE(w.state.print.whiteGround);
  EXPECT_FALSE(w.program.menus.enabled(Item::whiteground));
  w.state.editor.preparing = false;
  input::menuClick(w.program, Item::whiteground);
  EXPECT_TRUE(w.state.print.whiteGround);
}

TEST(AJobsPages, HaveTheWhiteGroundToo) {
  Bitmap sheet = plainBitmap(120, 100, kYellow);
  for (int y = 30; y < 70; ++y) {
    for (int x = 40; x < 90; ++x) pixelAt(sheet, x, y) = kNavy;
  }
  World w(Size{120, 100});
  w.begin(sheet);
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::whiteground);
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::printnosolutions);
  w.desktop.enter(ControlId::Text3, "1");
  w.desktop.menu(Item::newmaze);
  w.desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
  EXPECT_EQ(w.run(), "");
  ASSERT_EQ(w.desktop.pages.size(), 1U);
  const Bitmap& page = w.desktop.pages[0];
  EXPECT_EQ(page.width, 50 + 2 * 10);
  EXPECT_EQ(page.height, 40 + 2 * 10);
  for (const Colour pixel : page.pixels) ASSERT_NE(pixel, kYellow);
}

TEST(APage, KnowsHowManyCellsItsMazeHasWhereThatMayMatter) {
  Bitmap maze = plainBitmap(400, 400, kNavy);
  for (int y = 10; y < 390; y += 10)
    for (int x = 10; x < 390; ++x)
      for (int v = y + 1; v < y + 4; ++v) pixelAt(maze, x, v) = kWhite;
  World w(maze, 5);
  w.state.phase = Phase::placing;
  w.state.start = squareOf(2, 2, 5);
  EXPECT_EQ(pageOf(w.program).look().cells, 38 * 76) << "every other row has corridors";
  w.program.pictures.save("drawing1.bmp", maze);
  EXPECT_EQ(pageOf(w.program).look().cells, 0) << "what looked like one before is none";
  w.state.phase = Phase::drawing;
  EXPECT_EQ(pageOf(w.program).look().cells, 0);
}

TEST(APage, SaysItsTitleItsSettingsAndItsSeed) {
  World w(drawing({"......", "......"}), 10);
  w.program.random.seed(77);
  EXPECT_EQ(pageOf(w.program).look().about.title, "Gridwright");
  EXPECT_EQ(pageOf(w.program).look().about.settings, "kind regular; wall 10; patterns own");
  EXPECT_EQ(pageOf(w.program).look().about.seed, 77U);
  EXPECT_EQ(pageOf(w.program).look().about.maze, MazeInRun());
  w.program.pages.setup.title = "Mazes";
  w.state.mazeKind = MazeKind::threeD;
  w.state.pathSize = 2;
  w.program.menus.setChecked(Item::crnd1, true);
  EXPECT_EQ(pageOf(w.program).look().about.title, "Mazes");
  EXPECT_EQ(pageOf(w.program).look().about.settings,
            "kind 3d; wall 10; difficulty 4; paths large; patterns random:5");
  w.state.mazeKind = MazeKind::pipe;
  w.program.menus.setChecked(Item::pthin, true);
  w.program.menus.setChecked(Item::dontusepattern, true);
  EXPECT_EQ(pageOf(w.program).look().about.settings,
            "kind pipe; wall 10; difficulty 4; paths large; underpasses long; patterns none");
}

}  // namespace
}  // namespace gridwright::test
