#include "printing/print_job.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Bitmap kRoom = drawing({"......", "......", "......", "......"});

/// A session that has asked for mazes and waits in the drawing phase with the job set.
struct Job : World {
  Job(Item kind, const std::string& count, bool computer = true, Item placing = Item::userplace)
      : World(Size{kRoom.width, kRoom.height}) {
    begin(kRoom);
    desktop.pumpsPass(2);
    if (computer) desktop.menu(Item::cgenerate);
    desktop.look([placing](Program& p) { input::menuClick(p, placing), p.state.keyBusy = false; });
    desktop.pumpsPass(1);
    desktop.menu(kind);
    desktop.enter(ControlId::Text3, count);
    desktop.pumpsPass(1);
  }
  void untilNoJob() {
    desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
  }
  void expectNoJob(std::size_t pages) {
    desktop.look([this, pages](Program& p) {
      EXPECT_EQ(desktop.pages.size(), pages);
      EXPECT_EQ(p.state.print.printTotal, 0);
      EXPECT_EQ(p.state.print.printedCount, 0);
      EXPECT_FALSE(p.menus.visible(Item::printing));
      EXPECT_FALSE(p.menus.checked(Item::printwithsolutions) || p.menus.checked(Item::printnosolutions));
    });
  }
};

bool holds(const Bitmap& page, Colour colour) {
  return std::find(page.pixels.begin(), page.pixels.end(), colour) != page.pixels.end();
}

class EveryEndPoint : public ::testing::TestWithParam<Item> {};
INSTANTIATE_TEST_SUITE_P(Choices, EveryEndPoint, ::testing::Values(Item::userplace, Item::largestsolution));

TEST_P(EveryEndPoint, AJobWithoutAnswersPrintsOnePageAMazeAsOneDocument) {
  Job w(Item::printnosolutions, "3", true, GetParam());
  w.desktop.menu(Item::newmaze);
  w.untilNoJob();
  w.expectNoJob(3);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.documents, 1 + 1) << "one for the job; the end of the program closes what may be open";
  for (const Bitmap& page : w.desktop.pages) EXPECT_TRUE(holds(page, kWhite));
  EXPECT_NE(w.desktop.pages[0], w.desktop.pages[1]) << "each maze is a new one";
}

TEST_P(EveryEndPoint, AJobWithAnswersPrintsTwoPagesAMaze) {
  Job w(Item::printwithsolutions, "2", true, GetParam());
  w.desktop.menu(Item::newmaze);
  w.untilNoJob();
  w.expectNoJob(4);
  EXPECT_EQ(w.run(), "");
  for (const std::size_t maze : {0U, 2U}) {
    const Bitmap& blank = w.desktop.pages[maze];
    const Bitmap& solved = w.desktop.pages[maze + 1];
    EXPECT_NE(blank, solved);
    for (std::size_t i = 0; i < blank.pixels.size(); ++i) {
      if (blank.pixels[i] == solved.pixels[i]) continue;
      ASSERT_TRUE(blank.pixels[i] != kNavy && blank.pixels[i] != kBlue) << "the answer crosses no wall";
    }
  }
}

TEST(AJobsPages, KnowWhichMazeOfTheRunTheyShowAndAPageAloneKnowsThatItIsNone) {
  Job w(Item::printwithsolutions, "2");
  w.desktop.look([](Program& p) { EXPECT_EQ(p.random.lastSeed(), 1U) << "drawn on leaving the title"; });
  w.desktop.menu(Item::newmaze);
  w.untilNoJob();
  w.desktop.menu(Item::printfff);
  w.desktop.pumpsPass(1);
  EXPECT_EQ(w.run(), "");
  std::vector<MazeInRun> shown;
  std::transform(w.desktop.looks.begin(), w.desktop.looks.end(), std::back_inserter(shown),
                 [](const PageLook& look) { return look.about.maze; });
  EXPECT_EQ(shown, (std::vector<MazeInRun>{{1, false}, {1, true}, {2, false}, {2, true}, {0, false}}));
}

TEST(AJob, WithSearchedFinishesOfEveryOtherChoiceRunsInThe3dKinds) {
  for (const Item kind : {Item::create3d, Item::create3dpipe}) {
    for (const Item placing : {Item::includeunderpasses, Item::mostunderpasses}) {
      World w(Size{310, 210});
      w.begin(drawing(Text(20, std::string(30, '.'))));
      w.desktop.pumpsPass(2);
      w.desktop.menu(Item::cgenerate);
      w.desktop.menu(kind);
      w.desktop.menu(placing);
      w.desktop.menu(Item::printwithsolutions);
      w.desktop.enter(ControlId::Text3, "2");
      w.desktop.pumpsPass(1);
      w.desktop.menu(Item::newmaze);
      w.desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
      EXPECT_EQ(w.run(), "");
      EXPECT_EQ(w.desktop.pages.size(), 4U);
    }
  }
}

TEST(TheItemPrinting, CountsTheMazesThatAreLeft) {
  Job w(Item::printnosolutions, "3");
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.menus.caption(Item::printing), "3 mazes left to print out of 3");
    EXPECT_TRUE(p.menus.visible(Item::printing));
    EXPECT_TRUE(p.menus.checked(Item::printnosolutions));
    EXPECT_FALSE(p.menus.available(Item::printwithsolutions)) << "two jobs cannot overlap";
    EXPECT_FALSE(p.menus.available(Item::printnosolutions));
    EXPECT_TRUE(p.menus.available(Item::stopallprintings));
  });
  w.desktop.menu(Item::newmaze);
  w.desktop.until(
      [](const Program& p) { return p.state.print.printedCount == 1 && p.state.phase == Phase::making; });
  w.desktop.pumpsPass(3);
  w.desktop.look([](Program& p) {
    if (p.state.print.printedCount != 1) return;
    EXPECT_EQ(p.menus.caption(Item::printing), "2 mazes left to print out of 3");
  });
  w.untilNoJob();
  EXPECT_EQ(w.run(), "");
}

TEST(ACountOfNothing, StartsNoJob) {
  for (const char* text : {"", "0", "no", "-3", "0.9"}) {
    Job w(Item::printwithsolutions, text);
    w.expectNoJob(0);
    w.desktop.look([](Program& p) {
      EXPECT_EQ(p.state.print.printMode, PrintMode::none);
      EXPECT_FALSE(p.state.panelOpen || p.state.paused);
      EXPECT_TRUE(p.menus.available(Item::printnosolutions));
    });
    EXPECT_EQ(w.run(), "") << text;
  }
}

TEST(ACountTyped, IsReadAsAWholeNumberUpTo9999) {
  for (const auto& [text, count] :
       std::vector<std::pair<std::string, int>>{{" 12 mazes", 12}, {"2.9", 2}, {"1000000", 9999}}) {
    Job w(Item::printnosolutions, text);
    w.desktop.look([total = count](Program& p) { EXPECT_EQ(p.state.print.printTotal, total); });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(EscapeInThePanel, GivesAutoRedrawAndThePendingKindBack) {
  for (const bool redraw : {false, true}) {
    World w(kRoom);
    w.state.phase = Phase::placing;
    w.canvas.setAutoRedraw(redraw);
    w.state.print.printKindPending = PrintMode::withoutAnswers;
    printwithsolutions(w.program);
    EXPECT_FALSE(w.canvas.autoRedraw());
    EXPECT_EQ(w.state.print.printKindPending, PrintMode::withAnswers);
    EXPECT_EQ(w.program.controls[ControlId::Text3].text, "");
    printEscaped(w.program);
    EXPECT_EQ(w.canvas.autoRedraw(), redraw);
    EXPECT_EQ(w.state.print.printKindPending, PrintMode::withoutAnswers);
    EXPECT_EQ(w.state.print.printMode, PrintMode::none);
  }
}

TEST(AJobAskedForWhilePlacing, BeginsAtTheNextPass) {
  World w(Size{kRoom.width, kRoom.height});
  w.begin(kRoom);
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::printnosolutions);
  w.desktop.enter(ControlId::Text3, "1");
  w.desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.pages.size(), 1U) << "the maze that lies there";
}

TEST(AJobStoppedBetweenTheTwoPages, PrintsNoSecondPage) {
  Job w(Item::printwithsolutions, "5");
  w.desktop.menu(Item::newmaze);
  w.desktop.until(
      [&](const Program& p) { return w.desktop.pages.size() == 1 && p.state.phase == Phase::solving; });
  w.desktop.menu(Item::stopallprintings);
  w.desktop.untilPhase(Phase::solved);
  w.desktop.pumpsPass(5);
  w.expectNoJob(1);
  w.desktop.look(
      [](Program& p) { EXPECT_EQ(p.state.phase, Phase::solved) << "the maze runs on as an ordinary one"; });
  EXPECT_EQ(w.run(), "");
}

TEST(MazesWithoutAWay, AreRunPastWithoutABoxAndCountedAtTheEnd) {
  const Bitmap twoRegions = drawing({"...####...", "...####...", "...####..."});
  for (const int mazes : {1, 3}) {
    World w;
    w.desktop.limit = 200'000;
    w.begin(twoRegions);
    w.desktop.menu(Item::cgenerate);
    w.desktop.menu(Item::printwithsolutions);
    w.desktop.enter(ControlId::Text3, std::to_string(mazes));
    w.desktop.menu(Item::newmaze);
    w.desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
    w.desktop.look([&](Program& p) {
      EXPECT_EQ(w.desktop.pages.size(), static_cast<std::size_t>(mazes)) << "the blank ones";
      EXPECT_EQ(w.desktop.documents, 1);
      EXPECT_TRUE(w.desktop.messages.empty()) << "nobody need be there";
      EXPECT_EQ(p.notices.words(),
                mazes == 1
                    ? "1 maze is printed; 1 has no answer, because no way leads from start to finish"
                    : "3 mazes are printed; 3 have no answer, because no way leads from start to finish");
      EXPECT_EQ(p.state.print.withoutAnswer, 0);
    });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(AJobInWhichEveryMazeHasAnAnswer, TellsNothingOfThem) {
  Job w(Item::printwithsolutions, "2");
  w.desktop.menu(Item::newmaze);
  w.untilNoJob();
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.program.notices.words().find("answer"), std::string::npos);
}

TEST(AnAnswerLeftOut, IsOneOfTheJobsMazes) {
  World w(drawing({"*****", ".....", "*****"}));
  w.state.print.printMode = PrintMode::withAnswers;
  w.state.print.printTotal = 3;
  w.state.start = squareOf(1, 1);
  w.state.finish = squareOf(1, 3);
  for (int maze = 1; maze <= 3; ++maze) {
    EXPECT_TRUE(printPlacedMaze(w.program));
    EXPECT_EQ(w.state.phase, Phase::solving);
    EXPECT_TRUE(maze == 2 ? leaveAnswerOut(w.program) : printSolvedMaze(w.program));
    EXPECT_EQ(w.state.phase, Phase::making);
    EXPECT_EQ(w.state.print.printedCount, maze);
  }
  EXPECT_EQ(w.desktop.pages.size(), 5U);
  endJobWhenDone(w.program);
  EXPECT_EQ(w.program.notices.words(),
            "3 mazes are printed; 1 has no answer, because no way leads from start to finish");
}

TEST(AnAnswer, IsDueOnlyOfAMazeThatTheJobHasPrintedAndOnlyWhereAnswersAreAskedFor) {
  for (const PrintMode mode : {PrintMode::none, PrintMode::withoutAnswers, PrintMode::withAnswers}) {
    World w(kRoom);
    w.state.print.printMode = mode;
    w.state.print.printTotal = 2;
    w.state.print.printedNow = mode == PrintMode::withoutAnswers;
    w.state.phase = Phase::solving;
    EXPECT_FALSE(printSolvedMaze(w.program));
    EXPECT_FALSE(leaveAnswerOut(w.program));
    EXPECT_EQ(w.state.phase, Phase::solving);
    EXPECT_EQ(w.state.print.printedCount, 0);
    EXPECT_EQ(w.state.print.withoutAnswer, 0);
    EXPECT_TRUE(w.desktop.pages.empty());
  }
}

TEST(AJobAskedForWhileAWalkHasNoWay, TakesTheMazeInHandForItsFirst) {
  World w;
  w.desktop.limit = 200'000;
  w.begin(drawing({"...####...", "...####...", "...####..."}));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.pumpsPass(1);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solving);
  w.desktop.menu(Item::printwithsolutions);
  w.desktop.enter(ControlId::Text3, "2");
  w.desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.pages.size(), 2U);
  EXPECT_TRUE(w.desktop.messages.empty());
}

TEST(InUserMode, APersonMakesEachMazeOfAJob) {
  Job w(Item::printnosolutions, "2", false);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(50);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::making) << "nothing in the job changes the settings";
    EXPECT_EQ(p.state.creationMode, CreationMode::user);
    EXPECT_TRUE(w.desktop.pages.empty());
  });
  for (int maze = 1; maze <= 2; ++maze) {
    w.desktop.act([](Program& p) { input::keyDown(p, key::J); });  // hands over to the computer
    w.desktop.until(
        [&w, maze](const Program&) { return w.desktop.pages.size() == static_cast<std::size_t>(maze); });
    w.desktop.look([](Program& p) { p.state.creationMode = CreationMode::user; });
    w.desktop.pumpsPass(3);
  }
  w.untilNoJob();
  w.expectNoJob(2);
  EXPECT_EQ(w.run(), "");
}

TEST(APageThatCannotBeKept, EndsItsJobAndTheMazeInHandRunsOnAsAnOrdinaryOne) {
  for (const std::size_t kept : {0U, 1U, 2U, 3U}) {
    Job w(Item::printwithsolutions, "3");
    w.desktop.pagesKept = kept;
    w.desktop.menu(Item::newmaze);
    w.untilNoJob();
    w.expectNoJob(kept);
    const Phase after = kept % 2 == 0 ? Phase::placing : Phase::solved;
    w.desktop.look([&w, after](Program& p) {
      EXPECT_EQ(w.desktop.documents, 1) << "its end tells a person";
      EXPECT_EQ(p.state.phase, after);
    });
    w.desktop.pumpsPass(5);
    w.desktop.look([&w, after, kept](Program& p) {
      EXPECT_EQ(p.state.phase, after) << "no other maze is begun";
      EXPECT_EQ(w.desktop.pages.size(), kept);
      EXPECT_TRUE(p.menus.available(Item::printwithsolutions));
    });
    EXPECT_EQ(w.run(), "") << kept;
  }
}

TEST(TheCount, NeverGrowsPastTheTotal) {
  World w(kRoom);
  w.state.print.printMode = PrintMode::withoutAnswers;
  w.state.print.printTotal = w.state.print.printedCount = 2;
  EXPECT_TRUE(printPlacedMaze(w.program));
  EXPECT_EQ(w.state.print.printedCount, 2);
  endJobWhenDone(w.program);
  EXPECT_EQ(w.state.print.printMode, PrintMode::none);
  EXPECT_EQ(w.desktop.documents, 1);
}

TEST(ASolverStoppedByThePanel, StartsCleanlyAtAKeyInTheBox) {
  World w(kRoom);
  w.state.phase = Phase::solving;
  w.state.start = squareOf(2, 2);
  w.state.cur = w.state.prev = squareOf(4, 3);
  w.state.trailOff = true;
  w.state.playMode = PlayMode::easy;
  printnosolutions(w.program);
  printPanelKey(w.program);
  EXPECT_EQ(w.state.cur, squareOf(4, 3)) << "still in play";
  w.state.playMode = PlayMode::off;
  printPanelKey(w.program);
  EXPECT_EQ(w.state.cur, squareOf(2, 2));
  EXPECT_EQ(w.state.prev, squareOf(2, 2));
  EXPECT_EQ(w.state.deltaX, 1);
  EXPECT_EQ(w.state.deltaY, 0);
  EXPECT_EQ(w.state.solver.probeX, w.state.start.left + 1);
}

TEST(AJobThatWaits, SaysForWhat) {
  const auto tipOf = [](const Program& p) { return std::string(p.menus.tip(Item::printing)); };
  Job drawing(Item::printnosolutions, "2");
  std::string tip;
  drawing.desktop.look([&](Program& p) { tip = tipOf(p); });
  EXPECT_EQ(drawing.run(), "");
  EXPECT_EQ(tip, "waiting for a new maze: choose New maze");

  Job byHand(Item::printnosolutions, "2", false);
  byHand.desktop.menu(Item::newmaze);
  byHand.desktop.untilPhase(Phase::making);
  byHand.desktop.pumpsPass(3);
  byHand.desktop.look([&](Program& p) { tip = tipOf(p); });
  EXPECT_EQ(byHand.run(), "");
  EXPECT_EQ(tip, "waiting for you to make the maze");
}

}  // namespace
}  // namespace gridwright::test
