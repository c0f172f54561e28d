#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QImage>
#include <QTest>

#include "platform/qt/swatch_frame.h"
#include "qt_desk.h"
#include "session/input.h"

namespace gridwright {
namespace {

/// A desk on which one of the colour panels can be up, and its keyboard.
struct Colours : Desk {
  void showPanel(const SwatchPanel& panel) {
    model.show(panel.label);
    for (int i = 0; i < 16; ++i) model.show(swatch(panel, i));
    if (panel.classifies) {
      for (const ControlId id : {ControlId::Check33, ControlId::Check34, ControlId::Command1}) model.show(id);
    }
    show();
  }
  void hidePanel(const SwatchPanel& panel) {
    model.hide(panel.label);
    for (int i = 0; i < 16; ++i) model.hide(swatch(panel, i));
    show();
  }
  static ControlId swatch(const SwatchPanel& panel, int i) {
    return static_cast<ControlId>(static_cast<int>(panel.firstSwatch) + i);
  }
  /// The control that has the keyboard.
  std::string focus() {
    const QWidget* has = window.focusWidget();
    return has == &view ? "Canvas" : has == nullptr ? "nothing" : has->objectName().toStdString();
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(window.focusWidget(), key, modifiers);
    mirror.keepFocus(model);
  }
};

constexpr const SwatchPanel& kClassify = kSwatchPanels[0];
constexpr const SwatchPanel& kDraw = kSwatchPanels[1];
constexpr const SwatchPanel& kMaze = kSwatchPanels[2];

TEST(AColourPanelThatOpens, HasTheKeyboardOnItsTickedColour) {
  for (const SwatchPanel& panel : {kDraw, kMaze}) {
    Colours desk;
    desk.model.setValue(Colours::swatch(panel, 12), 1);
    desk.showPanel(panel);
    EXPECT_EQ(desk.focus(), rowOf(Colours::swatch(panel, 12)).name);
    desk.hidePanel(panel);
    EXPECT_EQ(desk.focus(), "Canvas") << "closed: the Canvas has it again";
  }
}

TEST(TheClassifyPanel, BeginsAtItsFirstColourWhateverIsTicked) {
  Colours desk;
  desk.model.setValue(ControlId::Check7, 1);
  desk.showPanel(kClassify);
  EXPECT_EQ(desk.focus(), "Check1");
}

TEST(ATickedColourThatIsGreyed, LeavesTheKeyboardToTheFirstThatIsNot) {
  Colours desk;
  desk.model.setValue(ControlId::Check20, 1);
  desk.showPanel(kDraw);
  desk.hidePanel(kDraw);
  desk.model.show(ControlId::Label6);
  for (int i = 0; i < 16; ++i) {
    desk.model.setVisible(drawingSwatch(i), true);
    desk.model.setEnabled(drawingSwatch(i), i > 1 && i != 3);
  }
  desk.show();
  EXPECT_EQ(desk.focus(), "Check19");
}

TEST(Tab, WalksRoundThePanelAndNeverOutOfIt) {
  Colours desk;
  desk.showPanel(kClassify);
  std::vector<std::string> seen;
  for (int i = 0; i < 19; ++i) {
    seen.push_back(desk.focus());
    desk.press(Qt::Key_Tab);
  }
  EXPECT_EQ(desk.focus(), "Check1") << "round";
  EXPECT_EQ(seen[1], "Check2");
  EXPECT_EQ(seen[15], "Check16");
  EXPECT_EQ(seen[16], "Check33");
  EXPECT_EQ(seen[17], "Check34");
  EXPECT_EQ(seen[18], "Command1");
  desk.press(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(desk.focus(), "Command1");
}

TEST(Arrows, MoveOverTheSwatchesAsTheyLieAndPassGreyedOnes) {
  Colours desk;
  desk.showPanel(kDraw);
  desk.model.setEnabled(ControlId::Check19, false);
  desk.show();
  EXPECT_EQ(desk.focus(), "Check17");
  desk.press(Qt::Key_Left);
  EXPECT_EQ(desk.focus(), "Check17") << "the row ends here";
  desk.press(Qt::Key_Up);
  EXPECT_EQ(desk.focus(), "Check17");
  desk.press(Qt::Key_Right);
  EXPECT_EQ(desk.focus(), "Check18");
  desk.press(Qt::Key_Right);
  EXPECT_EQ(desk.focus(), "Check20") << "past the greyed one";
  desk.press(Qt::Key_Down);
  EXPECT_EQ(desk.focus(), "Check28");
  desk.press(Qt::Key_Down);
  EXPECT_EQ(desk.focus(), "Check28");
  for (int i = 0; i < 9; ++i) desk.press(Qt::Key_Right);
  EXPECT_EQ(desk.focus(), "Check32");
  desk.press(Qt::Key_Up);
  EXPECT_EQ(desk.focus(), "Check24");
}

TEST(Arrows, ReachTheChoicesAndDoneBelowTheSwatches) {
  Colours desk;
  desk.showPanel(kClassify);
  for (const auto& [key, wanted] : {std::pair{Qt::Key_Down, "Check9"}, std::pair{Qt::Key_Down, "Check33"},
                                    std::pair{Qt::Key_Down, "Check34"}, std::pair{Qt::Key_Up, "Check33"},
                                    std::pair{Qt::Key_Right, "Command1"}, std::pair{Qt::Key_Up, "Check16"},
                                    std::pair{Qt::Key_Down, "Command1"}}) {
    desk.press(key);
    EXPECT_EQ(desk.focus(), wanted);
  }
}

TEST(SpaceAndEnter, AreTheLeftButton) {
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    Colours desk;
    desk.showPanel(kClassify);
    desk.press(key);
    EXPECT_EQ(desk.presses,
              (std::vector<std::pair<ControlId, Qt::MouseButton>>{{ControlId::Check1, Qt::LeftButton}}));
    desk.press(Qt::Key_Backtab);
    desk.press(Qt::Key_Backtab);
    ASSERT_EQ(desk.focus(), "Check34");
    desk.press(key);
    EXPECT_EQ(desk.presses.size(), 2U);
    EXPECT_EQ(desk.presses.back().first, ControlId::Check34);
    EXPECT_TRUE(desk.inputs.empty());
    desk.press(Qt::Key_Tab);
    desk.press(key);
    EXPECT_FALSE(desk.inputs.empty()) << "Done waits for the pump";
  }
}

TEST(ShiftSpaceAndTheMenuKey, AreTheRightButtonOnASwatch) {
  for (const auto& [key, modifier] :
       {std::pair{Qt::Key_Space, Qt::ShiftModifier}, std::pair{Qt::Key_Menu, Qt::NoModifier}}) {
    Colours desk;
    desk.showPanel(kClassify);
    desk.press(Qt::Key_Right);
    desk.press(key, modifier);
    EXPECT_EQ(desk.presses,
              (std::vector<std::pair<ControlId, Qt::MouseButton>>{{ControlId::Check2, Qt::RightButton}}));
  }
}

TEST(AKeyHeldDown, ChoosesOnce) {
  Colours desk;
  desk.showPanel(kClassify);
  QKeyEvent again(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
  QApplication::sendEvent(desk.window.focusWidget(), &again);
  EXPECT_TRUE(desk.presses.empty());
}

TEST(NoOtherKeyOfAPanel, GoesOnToTheCanvas) {
  Colours desk;
  desk.showPanel(kDraw);
  int keys = 0;
  desk.view.onKey = [&](int, KeyGo) { ++keys; };
  for (const Qt::Key key : {Qt::Key_J, Qt::Key_Slash, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Left})
    desk.press(key);
  EXPECT_EQ(keys, 0);
  desk.hidePanel(kDraw);
  desk.press(Qt::Key_J);
  EXPECT_EQ(keys, 1);
}

TEST(TheMazeColours, HaveTheKeyboardUntilTheyGoAndThenTheSwatchThatCalledThem) {
  Colours desk;
  desk.showPanel(kClassify);
  for (int i = 0; i < 3; ++i) desk.press(Qt::Key_Right);
  ASSERT_EQ(desk.focus(), "Check4");
  for (const ControlId id : {ControlId::Check33, ControlId::Check34, ControlId::Command1})
    desk.model.hide(id);
  desk.model.setValue(ControlId::Check50, 1);
  desk.showPanel(kMaze);
  EXPECT_EQ(desk.focus(), "Check50");
  for (int i = 0; i < 16; ++i) {
    desk.press(Qt::Key_Tab);
    EXPECT_EQ(desk.focus().substr(0, 5), "Check");
    EXPECT_GE(std::stoi(desk.focus().substr(5)), 35) << "not into the panel below";
  }
  desk.hidePanel(kMaze);
  EXPECT_EQ(desk.focus(), "Check4");
}

TEST(ATextBox, KeepsTheKeyboardFromAnySwatch) {
  Colours desk;
  desk.model.show(ControlId::Label4);
  desk.model.show(ControlId::Text2);
  desk.model.setFocus(ControlId::Text2);
  desk.showPanel(kDraw);
  EXPECT_EQ(desk.focus(), "Text2");
}

TEST(Escape, LeavesThePanelThroughTheModel) {
  Colours desk;
  desk.showPanel(kDraw);
  desk.press(Qt::Key_Escape);
  EXPECT_FALSE(desk.inputs.empty());
}

TEST(WhatHasTheKeyboard, HasARingThatNothingElseHas) {
  Colours desk;
  desk.showPanel(kClassify);
  desk.window.activateWindow();
  QApplication::processEvents();
  ASSERT_TRUE(desk.mirror.widget(ControlId::Check1)->hasFocus());
  const auto hasRing = [&](ControlId id) {
    QWidget* stop = desk.mirror.widget(id);
    QWidget* frame = desk.mirror.widget(ControlId::Label5)->parentWidget();
    const QPoint outside = stop->mapTo(frame, QPoint(stop->width() / 2, -3));
    return frame->grab().toImage().pixelColor(outside) == frame->palette().color(QPalette::WindowText);
  };
  const std::array stops = {ControlId::Check1, ControlId::Check9, ControlId::Check33, ControlId::Check34,
                            ControlId::Command1};
  for (const ControlId holder : stops) {
    desk.mirror.widget(holder)->setFocus();
    for (const ControlId other : stops) EXPECT_EQ(hasRing(other), other == holder) << rowOf(other).name;
  }
}

TEST(ASwatch, IsACheckBoxToAScreenReader) {
  Colours desk;
  desk.model.setValue(ControlId::Check18, 1);
  desk.model.setText(ControlId::Check18, "Background");
  desk.showPanel(kDraw);
  QAccessibleInterface* swatch =
      QAccessible::queryAccessibleInterface(desk.mirror.widget(ControlId::Check18));
  ASSERT_NE(swatch, nullptr);
  EXPECT_EQ(swatch->role(), QAccessible::CheckBox);
  EXPECT_TRUE(swatch->state().checked && swatch->state().focusable);
  EXPECT_EQ(swatch->text(QAccessible::Name), "navy, Background");
}

}  // namespace
}  // namespace gridwright
