#include "patterns/pattern_commands.h"

#include <gtest/gtest.h>

#include <array>
#include <map>

#include "support/world.h"

namespace gridwright::test {
namespace {

struct Arrow {
  int dx, dy;
  friend bool operator==(const Arrow&, const Arrow&) = default;
  [[nodiscard]] Arrow turned(int quarters) const {
    Arrow a = *this;
    for (int i = 0; i < quarters; ++i) a = {-a.dy, a.dx};  // clockwise on a screen
    return a;
  }
};
const std::map<int, Arrow> kArrows = {
    {step::left, {-1, 0}}, {step::right, {1, 0}}, {step::up, {0, -1}}, {step::down, {0, 1}}};

int codeOf(Arrow arrow) {
  for (const auto& [code, own] : kArrows) {
    if (own == arrow) return code;
  }
  return 0;
}

TEST(TheTwelveImages, AreTheTurnsThatTakeTheSourcesOwnStepToTheTargets) {
  for (int from = 1; from <= 4; ++from) {
    for (int to = 1; to <= 4; ++to) {
      int quarters = 0;
      while (kArrows.at(from).turned(quarters) != kArrows.at(to)) ++quarters;
      for (int code = 1; code <= 4; ++code) {
        EXPECT_EQ(imageOfStep(from, to, code), codeOf(kArrows.at(code).turned(quarters)))
            << from << " to " << to << " of " << code;
      }
      EXPECT_EQ(imageOfStep(from, to, step::walkBack), step::walkBack);
    }
  }
}

TEST(MakeIdentical, WritesTheImagesOfTheEditedPatternToTheThreeOthers) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (int from = 1; from <= 4; ++from) {
      World w(drawing({"....", "...."}));
      w.program.steps.resetAll();
      w.state.mazeKind = kind;
      w.state.editedPattern = from;
      w.state.editor.openDirection = from;
      w.state.editor.openSteps = {1, 3, 77, 4, 2, 5};
      makeidentical(w.program);
      EXPECT_EQ(w.state.phase, Phase::patternRequest);
      EXPECT_EQ(w.state.editor.openDirection, 0);
      for (int to = 1; to <= 4; ++to) {
        Steps expected;
        for (const int code : {1, 3, 4, 2, 5}) expected.push_back(imageOfStep(from, to, code));
        if (to == from) expected = {1, 3, 77, 4, 2, 5};
        EXPECT_EQ(w.program.steps.steps(kind, to), expected) << from << " to " << to;
      }
      for (const MazeKind other : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
        if (other == kind) continue;
        EXPECT_EQ(w.program.steps.steps(other, 2), Steps{2}) << "another kind is left alone";
      }
    }
  }
}

TEST(MakeIdenticalOutsideTheEditor, DoesNothing) {
  World w(drawing({"....", "...."}));
  w.program.steps.resetAll();
  w.program.steps.write(MazeKind::regular, 1, {1, 1});
  w.state.editedPattern = 0;
  makeidentical(w.program);
  EXPECT_EQ(w.state.phase, Phase::making);
  EXPECT_EQ(w.program.steps.steps(MazeKind::regular, 2), Steps{2});
}

TEST(ForAMaze, OnlyTheLeftPatternIsMadeIdentical) {
  World w(drawing({"....", "...."}));
  w.program.steps.resetAll();
  w.program.steps.write(MazeKind::regular, 2, {2, 2, 3});
  w.state.editedPattern = step::right;
  mkidentical(w.program);
  EXPECT_EQ(w.program.steps.steps(MazeKind::regular, 1), Steps{1});
  w.state.editedPattern = step::left;
  w.program.steps.write(MazeKind::regular, 1, {1, 3});
  mkidentical(w.program);
  EXPECT_EQ(w.program.steps.steps(MazeKind::regular, 2), (Steps{2, 4}));
}

TEST(ResetCurrentPattern, WritesTheOneLineDefaultAndForgetsWhatWasOpen) {
  World w(drawing({"....", "...."}));
  w.state.mazeKind = MazeKind::threeD;
  w.state.editedPattern = w.state.editor.openDirection = step::up;
  w.state.editor.openSteps = {3, 3, 3};
  w.state.patternDirection = 2;
  resetpattern(w.program);
  EXPECT_EQ(w.folder.texts["3dup.pt"], "3,9999,88\r\n");
  EXPECT_EQ(w.state.editor.openDirection, 0);
  EXPECT_EQ(w.state.patternDirection, 0);
  EXPECT_EQ(w.state.phase, Phase::patternRequest);
}

TEST(ResetAllPatterns, ResetsTheFourOfTheKindAndRebuildsOnlyAnOpenEditor) {
  World w(drawing({"....", "...."}));
  for (int d = 1; d <= 4; ++d) {
    w.program.steps.write(MazeKind::regular, d, {d, d});
    w.program.steps.write(MazeKind::pipe, d, {d, d});
  }
  resetpatterns(w.program);
  EXPECT_EQ(w.state.phase, Phase::making) << "no editor is open";
  for (int d = 1; d <= 4; ++d) {
    EXPECT_EQ(w.program.steps.steps(MazeKind::regular, d), Steps{d});
    EXPECT_EQ(w.program.steps.steps(MazeKind::pipe, d), (Steps{d, d}));
  }
  w.state.editedPattern = step::down;
  resetpatterns(w.program);
  EXPECT_EQ(w.state.phase, Phase::patternRequest);
}

}  // namespace
}  // namespace gridwright::test
