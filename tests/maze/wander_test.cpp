// Full passes and wanderings beside each other: whatever a desktop leaves out, what it sees when it looks
// again is what it would have seen.
#include "maze/wander.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "maze/finishmaking.h"
#include "maze/makemaze.h"
#include "maze/maze_settings.h"
#include "maze/sweep_memory.h"
#include "menus/enable_table.h"
#include "menus/menu_rules.h"
#include "state/field_names.h"
#include "state/grid.h"
#include "support/whole_look.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// What the walker is let loose on.
struct Ground {
  const char* name;
  Text cells;
};
const std::array kGrounds = {
    Ground{"a room", {"........", "........", "........", "........", "........"}},
    Ground{"rooms behind thin and thick borders",
           {"...#....", "...#.##.", "...#.##.", "...##...", "...##..."}},
    Ground{"a comb", {".#.#.#.#", ".#.#.#.#", ".#.#.#.#", "........", "..#..#.."}},
    Ground{"backgrounds side by side", {"...,,,oo", "...,,,oo", "...,,,oo", "..,,,ooo", "..,,,ooo"}},
};

struct Setting {
  MazeKind kind = MazeKind::regular;
  bool longPipes = false;
  int wall = 6;
  enum { defaultPatterns, noPatterns, longPatterns } steps = defaultPatterns;
};
const std::array kSettings = {
    Setting{},
    Setting{MazeKind::regular, false, 5, Setting::noPatterns},
    Setting{MazeKind::regular, false, 7, Setting::longPatterns},
    Setting{MazeKind::threeD, false, 5},
    Setting{MazeKind::threeD, false, 6, Setting::noPatterns},
    Setting{MazeKind::threeD, false, 5, Setting::longPatterns},
    Setting{MazeKind::pipe, false, 5},
    Setting{MazeKind::pipe, true, 6, Setting::noPatterns},
    Setting{MazeKind::pipe, true, 5, Setting::longPatterns},
};

/// A maze about to begin, each background with a maze colour of its own.
struct Beginning {
  Beginning(const Ground& ground, const Setting& setting, std::uint32_t seed)
      : w(drawing(ground.cells, setting.wall), setting.wall) {
    ProgramState& s = w.state;
    s.mazeKind = setting.kind;
    pitchFromKind(s);
    measureGrid(w.program);
    w.program.menus.setChecked(Item::pthin, setting.longPipes);
    w.program.colours.setMaze(2, kFuchsia);
    w.program.colours.setMaze(4, kYellow);
    w.program.pictures.save("drawing1b.bmp", w.canvas.image());
    s.start = s.walker.walkStart = s.cur = s.prev = squareOf(1, 1, setting.wall);
    s.finish = squareOf(3, 1, setting.wall);
    s.creationMode = CreationMode::computer;
    w.program.steps.resetAll();
    if (setting.steps == Setting::longPatterns) {
      w.program.steps.write(setting.kind, step::left, {1, 1, 3, 5, 2});
      w.program.steps.write(setting.kind, step::down, {4, 2, 4, 4, 1});
    }
    if (setting.steps == Setting::noPatterns) dontusepattern(w.program);
    w.program.random.seed(seed);
    w.desktop.limit = 12'000;
    w.desktop.pumpsPass(1'000'000);
  }
  void make() {
    try {
      makemaze(w.program);
    } catch (const ProgramEnd&) {
    }
  }
  World w;
};

class BothWays : public ::testing::TestWithParam<std::size_t> {};

TEST_P(BothWays, ShowTheSameWheneverTheDesktopLooks) {
  const Setting& setting = kSettings.at(GetParam());
  std::int64_t passed = 0;
  std::int64_t pumps = 0;
  for (const Ground& ground : kGrounds) {
    for (std::uint32_t seed = 1; seed <= 3; ++seed) {
      SCOPED_TRACE(std::string(ground.name) + ", seed " + std::to_string(seed));
      std::vector<std::uint64_t> seen{0};
      Beginning plain(ground, setting, seed);
      plain.w.desktop.everyPump = [&](const Program& p) { seen.push_back(WholeLook(p).number()); };
      plain.make();

      Beginning wandering(ground, setting, seed);
      BareDesktop& desktop = wandering.w.desktop;
      std::mt19937 chance(seed);
      desktop.quiet = [&](const Program&) {  // now and then a long time, mostly a pump or two
        const auto few = static_cast<std::int64_t>(chance() % 4);
        return std::min(chance() % 8 == 0 ? std::int64_t{3000} : few, desktop.limit - desktop.pumps);
      };
      std::int64_t different = 0;
      desktop.everyPump = [&](const Program& p) {
        different += seen.at(static_cast<std::size_t>(desktop.pumps)) != WholeLook(p).number();
      };
      wandering.make();
      ASSERT_EQ(different, 0);
      ASSERT_EQ(desktop.pumps, plain.w.desktop.pumps);
      ASSERT_EQ(WholeLook(wandering.w.program).number(), WholeLook(plain.w.program).number());
      passed += desktop.passed;
      pumps += desktop.pumps;
    }
  }
  EXPECT_GT(passed, pumps / 5) << "or nothing was compared";
}

INSTANTIATE_TEST_SUITE_P(Settings, BothWays, ::testing::Range(std::size_t{0}, kSettings.size()));

TEST(ASteadyField, KeepsItsValueWhilePumpsAreLeftOut) {
  std::int64_t left = 0;
  for (const Setting& setting : kSettings) {
    Beginning b(kGrounds[0], setting, 1);
    const Program& program = b.w.program;
    const auto values = [&] {
      std::vector<int> read;
      for (const FieldName& field : fieldNames()) {
        if (isSteady(field)) read.push_back(field.read(program));
      }
      return read;
    };
    std::vector<int> before;
    b.w.desktop.quiet = [&](const Program&) {
      before = values();
      return std::int64_t{100};
    };
    b.w.desktop.everyPassingOver = [&](std::int64_t pumps) {
      ASSERT_EQ(values(), before);
      left += pumps;
    };
    b.make();
    ASSERT_GT(before.size(), 5U);
  }
  EXPECT_GT(left, 1000);
}

TEST(ADesktopThatSaysNothing, SeesEveryPump) {
  Beginning b(kGrounds[0], kSettings[0], 1);
  std::int64_t seen = 0;
  b.w.desktop.everyPump = [&](const Program&) { ++seen; };
  b.make();
  EXPECT_EQ(seen, b.w.desktop.pumps);
  EXPECT_EQ(b.w.desktop.passed, 0);
}

TEST(AWandering, IsNoLongerThanTheDesktopAllows) {
  Beginning b(kGrounds[0], kSettings[0], 2);
  std::int64_t most = 0;
  b.w.desktop.quiet = [](const Program&) { return std::int64_t{17}; };
  b.w.desktop.everyPassingOver = [&](std::int64_t pumps) { most = std::max(most, pumps); };
  b.make();
  EXPECT_EQ(most, 17);
}

/// A walk back between two carved cells that stands well, and a desktop that looks at nothing.
struct Walk {
  Walk() : w(drawing({"***", "***"})) {
    ProgramState& s = w.state;
    s.creationMode = s.walker.lastCreationMode = CreationMode::computer;
    s.walkMode = s.walker.lastWalkMode = WalkMode::back;
    s.patternState = PatternState::random;
    s.walker.stopSeen = true;
    s.walker.cellColorAtEntry = kWhite;
    s.finish = squareOf(3, 2);
    s.prev = squareOf(1, 1);
    s.cur = squareOf(2, 1);
    resetfillcursor(s);
    makeSweepMemory(w.program);
    w.program.menus.loopRevision = 0;
    noteLoopRules(w.program);
    applyEnableTable(w.program);
    noteLoopRules(w.program);
    w.desktop.quiet = [](const Program&) { return std::int64_t{40}; };
  }
  /// \returns whether any pump was left out.
  bool wanders() {
    wander(w.program);
    return w.desktop.passed > 0;
  }
  World w;
};

TEST(AWalkBack, WandersWhenNobodyLooks) {
  Walk walk;
  EXPECT_TRUE(walk.wanders());
}

TEST(TheFillCursorsMemory, KnowsNothingOfCellsThatAreGivenUpNoMore) {
  World w(drawing({"*.*"}));
  w.state.walker.givenUpCells.insert({21, 11});
  makeSweepMemory(w.program);
  const auto stopsOnTheCell = [&w] {
    bringSweepMemoryInLine(w.program);
    w.state.scanX = 21;
    w.state.scanY = 11;
    return FillCursor(w.program).pump();
  };
  EXPECT_FALSE(stopsOnTheCell());
  w.state.walker.givenUpCells.clear();
  EXPECT_TRUE(stopsOnTheCell());
}

TEST(AWalkBack, IsLeftToTheFullPassWhereThatHasMoreToDo) {
  const std::vector<std::pair<const char*, void (*)(World&)>> reasons = {
      {"the user makes the maze", [](World& w) { w.state.creationMode = CreationMode::user; }},
      {"it was just handed over", [](World& w) { w.state.walker.lastCreationMode = CreationMode::user; }},
      {"it carves", [](World& w) { w.state.walkMode = WalkMode::carve; }},
      {"it has just turned back", [](World& w) { w.state.walker.lastWalkMode = WalkMode::carve; }},
      {"a pattern is read", [](World& w) { w.state.patternState = PatternState::reading; }},
      {"it is paused", [](World& w) { w.state.paused = true; }},
      {"a panel is open", [](World& w) { w.state.panelOpen = true; }},
      {"a pattern is edited", [](World& w) { w.state.editedPattern = 1; }},
      {"the making has ended", [](World& w) { w.state.phase = Phase::placing; }},
      {"the making is to end", [](World& w) { w.state.walker.stopMaking = true; }},
      {"random patterns are wanted", [](World& w) { w.state.randomPatterns.randomPatternsWanted = true; }},
      {"the window is to be minimised", [](World& w) { w.state.autoMinimize = true; }},
      {"the first stop is not found yet", [](World& w) { w.state.walker.stopSeen = false; }},
      {"strokes would not be kept", [](World& w) { w.canvas.setAutoRedraw(false); }},
      {"it stands on the finish", [](World& w) { w.state.finish = w.state.cur; }},
      {"it has not moved", [](World& w) { w.state.prev = w.state.cur; }},
      {"a look is due", [](World& w) { w.state.walker.passesSinceCarved = 199; }},
      {"a menu rule has something to say", [](World& w) { ++w.state.print.printedCount; }},
      {"the enable table has something to say", [](World& w) { w.state.nrefreshDue = true; }},
      {"a cursor is to be wiped", [](World& w) { w.canvas.fill(w.state.prev, kCursorColour); }},
      {"the ground was painted meanwhile", [](World& w) { w.canvas.fill(w.state.prev, kYellow); }},
      {"it stands on no plain corridor", [](World& w) { w.canvas.fill(12 + 10, 12, 22, 12, kRed); }},
      {"the fill cursor stands beside its way", [](World& w) { ++w.state.scanX; }},
      {"the fill cursor stands beyond its way", [](World& w) { w.state.scanY += 10'000; }},
      {"the desktop looks", [](World& w) { w.desktop.quiet = nullptr; }},
  };
  for (const auto& [why, change] : reasons) {
    Walk walk;
    change(walk.w);
    EXPECT_FALSE(walk.wanders()) << why;
  }
}

}  // namespace
}  // namespace gridwright::test
