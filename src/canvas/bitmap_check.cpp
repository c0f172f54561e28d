#include "canvas/bitmap_check.h"

#include <cstdint>

namespace gridwright {

namespace {

constexpr std::uint64_t kFileHeader = 14;
constexpr std::uint64_t kMostPixels = 100'000'000;
constexpr std::uint32_t kPlain = 0, kRle8 = 1, kRle4 = 2, kMasks = 3, kMasksWithAlpha = 6;

Fault broken(const char* why) { return {Fault::Kind::malformed, why}; }

/// Little-endian numbers at places that `has` has been asked about.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}
  [[nodiscard]] bool has(std::uint64_t upTo) const { return bytes_.size() >= upTo; }
  [[nodiscard]] std::uint32_t number(std::size_t at, int bytes) const {
    std::uint32_t value = 0;
    for (int i = bytes - 1; i >= 0; --i) {
      value = value << 8 | static_cast<std::uint8_t>(bytes_[at + static_cast<std::size_t>(i)]);
    }
    return value;
  }
  [[nodiscard]] std::int32_t signedNumber(std::size_t at) const {
    return static_cast<std::int32_t>(number(at, 4));
  }

 private:
  std::string_view bytes_;
};

struct Header {
  std::uint32_t pixelsAt = 0, size = 0, bits = 0, coding = kPlain, colours = 0;
  std::int64_t width = 0, height = 0;
  bool fromTop = false;
};

Outcome<Header> readHeader(const Reader& file) {
  if (!file.has(kFileHeader + 4) || file.number(0, 2) != 0x4D42) return broken("no bitmap file");
  Header h;
  h.pixelsAt = file.number(10, 4);
  h.size = file.number(14, 4);
  if (h.size != 12 && (h.size < 40 || h.size > 256)) return broken("unknown header");
  if (!file.has(kFileHeader + h.size)) return broken("cut off in the header");
  if (h.size == 12) {
    h.width = file.number(18, 2);
    h.height = file.number(20, 2);
    h.bits = file.number(24, 2);
    return h;
  }
  h.width = file.signedNumber(18);
  h.height = file.signedNumber(22);
  h.bits = file.number(28, 2);
  h.coding = file.number(30, 4);
  h.colours = file.number(46, 4);
  h.fromTop = h.height < 0;
  if (h.fromTop) h.height = -h.height;
  return h;
}

bool codingFits(const Header& h) {
  switch (h.coding) {
    case kPlain:
      return true;
    case kRle8:
      return h.bits == 8 && !h.fromTop;
    case kRle4:
      return h.bits == 4 && !h.fromTop;
    case kMasks:
    case kMasksWithAlpha:
      return h.bits == 16 || h.bits == 32;
    default:
      return false;
  }
}

/// Walks the runs of a coded picture: every row must be there, or skipped by the code itself.
bool runsAreWhole(std::string_view bytes, const Header& h) {
  std::size_t at = h.pixelsAt;
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
  std::int64_t x = 0;
  std::int64_t y = 0;
  while (at + 1 < bytes.size()) {
    const std::uint8_t count = byte(at);
    const std::uint8_t value = byte(at + 1);
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
      x += byte(at);
      y += byte(at + 1);
      at += 2;
    } else {  // a run of single pixels, padded to words
      const std::size_t length = h.bits == 8 ? value : (value + 1U) / 2;
      at += length + (length & 1U);
      if (at > bytes.size()) return false;
      x += value;
    }
    if (x > h.width || y > h.height) return false;
    if (y == h.height - 1 && x == h.width) return true;  // some writers leave the end mark out
  }
  return false;
}

}  // namespace

Outcome<Size> checkBitmapFile(std::string_view bytes) {
  const Reader file(bytes);
  const auto read = readHeader(file);
  if (!read) return read.fault();
  const Header& h = read.value();
  if (h.width <= 0 || h.height <= 0) return broken("sizes");
  if (static_cast<std::uint64_t>(h.width) * static_cast<std::uint64_t>(h.height) > kMostPixels) {
    return broken("too many pixels");
  }
  const bool known =
      h.bits == 1 || h.bits == 4 || h.bits == 8 || h.bits == 16 || h.bits == 24 || h.bits == 32;
  if (!known || !codingFits(h)) return broken("unknown depth or coding");

  const std::uint64_t masks = h.size == 40 && h.coding == kMasks            ? 12
                              : h.size == 40 && h.coding == kMasksWithAlpha ? 16
                                                                            : 0;
  std::uint64_t colours = h.bits <= 8 ? (h.colours != 0 ? h.colours : std::uint64_t{1} << h.bits) : 0;
  if (h.bits <= 8 && h.colours > (std::uint64_t{1} << h.bits)) return broken("too many colours");
  const std::uint64_t tableEnd = kFileHeader + h.size + masks + colours * (h.size == 12 ? 3 : 4);
  if (h.pixelsAt < tableEnd || !file.has(h.pixelsAt))
    return broken("the pixels do not begin where they should");
  if (h.coding == kRle8 || h.coding == kRle4) {
    if (!runsAreWhole(bytes, h)) return broken("cut off in the runs");
  } else {
    const std::uint64_t row = (static_cast<std::uint64_t>(h.width) * h.bits + 31) / 32 * 4;
    if (!file.has(h.pixelsAt + row * static_cast<std::uint64_t>(h.height))) return broken("cut off");
  }
  return Size{static_cast<int>(h.width), static_cast<int>(h.height)};
}

}  // namespace gridwright
