// The walker with a pattern: a recorded walk against the file.
#include <gtest/gtest.h>

#include <algorithm>

#include "patterns/pattern_commands.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Steps kPattern = {1, 1, 3, 1, 1, 4, 1, 1, 3, 3, 1, 1};

int codeOfMove(const Square& from, const Square& to) {
  if (to.left < from.left) return step::left;
  if (to.left > from.left) return step::right;
  return to.top < from.top ? step::up : step::down;
}

/// The steps that the walker took in its first passes.
Steps walkOf(std::uint32_t seed, std::size_t length) {
  World w(Size{810, 610});
  w.desktop.seed = seed;
  w.begin(drawing(Text(60, std::string(80, '.'))));
  w.desktop.pumpsPass(2);
  w.desktop.look([](Program& p) {
    for (int to = 1; to <= 4; ++to) {
      Steps image;
      for (const int code : kPattern) image.push_back(imageOfStep(step::left, to, code));
      p.steps.write(MazeKind::regular, to, image);
    }
    // The walk begins in the middle, where nothing is in a pattern's way.
    p.state.cur = p.state.prev = {400, 300, 409, 309};
  });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  Steps walk;
  Square last;
  w.desktop.until([&](const Program& p) {
    if (p.state.phase != Phase::making) return false;
    if (last.right != 0 && !p.state.cur.sameCorner(last)) walk.push_back(codeOfMove(last, p.state.cur));
    last = p.state.cur;
    return walk.size() >= length;
  });
  EXPECT_EQ(w.run(), "");
  return walk;
}

bool isImageOfThePattern(const Steps& walk, std::size_t at) {
  if (at + kPattern.size() > walk.size()) return false;
  for (int to = 1; to <= 4; ++to) {
    bool same = true;
    for (std::size_t i = 0; i < kPattern.size(); ++i)
      same = same && walk[at + i] == imageOfStep(step::left, to, kPattern[i]);
    if (same) return true;
  }
  return false;
}

TEST(AWalkerWithAPattern, FollowsItCodeForCodeWhileNothingRefuses) {
  int walked = 0, twice = 0;
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    const Steps walk = walkOf(seed, 60);
    std::size_t first = 0;
    while (first < walk.size() && !isImageOfThePattern(walk, first)) ++first;
    if (first == walk.size()) continue;  // the picture's edge was in the way all along
    ++walked;
    twice += isImageOfThePattern(walk, first + kPattern.size()) ? 1 : 0;
  }
  EXPECT_GE(walked, 8) << "twelve steps in a row are no chance";
  EXPECT_GT(twice, 2) << "one pattern follows on another";
}

}  // namespace
}  // namespace gridwright::test
