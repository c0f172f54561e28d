#include "state/random.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace gridwright::test {
namespace {

TEST(OneDraw, TakesTwoOutputsOfTheEngineAsFiftyThreeBits) {
  std::mt19937 engine(4711);
  Random random;
  random.seed(4711);
  for (int i = 0; i < 1000; ++i) {
    const std::uint64_t a = engine() >> 5;
    const std::uint64_t b = engine() >> 6;
    ASSERT_EQ(random.rnd(), static_cast<double>(a * 67108864 + b) / 9007199254740992.0);
  }
}

TEST(TheDraws, AreThoseOfTheStandardEngineThroughManyBlocks) {
  for (const std::uint32_t seed : {0U, 1U, 5489U, 0xFFFFFFFFU}) {
    std::mt19937 engine(seed);
    Random random;
    random.seed(seed);
    for (int i = 0; i < 5000; ++i) {
      const std::uint64_t a = engine() >> 5;
      const std::uint64_t b = engine() >> 6;
      ASSERT_EQ(random.rnd(), static_cast<double>(a * 67108864 + b) / 9007199254740992.0) << seed << " " << i;
    }
  }
}

TEST(ANumberFromOneToFour, IsTheOneThatTheDrawGivesWithADivision) {
  Random short_;
  Random long_;
  short_.seed(77);
  long_.seed(77);
  for (int i = 0; i < 10'000; ++i) {
    const int drawn = i % 7 == 0 ? short_.oneTo(4) : short_.oneToFour();
    ASSERT_EQ(drawn, long_.oneTo(4)) << "draw " << i;
  }
  EXPECT_EQ(short_, long_);
}

TEST(TwoThatWillDrawTheSame, AreEqual) {
  Random one;
  Random other;
  EXPECT_EQ(one, other);
  one.rnd();
  EXPECT_NE(one, other);
  other.rnd();
  EXPECT_EQ(one, other);
}

TEST(AWholeNumber, IsFromOneToTheCountAndEachComesUp) {
  Random random;
  random.seed(1);
  std::array<int, 5> seen{};
  for (int i = 0; i < 4000; ++i) {
    const int drawn = random.oneTo(4);
    ASSERT_GE(drawn, 1);
    ASSERT_LE(drawn, 4);
    ++seen.at(static_cast<std::size_t>(drawn));
  }
  for (std::size_t number = 1; number <= 4; ++number) EXPECT_GT(seen[number], 800) << number;
}

TEST(TheSameSeed, GivesTheSameDraws) {
  Random one;
  Random other;
  one.seed(99);
  other.seed(99);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(one.rnd(), other.rnd());
}

}  // namespace
}  // namespace gridwright::test
