#include "canvas/bitmap_check.h"

#include <algorithm>
#include <cstdint>

#include "canvas/bitmap_header.h"

namespace gridwright {

namespace {

constexpr std::uint64_t kMostPixels = 100'000'000;
constexpr std::uint64_t kRunBytesOfPixel = 4, kRoomForRuns = 8U << 20;
static_assert(kBitmapHead == BitmapHeader::kFileHeader + BitmapHeader::kLongest);

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
             (h.size == BitmapHeader::kUsual ||
              (h.size >= BitmapHeader::kWithMasks && h.size != BitmapHeader::kOs2));
    default:
      return false;
  }
}

/// Whether the palette has all the colours that so many bits can name, so that no pixel has to be looked at.
bool namesAll(const BitmapHeader& h) { return h.paletteEntries() == std::uint64_t{1} << h.bits; }

/// Whether the palette has the colour of each pixel of a plain row, or of a run of single pixels. It may lack
/// those of a row's padding.
bool isInPalette(const BitmapBytes& file, const BitmapHeader& h, std::size_t from, std::int64_t pixels) {
  if (namesAll(h)) return true;
  for (std::size_t i = 0; static_cast<std::int64_t>(i) < pixels; ++i) {
    if (file.index(from, i, h.bits) >= h.paletteEntries()) return false;
  }
  return true;
}

bool rowsAreInPalette(const BitmapBytes& file, const BitmapHeader& h) {
  if (h.bits > 8 || namesAll(h)) return true;
  for (std::int64_t y = 0; y < h.height; ++y) {
    const std::size_t row =
        h.pixelsAt + static_cast<std::size_t>(y) * static_cast<std::size_t>(h.bytesOfRow());
    if (!isInPalette(file, h, row, h.width)) return false;
  }
  return true;
}

constexpr const char* kCutInTheRuns = "cut off in the runs";
constexpr const char* kNotInThePalette = "a colour that its palette has not";

/// Walks the runs of a coded picture: every row must be there, or skipped by the code itself. Some writers
/// code the padding of a row too. \returns why it is not whole, or nothing.
class RunWalk {
 public:
  RunWalk(std::string_view bytes, const BitmapHeader& h)
      : bytes_(bytes), file_(bytes), h_(h), at_(h.pixelsAt) {}

  const char* faultOf() {
    while (at_ + 1 < bytes_.size()) {
      const std::uint8_t count = file_.byte(at_);
      const std::uint8_t value = file_.byte(at_ + 1);
      at_ += 2;
      if (count == 0 && value == 1) return nullptr;  // end of the picture
      const char* fault = count != 0 ? takeRun(count) : takeMark(value);
      if (fault != nullptr) return fault;
      if (x_ > h_.paddedWidth() || y_ > h_.height) break;
      if (y_ == h_.height - 1 && x_ >= h_.width) return nullptr;  // some writers leave the end mark out
    }
    return kCutInTheRuns;
  }

 private:
  /// Of the pixels from here on, so many as lie in the row.
  [[nodiscard]] std::int64_t inTheRow(std::int64_t pixels) const { return std::min(pixels, h_.width - x_); }

  const char* takeRun(std::uint8_t count) {
    // One byte holds its index, or two that take turns.
    const std::int64_t named = std::min<std::int64_t>(inTheRow(count), 8 / h_.bits);
    if (y_ < h_.height && !isInPalette(file_, h_, at_ - 1, named)) return kNotInThePalette;
    x_ += count;
    return nullptr;
  }

  const char* takeMark(std::uint8_t value) {
    if (value == 0) {  // end of the row
      x_ = 0;
      ++y_;
    } else if (value == 2) {  // a jump
      if (at_ + 1 >= bytes_.size()) return kCutInTheRuns;
      x_ += file_.byte(at_);
      y_ += file_.byte(at_ + 1);
      at_ += 2;
    } else {  // a run of single pixels, padded to words
      const std::size_t length = h_.bits == 8 ? value : (value + 1U) / 2;
      if (at_ + length + (length & 1U) > bytes_.size()) return kCutInTheRuns;
      if (y_ < h_.height && !isInPalette(file_, h_, at_, inTheRow(value))) return kNotInThePalette;
      at_ += length + (length & 1U);
      x_ += value;
    }
    return nullptr;
  }

  std::string_view bytes_;
  BitmapBytes file_;
  const BitmapHeader& h_;
  std::size_t at_;
  std::int64_t x_ = 0, y_ = 0;
};

/// Bytes of the masks that stand behind a header of 40 bytes; a longer one holds them.
std::uint64_t bytesOfMasks(const BitmapHeader& h) {
  if (h.size != BitmapHeader::kUsual || !h.hasMasks()) return 0;
  return h.coding == BitmapHeader::masks ? 12 : 16;
}

struct Extent {
  BitmapHeader header;
  std::uint64_t end =
      0;  ///< Behind the last byte that can belong to the picture; not behind the file's last.
};

/// All but the runs of a file of so many bytes, from those that it begins with.
Outcome<Extent> extentOf(std::string_view head, std::uint64_t length) {
  const auto read = readBitmapHeader(BitmapBytes(head));
  if (!read) return read.fault();
  const BitmapHeader& h = read.value();
  if (h.width <= 0 || h.height <= 0) return broken("no width or no height");
  const std::uint64_t pixels = static_cast<std::uint64_t>(h.width) * static_cast<std::uint64_t>(h.height);
  if (pixels > kMostPixels) return broken("too many pixels");
  const bool known =
      h.bits == 1 || h.bits == 4 || h.bits == 8 || h.bits == 16 || h.bits == 24 || h.bits == 32;
  if (!known || !codingFits(h)) return broken("an unknown depth or coding");
  if (h.bits <= 8 && h.colours > (std::uint64_t{1} << h.bits)) return broken("too many colours");

  const std::uint64_t tableEnd =
      BitmapHeader::kFileHeader + h.size + bytesOfMasks(h) + h.paletteEntries() * h.bytesOfEntry();
  if (h.pixelsAt < tableEnd || h.pixelsAt > length)
    return broken("the pixels do not begin where they should");
  if (h.hasRuns()) return Extent{h, std::min(length, h.pixelsAt + kRunBytesOfPixel * pixels + kRoomForRuns)};
  const std::uint64_t end = h.pixelsAt + h.bytesOfRow() * static_cast<std::uint64_t>(h.height);
  if (end > length) return broken("cut off");
  return Extent{h, end};
}

}  // namespace

Outcome<BitmapHeader> readBitmapHeader(const BitmapBytes& file) {
  if (file.has(2) && file.number(0, 2) != 0x4D42) return Fault{Fault::Kind::anotherFormat, "no bitmap file"};
  if (!file.has(BitmapHeader::kFileHeader + 4)) return broken("cut off in the header");
  BitmapHeader h;
  h.pixelsAt = file.number(10, 4);
  h.size = file.number(14, 4);
  const bool isShort = h.size == BitmapHeader::kShort || h.size == BitmapHeader::kOs2Short;
  if (!isShort && (h.size < BitmapHeader::kUsual || h.size > BitmapHeader::kLongest))
    return broken("an unknown header");
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
  const auto extent = extentOf(bytes, bytes.size());
  if (!extent) return extent.fault();
  const BitmapHeader& h = extent.value().header;
  if (h.hasRuns()) {
    const char* fault = RunWalk(bytes.substr(0, extent.value().end), h).faultOf();
    if (fault != nullptr) return broken(fault);
  } else if (!rowsAreInPalette(BitmapBytes(bytes), h)) {
    return broken(kNotInThePalette);
  }
  return Size{static_cast<int>(h.width), static_cast<int>(h.height)};
}

Outcome<std::uint64_t> bytesOfBitmap(std::string_view head, std::uint64_t length) {
  const auto extent = extentOf(head, length);
  if (!extent) return extent.fault();
  return extent.value().end;
}

}  // namespace gridwright
