#include "history/colour_runs.h"

#include <gtest/gtest.h>

#include <random>

namespace gridwright::test {
namespace {

Runs packed(const std::vector<Colour>& pixels) {
  RunWriter writer;
  writer.add(pixels.data(), pixels.size());
  return writer.take();
}

TEST(PackedPixels, ComeBackAsTheyWere) {
  std::mt19937 random(1);
  for (const int colours : {1, 2, 1 << 25}) {
    std::vector<Colour> pixels;
    for (int run = 0; run < 300; ++run) {
      const auto colour = static_cast<Colour>(random() % static_cast<unsigned>(colours));
      pixels.insert(pixels.end(), random() % 400, colour);
    }
    EXPECT_EQ(unpacked(packed(pixels)), pixels) << colours;
  }
  EXPECT_TRUE(unpacked(packed({})).empty());
}

TEST(ACanvasOfOneColour, TakesAFewBytes) {
  EXPECT_LE(packed(std::vector<Colour>(1'000'000, 0x1FFFFFF)).size(), 8U);
}

TEST(RowsThatAreAddedOneByOne, AreOneRunWhereTheirColourGoesOn) {
  const std::vector<Colour> row(100, 5);
  RunWriter writer;
  for (int y = 0; y < 100; ++y) writer.add(row.data(), row.size());
  const Runs runs = writer.take();
  EXPECT_LE(runs.size(), 6U);
  EXPECT_EQ(unpacked(runs).size(), 10'000U);
}

}  // namespace
}  // namespace gridwright::test
