#include "session/workshop.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "session/prepare_panel.h"
#include "support/disk_session.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Bitmap kRoom = drawing({"......", "......", "......", "......"});  // 70 by 50

/// Whether a sheet shows this, with paper all round it.
::testing::AssertionResult shows(const Sheet& sheet, const Bitmap& picture) {
  return samePicture(sheet.picture(), resized(picture, sheet.size()));
}

/// Paper with a box of one colour on it.
Bitmap boxOnPaper(Size size, const Square& box, Colour colour, Colour paper = kPaper) {
  Bitmap picture = plainBitmap(size.width, size.height, paper);
  for (int y = box.top; y <= box.bottom; ++y)
    for (int x = box.left; x <= box.right; ++x) pixelAt(picture, x, y) = colour;
  return picture;
}

/// A program in the drawing phase, on a blank Canvas or on one with a room.
struct Shop : World {
  explicit Shop(Size client = {70, 50}, const Bitmap& picture = {}) : World(client) {
    if (picture.pixels.empty()) {
      desktop.act([](Program& p) { input::buttonClick(p, ControlId::Command2); });
      desktop.untilPhase(Phase::drawing);
    } else {
      begin(picture);
    }
    desktop.pumpsPass(2);
  }
  void act(BareDesktop::Action action) {
    desktop.act(std::move(action));
    desktop.pumpsPass(2);
  }
  void open() { act(workshop); }
  void box(const Square& box, int colour = 4) {
    act([box, colour](Program& p) {
      onSheet(p, [&](Sheet& sheet) {
        ToolSettings tool = sheet.settings();
        tool.tool = Tool::rectangle;
        tool.colour = colour;
        sheet.choose(tool);
        sheet.press(box.left, box.top);
        sheet.release(box.right, box.bottom);
      });
    });
  }
  void bring(const Bitmap& picture) {
    act([this, picture](Program& p) {
      desktop.picturesElsewhere["/brought.png"] = {{picture, {}}, {}, {picture.width, picture.height}};
      input::filesBrought(p, {"/brought.png"});
    });
  }
  void finish() { ASSERT_EQ(run(), ""); }
  const Workshop& shop = program.workshop;
};

TEST(TheWorkshop, OpensWithAWhiteSheetAsLargeAsTheCanvasAndTouchesNothing) {
  Shop s;
  Bitmap shown;
  int drawColour = 0;
  s.desktop.look([&](Program& p) {
    shown = p.canvas.shownImage();
    drawColour = p.state.drawColor;
  });
  s.open();
  s.box({10, 10, 30, 30});
  s.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.state.panelOpen && p.state.paused);
    EXPECT_EQ(p.workshop.page, WorkshopPage::sheet);
    EXPECT_EQ(p.workshop.sheet->size(), (Size{70, 50}));
    EXPECT_TRUE(samePicture(p.canvas.shownImage(), shown));
    EXPECT_EQ(p.state.drawColor, drawColour);
    for (const Item item : {Item::workshop, Item::openpicture, Item::newmaze, Item::importdrawing})
      EXPECT_FALSE(p.menus.available(item));
  });
  s.finish();
  EXPECT_TRUE(shows(*s.shop.sheet, boxOnPaper({70, 50}, {10, 10, 30, 30}, kMaroon)));
  EXPECT_EQ(s.desktop.windowState(), WindowState::maximised);
}

TEST(TheWorkshop, HasKeysOfThePhaseLostUnderIt) {
  Shop s;
  s.open();
  Square before;
  s.desktop.look([&](Program& p) { before = p.state.cur; });
  s.act([](Program& p) { input::keyDown(p, 39); });
  s.desktop.look([&](Program& p) { EXPECT_EQ(p.state.cur, before); });
  s.finish();
}

TEST(UseOfASheet, IsAnImportThatResetsTheColours) {
  Shop s;
  s.act([](Program& p) {
    p.state.mazeMadeOnce = false;
    p.controls.setValue(classifySwatch(4), 0);
  });
  s.open();
  s.box({10, 10, 50, 40});
  s.act(useWorkshop);
  s.desktop.look([](Program& p) {
    EXPECT_FALSE(p.workshop.open || p.state.panelOpen || p.state.paused);
    EXPECT_TRUE(p.state.mazeMadeOnce && p.state.drawing.firstPaint);
    EXPECT_TRUE(p.colours.isBackground(kMaroon));
  });
  s.finish();
  EXPECT_TRUE(samePicture(s.canvas.image(), boxOnPaper({70, 50}, {10, 10, 50, 40}, kMaroon)));
}

TEST(UseOfASheet, OnWhichNothingWasPaintedChangesNothing) {
  for (const bool isDrawn : {false, true}) {
    Shop s({70, 50}, isDrawn ? kRoom : Bitmap{});
    Bitmap before;
    s.act([&](Program& p) {
      before = p.canvas.image();
      p.state.mazeMadeOnce = false;
      p.controls.setValue(classifySwatch(4), 0);
    });
    s.open();
    s.act(useWorkshop);
    s.desktop.look([&, isDrawn](Program& p) {
      EXPECT_FALSE(p.workshop.open || p.state.panelOpen || p.state.mazeMadeOnce);
      EXPECT_FALSE(p.colours.isBackground(kMaroon));
      EXPECT_TRUE(samePicture(p.canvas.image(), before)) << isDrawn;
    });
    s.finish();
  }
}

TEST(Cancel, LeavesTheDrawingAndTheSheetWaitsWithItsSteps) {
  Shop s;
  s.open();
  s.box({10, 10, 50, 40});
  s.act(leaveWorkshop);
  s.desktop.look([](Program& p) {
    EXPECT_FALSE(p.workshop.open || p.state.panelOpen);
    EXPECT_FALSE(p.canvas.showsAnything());
  });
  s.open();
  s.desktop.look([](Program& p) {
    EXPECT_TRUE(shows(*p.workshop.sheet, boxOnPaper({70, 50}, {10, 10, 50, 40}, kMaroon)));
    EXPECT_TRUE(p.workshop.sheet->canUndo());
  });
  s.act(useWorkshop);
  s.finish();
  EXPECT_TRUE(samePicture(s.canvas.image(), boxOnPaper({70, 50}, {10, 10, 50, 40}, kMaroon)));
}

TEST(ADrawingThatTheSheetDoesNotKnow, ComesOntoItAsOneMoreStep) {
  Shop s({70, 50}, kRoom);
  s.open();
  s.desktop.look([](Program& p) {
    EXPECT_TRUE(shows(*p.workshop.sheet, kRoom));
    EXPECT_EQ(p.workshop.sheet->meaning(), Meaning::ofTheDrawing);
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) {
    EXPECT_TRUE(shows(*p.workshop.sheet, plainBitmap(1, 1, kPaper))) << "the sheet of before";
    EXPECT_EQ(p.workshop.sheet->meaning(), Meaning::ofTheStart);
    EXPECT_FALSE(p.workshop.sheet->canUndo());
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.redo(); }); });
  s.desktop.look([](Program& p) { EXPECT_EQ(p.workshop.sheet->meaning(), Meaning::ofTheDrawing); });
  s.finish();
}

TEST(ADrawingThatTheSheetDoesNotKnow, ComesOnlyWhereItHasChangedSince) {
  Shop s({70, 50}, kRoom);
  s.open();
  s.box({20, 20, 40, 40}, 2);
  s.act(leaveWorkshop);
  s.open();
  s.desktop.look([](Program& p) { EXPECT_EQ(p.workshop.sheet->inkAt(30, 30), 2) << "nothing came over it"; });
  s.act(useWorkshop);
  s.open();
  std::uint64_t used = 0;
  s.desktop.look([&](Program& p) {
    EXPECT_EQ(p.workshop.sheet->inkAt(30, 30), 2);
    used = p.workshop.sheet->revision();
  });
  s.act(leaveWorkshop);
  s.open();
  s.desktop.look([&](Program& p) {
    EXPECT_EQ(p.workshop.sheet->revision(), used) << "no step for what it was used for";
  });
  s.finish();
}

TEST(ASheetFromTheDrawing, KeepsSwatchesAndMazeColours) {
  Shop s({70, 50}, kRoom);
  s.act([](Program& p) {
    p.controls.setValue(classifySwatch(4), 0);  // maroon a border
    p.colours.setMaze(0, kPalette[5]);          // purple for corridors
    p.colours.setMaze(0, kPalette[5]);          // purple for corridors
  });
  s.open();
  s.desktop.look([](Program& p) {
    const ColourSets sets = p.workshop.sets();
    EXPECT_EQ(roleOf(4, sets), InkRole::border);
    EXPECT_EQ(roleOf(5, sets), InkRole::taken);
    EXPECT_EQ(roleOf(1, sets), InkRole::grows);
    EXPECT_EQ(roleOf(kPaperInk, sets), InkRole::border);
  });
  s.box({20, 20, 30, 30}, 2);
  s.act(useWorkshop);
  s.desktop.look([](Program& p) {
    EXPECT_FALSE(p.colours.isBackground(kMaroon));
    EXPECT_TRUE(p.colours.isMaze(kPalette[5]));
    EXPECT_EQ(p.canvas.image().at(25, 25), kGreen);
  });
  s.finish();
}

TEST(ASheetFromTheDrawing, HasTheNearestInksAndSaysHowManyPixelsGotThem) {
  Bitmap picture = kRoom;
  pixelAt(picture, 20, 20) = 0x0A0080;  // about maroon
  pixelAt(picture, 21, 20) = kWhite;
  Shop s({70, 50}, picture);
  s.open();
  s.desktop.look([](Program& p) {
    EXPECT_EQ(p.workshop.sheet->inkAt(20, 20), 4);
    EXPECT_EQ(p.workshop.sheet->inkAt(21, 20), kPaperInk);
    EXPECT_EQ(sheetNote(p), "2 pixels had colours that the sheet does not hold: they have the nearest");
  });
  s.finish();
}

TEST(TheGroundOfTheCanvas, IsPaperOnTheSheetAndWhatIsPaintedInItsColourIsNot) {
  Shop s({70, 50}, drawing({"......", "..yy..", "......", "......"}));
  s.act([&s](Program& p) {
    s.desktop.setClient({120, 90});
    input::resized(p, {120, 90});
  });
  s.open();
  s.desktop.look([](Program& p) {
    EXPECT_EQ(p.canvas.backColor(), kYellow);
    EXPECT_EQ(p.workshop.sheet->inkAt(35, 25), 14);
    EXPECT_EQ(p.workshop.sheet->inkAt(100, 80), kPaperInk);
  });
  s.finish();
}

TEST(ASheetOfAllInks, ComesBackAsItWasUsed) {
  Shop s({170, 50});
  s.open();
  for (int ink = 0; ink < kPaperInk; ++ink) s.box({10 + 10 * ink, 10, 19 + 10 * ink, 39}, ink);
  Bitmap painted;
  s.desktop.look([&](Program& p) { painted = p.workshop.sheet->picture(); });
  s.act(useWorkshop);
  s.open();
  s.desktop.look([&](Program& p) { EXPECT_TRUE(shows(*p.workshop.sheet, painted)); });
  s.finish();
}

TEST(ASheet, PaintedAndTakenBackIsUsedForNothing) {
  Shop s;
  s.desktop.look([](Program& p) { p.state.mazeMadeOnce = false; });
  s.open();
  s.box({10, 10, 50, 40});
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.act(useWorkshop);
  s.desktop.look([](Program& p) {
    EXPECT_FALSE(p.state.mazeMadeOnce);
    EXPECT_FALSE(p.canvas.showsAnything());
  });
  s.finish();
}

TEST(ASheetThatWasUsed, MeansWhatTheDrawingMeansAlsoAfterAStepBackAndForth) {
  Shop s;
  s.open();
  s.box({10, 10, 50, 40});
  s.act(useWorkshop);
  s.act([](Program& p) { p.controls.setValue(classifySwatch(4), 0); });
  s.open();
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) { EXPECT_EQ(p.workshop.sheet->meaning(), Meaning::ofTheStart); });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.redo(); }); });
  s.desktop.look([](Program& p) { EXPECT_EQ(p.workshop.sheet->meaning(), Meaning::ofTheDrawing); });
  s.box({20, 20, 30, 30}, 2);
  s.act(useWorkshop);
  s.finish();
  EXPECT_FALSE(s.program.colours.isBackground(kMaroon));
}

TEST(ToolWordsAndStamp, TakeAnotherColourWhereTheMazeIsCarvedInTheirs) {
  Shop s({70, 50}, kRoom);
  s.act([](Program& p) { p.colours.setMaze(0, kNavy); });
  s.open();
  s.desktop.look([](Program& p) {
    const ColourSets sets = p.workshop.sets();
    ASSERT_EQ(roleOf(1, sets), InkRole::taken);
    EXPECT_EQ(roleOf(p.workshop.sheet->settings().colour, sets), InkRole::grows);
    EXPECT_EQ(roleOf(p.workshop.words.colour.value_or(1), sets), InkRole::grows);
    EXPECT_EQ(roleOf(p.workshop.stamp.colour, sets), InkRole::grows);
  });
  s.finish();
}

TEST(NewSheet, IsAStepAndResetsTheColoursWhenUsed) {
  Shop s({70, 50}, kRoom);
  s.act([](Program& p) { p.controls.setValue(classifySwatch(4), 0); });
  s.open();
  s.act(newsheet);
  s.desktop.look([](Program& p) {
    EXPECT_TRUE(shows(*p.workshop.sheet, plainBitmap(1, 1, kPaper)));
    EXPECT_EQ(p.workshop.sheet->meaning(), Meaning::ofTheStart);
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) { EXPECT_TRUE(shows(*p.workshop.sheet, kRoom)); });
  s.act(newsheet);
  s.box({10, 10, 50, 40});
  s.act(useWorkshop);
  s.finish();
  EXPECT_TRUE(s.program.colours.isBackground(kMaroon));
}

const Bitmap kBoxOnWhite = boxOnPaper({60, 40}, {10, 10, 40, 30}, kMaroon, kWhite);

TEST(APlacedPicture, FillsTheSheetThatWasOpenedForIt) {
  Shop s({70, 50}, kRoom);
  s.bring(kBoxOnWhite);
  Bitmap made;
  s.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.workshop.open && p.prepare.open);
    made = p.prepare.made->picture;
    EXPECT_EQ(made.width, 70);
  });
  s.act([](Program& p) { placePrepared(p, {}, {}); });
  s.desktop.look([&](Program& p) {
    EXPECT_FALSE(p.prepare.open);
    EXPECT_EQ(p.workshop.page, WorkshopPage::sheet);
    EXPECT_TRUE(samePicture(p.workshop.sheet->picture(), made)) << "the room is not beneath it";
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) { EXPECT_TRUE(shows(*p.workshop.sheet, kRoom)) << "one step"; });
  s.finish();
}

/// The square of all pixels of one ink.
Square boundsOf(const Sheet& sheet, int ink) {
  Square box{sheet.size().width, sheet.size().height, -1, -1};
  for (int y = 0; y < sheet.size().height; ++y) {
    for (int x = 0; x < sheet.size().width; ++x) {
      if (sheet.inkAt(x, y) != ink) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  }
  return box;
}

TEST(APlacedPicture, ComesOntoWhatWasPaintedWhileItWaited) {
  for (const bool isAway : {false, true}) {
    Shop s({140, 100});
    s.bring(kBoxOnWhite);
    if (isAway) s.act(putPictureAway);
    s.box({0, 0, 5, 5}, 2);
    if (isAway) s.bring(kBoxOnWhite);
    s.act(useWorkshop);
    s.finish();
    EXPECT_EQ(s.canvas.image().at(2, 2), kGreen);
    EXPECT_NE(s.canvas.image().at(70, 50), kPaper);
  }
}

TEST(ASecondPlacedPicture, ComesInTheMiddleInItsOwnSizeAndLeavesWhatIsBeneathItsPaper) {
  Shop s({140, 100});
  s.open();
  s.box({0, 0, 139, 99}, 2);
  s.bring(kBoxOnWhite);
  Square own;
  int ink = 0;
  s.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.prepare.settings.asItsSize);
    const Bitmap& made = p.prepare.made->picture;
    Sheet sheet({made.width, made.height});
    sheet.replace(made);
    ink = sheet.inkAt(70, 50).value_or(-1);
  });
  s.act([](Program& p) { placePrepared(p, {}, {}); });
  s.desktop.look([&](Program& p) {
    ASSERT_TRUE(p.workshop.placed);
    const Sheet& sheet = *p.workshop.sheet;
    own = boundsOf(sheet, ink);
    EXPECT_NEAR(own.right - own.left + 1, 31, 4) << "its own size, outlines counted or not";
    EXPECT_NEAR((own.left + own.right) / 2, 70, 2);
    EXPECT_NEAR((own.top + own.bottom) / 2, 50, 2);
    EXPECT_EQ(sheet.inkAt(5, 5), 2);
    EXPECT_EQ(sheet.inkAt(135, 95), 2);
  });
  s.finish();
}

TEST(ThePictureThatWasPlacedLast, IsMovedAndScaledAsOneStepUntilSomethingElseIsDone) {
  Shop s({140, 100});
  s.open();
  s.bring(kBoxOnWhite);
  s.act([](Program& p) { placePrepared(p, Corner{20, 20}, Size{40, 30}); });
  s.desktop.look(
      [](Program& p) { EXPECT_EQ(p.workshop.sheet->inkAt(25, 25), p.workshop.sheet->inkAt(50, 40)); });
  s.act([](Program& p) { movePlaced(p, {60, 50}, {20, 20}); });
  s.desktop.look([](Program& p) {
    const Sheet& sheet = *p.workshop.sheet;
    EXPECT_EQ(sheet.inkAt(25, 25), kPaperInk);
    EXPECT_NE(sheet.inkAt(70, 60), kPaperInk);
    EXPECT_EQ(sheet.inkAt(85, 75), kPaperInk);
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) {
    EXPECT_FALSE(p.workshop.sheet->canUndo());
    EXPECT_FALSE(p.workshop.placed);
  });
  s.act([](Program& p) { movePlaced(p, {0, 0}, {20, 20}); });
  s.desktop.look([](Program& p) { EXPECT_TRUE(shows(*p.workshop.sheet, plainBitmap(1, 1, kPaper))); });
  s.finish();
}

TEST(Use, PlacesAPictureThatIsNotPlacedYet) {
  Shop s({140, 100});
  s.bring(kBoxOnWhite);
  Bitmap made;
  s.desktop.look([&](Program& p) { made = p.prepare.made->picture; });
  s.act(useWorkshop);
  s.finish();
  EXPECT_TRUE(samePicture(s.canvas.image(), made));
  EXPECT_FALSE(s.shop.open || s.program.prepare.open);
}

TEST(APictureThatIsPutAway, LeavesTheSheetAsItWas) {
  Shop s;
  s.open();
  s.box({10, 10, 20, 20});
  s.bring(kBoxOnWhite);
  s.act(putPictureAway);
  s.desktop.look([](Program& p) {
    EXPECT_FALSE(p.prepare.open);
    EXPECT_EQ(p.workshop.page, WorkshopPage::sheet);
  });
  s.act(useWorkshop);
  s.finish();
  EXPECT_TRUE(samePicture(s.canvas.image(), boxOnPaper({70, 50}, {10, 10, 20, 20}, kMaroon)));
}

TEST(PreparingOntoASheetOfTheDrawing, PairsColoursByItsSwatches) {
  Shop s({140, 100}, drawing({"......", "......", "......", "......"}));
  s.act([](Program& p) { p.controls.setValue(classifySwatch(4), 0); });
  s.open();
  s.bring(kBoxOnWhite);
  s.desktop.look([](Program& p) {
    for (const FoundColour& found : p.prepare.made->found) {
      EXPECT_TRUE(found.grows);
      EXPECT_NE(found.becomes, kMaroon) << "no maze grows in maroon now";
    }
  });
  s.finish();
}

TEST(AWindowThatChangesItsSize, LeavesTheSheetAndUseCutsOrFillsIt) {
  for (const bool isSmaller : {true, false}) {
    Shop s({100, 80});
    const Size other = isSmaller ? Size{60, 90} : Size{120, 90};
    s.open();
    s.box({10, 10, 89, 69});
    s.act([&s, other](Program& p) {
      s.desktop.setClient(other);
      input::resized(p, other);
    });
    s.desktop.look([&](Program& p) {
      EXPECT_EQ(p.workshop.sheet->size(), (Size{100, 80}));
      EXPECT_EQ(sheetNote(p), isSmaller
                                  ? "the sheet is 100x80, the Canvas 60x90: Use cuts it"
                                  : "the sheet is 100x80, the Canvas 120x90: Use fills it up with paper");
    });
    s.act(useWorkshop);
    s.finish();
    const Bitmap whole = boxOnPaper({100, 80}, {10, 10, 89, 69}, kMaroon);
    EXPECT_TRUE(samePicture(s.canvas.image(), resized(whole, other)));
  }
}

TEST(TheLineUnderTheSheet, CountsWhatAMazeWouldFind) {
  Shop s({100, 80});
  s.open();
  s.box({10, 10, 59, 39});
  s.box({70, 12, 74, 15}, 1);
  s.desktop.look([](Program& p) {
    countSheet(p);
    EXPECT_EQ(p.workshop.line, "15 cells in 1 regions; 1 areas too small for a cell");
  });
  s.finish();
}

TEST(AStamp, StandsInTheMiddleInCellsHighMirroredAsTheToolsAre) {
  Shop s({200, 100});
  s.open();
  s.act([](Program& p) { putStamp(p, {"heart", 2, 4}, {}); });
  s.desktop.look([](Program& p) {
    EXPECT_TRUE(shows(*p.workshop.sheet, boxOnPaper({200, 100}, {90, 40, 109, 59}, kMaroon)));
    EXPECT_EQ(p.workshop.stamp.height, 2);
    onSheet(p, [](Sheet& sheet) {
      ToolSettings tool = sheet.settings();
      tool.mirror = Mirror::leftRight;
      sheet.choose(tool);
    });
  });
  s.act([](Program& p) { putStamp(p, {"star", 1, 2}, Corner{10, 20}); });
  s.desktop.look([](Program& p) {
    const Sheet& sheet = *p.workshop.sheet;
    EXPECT_EQ(sheet.inkAt(10, 20), 2);
    EXPECT_EQ(sheet.inkAt(189, 29), 2);
    EXPECT_EQ(sheet.inkAt(179, 29), kPaperInk);
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) { EXPECT_EQ(p.workshop.sheet->inkAt(189, 29), kPaperInk) << "one step"; });
  s.finish();
}

TEST(WordsOnTheSheet, AreOneStepInTheSettingsThatStay) {
  Shop s({300, 200});
  s.open();
  WordSettings words;
  words.text = "AB";
  words.height = 4;
  words.colour.reset();
  s.act([words](Program& p) { putWords(p, words, {}); });
  s.desktop.look([&](Program& p) {
    EXPECT_EQ(p.workshop.words.text, "AB");
    EXPECT_EQ(p.workshop.sheet->note(), "");
    countSheet(p);
    EXPECT_EQ(p.workshop.map.count.regions, 1) << p.workshop.line;
  });
  s.act([](Program& p) { onSheet(p, [](Sheet& sheet) { sheet.undo(); }); });
  s.desktop.look([](Program& p) { EXPECT_FALSE(p.workshop.sheet->canUndo()); });
  s.act([](Program& p) { putWords(p, {}, {}); });
  s.desktop.look([](Program& p) { EXPECT_EQ(sheetNote(p), "there is nothing to paint"); });
  s.finish();
}

TEST(TheSheetInAnotherProgram, IsWrittenAndOpenedAndWhereThereIsNoneALineSaysSo) {
  Shop s;
  s.open();
  s.box({10, 10, 20, 20});
  s.act(editelsewhere);
  s.desktop.look([&](Program& p) {
    ASSERT_NE(s.desktop.file("sheet.png"), nullptr);
    EXPECT_TRUE(samePicture(*s.desktop.file("sheet.png"), p.workshop.sheet->picture()));
    ASSERT_EQ(s.desktop.openedElsewhere.size(), 1U);
    EXPECT_EQ(s.desktop.openedElsewhere[0].filename(), "sheet.png");
    s.desktop.opensElsewhere = false;
  });
  s.act(editelsewhere);
  s.desktop.look([&](Program& p) {
    EXPECT_EQ(p.notices.words(), "no program on this desktop opens sheet.png");
    s.desktop.savesFail = true;
  });
  s.act(editelsewhere);
  s.desktop.look(
      [](Program& p) { EXPECT_TRUE(p.notices.words().starts_with("sheet.png could not be written")); });
  s.finish();
}

TEST(ASheetForAnotherProgram, LeavesWhatSomebodyCalledSoBesideItAndGivesWayToItselfAlone) {
  const TempFolder temp;
  temp.put("sheet.png", "a person's");
  DiskSession s(temp.path(), plainBitmap(70, 50, kNavy));
  for (const auto& action : {&workshop, &editelsewhere, &editelsewhere}) {
    s.desktop.act([action](Program& p) { action(p); });
    s.desktop.pumpsPass(2);
  }
  s.run();
  EXPECT_EQ(temp.get("sheet.png~"), "a person's");
  EXPECT_NE(temp.get("sheet.png"), "a person's");
}

TEST(AWindowClosedInMidStroke, KeepsTheSheetAsLastSheet) {
  Shop s;
  s.open();
  s.act([](Program& p) {
    onSheet(p, [](Sheet& sheet) {
      ToolSettings tool;
      tool.size = 3;
      sheet.choose(tool);
      sheet.press(10, 10);
      sheet.drag(30, 10);
    });
  });
  s.finish();
  ASSERT_NE(s.desktop.file("last-sheet.bmp"), nullptr);
  EXPECT_EQ(s.desktop.file("last-sheet.bmp")->at(20, 10), kNavy);
}

TEST(ASheetOnWhichNothingIs, IsNotKept) {
  Shop s;
  s.open();
  s.finish();
  EXPECT_EQ(s.desktop.file("last-sheet.bmp"), nullptr);
}

TEST(OnTheSmallestSheet, NothingIsPaintedOutside) {
  Shop s({50, 50});
  s.open();
  s.act([](Program& p) {
    onSheet(p, [](Sheet& sheet) {
      ToolSettings tool;
      tool.size = 50;
      sheet.choose(tool);
      sheet.press(-500, 20);
      sheet.press(20, 20);
      sheet.drag(100'000'000, -100'000'000);
      sheet.release(20, 700);
    });
  });
  s.act([](Program& p) { putStamp(p, {"house", 200, 2}, Corner{-30, -900}); });
  s.act(useWorkshop);
  s.finish();
  EXPECT_EQ(s.shop.sheet->size(), (Size{50, 50}));
}

}  // namespace
}  // namespace gridwright::test
