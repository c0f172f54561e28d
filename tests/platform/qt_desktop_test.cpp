#include "platform/qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <functional>
#include <set>

#include "menus/enable_table.h"
#include "menus/panels.h"
#include "menus/status_words.h"
#include "platform/qt/swatch_button.h"
#include "platform/shared/end_signals.h"
#include "platform/shared/image_files.h"
#include "qt_session.h"
#include "session/input.h"
#include "support/as_nobody.h"

namespace gridwright {
namespace {

TEST(WhatIsTypedInABox, ReachesTheModelInTheNextPump) {
  Session session;
  openPanel(session.program, kWallSizePanel, "10");
  session.pump(Pace::housekeeping);
  QTest::keyClicks(session.box(ControlId::Text2), "25");
  EXPECT_EQ(session.program.controls[ControlId::Text2].text, "10") << "not before the pump";
  session.pump(Pace::idle);
  EXPECT_EQ(session.program.controls[ControlId::Text2].text, "25");
}

TEST(TheDrawing, IsKeptSomeTimeAfterEachOfItsChanges) {
  Session session;
  const std::filesystem::path folder = session.folder.path().toStdString();
  session.desktop.autosaveAfter(std::chrono::milliseconds(20));
  Canvas& canvas = session.program.canvas;
  for (const Colour colour : {qb::yellow, qb::lightMagenta}) {
    canvas.setAutoRedraw(true);
    canvas.fill(10, 10, 15, 20, colour);
    const auto isKept = [&] {
      session.pump(Pace::working);
      const auto kept = readBitmapFile(folder / "last-drawing.bmp");
      return kept && kept.value().at(12, 15) == colour;
    };
    EXPECT_TRUE(QTest::qWaitFor(isKept, 10'000));
  }
}

TEST(KeysAndCommands, WaitWhileThePumpKeepsHouse) {
  Session session;
  openPanel(session.program, kWallSizePanel, "10");
  session.pump(Pace::housekeeping);
  QTest::keyClicks(session.box(ControlId::Text2), "25");
  session.pump(Pace::housekeeping);
  EXPECT_EQ(session.program.controls[ControlId::Text2].text, "10");
  EXPECT_EQ(session.box(ControlId::Text2)->text(), "25") << "what was typed stays in the box meanwhile";
  session.pump(Pace::idle);
  EXPECT_EQ(session.program.controls[ControlId::Text2].text, "25");
}

TEST(BothEnterKeysAndEscape, CloseThePanel) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
    Session session;
    openPanel(session.program, kWallSizePanel, "10");
    session.pump(Pace::housekeeping);
    QTest::keyClicks(session.box(ControlId::Text2), "20");
    QTest::keyClick(session.box(ControlId::Text2), key);
    session.pump(Pace::idle);
    EXPECT_FALSE(session.program.state.panelOpen);
    EXPECT_EQ(session.program.state.wallWidth, key == Qt::Key_Escape ? 10 : 20);
    session.pump(Pace::housekeeping);
    EXPECT_FALSE(session.box(ControlId::Text2)->isVisible());
    EXPECT_EQ(session.desktop.window().focusWidget(), &session.desktop.window().view());
  }
}

TEST(ASignalThatEnds, IsSeenByThePumpWithoutAPipeToWakeIt) {
  std::signal(SIGTERM, SIG_DFL);
  const EndSignals asked;
  Session session;
  ASSERT_EQ(std::raise(SIGTERM), 0);
  EXPECT_THROW(session.pump(Pace::idle), ProgramEnd);
  session.desktop.messageBox("this waits for nobody");
}

TEST(AWindowWithSomethingToShow, LeavesNoPumpOut) {
  Session session;
  session.program.canvas.takeDirty();
  for (int i = 0; i < 100'000; ++i) session.pump(Pace::working);
  for (int i = 0; i < 1000 && session.desktop.quietPumps(session.program) == 0; ++i) {
    session.pump(Pace::working);  // until the clock was looked at
  }
  const std::int64_t quiet = session.desktop.quietPumps(session.program);
  EXPECT_GT(quiet, 0);
  EXPECT_LE(quiet, 1000) << "no longer than until the clock is looked at again";
  session.program.canvas.fill(5, 5, 9, 9, kPalette[12]);
  EXPECT_EQ(session.desktop.quietPumps(session.program), 0) << "a stroke is shown before the next";
  session.pump(Pace::idle);
  session.program.menus.setChecked(Item::cgenerate, !session.program.menus.checked(Item::cgenerate));
  EXPECT_EQ(session.desktop.quietPumps(session.program), 0) << "and so is a menu";
}

TEST(PumpsThatAreLeftOutOfAWindow, BringTheLookAtTheClockNearer) {
  Session session;
  for (int i = 0; i < 100'000; ++i) session.pump(Pace::working);
  for (int i = 0; i < 1000 && session.desktop.quietPumps(session.program) == 0; ++i)
    session.pump(Pace::working);
  const std::int64_t quiet = session.desktop.quietPumps(session.program);
  ASSERT_GT(quiet, 0);
  session.desktop.passOver(quiet);
  EXPECT_EQ(session.desktop.quietPumps(session.program), 0);
}

TEST(TheSecondCommandOfAPump, IsDropped) {
  Session session;
  session.pump(Pace::housekeeping);
  session.desktop.menus().action(Item::cgenerate)->trigger();
  session.desktop.menus().action(Item::stopfinish)->trigger();
  session.pump(Pace::idle);
  EXPECT_EQ(session.program.state.creationMode, CreationMode::computer);
  EXPECT_FALSE(session.program.state.stopAtFinish);
}

TEST(ClosingTheWindow, EndsTheProgramFromThePumpAndKeepsTheWindowUntilThen) {
  Session session;
  session.desktop.window().close();
  EXPECT_TRUE(session.desktop.window().isVisible());
  EXPECT_THROW(session.pump(Pace::idle), ProgramEnd);
}

TEST(TheCanvas, FollowsTheWindowInDrawingAndNotWhileAMazeIsMade) {
  Session session;
  session.desktop.window().resize(950, 800);
  session.pump(Pace::housekeeping);
  EXPECT_EQ(session.program.canvas.scaleWidth(), 950);
  session.program.state.phase = Phase::making;
  session.desktop.window().resize(850, 800);
  session.pump(Pace::housekeeping);
  EXPECT_EQ(session.program.canvas.scaleWidth(), 950);
}

TEST(AStroke, IsOnTheScreenWhenThePumpComesBack) {
  Session session;
  session.program.canvas.fill(10, 10, 20, 20, kPalette[12]);
  session.pump(Pace::working);
  EXPECT_EQ(session.desktop.window().view().picture().pixel(15, 15), qRgb(255, 0, 0));
}

TEST(AMinimisedWindow, SkipsThePaintingAndShowsAllWhenItComesBack) {
  Session session;
  session.desktop.setWindowState(WindowState::minimised);
  ASSERT_EQ(session.desktop.windowState(), WindowState::minimised);
  session.program.canvas.fill(10, 10, 20, 20, kPalette[12]);
  session.pump(Pace::housekeeping);
  EXPECT_NE(session.desktop.window().view().picture().pixel(15, 15), qRgb(255, 0, 0));
  session.desktop.setWindowState(WindowState::normal);
  session.pump(Pace::housekeeping);
  EXPECT_EQ(session.desktop.window().view().picture().pixel(15, 15), qRgb(255, 0, 0));
}

TEST(AFileWhoseNameIsNoUtf8, IsImportedByAClickInTheList) {
  Session session;
  const std::filesystem::path folder = session.folder.path().toStdString();
  ASSERT_TRUE(writeBitmapFile(plainBitmap(60, 40, kPalette[1]), folder / "caf\xE9.bmp"));
  input::menuClick(session.program, Item::importdrawing);
  session.pump(Pace::housekeeping);
  auto* list = static_cast<QListWidget*>(session.desktop.controls().widget(ControlId::File5));
  ASSERT_EQ(list->count(), 1);
  emit list->itemClicked(list->item(0));
  session.pump(Pace::idle);
  QTest::keyClick(session.box(ControlId::Text8), Qt::Key_Return);
  session.pump(Pace::idle);
  EXPECT_TRUE(session.program.state.mazeMadeOnce);
  EXPECT_EQ(session.program.canvas.point(30, 20), kPalette[1]);
}

TEST(TheCaption, IsTheModels) {
  Session session;
  session.program.controls.setCaption("Gridwright-(placing start and finish)");
  session.pump(Pace::working);
  EXPECT_EQ(session.desktop.window().windowTitle(), "Gridwright-(placing start and finish)");
}

/// What a screen reader says of the Canvas once the program waits for a person.
QString description(Session& session) {
  QTimer::singleShot(20, &session.desktop.window(), &QWidget::close);  // what ends the wait
  try {
    session.pump(Pace::idle);
  } catch (const ProgramEnd&) {
  }
  return session.desktop.window().view().accessibleDescription();
}

TEST(AScreenReader, HearsThePhaseAndTheSquaresCell) {
  Session session;
  session.program.controls.setCaption("drawing");
  session.program.state.wallWidth = session.program.state.stepX = 20;
  session.program.state.cur = {60, 10, 79, 19};
  EXPECT_EQ(description(session), "drawing; drawing, walls 20; black, 1 cell at column 3, row 1, drawing on");
}

TEST(AScreenReader, HearsWhereBothEndsArePlaced) {
  Session session;
  session.program.controls.setCaption("placing");
  session.program.state.phase = Phase::placing;
  session.program.state.start = {10, 10, 19, 19};
  session.program.state.finish = {40, 30, 49, 39};
  EXPECT_EQ(description(session),
            "placing; start and finish, walls 10; start at column 1, row 1; finish at column 4, row 3");
}

/// What the message box says that comes up meanwhile; it is read and closed.
std::string messageDuring(const std::function<void()>& action) {
  std::string words;
  QTimer reader;
  QObject::connect(&reader, &QTimer::timeout, [&words] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      words = box->text().toStdString();
      box->close();
    }
  });
  reader.start(5);
  action();
  return words;
}

TEST(PagesThatCannotBeKept, AreToldOnceInTheWindow) {
  Session session;
  const std::string folder = session.folder.path().toStdString();
  const Bitmap page = plainBitmap(80, 60, kPalette[1]);
  {
    const test::ReadOnly locked(folder);
    EXPECT_EQ(messageDuring([&] { session.desktop.printAlone(page, {}); }), kPagesLost);
  }
  EXPECT_EQ(messageDuring([&] { session.desktop.printAlone(page, {}); }), "");
  std::filesystem::remove_all(folder);
  EXPECT_EQ(messageDuring([&] { session.desktop.printAlone(page, {}); }), kPagesLost);
  EXPECT_EQ(messageDuring([&] { EXPECT_FALSE(session.desktop.printForm(page, {})); }), "")
      << "the end tells it";
  EXPECT_EQ(messageDuring([&] { session.desktop.endOfPages(); }), kPagesLost);
  EXPECT_EQ(messageDuring([&] { session.desktop.endOfPages(); }), "");
  std::filesystem::create_directory(folder);
  EXPECT_EQ(messageDuring([&] { session.desktop.printAlone(page, {}); }), kPagesLost)
      << "it is another folder, though it bears the name";
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST(AWindowThatWaitsForANewSize, IsPaintedAndHearsItsTimersMeanwhile) {
  Session session;
  const Size largest = session.desktop.maximise();
  const QRect place = session.desktop.window().geometry();
  session.desktop.setWindowState(WindowState::normal);
  session.pump(Pace::working);
  QTest::qWait(20);
  session.desktop.window().setGeometry(place);  // so that no new size will come
  QTest::qWait(20);
  ASSERT_EQ(session.desktop.windowState(), WindowState::normal);
  ASSERT_EQ(session.desktop.clientSize().height, largest.height);
  int heard = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    ++heard;
    session.desktop.window().view().update();
  });
  timer.start(1);
  session.desktop.maximise();
  EXPECT_EQ(session.desktop.clientSize().height, largest.height);
  EXPECT_GT(heard, 5);
}

TEST(TheNormalPlace, IsTheSizeToGoBackToFromAMaximisedWindow) {
  Session session;
  session.desktop.maximise();
  ASSERT_EQ(session.desktop.windowState(), WindowState::maximised);
  session.desktop.setNormalPlace({40, 50, 640, 480});
  session.desktop.maximise();
  EXPECT_EQ(session.desktop.windowState(), WindowState::maximised);
  const WindowPlace place = session.desktop.normalPlace();
  EXPECT_EQ(place.left, 40);
  EXPECT_EQ(place.top, 50);
  EXPECT_EQ(place.width, 640);
  EXPECT_EQ(place.height, 480);
}

/// A session past its title, with the menus as the program has them there.
struct Working : Session {
  Working() {
    program.menus.setVisible(Item::filet, true);
    settle();
  }
  void settle() {
    applyEnableTable(program);
    QTest::qSleep(2);  // a window that was asked a moment ago is not asked again
    for (int pass = 0; pass < 100; ++pass) pump(Pace::working);
    pump(Pace::housekeeping);
  }
  QWidget* view() { return &desktop.window().view(); }
  void press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(view(), key, with);
    settle();
  }
};

TEST(TheKeysOfTheMenus, ChooseTheirItemsInTheWindow) {
  Working w;
  w.program.keysHintTold = true;
  w.press(Qt::Key_F1);
  EXPECT_TRUE(w.program.keys.shown);
  EXPECT_TRUE(w.desktop.keysPage().isVisible());
  EXPECT_TRUE(w.desktop.keysPage().accessibleDescription().contains("grow it up, down, left, right"));
  w.press(Qt::Key_Slash);
  EXPECT_FALSE(w.program.keys.shown);
  EXPECT_FALSE(w.desktop.keysPage().isVisible());
  EXPECT_FALSE(w.program.state.drawingOff) << "it closed the sheet and did nothing else";
  w.press(Qt::Key_Slash);
  EXPECT_TRUE(w.program.state.drawingOff);
  w.press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(w.program.controls[ControlId::text1].visible);
}

TEST(KeysWithCtrlOrAlt, NeverReachThePhaseThatKnowsThemPlain) {
  Working w;
  const Square cur = w.program.state.cur;
  for (const Qt::KeyboardModifier with : {Qt::ControlModifier, Qt::AltModifier}) {
    for (const Qt::Key key : {Qt::Key_Slash, Qt::Key_W, Qt::Key_H, Qt::Key_Right, Qt::Key_X})
      w.press(key, with);
    EXPECT_EQ(w.program.state.cur, cur);
    EXPECT_FALSE(w.program.state.drawingOff);
  }
}

TEST(AKeyHeldForTheNextOne, LeavesTheSheetWhereItIs) {
  Working w;
  w.press(Qt::Key_F1);
  for (const Qt::Key key : {Qt::Key_Control, Qt::Key_Shift, Qt::Key_Alt}) w.press(key);
  EXPECT_TRUE(w.program.keys.shown);
  w.press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_FALSE(w.program.keys.shown);
  EXPECT_FALSE(w.program.controls[ControlId::text1].visible) << "the key that closes it saves nothing";
}

TEST(AClickOnTheSheet, ClosesIt) {
  Working w;
  w.press(Qt::Key_F1);
  QTest::mouseClick(const_cast<KeysPage*>(&w.desktop.keysPage()), Qt::LeftButton);
  w.settle();
  EXPECT_FALSE(w.program.keys.shown);
}

TEST(TheWholeScreen, CountsAsMaximisedAndIsLeftByThePersonAlone) {
  Working w;
  w.press(Qt::Key_F11);
  EXPECT_TRUE(w.desktop.window().isFullScreen());
  EXPECT_EQ(w.desktop.windowState(), WindowState::maximised);
  w.desktop.maximise();
  EXPECT_TRUE(w.desktop.window().isFullScreen());
  w.desktop.setWindowState(WindowState::minimised);
  w.desktop.setWindowState(WindowState::maximised);
  EXPECT_TRUE(w.desktop.window().isFullScreen());
  EXPECT_FALSE(w.desktop.window().isMinimized());
  w.desktop.setNormalPlace({40, 50, 640, 480});
  EXPECT_TRUE(w.desktop.window().isFullScreen());
  w.press(Qt::Key_F11);
  EXPECT_FALSE(w.desktop.window().isFullScreen());
  w.program.state.phase = Phase::title;
  w.settle();
  w.press(Qt::Key_F11);
  EXPECT_TRUE(w.desktop.window().isFullScreen()) << "at the title too";
}

TEST(MarkedColours, HaveLettersOnSwatchesAndShapesOnTheEndsOfTheWindowAlone) {
  Working w;
  ProgramState& s = w.program.state;
  s.phase = Phase::placing;
  s.start = {11, 11, 18, 18};
  s.finish = {61, 31, 68, 38};
  s.startColor = kPalette[12];
  s.finishColor = kPalette[9];
  w.program.canvas.fill(s.start, s.startColor);
  w.program.canvas.fill(s.finish, s.finishColor);
  w.settle();
  const auto shot = [&] { return w.view()->grab().toImage(); };
  const QImage before = shot();
  const Bitmap plane = w.program.canvas.image();
  input::menuClick(w.program, Item::markcolours);
  w.settle();
  const EndMarks& marks = w.desktop.window().view().endMarks();
  EXPECT_EQ(marks.start, QRect(11, 11, 8, 8));
  EXPECT_EQ(marks.finish, QRect(61, 31, 8, 8));
  EXPECT_NE(shot(), before);
  EXPECT_EQ(w.program.canvas.image().pixels, plane.pixels) << "what is saved and printed bears no mark";
  w.program.canvas.fill(s.finish, kPalette[15]);
  w.settle();
  EXPECT_EQ(marks.finish, std::nullopt) << "no square is there to bear one";
  w.program.state.keyBusy = false;
  input::menuClick(w.program, Item::markcolours);
  w.program.canvas.fill(s.finish, s.finishColor);
  w.settle();
  EXPECT_EQ(shot(), before);
}

TEST(TheLetters, AreSixteenAndNoneTwice) {
  std::set<char> letters;
  for (const Colour colour : kPalette) letters.insert(colourLetter(colour).value_or(' '));
  EXPECT_EQ(letters.size(), 16U);
  EXPECT_FALSE(letters.contains(' '));
  EXPECT_EQ(colourLetter(0x123456), std::nullopt);
}

TEST(ASwatch, ShowsItsLetterWhileColoursAreMarked) {
  SwatchButton swatch(12, nullptr);
  swatch.resize(swatch.sizeHint());
  const QImage plain = swatch.grab().toImage();
  swatch.setMarked(true);
  EXPECT_NE(swatch.grab().toImage(), plain);
  swatch.setMarked(false);
  EXPECT_EQ(swatch.grab().toImage(), plain);
}

}  // namespace
}  // namespace gridwright
