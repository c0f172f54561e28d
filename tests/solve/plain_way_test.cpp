#include "solve/plain_way.h"

#include <gtest/gtest.h>

#include "solve/trail.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// Cells joined by hand, ends of which the pixels tell.
struct Plain : World {
  Plain(int columns, int rows, MazeKind kind)
      : World(drawing(
            Text(static_cast<std::size_t>(rows), std::string(static_cast<std::size_t>(columns), '.')))) {
    state.mazeKind = kind;
    state.startColor = kFuchsia - 1;
    state.finishColor = kRed - 1;
  }
  void carve(const Square& from, const Square& to) {
    canvas.fill(from.left, from.top, to.right, to.bottom, kWhite);
  }
  void ends(const Square& start, const Square& finish) {
    state.start = start;
    state.finish = finish;
    canvas.fill(start, state.startColor);
    canvas.fill(finish, state.finishColor);
  }
  [[nodiscard]] bool trailAt(int x, int y) const { return canvas.point(x, y) == state.startColor; }
};

TEST(ThePlainWay, IsTheShortestOfSeveralAndEndsBeforeTheFinish) {
  Plain p(4, 3, MazeKind::regular);
  p.carve(squareOf(1, 1), squareOf(4, 1));
  p.carve(squareOf(1, 3), squareOf(4, 3));
  p.carve(squareOf(1, 1), squareOf(1, 3));
  p.carve(squareOf(4, 1), squareOf(4, 3));
  p.ends(squareOf(1, 1), squareOf(4, 2));
  EXPECT_TRUE(takePlainWay(p.program));
  EXPECT_EQ(p.state.solver.pathLength, 4);
  EXPECT_EQ(p.state.cur, squareOf(4, 2));
  EXPECT_EQ(p.state.prev, squareOf(4, 1));
  EXPECT_TRUE(p.trailAt(25, 15));
  EXPECT_TRUE(p.trailAt(45, 15));
  EXPECT_FALSE(p.trailAt(15, 25)) << "the other way round is longer";
  EXPECT_FALSE(p.trailAt(25, 35));
}

TEST(ThePlainWay, PassesUnderACorridorOutOfSight) {
  Plain p(5, 3, MazeKind::threeD);
  p.carve(squareOf(1, 2), squareOf(2, 2));
  p.carve(squareOf(3, 1), squareOf(3, 3));
  p.carve(squareOf(4, 2), squareOf(5, 2));
  p.ends(squareOf(1, 2), squareOf(4, 2));
  EXPECT_TRUE(takePlainWay(p.program));
  EXPECT_EQ(p.state.solver.pathLength, 2);
  EXPECT_EQ(p.state.prev, p.state.cur) << "so that entering the finish strokes nothing over the corridor";
  for (int x = 25; x <= 28; ++x) EXPECT_TRUE(p.trailAt(x, 25)) << x;
  for (int x = 29; x <= 40; ++x) EXPECT_FALSE(p.trailAt(x, 25)) << x;
  for (int x = 41; x <= 45; ++x) EXPECT_TRUE(p.trailAt(x, 25)) << x;
}

TEST(ThePlainWay, IsNoneBetweenRegionsNorToAFinishBesideTheCells) {
  Plain apart(4, 2, MazeKind::regular);
  apart.carve(squareOf(1, 1), squareOf(2, 1));
  apart.carve(squareOf(4, 1), squareOf(4, 2));
  apart.ends(squareOf(1, 1), squareOf(4, 2));
  const Bitmap before = apart.canvas.image();
  EXPECT_FALSE(takePlainWay(apart.program));
  EXPECT_TRUE(samePicture(apart.canvas.image(), before));

  Plain beside(4, 1, MazeKind::regular);
  beside.carve(squareOf(1, 1), squareOf(4, 1));
  beside.ends(squareOf(1, 1), squareOf(3, 1).moved(4, 0));
  EXPECT_FALSE(takePlainWay(beside.program));
}

TEST(ThePlainWay, IsLookedForOnThePictureWithoutATrail) {
  Plain p(3, 1, MazeKind::regular);
  p.carve(squareOf(1, 1), squareOf(3, 1));
  p.ends(squareOf(1, 1), squareOf(3, 1));
  p.desktop.putFile("drawing2.bmp", p.canvas.image());
  p.canvas.fill(squareOf(2, 1), p.state.startColor);
  EXPECT_TRUE(takePlainWay(p.program));
  EXPECT_FALSE(p.trailAt(21, 11)) << "what the walk left is gone";
  EXPECT_TRUE(p.trailAt(25, 15));
}

}  // namespace
}  // namespace gridwright::test
