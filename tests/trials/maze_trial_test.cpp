// The short form of the thousands: tests/long/mazes.sh makes twenty thousand and more.
#include "trials/maze_trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "trials/thirty_drawings.h"

namespace gridwright::test {
namespace {

TEST(EachOfManyMazes, EndsAndIsSolvedWhereItsEndsAreJoined) {
  int joined = 0, refused = 0;
  for (int number = 0; number < 10 * kDrawingCount; ++number) {
    const MazeTrial trial = trialOf(21, number, 200);
    const TrialOutcome outcome = runTrial(trial);
    EXPECT_EQ(outcome.fault, "") << "maze " << number << ": " << trial.words();
    joined += outcome.joined;
    refused += outcome.refused;
  }
  EXPECT_GT(joined, 150);
  EXPECT_LT(refused, 100);
}

TEST(TheTrials, GoOverAllDrawingsKindsPatternsAndFinishes) {
  std::set<int> drawings, kinds, patterns, walls, finishes;
  int largest = 0;
  for (int number = 0; number < 3000; ++number) {
    const MazeTrial trial = trialOf(21, number, 1000);
    drawings.insert(trial.drawing);
    kinds.insert(static_cast<int>(trial.kind));
    patterns.insert(static_cast<int>(trial.patterns));
    walls.insert(trial.wall);
    finishes.insert(static_cast<int>(trial.finish));
    largest = std::max(largest, trial.size.width);
    EXPECT_GE(trial.size.height, 50);
  }
  EXPECT_EQ(drawings.size(), 30U);
  EXPECT_EQ(kinds.size(), 3U);
  EXPECT_EQ(patterns.size(), 4U);
  EXPECT_EQ(walls.size(), 46U) << "from 5 to 50";
  EXPECT_EQ(finishes.size(), 4U);
  EXPECT_EQ(largest, 1000);
}

TEST(ATrial, IsTheSameEachTime) {
  const MazeTrial trial = trialOf(3, 8, 150);
  const TrialOutcome one = runTrial(trial), again = runTrial(trial);
  EXPECT_GT(one.making, 0);
  EXPECT_EQ(one.making, again.making);
  EXPECT_EQ(one.solving, again.solving);
  EXPECT_EQ(trialOf(3, 8, 150).words(), trial.words());
}

}  // namespace
}  // namespace gridwright::test
