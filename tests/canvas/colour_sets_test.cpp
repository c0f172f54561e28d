#include "canvas/colour_sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "canvas/slot_walk.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// As at a fresh start: indexes 0 to 7 background, 8 to 15 border, every maze colour white.
ColourSets freshSets() {
  ColourSets sets;
  for (int i = 0; i < kSlots; ++i) sets.classify(i, i < 8);
  sets.setAllMaze(kWhite);
  sets.setExtraBackgroundByRule();
  return sets;
}

template <class Slots>
bool has(const Slots& slots, Colour colour) {
  return std::find(slots.begin(), slots.end(), colour) != slots.end();
}

TEST(AFreePixel, IsABackgroundPixelThatNoCorridorUses) {
  ColourSets sets = freshSets();
  EXPECT_TRUE(sets.isFree(kNavy));
  EXPECT_FALSE(sets.isFree(kWhite));
  EXPECT_FALSE(sets.isFree(kBlue));
  EXPECT_FALSE(sets.isFree(kOutside)) << "probing past the edge must find no way";

  sets.setMaze(3, kNavy);
  EXPECT_FALSE(sets.isFree(kNavy)) << "the maze question comes first";
  EXPECT_TRUE(sets.isBackground(kNavy)) << "it is still a background";
}

TEST(WhiteOnAFreshStart, IsABorderAndTheMazeColourOfEveryBackground) {
  const ColourSets sets = freshSets();
  EXPECT_TRUE(sets.isMaze(kWhite));
  EXPECT_TRUE(sets.isBorder(kWhite));
  EXPECT_FALSE(sets.isNoGround(kWhite)) << "a white outline reads as carved";
}

TEST(APaletteColour, IsInExactlyOneOfBackgroundAndBorder) {
  ColourSets sets = freshSets();
  for (int i = 0; i < kSlots; ++i) {
    const Colour colour = kPalette[static_cast<std::size_t>(i)];
    for (const bool background : {false, true}) {
      sets.classify(i, background);
      EXPECT_EQ(sets.isBackground(colour), background);
      EXPECT_EQ(sets.isBorder(colour), !background);
      EXPECT_EQ(sets.background()[static_cast<std::size_t>(i)], background ? colour : 301 + 2 * i);
      EXPECT_EQ(sets.border()[static_cast<std::size_t>(i)], background ? 300 + 2 * i : colour);
    }
  }
}

TEST(ASentinel, IsAMemberLikeAnyOtherSinceAPixelCanHoldIt) {
  const ColourSets sets = freshSets();
  EXPECT_TRUE(sets.isBorder(300)) << "slot 0 of the borders";
  EXPECT_TRUE(sets.isBackground(301 + 2 * 8));
  EXPECT_FALSE(sets.isBackground(301)) << "black is a background, so 301 stands in no slot";
  EXPECT_TRUE(isSentinel(300));
  EXPECT_TRUE(isSentinel(400));
  EXPECT_FALSE(isSentinel(299));
  EXPECT_FALSE(isSentinel(401));
}

TEST(TheFrameRule, LeavesThreeHundredAndTwoInSlotZeroWhichNoTestMinds) {
  ColourSets sets = freshSets();
  sets.makeFrameBorder(0);
  EXPECT_EQ(sets.background()[0], 302);
  EXPECT_EQ(sets.border()[1], 302) << "the same number stands in the borders while navy is a background";
  EXPECT_EQ(sets.border()[0], kBlack);
  EXPECT_FALSE(sets.isFree(kBlack));
  EXPECT_TRUE(sets.isFree(kNavy));

  sets.makeFrameBorder(1);
  EXPECT_EQ(sets.background()[1], 303);
}

TEST(DarkGreen, IsFreeGroundExactlyWhileGreenIsABackground) {
  ColourSets sets = freshSets();
  EXPECT_EQ(sets.extraBackground(), 31744);
  EXPECT_TRUE(sets.isFree(31744));

  sets.classify(2, false);
  sets.setExtraBackgroundByRule();
  EXPECT_EQ(sets.extraBackground(), -5814440);
  EXPECT_FALSE(sets.isBackground(31744)) << "neither background";
  EXPECT_FALSE(sets.isBorder(31744)) << "nor border";
}

TEST(AClosedPixel, IsCarvedOrBorderAndNothingElse) {
  const ColourSets sets = freshSets();
  EXPECT_TRUE(sets.isClosed(kWhite));
  EXPECT_TRUE(sets.isClosed(kBlue));
  EXPECT_FALSE(sets.isClosed(kNavy));
  EXPECT_FALSE(sets.isClosed(kCursorColour)) << "the cursor is of no class";
  EXPECT_TRUE(sets.isNoGround(kCursorColour));
}

TEST(TheLookup, AnswersAsPlainComparisonsDo) {
  std::mt19937 chance(3);
  for (int round = 0; round < 300; ++round) {
    ColourSets sets = freshSets();
    for (int change = 0; change < 20; ++change) {
      const int slot = static_cast<int>(chance() % kSlots);
      switch (chance() % 4) {
        case 0:
          sets.classify(slot, chance() % 2 == 0);
          break;
        case 1:
          sets.setMaze(slot, static_cast<Colour>(chance() % 0x1000000));
          break;
        case 2:
          sets.setMaze(slot, kPalette[chance() % 16]);
          break;
        default:
          sets.makeFrameBorder(slot);
          sets.setExtraBackgroundByRule();
      }
    }
    const auto check = [&](Colour c) {
      const bool maze = has(sets.maze(), c);
      const bool background = has(sets.background(), c) || c == sets.extraBackground();
      const bool border = has(sets.border(), c);
      ASSERT_EQ(sets.isMaze(c), maze) << c;
      ASSERT_EQ(sets.isBackground(c), background) << c;
      ASSERT_EQ(sets.isBorder(c), border) << c;
      ASSERT_EQ(sets.isFree(c), background && !maze) << c;
      ASSERT_EQ(sets.isClosed(c), maze || border) << c;
      ASSERT_EQ(sets.isNoGround(c), !background && !maze) << c;
    };
    for (const Colour c : kPalette) check(c);
    for (Colour c = 298; c < 335; ++c) check(c);
    for (const Colour c : sets.maze()) check(c);
    for (int i = 0; i < 50; ++i) check(static_cast<Colour>(chance() % 0x1000000));
    for (const Colour c : {kOutside, kCursorColour, kDarkGreen, -20}) check(c);
  }
}

TEST(AWholeBox, IsFreeOnlyWhenEveryPixelIs) {
  const ColourSets sets = freshSets();
  for (int wrong = 0; wrong < 12; ++wrong) {
    Canvas canvas;
    canvas.resize({6, 5});
    canvas.fill(0, 0, 5, 4, kNavy);
    const Pixels pixels(canvas, sets);
    EXPECT_TRUE(pixels.allFree(1, 1, 4, 3));
    canvas.fill(1 + wrong % 4, 1 + wrong / 4, 1 + wrong % 4, 1 + wrong / 4, wrong % 2 == 0 ? kBlue : kWhite);
    EXPECT_FALSE(pixels.allFree(1, 1, 4, 3)) << wrong;
  }
}

TEST(AWholeBox, IsNotFreeWhereItLeavesTheCanvas) {
  Canvas canvas;
  canvas.resize({6, 5});
  canvas.fill(0, 0, 5, 4, kNavy);
  const ColourSets sets = freshSets();
  const Pixels pixels(canvas, sets);
  EXPECT_TRUE(pixels.allFree(0, 0, 5, 4));
  EXPECT_FALSE(pixels.allFree(-1, 0, 3, 3));
  EXPECT_FALSE(pixels.allFree(0, -1, 3, 3));
  EXPECT_FALSE(pixels.allFree(3, 3, 6, 4));
  EXPECT_FALSE(pixels.allFree(3, 3, 4, 5));
}

TEST(TheNextSlot, IsTheNearestFitOneAndTheWalkEndsAtTheFirstAndTheLast) {
  ColourSets::Slots slots{};
  for (int i = 0; i < kSlots; ++i) slots.at(static_cast<std::size_t>(i)) = 100 + i;
  const auto none = [](Colour) { return false; };
  EXPECT_EQ(nextInSlots(slots, 101, -1, none), 100);
  EXPECT_EQ(nextInSlots(slots, 100, -1, none), std::nullopt);
  EXPECT_EQ(nextInSlots(slots, 114, 1, none), 115);
  EXPECT_EQ(nextInSlots(slots, 115, 1, none), std::nullopt);
  const auto odd = [](Colour colour) { return colour % 2 != 0; };
  EXPECT_EQ(nextInSlots(slots, 104, 1, odd), 106);
  EXPECT_EQ(nextInSlots(slots, 102, -1, odd), 100);
  EXPECT_EQ(nextInSlots(slots, 114, 1, odd), std::nullopt);
  EXPECT_EQ(nextInSlots(slots, 99, 1, none), std::nullopt);
}

TEST(ACarvedBox, IsOfMazePixelsAndTheWalkersCursor) {
  Canvas canvas;
  canvas.resize({6, 5});
  canvas.fill(0, 0, 5, 4, kWhite);
  canvas.fill(2, 2, 3, 3, kCursorColour);
  const ColourSets sets = freshSets();
  const Pixels pixels(canvas, sets);
  EXPECT_TRUE(pixels.allCarved(0, 0, 5, 4));
  EXPECT_TRUE(pixels.carved(2, 2));
  canvas.fill(4, 4, 4, 4, kNavy);
  EXPECT_FALSE(pixels.allCarved(0, 0, 5, 4));
}

}  // namespace
}  // namespace gridwright::test
