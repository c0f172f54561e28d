#include "solve/maze_measure.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/world.h"

namespace gridwright::test {
namespace {

/// A maze whose corridors run through the middles of letters: cells side by side are joined where a line of
/// the text has a stroke between them. Cells stand in the even columns and rows; `o` is one, `S` and `F` are
/// the ends.
struct Plan {
  explicit Plan(const Text& lines, MazeKind kind = MazeKind::regular, int wall = 10)
      : kind_(kind), wall_(wall) {
    const int columns = static_cast<int>(lines.front().size() + 1) / 2;
    const int rows = static_cast<int>(lines.size() + 1) / 2;
    picture = plainBitmap((columns + 2) * wall, (rows + 2) * wall, kPalette[1]);
    for (std::size_t y = 0; y < lines.size(); ++y) {
      for (std::size_t x = 0; x < lines[y].size(); ++x)
        put(lines[y][x], static_cast<int>(x), static_cast<int>(y));
    }
  }
  [[nodiscard]] MazeMeasure measure() const {
    return measureMaze({picture, sets, kStart, kFinish, kind_, wall_, start, finish});
  }

  static constexpr Colour kStart = 254, kFinish = 65281;
  Bitmap picture;
  ColourSets sets;
  Square start, finish;

 private:
  void fill(const Square& box, Colour colour) {
    for (int y = box.top; y <= box.bottom; ++y) {
      for (int x = box.left; x <= box.right; ++x) pixelAt(picture, x, y) = colour;
    }
  }
  void put(char c, int x, int y) {
    if (c == ' ') return;
    const Square cell = squareOf(x / 2 + 1, y / 2 + 1, wall_);
    if (c == '-') return fill({cell.right + 1, cell.top, cell.right + 2, cell.bottom}, kPalette[15]);
    if (c == '|') return fill({cell.left, cell.bottom + 1, cell.right, cell.bottom + 2}, kPalette[15]);
    fill(cell, c == 'S' ? kStart : c == 'F' ? kFinish : kPalette[15]);
    if (c == 'S') start = cell;
    if (c == 'F') finish = cell;
  }
  MazeKind kind_;
  int wall_;
};

double hundredth(double number) { return std::round(number * 100) / 100; }

TEST(AStraightWay, HasItsCellsAndNothingElse) {
  const MazeMeasure m = Plan({"S-o-o-F"}).measure();
  EXPECT_TRUE(m.solved);
  EXPECT_EQ(m.wayLength, 4);
  EXPECT_EQ(m.cells, 4);
  EXPECT_EQ(m.carved, 4);
  EXPECT_EQ(m.turns + m.deadEnds + m.junctions + m.underpasses, 0);
  EXPECT_EQ(m.difficulty, hundredth(std::log2(5)));
}

TEST(AWall, PartsTwoCellsWhereOneOfItsTwoPixelsStands) {
  for (const int pixel : {0, 1, 2}) {
    for (const bool level : {false, true}) {
      Plan plan(level ? Text{"S F"} : Text{"S", " ", "F"});
      const Square& s = plan.start;
      // From the start on: nothing gone, the near one, the far one.
      if (pixel > 0 && level) pixelAt(plan.picture, s.right + pixel, s.top) = kPalette[15];
      if (pixel > 0 && !level) pixelAt(plan.picture, s.left, s.bottom + pixel) = kPalette[15];
      EXPECT_FALSE(plan.measure().solved) << pixel << level;
    }
  }
  EXPECT_TRUE(Plan({"S-F"}).measure().solved);
}

TEST(AWay, CountsItsTurnsAndWhatBranchesFromIt) {
  const MazeMeasure m = Plan({"S-o-o-o",   //
                              "  |     ",  //
                              "o-o o-F",   //
                              "  | |  ",   //
                              "  o-o  "})
                            .measure();
  EXPECT_TRUE(m.solved);
  EXPECT_EQ(m.wayLength, 7);
  EXPECT_EQ(m.turns, 4);
  EXPECT_EQ(m.cells, 10);
  EXPECT_EQ(m.junctions, 2);
  EXPECT_EQ(m.deadEnds, 2);
  EXPECT_EQ(m.difficulty, hundredth(std::log2(1 + 7 + 4) + std::log2(1 + 2) + std::log2(1 + 1 + 1)));
}

TEST(ABranch, WeighsAllThatLiesInIt) {
  const MazeMeasure m = Plan({"S-o-F    ",  //
                              "  |      ",  //
                              "o-o-o-o  ",  //
                              "|        ",  //
                              "o        "})
                            .measure();
  EXPECT_EQ(m.junctions, 1);
  EXPECT_EQ(m.deadEnds, 2);
  // Five cells, the turns down, to the left, to the right and down again.
  EXPECT_EQ(m.difficulty, hundredth(std::log2(1 + 3) + std::log2(1 + 5 + 4)));
}

TEST(APart, ThatNoWayLeadsToCountsAsCarvedAlone) {
  const MazeMeasure m = Plan({"S-F o-o-o"}).measure();
  EXPECT_EQ(m.cells, 2);
  EXPECT_EQ(m.carved, 5);
  EXPECT_EQ(m.deadEnds, 0);
}

TEST(Ends, WithoutAWayBetweenThemAreNoSolvedMaze) {
  EXPECT_FALSE(Plan({"S-o F-o"}).measure().solved);
  EXPECT_FALSE(Plan({"S-o-o-o"}).measure().solved) << "no finish";
}

TEST(AnUnderpass, LeadsStraightOnToTheMouthThatClosesIt) {
  const Text lines = {"    o    ",  //
                      "    |    ",  //
                      "S-o o o-F",  //
                      "    |    ",  //
                      "    o    "};
  const MazeMeasure m = Plan(lines, MazeKind::threeD).measure();
  EXPECT_TRUE(m.solved);
  EXPECT_EQ(m.underpasses, 1);
  EXPECT_EQ(m.wayLength, 4) << "what it passes under is not of the way";
  EXPECT_EQ(m.cells, 4);
  EXPECT_EQ(m.carved, 7);
  EXPECT_EQ(m.deadEnds, 0) << "a mouth is no dead end";
  EXPECT_EQ(m.difficulty, hundredth(std::log2(1 + 4 + 2)));
  EXPECT_FALSE(Plan(lines).measure().solved) << "a regular maze has none";
}

TEST(AnUnderpass, PassesTheMouthsOfAnotherOnItsWay) {
  const MazeMeasure m = Plan({"    o   o   o    ",   //
                              "    |   |   |    ",   //
                              "S-o o-o o o-o o-F",   //
                              "        |        ",   //
                              "        o        "},  //
                             MazeKind::threeD)
                            .measure();
  EXPECT_TRUE(m.solved);
  EXPECT_EQ(m.wayLength, 4);
  EXPECT_EQ(m.underpasses, 1) << "the inner one is not to be reached";
}

TEST(AnUnderpass, LeadsUnderCorridorsAlone) {
  EXPECT_FALSE(Plan({"S-o   o-F"}, MazeKind::threeD).measure().solved);
  EXPECT_FALSE(Plan({"    o      ",  //
                     "    |      ",  //
                     "S-o o   o-F"},
                    MazeKind::threeD)
                   .measure()
                   .solved);
}

TEST(ACellThatIsClosedAllRound, IsAStopOfTheUnderpass) {
  const MazeMeasure m = Plan({"    o   o    ",  //
                              "    |   |    ",  //
                              "S-o o o o o-F"},
                             MazeKind::threeD)
                            .measure();
  EXPECT_TRUE(m.solved);
  EXPECT_EQ(m.underpasses, 2);
  EXPECT_EQ(m.wayLength, 5);
}

TEST(PipesCells, AreEveryOtherOne) {
  const MazeMeasure m =
      Plan({"S-o-o-o-F", "        |", "        o", "        |", "        o"}, MazeKind::pipe).measure();
  EXPECT_EQ(m.wayLength, 3);
  EXPECT_EQ(m.cells, 4);
  EXPECT_EQ(m.deadEnds, 1);
}

TEST(PipesCells, LieInLineWithTheStartWhateverTheWidthOfThePicture) {
  for (const int columns : {5, 6}) {
    for (const int row : {1, 2}) {
      const Bitmap picture = plainBitmap(columns * 10, 60, kPalette[15]);
      const ColourSets sets;
      const MazeWays ways(
          {picture, sets, kOutside, kOutside, MazeKind::pipe, 10, squareOf(1, row), squareOf(3, row)});
      ASSERT_EQ(ways.columns(), columns);
      for (int cell = 0; cell < ways.cells(); ++cell) {
        const bool inLine = cell % columns % 2 == 1 && cell / columns % 2 == row % 2;
        EXPECT_EQ(ways.isOfKind(cell), inLine) << columns << " columns, row " << row << ", cell " << cell;
      }
    }
  }
}

TEST(AMeasure, IsTheSameInEveryWallSize) {
  const Text lines = {"S-o-o", "  |  ", "o-o-F"};
  const MazeMeasure small = Plan(lines, MazeKind::regular, 5).measure();
  for (const int wall : {6, 17, 50}) {
    const MazeMeasure m = Plan(lines, MazeKind::regular, wall).measure();
    EXPECT_EQ(m.difficulty, small.difficulty) << wall;
    EXPECT_EQ(m.wayLength, 4) << wall;
  }
}

}  // namespace
}  // namespace gridwright::test
