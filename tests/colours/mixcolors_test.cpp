#include "colours/mixcolors.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr Colour kNavyMaze = 0x101010, kGreenMaze = 0x202020, kMaroonMaze = 0x303030;

/// Three cells by three of navy, the walker in the middle; three backgrounds with a maze colour each.
struct Mixing {
  Mixing() : w(drawing({"...", "...", "..."})) {
    w.program.colours.setMaze(1, kNavyMaze);
    w.program.colours.setMaze(2, kGreenMaze);
    w.program.colours.setMaze(4, kMaroonMaze);
    w.state.cur = w.state.prev = q;
    w.state.mazeColor = kWhite;
  }
  void dot(int x, int y, Colour colour) { w.canvas.fill(x, y, x, y, colour); }
  /// The pixel that each side is judged by.
  void left(Colour c) { dot(q.left - 1, q.top, c); }
  void right(Colour c) { dot(q.right + 1, q.top, c); }
  void top(Colour c) { dot(q.left, q.top - 1, c); }
  void bottom(Colour c) { dot(q.left, q.bottom + 1, c); }
  void allSides(Colour l, Colour r, Colour t, Colour b) { left(l), right(r), top(t), bottom(b); }
  void carve(Colour c) { w.canvas.fill(q, c); }

  World w;
  const Square q = squareOf(2, 2);
};

TEST(ASquareOnASingleBackground, TakesThatBackgroundsMazeColour) {
  Mixing m;
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kNavyMaze);
  m.carve(kMaroon);
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kMaroonMaze);
}

TEST(ACarvedSquareWhoseFourSidesDiffer, KeepsTheLastMazeColour) {
  Mixing m;
  m.carve(kNavyMaze);
  m.allSides(kNavy, kGreen, kMaroon, kBlue);
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kWhite);
}

TEST(ASquareUnderTheCursor, SetsABaseThatNoPaletteColourMatches) {
  Mixing m;
  m.carve(kCursorColour);
  mixcolors(m.w.program);
  EXPECT_TRUE(m.w.state.walker.cellBaseKnown);
  EXPECT_EQ(m.w.state.walker.cellBaseColor, kCursorColour);
  EXPECT_EQ(m.w.state.mazeColor, kWhite);
}

TEST(AColourOutsideThePalette, LeavesTheMazeColourAlone) {
  Mixing m;
  m.carve(kDarkGreen);
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kWhite);
}

TEST(TwoSidesThatAgreeOnGround, GiveItsMazeColour) {
  for (int pair = 0; pair < 6; ++pair) {
    Mixing m;
    m.carve(kNavyMaze);
    m.allSides(kBlue, kLime, kRed, kGrey);
    if (pair < 3) m.left(kGreen);
    if (pair == 0 || pair == 3 || pair == 4) m.right(kGreen);
    if (pair == 1 || pair == 3 || pair == 5) m.top(kGreen);
    if (pair == 2 || pair == 4 || pair == 5) m.bottom(kGreen);
    mixcolors(m.w.program);
    EXPECT_EQ(m.w.state.mazeColor, kGreenMaze) << "pair " << pair;
  }
}

TEST(ASideThatHasTheSquaresOwnColour, DecidesNothing) {
  Mixing m;
  m.carve(kNavyMaze);
  m.allSides(kNavyMaze, kNavyMaze, kRed, kGrey);
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kWhite);
}

struct Ring {
  const char* side;
  int side1, side2;  // sides that agree: 0 left, 1 right, 2 top, 3 bottom
  int dx, dy;        // the second-ring sample, from the square's left and top, at wall size 10
};
// The square is 8 pixels wide: its right is left + 7, so one wall size beyond is left + 17.
const std::vector<Ring> kRings = {
    {"left", 0, 3, 17, 0},   {"left", 0, 3, 0, -10},  {"left", 0, 3, 0, 17},
    {"right", 1, 3, -10, 0}, {"right", 1, 3, 0, -10}, {"right", 1, 3, 0, 17},
    {"top", 2, 3, -10, 0},   {"top", 2, 3, 17, 0},    {"top", 2, 3, 0, 17},
};
const std::vector<Ring> kPreviousRings = {
    {"left", 0, 3, 10, 0},   {"left", 0, 3, 0, -10},  {"left", 0, 3, 0, 10},
    {"right", 1, 3, -10, 0}, {"right", 1, 3, 0, -10}, {"right", 1, 3, 0, 10},
    {"top", 2, 3, -10, 0},   {"top", 2, 3, 0, 10},    {"top", 2, 3, 10, 0},
};

void setSide(Mixing& m, int side, Colour c) {
  if (side == 0) m.left(c);
  if (side == 1) m.right(c);
  if (side == 2) m.top(c);
  if (side == 3) m.bottom(c);
}

TEST(AMazeColourOnTwoSides, CountsOnlyWhenTheSecondRingHasItToo) {
  for (const Ring& ring : kRings) {
    for (const bool backed : {false, true}) {
      Mixing m;
      m.carve(kNavyMaze);
      m.allSides(kBlue, kLime, kRed, kGrey);
      setSide(m, ring.side1, kGreenMaze);
      setSide(m, ring.side2, kGreenMaze);
      if (backed) m.dot(m.q.left + ring.dx, m.q.top + ring.dy, kGreenMaze);
      mixcolors(m.w.program);
      EXPECT_EQ(m.w.state.mazeColor, backed ? kGreenMaze : kWhite)
          << ring.side << " " << ring.dx << " " << ring.dy;
    }
  }
}

TEST(ThePreviousSquare, IsJudgedByTheColourReadOnArrivalAndANearerRing) {
  for (const Ring& ring : kPreviousRings) {
    for (const bool backed : {false, true}) {
      Mixing m;
      m.w.state.walker.cellColorAtEntry = kNavyMaze;  // the square itself shows something else by now
      m.allSides(kBlue, kLime, kRed, kGrey);
      setSide(m, ring.side1, kGreenMaze);
      setSide(m, ring.side2, kGreenMaze);
      if (backed) m.dot(m.q.left + ring.dx, m.q.top + ring.dy, kGreenMaze);
      mixcolors2(m.w.program);
      EXPECT_EQ(m.w.state.mazeColor, backed ? kGreenMaze : kWhite)
          << ring.side << " " << ring.dx << " " << ring.dy;
    }
  }
}

TEST(ThePreviousSquare, TakesTheGroundItWasCarvedFrom) {
  Mixing m;
  m.carve(kNavyMaze);
  m.w.state.walker.cellColorAtEntry = kMaroon;
  mixcolors2(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kMaroonMaze);
}

TEST(BackgroundsWithOneMazeColour, AreToldApartByTheirOwnColourAndNotByTheMazes) {
  Mixing m;
  m.w.program.colours.setAllMaze(kNavyMaze);
  m.w.program.colours.setMaze(4, kMaroonMaze);
  m.carve(kGreen);
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kNavyMaze);
  m.carve(kMaroon);
  mixcolors(m.w.program);
  EXPECT_EQ(m.w.state.mazeColor, kMaroonMaze);
}

}  // namespace
}  // namespace gridwright::test
