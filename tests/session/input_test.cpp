#include "session/input.h"

#include <gtest/gtest.h>

#include "menus/pump.h"
#include "session/main_loop.h"
#include "session/stages.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {"....", "....", "...."};

TEST(AMenuClick, DoesNothingForADisabledHiddenOrBusyProgram) {
  World w(drawing(kRoom));
  w.state.phase = Phase::drawing;
  input::menuClick(w.program, Item::solvemaze);
  EXPECT_EQ(w.state.phase, Phase::drawing);
  EXPECT_FALSE(w.state.keyBusy) << "a refused click takes nobody's turn";
  w.program.menus.setVisible(Item::newmaze, false);
  input::menuClick(w.program, Item::newmaze);
  EXPECT_EQ(w.state.phase, Phase::drawing);
  w.program.menus.setVisible(Item::newmaze, true);
  w.state.keyBusy = true;
  input::menuClick(w.program, Item::newmaze);
  EXPECT_EQ(w.state.phase, Phase::drawing);
  w.state.keyBusy = false;
  input::menuClick(w.program, Item::newmaze);
  EXPECT_EQ(w.state.phase, Phase::making);
  EXPECT_TRUE(w.state.keyBusy);
}

TEST(APump, FreesOneCommand) {
  World w(drawing(kRoom));
  w.state.keyBusy = true;
  w.desktop.act([](Program& p) { EXPECT_FALSE(p.state.keyBusy); });
  yield(w.program, Pace::working);
}

TEST(Housekeeping, TakesNoCommandAndFreesNone) {
  World w(drawing(kRoom));
  w.state.keyBusy = true;
  w.desktop.act([](Program&) { FAIL() << "commands wait for the next pump"; });
  housekeeping(w.program);
  EXPECT_TRUE(w.state.keyBusy);
  EXPECT_EQ(w.desktop.housekeeping, 1);
}

TEST(AButtonThatIsNotShown, DoesNothing) {
  World w(drawing(kRoom));
  w.state.phase = Phase::title;
  input::buttonClick(w.program, ControlId::Command2);
  EXPECT_EQ(w.state.phase, Phase::title);
  w.program.controls.show(ControlId::Command2);
  input::buttonClick(w.program, ControlId::Command2);
  EXPECT_EQ(w.state.phase, Phase::drawing);
  w.program.controls.show(ControlId::Command7);
  EXPECT_THROW(input::buttonClick(w.program, ControlId::Command7), ProgramEnd);
}

TEST(ABoxThatIsNotShown, TakesNoTextAndNoKeys) {
  World w(drawing(kRoom));
  input::textTyped(w.program, ControlId::Text2, "33");
  input::enterPressed(w.program, ControlId::Text2);
  EXPECT_EQ(w.program.controls[ControlId::Text2].text, "");
  EXPECT_EQ(w.state.wallWidth, 10);
}

TEST(AResize, IsFollowedAtTheTitleAndInDrawingOnlyAndNeverWhileMinimised) {
  for (int phase = -6; phase <= 4; ++phase) {
    World w(drawing(kRoom));
    w.state.phase = static_cast<Phase>(phase);
    input::resized(w.program, {200, 150});
    const bool follows = phase == -5 || phase == 0;
    EXPECT_EQ(w.canvas.scaleWidth(), follows ? 200 : 50) << phase;
  }
  World minimised(drawing(kRoom));
  minimised.state.phase = Phase::drawing;
  minimised.desktop.setWindowState(WindowState::minimised);
  input::resized(minimised.program, {200, 150});
  EXPECT_EQ(minimised.canvas.scaleWidth(), 50);
  World editing(drawing(kRoom));
  editing.state.phase = Phase::drawing;
  editing.state.editedPattern = 2;
  input::resized(editing.program, {200, 150});
  EXPECT_EQ(editing.canvas.scaleWidth(), 50);
}

TEST(AMinimisedWindow, IsNotFollowedByTheStagesThatBeginTheTitleAndTheDrawing) {
  for (const bool minimised : {false, true}) {
    for (const Stage stage : {Stage::title, Stage::drawing}) {
      World w(drawing(kRoom));
      w.state.phase = stage == Stage::title ? Phase::title : Phase::drawing;
      if (minimised) w.desktop.setWindowState(WindowState::minimised);
      w.desktop.setClient({200, 150});
      w.desktop.act([&](Program& p) {
        EXPECT_EQ(p.canvas.scaleWidth(), minimised ? 50 : 200);
        p.state.phase = Phase::quitToTitle;
      });
      EXPECT_EQ(runStage(w.program, stage), Stage::title);
    }
  }
}

}  // namespace
}  // namespace gridwright::test
