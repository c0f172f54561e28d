// The workshop in the window: its pages, its tools and its keys.
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTabBar>
#include <QTimer>
#include <set>

#include "platform/qt_workbench.h"

namespace gridwright {
namespace {

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

TEST(TheColours, HaveTheirLettersWhereColoursAreMarked) {
  Workbench w;
  EXPECT_FALSE(w.tools().inks().button(kNavy)->showsLetter());
  w.program.markColours = true;
  onSheet(w.program, [](Sheet& sheet) { sheet.press(1, 1); });
  w.inputs([] {});
  EXPECT_TRUE(w.tools().inks().button(kNavy)->showsLetter());
  EXPECT_FALSE(w.tools().inks().button(kPaperInk)->showsLetter());
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
  w.program.workshop.mark = markOf(*w.program.workshop.elsewhere);
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
