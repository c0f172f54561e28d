#include "canvas/bitmap_encode.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace gridwright {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kPixelsAMetre = 3780;  // 96 an inch, as screens have

void appendNumber(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<char>(value >> 8 * i));
}

constexpr std::size_t kSpare = 8;  // bytes behind a row that `packRow` may write to

/// A pixel as a number whose lowest byte is its blue, the next its green, the third its red. Its bytes are
/// turned round, which a processor does at once; what lay above the colour is shifted out.
std::uint64_t blueFirst(Colour pixel) {
  const auto bits = static_cast<std::uint32_t>(pixel);
  return (bits << 24 | (bits & 0xFF00) << 8 | (bits >> 8 & 0xFF00) | bits >> 24) >> 8;
}

/// Its bytes from the lowest on.
void putBytes(std::uint64_t number, char* out) {
  auto bytes = std::bit_cast<std::array<char, 8>>(number);
  if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
  std::copy(bytes.begin(), bytes.end(), out);
}

/// The pixels as bytes blue, green, red. Two are put at a time, with two bytes behind them that the next two
/// write over: a store for each byte would take twice as long. \param out has room for the row and kSpare.
void packRow(const Colour* in, std::size_t width, char* out) {
  std::size_t x = 0;
  for (; x + 1 < width; x += 2, out += 6) putBytes(blueFirst(in[x]) | blueFirst(in[x + 1]) << 24, out);
  if (x < width) putBytes(blueFirst(in[x]), out);
}

std::size_t bytesOfRow(const BitmapView& picture) {
  return (3 * static_cast<std::size_t>(picture.width) + 3) / 4 * 4;
}

std::string headerOf(const BitmapView& picture) {
  const auto width = static_cast<std::uint32_t>(picture.width);
  const auto height = static_cast<std::uint32_t>(picture.height);
  const auto pixels = static_cast<std::uint32_t>(bytesOfRow(picture)) * height;
  std::string bytes;
  bytes.reserve(kFileHeader + kInfoHeader);
  bytes += "BM";
  appendNumber(bytes, kFileHeader + kInfoHeader + pixels, 4);
  appendNumber(bytes, 0, 4);
  appendNumber(bytes, kFileHeader + kInfoHeader, 4);
  appendNumber(bytes, kInfoHeader, 4);
  appendNumber(bytes, width, 4);
  appendNumber(bytes, height, 4);
  appendNumber(bytes, 1, 2);
  appendNumber(bytes, 24, 2);
  appendNumber(bytes, 0, 4);
  appendNumber(bytes, pixels, 4);
  appendNumber(bytes, kPixelsAMetre, 4);
  appendNumber(bytes, kPixelsAMetre, 4);
  appendNumber(bytes, 0, 4);
  appendNumber(bytes, 0, 4);
  return bytes;
}

}  // namespace

BitmapFilePieces::BitmapFilePieces(const BitmapView& picture) : bytes_(headerOf(picture)) {
  const std::size_t row = bytesOfRow(picture);
  // All that may come: the pieces lead into these bytes. What is not written to costs nothing.
  bytes_.reserve(bytes_.size() + row * static_cast<std::size_t>(picture.height));
  pieces_.reserve(1 + static_cast<std::size_t>(picture.height));
  pieces_.emplace_back(bytes_);
  // By way of a row that stays in the processor's cache: each byte is touched once.
  std::string packed(row + kSpare, '\0');
  for (int y = picture.height - 1; y >= 0; --y) {
    if (y + 1 == picture.height || !picture.isLikeRowAbove(y + 1)) {
      packRow(picture.row(y), static_cast<std::size_t>(picture.width), packed.data());
      bytes_.append(packed, 0, row);  // the spare bytes of the last pixels are the zeros that fill a row up
    }
    pieces_.push_back(std::string_view(bytes_).substr(bytes_.size() - row));
  }
}

std::string encodeBitmapFile(const BitmapView& picture) {
  const BitmapFilePieces file(picture);
  std::string bytes;
  for (const std::string_view piece : file.pieces()) bytes += piece;
  return bytes;
}

}  // namespace gridwright
