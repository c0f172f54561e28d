#include "printing/export_maze.h"

#include <gtest/gtest.h>

#include "menus/enable_table.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// The program in its drawing, in a folder that is there.
struct Desk : World {
  Desk() : World(drawing({"...", "..."})) {
    program.files = std::make_unique<WorkFolder>(temp.path());
    program.menus.setVisible(Item::filet, true);
    state.phase = Phase::drawing;
  }
  void choose(Item item) {
    state.keyBusy = false;
    input::menuClick(program, item);
  }
  void accept(const ExportWish& wish) { input::exportEntered(program, wish); }
  [[nodiscard]] ExportWish& wish() { return program.exporting.wish; }
  TempFolder temp;
};

TEST(TheExportPanel, OpensWithANameThatIsFreeAndHoldsTheProgram) {
  Desk w;
  w.temp.put("maze-1.png", "");
  w.temp.put("maze-2.png", "");
  w.choose(Item::exportmaze);
  EXPECT_TRUE(w.program.exporting.open && w.state.paused);
  EXPECT_EQ(w.wish(), (ExportWish{"maze-3.png"}));
  EXPECT_FALSE(w.program.menus.enabled(Item::copymaze) && tableEnables(w.program, Item::copymaze));
  input::exportEscaped(w.program);
  EXPECT_FALSE(w.program.exporting.open || w.state.paused);
  EXPECT_TRUE(w.desktop.pictureFiles.empty());
}

TEST(TheExportPanel, RemembersWhatWasWishedAndGoesOnCounting) {
  Desk w;
  w.choose(Item::exportmaze);
  w.accept({"cat.pdf", 600, std::nullopt, true});
  EXPECT_FALSE(w.program.exporting.open);
  ASSERT_EQ(w.desktop.pictureFiles.size(), 1U);
  EXPECT_EQ(w.desktop.pictureFiles[0].format, PictureFormat::pdf);
  EXPECT_EQ(w.desktop.pictureFiles[0].path, w.temp.path() / "cat.pdf");
  EXPECT_EQ(w.program.notices.opens(), w.temp.path() / "cat.pdf") << "a click opens it";
  w.temp.put("cat.pdf", "");
  w.choose(Item::exportmaze);
  EXPECT_EQ(w.wish(), (ExportWish{"cat-2.pdf", 600, std::nullopt, true}));
}

TEST(TheExportPanel, StaysWithALineWhereNothingCouldBeWritten) {
  Desk w;
  w.choose(Item::exportmaze);
  const std::uint64_t before = w.program.exporting.revision;
  w.desktop.savesFail = true;
  w.accept({"a.png"});
  const std::string line = "Nothing is exported: " + (w.temp.path() / "a.png").string() + " can't be written";
  EXPECT_TRUE(w.program.exporting.open && w.state.paused);
  EXPECT_EQ(w.program.exporting.line, line);
  EXPECT_EQ(w.program.notices.words(), line);
  EXPECT_GT(w.program.exporting.revision, before);
  EXPECT_EQ(w.wish().file, "maze-1.png") << "what was wished last could be done";
  w.desktop.savesFail = false;
  w.accept({"a.PNG"});
  EXPECT_FALSE(w.program.exporting.open);
  EXPECT_EQ(w.program.exporting.line, "");
}

TEST(TheExportPanel, OffersTheAnswerThatStandsAndTheMazeWithoutOne) {
  for (const Phase phase : {Phase::drawing, Phase::placing, Phase::solving, Phase::solved}) {
    Desk w;
    w.state.phase = phase;
    w.choose(Item::exportmaze);
    EXPECT_EQ(w.program.exporting.answerStands, phase == Phase::solved);
    EXPECT_EQ(w.program.exporting.mazeStands, phase == Phase::solving || phase == Phase::solved);
  }
}

TEST(AnExportedPage, HasThePageSetupWithoutItsWordsAndTiles) {
  Desk w;
  w.program.pages.setup = {paperNamed("a5"), false, allRound(20), "A title", true, true, {3, 2}};
  w.state.phase = Phase::placing;
  w.accept({"a.png", 600});
  ASSERT_EQ(w.desktop.pictureFiles.size(), 1U);
  const auto& written = w.desktop.pictureFiles[0];
  EXPECT_EQ(written.look.setup, (PageSetup{paperNamed("a5"), false, allRound(20), {}}));
  EXPECT_TRUE(written.look.ends.empty());
  EXPECT_EQ(written.dpi, 600);
  EXPECT_EQ(written.scale, 63) << "108 mm are 2551 dots, 40 pixels wide";
}

TEST(TheItemsThatTakeThePictureElsewhere, AreOnInPhaseThreeWhileNothingSearches) {
  Desk w;
  w.state.phase = Phase::solving;
  for (const bool found : {true, false, true}) {
    w.state.finishMethod = FinishMethod::largest;
    w.state.finishFound = found;
    applyEnableTableIfChanged(w.program);
    EXPECT_EQ(w.program.menus.enabled(Item::exportmaze), found);
    EXPECT_EQ(w.program.menus.enabled(Item::copymaze), found);
  }
}

TEST(Copy, GivesThePictureAsPixelsAndAsAnSvg) {
  Desk w;
  input::copyAsked(w.program);
  ASSERT_EQ(w.desktop.copied.size(), 1U);
  EXPECT_TRUE(samePicture(w.desktop.copied[0].picture, w.canvas.shownView().copied()));
  EXPECT_NE(w.desktop.copied[0].svg.find("<title>Gridwright</title>"), std::string::npos);
  EXPECT_NE(w.desktop.copied[0].svg.find("viewBox=\"0 0 40 30\""), std::string::npos);
  EXPECT_EQ(w.program.notices.words(), "The picture is copied");
  EXPECT_EQ(w.desktop.lines, (std::vector<std::string>{"The picture is copied"}));
}

TEST(Copy, SaysWhereADesktopHasNoPlaceForIt) {
  Desk w;
  w.desktop.hasClipboard = false;
  w.choose(Item::copymaze);
  EXPECT_EQ(w.program.notices.words(), "Nothing is copied: it can't be pasted here");
}

TEST(TheKeysOfCopy, TellWhyTheItemIsOffAndNothingAtTheTitle) {
  Desk w;
  w.state.phase = Phase::title;
  input::copyAsked(w.program);
  EXPECT_EQ(w.program.notices.words(), "");
  const auto told = [&] {
    w.state.keyBusy = false;
    input::copyAsked(w.program);
    return w.program.notices.words();
  };
  w.state.phase = Phase::making;
  EXPECT_EQ(told(), "Not now: a maze is being made");
  w.state.phase = Phase::solving;
  w.state.finishMethod = FinishMethod::largest;
  EXPECT_EQ(told(), "Not now: the finish is being looked for");
  w.state.phase = Phase::drawing;
  w.state.editor.preparing = true;
  EXPECT_EQ(told(), "Not now: random patterns are being made for the next maze");
  w.state.editor.preparing = false;
  w.state.editedPattern = 1;
  EXPECT_EQ(told(), "Not now: leave the pattern editor first");
  w.state.editedPattern = 0;
  w.choose(Item::pagesetup);
  EXPECT_EQ(told(), "Not now: a panel is open");
  EXPECT_TRUE(w.desktop.copied.empty());
}

}  // namespace
}  // namespace gridwright::test
