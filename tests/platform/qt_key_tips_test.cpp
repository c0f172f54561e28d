#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolTip>

#include "platform/qt/key_tips.h"
#include "qt_session.h"

namespace gridwright {
namespace {

/// A window whose menus are walked by keys.
struct Menus : Session {
  Menus() {
    desktop.window().activateWindow();
    program.menus.setEnabled(Item::drawingt, true);
    pump(Pace::housekeeping);
  }
  QMenu* open(Item item) {
    QMenu* menu = desktop.menus().action(item)->menu();
    menu->popup({20, 20});
    QApplication::processEvents();
    return menu;
  }
  bool tipBecomes(const QString& words) {
    return QTest::qWaitFor(
        [&] { return QToolTip::isVisible() ? QToolTip::text() == words : words.isEmpty(); }, 3000);
  }
  QString tip(Item item) { return QString::fromStdString(program.menus.tip(item)); }
  ~Menus() { QToolTip::hideText(); }
};

TEST(AnItemThatAKeyReaches, ShowsItsTip) {
  Menus w;
  QMenu* menu = w.open(Item::multdrawing);
  for (const Item item : {Item::turnsoff, Item::horizontal, Item::vertical, Item::way4}) {
    QTest::keyClick(menu, Qt::Key_Down);
    ASSERT_EQ(menu->activeAction(), w.desktop.menus().action(item));
    EXPECT_TRUE(w.tipBecomes(w.tip(item))) << rowOf(item).name;
  }
  menu->close();
  EXPECT_TRUE(w.tipBecomes("")) << "the tip goes with its menu";
}

TEST(TheTipOfAnItemThatAKeyReaches, CoversNoItem) {
  Menus w;
  QMenu* menu = w.open(Item::multdrawing);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Down);
  ASSERT_TRUE(w.tipBecomes(w.tip(Item::horizontal)));
  for (const QWidget* top : QApplication::topLevelWidgets()) {
    if (top->isVisible() && top->inherits("QTipLabel")) {
      EXPECT_FALSE(top->geometry().intersects(menu->geometry()));
    }
  }
  menu->close();
}

TEST(BothSymmetryItems, SayWhichWayTheyMirror) {
  const MenuModel menus;
  EXPECT_EQ(menus.tip(Item::horizontal), "left and right mirror each other, at the same height");
  EXPECT_EQ(menus.tip(Item::vertical), "above and below mirror each other, in the same columns");
}

}  // namespace
}  // namespace gridwright
