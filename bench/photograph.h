// A picture of 12 million pixels as a camera makes them.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <cstdint>

namespace gridwright::bench {

inline constexpr int kPhotographWidth = 4000, kPhotographHeight = 3000;

/// The bytes of a JPEG file: slopes of colour, a few edges, grain.
inline const QByteArray& photograph() {
  static const QByteArray bytes = [] {
    QImage image(kPhotographWidth, kPhotographHeight, QImage::Format_RGB32);
    std::uint32_t chance = 1;
    for (int y = 0; y < kPhotographHeight; ++y) {
      auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < kPhotographWidth; ++x) {
        chance = chance * 1664525U + 1013904223U;
        const int grain = static_cast<int>(chance >> 28);
        const bool isSun = (x - 2600) * (x - 2600) + (y - 900) * (y - 900) < 500 * 500;
        row[x] = isSun              ? qRgb(230 + grain, 190 + grain, 60 + grain)
                 : y < 1800 + x / 9 ? qRgb(60 + y / 20 + grain, 120 + grain, 200 + grain)
                                    : qRgb(40 + grain, 100 + y / 60 + grain, 30 + grain);
      }
    }
    QByteArray made;
    QBuffer buffer(&made);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", 90);
    return made;
  }();
  return bytes;
}

}  // namespace gridwright::bench
