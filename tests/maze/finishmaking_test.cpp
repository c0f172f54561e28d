#include "maze/finishmaking.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

void putCursorOn(World& w, int column, int row) {
  w.state.scanX = column * w.state.stepX + 1;
  w.state.scanY = row * w.state.stepY + 1;
}

TEST(TheFillCursor, BeginsOnePitchBeforeTheFirstCell) {
  World w(drawing({"..", ".."}));
  w.state.stepX = w.state.stepY = 20;
  w.state.walker.freeCellMetSinceStep = true;
  resetfillcursor(w.state);
  EXPECT_FALSE(w.state.walker.freeCellMetSinceStep);
  EXPECT_EQ(w.state.scanX, -9);
  EXPECT_EQ(w.state.scanY, -9);
}

TEST(TheFillCursor, GoesThroughTheCanvasRowByRowAndEndsBelowIt) {
  World w(drawing({"..", "..", ".."}));  // 30 by 40 pixels
  resetfillcursor(w.state);
  int passes = 1;
  while (advancefillcursor(w.state)) ++passes;
  EXPECT_EQ(passes, 3 * 4) << "x 1, 11, 21 and y 1, 11, 21, 31";
  EXPECT_EQ(w.state.scanX, 1);
  EXPECT_EQ(w.state.scanY, 41);
}

TEST(AFreeCell, SendsTheFillCursorBackToTheBeginning) {
  World w(drawing({"##", ".#"}));
  putCursorOn(w, 1, 2);
  finishmaking(w.program);
  EXPECT_EQ(w.state.scanX, 1);
  EXPECT_EQ(w.state.scanY, 1);
}

TEST(ACellThatIsNotFree, LetsTheFillCursorPass) {
  for (const char ground : {'#', '*', 'c'}) {
    World w(drawing({std::string(2, ground), std::string(2, ground)}));
    putCursorOn(w, 1, 2);
    finishmaking(w.program);
    EXPECT_EQ(w.state.scanY, 21) << ground;
  }
}

TEST(ACell, IsFreeOnlyWhenEveryPixelOfItIsOnceAMazeWasMade) {
  for (const Colour spot : {kBlue, kWhite, kCursorColour}) {
    for (const auto& [x, y] : {std::pair{10, 10}, std::pair{19, 10}, std::pair{10, 19}, std::pair{19, 19}}) {
      World w(drawing({"..", ".."}));
      ASSERT_TRUE(isFreeForMaze(w.program, 11, 11));
      w.canvas.fill(x, y, x, y, spot);
      EXPECT_FALSE(isFreeForMaze(w.program, 11, 11)) << x << ", " << y;
      w.state.mazeMadeOnce = false;
      EXPECT_TRUE(isFreeForMaze(w.program, 11, 11)) << "before, the corner pixel alone is asked";
    }
  }
}

TEST(ThePixelsBesideACell, DoNotCount) {
  World w(drawing({"...", "...", "..."}));
  w.canvas.outline(19, 19, 30, 30, kBlue);
  EXPECT_TRUE(isFreeForMaze(w.program, 21, 21));
}

TEST(ACellPartlyOutsideTheCanvas, IsNotFree) {
  World w(drawing({"..", ".."}));
  EXPECT_FALSE(isFreeForMaze(w.program, 31, 11));
  EXPECT_FALSE(isFreeForMaze(w.program, -9, 11));
  w.canvas.resize({25, 30});
  EXPECT_FALSE(isFreeForMaze(w.program, 21, 11));
}

TEST(ACanvasWithoutAnyFreeCell, EndsTheMazeAfterOneSweep) {
  World w(drawing({"####", "####", "####"}));
  resetfillcursor(w.state);
  int passes = 0;
  do {
    finishmaking(w.program);
    ++passes;
  } while (advancefillcursor(w.state));
  EXPECT_EQ(passes, 5 * 4);
}

TEST(AUsersMazeWithOnlyTheWalkersOwnCellLeft, Ends) {
  World w(drawing({"###", "#c#", "###"}));
  resetfillcursor(w.state);
  int passes = 0;
  do {
    finishmaking(w.program);
    ASSERT_LT(++passes, 1000);
  } while (advancefillcursor(w.state));
  SUCCEED();
}

TEST(ACellThatTheRescueGaveUp, LetsTheFillCursorPass) {
  World w(drawing({"##", ".."}));
  w.state.walker.givenUpCells.insert({11, 21});
  putCursorOn(w, 1, 2);
  finishmaking(w.program);
  EXPECT_EQ(w.state.scanY, 21);
  putCursorOn(w, 2, 2);
  finishmaking(w.program);
  EXPECT_EQ(w.state.scanY, 1) << "its neighbour does not";
}

TEST(AFreeCellClosedInByBorder, StillHoldsTheSweepBackInTheRegularKind) {
  World w(drawing({"###", "#.#", "###"}));
  putCursorOn(w, 2, 2);
  finishmaking(w.program);
  EXPECT_EQ(w.state.scanY, 1);
}

}  // namespace
}  // namespace gridwright::test
