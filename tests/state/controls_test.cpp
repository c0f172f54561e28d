#include "state/controls.h"

#include <gtest/gtest.h>

#include <set>

namespace gridwright::test {
namespace {

TEST(EveryControl, IsFoundByItsNameWhichStandsOnce) {
  std::set<std::string_view> names;
  for (std::size_t i = 0; i < kControlCount; ++i) {
    EXPECT_EQ(controlNamed(kControlRows[i].name), controlAt(i));
    names.insert(kControlRows[i].name);
  }
  EXPECT_EQ(names.size(), kControlCount);
  EXPECT_EQ(controlNamed("Check51"), std::nullopt);
  EXPECT_EQ(controlNamed("text2"), std::nullopt) << "names are spelled as they are";
}

TEST(TheButtonsOfTheTitle, HaveTheirCaptions) {
  const ControlModel controls;
  EXPECT_EQ(controls[ControlId::Command2].text, "Click to Begin");
  EXPECT_EQ(controls[ControlId::Command3].text, "Click to see examples and credits");
  EXPECT_EQ(controls[ControlId::Command7].text, "Click to Quit Program");
}

TEST(AtTheStart, EveryControlIsHiddenAndTheSlidesTimerRuns) {
  const ControlModel controls;
  for (std::size_t i = 0; i < kControlCount; ++i) EXPECT_FALSE(controls[controlAt(i)].visible);
  EXPECT_TRUE(controls[ControlId::Timer2].enabled);
  EXPECT_EQ(controls[ControlId::Timer2].interval, 10000);
  EXPECT_FALSE(controls[ControlId::Timer1].enabled);
  EXPECT_EQ(controls[ControlId::Timer1].interval, 5000);
}

TEST(TheSwatches, StandInThreeFamiliesOfSixteen) {
  EXPECT_EQ(classifySwatch(0), ControlId::Check1);
  EXPECT_EQ(classifySwatch(15), ControlId::Check16);
  EXPECT_EQ(drawingSwatch(0), ControlId::Check17);
  EXPECT_EQ(drawingSwatch(15), ControlId::Check32);
  EXPECT_EQ(mazeSwatch(0), ControlId::Check35);
  EXPECT_EQ(mazeSwatch(15), ControlId::Check50);
}

TEST(AChange, MovesTheRevisionAndTheSameValueDoesNot) {
  ControlModel controls;
  const auto before = controls.revision();
  controls.setVisible(ControlId::Text2, false);
  controls.setText(ControlId::Command2, "Click to Begin");
  controls.setCaption("");
  EXPECT_EQ(controls.revision(), before);
  controls.setText(ControlId::Text2, "12");
  EXPECT_GT(controls.revision(), before);
}

TEST(NewEntries, TakeTheChoiceAway) {
  ControlModel controls;
  controls.setEntries(ControlId::File5, {"a", "b"});
  controls.setSelected(ControlId::File5, 1);
  controls.setEntries(ControlId::File5, {"a"});
  EXPECT_EQ(controls[ControlId::File5].selected, -1);
}

TEST(StartingATimer, BeginsItsWaitOver) {
  ControlModel controls;
  const auto before = controls.timerStarts(ControlId::Timer1);
  controls.runTimer(ControlId::Timer1, true);
  controls.runTimer(ControlId::Timer1, true);
  EXPECT_EQ(controls.timerStarts(ControlId::Timer1), before + 2);
}

}  // namespace
}  // namespace gridwright::test
