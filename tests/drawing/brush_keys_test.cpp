#include "drawing/brush_keys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "drawing/mirror.h"
#include "session/input.h"
#include "state/grid.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A blank Canvas of these cells with the brush on one of them, measured.
struct Brush : World {
  explicit Brush(int column = 4, int row = 4, MazeKind kind = MazeKind::regular, int wall = 10,
                 Size cells = {12, 10})
      : World(plainBitmap((cells.width + 1) * wall, (cells.height + 1) * wall, kBlue), wall) {
    state.phase = Phase::drawing;
    state.mazeKind = kind;
    pitchFromKind(state);
    state.cur = state.prev = firstCell(state).moved((column - 1) * state.stepX, (row - 1) * state.stepY);
    measureDrawing(program);
  }
  void key(int code) { brushKey(program, code); }
};

struct MoveRow {
  int code;
  Square square, mirror;  // by how much each side moves, in cells
};
const std::array kMoveRows = {
    MoveRow{key::J, {-1, 0, -1, 0}, {1, 0, 1, 0}}, MoveRow{key::I, {0, -1, 0, -1}, {0, 1, 0, 1}},
    MoveRow{key::L, {1, 0, 1, 0}, {-1, 0, -1, 0}}, MoveRow{key::K, {0, 1, 0, 1}, {0, -1, 0, -1}},
    MoveRow{key::W, {0, -1, 0, 0}, {0, 0, 0, 1}},  MoveRow{key::S, {0, 0, 0, 1}, {0, -1, 0, 0}},
    MoveRow{key::A, {-1, 0, 0, 0}, {0, 0, 1, 0}},  MoveRow{key::D, {0, 0, 1, 0}, {-1, 0, 0, 0}},
};
const std::array kShrinkRows = {
    MoveRow{key::T, {0, 0, 0, -1}, {0, 1, 0, 0}},
    MoveRow{key::G, {0, 1, 0, 0}, {0, 0, 0, -1}},
    MoveRow{key::F, {0, 0, -1, 0}, {1, 0, 0, 0}},
    MoveRow{key::H, {1, 0, 0, 0}, {0, 0, -1, 0}},
};

Square plus(const Square& q, const Square& cells, int pitch) {
  return {q.left + cells.left * pitch, q.top + cells.top * pitch, q.right + cells.right * pitch,
          q.bottom + cells.bottom * pitch};
}

TEST(AStepOrSizeKey, MovesItsSidesByACellAndTheMirrorTheOtherWay) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const MoveRow& row : kMoveRows) {
      Brush b(3, 3, kind);
      const Square square = b.state.cur;
      const Square mirror = b.state.drawing.mirror;
      b.key(row.code);
      EXPECT_EQ(b.state.cur, plus(square, row.square, b.state.stepX)) << row.code;
      EXPECT_EQ(b.state.drawing.mirror, plus(mirror, row.mirror, b.state.stepX)) << row.code;
    }
  }
}

TEST(AShrinkKey, MovesItsSideInAndStopsAtOneCell) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe}) {
    for (const MoveRow& row : kShrinkRows) {
      Brush b(3, 3, kind);
      const Square one = b.state.cur;
      b.key(row.code);
      EXPECT_EQ(b.state.cur, one) << "it cannot shrink below one cell";
      b.key(key::S);
      b.key(key::D);
      const Square square = b.state.cur;
      const Square mirror = b.state.drawing.mirror;
      b.key(row.code);
      EXPECT_EQ(b.state.cur, plus(square, row.square, b.state.stepX)) << row.code;
      EXPECT_EQ(b.state.drawing.mirror, plus(mirror, row.mirror, b.state.stepX)) << row.code;
    }
  }
}

TEST(AnArrow, MovesTheSquareByItsOwnSizePlusOnePixelAndInPipesByAWallSizeMore) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe}) {
    for (const auto& [code, dx, dy] : {std::tuple{key::left, -1, 0}, std::tuple{key::right, 1, 0},
                                       std::tuple{key::up, 0, -1}, std::tuple{key::down, 0, 1}}) {
      Brush b(3, 3, kind);
      const Square square = b.state.cur;
      const Square mirror = b.state.drawing.mirror;
      const int by = kind == MazeKind::pipe ? 20 : 10;
      b.key(code);
      EXPECT_EQ(b.state.cur, square.moved(dx * by, dy * by));
      EXPECT_EQ(b.state.drawing.mirror, mirror.moved(-dx * by, -dy * by));
    }
  }
}

TEST(TheSquare, NeverLeavesTheGridByStepsOrArrowsOrGrowing) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const int wall : {5, 10, 13}) {
      Brush b(1, 1, kind, wall);
      std::mt19937 random(static_cast<unsigned>(wall));
      static constexpr std::array kCodes = {key::J,    key::I,  key::L,     key::K,   key::W, key::S,
                                            key::A,    key::D,  key::T,     key::G,   key::F, key::H,
                                            key::left, key::up, key::right, key::down};
      for (int i = 0; i < 3000; ++i) {
        b.key(kCodes[random() % kCodes.size()]);
        b.state.drawing.squareWidth = b.state.cur.right - b.state.cur.left;
        b.state.drawing.squareHeight = b.state.cur.bottom - b.state.cur.top;
        const Square& q = b.state.cur;
        ASSERT_GE(q.left, wall);
        ASSERT_GE(q.top, wall);
        ASSERT_LE(q.right, b.state.canvasWidth - wall);
        ASSERT_LE(q.bottom, b.state.canvasHeight - wall);
        ASSERT_EQ((q.left - wall) % b.state.stepX, 0);
        ASSERT_GE(q.right - q.left, wall - 1);
      }
    }
  }
}

TEST(J, DoesNothingInTheFirstColumnBecauseTheStepWouldReachZero) {
  Brush b(1, 2);
  ASSERT_EQ(b.state.cur.left, b.state.stepX);
  b.key(key::J);
  EXPECT_EQ(b.state.cur.left, 10);
}

TEST(C, PaintsTheSquareAndJumpsToTheCentreWithoutAStripe) {
  for (const bool off : {false, true}) {
    Brush b(2, 2);
    b.state.drawColor = kNavy;
    b.state.drawingOff = off;
    b.canvas.setAutoRedraw(false);
    const Square from = b.state.cur;
    b.key(key::C);
    EXPECT_EQ(b.canvas.image().at(from.left, from.top), off ? kBlue : kNavy) << "only drawing on keeps it";
    EXPECT_EQ(b.state.cur.left, b.state.drawing.centreLeft);
    EXPECT_EQ(b.state.cur.top, b.state.drawing.centreTop);
    EXPECT_EQ(b.state.cur.right - b.state.cur.left, from.right - from.left);
    EXPECT_TRUE(b.state.drawing.skipPaintOnce);
    EXPECT_FALSE(b.canvas.autoRedraw()) << "as it was before";
  }
}

TEST(C, StaysWhereItIsWhenTheSquareWouldNotFit) {
  Brush b(1, 1);
  for (int i = 0; i < 30; ++i) b.key(key::D);
  b.state.drawing.squareWidth = b.state.cur.right - b.state.cur.left;
  const Square wide = b.state.cur;
  b.key(key::C);
  EXPECT_EQ(b.state.cur, wide);
}

TEST(C, OnAWindowOfTwoColumnsNeverLosesTheSquareOutsideTheCanvas) {
  World w(Size{125, 125});
  w.desktop.click(ControlId::Command2);
  w.desktop.menu(Item::newwallsize);
  w.desktop.enter(ControlId::Text2, "40");
  w.desktop.pumpsPass(2);
  w.desktop.act([](Program& p) { input::keyDown(p, key::C); });
  w.desktop.pumpsPass(3);
  EXPECT_EQ(w.run(), "");
  EXPECT_GE(w.state.cur.left, 0);
  EXPECT_GE(w.state.cur.top, 0);
}

TEST(ZAndX, StepThroughTheSetOfTheColourWithoutCrossingOrWrapping) {
  Brush b;
  const auto& background = b.program.colours.background();
  const auto& border = b.program.colours.border();
  for (const auto* slots : {&background, &border}) {
    std::vector<Colour> fit;
    for (const Colour c : *slots) {
      if (!(c >= 300 && c <= 400) && !b.program.colours.isMaze(c)) fit.push_back(c);
    }
    ASSERT_GT(fit.size(), 2U);
    b.state.drawColor = fit.front();
    b.key(key::Z);
    EXPECT_EQ(b.state.drawColor, fit.front()) << "no wrap-around";
    for (std::size_t i = 1; i < fit.size(); ++i) {
      b.key(key::X);
      EXPECT_EQ(b.state.drawColor, fit[i]);
    }
    b.key(key::X);
    EXPECT_EQ(b.state.drawColor, fit.back()) << "no crossing into the other set";
    for (std::size_t i = fit.size() - 1; i > 0; --i) {
      b.key(key::Z);
      EXPECT_EQ(b.state.drawColor, fit[i - 1]);
    }
  }
}

TEST(ZAndX, DoNothingWithAColourInNoSlot) {
  Brush b;
  b.state.drawColor = 123456;
  b.key(key::Z);
  b.key(key::X);
  EXPECT_EQ(b.state.drawColor, 123456);
}

TEST(CommaAndPeriod, SwitchBetweenTheTwoKindsOfColourAndRememberBoth) {
  Brush b;
  b.state.drawColor = kNavy;
  b.state.borderDrawColor = kLime;
  b.key(key::period);
  EXPECT_EQ(b.state.drawColor, kNavy) << "it is a background already";
  b.key(key::comma);
  EXPECT_EQ(b.state.drawColor, kLime);
  EXPECT_EQ(b.state.backgroundDrawColor, kNavy);
  b.key(key::comma);
  EXPECT_EQ(b.state.drawColor, kLime) << "it is a border already";
  b.state.drawColor = kRed;
  b.key(key::period);
  EXPECT_EQ(b.state.drawColor, kNavy);
  EXPECT_EQ(b.state.borderDrawColor, kRed);
}

TEST(CommaAndPeriod, RefuseAMazeColour) {
  Brush b;
  b.state.drawColor = kWhite;
  b.key(key::comma);
  b.key(key::period);
  EXPECT_EQ(b.state.drawColor, kWhite);
}

TEST(SlashAndQuote, ToggleTheBrushAndTakeTheColourForTheMaze) {
  Brush b;
  b.key(key::slash);
  EXPECT_TRUE(b.state.drawingOff);
  b.key(key::slash);
  EXPECT_FALSE(b.state.drawingOff);
  b.state.drawColor = kMaroon;
  b.key(key::quote);
  EXPECT_EQ(b.state.mazeColor, kMaroon);
}

}  // namespace
}  // namespace gridwright::test
