// A walk that a person began at the keys and the computer ends leaves the answer that the computer leaves
// alone, wherever it is handed over.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/tunnel_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Setting {
  const char* name;
  Item kind;
  Item length;
  Text room;
};
const std::array kSettings = {
    Setting{"3-d", Item::create3d, Item::pthick, {".......", ".......", ".......", ".......", "......."}},
    Setting{"short pipes", Item::create3dpipe, Item::pthick, Text(7, "...........")},
    Setting{"long pipes", Item::create3dpipe, Item::pthin, Text(7, "...........")}};

struct Play {
  Item mode;
  bool trail;
  bool underPanel;  ///< Handed over while the box that asks for a number of mazes holds the window.
};
constexpr std::array kPlays = {Play{Item::easymode, true, false}, Play{Item::easymode, false, false},
                               Play{Item::hardmode, true, false}, Play{Item::hardmode, false, false},
                               Play{Item::easymode, false, true}};

/// A session in which the same maze is solved again and again.
class Session {
 public:
  Session(const Setting& setting, int wall, std::uint32_t seed) {
    world.desktop.seed = seed;
    world.begin(drawing(setting.room, wall));
    world.desktop.menu(Item::changewallsize);
    world.desktop.enter(ControlId::Text2, std::to_string(wall));
    world.desktop.menu(Item::cgenerate);
    world.desktop.menu(setting.kind);
    world.desktop.menu(Item::mode6);
    if (setting.length == Item::pthin) world.desktop.menu(Item::pthin);
    world.desktop.menu(Item::newmaze);
    world.desktop.untilPhase(Phase::placing);
    world.desktop.act([this](Program& p) {
      if (placeEnds(p)) solveAndPlay();
    });
  }

  World world;
  int compared = 0;  ///< Answers; none where the maze has no tunnel.

 private:
  /// The start at the mouth of a tunnel, the finish as far from it as can be.
  bool placeEnds(Program& p) {
    const TunnelReading maze{*world.desktop.file("drawing3.bmp"), PlainSets(p.colours), p.state.wallWidth};
    const auto cells = maze.carvedCells();
    std::vector<int> mouths;
    std::copy_if(cells.begin(), cells.end(), std::back_inserter(mouths),
                 [&](int c) { return maze.isMouth(c); });
    if (mouths.empty()) return false;
    const int start =
        mouths.at(static_cast<std::size_t>(p.random.oneTo(static_cast<int>(mouths.size())) - 1));
    const auto reach = maze.reachFrom(start);
    const auto far = [&](int c) {
      const auto& r = reach[static_cast<std::size_t>(c)];
      return r.joins + 2 * r.underpasses;
    };
    const int finish =
        *std::max_element(cells.begin(), cells.end(), [&](int a, int b) { return far(a) < far(b); });
    p.state.start = maze.squareAt(start);
    p.state.finish = maze.squareAt(finish);
    p.state.ends.underStart = p.state.ends.underFinish = kWhite;
    for (const int cell : cells) {
      Way way{{}, maze.squareAt(cell)};
      bool overFinish = false;
      for (int c = cell; c != -1; c = reach[static_cast<std::size_t>(c)].from) {
        way.cells.push_back(maze.squareAt(c));
        overFinish = overFinish || c == finish;
      }
      std::reverse(way.cells.begin(), way.cells.end());
      if (!overFinish) ways_.push_back(way);
    }
    return true;
  }

  struct Way {
    std::vector<Square> cells;  ///< From the start on.
    Square last;
  };

  void solveAndPlay() {
    world.desktop.pumpsPass(1);
    world.desktop.menu(Item::solvemaze);
    world.desktop.untilPhase(Phase::solved);
    world.desktop.look([this](Program& p) { alone_ = p.canvas.image(); });
    placeAnew();
    for (const Play& play : kPlays) {
      for (const Way& way : ways_) playAndHandOver(play, way);
    }
  }

  void placeAnew() {
    world.desktop.menu(Item::sandf);
    world.desktop.untilPhase(Phase::placing);
    world.desktop.pumpsPass(1);
  }

  void press(int code) {
    world.desktop.act([code](Program& p) { input::keyDown(p, code); });
    world.desktop.pumpsPass(1);
  }

  void playAndHandOver(const Play& play, const Way& way) {
    BareDesktop& desktop = world.desktop;
    desktop.menu(play.mode);
    if (!play.trail) desktop.menu(Item::leavetrail);
    desktop.menu(Item::solvemaze);
    desktop.pumpsPass(2);
    for (std::size_t i = 1; i < way.cells.size(); ++i) {
      const Square& from = way.cells[i - 1];
      const Square& to = way.cells[i];
      press(to.left < from.left   ? key::left
            : to.left > from.left ? key::right
            : to.top < from.top   ? key::up
                                  : key::down);
    }
    const std::string name = std::string(rowOf(play.mode).name) + (play.trail ? ", a trail" : ", no trail") +
                             (play.underPanel ? ", panel" : "") + ", at (" + std::to_string(way.last.left) +
                             ", " + std::to_string(way.last.top) + ")";
    desktop.look([way, name](Program& p) { EXPECT_TRUE(p.state.cur.sameCorner(way.last)) << name; });
    if (play.underPanel) desktop.menu(Item::printwithsolutions);
    desktop.menu(Item::playmodeoff);
    if (play.underPanel) desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text3); });
    desktop.untilPhase(Phase::solved);
    desktop.look([this, name](Program& p) {
      ++compared;
      EXPECT_TRUE(samePicture(p.canvas.image(), alone_)) << name;
    });
    if (!play.trail) desktop.menu(Item::leavetrail);
    placeAnew();
  }

  Bitmap alone_;
  std::vector<Way> ways_;
};

class EverySetting : public ::testing::TestWithParam<Setting> {};

TEST_P(EverySetting, LeavesTheComputersOwnAnswerWhereverItIsHandedOver) {
  constexpr int kMazes = 3;
  for (int wall = 5; wall <= 12; ++wall) {
    std::uint32_t seed = 0;
    for (int mazes = 0; mazes < kMazes; ++seed) {
      SCOPED_TRACE("wall " + std::to_string(wall) + ", seed " + std::to_string(seed));
      Session session(GetParam(), wall, seed);
      ASSERT_EQ(session.world.run(), "");
      if (session.compared == 0) continue;
      ++mazes;
      EXPECT_GT(session.compared, 50);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(AWalk, EverySetting, ::testing::ValuesIn(kSettings), [](const auto& setting) {
  std::string name = setting.param.name;
  name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c == ' ' || c == '-'; }),
             name.end());
  return name;
});

}  // namespace
}  // namespace gridwright::test
