#include "menus/status_words.h"

#include <gtest/gtest.h>

#include "menus/growth.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A state with walls of 10 pixels and the square, cell by cell, where a test wants it.
ProgramState at(Phase phase) {
  ProgramState s;
  s.phase = phase;
  s.cur = {30, 20, 39, 29};
  return s;
}

std::string words(const ProgramState& s) { return statusWords(statusOf(s)); }

TEST(InDrawing, TheColourTheSquareAndTheBrushAreTold) {
  ProgramState s = at(Phase::drawing);
  s.drawColor = qb::yellow;
  EXPECT_EQ(words(s), "drawing, walls 10; yellow, 1 cell at column 3, row 2, drawing on");
  EXPECT_EQ(statusOf(s).colour, qb::yellow);
  s.cur = {20, 10, 49, 29};
  s.drawColor = kPalette[1];
  s.drawingOff = true;
  EXPECT_EQ(words(s), "drawing, walls 10; navy, 3 x 2 cells at column 2, row 1, drawing off");
}

TEST(OnThePipeGrid, CellsLieTwoWallsApart) {
  ProgramState s = at(Phase::drawing);
  s.stepX = s.stepY = 20;
  s.cur = {50, 10, 79, 19};
  EXPECT_EQ(words(s), "drawing, walls 10; black, 2 x 1 cells at column 3, row 1, drawing on");
}

TEST(AColour, HasItsPaletteNameElseItsRedGreenAndBlue) {
  EXPECT_EQ(colourWords(0), "black");
  EXPECT_EQ(colourWords(8388608), "navy");
  EXPECT_EQ(colourWords(255), "red");
  EXPECT_EQ(colourWords(16777215), "white");
  EXPECT_EQ(colourWords(254), "colour 254,0,0");
  EXPECT_EQ(colourWords(0x030201), "colour 1,2,3");
}

TEST(AMazeMadeByHand, TellsTheWalkersColourAndPlace) {
  ProgramState s = at(Phase::making);
  s.cur = squareOf(3, 2);
  s.mazeColor = kWhite;
  EXPECT_EQ(words(s),
            "making the maze, walls 10; arrows carve; J lets the computer; white, square at column 3, row 2");
}

TEST(AMazeThatTheComputerCarves, ChangesNothingThatIsTold) {
  ProgramState s = at(Phase::making);
  s.creationMode = CreationMode::computer;
  const Status before = statusOf(s);
  EXPECT_EQ(statusWords(before), "making the maze, walls 10; the computer carves");
  s.cur = s.prev = squareOf(17, 9);
  s.mazeColor = kPalette[4];
  s.stepCode = 3;
  EXPECT_EQ(statusOf(s), before);
}

TEST(AMazeThatGrows, TellsWhatIsCarvedWhatIsLeftAndItsSeconds) {
  ProgramState s = at(Phase::making);
  s.creationMode = CreationMode::computer;
  EXPECT_EQ(statusWords(statusOf(s, {Growth{1, 2345}, 59})),
            "making the maze, walls 10; the computer carves; 1 cell carved, 2345 left, 59 s");
  EXPECT_EQ(statusWords(statusOf(s, {Growth{70, 0}, 61})),
            "making the maze, walls 10; the computer carves; 70 cells carved, 0 left, 1 min 1 s");
  s.creationMode = CreationMode::user;
  s.mazeColor = kWhite;
  EXPECT_EQ(statusWords(statusOf(s, {Growth{70, 3}, 61})),
            "making the maze, walls 10; arrows carve; J lets the computer; 70 cells carved, 3 left, "
            "1 min 1 s; white, square at column 3, row 2");
  s.phase = Phase::placing;
  EXPECT_EQ(statusWords(statusOf(s, {Growth{70, 3}, 61})), "start and finish, walls 10");
}

TEST(ARun, TellsTheMazesThatAreDoneAndThoseToCome) {
  ProgramState s = at(Phase::making);
  s.creationMode = CreationMode::computer;
  s.print.printMode = PrintMode::withAnswers;
  s.print.printTotal = 40;
  s.print.printedCount = 1;
  EXPECT_EQ(words(s), "making the maze, walls 10; 1 maze done, 39 to come; the computer carves");
  EXPECT_EQ(statusOf(s).run, (RunStatus{1, 40}));
}

TEST(InPlay, StepsAndTimeAreToldAndInTheEndToo) {
  ProgramState s = at(Phase::solving);
  s.playMode = PlayMode::hard;
  s.solver.playSteps = 1;
  EXPECT_EQ(statusWords(statusOf(s, {std::nullopt, 75})),
            "solving, walls 10; 1 step, 1 min 15 s; square at column 3, row 2");
  s.phase = Phase::solved;
  s.solver.playSteps = 12;
  s.start = squareOf(1, 1);
  s.finish = squareOf(4, 2);
  EXPECT_EQ(statusWords(statusOf(s, {std::nullopt, 75})),
            "solved, walls 10; 12 steps, 1 min 15 s; start at column 1, row 1; finish at column 4, row 2");
}

/// What a session tells when it is solved.
struct Solved {
  Status status;
  std::string trouble;
  Growth growth;
};

/// One corridor of cells in a row, from end to end.
Solved solvedInARow(int cells, const std::vector<int>& keys, Item play) {
  World w(Size{(cells + 2) * 10, 40});
  w.begin(drawing({std::string(static_cast<std::size_t>(cells), '.')}));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(play);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  Solved solved;
  w.desktop.look([&](Program& p) { solved.growth = growthOfMaze(p); });
  w.desktop.act([=](Program& p) {
    p.state.start = squareOf(1, 1);
    p.state.finish = squareOf(cells, 1);
  });
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solving);
  for (const int code : keys) {
    w.desktop.act([code](Program& p) { input::keyDown(p, code); });
    w.desktop.pumpsPass(2);
  }
  w.desktop.untilPhase(Phase::solved);
  w.desktop.look([&](Program& p) { solved.status = statusOf(p.state); });
  solved.trouble = w.run();
  return solved;
}

TEST(AMazeOfOneCorridor, IsSolvedByAWayOfAllItsCells) {
  for (const int cells : {3, 5, 9}) {
    const Solved solved = solvedInARow(cells, {}, Item::playmodeoff);
    ASSERT_EQ(solved.trouble, "");
    EXPECT_EQ(solved.growth, (Growth{cells - 2, 0})) << "two of them bear the ends now";
    EXPECT_EQ(solved.status.tells, Status::Tells::way);
    EXPECT_EQ(solved.status.wayLength, cells);
  }
}

TEST(WhatIsCarvedAndWhatIsLeft, AreAllCellsOfTheDrawingFromTheFirstPassToTheLast) {
  World w(Size{120, 100});
  w.begin(drawing({"..........", "..........", "..######..", "..........", "..........", ".........."}));
  std::vector<Growth> seen;
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  for (int look = 0; look < 8; ++look) {
    w.desktop.look([&](Program& p) {
      if (p.state.phase == Phase::making) seen.push_back(growthOfMaze(p));
    });
    w.desktop.pumpsPass(12);
  }
  ASSERT_EQ(w.run(), "");
  ASSERT_GE(seen.size(), 3U);
  EXPECT_LT(seen.front().carved, seen.back().carved);
  for (const Growth& growth : seen)
    EXPECT_EQ(growth.carved + growth.left, seen.front().carved + seen.front().left);
}

TEST(PaperThatCountsAsCorridor, IsNotCarvedByAnybody) {
  World w(drawing({".....", ".....", "....."}));
  w.state.phase = Phase::making;
  w.canvas.fill(10, 10, 19, 19, kWhite);
  const Growth before = growthOf(w.program);
  ASSERT_EQ(before.carved, 1);
  w.state.session.carvedBefore = before.carved;
  w.canvas.fill(20, 10, 29, 19, kWhite);
  EXPECT_EQ(growthOfMaze(w.program), (Growth{1, before.left - 1}));
}

TEST(APersonInACorridor, HasTakenAStepForEachCellThatWasEntered) {
  const std::vector<int> there(4, key::right);
  EXPECT_EQ(solvedInARow(5, there, Item::easymode).status.steps, 4);
  const std::vector<int> withATurn = {key::right, key::right, key::left, key::right, key::right, key::right};
  const Solved solved = solvedInARow(5, withATurn, Item::easymode);
  ASSERT_EQ(solved.trouble, "");
  EXPECT_EQ(solved.status.steps, 6);
}

TEST(InPlacing, BothEndsAreTold) {
  ProgramState s = at(Phase::placing);
  s.start = squareOf(1, 1);
  s.finish = squareOf(20, 14);
  EXPECT_EQ(words(s), "start and finish, walls 10; start at column 1, row 1; finish at column 20, row 14");
  s.finish = {-100, -100, -100, -100};
  EXPECT_EQ(words(s), "start and finish, walls 10; start at column 1, row 1");
  s.start = {-10, -10, -10, -10};
  EXPECT_EQ(words(s), "start and finish, walls 10");
}

TEST(InSolving, APlayersSquareIsToldAndTheComputersIsNot) {
  ProgramState s = at(Phase::solving);
  s.playMode = PlayMode::easy;
  EXPECT_EQ(words(s), "solving, walls 10; 0 steps; square at column 3, row 2");
  s.finishMethod = FinishMethod::largest;
  EXPECT_EQ(words(s), "solving, walls 10; the computer solves") << "it searches for the finish first";
  s.finishFound = true;
  EXPECT_EQ(words(s), "solving, walls 10; 0 steps; square at column 3, row 2");
  s.playMode = PlayMode::off;
  const Status before = statusOf(s);
  s.cur = squareOf(9, 9);
  EXPECT_EQ(statusOf(s), before);
  EXPECT_EQ(words(s), "solving, walls 10; the computer solves");
}

TEST(InThePatternEditor, ThePlaceInTheFieldIsTold) {
  ProgramState s = at(Phase::patternEditing);
  EXPECT_EQ(words(s), "pattern; square at column 3, row 2");
  s.editor.randomRunning = true;
  const Status before = statusOf(s);
  s.cur = squareOf(9, 9);
  EXPECT_EQ(statusOf(s), before);
  EXPECT_EQ(words(s), "pattern; the computer draws the pattern");
}

TEST(AtTheTitle, NothingIsTold) {
  for (const Phase phase : {Phase::title, Phase::quitToTitle}) {
    const Status status = statusOf(at(phase));
    EXPECT_EQ(status, Status{});
    EXPECT_EQ(statusWords(status), "");
  }
}

TEST(EveryPhaseButTheTitle, TellsSomethingInASession) {
  World w(Size{60, 50});
  w.begin(drawing({".....", ".....", "....."}));
  std::vector<Phase> silent;
  const auto look = [&](Program& p) {
    if (statusWords(statusOf(p.state)).empty()) silent.push_back(p.state.phase);
  };
  w.desktop.pumpsPass(2);
  w.desktop.look(look);
  w.desktop.menu(Item::editpatterns);
  w.desktop.untilPhase(Phase::patternEditing);
  w.desktop.look(look);
  w.desktop.menu(Item::exitpattern);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.look(look);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look(look);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solving);
  w.desktop.look(look);
  w.desktop.untilPhase(Phase::solved);
  w.desktop.look(look);
  EXPECT_EQ(w.run(), "");
  EXPECT_TRUE(silent.empty());
}

}  // namespace
}  // namespace gridwright::test
