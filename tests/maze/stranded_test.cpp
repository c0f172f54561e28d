#include "maze/stranded.h"

#include <gtest/gtest.h>

#include <array>

#include "maze/finish_reached.h"
#include "maze/finishmaking.h"
#include "maze/makemaze2.h"
#include "maze/walk_paint.h"
#include "session/maze_commands.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// The next full pass of a maze in which nothing was carved for as long as it takes.
struct Stranded {
  explicit Stranded(const Text& cells, Square finish = squareOf(1, 1)) : w(drawing(cells)) {
    w.state.creationMode = CreationMode::computer;
    w.state.finish = finish;
    w.state.cur = w.state.prev = squareOf(1, 1);
    w.state.walkMode = WalkMode::back;
    w.state.mazeColor = kWhite;
    const auto columns = static_cast<std::int64_t>(cells[0].size());
    w.state.walker.passesSinceCarved = 100 * columns * static_cast<std::int64_t>(cells.size()) - 1;
    w.state.scanX = w.state.scanY = 77;
  }
  World w;
};

TEST(AStrandedWalker, IsPutOnCarvedGroundBesideTheFirstFreeCell) {
  Stranded s({"**##*", "####.", "####."});
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(5, 1));
  EXPECT_EQ(s.w.state.prev, s.w.state.cur) << "so no join is painted";
  EXPECT_EQ(s.w.state.walkMode, WalkMode::back);
  EXPECT_EQ(s.w.state.walker.passesSinceCarved, 0);
}

TEST(TheCarvedNeighbour, IsLookedForLeftRightUpDown) {
  Stranded all({"#*#", "*.*", "#*#"}, {});
  rescueIfStranded(all.w.program);
  EXPECT_EQ(all.w.state.cur, squareOf(1, 2));
  Stranded noLeft({"#*#", "#.*", "#*#"}, {});
  rescueIfStranded(noLeft.w.program);
  EXPECT_EQ(noLeft.w.state.cur, squareOf(3, 2));
  Stranded vertical({"#*#", "#.#", "#*#"}, {});
  rescueIfStranded(vertical.w.program);
  EXPECT_EQ(vertical.w.state.cur, squareOf(2, 1));
}

TEST(TheFinish, IsNoCarvedNeighbourAsLongAsThereIsAnother) {
  Stranded s({"####", "*.#.", "###*"}, squareOf(1, 2));
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(4, 3));
}

TEST(OnlyTheFinishBesideTheFreeGround, IsLeftForItThisOnce) {
  Stranded s({"####", "#*.#", "####"}, squareOf(2, 2));
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.prev, squareOf(2, 2));
  EXPECT_EQ(s.w.state.cur, squareOf(3, 2));
  EXPECT_EQ(s.w.state.deltaX, 10) << "one wall size towards the cell";
  EXPECT_EQ(s.w.state.deltaY, 0);
  EXPECT_EQ(s.w.state.walkMode, WalkMode::carve) << "entry painting joins the two";
  EXPECT_EQ(s.w.state.scanX, 1) << "the fill cursor is reset";
}

TEST(FreeGroundBesideNothingCarved, BeginsATreeOfItsOwnWithoutAJoin) {
  Stranded s({"*###", "####", "##..", "##.."});
  s.w.state.patternState = PatternState::random;
  s.w.state.randomStepsTemporary = true;
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(3, 3));
  EXPECT_EQ(s.w.state.prev, s.w.state.cur);
  EXPECT_EQ(s.w.state.walkMode, WalkMode::carve);
  EXPECT_EQ(s.w.state.patternState, PatternState::choose) << "temporary random steps are released";
  EXPECT_TRUE(s.w.program.pixels().allCarved(31, 31, 38, 38)) << "the square is boxed";
  EXPECT_EQ(s.w.state.scanX, 1);
}

TEST(ANewTree, BeginsOnTheFinishOnlyWhenThereIsNoOtherFreeCell) {
  Stranded two({"*###", "###.", "##.#"}, squareOf(4, 2));
  rescueIfStranded(two.w.program);
  EXPECT_EQ(two.w.state.cur, squareOf(3, 3));
  Stranded one({"*###", "###.", "####"}, squareOf(4, 2));
  rescueIfStranded(one.w.program);
  EXPECT_EQ(one.w.state.cur, squareOf(4, 2));
}

TEST(ANewTree, TakesTheMazeColourOfItsOwnGround) {
  Stranded s({"*###", "####", "##,,"});
  s.w.program.colours.setMaze(2, kRed);
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.mazeColor, kRed);
  EXPECT_EQ(s.w.canvas.point(31, 31), kRed);
}

TEST(WithoutAnyFreeCell, NothingHappensAndTheCountGoesOn) {
  Stranded s({"**##", "####", "####"});
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(1, 1));
  EXPECT_EQ(s.w.state.walker.passesSinceCarved, 1200);
}

/// The rescue after as long a wait again, in which nothing was carved.
void waitOnceMore(Stranded& s, std::int64_t cells) {
  s.w.state.walker.passesSinceCarved = 100 * cells - 1;
  rescueIfStranded(s.w.program);
}

TEST(ACellThatTheRescueCouldNotHelp, IsGivenUpAtTheNextOneWhichGoesOnWithTheNextCell) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::threeD}) {
    Stranded s({"*.###", "#####", "###*.", "#####", ".####"}, {});
    s.w.state.mazeKind = kind;
    rescueIfStranded(s.w.program);
    EXPECT_EQ(s.w.state.cur, squareOf(1, 1));
    EXPECT_TRUE(isFreeForMaze(s.w.program, 21, 11)) << "one rescue gives nothing up";
    waitOnceMore(s, 25);
    EXPECT_EQ(s.w.state.cur, squareOf(4, 3));
    EXPECT_FALSE(isFreeForMaze(s.w.program, 21, 11)) << "nor does it hold the fill cursor back";
    EXPECT_TRUE(isFreeForMaze(s.w.program, 51, 31));
    waitOnceMore(s, 25);
    EXPECT_FALSE(isFreeForMaze(s.w.program, 51, 31));
    EXPECT_EQ(s.w.state.cur, squareOf(1, 5)) << "the last step of the rescue passes over both";
    EXPECT_EQ(s.w.state.walkMode, WalkMode::carve);
  }
}

TEST(AWalkerThatTheFinishSentAwayFromTheCell, IsHeldThereTheNextTimeBeforeTheCellIsGivenUp) {
  Stranded s({"##*##", "#*.##", "#####", "#####", "###*."}, squareOf(3, 1));
  s.w.state.walker.walkStart = squareOf(4, 5);
  const auto walkOntoFinish = [&] {
    s.w.state.cur = s.w.state.finish;
    EXPECT_FALSE(finishReached(s.w.program));
  };
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(2, 2));
  walkOntoFinish();
  EXPECT_EQ(s.w.state.cur, squareOf(4, 5)) << "the origin, as ever";
  waitOnceMore(s, 25);
  EXPECT_EQ(s.w.state.cur, squareOf(2, 2));
  EXPECT_TRUE(isFreeForMaze(s.w.program, 31, 21));
  for (int times = 0; times < 3; ++times) {
    walkOntoFinish();
    EXPECT_EQ(s.w.state.cur, squareOf(2, 2));
  }
  waitOnceMore(s, 25);
  EXPECT_FALSE(isFreeForMaze(s.w.program, 31, 21));
  EXPECT_EQ(s.w.state.cur, squareOf(4, 5)) << "beside the next";
}

TEST(ACellGivenUp, IsPassedOverAlsoWhereTheFinishWouldBeLeftForIt) {
  Stranded s({"####", "#*.#", "#.##"}, squareOf(2, 2));
  s.w.state.walker.givenUpCells.insert({31, 21});
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(2, 3));
}

TEST(ACellGivenUp, IsNoPartOfAnIsland) {
  Stranded s({"*####", "###..", "#####"});
  s.w.state.mazeKind = MazeKind::threeD;
  s.w.state.walker.givenUpCells = {{41, 21}, {51, 21}};
  EXPECT_FALSE(beginTreeOnIsland(s.w.program));
  s.w.state.walker.givenUpCells.erase({51, 21});
  EXPECT_TRUE(beginTreeOnIsland(s.w.program));
  EXPECT_EQ(s.w.state.cur, squareOf(5, 2));
}

TEST(AnythingCarvedAfterARescue, KeepsItsCellFromBeingGivenUp) {
  const std::array<void (*)(World&), 2> ways = {[](World& w) {
                                                  w.state.prev = squareOf(5, 1);
                                                  w.state.cur = squareOf(5, 2);
                                                  paintJoin(w.program);
                                                },
                                                [](World& w) { boxSquare(w.program, squareOf(5, 3)); }};
  for (const auto carve : ways) {
    Stranded s({"*.##*", "####.", "####."}, {});
    rescueIfStranded(s.w.program);
    ASSERT_EQ(s.w.state.cur, squareOf(1, 1));
    carve(s.w);
    waitOnceMore(s, 15);
    EXPECT_TRUE(isFreeForMaze(s.w.program, 21, 11));
    EXPECT_EQ(s.w.state.cur, squareOf(1, 1)) << "the same cell is helped again";
  }
}

TEST(WhatTheRescueGaveUp, IsForgottenAtEveryStartAndRestart) {
  const std::array<void (*)(Program&), 4> restarts = {makemaze2, newmaze, nrefresh, create3d};
  for (const auto restart : restarts) {
    Stranded s({"*.##*", "####.", "####."}, {});
    rescueIfStranded(s.w.program);
    waitOnceMore(s, 15);
    ASSERT_FALSE(isFreeForMaze(s.w.program, 21, 11));
    ASSERT_TRUE(s.w.state.walker.help.has_value());
    s.w.program.pictures.save("drawing1.bmp", s.w.canvas.image());
    s.w.program.pictures.save("drawing1b.bmp", s.w.canvas.image());
    restart(s.w.program);
    EXPECT_TRUE(isFreeForMaze(s.w.program, 21, 11));
    EXPECT_FALSE(s.w.state.walker.help.has_value());
    EXPECT_EQ(s.w.state.walker.passesSinceCarved, 0);
  }
}

TEST(OnePassTooFew, ChangesNothing) {
  Stranded s({"**##*", "####.", "####."});
  --s.w.state.walker.passesSinceCarved;
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(1, 1));
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(5, 1));
}

TEST(AUsersMaze, IsLeftAsItIs) {
  Stranded s({"**##*", "####.", "####."});
  s.w.state.creationMode = CreationMode::user;
  rescueIfStranded(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(1, 1));
}

}  // namespace
}  // namespace gridwright::test
