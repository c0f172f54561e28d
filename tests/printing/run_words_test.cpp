#include "printing/run_words.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/world.h"

namespace gridwright::test {
namespace {

const Bitmap kRoom = drawing({"......", "......", "......", "......"});

/// A session in the drawing phase that notes each notice as it is told.
struct Job : World {
  Job() : World(Size{kRoom.width, kRoom.height}) {
    begin(kRoom);
    desktop.pumpsPass(2);
    desktop.menu(Item::cgenerate);
  }
  void set(Item kind, const std::string& count) {
    desktop.menu(kind);
    desktop.enter(ControlId::Text3, count);
    desktop.pumpsPass(1);
  }
  void expectNotice(const std::string& words) {
    desktop.look([words](Program& p) { EXPECT_EQ(p.notices.words(), words); });
  }
  void noteUntilNoJob() {
    desktop.until([this](const Program& p) {
      if (heard.empty() || heard.back() != p.notices.words()) heard.push_back(p.notices.words());
      return p.state.print.printMode == PrintMode::none;
    });
  }
  std::vector<std::string> heard;
};

TEST(ARunThatWaitsForAMaze, SaysHowManyWillBePrintedAndHow) {
  Job answers;
  answers.set(Item::printwithsolutions, "500");
  answers.expectNotice("500 mazes with answers will be printed");
  EXPECT_EQ(answers.run(), "");
  Job plain;
  plain.set(Item::printnosolutions, "1");
  plain.expectNotice("1 maze without answers will be printed");
  EXPECT_EQ(plain.run(), "");
}

TEST(ARunSetUpOverASolvedMaze, WaitsForTheNext) {
  Job w;
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  w.set(Item::printwithsolutions, "3");
  w.expectNotice("3 mazes with answers will be printed");
  EXPECT_EQ(w.run(), "");
}

TEST(ARunSetUpInMidMaze, BeginsWithThatMaze) {
  Job w;
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.set(Item::printnosolutions, "40");
  w.expectNotice("maze 1 of 40");
  EXPECT_EQ(w.run(), "");
}

TEST(ARun, SaysWhichMazeItIsAtAndHowItEnded) {
  for (const Item kind : {Item::printwithsolutions, Item::printnosolutions}) {
    Job w;
    w.set(kind, "3");
    w.desktop.menu(Item::newmaze);
    w.noteUntilNoJob();
    w.expectNotice("3 mazes are printed");
    EXPECT_EQ(w.run(), "");
    for (const char* words : {"maze 1 of 3", "maze 2 of 3", "maze 3 of 3"})
      EXPECT_EQ(std::count(w.heard.begin(), w.heard.end(), words), 1) << words;
    EXPECT_EQ(std::count(w.heard.begin(), w.heard.end(), "maze 4 of 3"), 0);
  }
}

TEST(ARunThatIsStopped, SaysHowFarItCame) {
  Job w;
  w.set(Item::printnosolutions, "40");
  w.desktop.menu(Item::newmaze);
  w.desktop.until([](const Program& p) { return p.state.print.printedCount == 2; });
  w.desktop.menu(Item::stopallprintings);
  w.expectNotice("2 of 40 mazes are printed");
  EXPECT_EQ(w.run(), "");
}

TEST(WherePagesWent, IsSaidBehindWhatWasPrintedAndAClickOpensIt) {
  Job w;
  w.desktop.went = PagesWent{"to gridwright-0001.pdf, in /home/me", "/home/me/gridwright-0001.pdf"};
  w.desktop.menu(Item::printfff);
  w.expectNotice("the window is printed to gridwright-0001.pdf, in /home/me");
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.notices.opens(), std::filesystem::path("/home/me/gridwright-0001.pdf"));
  });
  w.set(Item::printnosolutions, "1");
  w.desktop.menu(Item::newmaze);
  w.noteUntilNoJob();
  w.expectNotice("1 maze is printed to gridwright-0001.pdf, in /home/me");
  EXPECT_EQ(w.run(), "");
}

TEST(PagesThatCouldNotBeKept, AreNotCalledPrinted) {
  Job w;
  w.program.keysHintTold = true;
  w.desktop.went = Fault{Fault::Kind::notWritable, "gridwright-0001.pdf"};
  w.desktop.menu(Item::printfff);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.notices.revision(), 0U); });
  EXPECT_EQ(w.run(), "");
}

TEST(NoRun, SaysNothingWhenAMazeBegins) {
  Job w;
  w.program.keysHintTold = true;
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.notices.revision(), 0U); });
  EXPECT_EQ(w.run(), "");
}

}  // namespace
}  // namespace gridwright::test
