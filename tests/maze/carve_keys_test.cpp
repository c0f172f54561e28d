#include "maze/carve_keys.h"

#include <gtest/gtest.h>

#include <array>

#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// The walker in the middle of a room, by hand.
struct ByHand : World {
  ByHand() : World(drawing(Text(5, "....."))) {
    state.cur = state.prev = squareOf(3, 3);
    state.creationMode = CreationMode::user;
    state.walkMode = WalkMode::carve;
  }
};

constexpr auto kArrows = std::to_array<std::pair<int, int>>({{37, 1}, {39, 2}, {38, 3}, {40, 4}});

TEST(AnArrow, AsksForAPatternOrForAStepAsThePatternStateSays) {
  for (const auto& [code, wanted] : kArrows) {
    ByHand w;
    w.state.patternState = PatternState::choose;
    carveKey(w.program, code);
    EXPECT_EQ(w.state.patternDirection, wanted);
    EXPECT_EQ(w.state.stepCode, step::none);
    w.state.patternDirection = 0;
    w.state.patternState = PatternState::random;
    carveKey(w.program, code);
    EXPECT_EQ(w.state.stepCode, wanted);
    EXPECT_EQ(w.state.patternDirection, 0);
  }
}

TEST(AnArrowWhileAPatternIsPlayed, IsIgnored) {
  for (const auto& [code, wanted] : kArrows) {
    ByHand w;
    w.state.patternState = PatternState::reading;
    carveKey(w.program, code);
    EXPECT_EQ(w.state.patternDirection, 0) << wanted;
    EXPECT_EQ(w.state.stepCode, step::none);
  }
}

TEST(AnArrowWhileTheComputerCarves, IsIgnored) {
  ByHand w;
  w.state.creationMode = CreationMode::computer;
  for (const PatternState state : {PatternState::choose, PatternState::random}) {
    w.state.patternState = state;
    for (const auto& [code, wanted] : kArrows) carveKey(w.program, code);
  }
  EXPECT_EQ(w.state.patternDirection, 0);
  EXPECT_EQ(w.state.stepCode, step::none);
}

TEST(G, TurnsToWalkingBackForUserAndComputer) {
  for (const CreationMode mode : {CreationMode::user, CreationMode::computer}) {
    ByHand w;
    w.state.creationMode = mode;
    carveKey(w.program, key::G);
    EXPECT_EQ(w.state.walkMode, WalkMode::back);
  }
}

TEST(J, ChangesWhoCreatesAndBothMarks) {
  ByHand w;
  carveKey(w.program, key::J);
  EXPECT_EQ(w.state.creationMode, CreationMode::computer);
  EXPECT_TRUE(w.program.menus.checked(Item::cgenerate));
  EXPECT_FALSE(w.program.menus.checked(Item::ugenerate));
  carveKey(w.program, key::J);
  EXPECT_EQ(w.state.creationMode, CreationMode::user);
  EXPECT_FALSE(w.program.menus.checked(Item::cgenerate));
  EXPECT_TRUE(w.program.menus.checked(Item::ugenerate));
}

TEST(J, ToTheUserInsideACorridorTurnsToWalkingBack) {
  struct Side {
    int dx, dy;
  };
  constexpr auto kSides = std::to_array<Side>({{-1, 0}, {1, 0}, {0, -1}, {0, 1}});
  for (unsigned open = 0; open < 16; ++open) {
    ByHand w;
    w.state.creationMode = CreationMode::computer;
    int count = 0;
    for (unsigned side = 0; side < 4; ++side) {
      if ((open >> side & 1U) == 0) continue;
      ++count;
      w.canvas.fill(squareOf(3, 3).moved(kSides[side].dx * 8, kSides[side].dy * 8), kWhite);
    }
    w.canvas.fill(squareOf(3, 3), kWhite);
    carveKey(w.program, key::J);
    EXPECT_EQ(w.state.walkMode, count >= 2 ? WalkMode::back : WalkMode::carve) << "open sides " << open;
  }
}

TEST(OtherKeys, DoNothingWhileAMazeIsMade) {
  ByHand w;
  const Bitmap before = w.canvas.image();
  for (int code = 0; code < 256; ++code) {
    if (code == key::J || code == key::G || (code >= 37 && code <= 40)) continue;
    carveKey(w.program, code);
  }
  EXPECT_EQ(w.state.creationMode, CreationMode::user);
  EXPECT_EQ(w.state.walkMode, WalkMode::carve);
  EXPECT_EQ(w.state.stepCode, step::none);
  EXPECT_EQ(w.state.cur, squareOf(3, 3));
  EXPECT_TRUE(samePicture(w.canvas.image(), before));
}

}  // namespace
}  // namespace gridwright::test
