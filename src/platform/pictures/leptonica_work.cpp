#include "platform/pictures/leptonica_work.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace gridwright {

namespace {

struct Destroy {
  void operator()(Pix* pix) const { pixDestroy(&pix); }
};
using PixPointer = std::unique_ptr<Pix, Destroy>;

/// The library gives no picture only when there is no memory for one: sizes and depths are ours.
PixPointer owned(Pix* pix) {
  if (pix == nullptr) throw std::bad_alloc();
  return PixPointer(pix);
}

constexpr int kWordBits = 32;  // pixels of a mask, the leftmost highest

l_uint32* rowOf(Pix* pix, int y) { return pixGetData(pix) + static_cast<std::ptrdiff_t>(y) * pixGetWpl(pix); }

PixPointer pixOf(const Bitmap& picture) {
  PixPointer pix = owned(pixCreateNoInit(picture.width, picture.height, 32));
  for (int y = 0; y < picture.height; ++y) {
    const Colour* in = picture.row(y);
    l_uint32* out = rowOf(pix.get(), y);
    for (int x = 0; x < picture.width; ++x) {
      const auto pixel = static_cast<l_uint32>(in[x]);  // 0x00BBGGRR becomes 0xRRGGBB00
      out[x] = pixel << 24 | (pixel & 0xFF00U) << 8 | (pixel >> 8 & 0xFF00U);
    }
  }
  return pix;
}

/// A picture of exactly this size: where rounding made the library's one pixel smaller, the last one stands
/// twice.
Bitmap bitmapOf(Pix* pix, Size size) {
  Bitmap picture = plainBitmap(size.width, size.height, 0);
  const int lastColumn = pixGetWidth(pix) - 1;
  const int lastRow = pixGetHeight(pix) - 1;
  Colour* out = picture.pixels.data();
  for (int y = 0; y < size.height; ++y) {
    const l_uint32* in = rowOf(pix, std::min(y, lastRow));
    for (int x = 0; x < size.width; ++x) {
      const l_uint32 pixel = in[std::min(x, lastColumn)];
      *out++ = static_cast<Colour>(pixel >> 24 | (pixel >> 8 & 0xFF00U) | (pixel << 8 & 0xFF0000U));
    }
  }
  return picture;
}

PixPointer pixOf(const Mask& mask, Size size) {
  constexpr std::array<std::uint8_t, kWordBits> kNothing{};
  PixPointer pix = owned(pixCreate(size.width, size.height, 1));  // all clear
  const std::uint8_t* in = mask.data();
  for (int y = 0; y < size.height; ++y) {
    l_uint32* out = rowOf(pix.get(), y);
    for (int x = 0; x < size.width; x += kWordBits, ++out) {
      const int count = std::min(kWordBits, size.width - x);
      const std::uint8_t* const begin = in;
      in += count;
      if (std::equal(begin, begin + count, kNothing.begin())) continue;  // most of most masks
      for (int i = 0; i < count; ++i) *out |= l_uint32{begin[i] != 0} << (kWordBits - 1 - i);
    }
  }
  return pix;
}

Mask maskOf(Pix* pix, Size size) {
  Mask mask(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
  std::uint8_t* out = mask.data();
  for (int y = 0; y < size.height; ++y) {
    const l_uint32* in = rowOf(pix, y);
    for (int x = 0; x < size.width; x += kWordBits, ++in) {
      const int count = std::min(kWordBits, size.width - x);
      for (int i = 0; *in != 0 && i < count; ++i)
        out[i] = static_cast<std::uint8_t>(*in >> (kWordBits - 1 - i) & 1);
      out += count;
    }
  }
  return mask;
}

/// The library tells on standard error what it makes of odd calls; nobody reads that.
void silence() {
  static const int once = setMsgSeverity(L_SEVERITY_NONE);
  static_cast<void>(once);
}

}  // namespace

Bitmap LeptonicaWork::scaled(const Bitmap& picture, Size size) {
  silence();
  if (picture.pixels.empty() || Size{picture.width, picture.height} == size) return picture;
  const PixPointer pix = pixOf(picture);
  const float across = static_cast<float>(size.width) / static_cast<float>(picture.width);
  const float down = static_cast<float>(size.height) / static_cast<float>(picture.height);
  // The library has no means of areas for a picture of one row or column.
  constexpr int kSmall = 4;
  if (std::min({picture.width, picture.height, size.width, size.height}) < kSmall) {
    return bitmapOf(owned(pixScaleBySamplingToSize(pix.get(), size.width, size.height)).get(), size);
  }
  if (across > 1 || down > 1) {
    // No sharpening: it would lay a rim around every edge.
    return bitmapOf(owned(pixScaleGeneral(pix.get(), across, down, 0.0F, 0)).get(), size);
  }
  // The library goes by the means of areas only where much is lost; nearer to one to one it takes what lies
  // between two pixels, and a line of one pixel may lie between two of those. So it begins with twice the
  // size.
  constexpr float kMuch = 0.7F;
  if (across < kMuch && down < kMuch) {
    return bitmapOf(owned(pixScaleAreaMap(pix.get(), across, down)).get(), size);
  }
  const PixPointer twice = owned(pixExpandReplicate(pix.get(), 2));
  return bitmapOf(owned(pixScaleAreaMap(twice.get(), across / 2, down / 2)).get(), size);
}

Bitmap LeptonicaWork::smoothed(const Bitmap& picture, int side) {
  silence();
  if (picture.pixels.empty() || side <= 1 || std::min(picture.width, picture.height) < side) return picture;
  const PixPointer pix = pixOf(picture);
  const PixPointer result = owned(pixMedianFilter(pix.get(), side, side));
  return bitmapOf(result.get(), {picture.width, picture.height});
}

Segments LeptonicaWork::segmented(const Bitmap& picture, int most) {
  silence();
  Segments segments;
  if (picture.pixels.empty()) return segments;
  const PixPointer pix = pixOf(picture);
  constexpr int kNearest = 40;  // how far apart, a channel, colours are that may stand for themselves
  const PixPointer result = owned(pixColorSegment(pix.get(), kNearest, most, 0, most, 0));
  PIXCMAP* map = pixGetColormap(result.get());
  for (int i = 0; i < pixcmapGetCount(map); ++i) {
    l_int32 red = 0;
    l_int32 green = 0;
    l_int32 blue = 0;
    pixcmapGetColor(map, i, &red, &green, &blue);
    segments.colours.push_back(red | green << 8 | blue << 16);
  }
  const int depth = pixGetDepth(result.get());
  segments.labels.reserve(picture.pixels.size());
  for (int y = 0; y < picture.height; ++y) {
    const l_uint32* in = rowOf(result.get(), y);
    for (int x = 0; x < picture.width; ++x) {
      const auto label = depth == 8   ? GET_DATA_BYTE(in, x)
                         : depth == 4 ? GET_DATA_QBIT(in, x)
                         : depth == 2 ? GET_DATA_DIBIT(in, x)
                                      : GET_DATA_BIT(in, x);
      segments.labels.push_back(static_cast<std::uint8_t>(label));
    }
  }
  return segments;
}

Mask LeptonicaWork::withoutSpecks(const Mask& mask, Size size, int least) {
  silence();
  if (mask.empty() || least <= 1) return mask;
  const PixPointer pix = pixOf(mask, size);
  l_int32 isEmpty = 0;
  pixZero(pix.get(), &isEmpty);
  if (isEmpty != 0) return mask;
  const PixPointer large =
      owned(pixSelectBySize(pix.get(), least, least, 8, L_SELECT_IF_EITHER, L_SELECT_IF_GTE, nullptr));
  return maskOf(large.get(), size);
}

std::vector<std::uint8_t> LeptonicaWork::depths(const Mask& mask, Size size) {
  silence();
  if (mask.empty()) return {};
  const PixPointer pix = pixOf(mask, size);
  const PixPointer result = owned(pixDistanceFunction(pix.get(), 8, 8, L_BOUNDARY_BG));
  std::vector<std::uint8_t> depths;
  depths.reserve(mask.size());
  for (int y = 0; y < size.height; ++y) {
    const l_uint32* in = rowOf(result.get(), y);
    for (int x = 0; x < size.width; ++x) depths.push_back(static_cast<std::uint8_t>(GET_DATA_BYTE(in, x)));
  }
  return depths;
}

}  // namespace gridwright
