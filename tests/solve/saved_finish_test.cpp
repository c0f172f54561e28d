#include "solve/saved_finish.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

struct Searching : World {
  Searching() : World(drawing({"**..", "##.."})) {
    state.phase = Phase::solving;
    state.finishMethod = FinishMethod::largest;
    state.finish = {-100, -100, -100, -100};
    state.ends.savedFinish = squareOf(2, 1);
  }
  bool restored() {
    restoreSavedFinish(program);
    return state.finish == state.ends.savedFinish;
  }
};

TEST(AFinishTakenOffForASearch, ComesBackWhenTheMazeIsLeft) {
  Searching carved;
  EXPECT_TRUE(carved.restored());
  Searching background;
  background.state.ends.savedFinish = squareOf(3, 2);
  EXPECT_TRUE(background.restored());
}

TEST(AFinishTakenOff, StaysOffWhereTheSavedOneIsNoGroundOrNothingWasSearched) {
  Searching border;
  border.state.ends.savedFinish = squareOf(1, 2);
  EXPECT_FALSE(border.restored());
  Searching found;
  found.state.finishFound = true;
  EXPECT_FALSE(found.restored());
  Searching byHand;
  byHand.state.finishMethod = FinishMethod::user;
  EXPECT_FALSE(byHand.restored());
  Searching placing;
  placing.state.phase = Phase::placing;
  EXPECT_FALSE(placing.restored());
}

}  // namespace
}  // namespace gridwright::test
