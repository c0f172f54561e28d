// The panel of page setup, and what a run shows of itself.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPageLayout>
#include <QPageSize>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QThread>
#include <QTimer>

#include "platform/shared/page_paint.h"
#include "qt_session.h"
#include "session/input.h"

namespace gridwright {
namespace {

struct Panel : Session {
  explicit Panel(const PageSetup& setup = {}) {
    program.menus.setVisible(Item::filet, true);
    program.pages.setup = setup;
    input::menuClick(program, Item::pagesetup);
    pump(Pace::housekeeping);
  }
  template <class T>
  T* part(const char* name) {
    return desktop.pageSetup().findChild<T*>(name);
  }
  void accept() {
    QTest::keyClick(part<QLineEdit>("title"), Qt::Key_Return);
    pump(Pace::idle);
  }
};

TEST(ThePageSetupPanel, IsShownWithTheKeyboardInTheTitleAndGoesWithItsModel) {
  Panel panel;
  EXPECT_TRUE(panel.desktop.pageSetup().isVisible());
  EXPECT_EQ(panel.desktop.window().focusWidget(), panel.part<QLineEdit>("title"));
  QTest::keyClick(panel.part<QLineEdit>("title"), Qt::Key_Escape);
  panel.pump(Pace::idle);
  panel.pump(Pace::housekeeping);
  EXPECT_FALSE(panel.program.pages.open);
  EXPECT_FALSE(panel.desktop.pageSetup().isVisible());
  EXPECT_EQ(panel.desktop.window().focusWidget(), &panel.desktop.window().view());
}

TEST(ThePageSetupPanel, IsWalkedThroughByTab) {
  Panel panel;
  std::vector<std::string> walked;
  for (int i = 0; i < 6; ++i) {
    walked.push_back(panel.desktop.window().focusWidget()->objectName().toStdString());
    QTest::keyClick(panel.desktop.window().focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(walked,
            (std::vector<std::string>{"title", "nameline", "endwords", "paper", "orientation", "margin"}));
}

TEST(ThePageSetupPanel, ReportsNothingThatNobodyHasSet) {
  Panel panel;
  EXPECT_EQ(panel.part<QComboBox>("paper")->currentText(), "A4, as the desktop has it");
  EXPECT_EQ(panel.part<QSpinBox>("margin")->text(), "10 mm, as the desktop has them");
  panel.accept();
  EXPECT_FALSE(panel.program.pages.open);
  EXPECT_EQ(panel.program.pages.setup, PageSetup());
}

TEST(ThePageSetupPanel, TakesWhatAPersonSets) {
  Panel panel;
  QTest::keyClicks(panel.part<QLineEdit>("title"), "Mazes & more");
  panel.part<QCheckBox>("nameline")->click();
  panel.part<QCheckBox>("endwords")->click();
  panel.part<QComboBox>("paper")->setCurrentText("Letter");
  panel.part<QComboBox>("orientation")->setCurrentIndex(1);
  panel.part<QSpinBox>("margin")->setValue(15);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_I, Qt::AltModifier);
  QTest::keyClicks(QApplication::focusWidget(), "3");
  panel.part<QSpinBox>("rows")->setValue(2);
  panel.part<QPushButton>("use")->click();
  panel.pump(Pace::idle);
  const PageSetup wanted{paperNamed("letter"), false, allRound(15), "Mazes & more", true, true, {3, 2}};
  EXPECT_EQ(panel.program.pages.setup, wanted);
}

TEST(ThePageSetupPanel, GivesBackWhatIsInForceWhenNothingIsChanged) {
  for (const PageSetup& setup :
       {PageSetup{PaperSize{1760, 2500}, true, Margins{100, 200, 300, 50}, "T", true, false},
        PageSetup{paperNamed("a3"), false, allRound(0), "", false, true, {9, 1}},
        PageSetup{std::nullopt, std::nullopt, Margins{85, 85, 85, 85}, "", false, false}}) {
    Panel panel(setup);
    panel.accept();
    EXPECT_FALSE(panel.program.pages.open);
    EXPECT_EQ(panel.program.pages.setup, setup);
  }
}

TEST(ThePageSetupPanel, ShowsMarginsThatDifferAndTakesOneForAll) {
  Panel panel({std::nullopt, std::nullopt, Margins{100, 200, 300, 50}, {}});
  auto* margin = panel.part<QSpinBox>("margin");
  EXPECT_EQ(margin->text(), "each its own");
  margin->setValue(7);
  panel.accept();
  EXPECT_EQ(panel.program.pages.setup.margins, allRound(7));
}

/// Closes the dialog that opens next, when it was looked at.
template <class Dialog, class Look>
bool seen(Session& session, const std::function<void()>& ask, Look look) {
  bool was = false;
  QTimer often;
  QObject::connect(&often, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || was) return;
    was = true;
    look(*dialog);
    dialog->close();
  });
  often.start(5);
  ask();
  for (int i = 0; i < 100 && !was; ++i) {
    QThread::msleep(2);  // so that the next pump looks at what waits
    session.pump(Pace::working);
  }
  return was;
}

TEST(ThePreview, ShowsThePageInADialogOfQts) {
  Session session;
  session.program.menus.setVisible(Item::filet, true);
  session.program.pages.setup.landscape = false;
  EXPECT_TRUE(seen<QPrintPreviewDialog>(
      session, [&] { input::menuClick(session.program, Item::printpreview); },
      [](QPrintPreviewDialog& dialog) {
        const auto* pages = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_NE(pages, nullptr);
        EXPECT_EQ(dialog.printer()->pageLayout().orientation(), QPageLayout::Portrait);
        EXPECT_EQ(pages->pageCount(), 1);
      }));
}

TEST(ThePreview, ShowsEverySheetOfAPageThatIsSpread) {
  Session session;
  session.program.menus.setVisible(Item::filet, true);
  session.program.pages.setup.tiles = {3, 2};
  EXPECT_TRUE(seen<QPrintPreviewDialog>(
      session, [&] { input::menuClick(session.program, Item::printpreview); },
      [](QPrintPreviewDialog& dialog) {
        const auto* pages = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_NE(pages, nullptr);
        EXPECT_EQ(pages->pageCount(), 6);
      }));
}

TEST(MoreInThePageSetupPanel, SetsWhatADialogHasChangedAndNoMore) {
  const QPageLayout before(QPageSize(QPageSize::A4), QPageLayout::Portrait, {10, 10, 10, 10},
                           QPageLayout::Millimeter);
  PageSetup setup;
  setup.title = "Mazes";
  EXPECT_EQ(withChanges(setup, before, before), setup);
  QPageLayout turned = before;
  turned.setOrientation(QPageLayout::Landscape);
  EXPECT_EQ(withChanges(setup, before, turned), (PageSetup{{}, true, {}, "Mazes"}));
  EXPECT_EQ(withChanges(setup, turned, before).landscape, false);
  QPageLayout other = before;
  other.setPageSize(QPageSize(QPageSize::Letter));
  other.setMargins({12.5, 10, 10, 20});
  EXPECT_EQ(withChanges(setup, before, other),
            (PageSetup{paperNamed("letter"), {}, Margins{125, 100, 100, 200}, "Mazes"}));
}

TEST(MoreInThePageSetupPanel, IsAskedForByItsButton) {
  PageSetupPage page(nullptr);
  int asked = 0;
  page.onMore = [&] { ++asked; };
  page.findChild<QPushButton*>("more")->click();
  EXPECT_EQ(asked, 1);
}

TEST(ARun, ShowsHowFarItIsAndEndsByItsButton) {
  Session session;
  auto& button = session.desktop.window().runCancel();
  EXPECT_TRUE(button.isHidden());
  const Size canvas = session.desktop.clientSize();
  ProgramState& s = session.program.state;
  s.phase = Phase::making;
  s.print.printMode = PrintMode::withoutAnswers;
  s.print.printTotal = 40;
  s.print.printedCount = 3;
  session.program.controls.setCaption("a run");
  session.pump(Pace::housekeeping);
  EXPECT_FALSE(button.isHidden());
  EXPECT_EQ(button.text(), "Cancel printing");
  EXPECT_EQ(session.desktop.clientSize(), canvas) << "it takes nothing from the Canvas";
  EXPECT_EQ(button.height(), session.desktop.window().statusLine().height());
  for (const bool off : {true, false, true}) {
    session.program.statusLineOff = off;
    session.program.controls.setCaption(off ? "a run without a line" : "a run");
    session.pump(Pace::housekeeping);
    EXPECT_EQ(button.text(), off ? "Cancel printing: 3 of 40 done" : "Cancel printing");
    EXPECT_TRUE(button.isVisible());
    EXPECT_GE(button.height(), button.fontMetrics().height());
    EXPECT_EQ(button.geometry().bottomRight(), button.parentWidget()->rect().bottomRight());
  }
  QTest::mouseClick(&button, Qt::LeftButton);
  session.pump(Pace::housekeeping);
  session.pump(Pace::idle);
  EXPECT_EQ(s.print.printMode, PrintMode::none);
  session.pump(Pace::housekeeping);
  EXPECT_TRUE(button.isHidden());
}

}  // namespace
}  // namespace gridwright
