#include "canvas/bitmap_encode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "canvas/bitmap_decode.h"
#include "canvas/canvas.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

constexpr std::size_t kHeaders = 54;  // bytes before the pixels

Bitmap motleyPicture(int width, int height) {
  std::mt19937 chance(static_cast<std::uint32_t>(width * 1000 + height));
  Bitmap picture = plainBitmap(width, height, 0);
  for (Colour& pixel : picture.pixels) pixel = static_cast<Colour>(chance() & 0xFFFFFFU);
  return picture;
}

TEST(AnEncodedPicture, HasTheBytesOfEachPixelFromTheBottomAndRowsFilledUpWithZeros) {
  for (int width = 1; width <= 9; ++width) {
    SCOPED_TRACE(width);
    const Bitmap picture = motleyPicture(width, 3);
    std::string expected;
    for (int y = 2; y >= 0; --y) {
      for (int x = 0; x < width; ++x) {
        for (const int shift : {16, 8, 0}) expected += static_cast<char>(picture.at(x, y) >> shift);
      }
      while (expected.size() % 4 != 0) expected += '\0';
    }
    EXPECT_EQ(encodeBitmapFile(picture).substr(kHeaders), expected);
  }
}

TEST(AnEncodedPicture, IsReadAgainAsItWas) {
  for (const Size size : {Size{1000, 1000}, Size{999, 700}, Size{1, 1000}, Size{1000, 1}}) {
    const Bitmap picture = motleyPicture(size.width, size.height);
    const auto read = decodeBitmapFile(encodeBitmapFile(picture), 1000);
    ASSERT_TRUE(read);
    EXPECT_TRUE(samePicture(read.value(), picture));
  }
}

TEST(AnEncodedPicture, HoldsRowsThatAreAlikeInMemoryOnce) {
  Bitmap picture = motleyPicture(5, 6);
  for (const int y : {1, 2, 4}) std::copy_n(picture.row(0), 5, &pixelAt(picture, 0, y));
  const BitmapFilePieces file(picture);
  const auto& pieces = file.pieces();  // the header, then the rows from the bottom
  ASSERT_EQ(pieces.size(), 7U);
  EXPECT_EQ(pieces[5].data(), pieces[6].data());
  EXPECT_EQ(pieces[4].data(), pieces[6].data());
  EXPECT_NE(pieces[3].data(), pieces[4].data());
  EXPECT_EQ(pieces[2], pieces[4]) << "another row lies between them";
  const std::string whole = encodeBitmapFile(picture);
  EXPECT_EQ(whole.size(), kHeaders + std::size_t{6} * 16);
  EXPECT_TRUE(samePicture(decodeBitmapFile(whole, 1000).value(), picture));
}

TEST(APlaneOfTheCanvas, IsEncodedWithoutItsMarks) {
  Canvas canvas;
  canvas.resize({7, 5});
  canvas.fill(1, 1, 4, 3, kPalette[6]);
  EXPECT_EQ(encodeBitmapFile(canvas.imageView()), encodeBitmapFile(canvas.image()));
}

}  // namespace
}  // namespace gridwright::test
