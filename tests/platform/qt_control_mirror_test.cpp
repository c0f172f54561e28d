#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QListWidget>
#include <QTest>

#include "qt_desk.h"

namespace gridwright {
namespace {

TEST(EveryControl, HasAWidgetThatIsShownAndEnabledAsTheModelSays) {
  Desk desk;
  for (int round = 0; round < 4; ++round) {
    for (std::size_t row = 0; row < kControlCount; ++row) {
      desk.model.setVisible(controlAt(row), (round & 1) != 0);
      desk.model.setEnabled(controlAt(row), (round & 2) != 0);
    }
    desk.show();
    for (std::size_t row = 0; row < kControlCount; ++row) {
      const ControlId id = controlAt(row);
      if (rowOf(id).kind == ControlKind::timer) continue;
      ASSERT_NE(desk.mirror.widget(id), nullptr) << rowOf(id).name;
      EXPECT_EQ(desk.mirror.widget(id)->isVisible(), (round & 1) != 0) << rowOf(id).name;
      EXPECT_EQ(desk.mirror.widget(id)->isEnabled(), (round & 2) != 0) << rowOf(id).name;
    }
  }
}

TEST(APanelThatOpens, HasTheKeyboardWithItsTextSelected) {
  Desk desk;
  for (const TextPanel& panel : kTextPanels) {
    desk.model.show(panel.label);
    desk.model.show(panel.box);
    desk.model.setText(panel.box, "10");
    desk.model.setFocus(panel.box);
    desk.show();
    auto* box = desk.as<QLineEdit>(panel.box);
    EXPECT_EQ(desk.window.focusWidget(), box) << rowOf(panel.box).name;
    EXPECT_EQ(box->selectedText(), "10") << rowOf(panel.box).name;
    desk.model.hide(panel.label);
    desk.model.hide(panel.box);
    desk.model.setFocus(std::nullopt);
    desk.show();
    EXPECT_EQ(desk.window.focusWidget(), &desk.view) << "closed: the Canvas has it again";
  }
}

TEST(AClickElsewhere, LeavesTheKeyboardWithTheBox) {
  Desk desk;
  for (const ControlId id : {ControlId::Label11, ControlId::Text8, ControlId::File5}) desk.model.show(id);
  desk.model.setEntries(ControlId::File5, {"a.bmp", "b.bmp"});
  desk.model.setFocus(ControlId::Text8);
  desk.show();
  auto* list = desk.as<QListWidget>(ControlId::File5);
  QTest::mouseClick(&desk.view, Qt::LeftButton, {}, {5, 5});
  EXPECT_EQ(desk.window.focusWidget(), desk.mirror.widget(ControlId::Text8));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
  EXPECT_EQ(desk.window.focusWidget(), desk.mirror.widget(ControlId::Text8));
  EXPECT_FALSE(desk.inputs.empty()) << "the list's click waits for the pump";
}

TEST(NoLabelListOrButtonOfTheTitle, TakesTheKeyboardWithAClick) {
  Desk desk;
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const ControlKind kind = kControlRows[row].kind;
    const bool isPartOfAColourPanel = kind == ControlKind::checkBox || controlAt(row) == ControlId::Command1;
    if (kind == ControlKind::timer || kind == ControlKind::textBox || isPartOfAColourPanel) continue;
    const auto clicked = desk.mirror.widget(controlAt(row))->focusPolicy() & Qt::ClickFocus;
    EXPECT_EQ(clicked, 0) << kControlRows[row].name;
  }
}

TEST(ASwatch, ReportsBothButtonsAndLeavesItsTickToTheModel) {
  Desk desk;
  desk.model.show(ControlId::Check5);
  desk.model.show(ControlId::Label5);
  desk.show();
  auto* swatch = desk.as<QAbstractButton>(ControlId::Check5);
  QTest::mouseClick(swatch, Qt::LeftButton);
  QTest::mousePress(swatch, Qt::RightButton);
  EXPECT_EQ(desk.presses, (std::vector<std::pair<ControlId, Qt::MouseButton>>{
                              {ControlId::Check5, Qt::LeftButton}, {ControlId::Check5, Qt::RightButton}}));
  EXPECT_FALSE(swatch->isChecked());
  desk.model.setValue(ControlId::Check5, 1);
  desk.show();
  EXPECT_TRUE(swatch->isChecked());
}

TEST(ATimer, RunsWhileTheModelRunsItAndHasAnInterval) {
  Desk desk;
  desk.show();
  EXPECT_FALSE(desk.mirror.timer(ControlId::Timer1).isActive());
  EXPECT_TRUE(desk.mirror.timer(ControlId::Timer2).isActive());
  EXPECT_EQ(desk.mirror.timer(ControlId::Timer2).interval(), 10000);
  desk.model.runTimer(ControlId::Timer1, true);
  desk.model.runTimer(ControlId::Timer2, false);
  desk.show();
  EXPECT_TRUE(desk.mirror.timer(ControlId::Timer1).isActive());
  EXPECT_FALSE(desk.mirror.timer(ControlId::Timer2).isActive());
  desk.model.setInterval(ControlId::Timer1, 0);
  desk.show();
  EXPECT_FALSE(desk.mirror.timer(ControlId::Timer1).isActive()) << "an interval of 0 never fires";
}

TEST(AButton, IsCalledByItsCaptionAndOpenedByAFirstLetter) {
  Desk desk;
  desk.show();
  EXPECT_EQ(desk.mirror.widget(ControlId::Command3)->accessibleName(), "Click to see examples and credits");
  EXPECT_EQ(desk.as<QAbstractButton>(ControlId::Command3)->text(), "Click to see &examples and credits");
}

TEST(EverySwatch, IsNamedByItsColourWhateverItsCaption) {
  Desk desk;
  desk.model.setText(ControlId::Check2, "Background Color");
  desk.model.setText(ControlId::Check1, "");
  desk.show();
  EXPECT_EQ(desk.mirror.widget(ControlId::Check2)->accessibleName(), "navy, Background Color");
  EXPECT_EQ(desk.mirror.widget(ControlId::Check1)->accessibleName(), "black");
}

TEST(APanelOfSwatches, TakesSmallerLettersOnASmallScreenAndCutsNoCaption) {
  Desk desk;
  desk.view.resize(640, 400);
  desk.model.show(ControlId::Label5);
  for (std::size_t i = 0; i < 16; ++i) {
    const auto id = controlAt(static_cast<std::size_t>(ControlId::Check1) + i);
    desk.model.show(id);
    desk.model.setText(id, "Border Color");
  }
  desk.show();
  const QWidget* swatch = desk.mirror.widget(ControlId::Check16);
  const QWidget* panel = swatch->parentWidget()->parentWidget();
  EXPECT_TRUE(desk.view.rect().contains(panel->geometry()));
  EXPECT_GE(swatch->width(), swatch->sizeHint().width());
  EXPECT_LT(swatch->font().pointSize(), desk.view.font().pointSize());
}

TEST(TheTitlesButtons, HaveLettersThatGrowWithThem) {
  Desk desk;
  desk.view.resize(2000, 1500);
  for (const ControlId id : {ControlId::Command2, ControlId::Command3, ControlId::Command7})
    desk.model.show(id);
  desk.show();
  const QWidget* begin = desk.mirror.widget(ControlId::Command2);
  EXPECT_EQ(begin->geometry().size(), QSize(750, 115));
  EXPECT_GT(begin->font().pointSizeF(), 2.4 * desk.view.font().pointSizeF());
}

TEST(TheMazeColours, StandAboveTheClassesAndCoverNone) {
  Desk desk;
  for (const ControlId first : {ControlId::Check1, ControlId::Check35}) {
    for (std::size_t i = 0; i < 16; ++i) desk.model.show(controlAt(static_cast<std::size_t>(first) + i));
  }
  desk.show();
  const auto placeOf = [&](ControlId id) {
    QWidget* panel = desk.mirror.widget(id)->parentWidget();
    return QRect(panel->mapTo(&desk.window, QPoint()), panel->size());
  };
  const QRect classes = placeOf(ControlId::Check1);
  const QRect mazes = placeOf(ControlId::Check35);
  EXPECT_NE(classes, mazes);
  EXPECT_FALSE(classes.intersects(mazes));
  EXPECT_TRUE(QRect(0, 0, 800, 600).contains(classes.united(mazes)));
}

}  // namespace
}  // namespace gridwright
