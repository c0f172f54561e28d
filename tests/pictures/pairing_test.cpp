// Which of the sixteen stands for which colour of a picture.
#include "pictures/pairing.h"

#include <gtest/gtest.h>

#include "pictures/lab.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

TEST(ColoursInLab, AreWhereTheEyeHasThem) {
  const Lab white = labOf(kWhite);
  EXPECT_NEAR(white.l, 100, 0.1);
  EXPECT_NEAR(white.a, 0, 0.1);
  EXPECT_NEAR(white.b, 0, 0.1);
  const Lab red = labOf(kRed);
  EXPECT_NEAR(red.l, 53.2, 0.1);
  EXPECT_NEAR(red.a, 80.1, 0.1);
  EXPECT_NEAR(red.b, 67.2, 0.1);
  EXPECT_NEAR(apart(labOf(kBlack), white), 100, 0.1);
}

TEST(AColour, GetsTheNearestChoice) {
  EXPECT_EQ(paired({0x101010, 0x901010, 0x1010A0}, {kNavy, kBlack, kMaroon}),
            (std::vector<Colour>{kBlack, kNavy, kMaroon}));
}

TEST(AChoiceThatTwoColoursAreNearTo, GoesToTheNearerOne) {
  EXPECT_EQ(paired({0x202020, 0x050505}, {kBlack, kNavy}), (std::vector<Colour>{kNavy, kBlack}));
  EXPECT_EQ(paired({0x050505, 0x202020}, {kBlack, kNavy}), (std::vector<Colour>{kBlack, kNavy}));
}

TEST(MoreColoursThanChoices, BeginAnewWhenAllAreTaken) {
  const auto pairs = paired({0x000000, 0x050505, 0x800000, 0x780808, 0x101010}, {kBlack, kNavy});
  EXPECT_EQ(std::count(pairs.begin(), pairs.begin() + 4, kBlack), 2);
  EXPECT_EQ(std::count(pairs.begin(), pairs.begin() + 4, kNavy), 2);
}

TEST(NoColours, NeedNoChoice) { EXPECT_TRUE(paired({}, {kBlack}).empty()); }

}  // namespace
}  // namespace gridwright::test
