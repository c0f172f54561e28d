// The head of a bitmap file, as its check and its decoder read it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "canvas/outcome.h"

namespace gridwright {

/// Little-endian numbers at places that `has` has been asked about.
class BitmapBytes {
 public:
  explicit BitmapBytes(std::string_view bytes) : bytes_(bytes) {}
  [[nodiscard]] bool has(std::uint64_t upTo) const { return bytes_.size() >= upTo; }
  [[nodiscard]] std::uint8_t byte(std::size_t at) const { return static_cast<std::uint8_t>(bytes_[at]); }
  [[nodiscard]] std::uint32_t number(std::size_t at, int bytes) const {
    std::uint32_t value = 0;
    for (int i = bytes - 1; i >= 0; --i) value = value << 8 | byte(at + static_cast<std::size_t>(i));
    return value;
  }
  /// Pixel `i` of those that are packed from there on, the first in the highest of so many bits, 8 at most.
  [[nodiscard]] std::uint32_t index(std::size_t from, std::size_t i, std::uint32_t bits) const {
    const std::size_t bit = i * bits;
    const auto shift = 8 - bits - static_cast<std::uint32_t>(bit % 8);
    return static_cast<std::uint32_t>(byte(from + bit / 8)) >> shift & ((1U << bits) - 1);
  }

 private:
  std::string_view bytes_;
};

struct BitmapHeader {
  enum Coding : std::uint32_t { plain = 0, rle8 = 1, rle4 = 2, masks = 3, masksWithAlpha = 6 };
  /// `kOs2` may be cut after the depth, to `kOs2Short`: what is left out counts as 0.
  static constexpr std::uint32_t kFileHeader = 14, kShort = 12, kOs2Short = 16, kUsual = 40;
  static constexpr std::uint32_t kWithMasks = 52, kOs2 = 64, kLongest = 256;
  static constexpr std::size_t kMasksAt = 54;  ///< Behind a header of 40 bytes, inside a longer one.

  std::uint32_t pixelsAt = 0, size = 0, bits = 0, coding = plain, colours = 0;
  std::int64_t width = 0, height = 0;
  bool fromTop = false;

  /// Entries of the palette; none above 8 bits.
  [[nodiscard]] std::uint64_t paletteEntries() const {
    if (bits > 8) return 0;
    return colours != 0 ? colours : std::uint64_t{1} << bits;
  }
  [[nodiscard]] std::uint64_t bytesOfEntry() const { return size == kShort ? 3 : 4; }
  [[nodiscard]] bool hasRuns() const { return coding == rle8 || coding == rle4; }
  [[nodiscard]] bool hasMasks() const { return coding == masks || coding == masksWithAlpha; }
  /// Bytes of one row of a plain picture, padded to four.
  [[nodiscard]] std::uint64_t bytesOfRow() const {
    return (static_cast<std::uint64_t>(width) * bits + 31) / 32 * 4;
  }
  /// Pixels of a row with its padding: as far as runs may go.
  [[nodiscard]] std::int64_t paddedWidth() const {
    return static_cast<std::int64_t>(bytesOfRow() * 8 / bits);
  }
};

/// Reads the header alone; its values are not held against the file's length yet.
Outcome<BitmapHeader> readBitmapHeader(const BitmapBytes& file);

}  // namespace gridwright
