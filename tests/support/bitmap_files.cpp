#include "support/bitmap_files.h"

#include <algorithm>
#include <stdexcept>

#include "support/pictures.h"

namespace gridwright::test {

namespace {

constexpr std::uint32_t kPlain = 0, kRle8 = 1, kRle4 = 2, kMasks = 3;

void add(std::string& file, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) file += static_cast<char>(value >> (8 * i) & 255);
}

struct Channels {
  std::uint32_t red, green, blue;
};
Channels channelsOf(Colour c) {
  return {static_cast<std::uint32_t>(c & 255), static_cast<std::uint32_t>(c >> 8 & 255),
          static_cast<std::uint32_t>(c >> 16 & 255)};
}

std::vector<Colour> paletteOf(const Bitmap& picture) {
  std::vector<Colour> palette;
  for (const Colour c : picture.pixels) {
    if (std::find(palette.begin(), palette.end(), c) == palette.end()) palette.push_back(c);
  }
  return palette;
}

std::uint32_t indexIn(const std::vector<Colour>& palette, Colour c) {
  return static_cast<std::uint32_t>(std::find(palette.begin(), palette.end(), c) - palette.begin());
}

std::uint32_t pixelOf(Colour c, const BitmapFile& form, const std::vector<Colour>& palette) {
  const auto [red, green, blue] = channelsOf(c);
  switch (form.bits) {
    case 16:
      return form.masks ? red >> 3 << 11 | green >> 2 << 5 | blue >> 3
                        : red >> 3 << 10 | green >> 3 << 5 | blue >> 3;
    case 24:
      return red << 16 | green << 8 | blue;
    case 32:
      return 0x40U << 24 | red << 16 | green << 8 | blue;  // an alpha that must not matter
    default:
      return indexIn(palette, c);
  }
}

std::string plainRow(const Bitmap& picture, int y, const BitmapFile& form,
                     const std::vector<Colour>& palette) {
  std::string row;
  std::uint32_t byte = 0;
  int filled = 0;
  for (int x = 0; x < picture.width; ++x) {
    const std::uint32_t pixel = pixelOf(picture.at(x, y), form, palette);
    if (form.bits >= 8) {
      add(row, pixel, form.bits / 8);
      continue;
    }
    byte = byte << form.bits | pixel;
    filled += form.bits;
    if (filled == 8) {
      add(row, byte, 1);
      byte = 0;
      filled = 0;
    }
  }
  if (filled > 0) add(row, byte << (8 - filled), 1);
  while (row.size() % 4 != 0) row += '\0';
  return row;
}

/// Runs of equal pixels where there are, runs of single pixels where three or more differ.
std::string codedRow(const Bitmap& picture, int y, const BitmapFile& form,
                     const std::vector<Colour>& palette) {
  std::string row;
  const int inFourBytes = 32 / form.bits;
  const int padding = form.padded ? (inFourBytes - picture.width % inFourBytes) % inFourBytes : 0;
  const int width = picture.width + padding;
  const auto index = [&](int x) { return indexIn(palette, picture.at(std::min(x, picture.width - 1), y)); };
  int x = 0;
  while (x < width) {
    int same = 1;
    while (x + same < width && same < 255 && index(x + same) == index(x)) ++same;
    if (same > 1 || width - x < 3) {
      add(row, static_cast<std::uint32_t>(same), 1);
      add(row, form.bits == 8 ? index(x) : index(x) << 4 | index(x), 1);
      x += same;
      continue;
    }
    int single = 3;
    while (x + single < width && single < 255 && index(x + single) != index(x + single - 1)) ++single;
    add(row, 0, 1);
    add(row, static_cast<std::uint32_t>(single), 1);
    std::string body;
    for (int i = 0; i < single; i += form.bits == 8 ? 1 : 2) {
      const std::uint32_t second = i + 1 < single ? index(x + i + 1) : 0;
      add(body, form.bits == 8 ? index(x + i) : index(x + i) << 4 | second, 1);
    }
    if (body.size() % 2 != 0) body += '\0';
    row += body;
    x += single;
  }
  add(row, 0, 2);  // end of the row
  return row;
}

void addHeader(std::string& file, const Bitmap& picture, const BitmapFile& form, std::uint32_t colours) {
  const auto width = static_cast<std::uint32_t>(picture.width);
  const auto height = static_cast<std::uint32_t>(form.fromTop ? -picture.height : picture.height);
  add(file, form.os2 ? 12 : form.os2Cut ? 16 : 40, 4);
  add(file, width, form.os2 ? 2 : 4);
  add(file, height, form.os2 ? 2 : 4);
  add(file, 1, 2);
  add(file, static_cast<std::uint32_t>(form.bits), 2);
  if (form.os2 || form.os2Cut) return;
  const std::uint32_t coding = form.runs ? (form.bits == 8 ? kRle8 : kRle4) : form.masks ? kMasks : kPlain;
  for (const std::uint32_t value : {coding, 0U, 2835U, 2835U, colours, 0U}) add(file, value, 4);
  if (!form.masks) return;
  const bool wide = form.bits == 32;
  for (const std::uint32_t mask :
       {wide ? 0xFF0000U : 0xF800U, wide ? 0xFF00U : 0x7E0U, wide ? 0xFFU : 0x1FU}) {
    add(file, mask, 4);
  }
}

}  // namespace

std::string fileOf(const Bitmap& picture, const BitmapFile& form) {
  std::vector<Colour> palette;
  if (form.bits <= 8) {
    palette = paletteOf(picture);
    if (palette.size() > std::size_t{1} << form.bits) throw std::invalid_argument("too many colours");
    if (form.os2 || form.os2Cut) palette.resize(std::size_t{1} << form.bits);
  }
  std::string file = "BM";
  for (int i = 0; i < 12; ++i) file += '\0';
  addHeader(file, picture, form, static_cast<std::uint32_t>(palette.size()));
  for (const Colour c : palette) {
    const auto [red, green, blue] = channelsOf(c);
    add(file, red << 16 | green << 8 | blue, form.os2 ? 3 : 4);
  }
  poke(file, 10, static_cast<std::uint32_t>(file.size()));
  for (int i = 0; i < picture.height; ++i) {
    const int y = form.fromTop ? i : picture.height - 1 - i;
    file += form.runs ? codedRow(picture, y, form, palette) : plainRow(picture, y, form, palette);
  }
  if (form.runs) add(file, 0x0100, 2);  // end of the picture
  poke(file, 2, static_cast<std::uint32_t>(file.size()));
  return file;
}

void poke(std::string& file, std::size_t at, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i)
    file.at(at + static_cast<std::size_t>(i)) = static_cast<char>(value >> (8 * i) & 255);
}

Bitmap motley(int width, int height, int colours) {
  Bitmap picture = plainBitmap(width, height, 0);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int i = (x + y) % colours;
      pixelAt(picture, x, y) = (i * 37 % 256) | (255 - i % 256) << 8 | (i * 5 % 256) << 16;
    }
  }
  return picture;
}

}  // namespace gridwright::test
