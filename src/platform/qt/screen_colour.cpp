#include "platform/qt/screen_colour.h"

#include <algorithm>

namespace gridwright {

namespace {
constexpr int kAlpha = 190;  // the drawing shines through
}

QImage layerOf(const Bitmap& colours) {
  QImage layer(colours.width, colours.height, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < colours.height; ++y) {
    auto* to = reinterpret_cast<QRgb*>(layer.scanLine(y));
    std::transform(colours.row(y), colours.row(y) + colours.width, to, [](Colour colour) {
      const QRgb plain = screenPixel(colour);
      return colour == kOutside ? 0 : qPremultiply(qRgba(qRed(plain), qGreen(plain), qBlue(plain), kAlpha));
    });
  }
  return layer;
}

}  // namespace gridwright
