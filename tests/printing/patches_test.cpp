#include "printing/patches.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// What comes of layers that are drawn one after the other.
Bitmap painted(Bitmap onto, const ColourLayers& layers) {
  for (const ColourLayer& layer : layers) {
    for (const Patch& p : layer.patches) {
      for (int y = p.y; y < p.y + p.height; ++y)
        for (int x = p.x; x < p.x + p.width; ++x) pixelAt(onto, x, y) = layer.colour;
    }
  }
  return onto;
}

ColourLayers layers(const Text& rows) { return layersOf(pixels(rows), 1000).value(); }

Bitmap blank(const Bitmap& like) { return plainBitmap(like.width, like.height, kOutside); }

/// Pixels in blocks, so that runs merge, of so many colours.
Bitmap anyPicture(std::mt19937& chance, int side, int block, std::mt19937::result_type colours) {
  Bitmap picture = plainBitmap(side, side, 0);
  for (int y = 0; y < side; y += block) {
    for (int x = 0; x < side; x += block) {
      const Colour colour = kPalette[chance() % colours];
      const int right = x + block - static_cast<int>(chance() % 2);
      for (int v = y; v < std::min(side, y + block); ++v)
        for (int u = x; u < std::min(side, right); ++u) pixelAt(picture, u, v) = colour;
    }
  }
  return picture;
}

TEST(APictureInPatches, IsTheMostFrequentColourAsLargeAsThePictureAndTheOthersOnIt) {
  const ColourLayers cut = layers({"....", ".##.", ".##.", "...."});
  ASSERT_EQ(cut.size(), 2U);
  EXPECT_EQ(cut[0].colour, kNavy);
  EXPECT_EQ(cut[0].patches, std::vector<Patch>({{0, 0, 4, 4}}));
  EXPECT_EQ(cut[1].colour, kBlue);
  EXPECT_EQ(cut[1].patches, std::vector<Patch>({{1, 1, 2, 2}}));
}

TEST(ARun, GoesOnDownwardsAsLongAsItIsTheSame) {
  const ColourLayers cut = layers({"....#...", "....#...", ".#####..", "....#...", "....#.#."});
  ASSERT_EQ(cut.size(), 2U);
  EXPECT_EQ(cut[1].patches, std::vector<Patch>({{4, 0, 1, 2}, {1, 2, 5, 1}, {4, 3, 1, 2}, {6, 4, 1, 1}}));
}

TEST(ColoursAsFrequentAsEachOther, AreDrawnAsTheyComeInThePicture) {
  const ColourLayers cut = layers({"....", "r=#.", "#=r."});
  ASSERT_EQ(cut.size(), 4U);
  EXPECT_EQ(cut[1].colour, kRed);
  EXPECT_EQ(cut[2].colour, kLime);
  EXPECT_EQ(cut[3].colour, kBlue);
}

TEST(AColourBesideALaterOne, ReachesBelowItSoThatNothingShowsBetweenThem) {
  const ColourLayers cut = layers({"........", "........", "..####..", "..##r=..", "..##rr..", "........"});
  ASSERT_EQ(cut.size(), 4U);
  EXPECT_EQ(cut[1].colour, kBlue);
  EXPECT_EQ(cut[1].patches, std::vector<Patch>({{2, 2, 4, 2}, {2, 4, 3, 1}}));
  EXPECT_EQ(cut[2].colour, kRed);
  EXPECT_EQ(cut[2].patches, std::vector<Patch>({{4, 3, 2, 2}}));
  EXPECT_EQ(cut[3].patches, std::vector<Patch>({{5, 3, 1, 1}}));
}

TEST(WhatIsAbovePixelsColours, IsLookedPast) {
  Bitmap picture = pixels({"..", ".#"});
  pixelAt(picture, 0, 0) |= 0x40000000;
  EXPECT_EQ(countPatches(layersOf(picture, 10).value()), 2U);
}

TEST(APictureInPatches, IsThatPicturePixelForPixelWhateverItsColours) {
  std::mt19937 chance(19);
  for (int i = 0; i < 300; ++i) {
    const int block = 1 + i % 6;
    const Bitmap picture = anyPicture(chance, 24, block, 2 + chance() % 9);
    const auto cut = layersOf(picture, 10000);
    ASSERT_TRUE(cut);
    ASSERT_TRUE(samePicture(painted(blank(picture), *cut), picture)) << "picture " << i;
  }
}

TEST(NeighboursOfTwoColours, AreNeverDrawnBesideEachOtherOnly) {
  std::mt19937 chance(7);
  for (int i = 0; i < 100; ++i) {
    const Bitmap picture = anyPicture(chance, 20, 1 + i % 5, 2 + chance() % 5);
    const ColourLayers cut = layersOf(picture, 10000).value();
    std::vector<Bitmap> upTo;  // what stands after each layer
    Bitmap canvas = blank(picture);
    for (const ColourLayer& layer : cut) upTo.push_back(canvas = painted(canvas, {layer}));
    const auto rankAt = [&](int x, int y) {
      return std::find_if(cut.begin(), cut.end(),
                          [&](const auto& l) { return l.colour == picture.at(x, y); }) -
             cut.begin();
    };
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x + 1 < picture.width; ++x) {
        // The earlier of two neighbours reaches below the later one.
        const auto left = rankAt(x, y);
        const auto right = rankAt(x + 1, y);
        const Bitmap& after = upTo[static_cast<std::size_t>(std::min(left, right))];
        ASSERT_EQ(after.at(x, y), after.at(x + 1, y)) << "picture " << i << " at " << x << ", " << y;
      }
    }
  }
}

TEST(PatchesOverAPicture, AreOnlyWhatIsDifferent) {
  const Text maze = {"#####", "#...#", "#####"};
  const auto over = layersOver(pixels(maze), pixels({"#####", "#rrr#", "#####"}), 10).value();
  ASSERT_EQ(over.size(), 1U);
  EXPECT_EQ(over[0].colour, kRed);
  EXPECT_EQ(over[0].patches, std::vector<Patch>({{1, 1, 3, 1}}));
  EXPECT_EQ(countPatches(layersOver(pixels(maze), pixels(maze), 10).value()), 0U);
}

TEST(PatchesOverAPicture, MakeTheOtherPictureOfIt) {
  std::mt19937 chance(3);
  for (int i = 0; i < 200; ++i) {
    const Bitmap below = anyPicture(chance, 24, 1 + i % 5, 4);
    const Bitmap picture = anyPicture(chance, 24, 1 + i % 7, 4);
    const auto cut = layersOver(below, picture, 10000);
    ASSERT_TRUE(cut);
    ASSERT_TRUE(samePicture(painted(below, *cut), picture)) << "picture " << i;
  }
}

TEST(APictureOfTooManyPatches, IsNotCut) {
  std::mt19937 chance(1);
  const Bitmap noise = anyPicture(chance, 60, 1, 16);
  EXPECT_FALSE(layersOf(noise, 1000));
  const std::size_t needed = countPatches(layersOf(noise, 100000).value());
  EXPECT_TRUE(layersOf(noise, needed));
  EXPECT_FALSE(layersOf(noise, needed - 1));
  EXPECT_FALSE(layersOver(plainBitmap(60, 60, kOutside), noise, 1000));
}

TEST(APictureWithoutPixels, HasNoPatches) { EXPECT_TRUE(layersOf(Bitmap{}, 0)->empty()); }

}  // namespace
}  // namespace gridwright::test
