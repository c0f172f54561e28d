#include "canvas/cell_grid.h"

#include <gtest/gtest.h>

#include <vector>

namespace gridwright::test {
namespace {

TEST(TheLastGridLine, LeavesAWholePitchBetweenItselfAndTheEdge) {
  EXPECT_EQ(lastGridLine(10, 10, 800), 790);
  EXPECT_EQ(lastGridLine(10, 10, 805), 790);
  EXPECT_EQ(lastGridLine(10, 10, 809), 790);
  EXPECT_EQ(lastGridLine(10, 10, 810), 800);
  EXPECT_EQ(lastGridLine(5, 5, 1000), 995);
  EXPECT_EQ(lastGridLine(10, 20, 800), 770) << "pipes: 10, 30, 50 and so on, 770 plus 20 is not above 780";
  EXPECT_EQ(lastGridLine(50, 50, 60), 50) << "never less than the first cell";
}

TEST(ASquareInACell, LiesOnePixelInAndIsTwoPixelsSmaller) {
  const CellGrid grid{10, 10, 10, 10, 50, 50};
  EXPECT_EQ(grid.squareIn({10, 20}), (Square{11, 21, 18, 28}));
}

TEST(AScanFromTheFirstCell, GoesInRowsAndIncludesTheLastColumnAndRow) {
  const CellGrid grid{10, 10, 10, 10, 30, 20};
  std::vector<std::pair<int, int>> seen;
  EXPECT_FALSE(grid.first([&](Corner c) { return seen.emplace_back(c.x, c.y), false; }));
  const std::vector<std::pair<int, int>> expected = {{10, 10}, {20, 10}, {30, 10},
                                                     {10, 20}, {20, 20}, {30, 20}};
  EXPECT_EQ(seen, expected);
}

TEST(ACount, StopsWhenEnoughAreFound) {
  const CellGrid grid{10, 10, 10, 10, 100, 100};
  int asked = 0;
  EXPECT_EQ(grid.count(3, [&](Corner) { return ++asked, true; }), 3);
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(grid.count(3, [](Corner c) { return c.x == 10 && c.y <= 20; }), 2);
}

/// The far-corner scan told plainly: step, wrap, test for the stop, then the cell.
std::vector<Square> farCornerSquares(const CellGrid& g) {
  std::vector<Square> cells;
  int right = g.right + g.stepX - 1;
  int bottom = g.bottom + g.stepY + g.wallHeight - 1;
  if (g.wallWidth == 5) right += g.stepX;
  if (g.wallHeight == 5) bottom += g.stepY;
  while (true) {
    right -= g.stepX;
    if (right < 0) {
      right = g.right + g.stepX - g.wallWidth - 1;
      bottom -= g.stepY;
    }
    if (bottom < 0) return cells;
    cells.push_back({right - g.wallWidth + 1, bottom - g.wallHeight + 1, right, bottom});
  }
}

TEST(TheFarCornerScan, EndsWithoutAHitAboveTheFirstRow) {
  for (const int wall : {5, 10, 23, 50}) {
    for (const int times : {1, 2}) {
      const CellGrid grid{wall,
                          wall,
                          times * wall,
                          times * wall,
                          lastGridLine(wall, times * wall, 400),
                          lastGridLine(wall, times * wall, 300)};
      const auto expected = farCornerSquares(grid);
      std::size_t next = 0;
      EXPECT_FALSE(grid.fromFarCorner([&](Corner c) {
        EXPECT_LT(next, expected.size());
        EXPECT_EQ(c.x, expected.at(next).left);
        EXPECT_EQ(c.y, expected.at(next).top);
        ++next;
        return false;
      }));
      EXPECT_EQ(next, expected.size());
    }
  }
}

TEST(TheFarCornerScan, GivesTheLeftAndTopOfTheCellThatPassed) {
  const CellGrid grid{10, 10, 10, 10, 50, 40};
  const auto hit = grid.fromFarCorner([](Corner c) { return c.y <= 40; });
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->y, 40);
  EXPECT_EQ(hit->x, 40) << "after the wrap the scan begins one wall size left of the last column";
}

TEST(AFarCornerScanAtWallSizeFive, BeginsOnePitchFurtherOut) {
  const CellGrid five{5, 5, 5, 5, 50, 50};
  const CellGrid six{6, 6, 6, 6, 48, 48};
  std::optional<Corner> firstOfFive = five.fromFarCorner([](Corner) { return true; });
  std::optional<Corner> firstOfSix = six.fromFarCorner([](Corner) { return true; });
  EXPECT_EQ(firstOfFive->x, 50);
  EXPECT_EQ(firstOfFive->y, 60) << "two rows below the last";
  EXPECT_EQ(firstOfSix->x, 42);
  EXPECT_EQ(firstOfSix->y, 54) << "one row below the last";
}

TEST(ThePipeGrid, HasEverySecondCell) {
  const CellGrid grid{10, 10, 20, 20, 50, 50};
  EXPECT_TRUE(grid.onPipeGrid(Corner{10, 10}));
  EXPECT_TRUE(grid.onPipeGrid(Corner{30, 50}));
  EXPECT_FALSE(grid.onPipeGrid(Corner{20, 10}));
  EXPECT_FALSE(grid.onPipeGrid(Corner{10, 40}));
  EXPECT_FALSE(grid.onPipeGrid(Corner{-10, 10})) << "the band is no cell";
}

TEST(AnEnd, LiesOnThePipeGridWhereItsCellDoes) {
  const CellGrid grid{10, 10, 20, 20, 50, 50};
  EXPECT_TRUE(grid.onPipeGrid(grid.squareIn({30, 50})));
  EXPECT_FALSE(grid.onPipeGrid(grid.squareIn({20, 10})));
  EXPECT_FALSE(grid.onPipeGrid(Square{30, 50, 37, 57})) << "a pixel beside its place";
}

}  // namespace
}  // namespace gridwright::test
