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

/// Passes until a walk round the same few pixels is found to go in a circle, its trail longer each time by
/// this.
int passesUntilFoundWith(bool searching, int circle, int longer) {
  ProgramState s = inStart();
  s.finishMethod = searching ? FinishMethod::largest : FinishMethod::user;
  Repetition repetition;
  for (int pass = 0; pass < 10'000; ++pass) {
    s.solver.probeX = pass % circle;
    s.solver.pathLength = pass / circle * longer;
    if (repetition.isComplete(s)) return pass;
  }
  return -1;
}

TEST(ALongerTrail, IsSomethingNewToASearchUntilItHasComeEightTimes) {
  for (const int circle : {2, 50, 333}) {
    EXPECT_LE(passesUntilFoundWith(false, circle, 1), 3 * circle + 3) << circle << ", without a search";
    EXPECT_LE(passesUntilFoundWith(true, circle, 0), 3 * circle + 3) << circle << ", as long as before";
    for (const int longer : {1, -1, 7}) {
      const int found = passesUntilFoundWith(true, circle, longer);
      EXPECT_GE(found, 8 * circle) << circle;
      EXPECT_LE(found, 24 * circle + 24) << circle;
    }
  }
}

}  // namespace
}  // namespace gridwright::test
