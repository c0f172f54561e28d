#include "solve/finish_search.h"

#include <gtest/gtest.h>

#include <array>

#include "solve/play.h"
#include "solve/probe.h"
#include "solve/solvingmaze.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr Colour kOther = 0x123456;
constexpr Square kTakenOff{-100, -100, -100, -100};
constexpr std::array kSearches = {FinishMethod::largest, FinishMethod::includeUnderpasses,
                                  FinishMethod::mostUnderpasses};

/// A maze drawn by hand, every carved cell `*` joined with its carved neighbours, and a search in it.
struct Searching : World {
  Searching(const Text& cells, Square start, FinishMethod method = FinishMethod::largest)
      : World(drawing(cells)) {
    canvas.fill(0, 0, 999, 999, kNavy);
    const auto at = [&](std::size_t row, std::size_t column) {
      return row < cells.size() && column < cells[0].size() && cells[row][column] == '*';
    };
    for (std::size_t row = 0; row < cells.size(); ++row) {
      for (std::size_t column = 0; column < cells[0].size(); ++column) {
        if (!at(row, column)) continue;
        const Square q = squareOf(static_cast<int>(column) + 1, static_cast<int>(row) + 1);
        canvas.fill(q, kWhite);
        if (at(row, column + 1)) canvas.fill(q.left, q.top, q.right + 10, q.bottom, kWhite);
        if (at(row + 1, column)) canvas.fill(q.left, q.top, q.right, q.bottom + 10, kWhite);
      }
    }
    bare = canvas.image();
    state.phase = Phase::solving;
    state.start = start;
    state.finish = kTakenOff;
    state.startColor = kFuchsia - 1;
    state.finishColor = kRed - 1;
    state.ends.startMazeColor = state.ends.finishMazeColor = kWhite;
    state.finishMethod = state.solver.activeFinishMethod = method;
    canvas.fill(start, state.startColor);
    desktop.putFile("drawing2.bmp", canvas.image());
    putWalkOnStart(state);
  }
  /// \returns whether the search came to its end.
  bool search() {
    desktop.until([](const Program&) { return false; });
    try {
      solvingmaze(program);
    } catch (const ProgramEnd&) {
      return false;
    }
    return true;
  }
  Bitmap bare;  ///< The maze without ends.
};

// From (2, 2) two cells down, or three right and three down.
const Text kTwoArms = {"......", ".****.", ".*..*.", ".*..*.", "....*.", "......"};

TEST(ASearch, FindsTheFarthestCellAndLeavesTheMazeAsItWas) {
  Searching s(kTwoArms, squareOf(2, 2));
  ASSERT_TRUE(s.search());
  EXPECT_EQ(s.state.finish, squareOf(5, 5));
  EXPECT_EQ(s.state.solver.bestPathLength, 6);
  EXPECT_TRUE(s.state.finishFound);
  EXPECT_EQ(s.state.phase, Phase::placing);
  EXPECT_TRUE(samePicture(s.canvas.image(), s.bare)) << "no stub is left, and the start is covered";
}

TEST(ASearch, KeepsTheFirstAmongEquals) {
  // The walk heads right from the start's upper edge: the right end comes first.
  Searching s({".......", ".*****.", "......."}, squareOf(4, 2));
  ASSERT_TRUE(s.search());
  EXPECT_EQ(s.state.finish, squareOf(6, 2));
}

TEST(ASearch, IsNotEndedByStandingOnItsOwnBestCell) {
  Searching s(kTwoArms, squareOf(2, 2));
  int stood = 0;
  s.desktop.until([&](const Program& p) {
    stood += p.state.cur.sameCorner(p.state.finish) ? 1 : 0;
    EXPECT_EQ(p.state.phase, Phase::solving);
    return false;
  });
  solvingmaze(s.program);
  EXPECT_GT(stood, 0);
  EXPECT_EQ(s.state.phase, Phase::placing);
}

TEST(ASearchWithoutUnderpasses, FindsTheSameCellByEveryOption) {
  for (const FinishMethod method : kSearches) {
    Searching s(kTwoArms, squareOf(2, 2), method);
    s.state.mazeKind = MazeKind::threeD;
    ASSERT_TRUE(s.search());
    EXPECT_EQ(s.state.finish, squareOf(5, 5)) << static_cast<int>(method);
  }
}

TEST(ASearchInASingleCell, EndsWithoutABestCellAndKeepsTheCovers) {
  Searching s({"...", ".*.", "..."}, squareOf(2, 2));
  s.state.ends.underFinish = s.state.ends.finishMazeColor = kOther;
  ASSERT_TRUE(s.search());
  EXPECT_EQ(s.state.finish, kTakenOff);
  EXPECT_EQ(s.state.ends.underFinish, kOther) << "no pixel lies under a finish off the Canvas";
  EXPECT_EQ(s.state.ends.finishMazeColor, kOther);
  EXPECT_TRUE(s.state.finishFound);
  EXPECT_TRUE(samePicture(s.canvas.image(), s.bare));
}

TEST(TheBeginningOfAWalk, IsNoReturnToTheStart) {
  Searching s(kTwoArms, squareOf(2, 2));
  endsolution2(s.program);
  EXPECT_EQ(s.state.solver.startReturns, 0) << "the probe begins one pixel right of the corner";
  EXPECT_FALSE(searchEnded(s.program));
  probeStep(s.program);
  endsolution2(s.program);
  EXPECT_EQ(s.state.solver.startReturns, 0);
  EXPECT_FALSE(searchEnded(s.program));
}

TEST(TheProbeOnTheStartsCorner, EndsTheSearchHeadingRightOrTheSecondTime) {
  struct Arrival {
    int returnsBefore, deltaX, deltaY;
    bool ends;
  };
  for (const Arrival& a :
       {Arrival{0, 1, 0, true}, Arrival{0, 0, 1, false}, Arrival{0, -1, 0, false}, Arrival{1, 0, -1, true},
        Arrival{1, -1, 0, true}, Arrival{1, 1, 0, true}, Arrival{2, 0, 1, false}}) {
    Searching s(kTwoArms, squareOf(2, 2));
    s.state.solver.probeX = s.state.start.left;
    s.state.deltaX = a.deltaX;
    s.state.deltaY = a.deltaY;
    s.state.solver.startReturns = a.returnsBefore;
    endsolution2(s.program);
    EXPECT_EQ(s.state.solver.startReturns, a.returnsBefore + 1) << "counted before it is asked for";
    EXPECT_EQ(searchEnded(s.program), a.ends) << a.returnsBefore << ": " << a.deltaX << ", " << a.deltaY;
  }
}

TEST(AWalkThatRepeatsInTheStartCell, EndsTheSearch) {
  Searching s(kTwoArms, squareOf(2, 2));
  SolverState& solver = s.state.solver;
  solver.probeX = s.state.start.left + 4;
  solver.probeY = s.state.start.bottom;
  s.state.deltaX = -1;
  EXPECT_FALSE(searchEnded(s.program));
  solver.underpassLock = 2;
  EXPECT_FALSE(searchEnded(s.program)) << "another lock is another walk";
  s.state.deltaX = 0;
  s.state.deltaY = 1;
  EXPECT_FALSE(searchEnded(s.program));
  ++solver.probeX;
  EXPECT_FALSE(searchEnded(s.program));
  --solver.probeX;
  s.state.paused = true;
  EXPECT_FALSE(searchEnded(s.program)) << "nothing ends under an open panel";
  s.state.paused = false;
  EXPECT_TRUE(searchEnded(s.program));
}

TEST(AWalkThatRepeatsElsewhere, GoesOn) {
  Searching s(kTwoArms, squareOf(2, 2));
  s.state.cur = squareOf(3, 2);
  s.state.solver.probeX = s.state.cur.left;
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(searchEnded(s.program));
}

TEST(NothingOfASearch, HappensWhilePausedOrWithoutOne) {
  for (const bool paused : {true, false}) {
    Searching s(kTwoArms, squareOf(2, 2));
    s.state.paused = paused;
    if (!paused) s.state.finishMethod = FinishMethod::user;
    s.state.solver.probeX = s.state.start.left;
    endsolution2(s.program);
    EXPECT_EQ(s.state.solver.startReturns, 0);
    EXPECT_FALSE(searchEnded(s.program));
    s.state.solver.pathLength = 9;
    if (!paused) bestCellTest(s.state);
    EXPECT_EQ(s.state.finish, kTakenOff);
  }
}

TEST(TheEndOfASearch, TakesTheCoversFromTheFoundCellAndGivesThePlayModeBack) {
  Searching s(kTwoArms, squareOf(2, 2));
  s.program.colours.setMaze(2, kOther);
  s.state.finish = squareOf(5, 4);
  s.canvas.fill(s.state.finish, kOther);
  s.state.ends.startMazeColor = kOther;
  s.state.chosenPlayMode = PlayMode::hard;
  s.state.solver.probeX = s.state.start.left;
  ASSERT_TRUE(searchEnded(s.program));
  EXPECT_EQ(s.state.ends.underFinish, kOther);
  EXPECT_EQ(s.state.ends.finishMazeColor, kOther);
  EXPECT_EQ(s.state.playMode, PlayMode::hard);
  EXPECT_EQ(s.canvas.point(s.state.start.left, s.state.start.top), kOther);
  EXPECT_EQ(s.canvas.point(s.state.start.right, s.state.start.bottom), kOther);
}

/// A side of the start at (3, 3), which is 31 to 38 with its centre at 35.
struct Side {
  const char* name;
  int cornerX, cornerY;  // whose colour the stub takes
  int trailX, trailY;    // where the trail is asked for
  int endX, endY;        // of the stub
  bool asksTrail;
};
constexpr std::array kSides = {
    Side{"left", 30, 32, 28, 35, 25, 35, true}, Side{"right", 40, 32, 43, 35, 45, 35, true},
    Side{"up", 32, 30, 35, 28, 35, 25, true}, Side{"down", 32, 40, 35, 43, 35, 45, false}};

struct AtStart : Searching {
  AtStart() : Searching({".....", "..*..", ".***.", "..*..", "....."}, squareOf(3, 3)) {
    program.colours.setMaze(2, kOther);
    state.solver.probeX = state.start.left;
  }
};

TEST(AStubBesideTheStart, IsClearedInTheColourOfItsCorner) {
  for (const Side& side : kSides) {
    AtStart s;
    s.canvas.fill(35, 35, side.endX, side.endY, s.state.startColor);
    s.canvas.fill(side.cornerX, side.cornerY, side.cornerX, side.cornerY, kOther);
    ASSERT_TRUE(searchEnded(s.program));
    Canvas expected;
    expected.resize({s.bare.width, s.bare.height});
    expected.paintPicture(s.bare);
    expected.fill(35, 35, side.endX, side.endY, kOther);
    expected.fill(side.cornerX, side.cornerY, side.cornerX, side.cornerY, kOther);
    // Downward no trail is asked for, so its stroke is drawn whichever side the trail is on.
    if (side.asksTrail) expected.fill(35, 35, 35, 45, kWhite);
    expected.fill(s.state.start, kWhite);
    EXPECT_TRUE(samePicture(s.canvas.image(), expected.image())) << side.name;
  }
}

TEST(AStubBesideTheStart, IsLeftWhereNoTrailShowsButDownward) {
  for (const Side& side : kSides) {
    AtStart s;
    s.canvas.fill(side.endX, side.endY, side.endX, side.endY, kRed);  // the stub's last pixel
    ASSERT_NE(s.canvas.point(side.trailX, side.trailY), s.state.startColor);
    ASSERT_TRUE(searchEnded(s.program));
    EXPECT_EQ(s.canvas.point(side.endX, side.endY), side.asksTrail ? kRed : kWhite) << side.name;
  }
}

TEST(AStubBesideTheStart, IsLeftBehindAWall) {
  for (const Side& side : kSides) {
    AtStart s;
    s.canvas.fill(side.trailX, side.trailY, side.endX, side.endY, s.state.startColor);
    s.canvas.fill(side.cornerX, side.cornerY, side.cornerX, side.cornerY, kNavy);
    ASSERT_TRUE(searchEnded(s.program));
    EXPECT_EQ(s.canvas.point(side.endX, side.endY), s.state.startColor) << side.name;
  }
}

TEST(ACell, WinsByTheRulesOfItsOption) {
  struct Case {
    FinishMethod method;
    int length, underpasses;  // the best has length 5 and 2 underpasses
    bool wins;
  };
  using F = FinishMethod;
  for (const Case& c :
       {Case{F::largest, 6, 0, true}, Case{F::largest, 5, 9, false}, Case{F::largest, 4, 9, false},
        Case{F::largest, 6, 9, true}, Case{F::includeUnderpasses, 6, 0, true},
        Case{F::includeUnderpasses, 5, 9, false}, Case{F::mostUnderpasses, 1, 3, true},
        Case{F::mostUnderpasses, 6, 2, true}, Case{F::mostUnderpasses, 5, 2, false},
        Case{F::mostUnderpasses, 6, 1, false}, Case{F::mostUnderpasses, 9, 3, true}}) {
    ProgramState s;
    s.finishMethod = c.method;
    s.finish = kTakenOff;
    s.canvasWidth = s.canvasHeight = 100;
    s.cur = squareOf(2, 2);
    s.solver.bestPathLength = 5;
    s.solver.bestPathUnderpasses = 2;
    s.solver.pathLength = c.length;
    s.solver.pathUnderpasses = c.underpasses;
    bestCellTest(s);
    const std::string what = std::to_string(static_cast<int>(c.method)) + ": " + std::to_string(c.length) +
                             ", " + std::to_string(c.underpasses);
    EXPECT_EQ(s.finish, c.wins ? squareOf(2, 2) : kTakenOff) << what;
    EXPECT_EQ(s.solver.bestPathLength, c.wins ? c.length : 5) << what;
    EXPECT_EQ(s.solver.bestPathUnderpasses, c.wins ? c.underpasses : 2) << what;
  }
}

TEST(APlayMode, IsParkedDuringASearchAndComesBackAtItsEnd) {
  Searching s(kTwoArms, squareOf(2, 2));
  s.desktop.pumpsPass(5);
  s.desktop.act([](Program& p) { p.state.playMode = PlayMode::easy; });
  s.desktop.pumpsPass(2);
  s.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.playMode, PlayMode::off);
    EXPECT_EQ(p.state.chosenPlayMode, PlayMode::easy);
  });
  ASSERT_TRUE(s.search());
  EXPECT_EQ(s.state.playMode, PlayMode::easy);
  EXPECT_EQ(s.state.finish, squareOf(5, 5)) << "the computer walked on";
}

TEST(APlayModeChosenDuringASearch, IsTickedAndWaits) {
  Searching s(kTwoArms, squareOf(2, 2));
  hardmode(s.program);
  EXPECT_TRUE(s.program.menus.checked(Item::hardmode));
  EXPECT_EQ(s.state.playMode, PlayMode::off);
}

TEST(AnOptionChangedDuringASearch, PutsTheMazeBackAndGoesToPlacing) {
  for (const FinishMethod method : {FinishMethod::user, FinishMethod::mostUnderpasses}) {
    Searching s(kTwoArms, squareOf(2, 2));
    s.state.ends.savedFinish = squareOf(2, 4);
    s.desktop.pumpsPass(30);
    s.desktop.act([method](Program& p) {
      EXPECT_NE(p.state.finish, kTakenOff) << "well under way";
      p.state.finishMethod = method;
    });
    ASSERT_TRUE(s.search());
    EXPECT_EQ(s.state.phase, Phase::placing);
    EXPECT_FALSE(s.state.finishFound);
    EXPECT_EQ(s.state.finish, method == FinishMethod::user ? squareOf(2, 4) : kTakenOff);
    EXPECT_TRUE(samePicture(s.canvas.image(), *s.desktop.file("drawing2.bmp")));
  }
}

/// The option was changed to `method`, with the finish at (5, 4) and that colour under it.
struct Changed : Searching {
  Changed(FinishMethod method, Colour under) : Searching(kTwoArms, squareOf(2, 2), method) {
    program.colours.setMaze(2, kOther);
    state.finish = state.ends.savedFinish = squareOf(5, 4);
    if (method == FinishMethod::user) state.finish = kTakenOff;
    state.finishFound = true;
    state.chosenPlayMode = PlayMode::easy;
    canvas.fill(squareOf(5, 4), under);
    desktop.putFile("drawing2.bmp", canvas.image());
    canvas.fill(0, 0, 999, 999, kGreen);  // whatever the walk has left
    finishMethodChanged(program);
    EXPECT_EQ(state.phase, Phase::placing);
    EXPECT_EQ(canvas.point(21, 21), state.startColor) << "the picture is back";
  }
  [[nodiscard]] Colour atFinish() const { return canvas.point(51, 41); }
};

TEST(AChangeToTheUsersFinish, TakesThePlaceAndThePlayModeBack) {
  const Changed carved(FinishMethod::user, kOther);
  EXPECT_EQ(carved.state.finish, squareOf(5, 4));
  EXPECT_EQ(carved.state.ends.underFinish, kOther);
  EXPECT_EQ(carved.state.ends.finishMazeColor, kOther);
  EXPECT_EQ(carved.state.playMode, PlayMode::easy);
  EXPECT_EQ(carved.atFinish(), kWhite) << "filled in the present maze colour";
  const Changed marked(FinishMethod::user, kRed - 1);
  EXPECT_EQ(marked.state.ends.finishMazeColor, kWhite) << "an end's colour is no cover";
  EXPECT_EQ(marked.atFinish(), kWhite);
}

TEST(AChangeToAnotherSearch, TakesAFinishOffOnlyWhereMazeLies) {
  for (const FinishMethod method : kSearches) {
    const Changed carved(method, kOther);
    EXPECT_FALSE(carved.state.finishFound);
    EXPECT_EQ(carved.state.finish, kTakenOff);
    EXPECT_EQ(carved.atFinish(), kOther) << "nothing is filled";
    EXPECT_EQ(carved.state.playMode, PlayMode::off);
    const Changed marked(method, kRed - 1);
    EXPECT_FALSE(marked.state.finishFound);
    EXPECT_EQ(marked.state.finish, squareOf(5, 4)) << "the finish is painted there";
    EXPECT_EQ(marked.atFinish(), kWhite);
  }
}

}  // namespace
}  // namespace gridwright::test
