#include "state/field_names.h"

#include <gtest/gtest.h>

#include <set>

#include "support/world.h"

namespace gridwright::test {
namespace {

int read(const World& w, std::string_view name) {
  const FieldName* field = fieldNamed(name);
  EXPECT_NE(field, nullptr) << name;
  return field == nullptr ? -12345 : field->read(w.program);
}

TEST(NoName, StandsTwice) {
  std::set<std::string_view> names;
  for (const FieldName& field : fieldNames()) EXPECT_TRUE(names.insert(field.name).second) << field.name;
  EXPECT_EQ(fieldNamed("nosuchfield"), nullptr);
  EXPECT_EQ(fieldNamed(""), nullptr);
}

TEST(Fields, TellTheirValuesAsTheVocabularyNumbersThem) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::quitToTitle;
  w.state.walkMode = WalkMode::back;
  w.state.walker.lastWalkMode = WalkMode::none;
  w.state.creationMode = CreationMode::user;
  w.state.patternState = PatternState::random;
  w.state.cur = {1, 2, 3, 4};
  w.state.start = {5, 6, 7, 8};
  w.state.finish = {-100, -100, -100, -100};
  w.state.panelOpen = true;
  w.state.nrefreshDue = true;
  EXPECT_EQ(read(w, "phase"), -6);
  EXPECT_EQ(read(w, "walkMode"), -1);
  EXPECT_EQ(read(w, "lastWalkMode"), -9);
  EXPECT_EQ(read(w, "creationMode"), -1);
  EXPECT_EQ(read(w, "patternState"), 3);
  EXPECT_EQ(read(w, "curLeft"), 1);
  EXPECT_EQ(read(w, "curTop"), 2);
  EXPECT_EQ(read(w, "curRight"), 3);
  EXPECT_EQ(read(w, "curBottom"), 4);
  EXPECT_EQ(read(w, "startBottom"), 8);
  EXPECT_EQ(read(w, "finishLeft"), -100);
  EXPECT_EQ(read(w, "panelOpen"), 1);
  EXPECT_EQ(read(w, "paused"), 0);
  EXPECT_EQ(read(w, "nrefreshSaved"), 1);
  EXPECT_EQ(read(w, "cursorColor"), 3);
  EXPECT_EQ(read(w, "mazeColor"), kWhite);
}

TEST(TheColourSlots, AreNumberedFromOne) {
  World w(drawing({"...", "..."}));
  EXPECT_EQ(read(w, "backgroundColors2"), kNavy);
  EXPECT_EQ(read(w, "borderColors1"), 300);
  EXPECT_EQ(read(w, "borderColors16"), kWhite);
  EXPECT_EQ(read(w, "backgroundColors16"), 331);
  EXPECT_EQ(read(w, "mazeColors7"), kWhite);
  EXPECT_EQ(read(w, "extraBackgroundColor"), 31744);
}

TEST(TheCanvas, HasItsPropertiesUnderTheirNames) {
  World w(drawing({"...", "..."}));
  EXPECT_EQ(read(w, "ScaleWidth"), 40);
  EXPECT_EQ(read(w, "ScaleHeight"), 30);
  EXPECT_EQ(read(w, "AutoRedraw"), 1);
  w.canvas.setBackColor(kGrey);
  EXPECT_EQ(read(w, "BackColor"), kGrey);
}

}  // namespace
}  // namespace gridwright::test
