#include "solve/rfinish.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom(6, ".......");

TEST(ResettingTheEndsInADrawing, UnsetsBoth) {
  World w(drawing(kRoom));
  w.state.phase = Phase::drawing;
  w.state.start = squareOf(2, 2);
  w.state.finish = squareOf(3, 3);
  rfinish(w.program);
  EXPECT_EQ(w.state.start, (Square{-1, -1, -1, -1}));
  EXPECT_EQ(w.state.finish, (Square{-1, -1, -1, -1}));
}

TEST(ResettingTheEndsWhilePlacing, PutsThemOnTheFirstAndTheLastCarvedCellAndPaintsThem) {
  World w(drawing({".......", "..***..", "..***..", "......."}));
  w.state.phase = Phase::placing;
  w.state.startColor = kFuchsia - 1;
  w.state.finishColor = kGrey + 1;
  w.state.start = squareOf(4, 2);
  w.state.finish = squareOf(4, 3);
  w.state.ends.startMazeColor = w.state.ends.finishMazeColor = kWhite;
  w.canvas.fill(w.state.start, w.state.startColor);
  w.canvas.fill(w.state.finish, w.state.finishColor);
  rfinish(w.program);
  EXPECT_EQ(w.state.start, squareOf(3, 2));
  EXPECT_EQ(w.state.finish, squareOf(5, 3));
  EXPECT_EQ(w.state.walker.walkStart, squareOf(3, 2)) << "the origin follows the start";
  EXPECT_EQ(w.canvas.point(31, 21), w.state.startColor);
  EXPECT_EQ(w.canvas.point(51, 31), w.state.finishColor);
  EXPECT_EQ(w.canvas.point(41, 21), kWhite) << "the old places are maze again";
  EXPECT_EQ(w.canvas.point(41, 31), kWhite);
  EXPECT_EQ(w.state.ends.savedFinish, squareOf(5, 3));
}

TEST(ResettingTheEndsAtAnyMomentOfAComputersMaze, LeavesAMazeThatEndsWithBothEndsCarved) {
  for (int pumps = 0; pumps < 60; ++pumps) {
    World w;
    w.desktop.limit = 2'000'000;
    w.begin(drawing(kRoom));
    w.desktop.menu(Item::cgenerate);
    w.desktop.menu(Item::newmaze);
    w.desktop.untilPhase(Phase::making);
    w.desktop.pumpsPass(pumps);
    w.desktop.menu(Item::rfinish);
    w.desktop.untilPhase(Phase::placing);
    w.desktop.menu(Item::solvemaze);
    w.desktop.untilPhase(Phase::solved);
    ASSERT_EQ(w.run(), "") << "after " << pumps << " pumps";
    EXPECT_GT(w.state.start.left, 0);
    EXPECT_GT(w.state.finish.left, 0);
  }
}

}  // namespace
}  // namespace gridwright::test
