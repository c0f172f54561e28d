#include "maze/carve_ways.h"

#include <gtest/gtest.h>

#include <random>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr std::array kArrows = {key::left, key::right, key::up, key::down};

/// A drawing with a wall in it, carved by hand with arrows by chance, and now and then a walk back.
struct Carving : World {
  int opened = 0, refused = 0, tunnels = 0;
  std::string wrong;

  Carving(Item kind, std::uint32_t seed) : World(Size{140, 100}) {
    begin(drawing({"............", "....##......", "....##......", "............", "......#.....",
                   "............", "............"}));
    desktop.menu(Item::dontusepattern);
    desktop.menu(Item::newmaze);
    desktop.pumpsPass(3);
    if (kind != Item::newmaze) {
      desktop.menu(kind);
      desktop.pumpsPass(3);
    }
    std::mt19937 chance(seed);
    for (int i = 0; i < 120; ++i) {
      if (chance() % 8 == 0) {
        desktop.act([](Program& p) { input::keyDown(p, key::G); });
        desktop.pumpsPass(3);
      }
      tryArrow(chance() % 4);
    }
  }

  void tryArrow(std::size_t which) {
    auto before = std::make_shared<std::pair<Square, Way>>();
    desktop.look([before, which](Program& p) { *before = {p.state.cur, waysToCarve(p).at(which)}; });
    desktop.act([which](Program& p) { input::keyDown(p, kArrows.at(which)); });
    desktop.pumpsPass(4);
    desktop.look([this, before, which](Program& p) { judge(p, *before, which); });
  }

  void judge(const Program& p, const std::pair<Square, Way>& before, std::size_t which) {
    if (p.state.phase != Phase::making) return;
    const bool moved = p.state.cur != before.first;
    (before.second == Way::tunnel ? tunnels : moved ? opened : refused)++;
    if (before.second == Way::tunnel || moved == (before.second == Way::open)) return;
    wrong += " " + std::to_string(which) + (moved ? " moved" : " stood") + " at " +
             std::to_string(before.first.left) + "," + std::to_string(before.first.top);
  }
};

TEST(TheWaysOfWhoeverCarves, AreThoseThatTheArrowsTake) {
  int opened = 0, refused = 0;
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    Carving w(Item::newmaze, seed);
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(w.wrong, "") << seed;
    opened += w.opened;
    refused += w.refused;
  }
  EXPECT_GT(opened, 200);
  EXPECT_GT(refused, 200);
}

}  // namespace
}  // namespace gridwright::test
