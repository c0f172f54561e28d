#include "solve/solvingmaze.h"

#include <gtest/gtest.h>

#include <array>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A maze drawn by hand, its ends placed, about to be solved. Cells are joined as the text says: every
/// carved cell `*` is joined with its carved neighbours.
struct Solving : World {
  Solving(const Text& cells, Square start, Square finish) : World(drawing(cells)), way(cells) {
    canvas.fill(0, 0, 999, 999, kNavy);
    for (int row = 1; row <= static_cast<int>(cells.size()); ++row) {
      for (int column = 1; column <= static_cast<int>(cells[0].size()); ++column) {
        if (!at(column, row)) continue;
        const Square q = squareOf(column, row);
        canvas.fill(q, kWhite);
        if (at(column + 1, row)) canvas.fill(q.left, q.top, q.right + 10, q.bottom, kWhite);
        if (at(column, row + 1)) canvas.fill(q.left, q.top, q.right, q.bottom + 10, kWhite);
      }
    }
    state.phase = Phase::solving;
    state.start = start;
    state.finish = finish;
    state.startColor = kFuchsia - 1;
    state.finishColor = kRed - 1;
    state.ends.startMazeColor = kWhite;
    canvas.fill(start, state.startColor);
    canvas.fill(finish, state.finishColor);
    putWalkOnStart(state);
  }
  [[nodiscard]] bool at(int column, int row) const {
    return row >= 1 && row <= static_cast<int>(way.size()) && column >= 1 &&
           column <= static_cast<int>(way[0].size()) &&
           way[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)] == '*';
  }
  void solve() {
    desktop.untilPhase(Phase::solved);
    try {
      solvingmaze(program);
    } catch (const ProgramEnd&) {
    }
  }
  Text way;
};

TEST(StartAndFinishInAdjacentCells, TakeOneStrokeTheStubAndPhaseFour) {
  Solving s({"....", ".**.", "...."}, squareOf(2, 2), squareOf(3, 2));
  Bitmap expected = s.canvas.image();
  // From the passage into the finish and to its centre; the start is whole.
  for (int x = 29; x <= 35; ++x) pixelAt(expected, x, 25) = kFuchsia - 1;
  s.solve();
  EXPECT_EQ(s.state.phase, Phase::solved);
  EXPECT_TRUE(samePicture(s.canvas.image(), expected));
  EXPECT_EQ(s.program.controls.caption(), "Gridwright-(computer has solved maze)");
}

TEST(AFinishEntered, HasItsStubOnTheSideOfArrival) {
  struct Side {
    const char* name;
    int column, row;             // of the start, the finish at (3, 3)
    int fromX, fromY, toX, toY;  // the stub
  };
  // The finish is 31 to 38, its centre 35.
  constexpr auto kSides = std::to_array<Side>({{"left", 2, 3, 31, 35, 35, 35},
                                               {"right", 4, 3, 35, 35, 38, 35},
                                               {"above", 3, 2, 35, 31, 35, 35},
                                               {"below", 3, 4, 35, 35, 35, 38}});
  for (const Side& side : kSides) {
    Text cells(5, ".....");
    cells[2][2] = cells[static_cast<std::size_t>(side.row - 1)][static_cast<std::size_t>(side.column - 1)] =
        '*';
    Solving s(cells, squareOf(side.column, side.row), squareOf(3, 3));
    s.solve();
    for (int y = 31; y <= 38; ++y) {
      for (int x = 31; x <= 38; ++x) {
        const bool stub = x >= side.fromX && x <= side.toX && y >= side.fromY && y <= side.toY;
        ASSERT_EQ(s.canvas.point(x, y), stub ? kFuchsia - 1 : kRed - 1) << side.name << " " << x << ", " << y;
      }
    }
  }
}

TEST(TheAnswer, LeavesNoTraceInTheDeadEnds) {
  Solving s({"*******", "*.*.*.*", "*.*.*.*", "..*....", "****..."}, squareOf(1, 5), squareOf(7, 3));
  s.desktop.limit = 1'000'000;
  s.solve();
  ASSERT_EQ(s.state.phase, Phase::solved);
  for (const auto& [column, row] : {std::pair{1, 1}, std::pair{1, 3}, std::pair{5, 3}, std::pair{4, 5}}) {
    const Square q = squareOf(column, row);
    for (int y = q.top; y <= q.bottom; ++y) {
      for (int x = q.left; x <= q.right; ++x)
        ASSERT_EQ(s.canvas.point(x, y), kWhite) << column << ", " << row;
    }
  }
}

const std::vector<std::string> kNoWay = {"Error: there is no way from start to finish."};

TEST(AMazeWithoutAWay, IsSaidOnceAndTheEndsArePlacedAnew) {
  Solving s({"....", "**.*", "...."}, squareOf(1, 2), squareOf(4, 2));
  s.desktop.limit = 500;
  s.state.ends.kept = {1, 2, 3, 4};
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_EQ(s.desktop.messages, kNoWay);
  EXPECT_EQ(s.state.phase, Phase::placing);
  EXPECT_EQ(s.state.mazeStage, Phase::solving);
  EXPECT_EQ(s.state.ends.startMazeColor, 3) << "the cover colours come back";
  EXPECT_EQ(s.state.ends.finishMazeColor, 4);
}

TEST(ATrailThatComesBackAnotherWay, IsAMazeWithoutAWayAllTheSame) {
  Solving s({"***..", "*.*..", "***.*"}, squareOf(1, 1), squareOf(5, 3));
  s.desktop.limit = 5'000;
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_EQ(s.desktop.messages, kNoWay);
  EXPECT_EQ(s.state.phase, Phase::placing);
}

TEST(AWalkRoundAnIsland, IsGivenUpForTheShortestWayToTheFinish) {
  // The hand lies on the island's wall; the finish hangs on the ring from without.
  Solving s({".......", ".*****.", ".*...*.", ".*****.", "....*..", "......."}, squareOf(3, 4),
            squareOf(5, 5));
  Bitmap expected = s.canvas.image();
  s.desktop.putFile("drawing2.bmp", expected);
  const auto stroke = [&](int left, int top, int right, int bottom) {
    for (int y = top; y <= bottom; ++y) {
      for (int x = left; x <= right; ++x) pixelAt(expected, x, y) = kFuchsia - 1;
    }
  };
  stroke(39, 45, 55, 45);  // out of the start, which is whole
  stroke(55, 45, 55, 55);  // and down into the finish
  s.desktop.limit = 5'000;
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_TRUE(s.desktop.messages.empty());
  EXPECT_EQ(s.state.phase, Phase::solved);
  EXPECT_EQ(s.state.solver.pathLength, 3);
  EXPECT_TRUE(samePicture(s.canvas.image(), expected));
}

TEST(AWalkThatNeverComesBackToTheStart, IsStoppedToo) {
  Solving s({".......", ".*****.", ".*****.", ".*****.", ".*****.", ".*****.", ".......", "......*"},
            squareOf(4, 4), squareOf(7, 8));
  s.canvas.fill(21, 21, 68, 68, kWhite);  // open ground without a wall, as white paper is
  s.canvas.fill(s.state.start, s.state.startColor);
  s.desktop.limit = 20'000;
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_EQ(s.desktop.messages, kNoWay);
  EXPECT_EQ(s.state.phase, Phase::placing);
}

/// A walk that lost its walls, far away by now.
void putBeyondTheCanvas(Solving& s) {
  s.state.cur = s.state.prev = squareOf(4, 3);
  s.state.solver.probeX = s.canvas.scaleWidth() + 1'000;
  s.state.solver.probeY = 35;
}

TEST(AWalkThatHasLeftTheCanvas, IsStoppedAsOneInACircle) {
  Solving s({"....", "**.*", "...."}, squareOf(1, 2), squareOf(4, 2));
  putBeyondTheCanvas(s);
  s.desktop.limit = 5'000;
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_EQ(s.desktop.messages, kNoWay);
  EXPECT_EQ(s.state.phase, Phase::placing);
}

TEST(ASearchThatHasLeftTheCanvas, EndsWithTheBestCellSoFar) {
  Solving s({"....", "**.*", "...."}, squareOf(1, 2), squareOf(4, 2));
  s.state.finishMethod = s.state.solver.activeFinishMethod = FinishMethod::largest;
  putBeyondTheCanvas(s);
  s.desktop.limit = 5'000;
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_TRUE(s.desktop.messages.empty());
  EXPECT_TRUE(s.state.finishFound);
  EXPECT_EQ(s.state.phase, Phase::placing);
}

TEST(AMarkerWithoutATrail, IsGoneWhenTheComputerTakesOverAndThePictureStays) {
  const Text cells = {"......", ".****.", ".*..*.", "......"};
  Solving alone(cells, squareOf(2, 2), squareOf(5, 3));
  alone.solve();
  Solving takenOver(cells, squareOf(2, 2), squareOf(5, 3));
  takenOver.canvas.setAutoRedraw(false);
  takenOver.canvas.fill(squareOf(2, 3), kRed);  // where the person stood, on the screen alone
  takenOver.canvas.setAutoRedraw(true);
  takenOver.state.solver.playModeSeen = PlayMode::easy;
  takenOver.state.solver.trailOffSeen = true;
  takenOver.solve();
  EXPECT_EQ(takenOver.state.phase, Phase::solved);
  EXPECT_TRUE(samePicture(takenOver.canvas.image(), alone.canvas.image()));
  EXPECT_TRUE(samePicture(takenOver.canvas.shownImage(), alone.canvas.shownImage()));
}

TEST(AWindowMinimisedForTheWork, IsThereAgainWhenItSaysThatThereIsNoWay) {
  Solving s({"....", "**.*", "...."}, squareOf(1, 2), squareOf(4, 2));
  s.desktop.limit = 500;
  s.state.autoMinimize = true;
  s.solve();
  EXPECT_EQ(s.desktop.states, (std::vector{WindowState::minimised, WindowState::maximised}));
  EXPECT_EQ(s.desktop.messages, kNoWay);
}

TEST(AWalkWithoutAWay, GoesOnAsLongAsAPersonTypes) {
  Solving s({"....", "**.*", "...."}, squareOf(1, 2), squareOf(4, 2));
  s.desktop.limit = 5'000;
  for (int i = 0; i < 60; ++i) {
    s.desktop.act([](Program& p) { input::keyDown(p, 65); });
    s.desktop.pumpsPass(20);  // less than a round
  }
  s.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::solving);
    EXPECT_TRUE(s.desktop.messages.empty());
  });
  s.solve();
  EXPECT_EQ(s.desktop.trouble, "");
  EXPECT_EQ(s.desktop.messages, kNoWay) << "when nothing is typed any more";
}

TEST(AUserWhoPlaysWithoutAWay, IsNotStopped) {
  for (const bool trailOff : {false, true}) {
    Solving s({"....", "**.*", "...."}, squareOf(1, 2), squareOf(4, 2));
    s.program.pictures.save("drawing2.bmp", s.canvas.image());
    s.program.menus.setChecked(Item::easymode, true);
    s.state.trailOff = trailOff;
    for (int i = 0; i < 5; ++i) {
      for (const int code : {key::right, key::left}) {
        s.desktop.act([code](Program& p) { input::keyDown(p, code); });
        s.desktop.pumpsPass(50);
      }
    }
    s.solve();
    EXPECT_EQ(s.state.phase, Phase::solving);
    EXPECT_EQ(s.state.cur, squareOf(1, 2));
    EXPECT_TRUE(s.desktop.messages.empty());
  }
}

TEST(ASolvedMaze, WaitsForACommandWithoutCost) {
  Solving s({"....", ".**.", "...."}, squareOf(2, 2), squareOf(3, 2));
  s.desktop.untilPhase(Phase::solved);
  s.desktop.pumpsPass(10);
  s.desktop.act([](Program& p) { p.state.phase = Phase::making; });
  solvingmaze(s.program);
  EXPECT_EQ(s.state.phase, Phase::making);
  EXPECT_EQ(s.desktop.lastPace, Pace::idle);
}

TEST(EachPhaseThatOthersOwn, LeavesTheLoopFromSolvingAndFromSolved) {
  for (const Phase wait : {Phase::solving, Phase::solved}) {
    for (const Phase phase : {Phase::quitToTitle, Phase::drawing, Phase::making, Phase::placing}) {
      Solving s({".....", ".***.", "....."}, squareOf(2, 2), squareOf(4, 2));
      s.state.ends.kept = {1, 2, 3, 4};
      if (wait == Phase::solved) s.desktop.untilPhase(Phase::solved);
      s.desktop.act([phase](Program& p) { p.state.phase = phase; });
      solvingmaze(s.program);
      EXPECT_EQ(s.state.phase, phase);
      EXPECT_EQ(s.state.ends.finishMazeColor, phase == Phase::placing ? 4 : 0)
          << "the cover colours come back for placing alone";
    }
  }
}

TEST(ThePathLength, CountsTheCellsOfThePresentTrail) {
  Solving s({"*****", "..*..", "..*..", "....."}, squareOf(1, 1), squareOf(5, 1));
  s.solve();
  EXPECT_EQ(s.state.solver.pathLength, 3) << "cells two, three and four; the dead end counted down again";
}

TEST(AWalkColour, IsMadeGoodAtTheEntry) {
  Solving s({"....", ".**.", "...."}, squareOf(2, 2), squareOf(3, 2));
  s.state.mazeColor = kNavy;
  s.state.ends.startMazeColor = kBlue;
  s.program.colours.setMaze(0, kLime);
  s.desktop.act([](Program& p) { EXPECT_EQ(p.state.mazeColor, kLime) << "the first of the maze colours"; });
  s.solve();
}

TEST(WithoutATrailInPlay, ThePixelsAndThePathLengthStandStill) {
  Solving s({".....", ".***.", "....."}, squareOf(2, 2), squareOf(4, 2));
  s.program.menus.setChecked(Item::easymode, true);
  s.state.trailOff = s.state.solver.trailOffSeen = true;  // play goes on, it does not begin here
  s.state.solver.playModeAtPause = PlayMode::easy;
  const Bitmap before = s.canvas.image();
  s.desktop.act([](Program& p) { p.state.cur = squareOf(3, 2); });
  s.desktop.pumpsPass(3);
  try {
    solvingmaze(s.program);
  } catch (const ProgramEnd&) {
  }
  EXPECT_EQ(s.state.solver.pathLength, 0);
  EXPECT_TRUE(samePicture(s.canvas.image(), before));
}

TEST(TheWindow, IsMinimisedWhileSolvingAndComesBackSolved) {
  Solving s({".....", ".***.", "....."}, squareOf(2, 2), squareOf(4, 2));
  s.state.autoMinimize = true;
  s.solve();
  EXPECT_EQ(s.desktop.states, (std::vector{WindowState::minimised, WindowState::maximised}));
  EXPECT_EQ(s.desktop.raised, 1);
}

}  // namespace
}  // namespace gridwright::test
