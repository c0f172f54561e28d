#include "solve/trail.h"

#include <gtest/gtest.h>

#include <array>

#include "support/world.h"

namespace gridwright::test {
namespace {

/// Two carved cells with a passage between them, the walk moving from one into the other.
struct Trail : World {
  explicit Trail(Square from, Square to) : World(drawing({"....", "....", "....", "...."})) {
    state.startColor = kFuchsia;
    state.finishColor = kRed;
    state.start = squareOf(4, 4);
    state.finish = squareOf(4, 1);
    state.mazeColor = kWhite;
    state.prev = from;
    state.cur = to;
    canvas.fill(std::min(from.left, to.left), std::min(from.top, to.top), std::max(from.right, to.right),
                std::max(from.bottom, to.bottom), kWhite);
  }
};

TEST(AWayPixel, IsAnEndOrCarved) {
  World w(drawing({"....", "...."}));
  w.state.startColor = kFuchsia;
  w.state.finishColor = kRed;
  for (const auto& [colour, way] : {std::pair{kFuchsia, true}, std::pair{kRed, true}, std::pair{kWhite, true},
                                    std::pair{kNavy, false}, std::pair{kBlue, false}}) {
    w.canvas.fill(12, 12, 12, 12, colour);
    EXPECT_EQ(isWay(w.program, 12, 12), way) << colour;
  }
  EXPECT_FALSE(isWay(w.program, -1, 0));
}

TEST(TheCentre, IsHalfAWallSizeLessOneFromTheCorner) {
  ProgramState s;
  s.wallWidth = s.wallHeight = 10;
  EXPECT_EQ(centreX(s, squareOf(2, 3)), 25);
  EXPECT_EQ(centreY(s, squareOf(2, 3)), 35);
  s.wallWidth = s.wallHeight = 5;
  EXPECT_EQ(centreX(s, squareOf(2, 3, 5)), 12);
}

TEST(AStroke, GoesFromCentreToCentreWithBothEndsIncluded) {
  Trail t(squareOf(2, 2), squareOf(3, 2));
  Bitmap expected = t.canvas.image();
  for (int x = 25; x <= 35; ++x) pixelAt(expected, x, 25) = kFuchsia;
  updateTrail(t.program);
  EXPECT_TRUE(samePicture(t.canvas.image(), expected));
  EXPECT_EQ(t.state.solver.pathLength, 1);
}

TEST(AWalkThatRetraces, TakesTheStrokeBackAndCountsOneLess) {
  for (const auto& to : {squareOf(2, 1), squareOf(2, 3), squareOf(1, 2), squareOf(3, 2)}) {
    Trail t(squareOf(2, 2), to);
    const Bitmap bare = t.canvas.image();
    t.state.solver.pathLength = 7;
    updateTrail(t.program);
    ASSERT_EQ(t.state.solver.pathLength, 8);
    t.state.prev = to;
    t.state.cur = squareOf(2, 2);
    updateTrail(t.program);
    EXPECT_EQ(t.state.solver.pathLength, 7);
    EXPECT_EQ(t.state.solver.trailPaint, kWhite);
    EXPECT_TRUE(samePicture(t.canvas.image(), bare)) << "no stub is left";
  }
}

TEST(AWalkThatDidNotChangeItsCell, CountsAndPaintsNothing) {
  Trail t(squareOf(2, 2), squareOf(2, 2));
  const Bitmap before = t.canvas.image();
  t.state.solver.pathLength = 4;
  updateTrail(t.program);
  EXPECT_EQ(t.state.solver.pathLength, 4);
  EXPECT_TRUE(samePicture(t.canvas.image(), before));
}

TEST(ARetracedCellOfAnotherColour, IsRefilledInItsOwn) {
  constexpr Colour kOther = 0x123456;
  Trail t(squareOf(3, 2), squareOf(2, 2));
  t.program.colours.setMaze(2, kOther);
  t.canvas.fill(squareOf(3, 2), kOther);    // the cell that is left lies in another background
  t.canvas.fill(25, 25, 35, 25, kFuchsia);  // the trail
  updateTrail(t.program);
  EXPECT_EQ(t.state.mazeColor, kWhite);
  for (int y = 21; y <= 28; ++y) {
    for (int x = 31; x <= 38; ++x) ASSERT_EQ(t.canvas.point(x, y), kOther) << x << ", " << y;
  }
}

struct Move {
  const char* name;
  int column, row;                     // of the cell that the walk goes to, from (2, 2)
  int middleX, middleY, sideX, sideY;  // where the passage is read
  int dx, dy;                          // direction of the repair, two pixels long
};

TEST(APassageOfAnotherColour, IsRepairedWhereTheStrokeWentThroughIt) {
  constexpr Colour kOther = 0x123456;
  // The cell gone to is at its corner (l, t); its right and bottom are l + 7 and t + 7.
  constexpr auto kMoves = std::to_array<Move>({
      {"down", 2, 3, 25, 30, 21, 30, 0, -1},
      {"up", 2, 1, 25, 19, 21, 19, 0, 1},
      {"right", 3, 2, 30, 25, 30, 21, -1, 0},
      {"left", 1, 2, 19, 25, 19, 21, 1, 0},
  });
  for (const Move& m : kMoves) {
    Trail t(squareOf(2, 2), squareOf(m.column, m.row));
    t.program.colours.setMaze(2, kOther);
    const int acrossX = m.dx != 0 ? 0 : 1;
    const int acrossY = m.dy != 0 ? 0 : 1;
    // Both wall pixels of the passage in the other colour, from side to side.
    for (int depth = 0; depth < 2; ++depth) {
      const int x = m.sideX + depth * m.dx;
      const int y = m.sideY + depth * m.dy;
      t.canvas.fill(x, y, x + 7 * acrossX, y + 7 * acrossY, kOther);
    }
    const Bitmap bare = t.canvas.image();
    const Square to = squareOf(m.column, m.row);
    t.canvas.fill(25, 25, centreX(t.state, to), centreY(t.state, to), kFuchsia);
    updateTrail(t.program);
    EXPECT_TRUE(samePicture(t.canvas.image(), bare)) << m.name;
  }
}

TEST(ThePassageOfTwoColours, IsRepairedInTheOneBesideTheCellThatIsEntered) {
  constexpr Colour kOther = 0x123456, kThird = 0x654321;
  constexpr auto kMoves = std::to_array<Move>({
      {"down", 2, 3, 25, 30, 21, 30, 0, -1},
      {"up", 2, 1, 25, 19, 21, 19, 0, 1},
      {"right", 3, 2, 30, 25, 30, 21, -1, 0},
      {"left", 1, 2, 19, 25, 19, 21, 1, 0},
  });
  for (const Move& m : kMoves) {
    Trail t(squareOf(2, 2), squareOf(m.column, m.row));
    t.program.colours.setMaze(2, kOther);
    t.program.colours.setMaze(3, kThird);
    const int acrossX = m.dx != 0 ? 0 : 7;
    const int acrossY = m.dy != 0 ? 0 : 7;
    t.canvas.fill(m.sideX, m.sideY, m.sideX + acrossX, m.sideY + acrossY, kOther);
    t.canvas.fill(m.sideX + m.dx, m.sideY + m.dy, m.sideX + m.dx + acrossX, m.sideY + m.dy + acrossY, kThird);
    const Square to = squareOf(m.column, m.row);
    t.canvas.fill(25, 25, centreX(t.state, to), centreY(t.state, to), kFuchsia);
    updateTrail(t.program);
    for (int depth = 0; depth < 2; ++depth)
      EXPECT_EQ(t.canvas.point(m.middleX + depth * m.dx, m.middleY + depth * m.dy), kOther) << m.name;
  }
}

TEST(AStrokeThroughAClosedCell, AsksForADistanceWhenLevelAndForNoneWhenUpright) {
  struct Walk {
    int columns, rows;  // gone, from (2, 2)
    bool level, upright;
  };
  for (const Walk& walk : {Walk{1, 0, false, false}, Walk{-1, 0, false, false}, Walk{2, 0, true, false},
                           Walk{-2, 0, true, false}, Walk{0, 1, false, true}, Walk{0, -1, false, true},
                           Walk{0, 2, false, true}, Walk{0, -2, false, true}, Walk{2, 1, true, true}}) {
    Trail t(squareOf(2, 2), squareOf(2, 2));
    t.state.cur = t.state.prev.moved(10 * walk.columns, 10 * walk.rows);
    strokeThroughClosedCell(t.program, kFuchsia);
    const std::string what = std::to_string(walk.columns) + ", " + std::to_string(walk.rows);
    EXPECT_EQ(t.canvas.point(21, 25) == kFuchsia, walk.level) << what;
    EXPECT_EQ(t.canvas.point(28, 25) == kFuchsia, walk.level) << what;
    EXPECT_EQ(t.canvas.point(25, 21) == kFuchsia, walk.upright) << what;
    EXPECT_EQ(t.canvas.point(25, 28) == kFuchsia, walk.upright) << what;
  }
}

TEST(TheEnds, AreNotTakenForTheMazeColour) {
  Trail t(squareOf(2, 2), squareOf(3, 2));
  t.canvas.fill(squareOf(3, 2), kFuchsia);
  updateTrail(t.program);
  EXPECT_EQ(t.state.mazeColor, kWhite);
}

}  // namespace
}  // namespace gridwright::test
