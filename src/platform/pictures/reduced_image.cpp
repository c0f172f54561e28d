#include "platform/pictures/reduced_image.h"

#include <algorithm>
#include <utility>

#include "pictures/fit.h"
#include "platform/pictures/leptonica_work.h"

namespace gridwright {

namespace {

constexpr int kStripPixels = 1 << 20;  // taken at once
constexpr unsigned kHalfOpaque = 128;  // of 255

Colour onWhite(QRgb pixel) {
  const unsigned alpha = pixel >> 24;
  const auto mixed = [&](unsigned channel) {
    return static_cast<Colour>((channel * alpha + 255 * (255 - alpha) + 127) / 255);
  };
  return mixed(pixel >> 16 & 0xFF) | mixed(pixel >> 8 & 0xFF) << 8 | mixed(pixel & 0xFF) << 16;
}

Layer layerOfWhole(const QImage& image) {
  Layer layer{plainBitmap(image.width(), image.height(), 0), {}};
  const bool mayBeClear = image.hasAlphaChannel();
  const QImage plain = image.convertToFormat(mayBeClear ? QImage::Format_ARGB32 : QImage::Format_RGB32);
  if (mayBeClear) layer.clear.reserve(layer.colours.pixels.size());
  Colour* out = layer.colours.pixels.data();
  for (int y = 0; y < plain.height(); ++y) {
    const auto* in = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
    for (int x = 0; x < plain.width(); ++x) {
      *out++ = onWhite(mayBeClear ? in[x] : in[x] | 0xFF000000U);
      if (mayBeClear) layer.clear.push_back(in[x] >> 24 < kHalfOpaque ? 1 : 0);
    }
  }
  const bool isClear = std::find(layer.clear.begin(), layer.clear.end(), 1) != layer.clear.end();
  if (!isClear) layer.clear.clear();
  return layer;
}

/// Rows of the same width, below.
void append(Layer& layer, const Layer& rows) {
  auto& pixels = layer.colours.pixels;
  if (!rows.clear.empty()) layer.clear.resize(pixels.size());
  pixels.insert(pixels.end(), rows.colours.pixels.begin(), rows.colours.pixels.end());
  layer.clear.insert(layer.clear.end(), rows.clear.begin(), rows.clear.end());
  if (!layer.clear.empty()) layer.clear.resize(pixels.size());
  layer.colours.height += rows.colours.height;
}

}  // namespace

QRect middleOf(Size size) {
  const int width = std::min(size.width, kLongestSide);
  const int height = std::min(size.height, kLongestSide);
  return {(size.width - width) / 2, (size.height - height) / 2, width, height};
}

Layer layerOf(const QImage& image, const QRect& part) {
  return layerOfWhole(part == image.rect() ? image : image.copy(part));
}

Layer reducedLayerOf(const QImage& image) {
  const Size size{image.width(), image.height()};
  const Size target = fittedInto({kLongestSide, kLongestSide}, size);
  if (size.width <= kLongestSide && size.height <= kLongestSide) return layerOfWhole(image);
  // Whole pixels first, by strips; what is left of the way is less than two to one.
  const int across = size.width / target.width;
  const int down = size.height / target.height;
  const Size roughSize{size.width / across, size.height / down};
  const int stripRows = std::clamp(kStripPixels / (size.width * down), 1, roughSize.height);
  LeptonicaWork work;
  Layer rough;
  rough.colours.width = roughSize.width;
  for (int y = 0; y < roughSize.height; y += stripRows) {
    const int rows = std::min(stripRows, roughSize.height - y);
    const Layer strip = layerOf(image, {0, y * down, roughSize.width * across, rows * down});
    append(rough, scaledLayer(strip, {roughSize.width, rows}, work));
  }
  return scaledLayer(rough, target, work);
}

}  // namespace gridwright
