#include "canvas/bitmap_encode.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace gridwright {

namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kPixelsAMetre = 3780;  // 96 an inch, as screens have

void appendNumber(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<char>(value >> 8 * i));
}

/// The pixels as bytes blue, green, red.
void packRow(const Colour* in, std::size_t width, char* out) {
  const auto blueGreenRed = [in](std::size_t x) {
    const auto pixel = static_cast<std::uint32_t>(in[x]);
    return (pixel >> 16 & 0xFF) | (pixel & 0xFF00) | (pixel & 0xFF) << 16;
  };
  std::size_t x = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; x + 4 <= width; x += 4, out += 12) {  // four pixels are three words
      const std::array<std::uint32_t, 4> p = {blueGreenRed(x), blueGreenRed(x + 1), blueGreenRed(x + 2),
                                              blueGreenRed(x + 3)};
      const std::array<std::uint32_t, 3> words = {p[0] | p[1] << 24, p[1] >> 8 | p[2] << 16,
                                                  p[2] >> 16 | p[3] << 8};
      std::memcpy(out, words.data(), sizeof words);
    }
  }
  for (; x < width; ++x, out += 3) {
    const std::uint32_t pixel = blueGreenRed(x);
    for (std::size_t i = 0; i < 3; ++i) out[i] = static_cast<char>(pixel >> 8 * i);
  }
}

}  // namespace

std::string encodeBitmapFile(const Bitmap& picture) {
  const auto width = static_cast<std::uint32_t>(picture.width);
  const auto height = static_cast<std::uint32_t>(picture.height);
  const std::uint32_t row = (3 * width + 3) / 4 * 4;
  std::string bytes = "BM";
  bytes.reserve(kFileHeader + kInfoHeader + std::size_t{row} * height);
  appendNumber(bytes, kFileHeader + kInfoHeader + row * height, 4);
  appendNumber(bytes, 0, 4);
  appendNumber(bytes, kFileHeader + kInfoHeader, 4);
  appendNumber(bytes, kInfoHeader, 4);
  appendNumber(bytes, width, 4);
  appendNumber(bytes, height, 4);
  appendNumber(bytes, 1, 2);
  appendNumber(bytes, 24, 2);
  appendNumber(bytes, 0, 4);
  appendNumber(bytes, row * height, 4);
  appendNumber(bytes, kPixelsAMetre, 4);
  appendNumber(bytes, kPixelsAMetre, 4);
  appendNumber(bytes, 0, 4);
  appendNumber(bytes, 0, 4);
  // By way of a row that stays in the processor's cache: each byte of the file is touched once.
  std::string packed(row, '\0');
  for (std::uint32_t y = 0; y < height; ++y) {
    packRow(picture.row(static_cast<int>(height - 1 - y)), width, packed.data());
    bytes += packed;
  }
  return bytes;
}

}  // namespace gridwright
