#include "maze/underpass_step.h"

#include <gtest/gtest.h>

#include <array>

#include "maze/underpass_paint.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr std::array kSteps = {step::left, step::right, step::up, step::down};

/// A canvas of its own with another's picture.
struct Copy : Canvas {
  explicit Copy(const Canvas& other) {
    resize({other.scaleWidth(), other.scaleHeight()});
    paintPicture(other.image());
  }
};

/// A walker in an empty field, about to take a step; cells are counted from its own, in the step's
/// direction.
struct Field : World {
  Field(MazeKind kind, int stepCode, WalkMode mode = WalkMode::carve)
      : World(drawing(Text(19, std::string(19, '.')))) {
    state.mazeKind = kind;
    state.stepCode = stepCode;
    state.walkMode = mode;
    state.deltaX = stepCode == step::left ? -10 : stepCode == step::right ? 10 : 0;
    state.deltaY = stepCode == step::up ? -10 : stepCode == step::down ? 10 : 0;
    state.cur = state.prev = squareOf(10, 10);
    canvas.fill(state.cur, kWhite);
    leadFromDelta(state);
    state.underpass.underpassOk = true;
    origin_ = state.cur;
  }
  [[nodiscard]] Square cell(int n) const { return origin_.moved(n * state.deltaX, n * state.deltaY); }
  void carve(int n) { canvas.fill(cell(n), kWhite); }
  void border(const Square& q) { canvas.fill(q.left - 1, q.top - 1, q.right + 1, q.bottom + 1, kBlue); }
  /// A corridor across the way, through this cell.
  void corridor(int n) {
    const Square a = cell(n).moved(-2 * state.deltaY, -2 * state.deltaX);
    const Square b = cell(n).moved(2 * state.deltaY, 2 * state.deltaX);
    canvas.fill(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom), kWhite);
  }
  /// The box from one cell to another, walls between them included.
  void span(Canvas& picture, int from, int to) const {
    const Square a = cell(from);
    const Square b = cell(to);
    picture.fill(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                 std::max(a.bottom, b.bottom), kWhite);
  }
  /// One pixel more along a cell's far or near side.
  void edge(Canvas& picture, int n, bool farSide) const {
    const Square q = cell(n);
    const bool positive = (state.deltaX + state.deltaY > 0) == farSide;
    if (state.deltaX != 0) {
      const int x = positive ? q.right + 1 : q.left - 1;
      picture.fill(x, q.top, x, q.bottom, kWhite);
    } else {
      const int y = positive ? q.bottom + 1 : q.top - 1;
      picture.fill(q.left, y, q.right, y, kWhite);
    }
  }
  void expectAt(int n) const {
    EXPECT_EQ(state.cur, cell(n)) << "cells from the first, step code " << state.stepCode;
  }

 private:
  Square origin_;
};

struct Pixel {
  int x, y;  // from the square's corner at (0, 0); its right and bottom are 7
};
/// A corridor alongside is told by one carved pixel, unless one of the others is carved too.
struct SideTest {
  const char* name;
  int stepCode;
  bool onlyBack;
  Pixel carved;
  std::vector<Pixel> unless;
};

const std::vector<SideTest> kSideTests = {
    {"left, below", step::left, true, {0, 17}, {{-1, 0}, {8, 0}, {0, 8}}},
    {"left, above", step::left, true, {0, -10}, {{-1, 0}, {8, 0}, {0, -1}}},
    {"left, above the target", step::left, false, {-10, -10}, {{-11, -10}, {-2, -10}}},
    {"left, below the target", step::left, false, {-10, 17}, {{-11, 17}, {-2, 17}}},
    {"right, below", step::right, true, {0, 17}, {{-1, 0}, {8, 0}, {0, 8}}},
    {"right, above", step::right, true, {0, -10}, {{-1, 0}, {8, 0}, {0, -1}}},
    {"right, above the target", step::right, false, {17, -10}, {{9, -10}, {18, -10}}},
    {"right, below the target", step::right, false, {17, 17}, {{9, 17}, {18, 17}}},
    {"up, right", step::up, true, {17, 0}, {{0, -1}, {0, 8}, {8, 0}}},
    {"up, left", step::up, true, {-10, 0}, {{0, -1}, {0, 8}, {-1, 0}}},
    {"up, left of the target", step::up, false, {-10, -10}, {{-10, -11}, {-10, -2}}},
    {"up, right of the target", step::up, false, {17, -10}, {{17, -11}, {17, -2}}},
    {"down, right", step::down, true, {17, 0}, {{0, -1}, {0, 8}, {8, 0}}},
    {"down, left", step::down, true, {-10, 0}, {{0, -1}, {0, 8}, {-1, 0}}},
    {"down, left of the target", step::down, false, {-10, 17}, {{-10, 9}, {-10, 18}}},
    {"down, right of the target", step::down, false, {17, 17}, {{17, 9}, {17, 18}}},
};

int sideStateOf(const SideTest& test, MazeKind kind, WalkMode mode, const Pixel* another = nullptr) {
  Field f(kind, test.stepCode, mode);
  const auto put = [&](const Pixel& p) {
    const int x = f.state.cur.left + p.x;
    const int y = f.state.cur.top + p.y;
    f.canvas.fill(x, y, x, y, kWhite);
  };
  put(test.carved);
  if (another != nullptr) put(*another);
  f.state.underpass.sideState = 2;
  declaremmb(f.program);
  return f.state.underpass.sideState;
}

TEST(ACorridorAlongside, IsToldByEachOfItsPixels) {
  for (const SideTest& test : kSideTests) {
    EXPECT_EQ(sideStateOf(test, MazeKind::threeD, WalkMode::back), 1) << test.name;
    EXPECT_EQ(sideStateOf(test, MazeKind::threeD, WalkMode::carve), test.onlyBack ? 0 : 1) << test.name;
    EXPECT_EQ(sideStateOf(test, MazeKind::pipe, WalkMode::back), 0) << test.name << " in a pipe";
    for (const Pixel& other : test.unless) {
      EXPECT_EQ(sideStateOf(test, MazeKind::threeD, WalkMode::back, &other), 0)
          << test.name << " with " << other.x << ", " << other.y;
    }
  }
}

TEST(APlainMove, GoesOnePitchAndCarvesUpToThePreviousSquare) {
  for (const int code : kSteps) {
    for (const auto& [kind, cells] : {std::pair{MazeKind::threeD, 1}, std::pair{MazeKind::pipe, 2}}) {
      Field f(kind, code);
      const Square to = f.cell(cells);
      const Square from = f.cell(0);
      Copy expected(f.canvas);
      expected.fill(to.left, to.top, from.right, from.bottom, kWhite);
      EXPECT_EQ(underpassStep(f.program), StepResult::done);
      f.expectAt(cells);
      EXPECT_EQ(f.state.walkMode, WalkMode::carve);
      EXPECT_FALSE(f.state.underpass.notMovedYet);
      EXPECT_FALSE(f.state.underpass.underpassOk);
      EXPECT_TRUE(samePicture(f.canvas.image(), expected.image())) << code;
    }
  }
}

TEST(TheCellTwoAhead, CountsInA3dMazeOnlyWhenCarvedAndInAPipeAlways) {
  for (const int code : kSteps) {
    Field solid(MazeKind::threeD, code);
    solid.border(solid.cell(2));
    underpassStep(solid.program);
    EXPECT_EQ(solid.state.underpass.aheadTwoState, 0);
    solid.expectAt(1);
    Field pipe(MazeKind::pipe, code);
    pipe.border(pipe.cell(2));
    const Bitmap before = pipe.canvas.image();
    underpassStep(pipe.program);
    EXPECT_EQ(pipe.state.underpass.aheadTwoState, 3);
    pipe.expectAt(0);
    EXPECT_TRUE(samePicture(pipe.canvas.image(), before)) << "neither a move nor an underpass";
  }
}

TEST(APlainMove, IsRefusedBesideACorridorAndBeforeWhatIsNotFree) {
  for (const int code : kSteps) {
    Field beside(MazeKind::threeD, code);
    beside.canvas.fill(beside.cell(1).moved(beside.state.deltaY, beside.state.deltaX), kWhite);
    underpassStep(beside.program);
    beside.expectAt(0);
    Field wall(MazeKind::threeD, code);
    wall.border(wall.cell(1));
    underpassStep(wall.program);
    EXPECT_EQ(wall.state.underpass.aheadOneState, 3);
    wall.expectAt(0);
  }
}

TEST(AWalkBackOnItsOwnRandomSteps, EndsWithoutMoving) {
  Field f(MazeKind::threeD, step::up, WalkMode::back);
  f.state.patternState = PatternState::random;
  f.state.randomStepsTemporary = true;
  EXPECT_EQ(underpassStep(f.program), StepResult::walkBackEnded);
  f.expectAt(0);
  EXPECT_EQ(f.state.walkMode, WalkMode::carve);
  EXPECT_FALSE(f.state.randomStepsTemporary);
  EXPECT_EQ(f.state.patternState, PatternState::choose);
  EXPECT_EQ(f.state.patternDirection, step::up);
  EXPECT_EQ(f.state.stepCode, step::none) << "so that nothing counts as just refused";
}

TEST(AWalkBack, GoesOverCarvedGroundByOneOrTwo) {
  struct Ground {
    MazeKind kind;
    bool one, two;  // carved ahead
    int cells;      // gone
  };
  for (const int code : kSteps) {
    for (const Ground& g : {Ground{MazeKind::threeD, true, false, 1}, Ground{MazeKind::threeD, true, true, 1},
                            Ground{MazeKind::threeD, false, true, 2}, Ground{MazeKind::pipe, true, true, 2},
                            Ground{MazeKind::pipe, false, true, 2}, Ground{MazeKind::pipe, true, false, 0}}) {
      Field f(g.kind, code, WalkMode::back);
      if (g.one) f.carve(1);
      if (g.two) f.carve(2);
      const Bitmap before = f.canvas.image();
      underpassStep(f.program);
      f.expectAt(g.cells);
      EXPECT_EQ(f.state.underpass.notMovedYet, g.cells == 0);
      EXPECT_EQ(f.state.walkMode, WalkMode::back) << "no underpass is tried";
      EXPECT_TRUE(samePicture(f.canvas.image(), before));
    }
  }
}

TEST(ACarvingWalker, DoesNotWalkOverCarvedGround) {
  for (const MazeKind kind : {MazeKind::threeD, MazeKind::pipe}) {
    Field f(kind, step::right);
    f.carve(1);
    f.carve(2);
    underpassStep(f.program);
    f.expectAt(0);
  }
}

TEST(ThreeBorderedWays, TurnTheWalkerBackAndNotTwoOrFour) {
  struct Case {
    MazeKind kind;
    int distance;
    std::vector<int> ways;  // step codes whose cell is border
    WalkMode then;
  };
  const auto back = WalkMode::back;
  const auto carve = WalkMode::carve;
  for (const Case& c :
       {Case{MazeKind::threeD, 1, {1, 2, 3}, back}, Case{MazeKind::pipe, 1, {2, 3, 4}, back},
        Case{MazeKind::threeD, 1, {1, 2}, carve}, Case{MazeKind::threeD, 1, {1, 2, 3, 4}, carve},
        Case{MazeKind::pipe, 2, {1, 2, 4}, back}, Case{MazeKind::pipe, 2, {1, 2}, carve},
        Case{MazeKind::threeD, 2, {1, 2, 4}, carve}}) {
    Field f(c.kind, step::right);
    for (const int way : c.ways) {
      const int dx = way == step::left ? -10 : way == step::right ? 10 : 0;
      const int dy = way == step::up ? -10 : way == step::down ? 10 : 0;
      f.border(f.state.cur.moved(c.distance * dx, c.distance * dy));
    }
    underpassStep(f.program);
    EXPECT_EQ(f.state.walkMode, c.then) << static_cast<int>(c.kind) << " at " << c.distance;
  }
}

/// A corridor two cells ahead, and picture border right behind it: no tunnel can end there.
struct Refused : Field {
  Refused(MazeKind kind, int code) : Field(kind, code) {
    corridor(2);
    for (int n = 3; n <= 6; ++n) border(cell(n));
  }
};

TEST(ARefusedUnderpass, EndsTheRunWithNormalPathsAndSweepsWithLargeOnes) {
  for (const MazeKind kind : {MazeKind::threeD, MazeKind::pipe}) {
    for (const int code : kSteps) {
      Refused normal(kind, code);
      const Bitmap before = normal.canvas.image();
      normal.state.pathSize = 1;
      underpassStep(normal.program);
      EXPECT_FALSE(normal.state.underpass.underpassOk);
      EXPECT_EQ(normal.state.walkMode, WalkMode::back);
      EXPECT_FALSE(normal.state.walker.sweepActive);
      EXPECT_TRUE(samePicture(normal.canvas.image(), before));

      Refused large(kind, code);
      large.state.pathSize = 2;
      large.state.walker.sweepCode = 4;
      underpassStep(large.program);
      EXPECT_EQ(large.state.walkMode, WalkMode::carve);
      EXPECT_TRUE(large.state.walker.sweepActive);
      EXPECT_EQ(large.state.walker.sweepCode, 0);
      EXPECT_EQ(large.state.sweepX, large.cell(0).left);
      EXPECT_EQ(large.state.sweepY, large.cell(0).top);
      large.state.walker.sweepCode = 3;
      underpassStep(large.program);
      EXPECT_EQ(large.state.walker.sweepCode, 3) << "a sweep under way goes on";
    }
  }
}

/// Corridors at some distances; what is carved for the tunnel under them.
struct Tunnel {
  const char* name;
  std::vector<int> corridors;
  std::vector<std::pair<int, int>> spans;  // cells joined
  std::vector<int> closed;                 // cells of the tunnel carved alone
  int end;
};
const std::vector<Tunnel> kTunnels = {
    {"one corridor", {2}, {{0, 1}, {3, 4}}, {}, 4},
    {"two side by side", {2, 3}, {{0, 1}, {4, 5}}, {}, 5},
    {"two with a cell between", {2, 4}, {{0, 1}, {5, 6}}, {3}, 6},
    {"two with two cells between", {2, 5}, {{0, 1}, {3, 4}, {6, 7}}, {}, 7}};

TEST(AShortTunnel, JoinsTheCellsOnEitherSideAndLeavesTheCorridorsTheirWalls) {
  for (const Tunnel& tunnel : kTunnels) {
    for (const MazeKind kind : {MazeKind::threeD, MazeKind::pipe}) {
      for (const int code : kSteps) {
        Field f(kind, code);
        for (const int n : tunnel.corridors) f.corridor(n);
        Copy expected(f.canvas);
        for (const auto& [from, to] : tunnel.spans) f.span(expected, from, to);
        for (const int n : tunnel.closed) expected.fill(f.cell(n), kWhite);
        f.state.walker.passesSinceCarved = 9;
        paintUnderpass(f.program);
        EXPECT_TRUE(samePicture(f.canvas.image(), expected.image())) << tunnel.name << ", " << code;
        f.expectAt(tunnel.end);
        EXPECT_EQ(f.state.prev, f.state.cur) << "nothing is joined in the next pass";
        EXPECT_EQ(f.state.walker.passesSinceCarved, 0);
      }
    }
  }
}

TEST(ALongTunnel, ClosesEveryMouthWithAnEdge) {
  for (const Tunnel& tunnel : {kTunnels[0], kTunnels[1], kTunnels[2]}) {
    for (const int code : kSteps) {
      Field f(MazeKind::pipe, code);
      f.state.shortUnderpasses = false;
      for (const int n : tunnel.corridors) f.corridor(n);
      Copy expected(f.canvas);
      for (const auto& [from, to] : tunnel.spans) f.span(expected, from, to);
      f.edge(expected, 1, true);
      f.edge(expected, tunnel.end - 1, false);
      for (const int n : tunnel.closed) {
        expected.fill(f.cell(n), kWhite);
        f.edge(expected, n, false);
        f.edge(expected, n, true);
      }
      paintUnderpass(f.program);
      EXPECT_TRUE(samePicture(f.canvas.image(), expected.image())) << tunnel.name << ", " << code;
      f.expectAt(tunnel.end);
    }
  }
}

TEST(AnUnderpass, IsTriedByACarvingWalkerThatMeetsACorridor) {
  for (const MazeKind kind : {MazeKind::threeD, MazeKind::pipe}) {
    for (const int code : kSteps) {
      Field carving(kind, code);
      carving.corridor(2);
      underpassStep(carving.program);
      carving.expectAt(4);
      EXPECT_EQ(carving.state.walkMode, WalkMode::carve);
      Field back(kind, code, WalkMode::back);
      back.corridor(2);
      underpassStep(back.program);
      back.expectAt(2);
    }
  }
}

TEST(ThePipeRelease, NeedsBothCellsAheadWhollyFree) {
  for (const int code : kSteps) {
    Field free(MazeKind::pipe, code, WalkMode::back);
    EXPECT_EQ(releasePipe(free.program), StepResult::done);
    EXPECT_EQ(free.state.walkMode, WalkMode::carve);
    free.expectAt(0);
    for (const int cell : {1, 2}) {
      Field carved(MazeKind::pipe, code, WalkMode::back);
      carved.carve(cell);
      releasePipe(carved.program);
      EXPECT_EQ(carved.state.walkMode, WalkMode::back);
      // One pixel of the margin is enough, and only its far corner is border.
      Field margin(MazeKind::pipe, code, WalkMode::back);
      const Square q = margin.cell(cell);
      margin.canvas.fill(q.right + 1, q.bottom + 1, q.right + 1, q.bottom + 1, kBlue);
      releasePipe(margin.program);
      EXPECT_EQ(margin.state.walkMode, WalkMode::back);
    }
  }
}

TEST(ThePipeRelease, IsForPipesThatWalkBack) {
  Field other(MazeKind::threeD, step::right, WalkMode::back);
  EXPECT_EQ(releasePipe(other.program), StepResult::done);
  EXPECT_EQ(other.state.walkMode, WalkMode::back);
  Field own(MazeKind::pipe, step::left, WalkMode::back);
  own.state.patternState = PatternState::random;
  own.state.randomStepsTemporary = true;
  EXPECT_EQ(releasePipe(own.program), StepResult::walkBackEnded);
  EXPECT_EQ(own.state.walkMode, WalkMode::carve);
  EXPECT_EQ(own.state.patternDirection, step::left);
  EXPECT_EQ(own.state.stepCode, step::none);
  EXPECT_FALSE(own.state.randomStepsTemporary);
  Field carving(MazeKind::pipe, step::left);
  carving.state.patternState = PatternState::random;
  carving.state.randomStepsTemporary = true;
  EXPECT_EQ(releasePipe(carving.program), StepResult::done);
  EXPECT_TRUE(carving.state.randomStepsTemporary);
}

}  // namespace
}  // namespace gridwright::test
