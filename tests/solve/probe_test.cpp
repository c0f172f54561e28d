#include "solve/probe.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

struct Probe : World {
  explicit Probe(const Bitmap& picture) : World(picture) {
    state.startColor = kFuchsia;
    state.finishColor = kRed;
    state.cur = squareOf(2, 2);
  }
  void put(int x, int y, int dx, int dy) {
    state.solver.probeX = x;
    state.solver.probeY = y;
    state.deltaX = dx;
    state.deltaY = dy;
  }
  [[nodiscard]] std::array<int, 4> now() const {
    return {state.solver.probeX, state.solver.probeY, state.deltaX, state.deltaY};
  }
};

TEST(AProbeAtAWall, TurnsToThePositiveDirectionOfTheOtherAxisFirst) {
  Probe p(drawing({"....", "....", "...."}));
  p.canvas.fill(squareOf(2, 2), kWhite);
  p.put(27, 21, 1, 0);
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{28, 21, 0, 1}));
}

TEST(AProbeInACorner, NegatesWhereThePositiveDirectionIsWallToo) {
  Probe p(drawing({"....", "....", "...."}));
  p.canvas.fill(squareOf(2, 2), kWhite);
  p.put(28, 27, 0, 1);
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{28, 28, -1, 0})) << "right is wall, so left";
  p.put(22, 28, -1, 0);
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{21, 28, 0, -1})) << "down is wall, so up";
  p.put(21, 22, 0, -1);
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{21, 21, 1, 0}));
}

TEST(AProbeAlongItsWall, GoesAllTheWayRoundALoneCell) {
  Probe p(drawing({"....", "....", "...."}));
  p.canvas.fill(squareOf(2, 2), kWhite);
  p.put(22, 21, 1, 0);
  for (int step = 0; step < 28; ++step) probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{22, 21, 1, 0}));
  EXPECT_EQ(p.state.cur, squareOf(2, 2));
}

TEST(AProbeThatLosesItsWall, TurnsAroundTheCorner) {
  Probe p(drawing({"....", "....", "...."}));
  p.canvas.fill(21, 21, 38, 28, kWhite);  // two cells, joined
  p.canvas.fill(31, 11, 38, 28, kWhite);  // and one above the second
  p.put(29, 21, 1, 0);
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{30, 21, 1, 0})) << "(30, 20) is wall";
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{31, 21, 0, -1})) << "no wall beside it, nor beside the pixel below: up";
  probeStep(p.program);
  EXPECT_EQ(p.now(), (std::array{31, 20, 0, -1})) << "along the wall at its left";
}

TEST(WallLost, KeepsThePositiveDirectionWhereTheFiveAheadAreNotAllWay) {
  // Open all round the probe but walled two below, so that the second five have a wall in them.
  Probe p(drawing({"....", "....", "...."}));
  p.canvas.fill(20, 20, 29, 26, kWhite);
  p.put(24, 24, 1, 0);
  probeStep(p.program);
  EXPECT_EQ(p.state.solver.probeX, 25);
  EXPECT_EQ(p.state.deltaX, 0);
  EXPECT_EQ(p.state.deltaY, -1) << "(25, 25) and its four neighbours are all way";
  p.put(24, 25, 1, 0);
  probeStep(p.program);
  EXPECT_EQ(p.state.deltaY, 1) << "(25, 27) is wall, so down it stays";
}

// The two tests of an axis are independent: one wall size on, and back again while the next square is
// not reached.
TEST(TheWallBetweenTwoSquares, CountsToTheLeftAndUpperOne) {
  Probe p(drawing({"....", ".***", "...."}));
  for (const auto& [x, column] : {std::pair{29, 2}, std::pair{30, 2}, std::pair{31, 3}}) {
    p.state.cur = squareOf(2, 2);
    p.put(x - 1, 25, 1, 0);
    probeStep(p.program);
    EXPECT_EQ(p.state.cur, squareOf(column, 2)) << x;
  }
  for (const auto& [y, row] : {std::pair{31, 3}, std::pair{30, 2}, std::pair{29, 2}, std::pair{28, 2}}) {
    p.state.cur = squareOf(2, 3);
    p.put(25, y + 1, 0, -1);
    probeStep(p.program);
    EXPECT_EQ(p.state.cur, squareOf(2, row)) << y;
  }
}

}  // namespace
}  // namespace gridwright::test
