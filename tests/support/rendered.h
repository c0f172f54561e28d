// Pictures that were taken elsewhere, as other programs see them.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <string>

#include "support/pictures.h"
#include "support/printed_pages.h"

namespace gridwright::test {

/// What a see-through pixel is read as: no colour of a Canvas.
inline constexpr Colour kHole = -7;

inline Bitmap bitmapOf(const QImage& image) {
  Bitmap bitmap = plainBitmap(image.width(), image.height(), 0);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      pixelAt(bitmap, x, y) =
          qAlpha(pixel) == 0 ? kHole : qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16;
    }
  }
  return bitmap;
}

inline Bitmap readPng(const std::filesystem::path& path) {
  const QImage image(QString::fromStdString(path.string()));
  EXPECT_FALSE(image.isNull()) << path;
  return bitmapOf(image);
}

/// What stands in the middle of each pixel of a picture of this size that lies in a box of a larger one.
inline Bitmap middlesOf(const Bitmap& large, Size size, double left, double top, double width,
                        double height) {
  Bitmap middles = plainBitmap(size.width, size.height, 0);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x)
      pixelAt(middles, x, y) = large.at(static_cast<int>(left + (x + 0.5) * width / size.width),
                                        static_cast<int>(top + (y + 0.5) * height / size.height));
  }
  return middles;
}
inline Bitmap middlesOf(const Bitmap& large, Size size) {
  return middlesOf(large, size, 0, 0, large.width, large.height);
}

/// An SVG as librsvg draws it, four of its pixels a pixel.
inline Bitmap drawnSvg(const std::filesystem::path& path) {
  const std::string drawn = path.string() + ".drawn.png";
  EXPECT_EQ(outputOf("rsvg-convert -z 4 -o '" + drawn + "' '" + path.string() + "'"), "");
  return readPng(drawn);
}

/// A picture of this size on the only page of a document, A4 with margins of 10 mm, as poppler draws it.
inline Bitmap middlesOnPage(const std::filesystem::path& path, Size size) {
  const std::string name = path.string();
  EXPECT_NE(outputOf("pdfinfo '" + name + "'").find("Pages:           1\n"), std::string::npos);
  EXPECT_EQ(outputOf("pdftoppm -r 150 -singlefile '" + name + "' '" + name + "'"), "");
  const Bitmap page = readPpm(name + ".ppm");
  const double rim = page.width / (page.width > page.height ? 297.0 : 210.0) * 10;
  const double scale = std::min((page.width - 2 * rim) / size.width, (page.height - 2 * rim) / size.height);
  const double width = scale * size.width, height = scale * size.height;
  return middlesOf(page, size, (page.width - width) / 2, (page.height - height) / 2, width, height);
}

}  // namespace gridwright::test
