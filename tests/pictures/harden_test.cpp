#include "pictures/harden.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/pictures/leptonica_work.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// The library's work; it notes of what a median was asked.
struct Noting : LeptonicaWork {
  Bitmap smoothed(const Bitmap& picture, int side) override {
    asked = {picture.width, picture.height};
    return LeptonicaWork::smoothed(picture, side);
  }
  Size asked;
};

/// A picture of chance on paper; it reaches as far past its part as the hardening of edges does.
Bitmap motleyOnPaper(Size size, const Square& part) {
  constexpr int kPast = 4;
  std::mt19937 chance(7);
  Bitmap picture = plainBitmap(size.width, size.height, kWhite);
  for (int y = std::max(part.top - kPast, 0); y <= std::min(part.bottom + kPast, size.height - 1); ++y) {
    for (int x = std::max(part.left - kPast, 0); x <= std::min(part.right + kPast, size.width - 1); ++x)
      pixelAt(picture, x, y) = static_cast<Colour>(chance() & 0xFFFFFFU);
  }
  return picture;
}

TEST(ThePaperAroundAPicture, IsLeftOutOfTheMedian) {
  Noting work;
  const Square part{100, 120, 139, 149};
  withoutNoise(motleyOnPaper({300, 300}, part), part, 5, 2, work);
  EXPECT_LT(work.asked.width, 80);
  EXPECT_LT(work.asked.height, 70);
}

TEST(ThePaperAroundAPicture, ChangesNothingByBeingLeftOut) {
  const Size size{90, 70};
  const Square whole{0, 0, size.width - 1, size.height - 1};
  for (const Square& part : {Square{30, 30, 50, 40}, Square{40, 35, 40, 35}, Square{0, 0, 20, 69},
                             Square{25, 3, 88, 60}, Square{2, 2, 87, 67}, whole}) {
    for (const int side : {5, 11}) {
      SCOPED_TRACE(testing::Message() << part.left << "," << part.top << " side " << side);
      LeptonicaWork work;
      const Bitmap picture = motleyOnPaper(size, part);
      EXPECT_TRUE(samePicture(withoutNoise(picture, part, side, 2, work),
                              withoutNoise(picture, whole, side, 2, work)));
    }
  }
}

TEST(APictureWithoutAPart, IsPaperAndStays) {
  LeptonicaWork work;
  const Bitmap paper = plainBitmap(20, 20, kWhite);
  EXPECT_TRUE(samePicture(withoutNoise(paper, {60, 60, 20, 20}, 5, 2, work), paper));
}

/// The mask without the pixels that stand alone, found one by one.
Mask withoutLonely(const Mask& mask, Size size) {
  Mask kept = mask;
  const auto at = [&](int x, int y) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) + static_cast<std::size_t>(x);
  };
  const auto holds = [&](int x, int y) {
    return x >= 0 && y >= 0 && x < size.width && y < size.height && mask[at(x, y)] != 0;
  };
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      bool isLonely = true;
      for (int i = 0; i < 9; ++i) isLonely = isLonely && (i == 4 || !holds(x - 1 + i % 3, y - 1 + i / 3));
      if (isLonely) kept[at(x, y)] = 0;
    }
  }
  return kept;
}

TEST(AMask, LosesItsSpecksAndNothingElseAtAnyWidth) {
  std::mt19937 chance(3);
  LeptonicaWork work;
  for (const int width : {1, 2, 7, 31, 32, 33, 63, 64, 65, 97, 200}) {
    SCOPED_TRACE(width);
    const Size size{width, 9};
    Mask mask(static_cast<std::size_t>(width) * 9);
    for (std::size_t at = 0; at < mask.size(); ++at) mask[at] = at % 71 < 40 && chance() % 4 == 0 ? 255 : 0;
    Mask expected = withoutLonely(mask, size);
    for (std::uint8_t& pixel : expected) pixel = pixel != 0 ? 1 : 0;
    EXPECT_EQ(work.withoutSpecks(mask, size, 2), expected);
  }
}

}  // namespace
}  // namespace gridwright::test
