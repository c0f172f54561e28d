#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <random>
#include <set>

#include "platform/qt/menu_mirror.h"

namespace gridwright {
namespace {

struct Bar {
  QMenuBar bar;
  InputQueue inputs;
  MenuMirror mirror{bar, inputs};
};

/// What stands in the widgets against what the model says, item by item.
void expectInLine(const MenuMirror& mirror, const MenuModel& model) {
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    const QAction* action = mirror.action(item);
    ASSERT_NE(action, nullptr) << rowOf(item).name;
    EXPECT_EQ(action->isVisible(), model.visible(item)) << rowOf(item).name;
    EXPECT_EQ(action->isChecked(), model.checked(item)) << rowOf(item).name;
    // An action that is not shown calls itself disabled, whatever it was told.
    EXPECT_EQ(action->isEnabled(), model.enabled(item) && model.visible(item)) << rowOf(item).name;
    EXPECT_EQ(action->text(), menuText(item, model.caption(item))) << rowOf(item).name;
    EXPECT_EQ(action->menu() != nullptr, hasChildren(item) || hasEntries(item)) << rowOf(item).name;
  }
}

TEST(TheMenuBar, ShowsEachItemAsItStartsInTheModel) {
  Bar bar;
  const MenuModel model;
  bar.mirror.mirror(model);
  expectInLine(bar.mirror, model);
}

TEST(TheMenuBar, FollowsTheModelThroughAnyChange) {
  Bar bar;
  MenuModel model;
  std::mt19937 random(7);
  for (int round = 0; round < 50; ++round) {
    for (int change = 0; change < 30; ++change) {
      const Item item = itemAt(random() % kItemCount);
      const bool on = random() % 2 == 0;
      switch (random() % 4) {
        case 0:
          model.setEnabled(item, on);
          break;
        case 1:
          model.setVisible(item, on);
          break;
        case 2:
          if (!hasChildren(item)) model.setChecked(item, on);
          break;
        default:
          model.setCaption(item, on ? "Salt & \"Pepper\"" : "Plain");
          break;
      }
    }
    bar.mirror.mirror(model);
    expectInLine(bar.mirror, model);
  }
}

TEST(TheMenuBar, HangsEveryItemUnderItsParent) {
  Bar bar;
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    const Item parent = rowOf(item).parent;
    const QList<QAction*> siblings =
        parent == Item::bar ? bar.bar.actions() : bar.mirror.action(parent)->menu()->actions();
    EXPECT_TRUE(siblings.contains(bar.mirror.action(item))) << rowOf(item).name;
  }
}

TEST(AClickOnAMarkableItem, LeavesTheMarkToTheModel) {
  Bar bar;
  const MenuModel model;
  bar.mirror.mirror(model);
  for (const Item item : {Item::ugenerate, Item::cgenerate}) {
    bar.mirror.action(item)->trigger();
    EXPECT_EQ(bar.mirror.action(item)->isChecked(), model.checked(item));
  }
  EXPECT_FALSE(bar.inputs.empty()) << "the clicks wait for the pump";
}

TEST(ADisabledTitle, IsDisabledInTheBar) {
  Bar bar;
  MenuModel model;
  model.setEnabled(Item::maze, false);
  bar.mirror.mirror(model);
  EXPECT_FALSE(bar.bar.actions()[3]->isEnabled());
  EXPECT_TRUE(bar.bar.actions()[1]->isEnabled());
}

TEST(AnAmpersandInACaption, IsReadAsOne) {
  EXPECT_EQ(menuText(Item::maxrnd, "salt & pepper"), "salt && pepper");
  EXPECT_EQ(menuText(Item::maze, "A & Maze"), "A && &Maze");
}

TEST(EachTitle, HasALetterOfItsOwnAndKeepsItsWords) {
  std::set<QChar> letters;
  for (std::size_t row = 0; row < kItemCount; ++row) {
    if (rowOf(itemAt(row)).parent != Item::bar) continue;
    QString text = menuText(itemAt(row), rowOf(itemAt(row)).caption);
    ASSERT_GE(text.indexOf('&'), 0) << rowOf(itemAt(row)).name;
    EXPECT_TRUE(letters.insert(text[text.indexOf('&') + 1].toLower()).second) << rowOf(itemAt(row)).name;
    EXPECT_EQ(text.remove('&').toStdString(), rowOf(itemAt(row)).caption);
  }
  EXPECT_EQ(letters.size(), 7U);
}

}  // namespace
}  // namespace gridwright
