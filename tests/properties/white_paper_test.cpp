// Pictures on white paper. Every maze colour is white as long as nobody picks another, so the paper counts
// as carved ground: free cells beside it look as if they could be entered from there.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/pictures.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Paper {
  int width, height;
};
constexpr std::array kPapers = {Paper{60, 60}, Paper{80, 60}, Paper{200, 150}};

struct Kind {
  const char* name;
  Item item;
};
constexpr std::array kKinds = {Kind{"regular", Item::createreg}, Kind{"3-d", Item::create3d},
                               Kind{"pipes", Item::create3dpipe}};

/// A navy picture with a white frame of ten pixels.
Bitmap framed(const Paper& paper) {
  Bitmap picture = plainBitmap(paper.width, paper.height, kWhite);
  for (int y = 10; y < paper.height - 10; ++y) {
    for (int x = 10; x < paper.width - 10; ++x) pixelAt(picture, x, y) = kNavy;
  }
  return picture;
}

TEST(APictureOnWhitePaper, BecomesAMazeThatEnds) {
  for (const Kind& kind : kKinds) {
    for (const Paper& paper : kPapers) {
      for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        World w;
        w.desktop.seed = seed;
        w.desktop.limit = 300'000;
        w.begin(framed(paper));
        w.desktop.menu(Item::cgenerate);
        if (kind.item != Item::createreg) w.desktop.menu(kind.item);
        w.desktop.menu(Item::newmaze);
        w.desktop.untilPhase(Phase::placing);
        EXPECT_EQ(w.run(), "") << kind.name << ", " << paper.width << "x" << paper.height << ", seed "
                               << seed;
      }
    }
  }
}

TEST(AMazeOnWhitePaperWithItsFinishInABoxOfItsOwn, IsToldToHaveNoWay) {
  const Bitmap picture = drawing(
      {"************", "*....*######", "*....*#....#", "*....*#....#", "*....*######", "************"}, 10,
      '*');
  for (const Kind& kind : kKinds) {
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
      World w;
      w.desktop.seed = seed;
      w.desktop.limit = 300'000;
      w.begin(picture);
      w.desktop.menu(Item::cgenerate);
      if (kind.item != Item::createreg) w.desktop.menu(kind.item);
      w.desktop.menu(Item::newmaze);
      w.desktop.untilPhase(Phase::placing);
      w.desktop.pumpsPass(1);
      w.desktop.act([](Program& p) {
        p.state.finish = squareOf(9, 3);
        p.state.ends.underFinish = kWhite;
      });
      w.desktop.menu(Item::solvemaze);
      w.desktop.untilPhase(Phase::placing);
      EXPECT_EQ(w.run(), "") << kind.name << ", seed " << seed;
      EXPECT_EQ(w.desktop.messages.size(), 1U) << kind.name << ", seed " << seed;
    }
  }
}

}  // namespace
}  // namespace gridwright::test
