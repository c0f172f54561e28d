// The workshop in the window: its sheet, its tools and its keys.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QUrl>
#include <QWheelEvent>
#include <set>

#include "platform/qt_session.h"
#include "session/workshop.h"

namespace gridwright {
namespace {

constexpr int kNavy = 1, kGreen = 2, kRed = 12;

/// A session in which the workshop is open, with white paper of 800 by 600 or more.
struct Workbench : Session {
  Workbench() {
    workshop(program);
    pump(Pace::working);
    pump(Pace::working);
  }
  SheetView& view() { return desktop.workshop().view(); }
  Sheet& sheet() { return *program.workshop.sheet; }
  WorkshopTools& tools() { return desktop.workshop().tools(); }
  /// What a person does, and the pumps that take it to the program and bring the window in line: of those
  /// that follow each other closely one in a few looks for input.
  template <class Act>
  void inputs(Act act) {
    act();
    for (int i = 0; i < 4; ++i) {
      pump(Pace::working);
      QTest::qWait(1);
    }
    pump(Pace::housekeeping);
  }
  void press(int x, int y, Qt::MouseButton button = Qt::LeftButton) {
    inputs([&] { QTest::mousePress(view().viewport(), button, {}, view().placeOf({x, y})); });
  }
  void drag(int x, int y, Qt::KeyboardModifiers held = {}) {
    inputs([&] { move(x, y, held); });
  }
  /// As the window system tells it: with the button that is held.
  void move(int x, int y, Qt::KeyboardModifiers held = {}) {
    const QPointF place = view().placeOf({x, y});
    QMouseEvent event(QEvent::MouseMove, place, view().viewport()->mapToGlobal(place), Qt::NoButton,
                      Qt::LeftButton, held);
    QApplication::sendEvent(view().viewport(), &event);
  }
  void release(int x, int y, Qt::KeyboardModifiers held = {}, Qt::MouseButton button = Qt::LeftButton) {
    inputs([&] { QTest::mouseRelease(view().viewport(), button, held, view().placeOf({x, y})); });
  }
  void key(Qt::Key key, Qt::KeyboardModifiers held = {}, QWidget* at = nullptr) {
    inputs([&] { QTest::keyClick(at != nullptr ? at : &view(), key, held); });
  }
  void choose(Hand hand) {
    inputs([&] { tools().button(hand)->click(); });
  }
  void wheel(int x, int y, int notches) {
    const QPointF place = view().placeOf({x, y});
    QWheelEvent event(place, view().viewport()->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    inputs([&] { QApplication::sendEvent(view().viewport(), &event); });
  }
  QPushButton* button(const QString& text) {
    for (auto* button : desktop.workshop().findChildren<QPushButton*>())
      if (button->text().remove('&') == text && button->isVisible()) return button;
    return nullptr;
  }
  QString said(const char* label) { return desktop.workshop().findChild<ElidedLabel*>(label)->words(); }
  int ink(int x, int y) { return sheet().inkAt(x, y).value_or(-1); }
  /// What is on the screen is what is on the sheet.
  bool showsTheSheet() {
    const QImage& shown = view().picture();
    if (shown.size() != QSize(sheet().size().width, sheet().size().height)) return false;
    for (int y = 0; y < shown.height(); ++y)
      for (int x = 0; x < shown.width(); ++x) {
        const Colour colour = sheet().picture().at(x, y);
        if (shown.pixel(x, y) != qRgb(colour & 255, colour >> 8 & 255, colour >> 16 & 255)) return false;
      }
    return true;
  }
};

TEST(TheWorkshop, LiesOverTheCanvasUntilEscapeAndTheKeyboardGoesBack) {
  Workbench w;
  EXPECT_TRUE(w.desktop.workshop().isVisible());
  EXPECT_EQ(w.desktop.workshop().size(), w.desktop.window().view().size());
  EXPECT_EQ(w.desktop.window().focusWidget(), &w.view());
  EXPECT_TRUE(w.desktop.workshop().pages().isHidden()) << "there is no picture to make ready";
  w.key(Qt::Key_Escape);
  EXPECT_FALSE(w.program.workshop.open);
  EXPECT_FALSE(w.desktop.workshop().isVisible());
  EXPECT_EQ(w.desktop.window().focusWidget(), &w.desktop.window().view());
}

TEST(CtrlD, OpensTheWorkshop) {
  Session session;
  session.program.menus.setVisible(Item::filet, true);
  QTest::keyClick(&session.desktop.window(), Qt::Key_D, Qt::ControlModifier);
  session.pump(Pace::idle);
  EXPECT_TRUE(session.program.workshop.open);
  EXPECT_TRUE(session.desktop.menus().action(Item::workshop)->text().endsWith("\tCtrl+D"));
}

TEST(ADraggedPencil, PaintsThroughEachPlaceThatTheMouseWasAt) {
  Workbench w;
  w.press(20, 20);
  w.inputs([&] {  // three moves in one pump
    w.move(60, 20);
    w.move(60, 60);
    w.move(100, 60);
  });
  w.release(100, 60);
  EXPECT_EQ(w.ink(40, 20), kNavy);
  EXPECT_EQ(w.ink(60, 40), kNavy);
  EXPECT_EQ(w.ink(80, 60), kNavy);
  EXPECT_EQ(w.ink(40, 40), kPaperInk) << "no short cut";
  EXPECT_TRUE(w.showsTheSheet());
  EXPECT_EQ(w.program.canvas.shownPoint(40, 20), w.program.canvas.backColor()) << "the Canvas waits for Use";
}

TEST(AShape, ShowsBeforeTheButtonIsLetGoAndShiftGivesItEqualSides) {
  Workbench w;
  w.choose(Hand::rectangle);
  w.press(10, 10);
  w.drag(50, 30);
  EXPECT_EQ(w.ink(50, 30), kNavy);
  EXPECT_TRUE(w.showsTheSheet());
  w.drag(30, 20);
  EXPECT_EQ(w.ink(50, 30), kPaperInk);
  EXPECT_TRUE(w.showsTheSheet());
  w.release(50, 30, Qt::ShiftModifier);
  EXPECT_EQ(w.ink(50, 50), kNavy);
  EXPECT_EQ(w.ink(51, 51), kPaperInk);
}

TEST(AShiftThatGoesDownInMidDrag, MakesTheLineStraightAtOnce) {
  Workbench w;
  w.choose(Hand::line);
  w.view().setFocus();
  w.press(10, 10);
  w.drag(60, 14);
  EXPECT_EQ(w.ink(60, 14), kNavy);
  w.inputs([&] { QTest::keyPress(&w.view(), Qt::Key_Shift); });
  EXPECT_EQ(w.ink(60, 14), kPaperInk);
  EXPECT_EQ(w.ink(60, 10), kNavy);
  w.inputs([&] { QTest::keyRelease(&w.view(), Qt::Key_Shift); });
  EXPECT_EQ(w.ink(60, 14), kNavy);
}

TEST(AStroke, GoesOnOffTheSheetAndComesBack) {
  Workbench w;
  w.press(5, 5);
  w.drag(-300, 5);
  w.drag(5, 40);
  w.release(5, 40);
  EXPECT_EQ(w.ink(0, 5), kNavy);
  EXPECT_EQ(w.ink(5, 40), kNavy);
  w.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(w.ink(5, 5), kPaperInk) << "all of it is one step";
}

TEST(AnotherButton, DoesNothingWhileOneIsHeld) {
  Workbench w;
  w.inputs([&] { w.tools().inks().button(kRed)->click(); });
  w.press(20, 20);
  w.release(20, 20);
  w.inputs([&] { w.tools().inks().button(kGreen)->click(); });
  w.press(60, 60);
  w.press(20, 20, Qt::RightButton);
  w.release(20, 20, {}, Qt::RightButton);
  EXPECT_EQ(w.sheet().settings().colour, kGreen);
  EXPECT_TRUE(w.sheet().isPressed());
  w.release(60, 60);
  w.press(20, 20, Qt::RightButton);
  EXPECT_EQ(w.sheet().settings().colour, kRed) << "the right button picks";
  EXPECT_TRUE(w.tools().inks().button(kRed)->isChecked());
}

TEST(TheKeyboardGone, EndsTheStroke) {
  Workbench w;
  w.view().setFocus();
  w.press(20, 20);
  ASSERT_TRUE(w.sheet().isPressed());
  w.inputs([&] { w.button("Use")->setFocus(); });
  EXPECT_FALSE(w.sheet().isPressed());
  w.drag(90, 20);
  EXPECT_EQ(w.ink(60, 20), kPaperInk);
}

TEST(AWindowResizedInMidDrag, EndsTheStrokeAndLeavesTheSheetAsLarge) {
  Workbench w;
  const Size before = w.sheet().size();
  w.press(20, 20);
  w.inputs([&] { w.desktop.window().resize(860, 760); });
  EXPECT_FALSE(w.sheet().isPressed());
  EXPECT_EQ(w.sheet().size(), before);
  EXPECT_EQ(w.desktop.workshop().size(), w.desktop.window().view().size());
}

TEST(KeysAlone, DrawALine) {
  Workbench w;
  w.key(Qt::Key_2, Qt::ControlModifier);
  EXPECT_EQ(w.tools().hand(), Hand::line);
  w.view().setFocus();
  w.key(Qt::Key_Right);
  const auto from = w.view().pointer();
  ASSERT_TRUE(from);
  w.inputs([&] { QTest::keyPress(&w.view(), Qt::Key_Space); });
  EXPECT_TRUE(w.sheet().isPressed());
  for (int i = 0; i < 3; ++i) w.key(Qt::Key_Down);
  w.key(Qt::Key_Right, Qt::ControlModifier);
  w.inputs([&] { QTest::keyRelease(&w.view(), Qt::Key_Space); });
  EXPECT_FALSE(w.sheet().isPressed());
  EXPECT_EQ(w.view().pointer()->x, from->x + w.sheet().pitch().stepX);
  EXPECT_EQ(w.view().pointer()->y, from->y + 3);
  EXPECT_EQ(w.ink(from->x, from->y), kNavy);
  EXPECT_EQ(w.ink(from->x + w.sheet().pitch().stepX, from->y + 3), kNavy);
}

TEST(ThePointer, StaysOnTheSheet) {
  Workbench w;
  w.view().setFocus();
  for (int i = 0; i < 120; ++i) w.key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(w.view().pointer()->x, 0);
}

TEST(CtrlAndADigit, ChooseEachToolAndAreTold) {
  Workbench w;
  for (int i = 0; i < kHands; ++i) {
    w.key(static_cast<Qt::Key>(Qt::Key_1 + i), Qt::ControlModifier);
    EXPECT_EQ(w.tools().hand(), static_cast<Hand>(i));
    EXPECT_TRUE(w.tools().button(static_cast<Hand>(i))->isChecked());
    EXPECT_EQ(w.tools().button(static_cast<Hand>(i))->toolTip(), QString("Ctrl+%1").arg(i + 1));
    const Tool inUse = i < 7 ? static_cast<Tool>(i) : Tool::pick;
    EXPECT_EQ(w.sheet().settings().tool, inUse) << "words and stamps leave it as it is";
  }
}

TEST(WhatIsSet, GoesToTheTool) {
  Workbench w;
  const auto tick = [&](const QString& text) {
    for (auto* box : w.tools().findChildren<QCheckBox*>())
      if (box->text().remove('&') == text) box->click();
  };
  w.inputs([&] {
    w.tools().findChild<QSpinBox*>()->setValue(1);
    for (auto* box : w.tools().findChildren<QSpinBox*>())
      if (box->accessibleName() == "Size in pixels") box->setValue(33);
    tick("Outline");
    tick("Snap to cells");
    for (auto* box : w.tools().findChildren<QComboBox*>())
      if (box->accessibleName() == "Mirror") box->setCurrentIndex(3);
    w.tools().inks().button(kPaperInk)->click();
  });
  const ToolSettings want{Tool::pencil, 33, false, true, true, Mirror::both, kPaperInk};
  EXPECT_EQ(w.sheet().settings(), want);
  EXPECT_TRUE(w.said("sheetstatus").endsWith("33 pixels · paper"));
  w.inputs([&] { tick("one cell"); });
  EXPECT_TRUE(w.sheet().settings().oneCell);
  EXPECT_TRUE(w.said("sheetstatus").endsWith("one cell · paper"));
}

TEST(TheColours, SayWhichAMazeFillsAndLeaveOutThoseItTakes) {
  Workbench w;
  EXPECT_EQ(w.tools().inks().button(kNavy)->accessibleName(), "navy, filled by a maze");
  EXPECT_EQ(w.tools().inks().button(kRed)->accessibleName(), "red");
  EXPECT_EQ(w.tools().inks().button(kPaperInk)->accessibleName(), "paper");
  for (int ink = 0; ink < kInks; ++ink) {
    EXPECT_EQ(w.tools().inks().button(ink)->isVisible(),
              roleOf(ink, w.program.workshop.sets()) != InkRole::taken);
    EXPECT_EQ(w.tools().inks().button(ink)->isFilled(),
              roleOf(ink, w.program.workshop.sets()) == InkRole::grows);
  }
}

TEST(TheWheel, ZoomsAtThePointerAndTheKeysAboutTheMiddle) {
  Workbench w;
  const QPoint place = w.view().placeOf({100, 80});
  w.wheel(100, 80, 3);
  EXPECT_EQ(w.view().zoom(), 4);
  EXPECT_LE((w.view().placeOf({100, 80}) - place).manhattanLength(), 4);
  w.wheel(100, 80, 99);
  EXPECT_EQ(w.view().zoom(), 16);
  w.wheel(100, 80, -99);
  EXPECT_EQ(w.view().zoom(), 1);
  w.key(Qt::Key_Plus, Qt::ControlModifier);
  w.key(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(w.view().zoom(), 3);
  EXPECT_TRUE(w.said("sheetstatus").endsWith("zoom 3"));
  w.key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(w.view().zoom(), 2);
  w.key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(w.view().zoom(), 1);
}

TEST(AZoomedSheet, HasSharpPixelsAndAGridOfCells) {
  Workbench w;
  w.press(203, 155);
  w.release(203, 155);
  w.wheel(203, 155, 99);
  const QPoint middle = w.view().placeOf({203, 155});
  const QImage shot = w.view().viewport()->grab().toImage();
  for (int by = -6; by <= 6; by += 3) EXPECT_EQ(shot.pixel(middle + QPoint(by, by)), qRgb(0, 0, 128));
  EXPECT_EQ(shot.pixel(middle + QPoint(16, 0)), qRgb(254, 254, 254));
  const QPoint corner = w.view().placeOf({200, 150});  // cells begin at the wall size, ten pixels apart
  EXPECT_NE(shot.pixel(corner - QPoint(8, 0)), qRgb(254, 254, 254));
  EXPECT_NE(shot.pixel(corner - QPoint(0, 8)), qRgb(254, 254, 254));
  EXPECT_EQ(shot.pixel(w.view().placeOf({207, 157}) - QPoint(8, 8)), qRgb(254, 254, 254));
}

TEST(ThePlaceInMidZoom, IsTheOneUnderTheMouse) {
  Workbench w;
  w.wheel(300, 200, 4);
  w.press(310, 205);
  w.release(310, 205);
  EXPECT_EQ(w.ink(310, 205), kNavy);
  EXPECT_TRUE(w.said("sheetstatus").startsWith("310, 205 · "));
}

TEST(UndoAndRedo, HaveButtonsAndKeysAlsoInANumberBox) {
  Workbench w;
  EXPECT_FALSE(w.button("Undo")->isEnabled());
  w.press(20, 20);
  w.release(20, 20);
  ASSERT_TRUE(w.button("Undo")->isEnabled());
  w.inputs([&] { w.button("Undo")->click(); });
  EXPECT_EQ(w.ink(20, 20), kPaperInk);
  EXPECT_FALSE(w.button("Undo")->isEnabled());
  EXPECT_TRUE(w.showsTheSheet());
  w.key(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(w.ink(20, 20), kNavy);
  auto* size = w.tools().findChildren<QSpinBox*>().first();
  size->setFocus();
  w.key(Qt::Key_Z, Qt::ControlModifier, size);
  EXPECT_EQ(w.ink(20, 20), kPaperInk);
  w.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, size);
  EXPECT_EQ(w.ink(20, 20), kNavy);
}

TEST(Words, ArePutDownInTheMiddleAndWhereTheSheetIsPressed) {
  Workbench w;
  w.choose(Hand::words);
  QPlainTextEdit* text = w.desktop.workshop().words().text();
  ASSERT_TRUE(text->isVisible());
  EXPECT_TRUE(text->hasFocus());
  w.inputs([&] { QTest::keyClicks(text, "Mi"); });
  w.inputs([&] { w.button("Put down")->click(); });
  EXPECT_EQ(w.program.workshop.words.text, "Mi");
  EXPECT_EQ(w.program.workshop.words.height, 12);
  ASSERT_TRUE(w.sheet().canUndo());
  EXPECT_TRUE(w.showsTheSheet());
  w.key(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_FALSE(w.sheet().canUndo());
  w.press(40, 50);
  w.release(40, 50);
  int left = 1000, top = 1000;
  for (int y = 0; y < w.sheet().size().height; ++y)
    for (int x = 0; x < w.sheet().size().width; ++x)
      if (w.ink(x, y) != kPaperInk) left = std::min(left, x), top = std::min(top, y);
  EXPECT_EQ(left, 40);
  EXPECT_EQ(top, 50);
}

TEST(TheTextOfWords, TakesWhatIsPastedAndItsOwnUndo) {
  Workbench w;
  w.choose(Hand::words);
  QPlainTextEdit* text = w.desktop.workshop().words().text();
  QApplication::clipboard()->setText("Zoe");
  w.key(Qt::Key_V, Qt::ControlModifier, text);
  EXPECT_EQ(text->toPlainText(), "Zoe");
  EXPECT_EQ(w.program.notices.words(), "") << "nothing was brought to the sheet";
  w.key(Qt::Key_Z, Qt::ControlModifier, text);
  EXPECT_EQ(text->toPlainText(), "");
}

TEST(WordsInPaper, CannotBePutDown) {
  Workbench w;
  w.choose(Hand::words);
  w.inputs([&] { w.tools().inks().button(kPaperInk)->click(); });
  EXPECT_FALSE(w.button("Put down")->isEnabled());
  w.inputs([&] { w.tools().inks().button(kRed)->click(); });
  EXPECT_TRUE(w.button("Put down")->isEnabled());
}

TEST(AStampInHand, IsTheOneWhoseButtonIsDown) {
  Workbench w;
  w.choose(Hand::stamp);
  w.inputs([&] { w.desktop.workshop().stamps().findChild<QToolButton*>("fish")->click(); });
  w.inputs([&] { w.tools().inks().button(kRed)->click(); });
  w.press(40, 40);
  EXPECT_EQ(w.program.workshop.stamp, (StampSettings{"fish", 20, kRed}));
}

TEST(CtrlEnter, MakesTheSheetTheDrawing) {
  Workbench w;
  w.press(30, 30);
  w.release(30, 30);
  w.key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_FALSE(w.program.workshop.open);
  EXPECT_EQ(w.program.canvas.shownPoint(30, 30), kPalette[1]);
  EXPECT_EQ(w.program.canvas.shownPoint(31, 31), kPaper);
  EXPECT_FALSE(w.desktop.workshop().isVisible());
}

TEST(TheLineUnderTheSheet, IsLiveAndTheRegionsAreLaidOverIt) {
  Workbench w;
  EXPECT_EQ(w.said("sheetline"), "0 cells in 0 regions; 0 areas too small for a cell");
  w.choose(Hand::rectangle);
  w.press(50, 50);
  w.drag(149, 149);
  w.release(149, 149);
  EXPECT_EQ(w.said("sheetline"), "100 cells in 1 regions; 0 areas too small for a cell");
  EXPECT_TRUE(w.view().layer().isNull());
  auto* tick = [&] {
    for (auto* box : w.desktop.workshop().findChildren<QCheckBox*>())
      if (box->text() == "Show re&gions") return box;
    return static_cast<QCheckBox*>(nullptr);
  }();
  w.inputs([&] { tick->click(); });
  EXPECT_NE(w.view().layer().pixel(100, 100), 0U);
  EXPECT_EQ(w.view().layer().pixel(10, 10), 0U);
  w.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(w.view().layer().pixel(100, 100), 0U) << "it follows the sheet";
  w.inputs([&] { tick->click(); });
  EXPECT_TRUE(w.view().layer().isNull());
}

TEST(AStrokeUnderWay, IsCountedNowAndThen) {
  Workbench w;
  w.choose(Hand::rectangle);
  w.press(50, 50);
  w.drag(149, 149);
  EXPECT_EQ(w.said("sheetline"), "0 cells in 0 regions; 0 areas too small for a cell");
  QTest::qWait(2 * WorkshopPanel::kBetweenCounts);
  w.pump(Pace::working);
  w.pump(Pace::working);
  EXPECT_EQ(w.said("sheetline"), "100 cells in 1 regions; 0 areas too small for a cell");
  w.release(149, 149);
}

TEST(ANoteOfAFill, StandsUnderTheSheet) {
  Workbench w;
  w.choose(Hand::rectangle);
  w.inputs([&] {
    for (auto* box : w.tools().findChildren<QCheckBox*>())
      if (box->text() == "Outline") box->click();
  });
  w.press(100, 100);
  w.drag(300, 300);
  w.release(300, 300);
  w.choose(Hand::eraser);
  w.press(300, 200);
  w.release(300, 200);
  w.choose(Hand::fill);
  w.press(200, 200);
  w.release(200, 200);
  EXPECT_EQ(w.said("sheetnote"), "the fill ran out through a gap at 300, 200");
}

/// A picture comes onto the sheet.
struct Placing : Workbench {
  Placing() {
    QImage picture(120, 100, QImage::Format_RGB32);
    picture.fill(qRgb(254, 254, 254));
    for (int y = 30; y < 70; ++y)
      for (int x = 30; x < 90; ++x) picture.setPixel(x, y, qRgb(0, 128, 0));
    picture.save(folder.path() + "/leaf.png");
  }
  void bring() {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder.path() + "/leaf.png")});
    QDragEnterEvent enter({300, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &enter);
    QDropEvent event({300, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&desktop.window(), &event);
    for (int i = 0; i < 2000 && !(program.prepare.open && program.prepare.made); ++i) {
      pump(Pace::working);
      QTest::qWait(5);
    }
    pump(Pace::working);
  }
  void place() {
    press(2, 2);  // so that it is not the first on the sheet
    release(2, 2);
    bring();
    ASSERT_TRUE(button("Place")->isEnabled());
    inputs([&] { button("Place")->click(); });
    ASSERT_TRUE(program.workshop.placed);
    ASSERT_TRUE(view().frame());
    ASSERT_EQ(size(), (Size{60, 40})) << "its ink alone";
  }
  Corner at() { return program.workshop.placed->at; }
  Size size() { return program.workshop.placed->size; }
};

TEST(ADropOnTheWorkshop, TurnsToThePageThatMakesItReady) {
  Placing w;
  w.bring();
  EXPECT_TRUE(w.desktop.workshop().pages().isVisible());
  EXPECT_TRUE(w.desktop.preparePage().isVisible());
  EXPECT_FALSE(w.view().isVisible());
  EXPECT_TRUE(w.desktop.preparePage().isAncestorOf(w.desktop.window().focusWidget()));
  w.inputs([&] { w.desktop.workshop().pages().setCurrentIndex(0); });
  EXPECT_EQ(w.program.workshop.page, WorkshopPage::sheet);
  EXPECT_TRUE(w.view().isVisible());
  EXPECT_TRUE(w.view().hasFocus());
  w.inputs([&] { w.desktop.workshop().pages().setCurrentIndex(1); });
  w.inputs([&] { w.button("Put away")->click(); });
  EXPECT_FALSE(w.program.prepare.open);
  EXPECT_TRUE(w.desktop.workshop().pages().isHidden());
  EXPECT_TRUE(w.view().isVisible());
}

TEST(APlacedPicture, IsMovedByItsInsideAndByArrows) {
  Placing w;
  w.place();
  const Corner begin = w.at();
  w.press(begin.x + 30, begin.y + 20);
  w.drag(begin.x + 50, begin.y + 25);
  w.drag(begin.x + 130, begin.y + 70);
  w.release(begin.x + 130, begin.y + 70);
  EXPECT_EQ(w.at().x, begin.x + 100);
  EXPECT_EQ(w.at().y, begin.y + 50);
  EXPECT_EQ(w.ink(begin.x, begin.y), kPaperInk);
  EXPECT_TRUE(w.showsTheSheet());
  w.view().setFocus();
  w.key(Qt::Key_Left);
  w.key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(w.at().x, begin.x + 99);
  EXPECT_EQ(w.at().y, begin.y + 50 - w.sheet().pitch().stepY);
  w.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(w.view().frame()) << "the whole placing is one step";
  EXPECT_EQ(w.ink(begin.x + 120, begin.y + 60), kPaperInk);
}

TEST(ACornerOfAPlacedPicture, ScalesItAndKeepsItsShapeWithoutShift) {
  Placing w;
  w.place();
  const Corner begin = w.at();
  w.press(begin.x + 59, begin.y + 39);
  w.drag(begin.x + 119, begin.y + 39);
  EXPECT_EQ(w.size(), (Size{120, 80}));
  w.drag(begin.x + 99, begin.y + 39, Qt::ShiftModifier);
  EXPECT_EQ(w.size(), (Size{100, 40}));
  w.release(begin.x + 99, begin.y + 39);
  w.view().setFocus();
  w.key(Qt::Key_Plus);
  EXPECT_EQ(w.size(), (Size{105, 42}));
  w.key(Qt::Key_Minus);
  EXPECT_EQ(w.size(), (Size{100, 40}));
}

TEST(AToolOrAPressBeside, LeavesThePlacedPicture) {
  Placing w;
  w.place();
  const Corner begin = w.at();
  w.choose(Hand::pencil);
  EXPECT_FALSE(w.view().frame());
  w.press(begin.x + 5, begin.y + 5);
  w.release(begin.x + 5, begin.y + 5);
  EXPECT_EQ(w.ink(begin.x + 5, begin.y + 5), kNavy) << "the pencil paints over it";
  Placing other;
  other.place();
  other.press(other.at().x - 40, other.at().y - 40);
  other.release(other.at().x - 40, other.at().y - 40);
  EXPECT_FALSE(other.view().frame());
  EXPECT_EQ(other.ink(other.at().x - 40, other.at().y - 40), kPaperInk);
  other.bring();
  other.inputs([&] { other.button("Place")->click(); });
  EXPECT_TRUE(other.view().frame()) << "another picture has a frame again";
}

TEST(TheSheetElsewhere, IsLookedAtOnlyWhileItIsThere) {
  Workbench w;
  const auto* timer = [&] {
    for (const auto* candidate : w.desktop.workshop().findChildren<QTimer*>())
      if (candidate->interval() == WorkshopPanel::kBetweenLooks) return candidate;
    return static_cast<const QTimer*>(nullptr);
  }();
  ASSERT_NE(timer, nullptr);
  EXPECT_FALSE(timer->isActive());
  QImage picture(w.view().picture().size(), QImage::Format_RGB32);
  picture.fill(qRgb(254, 254, 254));
  const QString file = w.folder.path() + "/sheet.png";
  picture.save(file);
  w.program.workshop.elsewhere = file.toStdString();
  w.program.workshop.mark = markOf(w.program.workshop.elsewhere);
  ++w.program.workshop.revision;
  w.inputs([] {});
  EXPECT_TRUE(timer->isActive());
  picture.setPixel(70, 70, qRgb(255, 0, 0));
  picture.save(file + ".part", "PNG");
  QFile::remove(file);
  QFile::rename(file + ".part", file);
  for (int i = 0; i < 400 && w.ink(70, 70) != kRed; ++i) {
    QTest::qWait(5);
    w.pump(Pace::working);
  }
  EXPECT_EQ(w.ink(70, 70), kRed);
  w.key(Qt::Key_Escape);
  EXPECT_FALSE(timer->isActive());
}

TEST(EverythingInTheWorkshop, HasANameAndEachMnemonicStandsForOneThing) {
  Workbench w;
  for (const Hand hand : {Hand::pencil, Hand::words, Hand::stamp}) {
    w.choose(hand);
    std::set<QChar> letters;
    for (auto* widget : w.desktop.workshop().findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      QString text;
      if (const auto* button = qobject_cast<QAbstractButton*>(widget)) text = button->text();
      if (const auto* label = qobject_cast<QLabel*>(widget)) text = label->text();
      const bool isStop = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
      EXPECT_FALSE(isStop && widget->accessibleName().isEmpty() && text.isEmpty())
          << widget->metaObject()->className();
      const qsizetype at = text.indexOf('&');
      if (at < 0) continue;
      const QChar letter = text.at(at + 1).toLower();
      EXPECT_TRUE(letters.insert(letter).second) << letter.toLatin1();
      EXPECT_FALSE(QString("fopmsti").contains(letter)) << "the menus have it: " << letter.toLatin1();
    }
    EXPECT_GE(letters.size(), 8U);
  }
}

TEST(TheWorkshop, FitsTheSmallestWindow) {
  Workbench w;
  w.desktop.setWindowState(WindowState::normal);
  w.inputs([&] { w.desktop.window().resize(640, 480); });
  w.inputs([&] {});
  ASSERT_EQ(w.desktop.window().width(), 640);
  for (const char* text : {"Picture…", "Edit in another program", "Use", "Cancel"}) {
    const QPushButton* button = w.button(text);
    const QRect place(button->mapTo(&w.desktop.workshop(), QPoint()), button->size());
    EXPECT_TRUE(w.desktop.workshop().rect().contains(place)) << text;
    EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()));
  }
  EXPECT_GE(w.view().viewport()->height(), 200);
}

}  // namespace
}  // namespace gridwright
