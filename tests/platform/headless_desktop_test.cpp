#include "platform/headless/headless_desktop.h"

#include <gtest/gtest.h>

#include <iostream>
#include <streambuf>

#include "platform/twin.h"
#include "support/full_disk.h"
#include "support/offscreen.h"

namespace gridwright::test {
namespace {

/// A script that waits, in a program at work.
struct Waiting {
  explicit Waiting(const std::string& script) : desktop("s.txt", script, {}) {
    program.state.phase = Phase::making;
    program.state.cur.left = 7;
    desktop.doEvents(program, Pace::working);
  }
  [[nodiscard]] std::int64_t quiet() { return desktop.quietPumps(program); }
  HeadlessDesktop desktop;
  TempFolder temp;
  Program program{desktop, temp.path()};
};

TEST(AScriptThatWaits, LooksAtNothingForAsLong) {
  EXPECT_EQ(Waiting("pumps 500\n").quiet(), 499);
  EXPECT_EQ(Waiting("until phase 2 300\n").quiet(), 299);
  EXPECT_GT(Waiting("until phase 2\n").quiet(), 1'000'000);
  EXPECT_GT(Waiting("settle\n").quiet(), 1'000'000);
  Waiting counted("settle 300\n");
  EXPECT_EQ(counted.quiet(), 299);
  counted.desktop.passOver(200);
  EXPECT_EQ(counted.quiet(), 99) << "pumps that were left out count";
}

TEST(AScriptThatLooks, SeesEveryPump) {
  EXPECT_EQ(Waiting("until curLeft 9\n").quiet(), 0) << "a field that changes with every step";
  EXPECT_EQ(Waiting("key 200 3\n").quiet(), 0) << "a key in each pump";
  EXPECT_EQ(Waiting("key 200\nshow phase\n").quiet(), 0) << "the next line comes in the next pump";
  Waiting reached("until phase 2\n");
  reached.program.state.phase = Phase::placing;
  EXPECT_EQ(reached.quiet(), 0);
}

TEST(AStartOfTheScript, StaysInTheCellOfItsPixelAndIsRefusedElsewhere) {
  Twin twin;
  const std::string placed = kDrawing + "menu cgenerate\nstartat 45 25\nmenu newmaze\nuntil phase 2\n";
  EXPECT_EQ(twin.run(placed + "expect startLeft 41\nexpect startTop 21\n").status, 0);
  EXPECT_EQ(twin.run(kDrawing + "startat 5 25\n").words, "s.txt:5: no cell holds this pixel: 5 25");
  EXPECT_EQ(twin.run(placed + "startat 45 25\n").status, 2) << "only in the drawing";
  EXPECT_EQ(twin.run("click Command2\nmenu importdrawing\nstartat 45 25\n").status, 2) << "under a panel";
}

TEST(PumpsThatAreLeftOut, CountAsPumps) {
  Waiting waiting("pumps 500\nexpect phase 99\n");
  waiting.desktop.passOver(400);
  EXPECT_EQ(waiting.quiet(), 99);
  waiting.desktop.passOver(99);
  EXPECT_THROW(waiting.desktop.doEvents(waiting.program, Pace::working), ScriptStop);
  Waiting patient("until phase 2 300\n");
  patient.desktop.passOver(299);
  EXPECT_EQ(patient.quiet(), 0);
  EXPECT_THROW(patient.desktop.doEvents(patient.program, Pace::working), ScriptStop) << "not in time";
}

TEST(TheEndOfAScript, ClosesTheWindowAndGivesZero) {
  Twin t;
  EXPECT_EQ(t.run("").status, 0);
  EXPECT_EQ(t.run("expect phase -5\n").status, 0);
  EXPECT_EQ(t.run("close\nexpect phase 99\n").status, 0) << "nothing runs after the close";
}

TEST(AWholeSession, GoesFromThePictureToTheAnswer) {
  Twin t;
  const Ended run = t.run(kMaze +
                          "expect caption \"Gridwright-(placing start and finish)\"\n"
                          "expect menu solvemaze enabled\nexpect menu mpdrawing disabled\n"
                          "menu solvemaze\nuntil phase 4\nexpect mazeStage 3\nmenu printfff\nexpect pages 1\n"
                          "expect file drawing2.bmp\nexpect file DRAWING3.BMP\n");
  EXPECT_EQ(run.words, "");
  EXPECT_EQ(run.status, 0);
}

TEST(AFailedExpectation, StopsWithOneAndTheLine) {
  Twin t;
  for (const char* line :
       {"expect phase 0", "expect caption \"other\"", "expect menu newmaze enabled",
        "expect menu help checked", "expect control Command2 hidden", "expect control Check9 checked",
        "expect text Command2 \"other\"", "expect text newmaze \"New maze\"", "expect message \"words\"",
        "expect notice \"words\"", "expect pixel 0 0 1", "expect pages 1", "expect file nothing.bmp"}) {
    const Ended run = t.run("pumps 1\n\n" + std::string(line) + "\n");
    EXPECT_EQ(run.status, 1) << line;
    EXPECT_EQ(run.words.rfind("s.txt:3: ", 0), 0U) << run.words;
  }
}

TEST(AnExpectationThatHolds, GoesOn) {
  Twin t;
  EXPECT_EQ(
      t.run("expect caption \"Gridwright-by Orrin Vale\"\nexpect menu newmaze visible\n"
            "expect menu usepattern checked\nexpect menu dontusepattern unchecked\n"
            "expect control Command2 visible\nexpect control Command2 enabled\nexpect control Text2 hidden\n"
            "expect control Command2 unchecked\nexpect control Check9 unchecked\n"
            "expect text Command2 \"Click to Begin\"\nexpect text newmaze \"New maze \"\n"
            "expect text maxrnd \"Random patterns are allways size \"5\"\"\nexpect message \"\"\n"
            "expect pixel 0 0 65535\nexpect pixel -1 0 -1\nexpect pages 0\nexpect file title.bmp\n")
          .words,
      "");
}

TEST(AnInputThatAPersonCouldNotGive, StopsWithTwoAndTheLine) {
  Twin t;
  for (const char* line : {"click Command1",
                           "click NoSuchThing",
                           "click Text2",
                           "menu newmaze",
                           "menu maze",
                           "menu nosuchitem",
                           "type Text2 \"12\"",
                           "enter Text2",
                           "escape Text8",
                           "pick File5 \"room.bmp\"",
                           "frobnicate",
                           "click",
                           "menu",
                           "resize 10x10",
                           "resize",
                           "seed -1",
                           "seed 4294967296",
                           "seed x",
                           "until nosuchfield 1",
                           "expect nosuchfield 1",
                           "expect phase",
                           "expect phase x",
                           "expect caption",
                           "show nosuchfield",
                           "expect menu newmaze big",
                           "expect text nosuchitem \"a\"",
                           "pumps many",
                           "snapshot none/x.bmp",
                           "expect control NoSuch visible"}) {
    const Ended run = t.run("pumps 1\n" + std::string(line) + "\n");
    EXPECT_EQ(run.status, 2) << line << ": " << run.words;
    EXPECT_EQ(run.words.rfind("s.txt:2: ", 0), 0U) << line << ": " << run.words;
  }
}

TEST(AMenuItemThatInformsOnly, MayBeChosenAndDoesNothingOrIsRefused) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "menu fddf\n").status, 2) << "it opens a submenu and is hidden";
}

TEST(Until, GivesUpAtOnceWhenNothingCanChangeAnyMore) {
  Twin t;
  const Ended run = t.run("until phase 3\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.words.rfind("s.txt:1: until phase 3", 0), 0U) << run.words;
}

TEST(Until, GivesUpAfterItsPumps) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "menu cgenerate\nmenu newmaze\nuntil phase 2 10\n").status, 1);
  EXPECT_EQ(t.run(kDrawing + "menu cgenerate\nmenu newmaze\nuntil phase 2 1000000\n").words, "");
}

TEST(Until, GoesOnAtOnceWhenTheValueStandsAlready) {
  Twin t;
  EXPECT_EQ(t.run("until phase -5 1\nuntil phase -5 0\nexpect phase -5\n").words, "");
}

TEST(Pumps, PassWithoutInput) {
  Twin t;
  EXPECT_EQ(
      t.run(kDrawing + "menu cgenerate\nmenu newmaze\npumps 200\nexpect walkStartLeft 11\nuntil phase 2\n")
          .words,
      "");
}

TEST(Settling, WaitsUntilTheProgramIsIdle) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "menu cgenerate\nmenu newmaze\nsettle\nexpect phase 2\n").words, "");
}

TEST(Settling, EndsTheRunWhereItTakesMorePumpsThanItMay) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "menu cgenerate\nmenu newmaze\nsettle 9999999\nexpect phase 2\n").words, "");
  const Ended ended = t.run(kDrawing + "menu cgenerate\nmenu newmaze\nsettle 9\n");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.words, "s.txt:7: settle 9 failed: it does not come to rest");
}

TEST(AFileThatIsTakenAway, IsGone) {
  Twin t;
  EXPECT_EQ(t.run("removefile room.bmp\nexpect file room.bmp\n").words,
            "s.txt:2: expect file room.bmp failed: it is not there");
  EXPECT_EQ(t.run("removefile room.bmp\n").words, "s.txt:1: could not be removed: room.bmp");
}

TEST(TheSeed, GivesTheSameMazeAgain) {
  Twin t;
  EXPECT_EQ(t.run(kMaze + "image one.bmp\n").words, "");
  EXPECT_EQ(t.run(kMaze + "image two.bmp\n").words, "");
  EXPECT_EQ(t.run("seed 6\n" + kMaze.substr(7) + "image three.bmp\n").words, "");
  EXPECT_EQ(t.temp.get("one.bmp"), t.temp.get("two.bmp"));
  EXPECT_NE(t.temp.get("one.bmp"), t.temp.get("three.bmp"));
}

TEST(TheSeed, InMidSessionRestartsRndFromThere) {
  Twin t;
  const std::string late = kDrawing + "seed 5\nmenu cgenerate\nmenu newmaze\nuntil phase 2\nimage late.bmp\n";
  EXPECT_EQ(t.run(kMaze + "image one.bmp\n").words, "");
  EXPECT_EQ(t.run(late).words, "");
  EXPECT_EQ(t.temp.get("one.bmp"), t.temp.get("late.bmp"));
}

TEST(SnapshotAndImage, WriteTheShownAndThePersistentPicture) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "pumps 3\nsnapshot shown.bmp\nimage kept.bmp\n").words, "");
  const Bitmap shown = readBitmapFile(t.temp.path() / "shown.bmp").value();
  const Bitmap kept = readBitmapFile(t.temp.path() / "kept.bmp").value();
  EXPECT_EQ(shown.width, 120);
  EXPECT_EQ(shown.height, 100);
  EXPECT_EQ(kept.at(15, 15), kNavy);
  EXPECT_EQ(shown.at(10, 10), kRed) << "the brush's outline is on the screen";
  EXPECT_EQ(kept.at(10, 10), kNavy) << "and nowhere else";
}

TEST(AnImport, MayPickFromTheList) {
  Twin t;
  EXPECT_EQ(
      t.run("click Command2\nmenu importdrawing\npick File5 \"room.bmp\"\nexpect text Text8 \"room.bmp\"\n"
            "enter Text8\nexpect panelOpen 0\nexpect mazeMadeOnce 1\nexpect message \"\"\n")
          .words,
      "");
  EXPECT_EQ(t.run("click Command2\nmenu importdrawing\npick File5 \"none.bmp\"\n").status, 2);
  EXPECT_EQ(t.run("click Command2\nmenu importdrawing\ntype Text8 \"none\"\nenter Text8\n"
                  "expect message \"Error: can't find bitmap.\"\nexpect panelOpen 0\n")
                .words,
            "");
  EXPECT_EQ(t.run("click Command2\nmenu importdrawing\nescape Text8\nexpect panelOpen 0\n").words, "");
}

TEST(EscapeOnASwatch, LeavesTheUppermostColourPanel) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing +
                  "menu selectcolor\nescape Check20\nexpect panelOpen 0\nmenu choosew\nclick Check33\n"
                  "rightclick Check2\npumps 2\nescape Check35\npumps 2\nexpect control Check35 hidden\n"
                  "expect panelOpen 1\nescape Check1\nexpect panelOpen 0\nexpect control Check1 hidden\n")
                .words,
            "");
  EXPECT_EQ(t.run(kDrawing + "menu choosew\nescape Check17\n").status, 2) << "not shown";
}

TEST(AResize, ReachesTheCanvasInDrawingAndNotInAMaze) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "resize 200x150\nexpect ScaleWidth 200\nexpect ScaleHeight 150\n").words, "");
  EXPECT_EQ(t.run(kMaze + "resize 200x150\nexpect ScaleWidth 120\n").words, "");
  EXPECT_EQ(
      t.run(kDrawing + "minimize\nexpect WindowState 1\nresize 200x150\nexpect ScaleWidth 120\nrestore\n"
                       "expect WindowState 0\nexpect ScaleWidth 200\n")
          .words,
      "");
}

TEST(PrintedPages, GoIntoTheFolderNumberedFromOne) {
  Twin t;
  std::filesystem::create_directory(t.temp.path() / "pages");
  t.options.pagesFolder = t.temp.path() / "pages";
  EXPECT_EQ(t.run(kMaze + "menu printfff\nmenu printfff\nexpect pages 2\nsnapshot shown.bmp\n").words, "");
  EXPECT_TRUE(samePicture(readBitmapFile(t.temp.path() / "pages" / "page-0002.bmp").value(),
                          readBitmapFile(t.temp.path() / "shown.bmp").value()));
  EXPECT_TRUE(std::filesystem::exists(t.temp.path() / "pages" / "page-0001.bmp"));
}

TEST(PrintedPages, AreOneDocumentWhenOneIsAskedFor) {
  Twin t;
  t.options.pdfFile = t.temp.path() / "out.pdf";
  EXPECT_EQ(t.run(kMaze + "menu printfff\nmenu printfff\n").words, "");
  EXPECT_EQ(t.written, 1);
  EXPECT_EQ(t.temp.get("out.pdf").substr(0, 5), "%PDF-");
}

TEST(PagesThatCannotBeKept, StopWithTwoAndSayWhere) {
  const auto expectStop = [](Twin& t, const std::filesystem::path& where) {
    const Ended run = t.run(kMaze + "menu printfff\nmenu newmaze\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.words, "Error: the pages could not be saved. (cannot be written: " + where.string() + ")");
  };
  Twin document;
  document.options.pdfFile = document.temp.path() / "no folder" / "out.pdf";
  expectStop(document, *document.options.pdfFile);
  Twin pages;
  pages.options.pagesFolder = pages.temp.path() / "no folder";
  expectStop(pages, *pages.options.pagesFolder / "page-0001.bmp");
}

TEST(ADocumentThatTheDiskHasNoRoomFor, IsNoneAndLeavesWhatWasThere) {
  for (const rlim_t room : {0UL, 1000UL, 2000UL}) {
    Twin t;
    t.options.pdfFile = t.temp.path() / "out.pdf";
    t.temp.put("out.pdf", "the one before");
    {
      const FullDisk full(room);
      EXPECT_EQ(t.run(kMaze + "menu printfff\nmenu printfff\n").words, "");
    }
    EXPECT_EQ(t.written, 0) << "the last bytes are written at the end";
    EXPECT_EQ(t.temp.get("out.pdf"), "the one before") << room;
  }
}

/// Takes nothing, as a full disk does.
struct FullBuffer : std::streambuf {
  int overflow(int) override { return traits_type::eof(); }
  std::streamsize xsputn(const char*, std::streamsize) override { return 0; }
};

TEST(ShownFieldsThatCannotBeWritten, StopWithTwoAndTheLine) {
  Twin t;
  FullBuffer full;
  std::streambuf* before = std::cout.rdbuf(&full);
  const Ended run = t.run("pumps 1\nshow phase\n");
  std::cout.rdbuf(before);
  std::cout.clear();
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.words, "s.txt:2: the standard output cannot be written");
}

TEST(Inputs, AreNeverLostAlthoughOnePumpTakesOne) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "menu cgenerate\nmenu stopfinish\nmenu aon\nmenu aoff\nmenu dontusepattern\n"
                             "expect creationMode 1\nexpect stopAtFinish 1\nexpect autoMinimize 0\n"
                             "expect patternState 3\n")
                .words,
            "");
}

TEST(APictureLine, ThatAPersonCouldNotGiveStopsTheScript) {
  Twin t;
  EXPECT_EQ(t.run(kDrawing + "prepare colours=4\n").words, "s.txt:5: no picture is being prepared");
  EXPECT_EQ(t.run(kDrawing + "asitis\n").words, "s.txt:5: no picture is being prepared");
  for (const std::string line :
       {"accept", "cancel", "newsheet", "tool pencil", "press 1 1", "drag 1 1", "release 1 1", "words \"A\"",
        "stamp heart", "place", "undo", "redo", "editelsewhere"}) {
    const Ended ended = t.run(kDrawing + line + "\n");
    EXPECT_EQ(ended.status, 2) << line;
    EXPECT_EQ(ended.words, "s.txt:5: the workshop is not open") << line;
  }
  EXPECT_EQ(t.run(kDrawing + "sheet x.bmp\n").words, "s.txt:5: there is no sheet yet");
  const auto inWorkshop = [&](const std::string& line) {
    return t.run(kDrawing + "menu workshop\n" + line + "\n").words;
  };
  EXPECT_EQ(inWorkshop("place"), "s.txt:6: there is no picture to place");
  EXPECT_EQ(inWorkshop("tool brush"), "s.txt:6: no such tool: brush");
  EXPECT_EQ(inWorkshop("stamp dog"), "s.txt:6: no such stamp: dog");
  EXPECT_EQ(inWorkshop("words MIA"), "s.txt:6: a text in double quotes is missing");
  for (const std::string setting : {"size=0", "size=51", "snap=2", "outline=x", "mirror=up", "colour=15",
                                    "colour=white", "thick=1", "size"}) {
    EXPECT_EQ(inWorkshop("tool line " + setting), "s.txt:6: not understood: " + setting);
  }
  for (const std::string setting :
       {"height=0", "height=201", "colour=15", "bold=yes", "join=2", "frame=", "at=1", "at=a,b", "font="}) {
    EXPECT_EQ(inWorkshop("words \"A\" " + setting), "s.txt:6: not understood: " + setting);
  }
  EXPECT_EQ(t.run(kDrawing + "open\n").words, "s.txt:5: a word is missing");
  EXPECT_EQ(t.run(kDrawing + "menu openrecent 1\n").words, "s.txt:5: no such entry: 1");
  EXPECT_EQ(t.run(kDrawing + "menu openexample \"dog\"\n").words, "s.txt:5: no such entry: dog");
  EXPECT_EQ(t.run(kDrawing + "menu openrecent\n").words, "s.txt:5: a word is missing");
}

TEST(AWordOfPrepare, MustBeOneOfItsSettings) {
  Twin t;
  t.put("plain.bmp", plainBitmap(60, 40, 0x336699));
  for (const std::string word : {"colours=1", "colours=17", "colours=x", "detail=0", "detail=6",
                                 "outlines=bold", "size=huge", "grow=1,x", "shape=round", "colours"}) {
    const Ended ended = t.run("open plain.bmp\nprepare " + word + "\n");
    EXPECT_EQ(ended.status, 2) << word;
    EXPECT_EQ(ended.words, "s.txt:2: not understood: " + word);
  }
  EXPECT_EQ(t.run("open plain.bmp\nprepare colours=2 detail=5 outlines=none size=asitis grow=1,2\n").words,
            "");
}

TEST(APath, MayHaveBlanksInQuotes) {
  Twin t;
  t.put("my cat.bmp", drawing({"...", "..."}));
  EXPECT_EQ(t.run("open \"my cat.bmp\"\nexpect phase 0\nexpect pixel 15 15 8388608\n").words, "");
}

TEST(AScriptsPageSetup, IsInForceAtOnceAndLeavesThePagesPixelsAlone) {
  Twin twin;
  twin.options.pagesFolder = twin.temp.path();
  ASSERT_EQ(
      twin.run(kMaze + "pagesetup paper=letter landscape=1 margin=15 title=\"My \\n mazes\" nameline=1 "
                       "endwords=1\nexpect panelOpen 0\nmenu printfff\nexpect pages 1\nsnapshot s.bmp\n")
          .words,
      "");
  const auto page = readBitmapFile(twin.temp.path() / "page-0001.bmp");
  const auto shown = readBitmapFile(twin.temp.path() / "s.bmp");
  ASSERT_TRUE(page && shown);
  EXPECT_TRUE(samePicture(page.value(), shown.value()));
}

TEST(AScriptsPageSetup, SpreadsEveryPageOverSheetsUntilItIsTakenBack) {
  beginOffscreen();  // sheets are numbered, which takes fonts
  Twin twin;
  twin.options.pdfFile = twin.temp.path() / "out.pdf";
  ASSERT_EQ(twin.run(kMaze + "pagesetup tiles=3x2\nmenu printfff\npagesetup title=T\nmenu printfff\n"
                             "pagesetup tiles=auto\nmenu printfff\n")
                .words,
            "");
  const std::string pages = "/Type /Page\n";
  const std::string bytes = twin.temp.get("out.pdf");
  std::size_t sheets = 0;
  for (auto at = bytes.find(pages); at != std::string::npos; at = bytes.find(pages, at + 1)) ++sheets;
  EXPECT_EQ(sheets, 6U + 6U + 1U);
}

TEST(AScriptsPageSetup, GoesOnWithThePanelThatIsOpenAndCancelLeavesIt) {
  Twin twin;
  EXPECT_EQ(twin.run(kMaze + "menu pagesetup\nexpect paused 1\nexpect menu printpreview disabled\n"
                             "expect menu pagesetup disabled\ncancel\nexpect paused 0\nmenu pagesetup\n"
                             "pagesetup nameline=1\nexpect paused 0\nmenu printpreview\nexpect pages 0\n")
                .words,
            "");
}

TEST(AScriptsPageSetup, IsRefusedWhereAPersonCouldNotDoIt) {
  Twin twin;
  EXPECT_EQ(twin.run("pagesetup margin=15\n").words, "s.txt:1: pagesetup is disabled or hidden");
  for (const char* word :
       {"paper=a44", "landscape=2", "margin=51", "margin=-1", "nameline=yes", "endwords=", "size=a4", "title",
        "tiles=0x1", "tiles=10x1", "tiles=3", "tiles=3x2x1", "tiles="}) {
    const Ended ended = twin.run(kDrawing + "pagesetup " + word + "\n");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.words, std::string("s.txt:5: not understood: ") + word);
  }
  EXPECT_EQ(twin.run(kDrawing + "pagesetup paper=auto landscape=auto margin=auto title=\"\" "
                                "tiles=auto\n")
                .words,
            "");
}

}  // namespace
}  // namespace gridwright::test
