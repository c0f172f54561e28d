#include "patterns/makeunderpasses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "patterns/pattern_field.h"
#include "support/world.h"
#include "underpass/preview_pixels.h"

namespace gridwright::test {
namespace {

constexpr int kX = 96, kY = 96;

/// A bare field with the walker in its middle, in cells of 5 pixels.
struct Field : World {
  explicit Field(MazeKind kind) : World(Size{200, 200}) {
    canvas.resize({200, 200});
    canvas.setAutoRedraw(true);
    canvas.fill(0, 0, 199, 199, preview::outside);
    canvas.fill(20, 20, 180, 180, preview::field);
    state.mazeKind = kind;
    state.wallWidth = state.wallHeight = 5;
    state.stepX = state.stepY = kind == MazeKind::pipe ? 10 : 5;
    state.walkMode = WalkMode::carve;
    state.cur = state.prev = {kX, kY, kX + 3, kY + 3};
    state.editor.patternRewriting = state.editor.patternRecording = true;
    state.difficultyLevel = 6;
    canvas.fill(state.cur, preview::path);
  }
  /// One step as the editor makes it.
  void step(int code) {
    state.prev = state.cur;
    state.stepCode = code;
    fieldStepFromCode(state);
    makeunderpasses(program);
  }
  void path(int columns, int rows, int columns2, int rows2) {
    canvas.fill(kX + 5 * columns, kY + 5 * rows, kX + 5 * columns2 + 3, kY + 5 * rows2 + 3, preview::path);
  }
  void surround() {
    for (const auto& [dx, dy] : {std::pair{-1, 0}, {1, 0}, {0, -1}, {0, 1}}) path(dx, dy, dx, dy);
  }
  void expectAt(int columns, int rows) {
    EXPECT_EQ(state.cur.left, kX + 5 * columns);
    EXPECT_EQ(state.cur.top, kY + 5 * rows);
  }
};

TEST(ADeadEnd, PaintsTheSquareBlackAndTurnsTheWalkerBack) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    Field w(kind);
    w.surround();
    w.step(step::none);
    EXPECT_EQ(w.canvas.point(kX, kY), preview::marker);
    EXPECT_EQ(w.canvas.point(kX + 3, kY + 3), preview::marker);
    EXPECT_EQ(w.state.walkMode, WalkMode::back);
    EXPECT_EQ(w.state.editor.openSteps, Steps{step::walkBack});
    const PreviewPixels pixels(w.canvas);
    EXPECT_TRUE(pixels.maze(kX, kY) && pixels.free(kX, kY) && pixels.wall(kX, kY) && pixels.closed(kX, kY));
  }
}

TEST(ADeadEndInAReplay, WritesNothing) {
  Field w(MazeKind::regular);
  w.surround();
  w.state.editor.patternRewriting = false;
  w.step(step::none);
  EXPECT_EQ(w.state.walkMode, WalkMode::back);
  EXPECT_TRUE(w.state.editor.openSteps.empty());
}

TEST(ThreeClosedWays, AreNoDeadEnd) {
  Field w(MazeKind::regular);
  w.path(-1, 0, -1, 0);
  w.path(1, 0, 1, 0);
  w.path(0, -1, 0, -1);
  w.step(step::none);
  EXPECT_EQ(w.state.walkMode, WalkMode::carve);
  EXPECT_EQ(w.canvas.point(kX, kY), preview::path);
}

TEST(ARightStepsCornerTest, SeesYellowAtTheSideAndALeftStepsDoesNot) {
  for (const bool right : {false, true}) {
    for (const bool yellow : {false, true}) {
      Field w(MazeKind::threeD);
      // Three ways are closed; the fourth only through a corner corridor that runs across.
      w.path(0, -1, 0, -1);
      w.path(0, 1, 0, 1);
      w.path(right ? -1 : 1, 0, right ? -1 : 1, 0);
      // The corner cell's tested pixel alone is path; yellow at one of its side pixels.
      const int x = right ? w.state.cur.right + 5 : w.state.cur.left - 5;
      const int y = w.state.cur.top - 5;
      const int side = right ? w.state.cur.right + 5 + 1 : w.state.cur.left - 5 - 1;
      w.canvas.fill(x, y, x, y, preview::path);
      if (yellow) w.canvas.fill(side, y, side, y, preview::outside);
      w.step(step::none);
      const bool closed = !(right && yellow);
      EXPECT_EQ(w.state.walkMode, closed ? WalkMode::back : WalkMode::carve) << right << yellow;
    }
  }
}

TEST(InTheRegularKind, OnlyTheFirstFourStepsHaveAnyEffect) {
  Field w(MazeKind::regular);
  const Bitmap before = w.canvas.image();
  for (int code = 1; code <= 4; ++code) w.step(code);
  EXPECT_TRUE(samePicture(w.canvas.image(), before));
  w.expectAt(0, 0);
  EXPECT_EQ(w.state.randomPatterns.randomStepsDone, 0);
}

struct Towards {
  int code, dx, dy;
};
constexpr auto kTowards =
    std::to_array<Towards>({{step::left, -1, 0}, {step::right, 1, 0}, {step::up, 0, -1}, {step::down, 0, 1}});

TEST(APlainMove, CarvesOneCellIn3dAndTwoInPipes) {
  for (const Towards& row : kTowards) {
    for (const MazeKind kind : {MazeKind::threeD, MazeKind::pipe}) {
      Field w(kind);
      w.state.walkMode = WalkMode::back;
      w.step(row.code);
      const int cells = kind == MazeKind::pipe ? 2 : 1;
      w.expectAt(cells * row.dx, cells * row.dy);
      EXPECT_EQ(w.state.walkMode, WalkMode::carve);
      EXPECT_EQ(w.state.randomPatterns.randomStepsDone, 1);
      EXPECT_EQ(w.canvas.point(kX + 5 * row.dx, kY + 5 * row.dy), preview::path);
    }
  }
}

TEST(WalkingBackOverPath, MovesWithoutCarving) {
  for (const Towards& to : kTowards) {
    Field w(MazeKind::pipe);
    w.path(std::min(2 * to.dx, 0), std::min(2 * to.dy, 0), std::max(2 * to.dx, 0), std::max(2 * to.dy, 0));
    w.state.walkMode = WalkMode::back;
    const Bitmap before = w.canvas.image();
    w.step(to.code);
    w.expectAt(2 * to.dx, 2 * to.dy);
    EXPECT_EQ(w.state.walkMode, WalkMode::back);
    EXPECT_TRUE(samePicture(w.canvas.image(), before));
  }
}

TEST(AStepIn3d, IsRefusedBesideAPathAcrossThatEndsThere) {
  for (const Towards& to : kTowards) {
    for (const int side : {-1, 1}) {
      for (const bool goesOn : {false, true}) {
        Field w(MazeKind::threeD);
        const int column = to.dx + side * (to.dy != 0);
        const int row = to.dy + side * (to.dx != 0);
        w.path(column, row, column, row);
        // Joined to a cell further on it runs alongside.
        if (goesOn)
          w.path(std::min(column, column + to.dx), std::min(row, row + to.dy),
                 std::max(column, column + to.dx), std::max(row, row + to.dy));
        w.step(to.code);
        w.expectAt(goesOn ? to.dx : 0, goesOn ? to.dy : 0);
      }
    }
  }
}

TEST(ATunnel, PassesUnderACorridorAndIsRecordedOnce) {
  Field w(MazeKind::pipe);
  w.path(2, -4, 2, 4);  // a corridor across the way to the right
  w.step(step::right);
  w.expectAt(4, 0);
  EXPECT_EQ(w.state.prev, w.state.cur);
  EXPECT_EQ(w.state.editor.openSteps, Steps{step::right});
  EXPECT_EQ(w.state.randomPatterns.randomStepsDone, 1);
  EXPECT_EQ(w.canvas.point(kX + 20, kY), preview::path);
  EXPECT_FALSE(w.state.walker.sweepActive);
}

TEST(ARefusedTunnel, BeginsASweepWhateverThePathSize) {
  for (const int size : {1, 2}) {
    Field w(MazeKind::pipe);
    w.canvas.fill(kX + 10, 0, 199, 199, preview::path);  // path as far as the Canvas goes
    w.canvas.fill(kX + 9, 0, kX + 9, 199, preview::field);
    w.state.pathSize = size;
    w.step(step::right);
    w.expectAt(0, 0);
    EXPECT_TRUE(w.state.walker.sweepActive);
    EXPECT_EQ(w.state.walker.sweepCode, 0);
    EXPECT_EQ(w.state.sweepX, kX);
    EXPECT_EQ(w.state.sweepY, kY);
    EXPECT_EQ(w.state.walkMode, WalkMode::carve);
  }
}

TEST(AWalkerInPipesAtFreshField, IsReleasedFromWalkingBack) {
  Field w(MazeKind::pipe);
  w.state.walkMode = WalkMode::back;
  w.canvas.fill(kX + 5, kY, kX + 8, kY + 3, preview::path);  // no plain move
  w.step(step::right);
  EXPECT_EQ(w.state.walkMode, WalkMode::carve);
}

TEST(ATunnelInThePreview, MaySurfaceBesideACrossingCorridor) {
  Field w(MazeKind::pipe);
  w.path(2, -4, 2, 4);
  w.path(4, -3, 4, -1);  // a corridor that ends right above where the tunnel comes up
  w.step(step::right);
  EXPECT_TRUE(w.state.underpass.underpassOk);
  w.expectAt(4, 0);
}

}  // namespace
}  // namespace gridwright::test
