// The count of cells, regions and areas too small, and the line that tells it.
#include "pictures/regions.h"

#include <gtest/gtest.h>

#include "canvas/free_cell.h"
#include "pictures/ready.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

RegionCount counted(const Bitmap& picture, int wall, MazeKind kind = MazeKind::regular) {
  return countRegions(picture, startingSets(), gridOn({picture.width, picture.height}, wall, kind));
}

TEST(TheCountOfRegions, JoinsCellsByTheirSidesAlone) {
  const Bitmap picture = drawing({"..#..",  //
                                  ".#...",  //
                                  "##.##"},
                                 5);
  EXPECT_EQ(counted(picture, 5), (RegionCount{9, 2, 0}));
}

TEST(TheCountOfRegions, TellsRegionsThatTouchAtACornerApart) {
  EXPECT_EQ(counted(drawing({".#", "#."}, 5), 5), (RegionCount{2, 2, 0}));
}

TEST(AnAreaWithoutACell, IsTooSmall) {
  Bitmap picture = drawing({".###", "####"}, 5);
  for (int x = 15; x < 22; ++x) pixelAt(picture, x, 12) = kMaroon;
  EXPECT_EQ(counted(picture, 5), (RegionCount{1, 1, 1}));
}

TEST(AreasThatTouchAtACorner, AreCountedEach) {
  Bitmap picture = drawing({"###", "###"}, 5);
  pixelAt(picture, 8, 8) = kNavy;
  pixelAt(picture, 9, 9) = kNavy;
  EXPECT_EQ(counted(picture, 5), (RegionCount{0, 0, 2}));
}

TEST(PipesThatTakeEverySecondCell, AreCountedAtTwiceTheWallSize) {
  const Bitmap picture = drawing({".....", ".....", "....."}, 5);
  EXPECT_EQ(counted(picture, 5, MazeKind::pipe), (RegionCount{2, 1, 0}));
}

std::optional<Corner> firstOf(const Bitmap& picture, int wall, MazeKind kind = MazeKind::regular) {
  return firstCellOfLargest(picture, startingSets(), gridOn({picture.width, picture.height}, wall, kind));
}

TEST(TheLargestRegion, BeginsAtItsFirstCellInRows) {
  const auto first = firstOf(drawing({"..#...",  //
                                      "..#..#",  //
                                      "###...",  //
                                      "...###"},
                                     5),
                             5);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->x, 20);
  EXPECT_EQ(first->y, 5);
  const auto below = firstOf(drawing({".##.", "###.", "..#."}, 5), 5);
  ASSERT_TRUE(below);
  EXPECT_EQ(below->x, 20) << "three cells on the right, two at the bottom";
  const auto tie = firstOf(drawing({"#..#..", "######"}, 5), 5);
  ASSERT_TRUE(tie);
  EXPECT_EQ(tie->x, 10) << "of two as large the first";
}

TEST(TheLargestRegion, IsLookedForOnTheGridOfTheKind) {
  const auto first = firstOf(drawing({"#....", "#....", "#...."}, 5), 5, MazeKind::pipe);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->x, 15);
  EXPECT_FALSE(firstOf(drawing({"###", "###"}, 5), 5)) << "no cell is free";
}

TEST(TheColourOfTheFrame, IsABorderInTheCount) {
  const Bitmap picture = drawing({"..,", "..,"}, 5, '.');
  EXPECT_EQ(counted(picture, 5), (RegionCount{2, 1, 0})) << "navy at (1, 1): the green alone counts";
}

TEST(ACarvedCell, IsNotFree) { EXPECT_EQ(counted(drawing({"..*"}, 5), 5), (RegionCount{2, 1, 0})); }

TEST(TheMapOfRegions, NumbersThePixelsOfEveryCellByItsRegion) {
  const Bitmap picture = drawing({".#."}, 5);
  const RegionMap map = mapRegions(picture, startingSets(), gridOn({20, 10}, 5, MazeKind::regular));
  const auto at = [&](int x, int y) {
    return map.regions[std::size_t{20} * static_cast<std::size_t>(y) + static_cast<std::size_t>(x)];
  };
  EXPECT_EQ(at(5, 5), 1);
  EXPECT_EQ(at(9, 9), 1);
  EXPECT_EQ(at(10, 9), 0);
  EXPECT_EQ(at(15, 5), 2);
  EXPECT_EQ(at(4, 5), 0);
}

TEST(TheMapOfRegions, MarksWhatIsTooSmall) {
  Bitmap picture = drawing({"##"}, 5);
  picture.pixels[static_cast<std::size_t>(7 * 15 + 7)] = kNavy;
  const RegionMap map = mapRegions(picture, startingSets(), gridOn({15, 10}, 5, MazeKind::regular));
  EXPECT_EQ(std::count(map.small.begin(), map.small.end(), 1), 1);
  EXPECT_EQ(map.small[7 * 15 + 7], 1);
}

TEST(APictureOfNoPixels, HoldsNoCell) {
  EXPECT_EQ(counted(Bitmap{}, 10), RegionCount{});
  EXPECT_EQ(counted(plainBitmap(1, 1, kNavy), 10), (RegionCount{0, 0, 1}));
}

TEST(TheLineOfACount, HasCommasAndNoSingular) {
  EXPECT_EQ(regionLine({2156, 3, 12}), "2,156 cells in 3 regions; 12 areas too small for a cell");
  EXPECT_EQ(regionLine({1, 1, 1}), "1 cells in 1 regions; 1 areas too small for a cell");
  EXPECT_EQ(regionLine({}), "0 cells in 0 regions; 0 areas too small for a cell");
  EXPECT_EQ(regionLine({999, 1000, 1234567}),
            "999 cells in 1,000 regions; 1,234,567 areas too small for a cell");
}

}  // namespace
}  // namespace gridwright::test
