#include "solve/ends_after_maze.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

struct After : World {
  explicit After(const Text& cells, CreationMode mode = CreationMode::computer) : World(drawing(cells)) {
    state.creationMode = mode;
    state.start = state.walker.walkStart = squareOf(1, 1);
    state.cur = squareOf(2, 1);
    state.walker.lastStop = squareOf(3, 1);
  }
};

TEST(AFinishOnCarvedGround, StaysWhereItIs) {
  After a({"****", "***."});
  a.state.finish = squareOf(3, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(3, 2));
}

TEST(AFinishThatWasNeverCarved, FallsBackOnTheLastDeadEndInComputerMode) {
  After a({"****", "***."});
  a.state.finish = squareOf(4, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(3, 1));
}

TEST(AFinishThatWasNeverCarved, FallsBackOnTheWalkersOwnSquareInUserMode) {
  After a({"****", "***."}, CreationMode::user);
  a.state.finish = squareOf(4, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(2, 1));
}

TEST(AUsersFinish, FallsBackOnTheLastDeadEndWhenTheWalkerStandsOnTheStart) {
  After a({"****", "***."}, CreationMode::user);
  a.state.cur = squareOf(1, 1);
  a.state.finish = squareOf(4, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(3, 1));
}

TEST(AFallbackThatIsNoGround, GivesWayToTheFarCornerSearch) {
  After a({"*****", "****.", "####."});
  a.state.walker.lastStop = squareOf(1, 3);  // border
  a.state.finish = squareOf(5, 3);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(4, 2)) << "the first carved cell from the far corner";
}

TEST(AFallbackOnTheStart, GivesWayToTheFarCornerSearch) {
  After a({"*****", "***..", "...#."});
  a.state.walker.lastStop = squareOf(1, 1);
  a.state.finish = squareOf(5, 3);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(3, 2));
}

TEST(TheFarCornerSearch, PassesOverTheStart) {
  After a({"....", ".**."});
  a.state.start = a.state.walker.walkStart = squareOf(3, 2);
  a.state.cur = a.state.walker.lastStop = squareOf(3, 2);
  a.state.finish = squareOf(4, 1);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(2, 2));
}

TEST(WithNothingElseCarved, TheFallbacksSquareStays) {
  After a({"*...", "...."});
  a.state.cur = squareOf(1, 1);
  a.state.walker.lastStop = squareOf(3, 2);
  a.state.finish = squareOf(4, 1);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.finish, squareOf(3, 2));
}

TEST(AStartThatWasNeverCarved, BecomesTheOrigin) {
  After a({".***", "****"});
  a.state.walker.walkStart = squareOf(2, 1);
  a.state.finish = squareOf(3, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.start, squareOf(2, 1));
}

TEST(AFinishTakenOff, CountsAsNotCarved) {
  for (const Square off : {Square{-100, -100, -100, -100}, Square{31, 21, 31, 28}, Square{31, 21, 38, 21}}) {
    After a({"****", "****"});
    a.state.finish = off;
    EXPECT_FALSE(standsOnCarved(a.program, off));
    makeEndsGood(a.program);
    EXPECT_EQ(a.state.finish.right - a.state.finish.left, 7);
  }
}

TEST(InThe3dKind, TheEightNeighboursOfTheFinishAreTriedFromTheRightAndBelowOn) {
  const std::array order = {std::pair{4, 4}, std::pair{4, 3}, std::pair{4, 2}, std::pair{3, 2},
                            std::pair{2, 2}, std::pair{2, 3}, std::pair{2, 4}, std::pair{3, 4}};
  for (std::size_t first = 0; first < order.size(); ++first) {
    After a({".....", ".....", ".....", ".....", "....."});
    a.state.mazeKind = MazeKind::threeD;
    a.state.cur = squareOf(1, 1);
    for (std::size_t i = first; i < order.size(); ++i)
      a.canvas.fill(squareOf(order[i].first, order[i].second), kWhite);
    a.state.finish = squareOf(3, 3);
    makeEndsGood(a.program);
    EXPECT_EQ(a.state.finish, squareOf(order[first].first, order[first].second)) << first;
  }
}

TEST(InThe3dKind, TheEightNeighboursOfTheStartAreTriedFromTheLeftAndAboveOn) {
  const std::array order = {std::pair{2, 2}, std::pair{2, 3}, std::pair{2, 4}, std::pair{3, 4},
                            std::pair{4, 4}, std::pair{4, 3}, std::pair{4, 2}, std::pair{3, 2}};
  for (std::size_t first = 0; first < order.size(); ++first) {
    After a({".....", ".....", ".....", ".....", "....*"});
    a.state.mazeKind = MazeKind::threeD;
    a.state.cur = squareOf(1, 1);
    for (std::size_t i = first; i < order.size(); ++i)
      a.canvas.fill(squareOf(order[i].first, order[i].second), kWhite);
    a.state.start = squareOf(3, 3);
    a.state.finish = squareOf(5, 5);
    makeEndsGood(a.program);
    EXPECT_EQ(a.state.start, squareOf(order[first].first, order[first].second)) << first;
  }
}

TEST(TheCoverColours, AreReadUnderTheEndsAndKeptWhereAnEndShowsItself) {
  After a({"****", "****"});
  a.state.finish = squareOf(3, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.ends.startMazeColor, kWhite);
  EXPECT_EQ(a.state.ends.underFinish, kWhite);
  a.program.colours.setMaze(3, kFuchsia);
  a.state.startColor = kFuchsia;
  a.canvas.fill(a.state.start, kFuchsia);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.ends.startMazeColor, kWhite) << "the old value is kept";
  a.canvas.fill(a.state.finish, kRed);
  makeEndsGood(a.program);
  EXPECT_EQ(a.state.ends.finishMazeColor, kWhite) << "red is no maze colour";
}

TEST(TheWalkersSquare, IsBoxedInTheMazeColour) {
  After a({"****", "****"});
  a.canvas.fill(a.state.cur, kCursorColour);
  a.state.mazeColor = kWhite;
  a.state.finish = squareOf(3, 2);
  makeEndsGood(a.program);
  EXPECT_EQ(a.canvas.point(a.state.cur.left, a.state.cur.top), kWhite);
}

}  // namespace
}  // namespace gridwright::test
