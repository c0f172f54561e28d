#include "session/maze_commands.h"

#include <gtest/gtest.h>

#include "maze/maze_settings.h"
#include "session/input.h"
#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {"......", "......", "......", "......"};

void makeOne(World& w, const Text& cells = kRoom) {
  w.begin(drawing(cells));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
}

TEST(TheCreateCommandOfThePresentKind, StartsTheMazeFromTheDrawing) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::createreg);
  w.desktop.untilPhase(Phase::making);
  EXPECT_EQ(w.run(), "");
}

TEST(NoCommand, StartsAMazeWhileAPanelIsOpen) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::changewallsize);
  for (void (*command)(Program&) : {newmaze, createreg}) {
    w.desktop.act([command](Program& p) { command(p); });
    w.desktop.pumpsPass(3);
    w.desktop.look([](Program& p) { EXPECT_EQ(p.state.phase, Phase::drawing); });
  }
  EXPECT_EQ(w.run(), "");
}

TEST(TheKindAlreadyMarked, IsNotChosenAgainOutsideTheDrawing) {
  World w;
  makeOne(w);
  Bitmap before;
  w.desktop.look([&](Program& p) { before = p.canvas.image(); });
  w.desktop.menu(Item::createreg);
  w.desktop.pumpsPass(3);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::placing);
    EXPECT_TRUE(samePicture(p.canvas.image(), before));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ANewMazeInMidMaze, SwapsThePictureUnderTheWalkerAndLeavesTheLoopRunning) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.until([](const Program& p) {
    return p.state.walkMode == WalkMode::carve && !p.state.cur.sameCorner(p.state.start);
  });
  const auto savesBefore = std::make_shared<std::size_t>();
  w.desktop.look([&, savesBefore](Program&) { *savesBefore = w.desktop.saves.size(); });
  w.desktop.act([&, savesBefore](Program& p) {
    newmaze(p);
    EXPECT_EQ(p.state.cur, p.state.walker.walkStart);
    EXPECT_EQ(p.state.walkMode, WalkMode::carve) << "as it was";
    EXPECT_TRUE(samePicture(p.canvas.image(), drawing(kRoom))) << "the picture is clean";
    EXPECT_EQ(p.state.phase, Phase::making);
  });
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
  const auto thirds = std::count(w.desktop.saves.begin(), w.desktop.saves.end(), "drawing3.bmp");
  EXPECT_EQ(thirds, 1) << "makemaze returned once only";
  EXPECT_EQ(
      MazeReading(drawing(kRoom), *w.desktop.file("drawing3.bmp"), PlainSets(w.program.colours), 10).fault(),
      "");
}

TEST(ANewMazeAfterASolvedOne, BeginsInTheBareDrawing) {
  World w;
  makeOne(w);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(
      MazeReading(drawing(kRoom), *w.desktop.file("drawing3.bmp"), PlainSets(w.program.colours), 10).fault(),
      "");
  EXPECT_TRUE(samePicture(*w.desktop.file("drawing1.bmp"), drawing(kRoom)));
}

TEST(AMazeMadePartOfEveryMaze, IsWhereTheNextOneBegins) {
  World w;
  w.begin(drawing(Text(8, std::string(10, '.'))));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.until([](const Program& p) { return p.pixels().maze(p.state.start.left, p.state.start.top); });
  w.desktop.pumpsPass(40);
  Bitmap kept;
  w.desktop.menu(Item::mpdrawing);
  w.desktop.look([&](Program& p) {
    kept = *w.desktop.file("drawing1b.bmp");
    EXPECT_TRUE(p.state.walker.walkStartKept);
    EXPECT_GT(std::count(kept.pixels.begin(), kept.pixels.end(), kWhite), 100);
    EXPECT_TRUE(p.menus.available(Item::nrefresh));
  });
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.cur, p.state.walker.walkStart) << "on the origin";
    EXPECT_TRUE(samePicture(p.canvas.image(), kept)) << "the walker has not begun";
  });
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look([&](Program&) {
    const Bitmap& maze = *w.desktop.file("drawing3.bmp");
    std::size_t lost = 0;
    for (std::size_t i = 0; i < kept.pixels.size(); ++i)
      lost += kept.pixels[i] == kWhite && maze.pixels[i] != kWhite;
    EXPECT_EQ(lost, 0U) << "the kept part stands";
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(MazeReading(drawing(Text(8, std::string(10, '.'))), *w.desktop.file("drawing3.bmp"),
                        PlainSets(w.program.colours), 10)
                .fault(),
            "");
}

TEST(RefreshingThePicture, ForgetsTheMazeThatWasPartOfEveryMaze) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(30);
  w.desktop.menu(Item::mpdrawing);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::nrefresh);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(samePicture(*w.desktop.file("drawing1b.bmp"), drawing(kRoom)));
    EXPECT_FALSE(p.menus.available(Item::nrefresh));
    EXPECT_FALSE(p.state.walker.walkStartKept);
    EXPECT_EQ(p.state.walker.walkStart, p.state.start);
  });
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
}

TEST(GoingBackToTheMaze, GoesOnWithTheWalkerWhereItStoppedInThePictureBeforeTheEnds) {
  World w;
  makeOne(w);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  const Bitmap* maze = nullptr;
  w.desktop.look([&](Program&) { maze = w.desktop.file("drawing3.bmp"); });
  w.desktop.menu(Item::backtomaze);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::making);
    EXPECT_EQ(p.state.walkMode, WalkMode::back);
    EXPECT_EQ(p.state.cur, p.state.walker.resume);
    EXPECT_TRUE(samePicture(p.canvas.image(), *maze)) << "no end squares, no trail";
  });
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
}

TEST(GoingBackToTheDrawing, BringsTheCleanDrawingBack) {
  World w;
  makeOne(w);
  w.desktop.menu(Item::backtodrawing);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(3);
  w.desktop.look([](Program& p) {
    EXPECT_TRUE(samePicture(p.canvas.image(), drawing(kRoom)));
    EXPECT_EQ(p.controls.caption(), "Gridwright-(drawing picture for 'Regular mazes')");
    EXPECT_FALSE(p.state.nrefreshDue);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(AClickWhileAnotherCommandWasTaken, HasNoEffectAndIsNotQueued) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.act([](Program& p) {
    input::menuClick(p, Item::cgenerate);
    EXPECT_TRUE(p.state.keyBusy);
    input::menuClick(p, Item::stopfinish);
    EXPECT_FALSE(p.state.stopAtFinish);
  });
  w.desktop.pumpsPass(3);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.creationMode, CreationMode::computer);
    EXPECT_FALSE(p.state.stopAtFinish);
    EXPECT_FALSE(p.state.keyBusy);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ThePatternSettings, StoreTheirValuesAndMoveTheMark) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::dontusepattern);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.patternState, PatternState::random);
    EXPECT_EQ(p.state.patternDirection, 3);
    EXPECT_FALSE(p.state.randomStepsTemporary);
    EXPECT_TRUE(p.menus.checked(Item::dontusepattern));
    EXPECT_FALSE(p.menus.checked(Item::usepattern));
  });
  w.desktop.menu(Item::usepattern);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.patternState, PatternState::choose);
    EXPECT_EQ(p.state.patternDirection, 0);
    EXPECT_TRUE(p.menus.checked(Item::usepattern));
  });
  w.desktop.menu(Item::stopfinish);
  w.desktop.look(
      [](Program& p) { EXPECT_TRUE(p.menus.checked(Item::stopfinish) && !p.menus.checked(Item::gofinish)); });
  w.desktop.menu(Item::gofinish);
  w.desktop.look([](Program& p) {
    EXPECT_TRUE(p.menus.checked(Item::gofinish) && !p.menus.checked(Item::stopfinish));
    EXPECT_FALSE(p.state.stopAtFinish);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TakingOverInsideACorridor, TurnsTheWalkerToWalkingBack) {
  World w(drawing({"*****", "*****"}));
  w.state.creationMode = CreationMode::computer;
  w.state.cur = squareOf(2, 1);
  w.state.walkMode = WalkMode::carve;
  ugenerate(w.program);
  EXPECT_EQ(w.state.walkMode, WalkMode::back);
  EXPECT_EQ(w.state.creationMode, CreationMode::user);
}

}  // namespace
}  // namespace gridwright::test
