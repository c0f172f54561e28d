#include "maze/regular_step.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

/// A walker in the second cell of the second row, about to step to the right.
struct Step {
  explicit Step(const Text& cells, WalkMode mode = WalkMode::carve) : w(drawing(cells)) {
    w.state.cur = w.state.prev = q;
    w.state.walkMode = mode;
    w.state.stepCode = step::right;
    w.state.deltaX = 10;
    w.state.deltaY = 0;
  }
  StepResult make() {
    hopOverBorder(w.program);
    leadFromDelta(w.state);
    return regularStep(w.program);
  }
  World w;
  const Square q = squareOf(2, 2);
};

TEST(AStep, GoesOntoAFreeCell) {
  Step s({"#####", "#*..#", "#####"});
  EXPECT_EQ(s.make(), StepResult::done);
  EXPECT_EQ(s.w.state.cur, squareOf(3, 2));
  EXPECT_EQ(s.w.state.walkMode, WalkMode::carve);
}

TEST(AStepToACellOfWhichOnePixelIsNotBackground, IsRefused) {
  for (int y = 20; y <= 29; ++y) {
    for (int x = 30; x <= 39; ++x) {
      Step s({"#####", "#*..#", "#####"});
      s.w.canvas.fill(x, y, x, y, kBlue);
      s.make();
      ASSERT_EQ(s.w.state.cur, s.q) << x << ", " << y;
    }
  }
}

TEST(ACarvingStep, IsRefusedOnCarvedGroundBorderAndBeyondTheEdge) {
  for (const char ground : {'*', '#', 'c'}) {
    Step s({"#####", "#*" + std::string(1, ground) + ".#", "#####"});
    s.make();
    EXPECT_EQ(s.w.state.cur, s.q) << ground;
  }
  Step s({"##", "#*"});
  s.make();
  EXPECT_EQ(s.w.state.cur, s.q);
}

TEST(AWalkBack, GoesOverCarvedGroundStraightThroughTheWalls) {
  Step s({"#####", "#**.#", "#####"}, WalkMode::back);
  s.w.canvas.fill(29, 20, 30, 29, kNavy);  // the wall between the two
  s.make();
  EXPECT_EQ(s.w.state.cur, squareOf(3, 2));
  EXPECT_EQ(s.w.state.walkMode, WalkMode::back);
}

TEST(AWalkBack, EndsOnFreeGround) {
  Step s({"#####", "#*..#", "#####"}, WalkMode::back);
  EXPECT_EQ(s.make(), StepResult::done);
  EXPECT_EQ(s.w.state.walkMode, WalkMode::carve);
}

TEST(AWalkBackOnItsOwnRandomSteps, GivesThePatternsBackAndPaintsAtOnce) {
  Step s({"#####", "#*..#", "#####"}, WalkMode::back);
  s.w.state.patternState = PatternState::random;
  s.w.state.randomStepsTemporary = true;
  EXPECT_EQ(s.make(), StepResult::walkBackEnded);
  EXPECT_EQ(s.w.state.patternState, PatternState::choose);
  EXPECT_EQ(s.w.state.patternDirection, step::right) << "the step's own, drawn anew by the next choice";
  EXPECT_FALSE(s.w.state.randomStepsTemporary);
  EXPECT_EQ(s.w.state.walkMode, WalkMode::carve);
}

TEST(RandomStepsForGood, StayWhenAWalkBackEnds) {
  Step s({"#####", "#*..#", "#####"}, WalkMode::back);
  s.w.state.patternState = PatternState::random;
  EXPECT_EQ(s.make(), StepResult::done);
  EXPECT_EQ(s.w.state.patternState, PatternState::random);
}

TEST(AWalkBack, HopsOverOneCellOfBorderToCarvedGround) {
  Step s({"#####", "#*#*#", "#####"}, WalkMode::back);
  s.make();
  EXPECT_EQ(s.w.state.cur, squareOf(4, 2));
  EXPECT_EQ(s.w.state.deltaX, 0);
}

TEST(AHop, LandsOnCarvedGroundOnlyAndNeverOverTwoCells) {
  for (const Text& cells : {Text{"######", "#*#..#", "######"}, Text{"######", "#*##*#", "######"}}) {
    Step s(cells, WalkMode::back);
    s.make();
    EXPECT_EQ(s.w.state.cur, s.q);
  }
}

TEST(ACarvingWalker, DoesNotHop) {
  Step s({"#####", "#*#*#", "#####"});
  s.make();
  EXPECT_EQ(s.w.state.cur, s.q);
}

TEST(AHop, IsForTheRegularKindAlone) {
  Step s({"#####", "#*#*#", "#####"}, WalkMode::back);
  s.w.state.mazeKind = MazeKind::threeD;
  hopOverBorder(s.w.program);
  EXPECT_EQ(s.w.state.cur, s.q);
}

TEST(AHop, IsDownAndUpToo) {
  Step s({"###", "#*#", "###", "#*#", "###"}, WalkMode::back);
  s.w.state.deltaX = 0;
  s.w.state.deltaY = 10;
  hopOverBorder(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(2, 4));
  s.w.state.deltaY = -10;
  hopOverBorder(s.w.program);
  EXPECT_EQ(s.w.state.cur, squareOf(2, 2));
}

TEST(TheLeadingEdge, IsTheSideThatGoesFirst) {
  ProgramState s;
  s.cur = {11, 21, 18, 28};
  for (const auto& [dx, dy, x, y] : {std::array{10, 0, 18, 21}, std::array{-10, 0, 11, 21},
                                     std::array{0, 10, 11, 28}, std::array{0, -10, 11, 21}}) {
    s.deltaX = dx;
    s.deltaY = dy;
    leadFromDelta(s);
    EXPECT_EQ(s.walker.leadX, x);
    EXPECT_EQ(s.walker.leadY, y);
  }
}

}  // namespace
}  // namespace gridwright::test
