// Steps of the drawing where a maze, the title or a picture from elsewhere comes between.
#include <gtest/gtest.h>

#include "history/history.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/drawing_sitting.h"

namespace gridwright::test {
namespace {

/// A ground for a maze and a wall in it, each key a step.
void drawRoom(Sitting& s) {
  s.key(key::slash), s.key(key::period), s.key(key::D), s.key(key::S), s.key(key::S), s.key(key::slash);
  s.key(key::right), s.key(key::right);
}

TEST(ComingBackFromAMaze, IsNoStepAndTheStepsOfBeforeGoOn) {
  Sitting s;
  const auto before = s.see();
  drawRoom(s);
  const auto drawn = s.see();
  s.menu(Item::cgenerate), s.menu(Item::createreg);
  s.desktop.untilPhase(Phase::placing);
  s.menu(Item::backtodrawing);
  s.desktop.untilPhase(Phase::drawing);
  const auto back = s.see();
  for (int i = 0; i < 8; ++i) s.menu(Item::undo);
  const auto bottom = s.see();
  s.run();
  EXPECT_EQ(back->size.toUndo, drawn->size.toUndo);
  EXPECT_EQ(drawn->size.toUndo, 8U);
  EXPECT_TRUE(samePicture(back->image, drawn->image));
  EXPECT_TRUE(samePicture(bottom->image, before->image));
  EXPECT_EQ(bottom->values.cur, before->values.cur);
  EXPECT_EQ(bottom->size.toUndo, 0U);
}

/// A picture that is ready for a maze arrives from elsewhere.
void bring(Sitting& s) {
  const Bitmap picture = drawing({",,,,,,", ",,,,,,", ",,,,,,", ",,,,,,"});
  s.desktop.picturesElsewhere["/pictures/ready.png"] = {{picture, {}}, {}, {picture.width, picture.height}};
  s.act([](Program& p) { input::filesBrought(p, {"/pictures/ready.png"}); });
  s.pump(4);
}

TEST(APictureThatArrives, IsAStepOfItsOwnAmongKeys) {
  Sitting s;
  drawRoom(s);
  const auto before = s.see();
  bring(s);
  const auto after = s.see();
  s.key(key::L, KeyGo::soon);
  const auto stroke = s.see();
  s.menu(Item::undo), s.menu(Item::undo);
  const auto back = s.see();
  s.menu(Item::redo);
  const auto again = s.see();
  s.run();
  EXPECT_NE(after->plane, before->plane);
  EXPECT_EQ(after->size.toUndo, before->size.toUndo + 1);
  EXPECT_EQ(stroke->size.toUndo, before->size.toUndo + 2);
  EXPECT_EQ(*back, *before);
  EXPECT_EQ(*again, *after);
}

TEST(APictureTakenOverAMaze, IsOneStepAfterThoseOfTheDrawing) {
  Sitting s;
  drawRoom(s);
  const auto before = s.see();
  s.menu(Item::cgenerate), s.menu(Item::createreg);
  s.desktop.untilPhase(Phase::placing);
  bring(s);
  s.desktop.untilPhase(Phase::drawing);
  const auto after = s.see();
  s.menu(Item::undo);
  const auto back = s.see();
  s.run();
  EXPECT_EQ(after->size.toUndo, before->size.toUndo + 1);
  EXPECT_FALSE(samePicture(after->image, before->image));
  EXPECT_TRUE(samePicture(back->image, before->image));
  EXPECT_EQ(back->values.cur, before->values.cur);
}

TEST(AWallSizeChosenOverAMaze, IsAStepOfTheDrawing) {
  Sitting s;
  drawRoom(s);
  const auto drawn = s.see();
  s.menu(Item::cgenerate), s.menu(Item::createreg);
  s.desktop.untilPhase(Phase::making);
  s.menu(Item::changewallsize, [](Program& p) { p.menus.setVisible(Item::changewallsize, true); });
  s.enter(ControlId::Text2, "25");
  s.desktop.untilPhase(Phase::drawing);
  const auto other = s.see();
  s.menu(Item::undo);
  const auto back = s.see();
  s.run();
  EXPECT_EQ(other->values.wallWidth, 25);
  EXPECT_EQ(other->size.toUndo, drawn->size.toUndo + 1);
  EXPECT_TRUE(samePicture(back->image, drawn->image));
  EXPECT_EQ(back->values.wallWidth, 10);
  EXPECT_EQ(back->values.cur, drawn->values.cur);
}

TEST(TheTitle, IsTheEndOfAllSteps) {
  Sitting s;
  s.key(key::L);
  s.menu(Item::quit2);
  s.desktop.untilPhase(Phase::title);
  s.click(ControlId::Command2);
  s.desktop.untilPhase(Phase::drawing);
  const auto anew = s.see();
  s.run();
  EXPECT_EQ(anew->size.toUndo, 0U);
}
}  // namespace
}  // namespace gridwright::test
