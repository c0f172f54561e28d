#include "platform/shared/png_writer.h"

#include <gtest/gtest.h>

#include "platform/shared/image_files.h"
#include "state/export_panel.h"
#include "support/rendered.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

QImage imageIn(const std::string& bytes) { return QImage::fromData(QByteArray::fromStdString(bytes), "PNG"); }

/// More colours than a palette holds.
Bitmap colourful() {
  Bitmap picture = plainBitmap(40, 20, 0);
  Colour colour = 0x010203;
  for (Colour& pixel : picture.pixels) pixel = (colour = (colour * 77 + 11) & kColourBits);
  return picture;
}

TEST(APng, HoldsEachPixelAsASquareOfItsColour) {
  for (const Bitmap& picture : {pixels({"..", ".#", "*y"}), colourful()}) {
    for (const int scale : {1, 3}) {
      const Bitmap large = bitmapOf(imageIn(pngOf(picture, scale, 300)));
      ASSERT_EQ((Size{large.width, large.height}), (Size{picture.width * scale, picture.height * scale}));
      for (int y = 0; y < large.height; ++y)
        for (int x = 0; x < large.width; ++x)
          ASSERT_EQ(large.at(x, y), picture.at(x / scale, y / scale)) << x << ", " << y;
    }
  }
}

TEST(APng, IsSeeThroughWhereThePictureIs) {
  for (Bitmap picture : {pixels({"..", ".#", ".."}), colourful()}) {
    pixelAt(picture, 1, 1) |= kSeeThrough;
    const QImage image = imageIn(pngOf(picture, 2, 300));
    EXPECT_EQ(qAlpha(image.pixel(2, 2)), 0);
    EXPECT_EQ(qAlpha(image.pixel(3, 3)), 0);
    EXPECT_EQ(qAlpha(image.pixel(1, 2)), 255);
    EXPECT_EQ(qAlpha(image.pixel(2, 1)), 255);
    EXPECT_EQ(bitmapOf(image).at(1, 1), picture.at(0, 0));
  }
}

TEST(APng, TellsItsDotsAnInch) {
  for (const auto& [dpi, aMetre] : {std::pair{72, 2835}, std::pair{300, 11811}, std::pair{1200, 47244}}) {
    const QImage image = imageIn(pngOf(pixels({"."}), 1, dpi));
    EXPECT_EQ(image.dotsPerMeterX(), aMetre);
    EXPECT_EQ(image.dotsPerMeterY(), aMetre);
  }
}

TEST(APng, ComesInSmallPiecesHoweverLargeItIs) {
  std::size_t most = 0, whole = 0;
  EXPECT_TRUE(writePng(colourful(), 100, 300, [&](std::string_view bytes) {
    most = std::max(most, bytes.size());
    whole += bytes.size();
    return true;
  }));
  EXPECT_LE(most, 65536U);
  EXPECT_LT(whole, 200000U) << "24 million bytes of pixels, most of them as the ones above";
}

TEST(APng, IsGivenUpWhereItsBytesAreNotTaken) {
  int taken = 0;
  EXPECT_FALSE(writePng(colourful(), 2, 300, [&](std::string_view) { return ++taken < 4; }));
  EXPECT_EQ(taken, 4);
  EXPECT_FALSE(writePng(Bitmap{}, 1, 300, [](std::string_view) { return true; }));
}

}  // namespace
}  // namespace gridwright::test
