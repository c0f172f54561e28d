#include "support/bitmap_files.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "support/pictures.h"
#include "support/run_writer.h"

namespace gridwright::test {

namespace {

constexpr std::uint32_t kPlain = 0, kRle8 = 1, kRle4 = 2, kMasks = 3, kMasksWithAlpha = 6;
constexpr std::uint32_t kShortHeader = 12, kCutHeader = 16, kUsualHeader = 40;
/// The headers with room for three masks, and for four.
constexpr std::uint32_t kThreeMasks = 52, kFourMasks = 56, kOs2Header = 64;

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

std::uint32_t headerOf(const BitmapFile& form) {
  if (form.header != 0) return static_cast<std::uint32_t>(form.header);
  return form.os2 ? kShortHeader : form.os2Cut ? kCutHeader : kUsualHeader;
}

Masks masksOf(const BitmapFile& form) {
  const Masks& own = form.channels;
  if (form.masks && (own.red | own.green | own.blue) != 0) return own;
  if (form.bits == 16)
    return form.masks ? Masks{0xF800, 0x7E0, 0x1F, own.alpha} : Masks{0x7C00, 0x3E0, 0x1F, 0x8000};
  return {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
}

/// The most that a channel's bits hold; 0 when it has none.
std::uint32_t mostOf(std::uint32_t mask) { return mask == 0 ? 0 : mask >> std::countr_zero(mask); }

/// A channel of 0 to 255 in the steps of its bits.
std::uint64_t stepOf(std::uint64_t channel, std::uint64_t most) { return (channel * most + 127) / 255; }

std::uint32_t inMask(std::uint32_t channel, std::uint32_t mask) {
  if (mask == 0) return 0;
  return static_cast<std::uint32_t>(stepOf(channel, mostOf(mask)) << std::countr_zero(mask));
}

std::uint32_t held(std::uint32_t channel, std::uint32_t mask) {
  const std::uint64_t most = mostOf(mask);
  if (most == 0) return 0;
  return static_cast<std::uint32_t>((stepOf(channel, most) * 255 + most / 2) / most);
}

std::uint32_t pixelOf(Colour c, const BitmapFile& form, const std::vector<Colour>& palette) {
  if (form.bits <= 8) return indexIn(palette, c);
  const auto [red, green, blue] = channelsOf(c);
  if (form.bits == 24) return red << 16 | green << 8 | blue;
  const Masks masks = masksOf(form);
  const std::uint32_t alpha = masks.alpha & 0x41415555U;  // one that must not matter
  return inMask(red, masks.red) | inMask(green, masks.green) | inMask(blue, masks.blue) | alpha;
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

/// The indices of a picture, rows from the bottom, each with its padding where runs fill that too.
IndexRows indicesOf(const Bitmap& picture, const BitmapFile& form, const std::vector<Colour>& palette) {
  const int inFourBytes = 32 / form.bits;
  const int padding = form.padded ? (inFourBytes - picture.width % inFourBytes) % inFourBytes : 0;
  IndexRows rows;
  for (int y = picture.height - 1; y >= 0; --y) {
    std::vector<std::uint32_t>& row = rows.emplace_back();
    for (int x = 0; x < picture.width + padding; ++x)
      row.push_back(indexIn(palette, picture.at(std::min(x, picture.width - 1), y)));
  }
  return rows;
}

std::uint32_t codingOf(const BitmapFile& form) {
  if (form.runs) return form.bits == 8 ? kRle8 : kRle4;
  if (!form.masks) return kPlain;
  return form.alphaCoded ? kMasksWithAlpha : kMasks;
}

/// What the longer headers hold behind the 40 bytes: masks, the name of a colour space, and nothing more.
std::string longerHeader(const BitmapFile& form) {
  const std::uint32_t size = headerOf(form);
  const bool behind = size == kUsualHeader && form.masks;
  const std::uint32_t masksInside = size == kOs2Header    ? 0
                                    : size >= kFourMasks  ? 4
                                    : size >= kThreeMasks ? 3
                                                          : 0;
  const std::uint32_t count = behind ? (form.alphaCoded ? 4 : 3) : masksInside;
  const Masks masks = form.masks || form.bits == 16 || form.bits == 32 ? masksOf(form) : Masks{};
  const std::vector<std::uint32_t> all = {masks.red, masks.green, masks.blue, masks.alpha};
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) add(bytes, all[i], 4);
  if (size > kFourMasks && size != kOs2Header) add(bytes, 0x73524742, 4);  // "sRGB"
  if (!behind) bytes.resize(size - kUsualHeader, '\0');
  return bytes;
}

void addHeader(std::string& file, const Bitmap& picture, const BitmapFile& form, std::uint32_t colours) {
  const std::uint32_t size = headerOf(form);
  const int extent = size == kShortHeader ? 2 : 4;
  add(file, size, 4);
  add(file, static_cast<std::uint32_t>(picture.width), extent);
  add(file, static_cast<std::uint32_t>(form.fromTop ? -picture.height : picture.height), extent);
  add(file, 1, 2);
  add(file, static_cast<std::uint32_t>(form.bits), 2);
  if (size < kUsualHeader) return;
  for (const std::uint32_t value : {codingOf(form), 0U, 2835U, 2835U, colours, 0U}) add(file, value, 4);
  file += longerHeader(form);
}

}  // namespace

std::string fileOf(const Bitmap& picture, const BitmapFile& form) {
  std::vector<Colour> palette;
  std::uint32_t said = 0;
  if (form.bits <= 8) {
    palette = paletteOf(picture);
    const std::size_t most = std::size_t{1} << form.bits;
    if (palette.size() > most) throw std::invalid_argument("too many colours");
    const bool isAll = headerOf(form) < kUsualHeader || form.colours == BitmapFile::kUnsaid;
    if (isAll) palette.resize(most);
    if (form.colours >= 0) palette.resize(static_cast<std::size_t>(form.colours));
    if (!isAll) said = static_cast<std::uint32_t>(palette.size());
  }
  std::string file = "BM";
  for (int i = 0; i < 12; ++i) file += '\0';
  addHeader(file, picture, form, said);
  for (const Colour c : palette) {
    const auto [red, green, blue] = channelsOf(c);
    add(file, red << 16 | green << 8 | blue, headerOf(form) == kShortHeader ? 3 : 4);
  }
  file.append(static_cast<std::size_t>(form.gap), '\xA5');
  poke(file, 10, static_cast<std::uint32_t>(file.size()));
  if (form.runs) {
    file += runsOf(indicesOf(picture, form, palette), {form.bits, form.style, form.endless});
  } else {
    for (int i = 0; i < picture.height; ++i)
      file += plainRow(picture, form.fromTop ? i : picture.height - 1 - i, form, palette);
  }
  poke(file, 2, static_cast<std::uint32_t>(file.size()));
  return file;
}

Bitmap heldBy(const Bitmap& picture, const BitmapFile& form) {
  if (form.bits != 16 && form.bits != 32) return picture;
  const Masks masks = masksOf(form);
  Bitmap copy = picture;
  for (Colour& pixel : copy.pixels) {
    const auto [red, green, blue] = channelsOf(pixel);
    pixel = static_cast<Colour>(held(red, masks.red) | held(green, masks.green) << 8 |
                                held(blue, masks.blue) << 16);
  }
  return copy;
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
