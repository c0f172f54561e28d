// Pictures from elsewhere in the window: the page that makes them ready, what is dropped, the work beside it.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <atomic>
#include <future>

#include "pictures/ready.h"
#include "platform/qt/work_thread.h"
#include "platform/qt_session.h"
#include "session/input.h"

namespace gridwright {
namespace {

/// A session in whose folder lies a picture of two colours on white.
struct Gallery : Session {
  Gallery() {
    QImage picture(200, 150, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int y = 40; y < 110; ++y)
      for (int x = 40; x < 160; ++x) picture.setPixel(x, y, x < 100 ? qRgb(200, 30, 30) : qRgb(20, 60, 200));
    picture.save(path("photo.png"));
    QImage ready(100, 80, QImage::Format_RGB32);
    ready.fill(qRgb(0, 0, 255));
    ready.save(path("ready.png"));
  }
  [[nodiscard]] QString path(const char* name) const { return folder.path() + "/" + name; }
  template <class Condition>
  [[nodiscard]] bool pumpUntil(Condition holds) {
    for (int i = 0; i < 2000 && !holds(); ++i) {
      pump(Pace::working);
      QTest::qWait(5);
    }
    return holds();
  }
  void drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &enter);
    QDropEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &event);
  }
  void openPanel() {
    drop({QUrl::fromLocalFile(path("photo.png"))});
    ASSERT_TRUE(pumpUntil([this] { return program.prepare.open && program.prepare.made; }));
    pump(Pace::working);
  }
  template <class T>
  T* part(int which = 0) {
    return desktop.preparePage().findChildren<T*>().at(which);
  }
  const PictureBox& box(const char* name) {
    return static_cast<const PictureBox&>(*desktop.preparePage().findChild<QWidget*>(name));
  }
  QPushButton* button(const QString& text) {
    for (auto* button : desktop.preparePage().findChildren<QPushButton*>())
      if (button->text().remove('&') == text) return button;
    return nullptr;
  }
};

TEST(ADroppedPicture, OpensThePageWithBothPicturesAndTheLine) {
  Gallery g;
  EXPECT_FALSE(g.desktop.preparePage().isVisible());
  g.openPanel();
  EXPECT_TRUE(g.desktop.preparePage().isVisible());
  EXPECT_EQ(g.box("before").picture().size(), QSize(200, 150));
  EXPECT_EQ(g.box("after").picture().pixel(1, 1), qRgb(254, 254, 254));
  const auto* line = g.desktop.preparePage().findChild<QLabel*>("prepareline");
  EXPECT_EQ(line->text().toStdString(), g.program.prepare.line);
  EXPECT_EQ(g.part<QListWidget>()->count(), static_cast<int>(g.program.prepare.made->found.size()));
}

TEST(AChangeOnThePage, ComesBackInTheModelAndTheTicksBeginAnew) {
  Gallery g;
  g.openPanel();
  g.part<QListWidget>()->item(0)->setCheckState(Qt::Unchecked);
  ASSERT_TRUE(g.pumpUntil([&] { return g.program.prepare.settings.grow && !g.program.prepare.working; }));
  EXPECT_FALSE(g.program.prepare.made->found[0].grows);
  g.part<QSpinBox>()->setValue(3);
  ASSERT_TRUE(g.pumpUntil([&] { return g.program.prepare.settings.colours == 3; }));
  EXPECT_FALSE(g.program.prepare.settings.grow);
}

/// A picture as a camera makes them, of 12 million pixels.
QImage photograph() {
  QImage small(400, 300, QImage::Format_RGB32);
  for (int y = 0; y < small.height(); ++y)
    for (int x = 0; x < small.width(); ++x)
      small.setPixel(x, y, qRgb(x * 255 / 400, (x + y) % 7 * 5 + (y < 150 ? 180 : 60), y * 255 / 300));
  return small.scaled(4000, 3000);
}

TEST(TheWindow, HearsWhatHappensWhileALargePictureIsReadAndPrepared) {
  Gallery g;
  photograph().save(g.path("large.jpg"));
  int heard = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { ++heard; });
  timer.start(1);
  const auto heardUntil = [&](auto holds) {
    heard = 0;
    for (g.pump(Pace::idle); !holds(); g.pump(Pace::idle)) {
    }
    return heard;
  };
  g.drop({QUrl::fromLocalFile(g.path("large.jpg"))});
  EXPECT_GT(heardUntil([&] { return g.program.prepare.open; }), 5);
  EXPECT_GT(heardUntil([&] { return g.program.prepare.made != nullptr; }), 5);
  PrepareSettings settings = g.program.prepare.settings;
  settings.colours = 12;
  g.desktop.preparePage().onChange(settings);
  EXPECT_GT(
      heardUntil([&] { return g.program.prepare.settings.colours == 12 && !g.program.prepare.working; }), 2);
}

TEST(ManyChangesAtOnce, EndWithTheLast) {
  Gallery g;
  g.openPanel();
  for (const int colours : {2, 9, 4, 12, 5}) g.part<QSpinBox>()->setValue(colours);
  ASSERT_TRUE(
      g.pumpUntil([&] { return !g.program.prepare.working && g.program.prepare.settings.colours == 5; }));
  EXPECT_EQ(g.part<QSpinBox>()->value(), 5);
}

TEST(Enter, UsesWhatCameOfItAndEscapeLeaves) {
  Gallery left;
  left.openPanel();
  QTest::keyClick(left.part<QSpinBox>(), Qt::Key_Escape);
  ASSERT_TRUE(left.pumpUntil([&] { return !left.program.prepare.open; }));
  EXPECT_FALSE(left.program.state.mazeMadeOnce);
  left.pump(Pace::working);
  EXPECT_FALSE(left.desktop.preparePage().isVisible());

  Gallery used;
  used.openPanel();
  QTest::keyClick(used.part<QSpinBox>(), Qt::Key_Return);
  ASSERT_TRUE(used.pumpUntil([&] { return !used.program.prepare.open; }));
  EXPECT_TRUE(used.program.state.mazeMadeOnce);
  EXPECT_EQ(used.program.canvas.shownPoint(1, 1), kPaper);
}

TEST(TheKeyboard, StaysOnThePageWhileItIsOpenAndGoesBackToTheCanvas) {
  Gallery g;
  g.openPanel();
  QWidget* has = g.desktop.window().focusWidget();
  EXPECT_TRUE(g.desktop.preparePage().isAncestorOf(has));
  QTest::keyClick(has, Qt::Key_Tab);
  g.pump(Pace::working);
  EXPECT_TRUE(g.desktop.preparePage().isAncestorOf(g.desktop.window().focusWidget()));
  EXPECT_NE(g.desktop.window().focusWidget(), has);
  g.button("Cancel")->click();
  ASSERT_TRUE(g.pumpUntil([&] { return !g.program.prepare.open; }));
  g.pump(Pace::working);
  EXPECT_EQ(g.desktop.window().focusWidget(), &g.desktop.window().view());
}

TEST(ADroppedFile, StaysWhereItIsAlsoWhenItIsOfferedToBeMoved) {
  Gallery g;
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(g.path("photo.png"))});
  const Qt::DropActions offered = Qt::MoveAction | Qt::CopyAction;
  QDragEnterEvent enter({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(&g.desktop.window(), &enter);
  EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
  QDropEvent event({10, 10}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
  QApplication::sendEvent(&g.desktop.window(), &event);
  EXPECT_TRUE(event.isAccepted());
  EXPECT_EQ(event.dropAction(), Qt::CopyAction);
}

TEST(ADroppedAddressOfTheWeb, IsAnsweredWithALine) {
  Gallery g;
  g.drop({QUrl("http://example.invalid/cat.png")});
  EXPECT_TRUE(g.pumpUntil(
      [&] { return g.program.notices.words() == "only a file of this computer can be dropped here"; }));
}

TEST(ACopiedPicture, IsPastedByTheMenuAndByTheKeys) {
  Gallery g;
  QApplication::clipboard()->setImage(QImage(g.path("ready.png")));
  QTest::keySequence(&g.desktop.window(), QKeySequence::Paste);
  ASSERT_TRUE(g.pumpUntil([&] { return g.program.canvas.shownPoint(50, 40) == 0xFF0000; }));
  EXPECT_TRUE(g.program.state.mazeMadeOnce);
}

TEST(AFilesStart, IsLikeADrop) {
  Gallery g;
  g.desktop.bring({g.path("ready.png").toStdString()});
  ASSERT_TRUE(g.pumpUntil([&] { return g.program.canvas.shownPoint(50, 40) == 0xFF0000; }));
}

TEST(TheRegions, LieOverTheCanvasUntilAnyKey) {
  Gallery g;
  g.program.menus.setVisible(Item::filet, true);
  input::menuClick(g.program, Item::showregions);
  ASSERT_TRUE(g.program.regions.shown);
  g.pump(Pace::working);
  EXPECT_FALSE(g.desktop.window().view().overlay().isNull());
  QTest::keyClick(&g.desktop.window().view(), Qt::Key_Home);  // a key that no phase knows
  EXPECT_TRUE(g.pumpUntil([&] { return !g.program.regions.shown; }));
  g.pump(Pace::working);
  EXPECT_TRUE(g.desktop.window().view().overlay().isNull());
}

TEST(TheEntriesOfAMenu, AreThoseOfTheModel) {
  Gallery g;
  QMenu* recent = g.desktop.menus().action(Item::openrecent)->menu();
  ASSERT_EQ(recent->actions().size(), 1);
  EXPECT_FALSE(recent->actions().first()->isEnabled()) << "nothing yet";
  g.program.menus.setVisible(Item::filet, true);
  g.program.menus.setEntries(Item::openrecent, {"salt & pepper.png, in /home", "b.png, in /home"});
  g.pump(Pace::working);
  ASSERT_EQ(recent->actions().size(), 2);
  EXPECT_EQ(recent->actions().first()->text(), "&salt && pepper.png, in /home");
  g.program.recent = {g.path("gone.png").toStdString(), g.path("ready.png").toStdString()};
  recent->actions().at(1)->trigger();
  ASSERT_TRUE(g.pumpUntil([&] { return g.program.canvas.shownPoint(50, 40) == 0xFF0000; }));
}

TEST(TheNewestWork, IsTheOnlyOneThatComesOut) {
  std::promise<void> mayEnd;
  std::atomic<int> done = 0;
  std::vector<int> came;
  WorkThread thread([&done] { ++done; });
  const auto gives = [&came](int number) { return [&came, number](Program&) { came.push_back(number); }; };
  std::promise<void> begun;
  thread.ask([&]() -> Finish {
    begun.set_value();
    mayEnd.get_future().wait();
    return gives(1);
  });
  begun.get_future().wait();
  thread.ask([&]() -> Finish { return gives(2); });
  thread.ask([&]() -> Finish { return gives(3); });
  EXPECT_FALSE(thread.hasOutcome());
  mayEnd.set_value();
  while (!thread.hasOutcome()) std::this_thread::yield();
  Session session;
  (*thread.takeOutcome())(session.program);
  EXPECT_EQ(came, std::vector<int>{3});
  EXPECT_FALSE(thread.takeOutcome());
  EXPECT_EQ(done, 1);
}

TEST(AnAddress, LeadsToTheFileOfItsBytesAndBack) {
  QMimeData data;
  data.setUrls({QUrl::fromEncoded("file:///tmp/a%FF%25b%20c%23.png")});
  const std::filesystem::path file("/tmp/a\xFF%b c#.png");
  EXPECT_EQ(localFiles(data), std::vector{file});
  EXPECT_EQ(addressOf(file), data.urls().constFirst());
}

}  // namespace
}  // namespace gridwright
