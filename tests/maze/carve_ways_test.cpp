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
  const bool hasUnderpasses;

  Carving(Item kind, std::uint32_t seed) : World(Size{140, 100}), hasUnderpasses(kind != Item::createreg) {
    begin(drawing({"............", "....##......", "....##......", "............", "......#.....",
                   "............", "............"}));
    if (hasUnderpasses) desktop.menu(kind);
    desktop.menu(Item::dontusepattern);
    desktop.menu(Item::newmaze);
    desktop.pumpsPass(3);
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
    // A tunnel that finds no end is refused, and a step beside one.
    const bool mayStand = before.second == Way::closed || hasUnderpasses;
    if (moved ? before.second != Way::closed : mayStand) return;
    wrong += " " + std::to_string(which) + (moved ? " moved" : " stood") + " at " +
             std::to_string(before.first.left) + "," + std::to_string(before.first.top);
  }
};

/// What the arrows did in a dozen mazes of a kind.
struct Counted {
  int opened = 0, refused = 0, tunnels = 0;
};

Counted carveMany(Item kind) {
  Counted all;
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    Carving w(kind, seed);
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(w.wrong, "") << seed;
    all.opened += w.opened;
    all.refused += w.refused;
    all.tunnels += w.tunnels;
  }
  return all;
}

TEST(TheWaysOfWhoeverCarves, AreThoseThatTheArrowsTake) {
  const Counted all = carveMany(Item::createreg);
  EXPECT_GT(all.opened, 200);
  EXPECT_GT(all.refused, 200);
  EXPECT_EQ(all.tunnels, 0);
}

TEST(TheWaysOfWhoeverCarves, AreNeverClosedWhereAnArrowLeadsUnderACorridor) {
  for (const Item kind : {Item::create3d, Item::create3dpipe}) {
    const Counted all = carveMany(kind);
    EXPECT_GT(all.opened, 100);
    EXPECT_GT(all.refused, 100);
    EXPECT_GT(all.tunnels, 20);
  }
}

}  // namespace
}  // namespace gridwright::test
