#include "menus/status_words.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(words(s), "yellow, 1 cell at column 3, row 2, drawing on");
  EXPECT_EQ(statusOf(s).colour, qb::yellow);
  s.cur = {20, 10, 49, 29};
  s.drawColor = kPalette[1];
  s.drawingOff = true;
  EXPECT_EQ(words(s), "navy, 3 x 2 cells at column 2, row 1, drawing off");
}

TEST(OnThePipeGrid, CellsLieTwoWallsApart) {
  ProgramState s = at(Phase::drawing);
  s.stepX = s.stepY = 20;
  s.cur = {50, 10, 79, 19};
  EXPECT_EQ(words(s), "black, 2 x 1 cells at column 3, row 1, drawing on");
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
  EXPECT_EQ(words(s), "white, square at column 3, row 2");
}

TEST(AMazeThatTheComputerCarves, ChangesNothingThatIsTold) {
  ProgramState s = at(Phase::making);
  s.creationMode = CreationMode::computer;
  const Status before = statusOf(s);
  EXPECT_EQ(statusWords(before), "the computer carves");
  s.cur = s.prev = squareOf(17, 9);
  s.mazeColor = kPalette[4];
  s.stepCode = 3;
  EXPECT_EQ(statusOf(s), before);
}

TEST(InPlacing, BothEndsAreTold) {
  ProgramState s = at(Phase::placing);
  s.start = squareOf(1, 1);
  s.finish = squareOf(20, 14);
  EXPECT_EQ(words(s), "start at column 1, row 1; finish at column 20, row 14");
  s.finish = {-100, -100, -100, -100};
  EXPECT_EQ(words(s), "start at column 1, row 1");
  s.start = {-10, -10, -10, -10};
  EXPECT_EQ(words(s), "");
}

TEST(InSolving, APlayersSquareIsToldAndTheComputersIsNot) {
  ProgramState s = at(Phase::solving);
  s.playMode = PlayMode::easy;
  EXPECT_EQ(words(s), "square at column 3, row 2");
  s.finishMethod = FinishMethod::largest;
  EXPECT_EQ(words(s), "the computer solves") << "it searches for the finish first";
  s.finishFound = true;
  EXPECT_EQ(words(s), "square at column 3, row 2");
  s.playMode = PlayMode::off;
  const Status before = statusOf(s);
  s.cur = squareOf(9, 9);
  EXPECT_EQ(statusOf(s), before);
  EXPECT_EQ(words(s), "the computer solves");
}

TEST(InThePatternEditor, ThePlaceInTheFieldIsTold) {
  ProgramState s = at(Phase::patternEditing);
  EXPECT_EQ(words(s), "square at column 3, row 2");
  s.editor.randomRunning = true;
  const Status before = statusOf(s);
  s.cur = squareOf(9, 9);
  EXPECT_EQ(statusOf(s), before);
  EXPECT_EQ(words(s), "the computer draws the pattern");
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
