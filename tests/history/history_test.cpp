// Steps of the drawing: what is one, what comes back with it, and what does not.
#include "history/history.h"

#include <gtest/gtest.h>

#include <memory>

#include "history/kept_values.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/drawing_sitting.h"

namespace gridwright::test {
namespace {

TEST(AStroke, IsTakenBackWithTheSquareAndDoneAgain) {
  Sitting s;
  const auto before = s.see();
  s.key(key::slash), s.key(key::period), s.key(key::slash);
  const auto ready = s.see();
  s.key(key::L);
  const auto after = s.see();
  s.menu(Item::undo);
  const auto back = s.see();
  s.menu(Item::redo);
  const auto again = s.see();
  for (int i = 0; i < 4; ++i) s.menu(Item::undo);
  const auto bottom = s.see();
  s.run();
  EXPECT_NE(after->plane, ready->plane);
  EXPECT_EQ(*back, *ready);
  EXPECT_EQ(*again, *after);
  EXPECT_EQ(*bottom, *before);
  EXPECT_EQ(bottom->size.toUndo, 0U);
}

TEST(AfterAnUndo, TheNextPassPaintsNothingAndTheOldOutlineIsGone) {
  Sitting s;
  s.key(key::L), s.key(key::L);
  const auto at = s.see();
  s.key(key::K);
  s.menu(Item::undo);
  s.pump(5);
  const auto back = s.see();
  s.run();
  EXPECT_EQ(*back, *at);
  EXPECT_TRUE(samePicture(back->shown, at->shown));
}

TEST(TheFirstPeriod, WhichPaintsWhereTheSquareStandsIsTakenBack) {
  Sitting s;
  s.key(key::L), s.menu(Item::undo);
  s.key(key::comma);
  const auto before = s.see();
  s.key(key::period);
  s.key(key::comma), s.key(key::period);
  const auto blot = s.see();
  for (int i = 0; i < 3; ++i) s.menu(Item::undo);
  const auto back = s.see();
  s.run();
  EXPECT_NE(blot->plane, before->plane);
  EXPECT_EQ(*back, *before);
}

TEST(AKeyHeldDown, IsOneStepHoweverLong) {
  Sitting s;
  const auto before = s.see();
  s.key(key::L);
  for (int i = 0; i < 6; ++i) s.key(key::L, KeyGo::held);
  const auto after = s.see();
  s.menu(Item::undo);
  const auto back = s.see();
  s.run();
  EXPECT_EQ(after->size.toUndo, 1U);
  EXPECT_EQ(*back, *before);
}

TEST(KeysCloseTogether, AreOneStepUnlessSomethingElseComesBetween) {
  Sitting s;
  s.key(key::L), s.key(key::K, KeyGo::soon), s.key(key::L, KeyGo::soon);
  const auto one = s.see();
  s.key(key::L);
  const auto two = s.see();
  s.menu(Item::showregions);
  s.act([](Program& p) { input::viewDismissed(p); });
  s.key(key::L, KeyGo::soon);
  const auto three = s.see();
  s.run();
  EXPECT_EQ(one->size.toUndo, 1U);
  EXPECT_EQ(two->size.toUndo, 2U);
  EXPECT_EQ(three->size.toUndo, 3U);
}

TEST(AFillAndAJump, AreStepsOfTheirOwnHoweverSoonTheyCome) {
  Sitting s;
  s.key(key::N), s.key(key::N, KeyGo::soon);
  const auto fills = s.see();
  s.key(key::L, KeyGo::soon), s.key(key::C, KeyGo::soon), s.key(key::L, KeyGo::soon);
  const auto jump = s.see();
  s.run();
  EXPECT_EQ(fills->size.toUndo, 2U);
  EXPECT_EQ(jump->size.toUndo, 5U);
}

TEST(AFilledScreen, IsEmptyAgainWhenTheFillIsTakenBack) {
  Sitting s;
  const auto before = s.see();
  s.key(key::N);
  const auto filled = s.see();
  s.menu(Item::undo);
  const auto back = s.see();
  s.menu(Item::redo);
  const auto again = s.see();
  s.run();
  EXPECT_NE(filled->plane, before->plane);
  EXPECT_EQ(*back, *before);
  EXPECT_EQ(*again, *filled);
}

TEST(WhatChangesNothing, IsNoStep) {
  Sitting s;
  s.key(key::J), s.key(key::G), s.key(250);
  s.menu(Item::turnsoff);
  s.menu(Item::choosew), s.click(ControlId::Command1);
  s.menu(Item::changewallsize, [](Program& p) { p.menus.setVisible(Item::changewallsize, true); });
  s.act([](Program& p) { input::escapePressed(p, ControlId::Text2); });
  s.key(key::slash), s.key(key::slash, KeyGo::soon);
  const auto seen = s.see();
  s.run();
  EXPECT_EQ(seen->size.toUndo, 0U);
}

TEST(AStepAfterAnUndo, LeavesNothingToDoAgain) {
  Sitting s;
  s.key(key::L), s.key(key::K);
  s.menu(Item::undo);
  const auto undone = s.see();
  s.key(key::S);
  const auto other = s.see();
  s.run();
  EXPECT_EQ(undone->size.toRedo, 1U);
  EXPECT_EQ(other->size.toRedo, 0U);
  EXPECT_EQ(other->size.toUndo, 2U);
}

TEST(TheColourEditor, IsOneStepFromOpeningToClosing) {
  Sitting s;
  const auto before = s.see();
  s.menu(Item::choosew);
  s.act([](Program& p) { input::swatchLeft(p, classifySwatch(3)); });
  s.act([](Program& p) { input::swatchRight(p, classifySwatch(5)); });
  s.act([](Program& p) { input::swatchLeft(p, classifySwatch(12)); });
  s.click(ControlId::Command1);
  const auto after = s.see();
  s.menu(Item::undo);
  const auto back = s.see();
  s.menu(Item::redo);
  const auto again = s.see();
  s.run();
  EXPECT_EQ(after->size.toUndo, 1U);
  EXPECT_NE(after->values, before->values);
  EXPECT_EQ(*back, *before);
  EXPECT_EQ(*again, *after);
}

struct Command {
  const char* name;
  void (*give)(Sitting&);
};
const auto kCommands = std::to_array<Command>({
    {"mirror mode", [](Sitting& s) { s.menu(Item::way4); }},
    {"drawing off", [](Sitting& s) { s.menu(Item::drawingoff); }},
    {"kind", [](Sitting& s) { s.menu(Item::create3d); }},
    {"make corridors", [](Sitting& s) { s.key(key::quote); }},
    {"new drawing of pipes", [](Sitting& s) { s.menu(Item::mazes3d); }},
    {"new drawing and new wall size",
     [](Sitting& s) {
       s.menu(Item::newwallsize);
       s.enter(ControlId::Text2, "17");
     }},
    {"new wall size",
     [](Sitting& s) {
       s.menu(Item::changewallsize, [](Program& p) { p.menus.setVisible(Item::changewallsize, true); });
       s.enter(ControlId::Text2, "17");
     }},
    {"jump", [](Sitting& s) { s.key(key::C); }},
    {"import",
     [](Sitting& s) {
       s.desktop.putFile("cat.bmp", drawing({"..##", "..,,"}));
       s.menu(Item::importdrawing);
       s.enter(ControlId::Text8, "cat");
     }},
    {"select color",
     [](Sitting& s) {
       s.menu(Item::selectcolor);
       s.act([](Program& p) { input::swatchLeft(p, drawingSwatch(2)); });
     }},
    {"Use of the panel",
     [](Sitting& s) {
       s.menu(Item::preparepicture);
       s.act([](Program& p) { input::preparedAccepted(p); });
     }},
});

TEST(EachOfTheseCommands, IsOneStepThatGoesAndComesBackWhole) {
  for (const Command& command : kCommands) {
    SCOPED_TRACE(command.name);
    Sitting s;
    s.key(key::slash), s.key(key::period), s.key(key::slash), s.key(key::L), s.key(key::K);
    const auto before = s.see();
    command.give(s);
    const auto after = s.see();
    s.menu(Item::undo);
    const auto back = s.see();
    s.menu(Item::redo);
    const auto again = s.see();
    s.run();
    EXPECT_EQ(after->size.toUndo, before->size.toUndo + 1);
    EXPECT_NE(*after, *before);
    EXPECT_EQ(*back, *before);
    EXPECT_EQ(*again, *after);
    EXPECT_EQ(back->caption, before->caption);
    EXPECT_EQ(again->caption, after->caption);
  }
}

TEST(StartAndFinish, StayWhereTheyAreWhenANewDrawingIsTakenBack) {
  Sitting s;
  s.key(key::L);
  s.act([](Program& p) { p.state.start = {11, 11, 18, 18}; });
  s.menu(Item::rmazes);
  s.menu(Item::undo);
  Square start{1, 1, 1, 1};
  s.look([&](Program& p) { start = p.state.start; });
  s.run();
  EXPECT_EQ(start, Square{});
}

TEST(SettingsAndPatterns, StayAsTheyAreWhenAStepIsTakenBackOrDoneAgain) {
  Sitting s;
  s.menu(Item::way4);
  s.menu(Item::leavetrail), s.menu(Item::cgenerate);
  s.look([](Program& p) { p.steps.install(MazeKind::regular, step::up, Steps(3, step::left)); });
  for (const Item item : {Item::undo, Item::redo}) {
    s.menu(item);
    s.look([](Program& p) {
      EXPECT_TRUE(p.state.trailOff);
      EXPECT_EQ(p.state.creationMode, CreationMode::computer);
      EXPECT_EQ(p.steps.steps(MazeKind::regular, step::up), Steps(3, step::left));
    });
  }
  s.run();
}

TEST(TheOldestSteps, GoWhenTheirBytesAreTooMany) {
  Sitting s;
  constexpr std::size_t kFew = 20'000;
  s.act([](Program& p) { beginHistory(p, kFew); });
  std::vector<std::shared_ptr<Seen>> seen;
  for (int i = 0; i < 60; ++i) {
    s.key(i % 2 == 0 ? key::L : key::J);
    seen.push_back(s.see());
  }
  for (int i = 0; i < 100; ++i) s.act([](Program& p) { input::menuClick(p, Item::undo); });
  const auto bottom = s.see();
  s.run();
  const std::size_t left = seen.back()->size.toUndo;
  EXPECT_GT(left, 5U);
  EXPECT_LT(left, 60U);
  for (const auto& at : seen) EXPECT_LE(at->size.bytes, kFew);
  EXPECT_EQ(*bottom, *seen.at(59 - left));
}

TEST(ASmallerWindow, ThatDrivesTheSquareAwayIsNoStep) {
  for (const bool afterUndo : {false, true}) {
    Sitting s;
    s.key(key::D), s.key(key::right), s.key(key::right), s.key(key::right), s.key(key::right);
    if (afterUndo) s.menu(Item::undo);
    const auto before = s.see();
    s.act([&](Program& p) {
      s.desktop.setClient({60, 60});
      input::resized(p, {60, 60});
    });
    const auto small = s.see();
    s.menu(Item::undo);
    const auto undone = s.see();
    s.run();
    EXPECT_NE(small->values.cur, before->values.cur);
    EXPECT_EQ(small->size.toUndo, before->size.toUndo);
    EXPECT_EQ(small->size.toRedo, afterUndo ? 1U : 0U);
    EXPECT_EQ(undone->size.toUndo, before->size.toUndo - 1);
    EXPECT_EQ(undone->prev, undone->values.cur);
    EXPECT_EQ(undone->values.canvas, (Size{60, 60}));
  }
}

TEST(AWindowChangedUnderAPanel, IsNoPartOfWhatThePanelDid) {
  for (const bool colours : {false, true}) {
    Sitting s;
    s.key(key::D), s.key(key::right), s.key(key::right), s.key(key::right), s.key(key::right);
    const auto before = s.see();
    s.menu(Item::choosew);
    s.act([&](Program& p) {
      s.desktop.setClient({60, 60});
      input::resized(p, {60, 60});
    });
    if (colours) s.act([](Program& p) { input::swatchLeft(p, classifySwatch(3)); });
    s.click(ControlId::Command1);
    const auto after = s.see();
    s.menu(Item::undo);
    const auto back = s.see();
    s.run();
    EXPECT_NE(after->values.cur, before->values.cur);
    EXPECT_EQ(after->size.toUndo, before->size.toUndo + (colours ? 1 : 0));
    EXPECT_EQ(back->size.toUndo, before->size.toUndo - (colours ? 0 : 1));
    if (!colours) continue;
    EXPECT_EQ(back->values.swatches, before->values.swatches);
    EXPECT_EQ(back->values.cur, after->values.cur);
  }
}

TEST(UndoAtTheBottomAndRedoAtTheTop, AreRefusedWithoutAWord) {
  Sitting s;
  s.key(key::L);
  s.look([](Program& p) { p.notices.tell("as it was"); });
  const auto before = s.see();
  s.act([](Program& p) { input::menuClick(p, Item::redo); });
  const auto top = s.see();
  for (int i = 0; i < 3; ++i) s.act([](Program& p) { input::menuClick(p, Item::undo); });
  const auto bottom = s.see();
  s.run();
  EXPECT_EQ(*top, *before);
  EXPECT_EQ(bottom->size.toUndo, 0U);
  EXPECT_EQ(bottom->size.toRedo, 1U);
  EXPECT_EQ(s.program.notices.words(), "as it was");
  EXPECT_TRUE(s.desktop.messages.empty());
}

TEST(UndoAndRedo, AreOffAndSayWhyWhereThereIsNothingOrAPanelIsOpen) {
  Sitting s;
  const auto tip = [&s](Item item) {
    auto words = std::make_shared<std::string>();
    s.look(
        [words, item](Program& p) { *words = p.menus.tip(item) + (p.menus.enabled(item) ? " on" : " off"); });
    return words;
  };
  const auto undoAtFirst = tip(Item::undo), redoAtFirst = tip(Item::redo);
  s.key(key::L);
  const auto undoThen = tip(Item::undo);
  s.menu(Item::undo);
  const auto redoThen = tip(Item::redo);
  s.menu(Item::choosew);
  const auto underPanel = tip(Item::redo);
  s.act([](Program& p) { input::menuClick(p, Item::redo); });
  const auto seen = s.see();
  s.run();
  EXPECT_EQ(*undoAtFirst, "nothing was done yet off");
  EXPECT_EQ(*redoAtFirst, "nothing was taken back off");
  EXPECT_EQ(*undoThen, "takes back what was done last on");
  EXPECT_EQ(*redoThen, "does again what was taken back last on");
  EXPECT_EQ(*underPanel, "not while a panel is open off");
  EXPECT_EQ(seen->size.toRedo, 1U);
}

}  // namespace
}  // namespace gridwright::test
