#include "canvas/bitmap_check.h"

#include <cstdint>

#include "canvas/bitmap_header.h"

namespace gridwright {

namespace {

constexpr std::uint64_t kMostPixels = 100'000'000;

Fault broken(const char* why) { return {Fault::Kind::malformed, why}; }

bool codingFits(const BitmapHeader& h) {
  switch (h.coding) {
    case BitmapHeader::plain:
      return true;
    case BitmapHeader::rle8:
      return h.bits == 8 && !h.fromTop;
    case BitmapHeader::rle4:
      return h.bits == 4 && !h.fromTop;
    case BitmapHeader::masks:
    case BitmapHeader::masksWithAlpha:
      return (h.bits == 16 || h.bits == 32) &&
             (h.size == 40 || (h.size >= BitmapHeader::kWithMasks && h.size != BitmapHeader::kOs2));
    default:
      return false;
  }
}

/// Walks the runs of a coded picture: every row must be there, or skipped by the code itself. Some writers
/// code the padding of a row too.
bool runsAreWhole(std::string_view bytes, const BitmapHeader& h) {
  const BitmapBytes file(bytes);
  std::size_t at = h.pixelsAt;
  std::int64_t x = 0;
  std::int64_t y = 0;
  while (at + 1 < bytes.size()) {
    const std::uint8_t count = file.byte(at);
    const std::uint8_t value = file.byte(at + 1);
    at += 2;
    if (count != 0) {
      x += count;
    } else if (value == 0) {  // end of the row
      x = 0;
      ++y;
    } else if (value == 1) {  // end of the picture
      return true;
    } else if (value == 2) {  // a jump
      if (at + 1 >= bytes.size()) return false;
      x += file.byte(at);
      y += file.byte(at + 1);
      at += 2;
    } else {  // a run of single pixels, padded to words
      const std::size_t length = h.bits == 8 ? value : (value + 1U) / 2;
      at += length + (length & 1U);
      if (at > bytes.size()) return false;
      x += value;
    }
    if (x > h.paddedWidth() || y > h.height) return false;
    if (y == h.height - 1 && x >= h.width) return true;  // some writers leave the end mark out
  }
  return false;
}

}  // namespace

Outcome<BitmapHeader> readBitmapHeader(const BitmapBytes& file) {
  if (file.has(2) && file.number(0, 2) != 0x4D42) return Fault{Fault::Kind::anotherFormat, "no bitmap file"};
  if (!file.has(BitmapHeader::kFileHeader + 4)) return broken("cut off in the header");
  BitmapHeader h;
  h.pixelsAt = file.number(10, 4);
  h.size = file.number(14, 4);
  const bool isShort = h.size == BitmapHeader::kShort || h.size == BitmapHeader::kOs2Short;
  if (!isShort && (h.size < 40 || h.size > 256)) return broken("an unknown header");
  if (!file.has(BitmapHeader::kFileHeader + h.size)) return broken("cut off in the header");
  if (h.size == BitmapHeader::kShort) {
    h.width = file.number(18, 2);
    h.height = file.number(20, 2);
    h.bits = file.number(24, 2);
    return h;
  }
  h.width = static_cast<std::int32_t>(file.number(18, 4));
  h.height = static_cast<std::int32_t>(file.number(22, 4));
  h.bits = file.number(28, 2);
  if (h.size != BitmapHeader::kOs2Short) {
    h.coding = file.number(30, 4);
    h.colours = file.number(46, 4);
  }
  h.fromTop = h.height < 0;
  if (h.fromTop) h.height = -h.height;
  return h;
}

Outcome<Size> checkBitmapFile(std::string_view bytes) {
  const BitmapBytes file(bytes);
  const auto read = readBitmapHeader(file);
  if (!read) return read.fault();
  const BitmapHeader& h = read.value();
  if (h.width <= 0 || h.height <= 0) return broken("no width or no height");
  if (static_cast<std::uint64_t>(h.width) * static_cast<std::uint64_t>(h.height) > kMostPixels) {
    return broken("too many pixels");
  }
  const bool known =
      h.bits == 1 || h.bits == 4 || h.bits == 8 || h.bits == 16 || h.bits == 24 || h.bits == 32;
  if (!known || !codingFits(h)) return broken("an unknown depth or coding");
  if (h.bits <= 8 && h.colours > (std::uint64_t{1} << h.bits)) return broken("too many colours");

  const std::uint64_t masks = h.size != 40                               ? 0
                              : h.coding == BitmapHeader::masks          ? 12
                              : h.coding == BitmapHeader::masksWithAlpha ? 16
                                                                         : 0;
  const std::uint64_t tableEnd =
      BitmapHeader::kFileHeader + h.size + masks + h.paletteEntries() * h.bytesOfEntry();
  if (h.pixelsAt < tableEnd || !file.has(h.pixelsAt)) {
    return broken("the pixels do not begin where they should");
  }
  if (h.hasRuns()) {
    if (!runsAreWhole(bytes, h)) return broken("cut off in the runs");
  } else if (!file.has(h.pixelsAt + h.bytesOfRow() * static_cast<std::uint64_t>(h.height))) {
    return broken("cut off");
  }
  return Size{static_cast<int>(h.width), static_cast<int>(h.height)};
}

}  // namespace gridwright
