// Full passes of the computer's walk and those in a tight loop beside each other: whatever a desktop leaves
// out, what it sees when it looks again is what it would have seen.
#include "solve/follow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "maze/makemaze.h"
#include "menus/enable_table.h"
#include "menus/menu_rules.h"
#include "solve/solvingmaze.h"
#include "state/grid.h"
#include "support/whole_look.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Setting {
  const char* name;
  Text cells;
  int wall = 10;
  FinishMethod method = FinishMethod::user;
  MazeKind kind = MazeKind::regular;
  bool cutOff = false;  ///< No way leads to the finish.
};
const Text kRoom = {"......", "......", "......", "......"};
const Text kTwoColours = {"...,,,", "...,,,", "..,,,,", "..,,,,"};
const std::array kSettings = {
    Setting{"a room", kRoom},
    Setting{"narrow corridors", kRoom, 5},
    Setting{"odd ones", kRoom, 7},
    Setting{"a comb", {".#.#.#", ".#.#.#", "......", "..#..."}, 6},
    Setting{"two colours", kTwoColours, 6},
    Setting{"a search", kRoom, 5, FinishMethod::largest},
    Setting{"a search in two colours", kTwoColours, 8, FinishMethod::largest},
    Setting{"no way", kRoom, 6, FinishMethod::user, MazeKind::regular, true},
    Setting{"3-d", kRoom, 6, FinishMethod::user, MazeKind::threeD},
    Setting{"pipes", kRoom, 5, FinishMethod::user, MazeKind::pipe},
};

/// A maze about to be solved, its ends in two corners.
struct Beginning {
  Beginning(const Setting& setting, std::uint32_t seed)
      : w(drawing(setting.cells, setting.wall), setting.wall) {
    ProgramState& s = w.state;
    s.mazeKind = setting.kind;
    pitchFromKind(s);
    measureGrid(w.program);
    w.program.colours.setMaze(2, kFuchsia);
    w.program.colours.setMaze(4, kYellow);
    w.program.pictures.save("drawing1b.bmp", w.canvas.image());
    s.start = s.walker.walkStart = s.cur = s.prev = squareOf(1, 1, setting.wall);
    s.finish = kTakenOff;
    s.creationMode = CreationMode::computer;
    w.program.steps.resetAll();
    w.program.random.seed(seed);
    w.desktop.limit = 200'000;
    w.desktop.pumpsPass(1'000'000);
    makemaze(w.program);
    w.desktop.pumps = 0;

    s.finishMethod = s.solver.activeFinishMethod = setting.method;
    if (setting.method == FinishMethod::user) s.finish = lastCell(setting.kind);
    s.startColor = kRed - 1;
    s.finishColor = kGreen - 1;
    s.ends.startMazeColor = w.canvas.point(s.start.left, s.start.top);
    w.canvas.setAutoRedraw(true);
    if (setting.cutOff)
      w.canvas.outline(s.finish.left - 1, s.finish.top - 1, s.finish.right + 1, s.finish.bottom + 1, kNavy);
    w.canvas.fill(s.start, s.startColor);
    w.canvas.fill(s.finish, s.finishColor);
    putWalkOnStart(s);
    s.phase = Phase::solving;
  }
  /// The corner that is the farthest on the grid of the kind.
  [[nodiscard]] Square lastCell(MazeKind kind) const {
    return kind == MazeKind::pipe ? squareOf(5, 3, w.state.wallWidth) : squareOf(6, 4, w.state.wallWidth);
  }
  void solve() {
    try {
      solvingmaze(w.program);
    } catch (const ProgramEnd&) {
    }
  }
  World w;
};

/// What a desktop sees until the maze is solved or the walk has ended.
struct Seen {
  std::vector<std::uint64_t> pumps{0};
  std::vector<std::int64_t> strokes;  ///< Pumps before which something was painted.
};

void look(Beginning& b, const std::function<void(const Program&)>& each) {
  b.w.canvas.takeDirty();
  b.w.desktop.everyPump = [&b, each](const Program& p) {
    each(p);
    if (p.state.phase == Phase::solved) throw ProgramEnd{};
    b.w.canvas.takeDirty();
  };
}

Seen seenInFull(Beginning& b) {
  Seen seen;
  look(b, [&](const Program& p) {
    seen.pumps.push_back(WholeLook(p).number());
    if (p.canvas.isDirty()) seen.strokes.push_back(b.w.desktop.pumps);
  });
  b.solve();
  return seen;
}

class AWalkToTheFinish : public ::testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(Settings, AWalkToTheFinish, ::testing::Range(std::size_t{0}, kSettings.size()));

TEST_P(AWalkToTheFinish, ShowsTheSameWheneverTheDesktopLooks) {
  const Setting& setting = kSettings.at(GetParam());
  std::int64_t passed = 0;
  std::int64_t pumps = 0;
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(std::string(setting.name) + ", seed " + std::to_string(seed));
    Beginning plain(setting, seed);
    const Seen seen = seenInFull(plain);

    Beginning quiet(setting, seed);
    BareDesktop& desktop = quiet.w.desktop;
    std::mt19937 chance(seed);
    desktop.quiet = [&](const Program&) {  // now and then a long time, mostly a pump or two
      const auto few = static_cast<std::int64_t>(chance() % 4);
      return std::min(chance() % 8 == 0 ? std::int64_t{3000} : few, desktop.limit - desktop.pumps);
    };
    std::int64_t different = 0;
    look(quiet, [&](const Program& p) {
      different += seen.pumps.at(static_cast<std::size_t>(desktop.pumps)) != WholeLook(p).number();
    });
    quiet.solve();
    ASSERT_EQ(different, 0);
    ASSERT_EQ(desktop.pumps, plain.w.desktop.pumps);
    ASSERT_EQ(desktop.messages, plain.w.desktop.messages);
    ASSERT_EQ(WholeLook(quiet.w.program).number(), WholeLook(plain.w.program).number());
    passed += desktop.passed;
    pumps += desktop.pumps;
  }
  if (setting.kind == MazeKind::regular) {
    EXPECT_GT(passed, pumps / 5) << "or nothing was compared";
  } else {
    EXPECT_EQ(passed, 0) << "crossings are the full pass's";
  }
}

TEST_P(AWalkToTheFinish, IsSeenStrokeByStrokeByADesktopThatShowsWhatIsPainted) {
  const Setting& setting = kSettings.at(GetParam());
  for (std::uint32_t seed = 1; seed <= 3; ++seed) {
    SCOPED_TRACE(std::string(setting.name) + ", seed " + std::to_string(seed));
    Beginning plain(setting, seed);
    const Seen seen = seenInFull(plain);

    Beginning shown(setting, seed);
    BareDesktop& desktop = shown.w.desktop;
    desktop.quiet = [&](const Program& p) {
      return p.canvas.isDirty() ? std::int64_t{0}
                                : std::min(std::int64_t{500}, desktop.limit - desktop.pumps);
    };
    std::vector<std::int64_t> strokes;
    std::int64_t different = 0;
    look(shown, [&](const Program& p) {
      different += seen.pumps.at(static_cast<std::size_t>(desktop.pumps)) != WholeLook(p).number();
      if (p.canvas.isDirty()) strokes.push_back(desktop.pumps);
    });
    shown.solve();
    EXPECT_EQ(different, 0);
    EXPECT_EQ(strokes, seen.strokes);
    EXPECT_GT(strokes.size(), 2U);
  }
}

/// A walk between two carved cells, and a desktop that looks at nothing.
struct Walk {
  Walk() : w(drawing({"****", "****"})) {
    ProgramState& s = w.state;
    s.phase = s.mazeStage = Phase::solving;
    s.start = squareOf(4, 2);
    s.finish = squareOf(1, 2);
    s.startColor = kRed - 1;
    s.finishColor = kGreen - 1;
    s.cur = s.prev = squareOf(2, 1);
    s.solver.probeX = s.cur.left + 1;
    s.solver.probeY = s.cur.top;
    s.deltaX = 1;
    noteLoopRules(w.program);
    applyEnableTable(w.program);
    noteLoopRules(w.program);
    for (int pass = 0; pass < 4; ++pass) repetition.isComplete(elsewhere());
    w.desktop.quiet = [](const Program&) { return std::int64_t{3}; };
  }
  /// The walk's state in passes before, each of which was somewhere else.
  ProgramState elsewhere() {
    ProgramState other = w.state;
    other.solver.probeX = 5000 + passesElsewhere++;
    return other;
  }
  /// \returns whether any pump was left out.
  bool isFollowed() {
    follow(w.program, repetition);
    return w.desktop.passed > 0;
  }
  World w;
  Repetition repetition;
  int passesElsewhere = 0;
};

TEST(AWalkWithinACell, IsFollowedAsLongAsTheDesktopAllows) {
  Walk walk;
  EXPECT_TRUE(walk.isFollowed());
  EXPECT_EQ(walk.w.desktop.passed, 3);
}

TEST(AWalkWithinACell, IsLeftToTheFullPassWhereThatHasMoreToDo) {
  const std::vector<std::pair<const char*, void (*)(World&)>> reasons = {
      {"a person plays", [](World& w) { w.state.playMode = PlayMode::easy; }},
      {"a person has just played", [](World& w) { w.state.solver.playModeSeen = PlayMode::hard; }},
      {"a person played at the pause", [](World& w) { w.state.solver.playModeAtPause = PlayMode::hard; }},
      {"it is paused", [](World& w) { w.state.paused = true; }},
      {"the solving has ended", [](World& w) { w.state.phase = Phase::placing; }},
      {"the stage is another", [](World& w) { w.state.mazeStage = Phase::making; }},
      {"another finish is asked for", [](World& w) { w.state.finishMethod = FinishMethod::largest; }},
      {"a marker may stand there", [](World& w) { w.state.trailOff = true; }},
      {"the trail was switched", [](World& w) { w.state.solver.trailOffSeen = true; }},
      {"the window is to be minimised", [](World& w) { w.state.autoMinimize = true; }},
      {"strokes would not be kept", [](World& w) { w.canvas.setAutoRedraw(false); }},
      {"crossings are tried", [](World& w) { w.state.mazeKind = MazeKind::threeD; }},
      {"a menu rule has something to say", [](World& w) { ++w.state.print.printedCount; }},
      {"the enable table has something to say", [](World& w) { w.state.nrefreshDue = true; }},
      {"it is in the start", [](World& w) { w.state.start = w.state.cur; }},
      {"it is in the finish", [](World& w) { w.state.finish = w.state.cur; }},
      {"an end's colour lies there", [](World& w) { w.canvas.fill(w.state.cur, kRed - 1); }},
      {"the probe is on the start's corner", [](World& w) { w.state.start = w.state.cur.moved(1, 0); }},
      {"the probe has left the Canvas", [](World& w) { w.state.solver.probeY = -1; }},
      {"the desktop looks", [](World& w) { w.desktop.quiet = nullptr; }},
  };
  for (const auto& [why, change] : reasons) {
    Walk walk;
    change(walk.w);
    EXPECT_FALSE(walk.isFollowed()) << why;
  }
}

TEST(AWalkWithinACell, IsLeftToTheFullPassWhereACircleMayClose) {
  Walk walk;
  Repetition& repetition = walk.repetition;
  while (repetition.passesBeforeKept() > 0) repetition.isComplete(walk.elsewhere());
  EXPECT_FALSE(walk.isFollowed()) << "its state is to be kept now";
  repetition.isComplete(walk.w.state);
  EXPECT_FALSE(walk.isFollowed()) << "it stands where it stood then";
  walk.w.state.solver.probeX += 3;
  EXPECT_TRUE(walk.isFollowed());
}

}  // namespace
}  // namespace gridwright::test
