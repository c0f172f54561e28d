// Planes of bits, held against plain loops.
#include "pictures/bit_plane.h"

#include <gtest/gtest.h>

#include <random>

namespace gridwright::test {
namespace {

BitPlane noise(Size size, unsigned seed, unsigned oneIn) {
  std::mt19937 random(seed);
  BitPlane plane(size);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      if (random() % oneIn != 0) plane.set(x, y);
    }
  }
  return plane;
}

TEST(APlaneOfBits, SetsSpansAcrossWordsAndLeavesOutWhatLiesOutside) {
  BitPlane plane({130, 3});
  plane.setSpan(1, 60, 70);
  plane.setSpan(0, -5, 300);
  plane.setSpan(-1, 0, 5);
  plane.setSpan(3, 0, 5);
  plane.setSpan(2, 9, 4);
  EXPECT_EQ(plane.count(), 130 + 11);
  plane.clearSpan(0, 64, 127);
  EXPECT_EQ(plane.count(), 66 + 11);
  EXPECT_EQ(plane.bounds(), (Square{0, 0, 129, 1}));
  EXPECT_FALSE(plane.at(-1, 0));
  EXPECT_FALSE(plane.at(130, 0));
}

TEST(APlaneOfBits, FindsTheNextAndThePreviousOfAKind) {
  BitPlane plane({200, 1});
  plane.setSpan(0, 63, 128);
  EXPECT_EQ(plane.next(0, 0, true), 63);
  EXPECT_EQ(plane.next(0, 63, false), 129);
  EXPECT_EQ(plane.next(0, 129, true), 200);
  EXPECT_EQ(plane.next(0, 129, false), 129);
  EXPECT_EQ(plane.previous(0, 200, true), 128);
  EXPECT_EQ(plane.previous(0, 100, false), 62);
  EXPECT_EQ(plane.previous(0, 63, true), -1);
  EXPECT_EQ(plane.previous(0, 0, false), -1);
}

TEST(BoxesThatFit, AreThoseOfWhichAllIsSet) {
  for (const Size box : {Size{1, 1}, Size{2, 3}, Size{5, 1}, Size{7, 4}, Size{70, 2}}) {
    const BitPlane plane = noise({150, 20}, 9, 40);
    const BitPlane fit = plane.boxesThatFit(box);
    BitPlane covered(plane.size());
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 150; ++x) {
        const Square here{x, y, x + box.width - 1, y + box.height - 1};
        ASSERT_EQ(fit.at(x, y), plane.all(here)) << x << ',' << y;
        if (fit.at(x, y)) covered.setBox(here);
      }
    }
    EXPECT_EQ(fit.coveredByBoxes(box), covered);
  }
}

TEST(APartCutOut, IsLaidBackWhereItWas) {
  const BitPlane plane = noise({100, 10}, 3, 2);
  BitPlane again(plane.size());
  again.lay(plane.cut({0, 0, 69, 9}), 0, 0);
  again.lay(plane.cut({70, 0, 110, 12}), 70, 0);
  EXPECT_EQ(again, plane);
  BitPlane rest = plane;
  rest.without(again);
  EXPECT_EQ(rest.count(), 0);
}

}  // namespace
}  // namespace gridwright::test
