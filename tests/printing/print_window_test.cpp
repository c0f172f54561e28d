#include "printing/print_window.h"

#include <gtest/gtest.h>

#include "printing/page_setup.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(ThePrintedPage, IsTheWindowAsItIsShownOnePageADocument) {
  World w(drawing({"...", "..."}));
  w.canvas.setAutoRedraw(false);
  w.canvas.fill(12, 12, 15, 15, kRed);  // on the screen alone
  printfff(w.program);
  ASSERT_EQ(w.desktop.pages.size(), 1U);
  EXPECT_TRUE(samePicture(w.desktop.pages[0], w.canvas.shownImage()));
  EXPECT_NE(w.desktop.pages[0], w.canvas.image());
  EXPECT_EQ(w.desktop.alone, 1);
  EXPECT_EQ(w.desktop.documents, 0) << "a run that goes on keeps its document";
}

TEST(ThePreview, ShowsThePageOfTheWindowAndPrintsNothing) {
  World w(drawing({"...", "..."}));
  w.program.menus.setVisible(Item::filet, true);
  w.state.phase = Phase::placing;
  input::menuClick(w.program, Item::printpreview);
  ASSERT_EQ(w.desktop.previews.size(), 1U);
  EXPECT_TRUE(samePicture(w.desktop.previews[0], w.canvas.shownImage()));
  EXPECT_TRUE(w.desktop.pages.empty());
  EXPECT_FALSE(w.state.panelOpen);
}

/// A maze whose ends are placed, and the panel of page setup over it.
struct OverAMaze : World {
  OverAMaze() : World(drawing({"....", "....", "...."})) {
    program.menus.setVisible(Item::filet, true);
    state.phase = Phase::placing;
    state.start = squareOf(1, 1);
    state.finish = squareOf(4, 3);
    input::menuClick(program, Item::pagesetup);
  }
  PageLook printed() {
    printfff(program);
    return desktop.looks.back();
  }
};

TEST(ThePanelOfPageSetup, HoldsTheProgramUntilItIsAccepted) {
  OverAMaze w;
  EXPECT_TRUE(w.program.pages.open);
  EXPECT_TRUE(w.state.paused);
  PageSetup setup;
  setup.title = "Mazes";
  input::pageSetupEntered(w.program, setup);
  EXPECT_FALSE(w.program.pages.open);
  EXPECT_FALSE(w.state.paused);
  EXPECT_EQ(w.printed().setup, setup);
}

TEST(ThePanelOfPageSetup, ChangesNothingWhenItIsLeft) {
  OverAMaze w;
  input::pageSetupEscaped(w.program);
  EXPECT_FALSE(w.program.pages.open);
  EXPECT_FALSE(w.state.paused);
  EXPECT_EQ(w.program.pages.setup, PageSetup());
}

TEST(ThePanelOfPageSetup, BeginsWithWhatThePrinterHas) {
  World w(drawing({"...", "..."}));
  w.program.menus.setVisible(Item::filet, true);
  w.state.phase = Phase::drawing;
  w.desktop.usual = {*paperNamed("letter"), allRound(6), "the printer Hall"};
  input::menuClick(w.program, Item::pagesetup);
  EXPECT_EQ(w.program.pages.usual.size, (PaperSize{2159, 2794}));
  EXPECT_EQ(w.program.pages.usual.margins, (Margins{60, 60, 60, 60}));
  EXPECT_EQ(w.program.pages.usual.whose, "the printer Hall");
}

TEST(APageSetup, IsTakenFromNobodyWhileThePanelIsClosed) {
  World w(drawing({"...", "..."}));
  PageSetup setup;
  setup.nameLine = true;
  input::pageSetupEntered(w.program, setup);
  EXPECT_FALSE(w.program.pages.setup.nameLine);
}

TEST(APageSetup, KeepsItsTitleInOneLineItsMarginsOnThePaperAndItsSheetsWithinMeasure) {
  OverAMaze w;
  PageSetup setup;
  setup.title = " My \n\t mazes ";
  setup.margins = Margins{-1, 20, 501, 500};
  setup.tiles = {0, 12};
  input::pageSetupEntered(w.program, setup);
  EXPECT_EQ(w.program.pages.setup.title, "My mazes");
  EXPECT_EQ(w.program.pages.setup.margins, (Margins{0, 20, 500, 500}));
  EXPECT_EQ(w.program.pages.setup.tiles, (PageTiles{1, 9}));
}

TEST(WordsBesideTheEnds, AreOnPagesOfAMazeWithBothEndsAlone) {
  OverAMaze w;
  EXPECT_TRUE(w.printed().ends.empty()) << "nobody wants them";
  PageSetup setup;
  setup.endWords = true;
  input::pageSetupEntered(w.program, setup);
  const Bitmap image = w.canvas.image(), shown = w.canvas.shownImage();
  const std::vector<EndWord> both = {{squareOf(1, 1), "Start"}, {squareOf(4, 3), "Finish"}};
  for (const Phase phase : {Phase::placing, Phase::solving, Phase::solved}) {
    w.state.phase = phase;
    EXPECT_EQ(w.printed().ends, both) << static_cast<int>(phase);
  }
  for (const Phase phase : {Phase::drawing, Phase::making}) {
    w.state.phase = phase;
    EXPECT_TRUE(w.printed().ends.empty()) << static_cast<int>(phase);
  }
  w.state.phase = Phase::solving;
  w.state.finishMethod = FinishMethod::largest;
  EXPECT_TRUE(w.printed().ends.empty()) << "the computer still looks for the finish";
  w.state.finishFound = true;
  EXPECT_EQ(w.printed().ends, both);
  EXPECT_EQ(w.canvas.image(), image);
  EXPECT_EQ(w.canvas.shownImage(), shown) << "no plane knows of them";
}

TEST(WordsBesideTheEnds, GoWithTheEndsWhereAWhiteGroundCutsThePage) {
  Bitmap sheet = plainBitmap(120, 100, kYellow);
  for (int y = 30; y < 70; ++y) {
    for (int x = 40; x < 90; ++x) pixelAt(sheet, x, y) = kNavy;
  }
  World w(sheet);
  w.canvas.setBackColor(kYellow);
  w.state.print.whiteGround = true;
  w.program.pages.setup.endWords = true;
  w.state.phase = Phase::placing;
  w.state.start = {40, 30, 49, 39};
  w.state.finish = {80, 60, 89, 69};
  printfff(w.program);
  const std::vector<EndWord> both = {{{10, 10, 19, 19}, "Start"}, {{50, 40, 59, 49}, "Finish"}};
  EXPECT_EQ(w.desktop.looks.at(0).ends, both);
}

TEST(ARunsPages, AreSetUpLikeTheOthers) {
  World w;
  w.begin(drawing({"....", "....", "...."}));
  PageSetup setup;
  setup.endWords = setup.nameLine = true;
  w.desktop.menu(Item::pagesetup);
  w.desktop.act([&](Program& p) { input::pageSetupEntered(p, setup); });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::printwithsolutions);
  w.desktop.enter(ControlId::Text3, "1");
  w.desktop.menu(Item::newmaze);
  w.desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
  EXPECT_EQ(w.run(), "");
  ASSERT_EQ(w.desktop.looks.size(), 2U);
  for (const PageLook& look : w.desktop.looks) {
    EXPECT_EQ(look.setup, setup);
    EXPECT_EQ(look.ends.size(), 2U);
  }
}

TEST(Paper, IsCalledByItsNameOrItsSize) {
  EXPECT_EQ(paperWords({2100, 2970}), "A4");
  EXPECT_EQ(paperWords({1760, 2505}), "176 x 250.5 mm");
  EXPECT_EQ(paperNamed("legal"), (PaperSize{2159, 3556}));
  EXPECT_FALSE(paperNamed("a44"));
}

TEST(Paper, ToldInWholeMillimetresIsTheOneWithAName) {
  EXPECT_EQ(knownPaper({2160, 2790}), (PaperSize{2159, 2794}));
  EXPECT_EQ(knownPaper({1760, 2500}), (PaperSize{1760, 2500}));
}

}  // namespace
}  // namespace gridwright::test
