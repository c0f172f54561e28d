#include "patterns/random_patterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "patterns/pattern_commands.h"
#include "patterns/pattern_field.h"
#include "session/input.h"
#include "state/grid.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRows(40, std::string(60, '.'));
constexpr int kDraws = 5000;

/// How many draws lead from one generator to the other.
int drawsBetween(Random from, Random to) {
  const double next = to.rnd();
  for (int draws = 0; draws < kDraws; ++draws) {
    if (from.rnd() == next) return draws;
  }
  return -1;
}

struct ByChance : World {
  ByChance(MazeKind kind, int size, bool varies, std::uint32_t seed, const Text& rows = kRows)
      : World(drawing(rows)) {
    program.steps.resetAll();
    program.random.seed(seed);
    state.mazeKind = kind;
    pitchFromKind(state);
    state.randomPatterns.randomPatternSize = size;
    state.randomPatterns.randomSizeVaries = varies;
    desktop.until([](const Program&) { return false; });  // pumps without end
  }
};

class InEveryKind : public ::testing::TestWithParam<MazeKind> {};
INSTANTIATE_TEST_SUITE_P(Kinds, InEveryKind,
                         ::testing::Values(MazeKind::regular, MazeKind::pipe, MazeKind::threeD));

TEST_P(InEveryKind, ThePreparedPatternIsTheOneThatWasWalked) {
  for (std::uint32_t seed = 1; seed <= 1000; ++seed) {
    ByChance w(GetParam(), 2 + static_cast<int>(seed % 50), seed % 2 == 0, seed);
    // What the walk leaves on the field is looked at in its last pump, before the drawing comes back.
    Bitmap field;
    Square at;
    BareDesktop& desktop = w.desktop;
    desktop = BareDesktop(Size{w.canvas.scaleWidth(), w.canvas.scaleHeight()});
    desktop.until([&](const Program& p) {
      field = p.canvas.image();
      at = p.state.cur;
      return false;
    });
    editrandompat(w.program);
    const Steps& written = w.program.steps.steps(GetParam(), step::left);
    ASSERT_FALSE(written.empty());
    ASSERT_EQ(parseSteps(w.folder.texts[std::string(stepFileName(GetParam(), step::left))]), written);

    w.state.editedPattern = step::left;
    setUpField(w.program, FieldPlace::byChance);
    EXPECT_TRUE(w.state.cur.sameCorner(at)) << "seed " << seed;
  }
}

TEST_P(InEveryKind, APreparedMazeFindsDrawingGridAndModeAsTheyWere) {
  ByChance w(GetParam(), 9, false, 7);
  w.state.walkMode = WalkMode::back;
  w.state.mazeColor = kYellow;
  w.state.cur = squareOf(3, 3);
  w.state.prev = squareOf(4, 3);
  w.state.stepCode = step::up;
  w.canvas.setAutoRedraw(false);
  const Bitmap before = w.canvas.image();
  editrandompat(w.program);
  EXPECT_TRUE(samePicture(w.canvas.image(), before));
  EXPECT_FALSE(w.canvas.autoRedraw()) << "as it was found";
  EXPECT_EQ(w.state.cur, squareOf(3, 3));
  EXPECT_EQ(w.state.prev, squareOf(4, 3));
  EXPECT_EQ(w.state.walkMode, WalkMode::back);
  EXPECT_EQ(w.state.mazeColor, kYellow);
  EXPECT_EQ(w.state.stepCode, step::up);
  EXPECT_EQ(w.state.wallWidth, 10);
  EXPECT_EQ(w.state.randomPatterns.randomPatternSize, 9);
  EXPECT_EQ(w.state.randomPatterns.randomStepsDone, 0);
  EXPECT_EQ(w.state.editedPattern, 0);
  EXPECT_EQ(w.state.phase, Phase::making);
  EXPECT_FALSE(w.state.editor.randomRunning || w.state.editor.preparing);
}

TEST_P(InEveryKind, ARunDrawsOnceForEachPassThatSteps) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    for (const bool varies : {false, true}) {
      ByChance w(GetParam(), 12, varies, seed);
      const Random before = w.program.random;
      int passes = -1;  // the last pump only ends the run
      w.desktop = BareDesktop(Size{w.canvas.scaleWidth(), w.canvas.scaleHeight()});
      w.desktop.until([&](const Program&) {
        ++passes;
        return false;
      });
      editrandompat(w.program);
      EXPECT_EQ(drawsBetween(before, w.program.random), passes + (varies ? 1 : 0)) << "seed " << seed;
    }
  }
}

TEST(ARegularPatternByChance, WalksItsSizeOfFreshSquares) {
  for (std::uint32_t seed = 1; seed <= 30; ++seed) {
    ByChance w(MazeKind::regular, 8, false, seed);
    int walked = 0;
    w.desktop = BareDesktop(Size{w.canvas.scaleWidth(), w.canvas.scaleHeight()});
    w.desktop.until([&](const Program& p) {
      walked = p.state.randomPatterns.randomStepsDone;
      return false;
    });
    editrandompat(w.program);
    EXPECT_EQ(walked, 7) << "the default's own step is the eighth square";
  }
}

TEST(UserSizesOfTwo, AreOneOrTwoAndOneLeavesTheDefault) {
  int ofOne = 0;
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    ByChance w(MazeKind::regular, 2, true, seed);
    Random copy = w.program.random;
    const int size = copy.oneTo(2);
    editrandompat(w.program);
    const Steps& steps = w.program.steps.steps(MazeKind::regular, step::left);
    if (size == 1) {
      ++ofOne;
      EXPECT_EQ(steps, Steps{1});
    } else {
      EXPECT_GT(steps.size(), 1U);
    }
    EXPECT_EQ(w.state.randomPatterns.randomPatternSize, 2);
  }
  EXPECT_GT(ofOne, 5);
  EXPECT_LT(ofOne, 35);
}

TEST(RandomPatternsForA3dMaze, HaveOneMoreThanTheMenuSays) {
  for (const MazeKind kind : {MazeKind::threeD, MazeKind::pipe}) {
    ByChance w(kind, 5, false, 3);
    int size = 0;
    w.desktop = BareDesktop(Size{w.canvas.scaleWidth(), w.canvas.scaleHeight()});
    w.desktop.until([&](const Program& p) {
      size = p.state.randomPatterns.randomPatternSize;
      return false;
    });
    editrandompat(w.program);
    EXPECT_EQ(size, 6);
    EXPECT_EQ(w.state.randomPatterns.randomPatternSize, 5);
  }
}

TEST_P(InEveryKind, AWalkerTrappedByChanceGainsTheCodeThatTurnsBack) {
  int trapped = 0;
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    ByChance w(GetParam(), 500, false, seed);
    editrandompat(w.program);
    const Steps& steps = w.program.steps.steps(GetParam(), step::left);
    trapped += std::count(steps.begin(), steps.end(), step::walkBack) > 0 ? 1 : 0;
  }
  EXPECT_GT(trapped, 0) << "so many squares by chance run into themselves";
}

TEST_P(InEveryKind, ARunEndsInAFieldThatIsTooSmallForItsSize) {
  for (std::uint32_t seed = 1; seed <= 5; ++seed) {
    ByChance w(GetParam(), 99, false, seed, Text(4, "....."));
    w.desktop.limit = 1'000'000;
    editrandompat(w.program);
    EXPECT_EQ(w.state.phase, Phase::making);
    EXPECT_GT(w.program.steps.steps(GetParam(), step::left).size(), 1U) << "it has what there was room for";
  }
}

TEST(ARandomRunInTheEditor, EndsInAFieldThatIsTooSmallForIt) {
  World w(Size{70, 60});
  w.begin(drawing(Text(5, "......")));
  w.desktop.limit = 200'000;
  w.desktop.menu(Item::create3dpipe);
  w.desktop.menu(Item::editpatterns);
  w.desktop.untilPhase(Phase::patternEditing);
  w.desktop.look([](Program& p) { p.state.randomPatterns.randomPatternSize = 90; });
  w.desktop.menu(Item::crpattern);
  w.desktop.until([](const Program& p) { return p.state.editor.randomRunning; });
  w.desktop.until([](const Program& p) { return !p.state.editor.randomRunning; });
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.randomPatterns.randomPatternSize, 90); });
  EXPECT_EQ(w.run(), "");
}

TEST(ForEveryMaze, OneRunForTheModeAndOneForEachFlagThenAllDirectionsAlike) {
  ByChance w(MazeKind::regular, 6, false, 11);
  EXPECT_TRUE(makeRandomPatterns(w.program));
  EXPECT_EQ(w.program.steps.steps(MazeKind::regular, step::left), Steps{1}) << "nobody asked";

  w.state.randomPatterns.randomPatternMode = 5;
  w.state.randomPatterns.randomFlagUp = true;
  Random replayed = w.program.random;
  EXPECT_TRUE(makeRandomPatterns(w.program));
  const Steps both = w.program.steps.steps(MazeKind::regular, step::left);
  for (int to = 2; to <= 4; ++to) {
    Steps image;
    for (const int code : both) image.push_back(imageOfStep(step::left, to, code));
    EXPECT_EQ(w.program.steps.steps(MazeKind::regular, to), image);
  }
  w.program.random = replayed;
  editrandompat(w.program);
  editrandompat(w.program);
  EXPECT_EQ(w.program.steps.steps(MazeKind::regular, step::left), both) << "the second run rewrote the first";

  w.state.randomPatterns.randomPatternMode = 0;
  w.state.randomPatterns.randomFlagUp = false;
  w.state.randomPatterns.randomFlagLeft = true;
  replayed = w.program.random;
  EXPECT_TRUE(makeRandomPatterns(w.program));
  EXPECT_EQ(drawsBetween(replayed, w.program.random), 0) << "the left run belongs to the mode alone";
}

TEST(WhileAMazeIsPrepared, KeysAndCommandsDoNothingButAQuitEndsItCleanly) {
  ByChance w(MazeKind::regular, 50, false, 4);
  w.desktop = BareDesktop(Size{w.canvas.scaleWidth(), w.canvas.scaleHeight()});
  const int difficulty = w.state.difficultyLevel;
  int pump = 0;
  w.desktop.until([&](const Program& now) {
    auto& p = const_cast<Program&>(now);
    p.state.keyBusy = false;
    if (++pump == 3) input::keyDown(p, key::G);
    EXPECT_TRUE(pump != 3 || p.state.walkMode == WalkMode::carve);
    p.state.keyBusy = false;
    if (pump == 4) input::menuClick(p, Item::mode1);
    EXPECT_EQ(p.state.difficultyLevel, difficulty);
    if (pump == 6) p.state.phase = Phase::quitToTitle;
    return false;
  });
  w.state.randomPatterns.randomPatternMode = 5;
  EXPECT_FALSE(makeRandomPatterns(w.program));
  EXPECT_EQ(w.state.phase, Phase::quitToTitle);
  EXPECT_EQ(w.state.randomPatterns.randomPatternSize, 50);
  EXPECT_FALSE(w.state.editor.randomRunning || w.state.editor.preparing);
  EXPECT_EQ(w.state.editor.openDirection, 0);
  EXPECT_EQ(w.state.editedPattern, 0);
}

TEST(ARandomRunInTheEditor, EndsProperlyWhateverElseIsChosen) {
  for (const Item other : {Item::rightpattern, Item::resetpattern, Item::makeidentical, Item::crpattern,
                           Item::resetpatterns, Item::exitpattern, Item::quit2}) {
    World w(Size{610, 410});
    w.begin(drawing(kRows));
    w.desktop.menu(Item::editpatterns);
    w.desktop.untilPhase(Phase::patternEditing);
    w.desktop.look([](Program& p) { p.state.randomPatterns.randomPatternSize = 90; });
    w.desktop.menu(Item::crpattern);
    w.desktop.pumpsPass(5);
    w.desktop.look([](Program& p) { EXPECT_TRUE(p.state.editor.randomRunning); });
    w.desktop.menu(other);
    w.desktop.look([other](Program& p) {
      EXPECT_EQ(p.state.editor.randomRunning, other == Item::crpattern);
      EXPECT_TRUE(other == Item::quit2 || p.state.randomPatterns.randomPatternSize == 90);
    });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(TheModeOfRandomPatterns, TakesTheWalkerBackToPatternsUnlessRandomStepsAreTemporary) {
  for (const bool temporary : {false, true}) {
    World w(drawing({"....", "...."}));
    w.state.patternState = PatternState::random;
    w.state.patternDirection = 3;
    w.state.randomStepsTemporary = temporary;
    crnd1(w.program);
    EXPECT_EQ(w.state.randomPatterns.randomPatternMode, 5);
    EXPECT_TRUE(w.program.menus.checked(Item::crnd1));
    EXPECT_FALSE(w.program.menus.checked(Item::usepattern));
    EXPECT_EQ(w.state.patternState, temporary ? PatternState::random : PatternState::choose);
    EXPECT_EQ(w.state.patternDirection, temporary ? 3 : 0);
  }
}

TEST(ASizeTyped, IsHeldBetweenTwoAndNinetyNine) {
  const std::map<std::string, int> typed = {{"150", 99}, {"99", 99},   {"1", 2}, {"", 2},
                                            {"-7", 2},   {"12.9", 12}, {"x", 2}};
  for (const auto& [text, size] : typed) {
    World w(Size{300, 200});
    w.begin(drawing(Text(19, std::string(29, '.'))));
    w.desktop.menu(Item::srndpatterns);
    w.desktop.look([](Program& p) { EXPECT_EQ(p.controls[ControlId::Text7].text, "5"); });
    w.desktop.enter(ControlId::Text7, text);
    w.desktop.pumpsPass(1);
    EXPECT_EQ(w.run(), "");
    const std::string quoted = "\"" + std::to_string(size) + "\"";
    EXPECT_EQ(w.state.randomPatterns.randomPatternSize, size) << text;
    EXPECT_EQ(w.program.menus.caption(Item::maxrnd), "Random patterns are allways size " + quoted);
    EXPECT_EQ(w.program.menus.caption(Item::usernd), "Random patterns are any size from \"1\" to " + quoted);
  }
}

TEST(PatternsForAMaze, AreMadeByTheCreateItemsAndChangeNoMenu) {
  for (const bool mode : {true, false}) {
    World w(Size{610, 410});
    w.begin(drawing(kRows));
    w.desktop.menu(Item::cgenerate);
    w.desktop.menu(Item::newmaze);
    w.desktop.untilPhase(Phase::placing);
    w.desktop.look([mode](Program& p) {
      p.steps.resetAll();
      p.state.randomPatterns.randomPatternMode = mode ? 5 : 0;
      p.state.randomPatterns.randomFlagLeft = !mode;
      p.steps.write(MazeKind::threeD, step::left, {step::left, step::up});
    });
    std::uint64_t revision = 0;
    int passes = 0;
    w.desktop.menu(Item::create3d);
    w.desktop.until([&](const Program& p) {
      if (p.state.editor.preparing) {
        if (passes++ == 0) revision = p.menus.revision();
        EXPECT_EQ(p.menus.revision(), revision);
      }
      return p.state.phase == Phase::placing;
    });
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(passes > 0, mode);
    const Steps& left = w.program.steps.steps(MazeKind::threeD, step::left);
    const Steps& right = w.program.steps.steps(MazeKind::threeD, step::right);
    ASSERT_EQ(left.size(), right.size());
    for (std::size_t i = 0; i < left.size(); ++i)
      EXPECT_EQ(right[i], imageOfStep(step::left, step::right, left[i]));
    EXPECT_TRUE(mode || left.size() == 2);
  }
}

}  // namespace
}  // namespace gridwright::test
