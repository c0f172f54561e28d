#include "menus/panels.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(ANumberInABox, IsReadAsAPersonMeansIt) {
  EXPECT_EQ(numberTyped("12"), 12);
  EXPECT_EQ(numberTyped("   12"), 12);
  EXPECT_EQ(numberTyped("+12"), 12);
  EXPECT_EQ(numberTyped("-3"), -3);
  EXPECT_EQ(numberTyped("12 pixels"), 12);
  EXPECT_EQ(numberTyped("1e9"), 1) << "the rest is ignored";
  EXPECT_EQ(numberTyped("12x34"), 12);
}

TEST(ABoxWithoutANumber, IsZero) {
  for (const char* text : {"", "   ", "abc", "-", "+", ".", "e9", "--3", "+-3"})
    EXPECT_EQ(numberTyped(text), 0) << text;
}

TEST(AHugeNumber, IsHeldAtTheLimits) {
  EXPECT_GE(numberTyped("99999999999999999999999999"), 1'000'000);
  EXPECT_LE(numberTyped("-99999999999999999999999999"), -1'000'000);
}

TEST(AFraction, IsRoundedDown) {
  EXPECT_EQ(numberTyped("7.9"), 7);
  EXPECT_EQ(numberTyped("-7.1"), -8);
}

TEST(APanel, HoldsTheProgramAndTakesTheKeyboard) {
  World w(drawing({"...", "..."}));
  openPanel(w.program, kImportPanel, "cat");
  EXPECT_TRUE(w.state.panelOpen);
  EXPECT_TRUE(w.state.paused);
  for (const ControlId id : {ControlId::Text8, ControlId::Label11, ControlId::File5}) {
    EXPECT_TRUE(w.program.controls[id].visible);
    EXPECT_TRUE(w.program.controls[id].enabled);
  }
  EXPECT_EQ(w.program.controls[ControlId::Text8].text, "cat");
  EXPECT_EQ(w.program.controls.focus(), ControlId::Text8);

  closePanel(w.program, kImportPanel);
  EXPECT_FALSE(w.state.panelOpen);
  EXPECT_FALSE(w.state.paused);
  for (const ControlId id : {ControlId::Text8, ControlId::Label11, ControlId::File5}) {
    EXPECT_FALSE(w.program.controls[id].visible);
  }
  EXPECT_EQ(w.program.controls.focus(), std::nullopt);
}

TEST(APanelsBox, OffersTheChosenEntryElseTheLastNameElseTheFirst) {
  World w(drawing({"...", "..."}));
  ControlModel& controls = w.program.controls;
  EXPECT_EQ(nameToOffer(w.program, ControlId::File5, "last"), "") << "nothing is there";
  controls.setEntries(ControlId::File5, {"a.bmp", "b.bmp"});
  EXPECT_EQ(nameToOffer(w.program, ControlId::File5, ""), "a.bmp");
  EXPECT_EQ(nameToOffer(w.program, ControlId::File5, "last"), "last");
  controls.setSelected(ControlId::File5, 1);
  EXPECT_EQ(nameToOffer(w.program, ControlId::File5, "last"), "b.bmp");
}

}  // namespace
}  // namespace gridwright::test
