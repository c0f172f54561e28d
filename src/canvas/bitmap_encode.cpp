#include "canvas/bitmap_encode.h"

#include <cstdint>

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
  for (std::size_t x = 0; x < width; ++x, out += 3) {
    const Colour pixel = in[x];  // read once: to the compiler, each byte written may change it
    out[0] = static_cast<char>(pixel >> 16);
    out[1] = static_cast<char>(pixel >> 8);
    out[2] = static_cast<char>(pixel);
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
