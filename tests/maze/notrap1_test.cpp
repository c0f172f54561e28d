#include "maze/notrap1.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr int kLeft = 0, kRight = 1, kUp = 2, kDown = 3;

/// Five cells by five, the walker carving in the middle. All around is border but one direction.
struct Trap {
  explicit Trap(int open) : w(drawing({"#####", "#####", "#####", "#####", "#####"})) {
    w.state.cur = q;
    w.state.walkMode = WalkMode::carve;
    w.state.mazeColor = kWhite;
    if (open < 0) return;
    const int dx = open == kLeft ? -10 : open == kRight ? 10 : 0;
    const int dy = open == kUp ? -10 : open == kDown ? 10 : 0;
    // The neighbour's cell, and a pixel around it: that belongs to other cells and is not asked.
    w.canvas.fill(q.left - 1 + dx, q.top - 1 + dy, q.right + 1 + dx, q.bottom + 1 + dy, kNavy);
  }
  WalkMode after() {
    notrap1(w.program);
    return w.state.walkMode;
  }
  World w;
  const Square q = squareOf(3, 3);
};

TEST(AWalkerWithOneFreeNeighbour, GoesOnCarving) {
  for (const int open : {kLeft, kRight, kUp, kDown}) {
    Trap t(open);
    // The near edge sample lies in the walker's own cell, which is no border.
    t.w.canvas.fill(t.q.left - 1, t.q.top - 1, t.q.right + 1, t.q.bottom + 1, kNavy);
    EXPECT_EQ(t.after(), WalkMode::carve) << open;
    EXPECT_EQ(t.w.state.testCount, 3);
  }
}

TEST(AWalkerInADeadEnd, IsBoxedAndTurnsToWalkingBack) {
  Trap t(-1);
  EXPECT_EQ(t.after(), WalkMode::back);
  EXPECT_EQ(t.w.state.testCount, 4);
  EXPECT_TRUE(t.w.program.pixels().allCarved(t.q.left, t.q.top, t.q.right, t.q.bottom));
}

TEST(TheCellTheWalkerCameFrom, CountsAsBlocked) {
  Trap t(kLeft);
  t.w.canvas.fill(squareOf(2, 3), kWhite);
  EXPECT_EQ(t.after(), WalkMode::back);
}

TEST(AWalkerThatWalksBack, IsNotTested) {
  Trap t(-1);
  t.w.state.walkMode = WalkMode::back;
  t.after();
  EXPECT_EQ(t.w.canvas.point(t.q.left, t.q.top), kBlue) << "and not boxed";
}

struct Sample {
  int direction, dx, dy;  // from the square's left and top
};

// The four edge samples of each direction, row by row. The square is 8 pixels wide.
constexpr int kFar = 7;
const std::vector<Sample> kEdges = {
    {kLeft, -11, 0},       {kLeft, -1, 0},         {kLeft, -10, -1},        {kLeft, -10, kFar + 1},
    {kRight, 9, 0},        {kRight, kFar + 11, 0}, {kRight, kFar + 10, -1}, {kRight, kFar + 10, kFar + 1},
    {kUp, 0, -11},         {kUp, 0, -1},           {kUp, -1, -10},          {kUp, kFar + 1, -10},
    {kDown, 0, kFar + 11}, {kDown, 0, kFar + 1},   {kDown, -1, kFar + 10},  {kDown, kFar + 1, kFar + 10},
};

TEST(EachEdgeSample, BlocksItsDirectionWhenClosedAlone) {
  for (const Sample& s : kEdges) {
    for (const Colour closed : {kBlue, kWhite}) {
      Trap t(s.direction);
      t.w.state.mazeMadeOnce = false;  // once one was made the whole cell is looked at before
      t.w.canvas.fill(t.q.left - 1, t.q.top - 1, t.q.right + 1, t.q.bottom + 1, kNavy);
      t.w.canvas.fill(t.q.left + s.dx, t.q.top + s.dy, t.q.left + s.dx, t.q.top + s.dy, closed);
      EXPECT_EQ(t.after(), WalkMode::back) << s.direction << ": " << s.dx << ", " << s.dy;
    }
  }
}

/// A carved pixel beside the neighbour of a direction, and the two pixels outside it; from the square's left
/// and top.
struct Corridor {
  struct Pixel {
    int x, y;
  };
  int direction, x, y;
  std::array<Pixel, 2> outside;
};

// Row by row, two for each direction. The square is 8 pixels wide.
constexpr auto kCorridors = std::to_array<Corridor>({
    {kLeft, -10, -10, {{{-11, -10}, {kFar - 9, -10}}}},
    {kLeft, -10, kFar + 10, {{{-11, kFar + 10}, {kFar - 9, kFar + 10}}}},
    {kRight, kFar + 10, -10, {{{9, -10}, {kFar + 11, -10}}}},
    {kRight, kFar + 10, kFar + 10, {{{9, kFar + 10}, {kFar + 11, kFar + 10}}}},
    {kUp, -10, -10, {{{-10, -11}, {-10, kFar - 9}}}},
    {kUp, kFar + 10, -10, {{{kFar + 10, -11}, {kFar + 10, kFar - 9}}}},
    {kDown, -10, kFar + 10, {{{-10, 9}, {-10, kFar + 11}}}},
    {kDown, kFar + 10, kFar + 10, {{{kFar + 10, 9}, {kFar + 10, kFar + 11}}}},
});

/// One direction open, all else around it free ground: what blocks is the corridor alone. The other
/// directions are shut by their near edge samples.
struct TrapBesideCorridor : Trap {
  TrapBesideCorridor(const Corridor& corridor, MazeKind kind) : Trap(-1) {
    w.state.mazeKind = kind;
    w.canvas.fill(q.left - 20, q.top - 20, q.right + 20, q.bottom + 20, kNavy);
    for (int direction = kLeft; direction <= kDown; ++direction) {
      if (direction == corridor.direction) continue;
      const Sample& near = kNear.at(static_cast<std::size_t>(direction));
      spot(near.dx, near.dy, kBlue);
    }
    spot(corridor.x, corridor.y, kWhite);
  }
  void spot(int x, int y, Colour colour) {
    w.canvas.fill(q.left + x, q.top + y, q.left + x, q.top + y, colour);
  }
  static constexpr auto kNear =
      std::to_array<Sample>({{kLeft, -10, 4}, {kRight, kFar + 10, 4}, {kUp, 4, -10}, {kDown, 4, kFar + 10}});
};

TEST(ACorridorBesideTheNeighbour, BlocksItsDirectionInThe3dKindAlone) {
  for (const Corridor& c : kCorridors) {
    EXPECT_EQ(TrapBesideCorridor(c, MazeKind::threeD).after(), WalkMode::back) << c.direction << ": " << c.x;
    EXPECT_EQ(TrapBesideCorridor(c, MazeKind::regular).after(), WalkMode::carve)
        << c.direction << ": " << c.x;
  }
}

TEST(ACorridorBesideTheNeighbour, BlocksNothingWithEitherSideCarved) {
  for (const Corridor& c : kCorridors) {
    for (const auto& open : c.outside) {
      TrapBesideCorridor t(c, MazeKind::threeD);
      t.spot(open.x, open.y, kWhite);
      EXPECT_EQ(t.after(), WalkMode::carve) << c.direction << ": " << open.x << ", " << open.y;
    }
  }
}

TEST(ABorderOutsideACorridor, OpensItToTheRightAlone) {
  for (const Corridor& c : kCorridors) {
    for (const auto& side : c.outside) {
      TrapBesideCorridor t(c, MazeKind::threeD);
      t.spot(side.x, side.y, kBlue);
      EXPECT_EQ(t.after(), c.direction == kRight ? WalkMode::carve : WalkMode::back)
          << c.direction << ": " << side.x << ", " << side.y;
    }
  }
}

TEST(AnyPixelOfTheNeighbourAndItsMargin, BlocksItsDirection) {
  for (int direction = kLeft; direction <= kDown; ++direction) {
    const int dx = direction == kLeft ? -10 : direction == kRight ? 10 : 0;
    const int dy = direction == kUp ? -10 : direction == kDown ? 10 : 0;
    for (int y = -1; y <= kFar + 1; ++y) {
      for (int x = -1; x <= kFar + 1; ++x) {
        Trap t(direction);
        t.w.canvas.fill(t.q.left - 1, t.q.top - 1, t.q.right + 1, t.q.bottom + 1, kNavy);
        const int px = t.q.left + dx + x;
        const int py = t.q.top + dy + y;
        t.w.canvas.fill(px, py, px, py, kCursorColour);
        ASSERT_EQ(t.after(), WalkMode::back) << direction << ": " << x << ", " << y;
      }
    }
  }
}

TEST(BeforeAnyMaze, OneSampleStandsInForTheScan) {
  constexpr auto kSamples =
      std::to_array<Sample>({{kLeft, -10, 0}, {kRight, kFar + 10, 0}, {kUp, 0, -10}, {kDown, 0, kFar + 10}});
  for (const Sample& s : kSamples) {
    const int dx = s.direction == kLeft ? -10 : s.direction == kRight ? 10 : 0;
    const int dy = s.direction == kUp ? -10 : s.direction == kDown ? 10 : 0;
    const auto trap = [&] {
      auto t = std::make_unique<Trap>(s.direction);
      t->w.canvas.fill(t->q.left - 1, t->q.top - 1, t->q.right + 1, t->q.bottom + 1, kNavy);
      t->w.state.mazeMadeOnce = false;
      return t;
    };
    auto spotted = trap();
    spotted->w.canvas.fill(spotted->q.left + dx + 4, spotted->q.top + dy + 4, spotted->q.left + dx + 4,
                           spotted->q.top + dy + 4, kBlue);
    EXPECT_EQ(spotted->after(), WalkMode::carve) << "a spot in the middle is not seen";
    auto closed = trap();
    closed->w.canvas.fill(closed->q.left + s.dx, closed->q.top + s.dy, closed->q.left + s.dx,
                          closed->q.top + s.dy, kBlue);
    EXPECT_EQ(closed->after(), WalkMode::back) << "the sample is";
  }
}

/// The pipe kind looks at single points, all taken from the square's left and top.
struct Pipe : Trap {
  Pipe() : Trap(-1) {
    w.state.mazeKind = MazeKind::pipe;
    w.canvas.fill(0, 0, 99, 99, kBlue);
  }
  void dot(int dx, int dy, Colour c) { w.canvas.fill(q.left + dx, q.top + dy, q.left + dx, q.top + dy, c); }
};

TEST(APipe, GoesOnWhereTheFarPointIsGroundAndTheNearOneIsClear) {
  for (const auto& [dx, dy] : {std::pair{-10, 0}, std::pair{10, 0}, std::pair{0, -10}, std::pair{0, 10}}) {
    for (const Colour farGround : {kNavy, kWhite}) {  // carved: the step may become an underpass
      Pipe p;
      p.dot(2 * dx, 2 * dy, farGround);
      p.dot(dx, dy, kNavy);
      EXPECT_EQ(p.after(), WalkMode::carve) << dx << ", " << dy;
    }
    for (const Colour near : {kWhite, kBlue}) {
      Pipe p;
      p.dot(2 * dx, 2 * dy, kNavy);
      p.dot(dx, dy, near);
      EXPECT_EQ(p.after(), WalkMode::back);
    }
    Pipe p;
    p.dot(2 * dx, 2 * dy, kBlue);
    p.dot(dx, dy, kNavy);
    EXPECT_EQ(p.after(), WalkMode::back) << "no ground far out";
  }
}

TEST(AWalkingPipe, IsTestedTooAndNothingIsPainted) {
  Pipe p;
  p.w.state.walkMode = WalkMode::back;
  EXPECT_EQ(p.after(), WalkMode::back);
  EXPECT_EQ(p.w.canvas.point(p.q.left, p.q.top), kBlue);
}

}  // namespace
}  // namespace gridwright::test
