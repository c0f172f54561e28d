#include "solve/crossing.h"

#include <gtest/gtest.h>

#include <array>

#include "solve/firstnoxy.h"
#include "solve/play.h"
#include "solve/trail.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A row of cells along an axis: `-` joins two, `|` beside a cell a corridor runs across it.
/// Read backwards for left and up.
struct Tunnel : World {
  Tunnel(const std::string& row, int dx, int dy) : World(blank(row, dy != 0)), dx_(dx), dy_(dy) {
    cells_ = static_cast<int>(row.size() + 1) / 2;
    state.mazeKind = MazeKind::threeD;
    state.startColor = kFuchsia;
    state.finishColor = kRed;
    state.start = state.finish = {-50, -50, -43, -43};
    for (int i = 0; i < static_cast<int>(row.size()); ++i) {
      const char letter = row[static_cast<std::size_t>(i)];
      if (letter == 'O' || letter == '+') canvas.fill(cell(i / 2 + 1), kWhite);
      if (letter == '+') join(cell(i / 2 + 1), cell(i / 2 + 1).moved(dy == 0 ? 0 : 10, dy == 0 ? 10 : 0));
      if (letter == '-') join(cell(i / 2 + 1), cell(i / 2 + 2));
    }
  }
  static Bitmap blank(const std::string& row, bool vertical) {
    const auto cells = (row.size() + 1) / 2;
    return drawing(vertical ? Text(cells, "...") : Text(3, std::string(cells, '.')));
  }
  [[nodiscard]] Square cell(int n) const {
    const int at = dx_ + dy_ > 0 ? n : cells_ + 1 - n;
    return dy_ == 0 ? squareOf(at, 2) : squareOf(2, at);
  }
  void join(const Square& a, const Square& b) {
    canvas.fill(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom), kWhite);
  }
  /// The probe on the side of the cell that it goes to.
  void stand(int n, int sign = 1) {
    state.cur = state.prev = cell(n);
    const int dx = sign * dx_;
    const int dy = sign * dy_;
    state.solver.probeX = dx > 0 ? state.cur.right : dx < 0 ? state.cur.left : state.cur.left + 3;
    state.solver.probeY = dy > 0 ? state.cur.bottom : dy < 0 ? state.cur.top : state.cur.top + 3;
    state.deltaX = dx;
    state.deltaY = dy;
  }
  int dx_, dy_, cells_ = 0;
};

constexpr std::array kWays = {std::pair{-1, 0}, std::pair{1, 0}, std::pair{0, -1}, std::pair{0, 1}};

TEST(ACrossing, JumpsToTheExitInOneMoveInEachDirection) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O-O", dx, dy);
    t.stand(2);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(4)) << dx << ", " << dy;
    EXPECT_EQ(t.state.solver.pathUnderpasses, 1);
    EXPECT_EQ(t.state.solver.underpassLock, 0);
    EXPECT_EQ(t.state.deltaX, dx);
    EXPECT_EQ(t.state.deltaY, dy);
  }
}

TEST(ACrossing, BringsThePreviousCellAlongUnlessAPlayerLeavesNoTrail) {
  for (const auto& [dx, dy] : kWays) {
    for (const PlayMode play : {PlayMode::off, PlayMode::easy}) {
      for (const bool trailOff : {false, true}) {
        Tunnel t("O-O + O-O", dx, dy);
        t.state.playMode = play;
        t.state.trailOff = trailOff;
        t.stand(2);
        maze3dunderpass(t.program);
        EXPECT_EQ(t.state.cur, t.cell(4));
        const bool stays = play != PlayMode::off && trailOff;
        EXPECT_EQ(t.state.prev, t.cell(stays ? 2 : 4)) << dx << ", " << dy << " trail off: " << trailOff;
      }
    }
  }
}

TEST(AnExit, HasTheProbeOnePixelInAndHalfAStrokeOnTheSideOfArrival) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O-O", dx, dy);
    t.stand(2);
    maze3dunderpass(t.program);
    const Square& q = t.state.cur;
    const int nearX = dx < 0 ? q.right : q.left;
    const int nearY = dy < 0 ? q.bottom : q.top;
    EXPECT_EQ(dx != 0 ? t.state.solver.probeX : t.state.solver.probeY, dx != 0 ? nearX + dx : nearY + dy);
    const int cx = centreX(t.state, q), cy = centreY(t.state, q);
    const bool level = dx != 0;
    EXPECT_EQ(t.canvas.point(level ? nearX : cx, level ? cy : nearY), kFuchsia) << dx << ", " << dy;
    const int farX = dx < 0 ? q.left : q.right;
    const int farY = dy < 0 ? q.top : q.bottom;
    EXPECT_EQ(t.canvas.point(level ? farX : cx, level ? cy : farY), kWhite) << dx << ", " << dy;
  }
}

TEST(ACrossingWalkedBack, TakesBackWhatItCountedAndEveryStroke) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O-O", dx, dy);
    const Bitmap bare = t.canvas.image();
    t.state.finishMethod = FinishMethod::includeUnderpasses;
    t.stand(2);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.solver.pathLength, 2) << "the span";
    EXPECT_FALSE(samePicture(t.canvas.image(), bare));
    t.stand(4, -1);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(2));
    EXPECT_EQ(t.state.solver.pathUnderpasses, 0);
    EXPECT_EQ(t.state.solver.pathLength, 0);
  }
}

TEST(ANestedUnderpass, IsPassedByTheCounter) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O +-O + O-+ O-O", dx, dy);
    t.stand(2);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(8)) << dx << ", " << dy;
  }
}

TEST(ACellClosedAllRoundAtDepthOne, EndsTheScanAndLocksTheOtherAxis) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O + O-O", dx, dy);
    t.stand(2);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(4));
    EXPECT_EQ(t.state.solver.underpassLock, dx != 0 ? 1 : 2);
    t.stand(4);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(6)) << "and goes on along its own axis";
  }
}

TEST(ACrossing, NeedsTheProbeOnTheEdgeAndAFreeLock) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O-O", dx, dy);
    t.stand(2);
    t.state.solver.probeX = t.state.solver.probeY = 0;
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(2));
    t.stand(2);
    t.state.solver.underpassLock = dx != 0 ? 2 : 1;
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(2));
    EXPECT_EQ(t.state.solver.underpassLock, dx != 0 ? 2 : 1);
  }
}

TEST(AScanThatLeavesTheCanvas, IsNoCrossing) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + +", dx, dy);
    t.canvas.fill(0, 0, 9, t.canvas.scaleHeight() - 1, kWhite);  // carved up to every edge
    t.canvas.fill(0, 0, t.canvas.scaleWidth() - 1, 9, kWhite);
    t.stand(2);
    maze3dunderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(2));
    EXPECT_EQ(t.state.testCount, 0);
    EXPECT_EQ(t.state.solver.pathUnderpasses, 0);
  }
}

TEST(ACrossingThatLeavesTheStart, LeavesTheStartBoxWhole) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O-O", dx, dy);
    t.state.start = t.cell(2);
    t.canvas.fill(t.state.start, kFuchsia);
    t.stand(2);
    maze3dunderpass(t.program);
    const Square& q = t.state.start;
    for (int y = q.top; y <= q.bottom; ++y) {
      for (int x = q.left; x <= q.right; ++x) ASSERT_EQ(t.canvas.point(x, y), kFuchsia);
    }
  }
}

TEST(ALongCrossing, ReadsTwoSidesAtTheNearPixelWhileTheProbeMovesAlongThem) {
  struct Read {
    int dx, dy;          // of the crossing
    int sideX, sideY;    // from the cell's corner: one pixel outside a side across
    int deltaX, deltaY;  // of the probe, along that side
    bool isNear;
  };
  for (const Read& read :
       {Read{-1, 0, 0, 8, 0, 1, true}, Read{1, 0, 0, 8, 0, 1, false}, Read{0, -1, 8, 0, 1, 0, true},
        Read{0, 1, 8, 0, 1, 0, false}, Read{-1, 0, 0, -1, 0, -1, false}, Read{0, -1, -1, 0, -1, 0, false}}) {
    Tunnel t("O-O + O-O", read.dx, read.dy);
    t.state.mazeKind = MazeKind::pipe;
    t.state.shortUnderpasses = false;
    t.stand(2);
    t.state.deltaX = read.deltaX;
    t.state.deltaY = read.deltaY;
    const int x = t.cell(2).left + read.sideX;
    const int y = t.cell(2).top + read.sideY;
    t.canvas.fill(x, y, x, y, kWhite);
    longUnderpass(t.program);
    EXPECT_EQ(t.state.cur, t.cell(read.isNear ? 2 : 4))
        << read.dx << ", " << read.dy << " at " << read.sideX << ", " << read.sideY;
  }
}

TEST(ALongCrossingToTheRight, LooksForTheTrailHalfAHeightAlongTheRow) {
  for (const bool atHeight : {true, false}) {
    Tunnel t("O-O + O-O", 1, 0);
    t.state.mazeKind = MazeKind::pipe;
    t.state.shortUnderpasses = false;
    t.state.wallHeight = 14;
    t.stand(2);
    const Square q = t.cell(2);
    const int centre = q.top + 6;
    const int x = q.left + (atHeight ? 7 : 5);  // half of 14 or of the width, 10
    t.canvas.fill(x, centre, x, centre, kFuchsia);
    longUnderpass(t.program);
    ASSERT_EQ(t.state.cur, t.cell(4));
    const Colour stroke = atHeight ? kWhite : kFuchsia;  // taken back, or drawn
    EXPECT_EQ(t.canvas.point(q.left, centre), stroke);
    EXPECT_EQ(t.canvas.point(q.right, centre), stroke);
  }
}

TEST(AStartWithAnOpenSide, IsLeftAsTheWalkBegins) {
  Tunnel t("O-O + O-O", 1, 0);
  t.state.start = t.cell(2);
  t.state.solver.probeX = 1;
  firstnoxy(t.program);
  EXPECT_EQ(t.state.solver.probeX, 1);
  EXPECT_EQ(t.state.solver.underpassLock, 0);
}

TEST(AClosedStartInATunnelAlongTheRow, IsLeftByTheVerticalNumbersAndOneAcrossByTheHorizontal) {
  Tunnel row("O-O + O + O-O", 1, 0);
  row.state.start = row.cell(4);
  firstnoxy(row.program);
  EXPECT_EQ(row.state.solver.underpassLock, 1) << "only crossings along the row may follow";
  EXPECT_EQ(row.state.deltaY, 1);
  EXPECT_EQ(row.state.solver.probeX, row.state.start.left);
  Tunnel column("O-O + O + O-O", 0, 1);
  column.state.start = column.cell(4);
  firstnoxy(column.program);
  EXPECT_EQ(column.state.solver.underpassLock, 2);
  EXPECT_EQ(column.state.deltaX, 1);
  EXPECT_EQ(column.state.solver.probeY, column.state.start.top);
}

TEST(HardPlay, TakesAJumpBackThroughACrossingForATurn) {
  for (const auto& [dx, dy] : kWays) {
    Tunnel t("O-O + O-O", dx, dy);
    t.state.phase = Phase::solving;
    t.state.playMode = PlayMode::hard;
    t.state.start = t.cell(1);
    t.stand(4, -1);
    t.state.sweepX = t.cell(2).left;  // the cell before this one: the jump began there
    t.state.sweepY = t.cell(2).top;
    maze3dunderpass(t.program);
    ASSERT_EQ(t.state.cur, t.cell(2));
    playUpdate(t.program);
    EXPECT_EQ(t.state.cur, t.cell(1)) << "thrown back to the start";
    EXPECT_EQ(t.state.sweepX, -1);
  }
}

}  // namespace
}  // namespace gridwright::test
