#include "solve/play.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <random>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Row {
  int code, dx, dy;
};
constexpr std::array kRows = {Row{key::left, -1, 0}, Row{key::right, 1, 0}, Row{key::up, 0, -1},
                              Row{key::down, 0, 1}};

struct Playing : World {
  explicit Playing(char around) : World(drawing(Text(5, std::string(5, around)))) {
    state.phase = Phase::solving;
    state.playMode = PlayMode::easy;
    state.startColor = kFuchsia;
    state.finishColor = kRed;
    state.cur = squareOf(3, 3);
    canvas.fill(state.cur, kWhite);
  }
};

TEST(AnArrowOverAWay, MovesTheCell) {
  for (const Row& row : kRows) {
    Playing w('*');
    playKey(w.program, row.code);
    EXPECT_EQ(w.state.cur, squareOf(3 + row.dx, 3 + row.dy));
  }
}

TEST(AnArrowAgainstAWall, PutsTheWalkOnThatWallAndMovesNothing) {
  for (const Row& row : kRows) {
    Playing w('.');
    w.state.deltaX = row.dy;
    w.state.deltaY = row.dx;
    playKey(w.program, row.code);
    EXPECT_EQ(w.state.cur, squareOf(3, 3));
    EXPECT_EQ(w.state.deltaX, row.dx) << "the other delta is 0";
    EXPECT_EQ(w.state.deltaY, row.dy);
    const int edgeX = row.dx < 0 ? w.state.cur.left : w.state.cur.right;
    const int edgeY = row.dy < 0 ? w.state.cur.top : w.state.cur.bottom;
    EXPECT_EQ(row.dx != 0 ? w.state.solver.probeX : edgeX, edgeX);
    EXPECT_EQ(row.dy != 0 ? w.state.solver.probeY : edgeY, edgeY);
  }
}

TEST(AnArrowInALongPipe, IsRefusedWhereNearAndFarPixelDiffer) {
  for (const Row& row : kRows) {
    Playing w('.');
    w.state.mazeKind = MazeKind::pipe;
    w.state.shortUnderpasses = false;
    const Square far = w.state.cur.moved(row.dx * 2, row.dy * 2);
    w.canvas.fill(far, kWhite);
    w.canvas.fill(w.state.cur.moved(row.dx, row.dy), kNavy);  // the near pixel is wall
    w.canvas.fill(w.state.cur, kWhite);
    playKey(w.program, row.code);
    EXPECT_EQ(w.state.cur, squareOf(3, 3)) << row.code;
  }
}

TEST(Arrows, DoNothingWhilePlayIsOff) {
  for (const Row& row : kRows) {
    Playing w('*');
    w.state.playMode = PlayMode::off;
    playKey(w.program, row.code);
    EXPECT_EQ(w.state.cur, squareOf(3, 3));
    EXPECT_EQ(w.state.solver.probeX, 0);
  }
}

/// A corridor of one row, made and begun to play from its left end.
struct Corridor : World {
  explicit Corridor(Item mode, bool trail = true) {
    begin(drawing({"......"}));
    desktop.menu(Item::cgenerate);
    desktop.menu(mode);
    if (!trail) desktop.menu(Item::leavetrail);
    desktop.menu(Item::newmaze);
    desktop.untilPhase(Phase::placing);
    desktop.pumpsPass(1);
    desktop.menu(Item::solvemaze);
    desktop.untilPhase(Phase::solving);
    desktop.pumpsPass(3);
  }
  void press(int code, int times = 1) {
    for (int i = 0; i < times; ++i) {
      desktop.act([code](Program& p) { input::keyDown(p, code); });
      desktop.pumpsPass(1);
    }
  }
  static bool hasTrail(const Program& p, int column) {
    return p.canvas.point(10 * column + 5, 15) == p.state.startColor;
  }
};

/// A maze of a kind, played with arrows by chance; before each it is noted what the ways say.
struct WaysPlayed : World {
  int open = 0, closed = 0, tunnels = 0;
  std::string wrong;

  WaysPlayed(std::initializer_list<Item> kind, std::uint32_t seed) : World(Size{160, 120}) {
    begin(drawing({"..............", "..............", "....##........", "....##........", "..............",
                   "..............", "..............", ".............."}));
    desktop.menu(Item::cgenerate);
    desktop.look([seed](Program& p) { p.random.seed(seed); });
    for (const Item item : kind) desktop.menu(item);
    desktop.untilPhase(Phase::placing);
    desktop.menu(Item::easymode);
    desktop.menu(Item::solvemaze);
    desktop.untilPhase(Phase::solving);
    desktop.pumpsPass(3);
    std::mt19937 chance(seed);
    for (int i = 0; i < 300; ++i) tryArrow(chance() % kRows.size());
  }
  void tryArrow(std::size_t which) {
    auto before = std::make_shared<std::pair<Square, Way>>();
    desktop.look([before, which](Program& p) { *before = {p.state.cur, waysInPlay(p).at(which)}; });
    desktop.act([which](Program& p) {
      if (p.state.phase == Phase::solving) input::keyDown(p, kRows.at(which).code);
    });
    desktop.pumpsPass(2);
    desktop.look([this, before, which](Program& p) {
      if (p.state.phase != Phase::solving) return;
      const Square& was = before->first;
      const bool moved = p.state.cur != was;
      const int step = std::abs(p.state.cur.left - was.left) + std::abs(p.state.cur.top - was.top);
      const bool leapt = step > p.state.wallWidth;
      ++(before->second == Way::tunnel ? tunnels : moved ? open : closed);
      const bool asSaid = before->second == Way::tunnel ? leapt
                          : before->second == Way::open ? moved && !leapt
                                                        : !moved;
      if (!asSaid) wrong += " " + std::to_string(which) + " at " + std::to_string(was.left);
    });
  }
};

TEST(TheWaysOfWhoeverPlays, AreThoseThatTheArrowsTakeAndTunnelsAreLeapt) {
  int tunnels = 0;
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    WaysPlayed regular({Item::newmaze}, seed);
    EXPECT_EQ(regular.run(), "");
    EXPECT_EQ(regular.wrong, "") << seed;
    EXPECT_GT(regular.open, 20);
    EXPECT_GT(regular.closed, 20);
    WaysPlayed with({Item::create3d, Item::mode6, Item::create3d}, seed);
    EXPECT_EQ(with.run(), "");
    EXPECT_EQ(with.wrong, "") << seed;
    tunnels += with.tunnels;
  }
  EXPECT_GT(tunnels, 0);
}

TEST(EasyPlay, ReachesTheFinishByKeys) {
  for (const bool trail : {true, false}) {
    Corridor c(Item::easymode, trail);
    c.press(key::right, 5);
    c.desktop.untilPhase(Phase::solved);
    EXPECT_EQ(c.run(), "");
    EXPECT_EQ(c.program.controls.caption(), "Gridwright-(user has solved maze)");
  }
}

TEST(EasyPlayWalkedBack, TakesTheTrailBackCellByCell) {
  Corridor c(Item::easymode);
  c.press(key::right, 3);
  c.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.solver.pathLength, 3);
    EXPECT_TRUE(Corridor::hasTrail(p, 4));
  });
  for (int left = 2; left >= 1; --left) {
    c.press(key::left);
    c.desktop.look([left](Program& p) {
      EXPECT_EQ(p.state.solver.pathLength, left);
      EXPECT_FALSE(Corridor::hasTrail(p, left + 2));
      EXPECT_TRUE(Corridor::hasTrail(p, left)) << "up to the cell before this one";
    });
  }
  EXPECT_EQ(c.run(), "");
}

TEST(HardPlay, ThrowsBackToTheStartOnAnyTurnBack) {
  Corridor c(Item::hardmode);
  c.press(key::right, 3);
  c.press(key::left);
  c.desktop.look([](Program& p) {
    EXPECT_TRUE(p.state.cur.sameCorner(p.state.start));
    for (int column = 2; column <= 5; ++column) EXPECT_FALSE(Corridor::hasTrail(p, column)) << column;
  });
  c.press(key::right, 5);
  c.desktop.untilPhase(Phase::solved);
  EXPECT_EQ(c.run(), "") << "and it can be won after that";
}

TEST(LeaveTrail, TurnedOffLetsTheTrailVanishAndTurnedOnBeginsAtTheStart) {
  Corridor c(Item::easymode);
  c.press(key::right, 3);
  c.desktop.menu(Item::leavetrail);
  c.desktop.pumpsPass(2);
  c.desktop.look([](Program& p) {
    EXPECT_TRUE(p.state.cur.sameCorner(squareOf(4, 1))) << "the marker goes on from the same cell";
    EXPECT_EQ(p.canvas.point(41, 11), p.state.startColor) << "the whole cell is the marker";
    EXPECT_FALSE(Corridor::hasTrail(p, 2));
    EXPECT_FALSE(Corridor::hasTrail(p, 3));
  });
  c.desktop.menu(Item::leavetrail);
  c.desktop.pumpsPass(2);
  c.desktop.look([](Program& p) { EXPECT_TRUE(p.state.cur.sameCorner(p.state.start)); });
  EXPECT_EQ(c.run(), "");
}

TEST(AWalkInPlayThatBeginsAnew, LeavesOneDeltaAsItStands) {
  for (const int deltaY : {-1, 0, 1}) {
    Playing w('*');
    w.state.start = squareOf(2, 2);
    w.state.solver.trailOffSeen = true;  // the trail was off until now
    w.state.deltaX = 0;
    w.state.deltaY = deltaY;
    loadthispic(w.program);
    EXPECT_EQ(w.state.cur, squareOf(2, 2));
    EXPECT_EQ(w.state.prev, squareOf(2, 2));
    EXPECT_EQ(w.state.solver.probeX, 22);
    EXPECT_EQ(w.state.solver.probeY, 21);
    EXPECT_EQ(w.state.deltaX, 1);
    EXPECT_EQ(w.state.deltaY, deltaY);
  }
}

TEST(PlayTurnedOffInMidWalk, HandsTheWalkToTheComputer) {
  for (const bool trail : {true, false}) {
    Corridor c(Item::easymode, trail);
    c.press(key::right, 2);
    c.desktop.menu(Item::playmodeoff);
    c.desktop.untilPhase(Phase::solved);
    EXPECT_EQ(c.run(), "");
    EXPECT_EQ(c.program.controls.caption(), "Gridwright-(computer has solved maze)");
  }
}

TEST(PlayTurnedOffWithoutATrail, LeavesNoMarkerOnTheAnswer) {
  Corridor c(Item::easymode, false);
  c.press(key::right, 2);
  c.desktop.menu(Item::playmodeoff);
  c.desktop.untilPhase(Phase::solved);
  c.desktop.pumpsPass(2);
  EXPECT_EQ(c.run(), "");
  EXPECT_TRUE(samePicture(c.canvas.shownImage(), c.canvas.image()));
}

TEST(AWalkHandedOverAgain, GoesOnOverGroundItHasSeen) {
  for (int first = 20; first <= 60; first += 4) {
    Corridor c(Item::playmodeoff);
    c.desktop.pumpsPass(first);
    c.desktop.menu(Item::easymode);
    c.press(key::left, 2);
    c.desktop.menu(Item::playmodeoff);
    bool waited = false;
    c.desktop.until([&](const Program& p) {
      waited = waited || (p.state.phase == Phase::solving && c.desktop.lastPace == Pace::idle);
      return p.state.phase == Phase::solved;
    });
    if (const std::string why = c.run(); why != "" && why.find("not to be chosen") == std::string::npos)
      ADD_FAILURE() << why;
    EXPECT_FALSE(waited) << "after " << first;
  }
}

}  // namespace
}  // namespace gridwright::test
