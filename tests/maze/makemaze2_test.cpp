#include "maze/makemaze2.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

struct Entry : World {
  Entry() : World(drawing({"....", "....", "...."})) {
    program.pictures.save("drawing1b.bmp", drawing({".*..", "....", "...."}));
    state.start = state.walker.walkStart = {11, 11, 99, 99};
    state.finish = {31, 21, 0, 0};
    state.creationMode = CreationMode::computer;
  }
};

TEST(AtItsEntry, AMazeGetsItsPictureItsSquareAndTheWalkBack) {
  Entry e;
  e.state.walker.coveredColor = 5;
  e.state.walker.stopSeen = false;
  makemaze2(e.program);
  EXPECT_TRUE(samePicture(e.canvas.image(), drawing({".*..", "....", "...."})));
  EXPECT_EQ(e.state.cur, squareOf(1, 1));
  EXPECT_EQ(e.state.prev.left, 11);
  EXPECT_EQ(e.state.walkMode, WalkMode::back);
  EXPECT_EQ(e.state.walker.lastWalkMode, WalkMode::none);
  EXPECT_EQ(e.state.walker.coveredColor, -20);
  EXPECT_TRUE(e.state.walker.stopSeen);
  EXPECT_TRUE(e.state.ends.firstPlacement);
  EXPECT_EQ(e.state.phase, Phase::making);
  EXPECT_EQ(e.state.scanX, 1);
}

TEST(AtItsEntry, AMazeNormalisesAllFourSquares) {
  Entry e;
  makemaze2(e.program);
  EXPECT_EQ(e.state.start, squareOf(1, 1));
  EXPECT_EQ(e.state.walker.walkStart, squareOf(1, 1));
  EXPECT_EQ(e.state.finish, squareOf(3, 2));
}

TEST(AResumedMaze, KeepsPictureAndSquareButWalksBackWithAFreshFillCursor) {
  Entry e;
  e.state.keepPicture = true;
  e.state.cur = squareOf(2, 2);
  e.state.walkMode = WalkMode::carve;
  e.state.scanX = e.state.scanY = 55;
  makemaze2(e.program);
  EXPECT_TRUE(samePicture(e.canvas.image(), drawing({"....", "....", "...."})));
  EXPECT_EQ(e.state.cur, squareOf(2, 2));
  EXPECT_EQ(e.state.walkMode, WalkMode::back);
  EXPECT_EQ(e.state.scanX, 1);
  EXPECT_FALSE(e.state.keepPicture);
}

TEST(TemporaryRandomSteps, AreForgottenAndThoseForGoodAreKept) {
  for (const bool temporary : {true, false}) {
    Entry e;
    e.state.patternState = PatternState::random;
    e.state.patternDirection = 3;
    e.state.randomStepsTemporary = temporary;
    makemaze2(e.program);
    EXPECT_EQ(e.state.patternState, temporary ? PatternState::choose : PatternState::random);
    EXPECT_EQ(e.state.patternDirection, temporary ? 0 : 3);
    EXPECT_FALSE(e.state.randomStepsTemporary);
  }
}

TEST(MazeMadeOnce, IsKeptAndSetForTheWholeMaze) {
  for (const bool before : {false, true}) {
    Entry e;
    e.state.mazeMadeOnce = before;
    makemaze2(e.program);
    EXPECT_TRUE(e.state.mazeMadeOnce);
    EXPECT_EQ(e.state.walker.savedMazeMadeOnce, before);
  }
}

TEST(TheCursor, ShowsOnlyInAUsersMazeThatNothingHolds) {
  Entry computer;
  makemaze2(computer.program);
  EXPECT_EQ(computer.canvas.point(11, 11), kNavy);
  Entry user;
  user.state.creationMode = CreationMode::user;
  makemaze2(user.program);
  EXPECT_EQ(user.canvas.point(11, 11), kCursorColour);
  Entry paused;
  paused.state.creationMode = CreationMode::user;
  paused.state.paused = true;
  makemaze2(paused.program);
  EXPECT_EQ(paused.canvas.point(11, 11), kNavy);
}

TEST(Underpasses, AreLongOnlyInPipesThatAskForThem) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const bool thin : {false, true}) {
      Entry e;
      e.state.mazeKind = kind;
      e.program.menus.setChecked(Item::pthin, thin);
      chooseUnderpassLength(e.program);
      EXPECT_EQ(e.state.shortUnderpasses, !(kind == MazeKind::pipe && thin));
    }
  }
}

TEST(AStepFilePutIntoTheFolder, CountsFromTheNextMazeOn) {
  Entry e;
  e.program.steps.resetAll();
  e.folder.texts["up.pt"] = "1\r\n9999,88\r\n";
  makemaze2(e.program);
  EXPECT_EQ(e.program.steps.steps(MazeKind::regular, step::up), Steps{step::left});
}

}  // namespace
}  // namespace gridwright::test
