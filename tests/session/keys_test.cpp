#include "session/keys.h"

#include <gtest/gtest.h>

#include <set>

#include "menus/panels.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(ASecondKeyInTheSamePump, IsLost) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::drawing;
  input::keyDown(w.program, key::slash);
  input::keyDown(w.program, key::slash);
  EXPECT_TRUE(w.state.drawingOff);
  EXPECT_TRUE(w.state.keyBusy);
  w.state.keyBusy = false;
  input::keyDown(w.program, key::slash);
  EXPECT_FALSE(w.state.drawingOff);
}

TEST(AKeyUnderAPanel, IsLost) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::drawing;
  openPanel(w.program, kWallSizePanel, "10");
  input::keyDown(w.program, key::slash);
  EXPECT_FALSE(w.state.drawingOff);
  EXPECT_FALSE(w.state.keyBusy);
}

TEST(WhileABookIsPrinted, OnlyJAndTheArrowsOfAMazeGoOn) {
  World w(drawing({"...", "..."}));
  w.state.session.bookMode = 1;
  w.state.phase = Phase::drawing;
  dispatchKey(w.program, key::slash);
  EXPECT_FALSE(w.state.drawingOff);
  w.state.phase = Phase::making;
  w.state.walkMode = WalkMode::carve;
  dispatchKey(w.program, key::G);
  EXPECT_EQ(w.state.walkMode, WalkMode::carve);
  dispatchKey(w.program, key::left);
  EXPECT_EQ(w.state.patternDirection, step::left);
  dispatchKey(w.program, key::J);
  EXPECT_EQ(w.state.creationMode, CreationMode::computer);
}

TEST(APhaseWithoutKeys, IgnoresAllOfThem) {
  for (const Phase phase : {Phase::title, Phase::quitToTitle, Phase::patternRequest, Phase::solved}) {
    World w(drawing({"...", "..."}));
    w.state.phase = phase;
    const Square cur = w.state.cur;
    for (int code = 0; code < 256; ++code) dispatchKey(w.program, code);
    EXPECT_EQ(w.state.cur, cur);
    EXPECT_EQ(w.state.stepCode, step::none);
    EXPECT_FALSE(w.state.drawingOff);
    EXPECT_EQ(w.state.phase, phase);
  }
}

TEST(TheArrowsOfThePatternEditor, AskForTheirStepAndGTakesEffectOnce) {
  for (const auto& [code, wanted] :
       {std::pair{37, 1}, std::pair{39, 2}, std::pair{38, 3}, std::pair{40, 4}}) {
    World w(drawing({"...", "..."}));
    w.state.phase = Phase::patternEditing;
    dispatchKey(w.program, code);
    EXPECT_EQ(w.state.stepCode, wanted);
  }
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::patternEditing;
  w.state.walkMode = WalkMode::carve;
  dispatchKey(w.program, key::G);
  EXPECT_EQ(w.state.stepCode, 5);
  EXPECT_EQ(w.state.walkMode, WalkMode::back);
  w.state.stepCode = step::none;
  dispatchKey(w.program, key::G);
  EXPECT_EQ(w.state.stepCode, step::none);
}

}  // namespace
}  // namespace gridwright::test
