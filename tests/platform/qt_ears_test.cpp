#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <vector>

#include "platform/qt/ears.h"
#include "qt_desk.h"
#include "qt_session.h"
#include "session/heard.h"

namespace gridwright {
namespace {

/// A screen reader that notes down what it is sent, for as long as it lives.
class Reader {
 public:
  struct Sent {
    QAccessible::Event type;
    QString object, name;
  };

  explicit Reader(bool listens = true) {
    setActive(listens);
    sent().clear();
    before_ = QAccessible::installUpdateHandler(note);
  }
  ~Reader() {
    QAccessible::installUpdateHandler(before_);
    setActive(false);
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;

  static std::vector<Sent>& sent() {
    static std::vector<Sent> events;
    return events;
  }
  static int count(QAccessible::Event type) {
    int found = 0;
    for (const Sent& event : sent()) found += event.type == type ? 1 : 0;
    return found;
  }
  /// What of it is spoken: labels that say that they have the keyboard.
  static QStringList spoken() {
    QStringList words;
    for (const Sent& event : sent()) {
      if (event.type == QAccessible::Focus && event.object.startsWith("Heard")) words << event.name;
    }
    return words;
  }

 private:
  /// What the desktop's own services do when somebody begins to listen.
  static void setActive(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
  }

  static void note(QAccessibleEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(event->object());
    sent().push_back({event->type(), event->object() == nullptr ? QString() : event->object()->objectName(),
                      widget == nullptr ? QString() : widget->accessibleName()});
  }
  QAccessible::UpdateHandler before_ = nullptr;
};

struct Heard : Session {
  Heard() {
    desktop.window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&desktop.window()));
    program.controls.setCaption("Gridwright-(drawing picture for 'Regular mazes')");
  }
  /// The program waits until somebody does something.
  void wait() {
    QTimer::singleShot(20, &desktop.window(), [this] { desktop.window().view().onMouse(1); });
    pump(Pace::idle);
  }
};

TEST(WhatIsNew, IsSpokenByTwoLabelsInTurnAndTheCanvasKeepsTheKeyboard) {
  Heard w;
  const Reader reader;
  w.program.state.cur = {10, 10, 19, 19};
  w.wait();
  w.program.state.cur = {20, 10, 29, 19};
  w.wait();
  w.wait();
  w.program.state.cur = {30, 10, 39, 19};
  w.wait();
  const QStringList spoken = Reader::spoken();
  ASSERT_EQ(spoken.size(), 3);
  EXPECT_EQ(spoken[0], "drawing picture for 'Regular mazes'; black; 1 cell; row 1, column 1; drawing on");
  EXPECT_EQ(spoken[1], "row 1, column 2");
  EXPECT_EQ(spoken[2], "row 1, column 3");
  std::vector<QString> labels;
  for (const Reader::Sent& event : Reader::sent()) {
    if (event.type == QAccessible::Focus && event.object.startsWith("Heard")) labels.push_back(event.object);
  }
  EXPECT_EQ(labels, (std::vector<QString>{"Heard1", "Heard2", "Heard1"}));
  EXPECT_EQ(w.desktop.window().focusWidget(), &w.desktop.window().view());
}

TEST(ACaptionOrANotice, IsSpokenWhileTheProgramWorks) {
  Heard w;
  const Reader reader;
  w.wait();
  Reader::sent().clear();
  w.program.controls.setCaption("Gridwright-(computer is solving maze)");
  w.pump(Pace::housekeeping);
  w.program.notices.tell("maze 3 of 40");
  w.pump(Pace::housekeeping);
  w.program.state.cur = {50, 10, 59, 19};
  w.pump(Pace::housekeeping);
  ASSERT_EQ(Reader::spoken().size(), 2);
  EXPECT_TRUE(Reader::spoken()[0].startsWith("computer is solving maze"));
  EXPECT_EQ(Reader::spoken()[1], "maze 3 of 40");
}

TEST(WhereNobodyListens, NothingIsSaidAndNothingMadeReady) {
  Heard w;
  const Reader reader(false);
  w.program.notices.tell("maze 3 of 40");
  w.program.state.cur = {50, 10, 59, 19};
  w.wait();
  EXPECT_EQ(Reader::spoken(), QStringList());
  for (const QLabel* label : w.desktop.window().findChildren<QLabel*>(QRegularExpression("Heard.")))
    EXPECT_EQ(label->accessibleName(), "");
}

TEST(UnderAnOpenMenu, NothingIsSpokenUntilItIsGone) {
  Heard w;
  const Reader reader;
  w.wait();
  QMenu menu(&w.desktop.window());
  menu.addAction("one");
  menu.popup({10, 10});
  Reader::sent().clear();
  w.program.notices.tell("maze 3 of 40");
  w.pump(Pace::housekeeping);
  EXPECT_EQ(Reader::spoken(), QStringList());
  menu.close();
  w.wait();
  EXPECT_EQ(Reader::spoken(), QStringList("maze 3 of 40"));
}

TEST(WhatIsSpoken, IsHeardWithoutTheStatusLineToo) {
  Heard w;
  const Reader reader;
  w.program.statusLineOff = true;
  w.wait();
  QAccessibleInterface* label =
      QAccessible::queryAccessibleInterface(w.desktop.window().findChild<QLabel*>("Heard1"));
  ASSERT_NE(label, nullptr);
  EXPECT_FALSE(label->state().invisible);
  EXPECT_EQ(label->parent()->role(), QAccessible::StatusBar) << "so that nobody hears that it is a label";
}

TEST(TheCanvas, IsNoLayoutAndCanTakeTheFocus) {
  Heard w;
  const Reader reader;
  QAccessibleInterface* canvas = QAccessible::queryAccessibleInterface(&w.desktop.window().view());
  ASSERT_NE(canvas, nullptr);
  EXPECT_EQ(canvas->role(), QAccessible::Canvas);
  EXPECT_TRUE(canvas->state().focusable);
  EXPECT_TRUE(canvas->state().focused);
}

TEST(EveryMenuItem, CarriesItsTipAsItsDescription) {
  Heard w;
  const Reader reader;
  int tips = 0;
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    const Item parent = rowOf(item).parent;
    if (parent == Item::bar) continue;
    QMenu* menu = w.desktop.menus().action(parent)->menu();
    QAction* action = w.desktop.menus().action(item);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(menu);
    ASSERT_NE(list, nullptr);
    QAccessibleInterface* read = list->child(static_cast<int>(menu->actions().indexOf(action)));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(list->indexOfChild(read), menu->actions().indexOf(action));
    EXPECT_EQ(read->parent(), list);
    EXPECT_EQ(read->role(), QAccessible::MenuItem);
    EXPECT_EQ(read->text(QAccessible::Name), qString(w.program.menus.caption(item)));
    EXPECT_EQ(read->text(QAccessible::Description), QString::fromStdString(w.program.menus.tip(item)));
    EXPECT_EQ(read->state().disabled, !action->isEnabled());
    EXPECT_EQ(read->state().checked, w.program.menus.checked(item));
    tips += w.program.menus.tip(item).empty() ? 0 : 1;
  }
  EXPECT_GT(tips, 50);
}

TEST(AMenuInAMenu, LeadsBackToTheItemThatOpensIt) {
  Heard w;
  const Reader reader;
  QMenu* inner = w.desktop.menus().action(Item::ndrawing)->menu();
  QAccessibleInterface* opener = QAccessible::queryAccessibleInterface(inner)->parent();
  ASSERT_NE(opener, nullptr);
  EXPECT_EQ(opener->object(), w.desktop.menus().action(Item::ndrawing));
  EXPECT_EQ(opener->child(0), QAccessible::queryAccessibleInterface(inner));
  EXPECT_TRUE(opener->state().hasPopup);
  EXPECT_EQ(opener->parent()->parent()->parent()->object(), w.desktop.window().menuBar());
}

TEST(AReadersPress, ChoosesTheItem) {
  Heard w;
  const Reader reader;
  QMenu* menu = w.desktop.menus().action(Item::drawingt)->menu();
  QAction* action = w.desktop.menus().action(Item::drawingoff);
  int chosen = 0;
  QObject::connect(action, &QAction::triggered, [&chosen] { ++chosen; });
  QAccessibleInterface* read =
      QAccessible::queryAccessibleInterface(menu)->child(static_cast<int>(menu->actions().indexOf(action)));
  QAccessibleActionInterface* press = read->actionInterface();
  ASSERT_NE(press, nullptr);
  action->setEnabled(false);
  press->doAction(press->actionNames().front());
  EXPECT_EQ(chosen, 0);
  action->setEnabled(true);
  press->doAction(press->actionNames().front());
  EXPECT_EQ(chosen, 1);
}

TEST(EverySwatchCheckBoxButtonAndList, CanTakeTheFocus) {
  Desk desk;
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const ControlId id = controlAt(row);
    const ControlKind kind = rowOf(id).kind;
    if (kind == ControlKind::label || kind == ControlKind::timer) continue;
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(desk.mirror.widget(id));
    ASSERT_NE(read, nullptr) << rowOf(id).name;
    EXPECT_TRUE(read->state().focusable) << rowOf(id).name;
  }
}

TEST(ControlsThatStayAsTheyAre, SendNothingHoweverOftenTheyAreLookedAt) {
  Desk desk;
  for (const ControlId id : {ControlId::Label5, ControlId::Check5, ControlId::Command1, ControlId::Text8})
    desk.model.show(id);
  desk.show();
  const Reader reader;
  for (int round = 0; round < 5; ++round) {
    desk.model.runTimer(ControlId::Timer1, round % 2 == 0);  // something else has changed
    desk.show();
  }
  EXPECT_EQ(Reader::count(QAccessible::NameChanged), 0);
  desk.model.setText(ControlId::Check5, "Border Color");
  desk.show();
  EXPECT_GT(Reader::count(QAccessible::NameChanged), 0) << "and a new one is sent";
}

TEST(AtTheTitle, TabLeadsThroughTheButtonsAndBackToTheCanvas) {
  Desk desk;
  for (const ControlId id : {ControlId::Command2, ControlId::Command3, ControlId::Command7})
    desk.model.show(id);
  desk.show();
  ASSERT_EQ(desk.window.focusWidget(), &desk.view);
  for (const ControlId id : {ControlId::Command2, ControlId::Command3, ControlId::Command7}) {
    QTest::keyClick(desk.window.focusWidget(), Qt::Key_Tab);
    desk.mirror.keepFocus(desk.model);
    EXPECT_EQ(desk.window.focusWidget(), desk.mirror.widget(id)) << rowOf(id).name;
  }
  QTest::keyClick(desk.window.focusWidget(), Qt::Key_Space);
  EXPECT_FALSE(desk.inputs.empty()) << "it is pressed";
  QTest::keyClick(desk.window.focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(desk.window.focusWidget(), &desk.view);
  QTest::keyClick(desk.window.focusWidget(), Qt::Key_Tab);
  for (const ControlId id : {ControlId::Command2, ControlId::Command3, ControlId::Command7})
    desk.model.hide(id);
  desk.show();
  EXPECT_EQ(desk.window.focusWidget(), &desk.view) << "the slides have begun";
  QTest::keyClick(desk.window.focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(desk.window.focusWidget(), &desk.view);
}

TEST(TheListOfAPanel, IsReachedByTabAndReadByItsArrows) {
  Desk desk;
  for (const ControlId id : {ControlId::Label11, ControlId::Text8, ControlId::File5}) desk.model.show(id);
  desk.model.setEntries(ControlId::File5, {"a.bmp", "b.bmp"});
  desk.model.setFocus(ControlId::Text8);
  desk.show();
  auto* list = desk.as<QListWidget>(ControlId::File5);
  QTest::keyClick(desk.window.focusWidget(), Qt::Key_Tab);
  desk.mirror.keepFocus(desk.model);
  EXPECT_EQ(desk.window.focusWidget(), list);
  QTest::keyClick(list, Qt::Key_Down);
  EXPECT_FALSE(desk.inputs.empty()) << "an entry is chosen";
  desk.model.setSelected(ControlId::File5, 1);
  desk.show();
  EXPECT_EQ(desk.window.focusWidget(), list) << "and the list still has the keyboard";
  EXPECT_EQ(list->currentRow(), 1);
  QTest::keyClick(list, Qt::Key_Tab);
  EXPECT_EQ(desk.window.focusWidget(), desk.mirror.widget(ControlId::Text8));
}

}  // namespace
}  // namespace gridwright
