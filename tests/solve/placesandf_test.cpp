#include "solve/placesandf.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {".....", ".....", "....."};

void place(World& w, const Text& cells = kRoom) {
  w.begin(drawing(cells));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
}

TEST(Placing, ShowsBothEndsOnePixelInsideTheirCellsInNudgedColours) {
  World w;
  place(w);
  w.desktop.look([](Program& p) {
    const ProgramState& s = p.state;
    EXPECT_EQ(s.startColor, kFuchsia - 1);
    EXPECT_EQ(s.finishColor, kGrey + 1);
    EXPECT_EQ(s.savedStartColor, 0) << "not kept before the placing ends";
    for (const auto& [square, colour] :
         {std::pair{s.start, s.startColor}, std::pair{s.finish, s.finishColor}}) {
      for (int y = square.top; y <= square.bottom; ++y) {
        for (int x = square.left; x <= square.right; ++x) ASSERT_EQ(p.canvas.point(x, y), colour);
      }
    }
    EXPECT_EQ(p.controls.caption(), "Gridwright-(placing start and finish)");
    EXPECT_TRUE(p.canvas.autoRedraw());
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.lastPace, Pace::idle) << "it waits for a person";
}

TEST(PlacingAgainAfterSolving, ShowsTheMazeWithoutTheAnswer) {
  World w;
  place(w);
  Bitmap placed;
  w.desktop.look([&](Program& p) { placed = p.canvas.image(); });
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.savedStartColor, kFuchsia) << "saved end colours are always the plain form";
    EXPECT_EQ(p.state.savedFinishColor, kGrey);
  });
  w.desktop.menu(Item::sandf);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.pumpsPass(1);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(samePicture(p.canvas.image(), placed));
    EXPECT_EQ(p.state.startColor, kFuchsia - 1);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(AnEndThatMoves, GivesItsCellTheMazeColourBack) {
  World w;
  place(w);
  Square oldStart{};
  Square oldFinish{};
  w.desktop.act([&](Program& p) {
    oldStart = p.state.start;
    oldFinish = p.state.finish;
    p.state.ends.underStart = p.state.ends.underFinish = kWhite;  // as the key reads it
    p.state.start = squareOf(2, 2);
    p.state.finish = squareOf(3, 3);
  });
  w.desktop.pumpsPass(1);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.pixels().allCarved(oldStart.left, oldStart.top, oldStart.right, oldStart.bottom));
    EXPECT_TRUE(p.pixels().allCarved(oldFinish.left, oldFinish.top, oldFinish.right, oldFinish.bottom));
    EXPECT_EQ(p.canvas.point(21, 21), p.state.startColor);
    EXPECT_EQ(p.canvas.point(38, 38), p.state.finishColor);
    EXPECT_EQ(p.state.ends.savedFinish, squareOf(3, 3));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(WithAnOptionOtherThanZero, PlacingIsLeftAtOnceAndTheFinishIsMinusAHundred) {
  World w(drawing({"****", "****"}));
  w.state.phase = Phase::placing;
  w.state.finishMethod = FinishMethod::largest;
  w.state.start = squareOf(1, 1);
  w.state.finish = squareOf(3, 2);
  w.state.ends.finishMazeColor = kWhite;
  placesandf(w.program);
  EXPECT_EQ(w.state.phase, Phase::solving);
  EXPECT_EQ(w.state.finish, (Square{-100, -100, -100, -100}));
  EXPECT_EQ(w.canvas.point(31, 21), kWhite);
  EXPECT_EQ(w.desktop.pumps, 0);
}

TEST(PlacingOnAMazeWithFewerThanThreeCarvedCells, DoesNothing) {
  World w(drawing({"**..", "...."}));
  w.state.cur = squareOf(1, 1);
  sandf(w.program);
  EXPECT_EQ(w.state.phase, Phase::making);
}

TEST(TheWalkersCell, CountsAsCarvedForPlacing) {
  World w(drawing({"**..", "...."}));
  w.state.cur = squareOf(3, 1);
  sandf(w.program);
  EXPECT_EQ(w.state.phase, Phase::placing);
  EXPECT_EQ(w.state.mazeStage, Phase::making);
}

TEST(Quitting, UndoesNothingThatTheTitleWouldNotReset) {
  World w;
  place(w);
  w.desktop.menu(Item::quit2);
  w.desktop.untilPhase(Phase::title);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.startColor, kFuchsia); });
  EXPECT_EQ(w.run(), "");
}

TEST(GoingBackToTheDrawingFromPlacing, UndoesTheNudge) {
  World w;
  place(w);
  w.desktop.menu(Item::backtodrawing);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(2);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.startColor, kFuchsia);
    EXPECT_EQ(p.state.finishColor, kGrey);
  });
  EXPECT_EQ(w.run(), "");
}

}  // namespace
}  // namespace gridwright::test
