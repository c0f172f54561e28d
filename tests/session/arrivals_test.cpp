#include "session/arrivals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "menus/panels.h"
#include "pictures/ready.h"
#include "session/input.h"
#include "support/bitmap_files.h"
#include "support/disk_session.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

const Bitmap kRoom = drawing({"......", "......", "......", "......"});
const Bitmap kReady = drawing({",,,,,,", ",,,,,,", ",,,,,,", ",,,,,,"});  // green in blue: nothing to prepare
const Bitmap kOther = plainBitmap(60, 40, 0x336699);

Picture pictureFrom(const Bitmap& bitmap) { return {{bitmap, {}}, {}, {bitmap.width, bitmap.height}}; }

/// A program with two pictures in reach; a room is drawn, unless it is left at the title.
struct Visit : World {
  explicit Visit(bool begun = true) : World(Size{kRoom.width, kRoom.height}) {
    desktop.picturesElsewhere["/pictures/ready.png"] = pictureFrom(kReady);
    desktop.picturesElsewhere["/pictures/other.png"] = pictureFrom(kOther);
    if (begun) begin(kRoom);
    desktop.pumpsPass(2);
  }
  void bring(const std::vector<fs::path>& files) {
    desktop.act([files](Program& p) { input::filesBrought(p, files); });
    desktop.pumpsPass(2);
  }
  void carve() {
    desktop.menu(Item::cgenerate);
    desktop.menu(Item::createreg);
    desktop.untilPhase(Phase::placing);
  }
  void finish() { ASSERT_EQ(run(), ""); }
};

TEST(APictureThatIsReady, BecomesTheDrawingAtOnce) {
  Visit v;
  v.bring({"/pictures/ready.png"});
  v.desktop.look([&v](Program&) {
    ASSERT_NE(v.desktop.file("last-drawing.bmp"), nullptr) << "what was drawn is kept";
    EXPECT_TRUE(samePicture(*v.desktop.file("last-drawing.bmp"), kRoom));
  });
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
  EXPECT_FALSE(v.state.panelOpen);
  EXPECT_TRUE(v.state.mazeMadeOnce);
}

TEST(AnyOtherPicture, OpensThePanelAndChangesNothing) {
  Visit v;
  v.bring({"/pictures/other.png"});
  v.finish();
  EXPECT_TRUE(v.program.prepare.open);
  EXPECT_TRUE(v.state.panelOpen && v.state.paused);
  EXPECT_TRUE(samePicture(v.canvas.image(), kRoom));
}

TEST(AtTheTitle, APictureThatCanBeReadBeginsADrawing) {
  Visit v(false);
  v.bring({"/pictures/ready.png"});
  v.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::drawing);
    EXPECT_FALSE(p.controls[ControlId::Command2].visible);
  });
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
}

TEST(AtTheTitle, OneThatCannotBeReadChangesNothing) {
  Visit v(false);
  v.bring({"/pictures/gone.png"});
  v.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::title);
    EXPECT_TRUE(p.controls[ControlId::Command2].visible);
  });
  v.finish();
  EXPECT_EQ(v.program.notices.words(), "gone.png is not there");
  EXPECT_EQ(v.desktop.lines, std::vector<std::string>{"gone.png is not there"});
}

TEST(InTheSlides, APastedPictureBeginsADrawingToo) {
  Visit v(false);
  v.desktop.clipboard = Pasted{{}, [](Size) { return Outcome<Picture>(pictureFrom(kReady)); }};
  v.desktop.click(ControlId::Command3);
  v.desktop.act(input::pasteAsked);
  v.desktop.pumpsPass(2);
  v.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::drawing);
    EXPECT_FALSE(p.controls[ControlId::Timer1].enabled || p.controls[ControlId::Timer2].enabled);
  });
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
}

TEST(OverAMaze, AReadyPictureGoesBackToTheDrawingFirstWhichIsKept) {
  Visit v;
  v.carve();
  v.bring({"/pictures/ready.png"});
  v.desktop.look([](Program& p) { EXPECT_EQ(p.state.phase, Phase::drawing); });
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
  EXPECT_TRUE(samePicture(*v.desktop.file("last-drawing.bmp"), kReady)) << "as the program's end keeps it";
  const auto saves = std::count(v.desktop.saves.begin(), v.desktop.saves.end(), "last-drawing.bmp");
  EXPECT_EQ(saves, 2) << "once the room, and at the end";
}

TEST(OverAMaze, ThePanelThatIsCancelledLeavesTheMaze) {
  Visit v;
  v.carve();
  Bitmap maze;
  v.desktop.look([&maze](Program& p) { maze = p.canvas.shownImage(); });
  v.bring({"/pictures/other.png"});
  v.desktop.look([](Program& p) {
    EXPECT_TRUE(p.prepare.open);
    EXPECT_EQ(p.state.phase, Phase::placing);
  });
  v.desktop.act(input::preparationCancelled);
  v.desktop.pumpsPass(2);
  v.desktop.look([&maze](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::placing);
    EXPECT_FALSE(p.state.panelOpen || p.state.paused);
    EXPECT_TRUE(samePicture(p.canvas.shownImage(), maze));
  });
  v.finish();
}

/// What is told when a picture comes now, and whether nothing else has happened.
void expectRefused(Visit& v, const std::string& words) {
  v.desktop.look([](Program& p) { p.notices.tell(""); });
  v.bring({"/pictures/ready.png"});
  v.desktop.look([words](Program& p) {
    EXPECT_EQ(p.notices.words(), words);
    EXPECT_FALSE(samePicture(p.canvas.image(), kReady));
  });
  v.finish();
}

TEST(InThePatternEditor, APictureIsRefused) {
  Visit v;
  v.desktop.menu(Item::editpatterns);
  v.desktop.pumpsPass(2);
  expectRefused(v, "Not now: leave the pattern editor first");
}

TEST(UnderAPanel, APictureIsRefused) {
  Visit v;
  v.desktop.menu(Item::changewallsize);
  expectRefused(v, "Not now: a panel is open");
}

TEST(InTheWorkshop, APictureComesToItsPageAndADrawingIsRefused) {
  Visit v;
  v.desktop.menu(Item::workshop);
  v.bring({"/pictures/ready.png"});
  v.desktop.look([](Program& p) {
    EXPECT_TRUE(p.prepare.open) << "also one that is ready for a maze";
    EXPECT_EQ(p.workshop.page, WorkshopPage::prepare);
    EXPECT_FALSE(samePicture(p.canvas.image(), kReady));
  });
  v.bring({"/pictures/lion.maze"});
  v.desktop.look([](Program& p) { EXPECT_EQ(p.notices.words(), "Not now: a panel is open"); });
  v.finish();
}

TEST(InARun, APictureIsRefused) {
  Visit v;
  v.desktop.menu(Item::printnosolutions);
  v.desktop.enter(ControlId::Text3, "2");
  v.desktop.pumpsPass(2);
  expectRefused(v, "Not now: mazes are being printed");
}

TEST(WhilePatternsAreMade, APictureIsRefused) {
  World w(drawing({"...", "..."}));
  w.state.editor.preparing = true;
  filesArrived(w.program, {"/pictures/ready.png"});
  EXPECT_EQ(w.program.notices.words(), "Not now: random patterns are being made for the next maze");
}

TEST(TenFilesAtOnce, GiveTheFirstAndALineThatSaysSo) {
  Visit v;
  std::vector<fs::path> files(10, "/pictures/other.png");
  files.front() = "/pictures/ready.png";
  v.bring(files);
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
  EXPECT_EQ(v.program.notices.words(), "only the first of these 10 files is taken: ready.png");
}

TEST(WhatIsNoFile, IsRefusedInOneLine) {
  Visit v;
  v.desktop.act(input::nothingBrought);
  v.desktop.pumpsPass(1);
  v.finish();
  EXPECT_EQ(v.program.notices.words(), "only a file of this computer can be dropped here");
  EXPECT_TRUE(samePicture(v.canvas.image(), kRoom));
}

TEST(AnEmptyClipboard, IsToldInOneLine) {
  Visit v;
  v.desktop.menu(Item::pastepicture);
  v.desktop.pumpsPass(1);
  v.finish();
  EXPECT_EQ(v.program.notices.words(), "there is no picture to paste");
  EXPECT_EQ(v.desktop.lines, std::vector<std::string>{"there is no picture to paste"});
}

TEST(ACopiedFile, IsPastedAsIfItWereDropped) {
  Visit v;
  v.desktop.clipboard = Pasted{"/pictures/ready.png", {}};
  v.desktop.menu(Item::pastepicture);
  v.desktop.pumpsPass(2);
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
  EXPECT_EQ(v.program.recent, std::vector<fs::path>{"/pictures/ready.png"});
}

TEST(TheDialog, GivesAPictureOrNothing) {
  Visit none;
  none.program.keysHintTold = true;
  none.desktop.menu(Item::openpicture);
  none.desktop.pumpsPass(1);
  none.finish();
  EXPECT_TRUE(samePicture(none.canvas.image(), kRoom));
  EXPECT_EQ(none.program.notices.words(), "");

  Visit chosen;
  chosen.desktop.chosen = "/pictures/ready.png";
  chosen.desktop.menu(Item::openpicture);
  chosen.desktop.pumpsPass(1);
  chosen.finish();
  EXPECT_TRUE(samePicture(chosen.canvas.image(), kReady));
}

TEST(TheLastTen, StandUnderOpenRecentTheNewestFirstAndNoneTwice) {
  Visit v;
  for (int i = 1; i <= 12; ++i) {
    const fs::path file = "/pictures/" + std::to_string(i) + ".png";
    v.desktop.picturesElsewhere[file] = pictureFrom(kReady);
    v.bring({file});
  }
  v.bring({"/pictures/5.png"});
  v.bring({"/pictures/gone.png"});
  v.finish();
  const auto& entries = v.program.menus.entries(Item::openrecent);
  ASSERT_EQ(entries.size(), 10U);
  EXPECT_EQ(entries[0], "5.png, in /pictures");
  EXPECT_EQ(entries[1], "12.png, in /pictures");
  EXPECT_EQ(entries[9], "3.png, in /pictures");
}

TEST(AnEntryOfOpenRecent, OpensItsFileAgain) {
  Visit v;
  v.bring({"/pictures/ready.png"});
  v.desktop.menu(Item::rmazes);
  v.desktop.pumpsPass(2);
  v.desktop.act([](Program& p) { input::menuEntryClick(p, Item::openrecent, 0); });
  v.desktop.pumpsPass(2);
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kReady));
}

TEST(AnEntryThatIsNotThere, DoesNothing) {
  Visit v;
  for (const int entry : {-1, 0, 99}) {
    v.desktop.act([entry](Program& p) { input::menuEntryClick(p, Item::openrecent, entry); });
  }
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kRoom));
}

TEST(AnExample, IsTakenAsItIsAndIsNoFileToOpenAgain) {
  Visit v;
  const Bitmap cat = plainBitmap(kRoom.width, kRoom.height, 0x336699);
  v.desktop.picturesElsewhere[v.program.files->path() / "cat.bmp"] = pictureFrom(cat);
  v.desktop.act(input::menuLookedAt);
  v.desktop.act([](Program& p) {
    const auto& names = p.menus.entries(Item::openexample);
    const auto place = std::find(names.begin(), names.end(), "cat");
    input::menuEntryClick(p, Item::openexample, static_cast<int>(place - names.begin()));
  });
  v.desktop.pumpsPass(2);
  v.finish();
  EXPECT_FALSE(v.state.panelOpen);
  EXPECT_TRUE(samePicture(v.canvas.image(), cat));
  EXPECT_TRUE(v.program.recent.empty());
}

TEST(PictureThatIsReadBeside, IsRefusedWhenAPanelHasOpenedMeanwhile) {
  Visit v;
  v.desktop.worksLater = true;
  v.bring({"/pictures/ready.png"});
  v.desktop.menu(Item::changewallsize);
  v.desktop.act([&v](Program& p) { (*v.desktop.workUnderWay)()(p); });
  v.finish();
  EXPECT_TRUE(samePicture(v.canvas.image(), kRoom));
  EXPECT_EQ(v.program.notices.words(), "Not now: a panel is open");
}

// --- drawings, over real folders ---

struct Drawings : DiskSession {
  explicit Drawings(const fs::path& work) : DiskSession(work, kRoom) {}
};

/// A drawing called lion in a folder of its own, saved by a program that is gone.
void saveLion(const fs::path& folder) {
  DiskSession s(folder, kReady);
  s.draw();
  s.save("lion");
  s.run();
}

TEST(ADrawing, IsReadWhereItLiesAndTheWorkingFolderStays) {
  const TempFolder elsewhere, work;
  saveLion(elsewhere.path());
  Drawings d(work.path());
  d.draw();
  d.desktop.act([&](Program& p) { input::filesBrought(p, {elsewhere.path() / "lion.maze"}); });
  d.desktop.pumpsPass(2);
  d.look([](Program& p) { EXPECT_TRUE(samePicture(p.canvas.image(), kReady)); });
  d.run();
  EXPECT_EQ(d.program.files->path(), work.path());
  EXPECT_EQ(d.program.notices.words(), "lion is loaded from " + elsewhere.path().string() +
                                           "; what you save goes to " + work.path().string());
  EXPECT_EQ(d.program.recent, std::vector<fs::path>{elsewhere.path() / "lion.maze"});
}

TEST(ADrawingAtTheTitle, BeginsFirst) {
  const TempFolder elsewhere;
  saveLion(elsewhere.path());
  Visit v(false);
  DiskDesktop disk;
  Program program(disk, elsewhere.path());
  disk.setClient({kReady.width, kReady.height});
  disk.act([&](Program& p) { input::filesBrought(p, {elsewhere.path() / "lion.maze"}); });
  disk.pumpsPass(2);
  disk.look([](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::drawing);
    EXPECT_TRUE(samePicture(p.canvas.image(), kReady));
  });
  EXPECT_THROW(runProgram(program), ProgramEnd);
}

TEST(ADrawingThatIsBroken, IsToldInOneLineAndChangesNothing) {
  struct Case {
    const char* file;
    std::string words;
  };
  const TempFolder elsewhere, work;
  saveLion(elsewhere.path());
  fs::copy_file(elsewhere.path() / "lion.maze", elsewhere.path() / "alone.maze");
  elsewhere.put("torn.maze", "1,2,3");
  for (const Case& c : {Case{"alone.maze", "alone.maze has no picture: alone.bmp beside it cannot be read"},
                        Case{"torn.maze", "torn.maze is no Gridwright drawing"},
                        Case{"gone.maze", "gone.maze cannot be opened"}}) {
    Drawings d(work.path());
    d.draw();
    d.desktop.act([&](Program& p) { input::filesBrought(p, {elsewhere.path() / c.file}); });
    d.desktop.pumpsPass(2);
    d.look([](Program& p) { EXPECT_TRUE(samePicture(p.canvas.image(), kRoom)); });
    d.run();
    EXPECT_EQ(d.program.notices.words(), c.words);
    EXPECT_TRUE(d.desktop.messages.empty());
    EXPECT_TRUE(d.program.recent.empty());
  }
}

TEST(TheExamples, AreThePicturesThatCameWithTheProgramAndTheSetsOfThePresentKind) {
  const TempFolder work;
  work.put("a.pat", "1 5\n1 5\n1 5\n1 5\n");
  work.put("b.3d-pat", "");
  Drawings d(work.path());
  d.desktop.act(input::menuLookedAt);
  d.look([](Program& p) {
    EXPECT_EQ(p.menus.entries(Item::openexample),
              (std::vector<std::string>{"balloon", "butterfly", "cat", "name", "octopus", "panes", "snail",
                                        "window", "words", "a.pat"}));
  });
  d.run();
}

TEST(AWhiteGroundOfAComputersMaze, IsToldWithWhatHelps) {
  Visit v;
  v.desktop.act([](Program& p) {
    Bitmap paper = plainBitmap(kRoom.width, kRoom.height, kWhite);
    for (int y = 20; y < 50; ++y)
      for (int x = 20; x < 60; ++x) pixelAt(paper, x, y) = kNavy;
    p.canvas.setPicture(paper);
  });
  v.carve();
  v.finish();
  EXPECT_EQ(
      v.program.notices.words(),
      "the ground of this picture is white, the colour of corridors: File › Prepare this picture makes it "
      "ready");
}

TEST(AGroundOfAnotherColour, IsNotWorthALine) {
  Visit v;
  v.desktop.look([](Program& p) { p.notices.tell(""); });
  v.carve();
  v.finish();
  EXPECT_EQ(v.program.notices.words(), "");
}

}  // namespace
}  // namespace gridwright::test
