#include "colours/colour_repairs.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kPlain = {".....", ".....", "....."};

TEST(AFreshStart, HasEightBackgroundsEightBordersAndWhiteMazes) {
  World w(drawing(kPlain));
  for (std::size_t i = 0; i < kSlots; ++i) {
    EXPECT_EQ(w.program.colours.isBackground(kPalette[i]), i < 8);
    EXPECT_EQ(w.program.colours.maze()[i], kWhite);
    EXPECT_EQ(w.program.controls[classifySwatch(static_cast<int>(i))].value, i < 8 ? 1 : 0);
  }
  EXPECT_EQ(w.program.controls[ControlId::Check8].text, "Background");
  EXPECT_EQ(w.program.controls[ControlId::Check9].text, "Border Color");
  EXPECT_EQ(w.program.controls[ControlId::Check16].text, "Maze Color");
  EXPECT_EQ(w.program.controls[ControlId::Check33].value, 0);
  EXPECT_EQ(w.program.controls[ControlId::Check34].value, 1);
}

TEST(TheFrameColour, IsABorderFromHereOn) {
  World w(drawing(kPlain, 10, ','));
  repairSetsBeforeMaze(w.program);
  EXPECT_TRUE(w.program.colours.isBorder(kGreen));
  EXPECT_FALSE(w.program.colours.isBackground(kGreen));
  EXPECT_EQ(w.program.controls[ControlId::Check3].value, 0);
  EXPECT_TRUE(w.program.colours.isBackground(kNavy));
  EXPECT_EQ(w.program.colours.extraBackground(), kNoGreen) << "green is no background any more";
}

TEST(AFrameThatIsNoBackground, ChangesNothing) {
  World w(drawing(kPlain));
  const auto background = w.program.colours.background();
  const auto border = w.program.colours.border();
  repairSetsBeforeMaze(w.program);
  EXPECT_EQ(w.program.colours.background(), background);
  EXPECT_EQ(w.program.colours.border(), border);
}

TEST(AFrameOfBlack, PutsThreeHundredAndTwoIntoSlotZero) {
  World w(drawing(kPlain, 10, 'k'));
  repairSetsBeforeMaze(w.program);
  EXPECT_EQ(w.program.colours.background()[0], 302);
  EXPECT_EQ(w.program.colours.border()[0], kBlack);
  EXPECT_TRUE(w.program.colours.isFree(kNavy)) << "no test changes by it";
  EXPECT_FALSE(w.program.colours.isFree(kBlack));
}

TEST(AnAllNavyCanvasWithNoOtherBackground, GivesTheFirstPlainBorderButNavyToTheMazes) {
  World w(drawing(kPlain, 10, '.'));
  for (int i = 0; i < kSlots; ++i) w.program.controls.setValue(classifySwatch(i), i == 1 ? 1 : 0);
  refillSetsFromSwatches(w.program);
  captionSwatches(w.program);

  repairSetsBeforeMaze(w.program);

  EXPECT_TRUE(w.program.colours.isBorder(kNavy));
  EXPECT_TRUE(w.program.colours.isBackground(kBlack)) << "index 0 is the first";
  EXPECT_EQ(w.program.controls[ControlId::Check1].value, 1);
  EXPECT_EQ(w.program.controls[ControlId::Check2].value, 0);
}

TEST(TheNewBackground, IsNeverTheFrameItselfNorAMazeColour) {
  World w(drawing(kPlain, 10, 'k'));
  for (int i = 0; i < kSlots; ++i) w.program.controls.setValue(classifySwatch(i), 0);
  refillSetsFromSwatches(w.program);
  w.program.colours.setAllMaze(kNavy);
  captionSwatches(w.program);
  ASSERT_EQ(w.program.controls[ControlId::Check2].text, "Maze Color");

  repairSetsBeforeMaze(w.program);

  EXPECT_TRUE(w.program.colours.isBackground(kGreen)) << "black is the frame, navy the maze";
  EXPECT_FALSE(w.program.colours.isBackground(kBlack));
}

TEST(ANewBackground, LeavesTheConflictScanOut) {
  World w(drawing({"***", "***", "***"}, 10, 'k'));
  for (int i = 0; i < kSlots; ++i) w.program.controls.setValue(classifySwatch(i), 0);
  refillSetsFromSwatches(w.program);
  captionSwatches(w.program);
  w.program.colours.setMaze(4, kRed);

  repairSetsBeforeMaze(w.program);

  EXPECT_EQ(w.program.colours.maze()[0], kWhite) << "white lies on cell corners and stays a maze colour";
}

TEST(AWhiteOutline, StaysAMazeColourWhenAllSixteenSlotsHoldWhite) {
  World w(drawing({".....", "*****", "....."}));
  repairSetsBeforeMaze(w.program);
  for (const Colour c : w.program.colours.maze()) EXPECT_EQ(c, kWhite);
}

TEST(AColourOnTheCellCorners, StopsBeingAMazeColourWhenAnotherCanTakeItsPlace) {
  World w(drawing({".....", "*****", "....."}));
  w.program.colours.setMaze(5, kRed);
  w.program.colours.setMaze(9, kLime);
  w.state.mazeColor = kWhite;

  repairSetsBeforeMaze(w.program);

  for (std::size_t i = 0; i < kSlots; ++i) {
    EXPECT_EQ(w.program.colours.maze()[i], i == 9 ? kLime : kRed)
        << "slot " << i << ": the first that differs";
  }
  EXPECT_EQ(w.state.mazeColor, kRed) << "the walker's colour follows";
}

TEST(AColourBetweenTheCellCorners, MayStayAMazeColour) {
  Bitmap picture = drawing(kPlain);
  for (int x = 0; x < picture.width; ++x) pixelAt(picture, x, 25) = kWhite;
  World w(picture);
  w.program.colours.setMaze(5, kRed);
  repairSetsBeforeMaze(w.program);
  EXPECT_EQ(w.program.colours.maze()[0], kWhite) << "row 25 holds no probe";
}

TEST(AnEndColourThatIsMazeOrBackground, BecomesTheFirstGoodBorder) {
  World w(drawing(kPlain));
  w.state.startColor = kNavy;
  w.state.finishColor = 0;
  repairEndColours(w.program);
  EXPECT_EQ(w.state.startColor, kGrey) << "slot 8 is the first without a sentinel";
  EXPECT_EQ(w.state.finishColor, kGrey) << "they are kept apart by place, not by colour";
  EXPECT_EQ(w.state.savedStartColor, 300) << "the saved one takes the first slot as it is";
}

TEST(AGoodEndColour, StaysAsItIs) {
  World w(drawing(kPlain));
  w.state.startColor = kFuchsia;
  w.state.finishColor = kRed;
  repairEndColours(w.program);
  EXPECT_EQ(w.state.startColor, kFuchsia);
  EXPECT_EQ(w.state.finishColor, kRed);
}

TEST(TheRepairOfTheEndColours, KeepsTheMazeColourToComeBackTo) {
  World w(drawing(kPlain));
  w.state.mazeColor = kRed;
  repairEndColours(w.program);
  EXPECT_EQ(w.state.keptMazeColor, kRed);
}

TEST(TheWalkOverTheBorders, EndsAtTheLastSlotEvenWhenThatIsBad) {
  World w(drawing(kPlain));
  for (int i = 0; i < kSlots; ++i) w.program.colours.classify(i, i != 15);
  w.state.startColor = kNavy;
  repairEndColours(w.program);
  EXPECT_EQ(w.state.startColor, kWhite) << "white is a maze colour, and nothing else is left";
}

TEST(AYellowStart, IsOneLessDuringPlacementAndYellowAgainAfterwards) {
  EXPECT_EQ(nudged(kYellow), 65534);
  EXPECT_EQ(unNudged(65534), kYellow);
}

TEST(TheNudge, MovesTheFirstTwelvePaletteColoursUpAndTheLastFourDown) {
  for (std::size_t i = 0; i < kSlots; ++i) {
    const Colour moved = nudged(kPalette[i]);
    EXPECT_EQ(moved, kPalette[i] + (i < 12 ? 1 : -1));
    EXPECT_EQ(unNudged(moved), kPalette[i]);
    EXPECT_EQ(unNudged(kPalette[i]), kPalette[i]) << "undoing twice is harmless";
    EXPECT_EQ(nudged(moved), moved) << "and so is doing it twice";
    for (const Colour other : kPalette) EXPECT_NE(moved, other) << "no maze pixel can equal an end's";
  }
  EXPECT_EQ(nudged(1234567), 1234567) << "a colour off the palette is left alone";
}

TEST(SavedEndColours, AreTakenBackEachByItselfWhenTheyAreStillPlainBorders) {
  World w(drawing(kPlain));
  w.state.startColor = w.state.finishColor = kGrey;
  w.state.savedStartColor = kRed;
  w.state.savedFinishColor = kNavy;  // a background
  w.state.savedStartColorValid = w.state.savedFinishColorValid = true;
  restoreSavedEndColours(w.program);
  EXPECT_EQ(w.state.startColor, kRed);
  EXPECT_EQ(w.state.finishColor, kGrey);
}

TEST(SavedEndColours, AreNotTakenBackAsMazeColourSentinelOrWhenNotValid) {
  World w(drawing(kPlain));
  for (const Colour bad : {kWhite, 300, 317, 123456}) {
    w.state.startColor = kGrey;
    w.state.savedStartColor = bad;
    w.state.savedStartColorValid = true;
    restoreSavedEndColours(w.program);
    EXPECT_EQ(w.state.startColor, kGrey) << bad;
  }
  w.state.savedStartColor = kRed;
  w.state.savedStartColorValid = false;
  restoreSavedEndColours(w.program);
  EXPECT_EQ(w.state.startColor, kGrey);
}

TEST(TheKeptMazeColour, FollowsAConflictToo) {
  World w(drawing({"...", "..."}));
  w.program.colours.setAllMaze(kRed);
  w.program.colours.setMaze(3, kFuchsia);
  w.canvas.fill(21, 11, 28, 18, kRed);
  w.state.mazeColor = w.state.keptMazeColor = kRed;
  repairSetsBeforeMaze(w.program);
  EXPECT_EQ(w.state.mazeColor, kFuchsia);
  EXPECT_EQ(w.state.keptMazeColor, kFuchsia);
}

}  // namespace
}  // namespace gridwright::test
