// What holds of every maze whose corridors run under each other: it ends, it is a tree with the
// underpasses counted, it is solved from any two cells, the trail is the one way, and the found finish
// is the best one.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "support/maze_reading.h"
#include "support/trail_reading.h"
#include "support/tunnel_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Setting {
  const char* name;
  Item kind;
  Item length;
};
const std::array kSettings = {Setting{"3-d", Item::create3d, Item::pthick},
                              Setting{"short pipes", Item::create3dpipe, Item::pthick},
                              Setting{"long pipes", Item::create3dpipe, Item::pthin}};
constexpr std::array kLevels = {Item::mode1, Item::mode2, Item::mode3, Item::mode4, Item::mode5, Item::mode6};

/// Drawings of one room each, so that the maze is one tree.
const std::array kRooms = {
    Text{"...........", "...........", "...........", "...........", "...........", "...........",
         "..........."},
    Text{".........", ".........", ".........", "...###...", "...###...", "...###...", ".........",
         ".........", "........."},
    Text{"...............", "...............", "...............", ".....,,,,,.....", ".....,,,,,....."},
    Text{".....##.....", ".....##.....", ".....##.....", "............", "............", "............",
         "............"},
    Text{"###.....###", "###.....###", "###.....###", "...........", "....,,,....", "....,,,....",
         "...........", "...........", "###.....###", "###.....###", "###.....###"},
};

/// Four rooms without a door.
const Text kHouse = {".......###########", ".......#.........#", ".......#.........#", ".......#.........#",
                     "########.........#", ".....###.........#", ".....#############", ".....##..........#",
                     ".....##..........#", "#######..........#"};

/// A session up to the maze, and then whatever the test adds to the desktop's list.
struct Session {
  Session(const Text& cells, const Setting& setting, int level, Item size, std::uint32_t seed,
          int wall = 10) {
    world.desktop.seed = seed;
    world.desktop.limit = 3'000'000;
    world.begin(drawing(cells, wall));
    if (wall != 10) {
      world.desktop.menu(Item::changewallsize);
      world.desktop.enter(ControlId::Text2, std::to_string(wall));
    }
    world.desktop.menu(Item::cgenerate);
    world.desktop.menu(setting.kind);
    world.desktop.menu(kLevels.at(static_cast<std::size_t>(level - 1)));
    world.desktop.menu(size);
    if (setting.length == Item::pthin) world.desktop.menu(Item::pthin);
    world.desktop.menu(Item::newmaze);
    world.desktop.untilPhase(Phase::placing);
    world.desktop.pumpsPass(1);
  }
  [[nodiscard]] TunnelReading reading() {
    return {*world.desktop.file("drawing3.bmp"), PlainSets(world.program.colours), world.state.wallWidth};
  }
  World world;
};

std::string nameOf(const Setting& setting, int level, Item size, std::uint32_t seed, std::size_t room) {
  return std::string(setting.name) + ", difficulty " + std::to_string(level) +
         (size == Item::plarge ? ", large paths" : ", normal paths") + ", seed " + std::to_string(seed) +
         ", room " + std::to_string(room);
}

/// Start and finish on two cells of the maze, by chance, as if they had been moved there.
void placeByChance(Session& session, std::mt19937& random, int& start, int& finish) {
  session.world.desktop.act([&](Program& p) {
    const TunnelReading maze = session.reading();
    const auto cells = maze.carvedCells();
    start = cells[random() % cells.size()];
    do finish = cells[random() % cells.size()];
    while (finish == start);
    p.state.start = maze.squareAt(start);
    p.state.finish = maze.squareAt(finish);
    p.state.ends.underStart = p.state.ends.underFinish = kWhite;
  });
  session.world.desktop.pumpsPass(1);
}

std::string treeFault(const TunnelReading& maze) {
  const auto cells = maze.carvedCells();
  const auto reach = maze.reachFrom(cells.front());
  const auto reached = std::count_if(cells.begin(), cells.end(),
                                     [&](int c) { return reach[static_cast<std::size_t>(c)].reached; });
  const auto count = static_cast<int>(cells.size());
  if (reached == count && maze.wayCount() == count - 1) return {};
  return std::to_string(count) + " cells, " + std::to_string(reached) + " reached, " +
         std::to_string(maze.wayCount()) + " ways of which " + std::to_string(maze.tunnels()) + " tunnels";
}

/// How many pieces hang together, underpasses counted.
int pieces(const TunnelReading& maze) {
  int count = 0;
  std::vector<bool> seen;
  for (const int cell : maze.carvedCells()) {
    const auto reach = maze.reachFrom(cell);
    seen.resize(reach.size());
    if (seen[static_cast<std::size_t>(cell)]) continue;
    ++count;
    for (std::size_t i = 0; i < reach.size(); ++i) seen[i] = seen[i] || reach[i].reached;
  }
  return count;
}

class EverySetting : public ::testing::TestWithParam<Setting> {};

TEST_P(EverySetting, MakesOneTreeThatIsSolvedByItsOnlyWay) {
  const Setting& setting = GetParam();
  std::mt19937 random(7);
  int tunnels = 0;
  for (int level = 1; level <= 6; ++level) {
    for (const Item size : {Item::pnormal, Item::plarge}) {
      for (std::uint32_t seed = 1; seed <= 28; ++seed) {
        const std::size_t room = seed % kRooms.size();
        const std::string name = nameOf(setting, level, size, seed, room);
        Session session(kRooms.at(room), setting, level, size, seed);
        int start = -1, finish = -1;
        placeByChance(session, random, start, finish);
        session.world.desktop.menu(Item::solvemaze);
        session.world.desktop.untilPhase(Phase::solved);
        ASSERT_EQ(session.world.run(), "") << name;
        const TunnelReading maze = session.reading();
        ASSERT_EQ(treeFault(maze), "") << name;
        EXPECT_EQ(trailFault(maze, session.world.program, start, finish), "")
            << name << " from " << start << " to " << finish;
        tunnels += maze.tunnels();
      }
    }
  }
  EXPECT_GT(tunnels, 0);
}

TEST_P(EverySetting, MakesATreeInEachRoomOfAHouse) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    Session session(kHouse, GetParam(), 1 + static_cast<int>(seed % 6), Item::pnormal, seed);
    ASSERT_EQ(session.world.run(), "") << seed;
    const TunnelReading maze = session.reading();
    const int trees = pieces(maze);
    EXPECT_GE(trees, 4) << seed;
    EXPECT_EQ(static_cast<int>(maze.carvedCells().size()) - maze.wayCount(), trees) << seed;
  }
}

TEST_P(EverySetting, WorksAtTheSmallestAndAtAnOddWallSize) {
  for (const int wall : {5, 7, 12}) {
    for (std::uint32_t seed = 1; seed <= 4; ++seed) {
      Session session(kRooms[0], GetParam(), 4, Item::plarge, seed, wall);
      session.world.desktop.menu(Item::solvemaze);
      session.world.desktop.untilPhase(Phase::solved);
      ASSERT_EQ(session.world.run(), "") << wall << " seed " << seed;
      EXPECT_EQ(treeFault(session.reading()), "") << wall << " seed " << seed;
    }
  }
}

TEST_P(EverySetting, FindsTheFinishThatTheTwinFinds) {
  const Setting& setting = GetParam();
  int compared = 0;
  for (const Item option : {Item::largestsolution, Item::includeunderpasses, Item::mostunderpasses}) {
    for (const int level : {2, 4, 6}) {
      for (std::uint32_t seed = 1; seed <= 5; ++seed) {
        const std::string name = nameOf(setting, level, Item::pnormal, seed, seed % kRooms.size());
        Session session(kRooms.at(seed % kRooms.size()), setting, level, Item::pnormal, seed);
        session.world.desktop.menu(option);
        session.world.desktop.until(
            [](const Program& p) { return p.state.finishFound && p.state.phase == Phase::placing; });
        session.world.desktop.pumpsPass(1);
        ASSERT_EQ(session.world.run(), "") << name;
        const TunnelReading maze = session.reading();
        if (maze.hasClosedCells()) continue;  // such a cell is half a step; the twin has no halves
        ++compared;
        const auto reach = maze.reachFrom(maze.cellOf(session.world.state.start));
        const auto worth = [&](int cell) {
          const auto& r = reach[static_cast<std::size_t>(cell)];
          if (option == Item::largestsolution) return std::pair{0, r.joins};
          if (option == Item::includeunderpasses) return std::pair{0, r.joins + r.spans};
          return std::pair{r.underpasses, r.joins};
        };
        auto best = worth(maze.cellOf(session.world.state.start));
        for (const int cell : maze.carvedCells()) best = std::max(best, worth(cell));
        EXPECT_EQ(worth(maze.cellOf(session.world.state.finish)), best) << name << ", " << rowOf(option).name;
      }
    }
  }
  EXPECT_GT(compared, 22) << "at least every second maze";
}

TEST(TheFarthestFinish, IsTheFirstAmongEqualsInWalkingOrder) {
  int equals = 0;
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    World w;
    w.desktop.seed = seed;
    w.begin(drawing(kRooms.at(seed % kRooms.size())));
    w.desktop.menu(Item::cgenerate);
    w.desktop.menu(Item::largestsolution);
    w.desktop.menu(Item::newmaze);
    w.desktop.until([](const Program& p) { return p.state.finishFound && p.state.phase == Phase::placing; });
    w.desktop.pumpsPass(1);
    ASSERT_EQ(w.run(), "") << seed;
    const TunnelReading maze{*w.desktop.file("drawing3.bmp"), PlainSets(w.program.colours), 10, false};
    const int start = maze.cellOf(w.state.start);
    const auto reach = maze.reachFrom(start);
    int best = start;
    int asFar = 0;
    for (const int cell : maze.leftHandOrder(start)) {
      const int farther =
          reach[static_cast<std::size_t>(cell)].joins - reach[static_cast<std::size_t>(best)].joins;
      if (farther > 0) best = cell;
      asFar = farther > 0 ? 1 : asFar + (farther == 0);
    }
    equals += asFar > 1;
    EXPECT_EQ(maze.cellOf(w.state.finish), best) << seed;
  }
  EXPECT_GT(equals, 3) << "there was a choice";
}

INSTANTIATE_TEST_SUITE_P(Settings, EverySetting, ::testing::ValuesIn(kSettings), [](const auto& setting) {
  std::string name = setting.param.name;
  name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c == ' ' || c == '-'; }),
             name.end());
  return name;
});

}  // namespace
}  // namespace gridwright::test
