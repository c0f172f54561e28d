#include "canvas/bitmap_decode.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

#include "canvas/bitmap_check.h"
#include "canvas/bitmap_header.h"

namespace gridwright {

namespace {

/// One channel of a pixel that is packed into 16 or 32 bits, brought to 0 to 255: none gives 0, full 255.
struct Channel {
  std::uint32_t mask = 0;

  [[nodiscard]] Colour in(std::uint32_t pixel) const {
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    const std::uint64_t most = mask >> shift;
    const std::uint64_t value = (pixel & mask) >> shift;
    return static_cast<Colour>((value * 255 + most / 2) / most);
  }
};

class Decoder {
 public:
  Decoder(std::string_view bytes, const BitmapHeader& header, int side)
      : bytes_(bytes), file_(bytes), size_(bytes.size()), h_(header) {
    const auto cut = [side](std::int64_t extent) {
      return static_cast<int>(std::min<std::int64_t>(extent, side));
    };
    picture_ = plainBitmap(cut(h_.width), cut(h_.height), 0);
    if (picture_.width < h_.width || picture_.height < h_.height)
      picture_.cutFrom = {static_cast<int>(h_.width), static_cast<int>(h_.height)};
    readPalette();
    readChannels();
  }

  Bitmap decode() {
    if (h_.hasRuns()) {
      picture_.pixels.assign(picture_.pixels.size(), paletteColour(0));
      decodeRuns();
    } else {
      for (int y = 0; y < picture_.height; ++y) decodeRow(y);
    }
    return std::move(picture_);
  }

 private:
  static Colour fromBytes(std::uint32_t blue, std::uint32_t green, std::uint32_t red) {
    return static_cast<Colour>(red | green << 8 | blue << 16);
  }

  void readPalette() {
    const auto entry = static_cast<std::size_t>(h_.bytesOfEntry());
    std::size_t at = BitmapHeader::kFileHeader + h_.size;
    for (std::uint64_t i = 0; i < h_.paletteEntries(); ++i, at += entry) {
      palette_.push_back(fromBytes(file_.byte(at), file_.byte(at + 1), file_.byte(at + 2)));
    }
  }

  void readChannels() {
    if (h_.hasMasks()) {
      red_ = {file_.number(BitmapHeader::kMasksAt, 4)};
      green_ = {file_.number(BitmapHeader::kMasksAt + 4, 4)};
      blue_ = {file_.number(BitmapHeader::kMasksAt + 8, 4)};
    } else if (h_.bits == 16) {
      red_ = {0x7C00};
      green_ = {0x3E0};
      blue_ = {0x1F};
    } else {
      red_ = {0xFF0000};
      green_ = {0xFF00};
      blue_ = {0xFF};
    }
  }

  /// Only a pixel of a row's padding, which is put nowhere, has an index that the palette lacks.
  [[nodiscard]] Colour paletteColour(std::uint32_t index) const {
    return index < palette_.size() ? palette_[index] : 0;
  }

  void put(std::int64_t x, std::int64_t y, Colour colour) {
    if (x >= picture_.width || y >= picture_.height) return;
    picture_.pixels[static_cast<std::size_t>(y * picture_.width + x)] = colour;
  }

  void decodeRow(int y) {
    const std::int64_t row = h_.fromTop ? y : h_.height - 1 - y;
    const std::size_t from =
        h_.pixelsAt + static_cast<std::size_t>(row) * static_cast<std::size_t>(h_.bytesOfRow());
    if (h_.bits == 24) return decodePlainRow(from, y);
    for (int x = 0; x < picture_.width; ++x) put(x, y, pixelAt(from, static_cast<std::size_t>(x)));
  }

  /// The depth of the program's own pictures, which are read at every new maze.
  void decodePlainRow(std::size_t from, int y) {
    const auto width = static_cast<std::size_t>(picture_.width);
    const std::string_view row = bytes_.substr(from, 3 * width);
    Colour* out = picture_.pixels.data() + static_cast<std::size_t>(y) * width;
    for (std::size_t at = 0; at + 2 < row.size(); at += 3) {
      const auto channel = [&](std::size_t i) { return static_cast<std::uint8_t>(row[at + i]); };
      *out++ = fromBytes(channel(0), channel(1), channel(2));
    }
  }

  [[nodiscard]] Colour pixelAt(std::size_t row, std::size_t x) const {
    if (h_.bits <= 8) return paletteColour(file_.index(row, x, h_.bits));
    const std::size_t at = row + x * (h_.bits / 8);
    const std::uint32_t pixel = file_.number(at, static_cast<int>(h_.bits / 8));
    return red_.in(pixel) | green_.in(pixel) << 8 | blue_.in(pixel) << 16;
  }

  // The check has walked the same runs: they lie inside the file, and inside the picture and its padding.
  void decodeRuns() {
    std::size_t at = h_.pixelsAt;
    std::int64_t x = 0;
    std::int64_t y = h_.height - 1;
    while (at + 1 < size_) {
      const std::uint8_t count = file_.byte(at);
      const std::uint8_t value = file_.byte(at + 1);
      at += 2;
      if (count != 0) {
        for (std::size_t i = 0; i < count; ++i)
          put(x++, y, paletteColour(file_.index(at - 1, h_.bits == 8 ? 0 : i % 2, h_.bits)));
      } else if (value == 0) {
        x = 0;
        --y;
      } else if (value == 1) {
        return;
      } else if (value == 2) {
        x += file_.byte(at);
        y -= file_.byte(at + 1);
        at += 2;
      } else {
        for (std::size_t i = 0; i < value; ++i) put(x++, y, paletteColour(file_.index(at, i, h_.bits)));
        const std::size_t length = h_.bits == 8 ? value : (value + 1U) / 2;
        at += length + (length & 1U);
      }
      if (y < 0 || (y == 0 && x >= h_.width)) return;
    }
  }

  std::string_view bytes_;
  BitmapBytes file_;
  std::size_t size_;
  const BitmapHeader& h_;
  Bitmap picture_;
  std::vector<Colour> palette_;
  Channel red_, green_, blue_;
};

}  // namespace

Outcome<Bitmap> decodeBitmapFile(std::string_view bytes, int side) {
  const auto size = checkBitmapFile(bytes);
  if (!size) return size.fault();
  const auto header = readBitmapHeader(BitmapBytes(bytes));
  return Decoder(bytes, header.value(), side).decode();
}

}  // namespace gridwright
