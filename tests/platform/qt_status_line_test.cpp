#include <gtest/gtest.h>

#include <QProgressBar>
#include <QTest>
#include <chrono>
#include <memory>

#include "platform/qt/printing.h"
#include "platform/qt/status_line.h"
#include "qt_session.h"

namespace gridwright {
namespace {

struct Line : Session {
  StatusLine& line = desktop.window().statusLine();

  void look() { pump(Pace::housekeeping); }
  QLabel* notice() { return line.findChild<QLabel*>("Notice"); }
  QTimer* clock() { return line.findChild<QTimer*>("NoticeTime"); }
};

TEST(TheStatusLine, TellsOnItsRightWhatIsInHand) {
  Line w;
  w.program.state.cur = {10, 10, 29, 19};
  w.program.state.drawColor = kPalette[12];
  w.look();
  EXPECT_EQ(w.line.status(), "drawing, walls 10; red, 2 x 1 cells at column 1, row 1, drawing on");
  w.program.state.drawingOff = true;
  w.look();
  EXPECT_EQ(w.line.status(), "drawing, walls 10; red, 2 x 1 cells at column 1, row 1, drawing off");
}

TEST(TheColourInHand, IsShownBesideItsName) {
  Line w;
  w.program.state.drawColor = kPalette[12];
  w.look();
  const QImage seen = w.line.grab().toImage();
  int red = 0;
  for (int x = 0; x < seen.width(); ++x) red += seen.pixel(x, seen.height() / 2) == qRgb(255, 0, 0) ? 1 : 0;
  EXPECT_GT(red, 5);
}

TEST(ANotice, StandsOnTheLeftUntilItsTimeIsOver) {
  Line w;
  w.program.notices.tell("maze 3 of 40");
  w.look();
  EXPECT_EQ(w.line.notice(), "maze 3 of 40");
  ASSERT_TRUE(w.clock()->isActive());
  EXPECT_EQ(w.clock()->interval(), 8000);
  w.clock()->start(1);  // as if the eight seconds were over
  QTest::qWait(50);
  EXPECT_EQ(w.line.notice(), "");
  w.look();
  EXPECT_EQ(w.line.notice(), "") << "it does not come back";
  EXPECT_EQ(w.program.notices.words(), "maze 3 of 40") << "the program still knows it";
}

TEST(TheNextNotice, TakesThePlaceOfTheOneBeforeAndStartsTheTimeOver) {
  Line w;
  w.program.notices.tell("one");
  w.look();
  w.clock()->start(60000);
  w.program.notices.tell("two");
  w.look();
  EXPECT_EQ(w.line.notice(), "two");
  EXPECT_EQ(w.clock()->interval(), 8000);
  w.clock()->stop();
  w.program.notices.tell("two");
  w.look();
  EXPECT_TRUE(w.clock()->isActive()) << "said again, it stands again";
}

TEST(AtTheTitle, TheLineIsEmptyAndKeepsItsPlace) {
  Line w;
  w.program.notices.tell("one");
  w.look();
  const QRect place = w.line.geometry();
  const Size canvas = w.desktop.clientSize();
  w.program.state.phase = Phase::title;
  w.look();
  EXPECT_EQ(w.line.notice(), "");
  EXPECT_EQ(w.line.status(), "");
  EXPECT_TRUE(w.line.isVisible());
  EXPECT_EQ(w.line.geometry(), place);
  EXPECT_EQ(w.desktop.clientSize().width, canvas.width);
  EXPECT_EQ(w.desktop.clientSize().height, canvas.height);
}

TEST(WhatIsToldAtTheTitle, WaitsUntilThereIsRoomForIt) {
  Line w;
  w.program.state.phase = Phase::title;
  w.look();
  w.program.notices.tell("2 of 40 mazes are printed");
  w.look();
  EXPECT_EQ(w.line.notice(), "");
  w.program.state.phase = Phase::drawing;
  w.look();
  EXPECT_EQ(w.line.notice(), "2 of 40 mazes are printed");
}

TEST(TheLine, IsAsHighInAllPhasesWhateverItTells) {
  Line w;
  const int height = w.line.height();
  for (int phase = -6; phase <= 4; ++phase) {
    w.program.state.phase = static_cast<Phase>(phase);
    w.program.notices.tell(std::string(static_cast<std::size_t>(phase + 7) * 100, 'g'));
    w.look();
    EXPECT_EQ(w.line.height(), height) << phase;
  }
}

TEST(TheWindow, OpensWithRoomForTheSmallestCanvasAboveTheLine) {
  Line w;
  EXPECT_GE(w.desktop.window().view().width(), 800);
  EXPECT_GE(w.desktop.window().view().height(), 600);
  EXPECT_EQ(w.line.mapTo(&w.desktop.window(), QPoint()).y(),
            w.desktop.window().view().mapTo(&w.desktop.window(), QPoint()).y() +
                w.desktop.window().view().height());
}

TEST(ALongNotice, NeverWidensTheWindow) {
  Line w;
  w.desktop.window().resize(640, 480);
  w.program.notices.tell(std::string(400, 'g'));
  w.look();
  EXPECT_EQ(w.desktop.window().width(), 640);
  EXPECT_EQ(w.notice()->toolTip().size(), 400) << "all of it is in its tip";
  const QLabel* status = w.line.findChild<QLabel*>("Status");
  EXPECT_GE(status->width(), status->fontMetrics().horizontalAdvance(w.line.status()))
      << "the notice gives way, not what is in hand";
}

TEST(AClickOnANoticeOfAFile, OpensTheFile) {
  Line w;
  std::vector<std::filesystem::path> opened;
  w.line.onOpen = [&](const std::filesystem::path& file) { opened.push_back(file); };
  w.program.notices.tell("maze 1 of 2");
  w.look();
  QTest::mouseClick(w.notice(), Qt::LeftButton);
  EXPECT_TRUE(opened.empty());
  w.program.notices.tell("the window is printed to a.pdf", "/tmp/a.pdf");
  w.look();
  QTest::mouseClick(w.notice(), Qt::RightButton);
  EXPECT_TRUE(opened.empty());
  QTest::mouseClick(w.notice(), Qt::LeftButton);
  EXPECT_EQ(opened, std::vector<std::filesystem::path>{"/tmp/a.pdf"});
}

TEST(TheStatusLine, IsReadToThoseWhoDoNotSeeIt) {
  Line w;
  w.program.notices.tell("maze 3 of 40");
  w.look();
  EXPECT_EQ(w.line.accessibleName(), "Status line");
  EXPECT_EQ(w.notice()->accessibleName(), "maze 3 of 40");
  EXPECT_EQ(w.line.findChild<QLabel*>("Status")->accessibleName(), w.line.status());
}

TEST(TheStatusLine, NeverTakesTheKeyboard) {
  Line w;
  w.look();
  QTest::mouseClick(w.notice(), Qt::LeftButton);
  QTest::mouseClick(&w.line, Qt::LeftButton);
  EXPECT_EQ(w.desktop.window().focusWidget(), &w.desktop.window().view());
}

TEST(AMazeThatGrows, LeavesTheRightSideAlone) {
  Line w;
  w.program.state.phase = Phase::making;
  w.program.state.creationMode = CreationMode::computer;
  w.look();
  auto* status = w.line.findChild<QLabel*>("Status");
  status->setAccessibleName("as it was");  // any word told anew would replace this
  for (int step = 0; step < 10; ++step) {
    w.program.state.cur = w.program.state.cur.moved(10, 0);
    w.program.state.mazeColor = kPalette[static_cast<std::size_t>(step)];
    w.look();
  }
  EXPECT_EQ(status->accessibleName(), "as it was");
}

TEST(AMazeThatGrows, IsCountedAtMostTwiceASecondAndOnlyWhileTheLineIsSeen) {
  Line w;
  w.program.state.phase = Phase::making;
  w.program.state.creationMode = CreationMode::computer;
  const auto begin = StatusMeter::Clock::now();
  StatusMeter meter;
  for (int ms = 0; ms <= 2000; ++ms) {
    w.program.canvas.fill(0, 0, 5, 5, kPalette[static_cast<std::size_t>(ms % 16)]);
    meter.look(w.program, true, begin + std::chrono::milliseconds(ms));
  }
  EXPECT_EQ(meter.counts(), 5);
  EXPECT_EQ(meter.look(w.program, true, begin + std::chrono::seconds(3)).seconds, 3);
  const int counts = meter.counts();
  w.program.canvas.fill(0, 0, 5, 5, kPalette[3]);
  meter.look(w.program, false, begin + std::chrono::seconds(4));
  EXPECT_EQ(meter.counts(), counts) << "nobody sees it";
  meter.look(w.program, true, begin + std::chrono::seconds(5));
  meter.look(w.program, true, begin + std::chrono::seconds(6));
  EXPECT_EQ(meter.counts(), counts + 1) << "nothing was painted since";
}

TEST(TheTime, StandsStillUnderPanelsAndBeginsAnewWithTheNextMaze) {
  Line w;
  ProgramState& s = w.program.state;
  s.phase = Phase::making;
  s.creationMode = CreationMode::computer;
  const auto begin = StatusMeter::Clock::now();
  StatusMeter meter;
  const auto after = [&](int seconds) {
    return meter.look(w.program, true, begin + std::chrono::seconds(seconds)).seconds;
  };
  after(0);
  EXPECT_EQ(after(4), 4);
  s.paused = true;
  after(4);
  EXPECT_EQ(after(60), 4);
  EXPECT_FALSE(meter.isRunning());
  s.paused = false;
  after(60);
  EXPECT_EQ(after(61), 5);
  meter.skip(begin + std::chrono::seconds(90));
  EXPECT_EQ(after(91), 6) << "a dialog stood over everything";
  ++s.session.begun;
  EXPECT_EQ(after(92), 0);
  EXPECT_EQ(after(93), 1);
  s.creationMode = CreationMode::user;
  EXPECT_EQ(after(95), 3) << "by hand it takes time too";
}

TEST(TheNextMazeOfARun, HasNotTheCountsOfTheOneBefore) {
  Line w;
  w.program.state.phase = Phase::making;
  const auto begin = StatusMeter::Clock::now();
  StatusMeter meter;
  EXPECT_TRUE(meter.look(w.program, true, begin).growth);
  ++w.program.state.session.begun;
  EXPECT_FALSE(meter.look(w.program, true, begin + std::chrono::milliseconds(100)).growth);
  EXPECT_TRUE(meter.look(w.program, true, begin + std::chrono::milliseconds(600)).growth);
}

TEST(ARun, HasABarOfTheMazesThatAreDone) {
  Line w;
  auto* bar = w.line.findChild<QProgressBar*>("Run");
  w.look();
  EXPECT_FALSE(bar->isVisible());
  w.program.state.print.printMode = PrintMode::withAnswers;
  w.program.state.print.printTotal = 40;
  w.program.state.print.printedCount = 7;
  w.look();
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->maximum(), 40);
  EXPECT_EQ(bar->value(), 7);
}

TEST(TheStatusLine, GivesItsPlaceToTheCanvasWhenItIsTakenAway) {
  Line w;
  w.look();
  const int height = w.desktop.clientSize().height;
  w.program.statusLineOff = true;
  w.look();
  w.look();
  EXPECT_FALSE(w.line.isVisible());
  EXPECT_GT(w.desktop.clientSize().height, height);
  w.program.statusLineOff = false;
  w.look();
  w.look();
  EXPECT_TRUE(w.line.isVisible());
  EXPECT_EQ(w.desktop.clientSize().height, height);
}

TEST(TheLetterOfTheColourInHand, StandsOnItsSwatchWhileColoursAreMarked) {
  Line w;
  w.program.state.drawColor = kPalette[13];
  w.look();
  const auto letters = [&] {
    QStringList words;
    for (const QLabel* label : w.line.findChildren<QLabel*>()) words << label->text();
    return words.join("");
  };
  EXPECT_EQ(letters(), "");
  w.program.markColours = true;
  w.look();
  EXPECT_EQ(letters(), "E");
}

TEST(AWindowOnPaper, IsToldWithNameAndFolder) {
  const Line w;
  const std::string folder = w.folder.path().toStdString();
  Printing printing(folder, [] { return std::unique_ptr<QPrinter>(); });  // whatever printers there are
  const auto went = printing.pageAlone(plainBitmap(80, 60, kPalette[1]));
  ASSERT_TRUE(went);
  EXPECT_EQ(went.value().where, "to gridwright-0001.pdf, in " + folder);
  EXPECT_EQ(went.value().file, std::filesystem::path(folder) / "gridwright-0001.pdf");
}

}  // namespace
}  // namespace gridwright
