#include "maze/makemaze.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <utility>

#include "maze/maze_settings.h"
#include "maze/stranded.h"
#include "session/input.h"
#include "session/maze_commands.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A session in which the computer makes a maze in the drawing, up to the first pump of the walker.
void beginMaze(World& w, const Text& cells, std::uint32_t seed = 1) {
  w.desktop.seed = seed;
  w.begin(drawing(cells));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
}

/// Looks at the program in every pump until the phase comes.
void watch(World& w, Phase phase, std::function<void(const Program&)> look) {
  w.desktop.until([phase, look = std::move(look)](const Program& p) {
    if (p.state.phase == phase) return true;
    look(p);
    return false;
  });
}

const Text kRoom = {"......", "......", "......", "......"};

TEST(AMaze, BeginsWalkingBackOnTheStartWithStopSeen) {
  World w;
  beginMaze(w, kRoom);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.walkMode, WalkMode::back);
    EXPECT_EQ(p.state.walker.walkStart, p.state.start);
    EXPECT_EQ(p.state.cur, p.state.start);
    EXPECT_EQ(p.state.start, squareOf(1, 1));
    EXPECT_TRUE(p.state.mazeMadeOnce);
    EXPECT_EQ(p.state.walker.coveredColor, -20);
    EXPECT_EQ(p.controls.caption(), "Gridwright-(creating 2d-maze)");
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheWalker, NeverReversesOnItselfWhileItCarves) {
  World w;
  beginMaze(w, kRoom);
  int lastX = 0;
  int lastY = 0;
  Square last{};
  bool carved = false;
  int steps = 0;
  watch(w, Phase::placing, [&](const Program& p) {
    const ProgramState& s = p.state;
    if (s.cur == last) return;
    const int dx = s.cur.left - last.left;
    const int dy = s.cur.top - last.top;
    const bool carving = s.walkMode == WalkMode::carve;
    if (carved && carving && (dx != 0 || dy != 0)) {
      EXPECT_FALSE(dx == -lastX && dy == -lastY) << "at " << s.cur.left << ", " << s.cur.top;
      ++steps;
    }
    lastX = dx;
    lastY = dy;
    last = s.cur;
    carved = carving;
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_GT(steps, 5);
}

TEST(AWalkBack, MayGoBackAndForth) {
  World w;
  beginMaze(w, {".........", ".........", "........."});
  Square last{};
  Square before{};
  bool backAndForth = false;
  watch(w, Phase::placing, [&](const Program& p) {
    const ProgramState& s = p.state;
    if (s.cur == last) return;
    if (s.walkMode == WalkMode::back && s.cur == before && !s.cur.sameCorner(s.start)) backAndForth = true;
    before = last;
    last = s.cur;
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_TRUE(backAndForth);
}

TEST(AWalkBack, RunsOnRandomStepsOfItsOwnWhateverThePatternSettings) {
  World w;
  beginMaze(w, kRoom);
  int backs = 0;
  watch(w, Phase::placing, [&](const Program& p) {
    if (p.state.walkMode == WalkMode::back && p.state.walker.lastWalkMode == WalkMode::back) {
      EXPECT_EQ(p.state.patternState, PatternState::random);
      EXPECT_TRUE(p.state.randomStepsTemporary);
      ++backs;
    }
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_GT(backs, 0);
}

TEST(WithoutPatterns, TheWholeMazeIsMadeOfRandomSingleStepsAndStaysSo) {
  World w;
  w.desktop.seed = 3;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::dontusepattern);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  watch(w, Phase::placing, [&](const Program& p) {
    EXPECT_EQ(p.state.patternState, PatternState::random);
    EXPECT_FALSE(p.state.randomStepsTemporary);
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.patternState, PatternState::random);
}

TEST(APattern, IsWalkedStepByStep) {
  World w;
  w.begin(drawing({"..........", "..........", ".........."}));
  w.desktop.act([](Program& p) {
    for (int direction = 1; direction <= 4; ++direction) {
      p.steps.write(MazeKind::regular, direction, {step::right, step::right, step::down, step::left});
    }
    cgenerate(p);
    p.state.keyBusy = false;
  });
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  std::vector<int> taken;
  watch(w, Phase::placing, [&](const Program& p) {
    if (p.state.patternState == PatternState::reading && p.state.walkMode == WalkMode::carve) {
      taken.push_back(p.state.walker.patternValue);
    }
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(std::set<int>(taken.begin(), taken.end()).count(step::up), 0U) << "no pattern holds a step up";
  EXPECT_GT(std::count(taken.begin(), taken.end(), step::right), 0);
}

/// The maze that a computer makes when the step files were left as they are, or with one text each.
Bitmap mazeWith(const std::vector<int>& directions, const std::string& text) {
  World w;
  w.begin(drawing({"......", "......", "......", "......"}));
  w.desktop.look([&](Program&) {
    for (const int direction : directions)
      w.folder.texts[std::string(stepFileName(MazeKind::regular, direction))] = text;
  });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.limit = 2'000'000;
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "") << text;
  return w.canvas.image();
}

TEST(AStepFileWithoutAStep, MakesTheMazeThatTheDirectionsDefaultMakes) {
  const Bitmap ordinary = mazeWith({}, "");
  for (const char* text : {"", "9999,88\r\n", "0\r\n9999,88\r\n", "left\r\n6,9999,88\r\n"}) {
    for (int direction = step::left; direction <= step::down; ++direction)
      EXPECT_TRUE(samePicture(mazeWith({direction}, text), ordinary)) << text << " in " << direction;
    EXPECT_TRUE(samePicture(mazeWith({1, 2, 3, 4}, text), ordinary)) << text;
  }
}

TEST(APatternOfOnlyTheWalkBackCode, NeverHangsWithinAPump) {
  World w;
  w.begin(drawing({"....", "....", "...."}));
  w.desktop.act([](Program& p) {
    for (int direction = 1; direction <= 4; ++direction)
      p.steps.write(MazeKind::regular, direction, {5, 5, 5});
  });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
}

TEST(APatternHoldingTheWalkBackCode, SteersTheWalkerOverCarvedGroundWithoutClosingTheFile) {
  World w;
  w.begin(drawing({"......", "......", "......"}));
  w.desktop.act([](Program& p) {
    for (int direction = 1; direction <= 4; ++direction) {
      p.steps.write(MazeKind::regular, direction, {2, 2, 5, 1, 1, 4, 4, 2, 1, 3, 3});
    }
  });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  int steered = 0;
  Square last{};
  bool wasSteered = false;
  watch(w, Phase::placing, [&](const Program& p) {
    const ProgramState& s = p.state;
    const bool steers = s.walkMode == WalkMode::back && s.patternState == PatternState::reading;
    steered += steers && wasSteered && s.cur != last;
    last = s.cur;
    wasSteered = steers;
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_GT(steered, 0);
}

TEST(TheFinish, SendsTheWalkerBackToTheOriginAndEndsNothingWhenAllIsToBeFilled) {
  World w;
  beginMaze(w, {"....", "....", "...."});
  int reached = 0;
  bool wasFree = true;
  watch(w, Phase::placing, [&](const Program& p) {
    const ProgramState& s = p.state;
    const bool isCarved = p.pixels().maze(s.finish.left, s.finish.top);
    if (wasFree && isCarved) ++reached;
    wasFree = !isCarved;
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(reached, 1);
  for (int row = 1; row <= 3; ++row) {
    for (int column = 1; column <= 4; ++column) {
      EXPECT_EQ(w.desktop.file("drawing3.bmp")->at(column * 10 + 1, row * 10 + 1), kWhite);
    }
  }
}

TEST(MakingOnlyUntilBothEndsAreReached, LeavesTheRestOfTheDrawingFree) {
  constexpr int kHalfOfThePixels = 16 * 12 * 50;  // of all cells
  int unfinished = 0;
  for (std::uint32_t seed = 1; seed <= 6; ++seed) {
    World w;
    w.desktop.seed = seed;
    w.begin(drawing(Text(12, std::string(16, '.'))));
    w.desktop.menu(Item::cgenerate);
    w.desktop.menu(Item::stopfinish);
    w.desktop.menu(Item::newmaze);
    w.desktop.untilPhase(Phase::placing);
    w.desktop.look([&](Program& p) {
      const Bitmap maze = *w.desktop.file("drawing3.bmp");
      EXPECT_EQ(maze.at(p.state.start.left, p.state.start.top), kWhite);
      EXPECT_EQ(maze.at(p.state.finish.left, p.state.finish.top), kWhite);
      unfinished += std::count(maze.pixels.begin(), maze.pixels.end(), kNavy) > kHalfOfThePixels;
    });
    EXPECT_EQ(w.run(), "") << seed;
  }
  EXPECT_GT(unfinished, 0);
}

TEST(APausedWalker, StandsStillInShortPasses) {
  World w;
  beginMaze(w, kRoom);
  w.desktop.pumpsPass(20);
  w.desktop.menu(Item::changewallsize);
  Square stood{};
  w.desktop.look([&](Program& p) { stood = p.state.cur; });
  w.desktop.pumpsPass(500);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.cur, stood);
    EXPECT_EQ(p.state.stepCode, step::none);
    EXPECT_EQ(p.state.phase, Phase::making);
  });
  w.desktop.act([](Program& p) { EXPECT_EQ(p.platform.windowState(), WindowState::maximised); });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.lastPace, Pace::idle) << "a paused program costs nothing";
}

TEST(ACanvasTooDenseForAWalker, NeverStopsThePump) {
  World w;
  beginMaze(w, {".#.#", "#.#.", ".#.#"});
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
}

TEST(TheWindow, IsMinimisedOnceWhileTheComputerWorksUnseen) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::aon);
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.look([](Program& p) { EXPECT_TRUE(p.state.minimizedNow); });
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(std::count(w.desktop.states.begin(), w.desktop.states.end(), WindowState::minimised), 1);
  EXPECT_EQ(w.desktop.states.back(), WindowState::maximised) << "the window comes back for the placing";
}

TEST(MazeMadeOnce, IsRestoredWhenTheMazeIsLeftButNotOnAQuit) {
  for (const bool before : {false, true}) {
    World w;
    beginMaze(w, kRoom);
    w.desktop.untilPhase(Phase::placing);
    w.desktop.act([before](Program& p) {
      p.state.mazeMadeOnce = before;
      newmaze(p);
    });
    w.desktop.untilPhase(Phase::making);
    w.desktop.look([](Program& p) { EXPECT_TRUE(p.state.mazeMadeOnce); });
    w.desktop.untilPhase(Phase::placing);
    w.desktop.look([before](Program& p) { EXPECT_EQ(p.state.mazeMadeOnce, before); });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(AUsersMaze, WaitsWithoutCostAndShowsTheCursor) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(50);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.canvas.point(p.state.cur.left, p.state.cur.top), kCursorColour);
    EXPECT_EQ(p.state.cur, p.state.start);
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.lastPace, Pace::idle);
}

TEST(HandingOverToTheComputer, WipesTheCursorAndMakesTheMaze) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(10);
  w.desktop.menu(Item::cgenerate);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look([](Program& p) {
    const Bitmap maze = p.canvas.image();
    EXPECT_EQ(std::count(maze.pixels.begin(), maze.pixels.end(), kCursorColour), 0);
  });
  EXPECT_EQ(w.run(), "");
}

/// A person carving single steps in a room, one step right of the start.
struct StepByStep : World {
  StepByStep() {
    begin(drawing({"......", "......", "......"}));
    desktop.menu(Item::dontusepattern);
    desktop.menu(Item::newmaze);
    desktop.untilPhase(Phase::making);
    desktop.pumpsPass(3);
    press(key::right);
    press(key::right);
    stands(3, 1);
  }
  void press(int code) {
    desktop.act([code](Program& p) { input::keyDown(p, code); });
    desktop.pumpsPass(3);
  }
  void stands(int column, int row) {
    desktop.look([=](Program& p) { EXPECT_EQ(p.state.cur, squareOf(column, row)); });
  }
};

TEST(AUsersStepStraightBack, IsRefusedWhileCarvingAndTakenAfterG) {
  StepByStep w;
  w.press(key::left);
  w.stands(3, 1);
  w.press(key::G);
  w.press(key::left);
  w.stands(2, 1);
  EXPECT_EQ(w.run(), "");
}

TEST(AnArrowThatHasJustFailed, IsRefusedUntilAPassWithoutIt) {
  StepByStep w;
  const Square above = squareOf(3, 0);
  const auto up = [](Program& p) { input::keyDown(p, key::up); };
  w.desktop.act(up);  // into the frame
  w.desktop.act([&](Program& p) {
    p.canvas.fill(above.left - 1, above.top - 1, above.right + 1, above.bottom + 1,
                  kNavy);  // now it would go
    up(p);
  });
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.cur, squareOf(3, 1)); });
  w.desktop.act(up);
  w.stands(3, 1);
  w.desktop.pumpsPass(3);
  w.press(key::up);
  w.stands(3, 0);
  EXPECT_EQ(w.run(), "");
}

/// How many draws lead from one generator to the other.
int drawsBetween(Random from, Random to) {
  const double next = to.rnd();
  int draws = 0;
  while (draws < 1000 && from.rnd() != next) ++draws;
  return draws;
}

TEST(EachPassOfAWaitingUser, DrawsADirectionThoughItIsOverwrittenAtOnce) {
  constexpr int kPasses = 20;
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  for (const WalkMode mode : {WalkMode::back, WalkMode::carve}) {
    Random before;
    w.desktop.pumpsPass(4);
    w.desktop.look([&, mode](Program& p) {
      EXPECT_EQ(p.state.walkMode, mode);
      before = p.random;
    });
    w.desktop.pumpsPass(kPasses);
    w.desktop.look([&](Program& p) { EXPECT_EQ(drawsBetween(before, p.random), kPasses); });
    w.desktop.act([](Program& p) { input::keyDown(p, key::right); });  // onto free ground
  }
  EXPECT_EQ(w.run(), "");
}

TEST(TheUsersWalker, NeverWaitsForAKeyInTheMiddleOfASweep) {
  World w;
  w.begin(drawing({".....", ".....", "....."}));
  for (const Item item : {Item::create3d, Item::plarge, Item::dontusepattern, Item::newmaze})
    w.desktop.menu(item);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(2);
  // Round to below the start; up from there, a tunnel under the start would leave the picture.
  for (const int code : {key::right, key::right, key::down, key::down, key::left, key::left, key::up}) {
    w.desktop.act([code](Program& p) { input::keyDown(p, code); });
    w.desktop.pumpsPass(2);
  }
  int swept = 0;
  for (int pass = 0; pass < 3; ++pass) {
    w.desktop.look([&](Program& p) {
      if (!p.state.walker.sweepActive) return;
      p.state.scanX = 41;  // a free cell that can be entered is what the fill cursor meets next
      p.state.scanY = 11;
    });
    w.desktop.pumpsPass(1);
    w.desktop.look([&](Program& p) {
      if (!p.state.walker.sweepActive) return;
      ++swept;
      EXPECT_TRUE(p.state.walker.freeCellMetSinceStep);
      EXPECT_EQ(w.desktop.lastPace, Pace::working);
    });
  }
  w.desktop.until([](const Program& p) { return !p.state.walker.sweepActive; });
  w.desktop.until([&](const Program&) { return w.desktop.lastPace == Pace::idle; });
  EXPECT_EQ(w.run(), "");
  EXPECT_GT(swept, 1);
}

TEST(TheEndOfAStepFile, CostsADrawAndAPumpBeforeTheNextNumber) {
  World w;
  w.desktop.limit = 100'000;
  w.begin(drawing({".............."}));
  w.desktop.act([](Program& p) {
    for (int direction = 1; direction <= 4; ++direction)
      p.steps.write(MazeKind::regular, direction, {step::right, step::right});
  });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  std::map<int, std::pair<std::int64_t, Random>> firstAt;  // by column: pump and generator
  watch(w, Phase::placing, [&](const Program& p) {
    if (p.state.walkMode == WalkMode::carve && p.state.patternState == PatternState::reading)
      firstAt.try_emplace(p.state.cur.left / 10, w.desktop.pumps, p.random);
  });
  EXPECT_EQ(w.run(), "");
  ASSERT_TRUE(firstAt.count(4) == 1 && firstAt.count(10) == 1);
  const auto& [from, before] = firstAt[4];
  const auto& [to, after] = firstAt[10];
  EXPECT_EQ(to - from, 6 + 3) << "a pump for each step and one for each end of a file";
  EXPECT_EQ(drawsBetween(before, after), 3);
}

}  // namespace
}  // namespace gridwright::test
