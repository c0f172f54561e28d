#include "solve/default_ends.h"

#include <gtest/gtest.h>

#include "state/grid.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr Square kNowhere{-10, -10, -10, -10};

TEST(ASquareWithEqualSides, IsNotPlaced) {
  EXPECT_TRUE(isPlaced({11, 11, 18, 18}));
  EXPECT_FALSE(isPlaced({11, 11, 11, 18}));
  EXPECT_FALSE(isPlaced({11, 11, 18, 11}));
  EXPECT_FALSE(isPlaced({0, 0, -5, -5}));
  EXPECT_FALSE(isPlaced({-1, 11, 18, 18}));
  EXPECT_FALSE(isPlaced({}));
}

TEST(TheStart, IsTheFirstFreeCellInRowOrder) {
  World w(drawing({"####", "##..", "...."}));
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, squareOf(3, 2));
}

TEST(AStartThatIsGood, StaysWhereItIs) {
  World w(drawing({"....", "....", "...."}));
  w.state.start = squareOf(2, 3);
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, squareOf(2, 3));
}

TEST(AStartOffTheGrid, StaysWhenItsWholeSquareIsFree) {
  World w(drawing({"....", "....", "...."}));
  w.state.start = {14, 16, 21, 23};
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, (Square{14, 16, 21, 23}));
}

TEST(AStartWithOnePixelOfItsCellTaken, IsReplaced) {
  for (const Colour spot : {kBlue, kWhite, kCursorColour}) {
    World w(drawing({"....", "....", "...."}));
    w.state.start = squareOf(2, 2);
    w.canvas.fill(29, 29, 29, 29, spot);
    placedefaultends(w.program);
    EXPECT_EQ(w.state.start, squareOf(1, 1)) << spot;
  }
  for (const auto& [x, y] : {std::pair{20, 20}, std::pair{29, 20}, std::pair{20, 29}, std::pair{25, 20}}) {
    World w(drawing({"....", "....", "...."}));
    w.state.start = squareOf(2, 2);
    w.canvas.fill(x, y, x, y, kBlue);
    placedefaultends(w.program);
    EXPECT_EQ(w.state.start, squareOf(1, 1)) << x << ", " << y;
  }
}

TEST(AStartPutByAPixel, GoesToTheCellThatHoldsIt) {
  World w(drawing({"....", "....", "...."}));
  for (const auto& [x, y] : {std::pair{20, 30}, std::pair{29, 39}, std::pair{24, 31}}) {
    w.state.start = {};
    EXPECT_TRUE(startat(w.program, x, y));
    EXPECT_EQ(w.state.start, squareOf(2, 3)) << x << ", " << y;
  }
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, squareOf(2, 3)) << "a free cell's start is kept";
}

TEST(AStartPutOnABorder, IsReplacedBeforeTheMaze) {
  World w(drawing({"....", ".#..", "...."}));
  EXPECT_TRUE(startat(w.program, 25, 25));
  EXPECT_EQ(w.state.start, squareOf(2, 2));
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, squareOf(1, 1));
}

TEST(APixelThatNoCellHolds, LeavesTheStartWhereItWas) {
  World w(drawing({"....", "....", "...."}));
  const Square before = w.state.start = squareOf(3, 2);
  for (const auto& [x, y] : {std::pair{9, 20}, std::pair{20, 9}, std::pair{-1, -1}, std::pair{1000, 20}}) {
    EXPECT_FALSE(startat(w.program, x, y)) << x << ", " << y;
    EXPECT_EQ(w.state.start, before);
  }
  w.state.mazeKind = MazeKind::pipe;
  EXPECT_FALSE(startat(w.program, 25, 15)) << "between two pipes";
  EXPECT_TRUE(startat(w.program, 35, 15));
  EXPECT_EQ(w.state.start, squareOf(3, 1));
}

TEST(AStartThatIsNotPlaced, IsReplaced) {
  for (const Square bad : {Square{21, 21, 21, 28}, Square{21, 21, 28, 21}, Square{0, 0, -5, -5}, kNowhere}) {
    World w(drawing({"....", "....", "...."}));
    w.state.start = bad;
    placedefaultends(w.program);
    EXPECT_EQ(w.state.start, squareOf(1, 1));
  }
}

TEST(WithNoCellFree, AllFourSidesOfTheStartAreMinusTenAndTheFinishStays) {
  World w(drawing({"####", "####"}));
  w.state.finish = {0, 0, -3, -3};
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, kNowhere);
  EXPECT_EQ(w.state.finish, (Square{0, 0, -3, -3}));
}

TEST(TheFinish, IsTheLastFreeCellThatTheFarCornerScanVisits) {
  World w(drawing({"......", "......", "......", "......"}));  // grid to column 6, row 4
  placedefaultends(w.program);
  EXPECT_EQ(w.state.finish, squareOf(5, 4)) << "the last column is out of the scan's way";
}

TEST(TheFinish, IsFoundInTheLastColumnAtWallSizeFiveInTheScansFirstRowOnly) {
  World w(drawing({"......", "......", "......", "......"}, 5), 5);
  placedefaultends(w.program);
  EXPECT_EQ(w.state.finish, squareOf(5, 4, 5)) << "its first row lies two rows below the grid";
}

TEST(TheFinish, IsNeverTheStart) {
  World w(drawing({".####", "#####", "#####"}));
  w.state.finish = w.state.start = squareOf(1, 1);
  placedefaultends(w.program);
  EXPECT_EQ(w.state.start, squareOf(1, 1));
  EXPECT_EQ(w.state.finish, squareOf(1, 1)) << "nothing else is free, so it stays as it was";
  World two(drawing({"..###", "#####", "#####"}));
  two.state.finish = two.state.start = squareOf(1, 1);
  placedefaultends(two.program);
  EXPECT_EQ(two.state.finish, squareOf(2, 1));
}

TEST(AFinishThatIsGood, StaysWhereItIs) {
  World w(drawing({"......", "......", "......"}));
  w.state.finish = squareOf(2, 2);
  placedefaultends(w.program);
  EXPECT_EQ(w.state.finish, squareOf(2, 2));
}

TEST(AFinishWithOnePixelOfItsCellTaken, IsReplaced) {
  for (const auto& [x, y] : {std::pair{20, 20}, std::pair{29, 29}}) {
    World w(drawing({"......", "......", "......"}));
    w.state.finish = squareOf(2, 2);
    w.canvas.fill(x, y, x, y, kBlue);
    placedefaultends(w.program);
    EXPECT_EQ(w.state.finish, squareOf(5, 3)) << x;
  }
}

TEST(AFinishOnDarkGreen, IsGroundWhileGreenIsABackground) {
  World w(drawing({"......", ".d....", "......"}));
  w.state.finish = squareOf(2, 2);
  placedefaultends(w.program);
  EXPECT_EQ(w.state.finish, squareOf(2, 2));
}

TEST(ThePipeSquares, AreTheOrdinaryOnesWhereThoseLieOnThePipeGrid) {
  World w(drawing(Text(5, std::string(7, '.'))));
  w.state.start = squareOf(3, 3);
  w.state.finish = squareOf(5, 1);
  placepipefinish(w.program);
  EXPECT_EQ(w.state.ends.pipeStart, squareOf(3, 3));
  EXPECT_EQ(w.state.ends.pipeFinish, squareOf(5, 1));
  EXPECT_EQ(w.state.start, squareOf(3, 3)) << "the ordinary squares are not touched";
}

TEST(ThePipeSquares, AreSearchedWhereTheOrdinaryOnesLieBesideThePipeGrid) {
  World w(drawing(Text(7, std::string(9, '.'))));
  w.state.start = squareOf(2, 1);
  w.state.finish = squareOf(4, 4);
  placepipefinish(w.program);
  EXPECT_EQ(w.state.ends.pipeStart, squareOf(1, 1));
  const Square& finish = w.state.ends.pipeFinish;
  EXPECT_EQ((finish.left - 11) % 20, 0);
  EXPECT_EQ((finish.top - 11) % 20, 0);
  EXPECT_GT(finish.left + finish.top, 62) << "from the far corner";
  EXPECT_EQ(w.state.stepX, 10) << "pitch and grid are as before";
  EXPECT_EQ(w.state.gridRight, 90);
}

TEST(ThePipeSquares, AreMinusTenWhereNoCellOfThePipeGridIsFree) {
  World w(drawing({"######", "#.#.#.", "######", "#.#.#.", "######"}));
  w.state.start = squareOf(2, 2);
  w.state.finish = squareOf(4, 4);
  placepipefinish(w.program);
  EXPECT_EQ(w.state.ends.pipeStart, kNowhere);
  EXPECT_EQ(w.state.ends.pipeFinish, kNowhere);
}

TEST(AFinishOfThePipeKind, LiesOnTheGridOfTwiceTheWallSize) {
  World w(drawing(Text(7, std::string(9, '.'))));
  w.state.mazeKind = MazeKind::pipe;
  pitchFromKind(w.state);
  measureGrid(w.program);
  placedefaultends(w.program);
  EXPECT_EQ((w.state.finish.left - 11) % 20, 0);
  EXPECT_EQ((w.state.finish.top - 11) % 20, 0);
}

}  // namespace
}  // namespace gridwright::test
