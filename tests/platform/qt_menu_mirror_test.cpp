#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <cctype>
#include <map>
#include <random>
#include <set>

#include "platform/qt/menu_mirror.h"
#include "state/shortcuts.h"

namespace gridwright {
namespace {

struct Bar {
  QMenuBar bar;
  InputQueue inputs;
  MenuMirror mirror{bar, inputs};
};

/// What stands in the widgets against what the model says, item by item.
void expectInLine(const MenuMirror& mirror, const MenuModel& model) {
  const MnemonicPlaces mnemonics = mnemonicsOf(model);
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    const QAction* action = mirror.action(item);
    ASSERT_NE(action, nullptr) << rowOf(item).name;
    EXPECT_EQ(action->isVisible(), model.visible(item)) << rowOf(item).name;
    EXPECT_EQ(action->isChecked(), model.checked(item)) << rowOf(item).name;
    // An action that is not shown calls itself disabled, whatever it was told.
    EXPECT_EQ(action->isEnabled(), model.enabled(item) && model.visible(item)) << rowOf(item).name;
    EXPECT_EQ(action->text(), menuText(model.caption(item), mnemonics[row], keysOfItem(model, item)))
        << rowOf(item).name;
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
  EXPECT_EQ(menuText("salt & pepper", kNoMnemonic, ""), "salt && pepper");
  EXPECT_EQ(menuText("A & Maze", 4, ""), "A && &Maze");
}

TEST(EachItem, HasALetterThatNoOtherOfItsMenuHasAndKeepsItsWords) {
  const MenuModel model;
  const MnemonicPlaces places = mnemonicsOf(model);
  std::map<Item, std::set<char>> letters;
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const std::string& caption = model.caption(itemAt(row));
    if (caption.empty()) continue;
    ASSERT_LT(places[row], caption.size()) << rowOf(itemAt(row)).name;
    const char letter = caption[places[row]];
    EXPECT_NE(std::isalnum(static_cast<unsigned char>(letter)), 0);
    EXPECT_TRUE(letters[rowOf(itemAt(row)).parent].insert(static_cast<char>(std::tolower(letter))).second)
        << rowOf(itemAt(row)).name;
    QString text = menuText(caption, places[row], "");
    EXPECT_EQ(text.remove('&').toStdString(), caption);
  }
  EXPECT_EQ(letters[Item::bar], (std::set<char>{'f', 'o', 'p', 'm', 's', 't', 'i'}));
}

TEST(LettersThatAreTaken, ArePassedOnAsLongAsThereIsAnother) {
  // The last finds a only when the first two give way: the first to c, the second to b.
  const std::vector<std::string> captions = {"abc", "ab", "a"};
  const std::vector<std::size_t> places = mnemonicPlaces(captions);
  EXPECT_EQ(captions[0][places[0]], 'c');
  EXPECT_EQ(captions[1][places[1]], 'b');
  EXPECT_EQ(captions[2][places[2]], 'a');
  EXPECT_EQ(mnemonicPlaces({"a", "A", "é…"}), (std::vector<std::size_t>{0, kNoMnemonic, kNoMnemonic}));
  EXPECT_EQ(mnemonicPlaces({"ox", "big one"}), (std::vector<std::size_t>{0, 0})) << "words' first letters";
}

TEST(TheKeysOfAnItem, AreShownBehindItAndF5AtTheTickedKind) {
  Bar bar;
  MenuModel model;
  bar.mirror.mirror(model);
  const auto keys = [&](Item item) { return bar.mirror.action(item)->text().section('\t', 1); };
  EXPECT_EQ(keys(Item::newmaze), "Ctrl+N");
  EXPECT_EQ(keys(Item::showkeys), "F1");
  EXPECT_EQ(keys(Item::createreg), "F5");
  EXPECT_EQ(keys(Item::create3d), "");
  model.setChecked(Item::createreg, false);
  model.setChecked(Item::create3d, true);
  bar.mirror.mirror(model);
  EXPECT_EQ(keys(Item::createreg), "");
  EXPECT_EQ(keys(Item::create3d), "F5");
}

}  // namespace
}  // namespace gridwright
