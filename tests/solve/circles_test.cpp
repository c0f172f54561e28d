#include "solve/circles.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

/// A walk in the start cell.
ProgramState inStart() {
  ProgramState s;
  s.start = s.cur = s.prev = squareOf(2, 2);
  s.solver.probeX = 22;
  s.solver.probeY = 21;
  s.deltaX = 1;
  return s;
}

TEST(AWalkInTheStart, StandsThereAsBeforeOnlyWhenAllThatSteersItIsTheSame) {
  ProgramState s = inStart();
  EXPECT_FALSE(standsInStartAsBefore(s));
  for (int* value : {&s.solver.probeX, &s.solver.probeY, &s.deltaX, &s.deltaY, &s.solver.underpassLock}) {
    ++*value;
    EXPECT_FALSE(standsInStartAsBefore(s));
    --*value;
    EXPECT_TRUE(standsInStartAsBefore(s));
  }
}

TEST(AWalkElsewhere, IsNotNoted) {
  ProgramState s = inStart();
  s.cur = squareOf(3, 2);
  EXPECT_FALSE(standsInStartAsBefore(s));
  EXPECT_FALSE(standsInStartAsBefore(s));
  EXPECT_TRUE(s.solver.seenInStart.empty());
}

/// Passes until a circle of this length, met after some passes outside it, is found.
int passesUntilFound(int outside, int circle) {
  ProgramState s = inStart();
  Repetition repetition;
  for (int pass = 0; pass < 10'000; ++pass) {
    s.solver.probeX = pass < outside ? -1 - pass : (pass - outside) % circle;
    if (repetition.isComplete(s)) return pass;
  }
  return -1;
}

TEST(ACircle, IsFoundWithinAFewRoundsOfIt) {
  for (const int outside : {0, 1, 5, 100}) {
    for (const int circle : {1, 2, 3, 50, 64, 333}) {
      const int found = passesUntilFound(outside, circle);
      EXPECT_GE(found, circle) << outside << ", " << circle;
      EXPECT_LE(found, 3 * (outside + circle) + 3) << outside << ", " << circle;
    }
  }
}

/// In the start, on a Canvas of ten by eight cells.
ProgramState inStartOfTen() {
  ProgramState s = inStart();
  s.wallWidth = s.wallHeight = 10;
  s.canvasWidth = 100;
  s.canvasHeight = 80;
  return s;
}

TEST(ATrailLongerThanThePictureHasCells, IsNothingNew) {
  for (const int grows : {1, -1}) {
    ProgramState s = inStartOfTen();
    s.finishMethod = FinishMethod::largest;
    Repetition repetition;
    int pass = 0;
    for (; pass < 5'000 && !repetition.isComplete(s); ++pass) s.solver.pathLength += grows;
    EXPECT_GE(pass, 2 * 10 * 8) << "each cell counts twice, over and under";
    EXPECT_LT(pass, 5'000) << "a search that circles along the edge ends for want of cells";
  }
}

TEST(ALongerTrail, IsSomethingNewToASearchAlone) {
  for (const bool searching : {false, true}) {
    ProgramState s = inStartOfTen();
    s.finishMethod = searching ? FinishMethod::largest : FinishMethod::user;
    Repetition repetition;
    bool found = false;
    for (int pass = 0; pass < 100; ++pass) {
      ++s.solver.pathLength;
      found = found || repetition.isComplete(s);
    }
    EXPECT_EQ(found, !searching);
  }
}

}  // namespace
}  // namespace gridwright::test
