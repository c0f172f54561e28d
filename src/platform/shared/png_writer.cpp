#include "platform/shared/png_writer.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <unordered_map>
#include <vector>

#include "state/export_panel.h"

namespace gridwright {

namespace {

constexpr std::size_t kMostPaletteColours = 256;
constexpr Colour kShown = kColourBits | kSeeThrough;
constexpr int kBits = 8;
constexpr png_byte kOpaque = 0xFF;

png_byte partOf(Colour pixel, int shift) { return static_cast<png_byte>(pixel >> shift & 0xFF); }
png_byte opacityOf(Colour pixel) { return (pixel & kSeeThrough) != 0 ? png_byte{0} : kOpaque; }

/// What the pixels of a file are: places in a palette, or colours themselves where they are too many.
class Palette {
 public:
  explicit Palette(const BitmapView& picture) {
    for (int y = 0; y < picture.height; ++y) {
      if (y > 0 && picture.isLikeRowAbove(y)) continue;
      for (int x = 0; x < picture.width; ++x) look(picture.row(y)[x] & kShown);
    }
    if (colours_.size() <= kMostPaletteColours) return;
    kind_ = hasHoles_ ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB;
  }

  [[nodiscard]] int kind() const { return kind_; }
  [[nodiscard]] const std::vector<Colour>& colours() const { return colours_; }
  [[nodiscard]] bool hasHoles() const { return hasHoles_; }

  void addPixel(std::vector<png_byte>& row, Colour raw) const {
    const Colour pixel = raw & kShown;
    if (kind_ == PNG_COLOR_TYPE_PALETTE) return row.push_back(places_.at(pixel));
    for (const int shift : {0, 8, 16}) row.push_back(partOf(pixel, shift));
    if (kind_ == PNG_COLOR_TYPE_RGB_ALPHA) row.push_back(opacityOf(pixel));
  }

 private:
  void look(Colour pixel) {
    hasHoles_ = hasHoles_ || (pixel & kSeeThrough) != 0;
    if (colours_.size() > kMostPaletteColours) return;
    if (places_.try_emplace(pixel, static_cast<png_byte>(colours_.size())).second) colours_.push_back(pixel);
  }

  int kind_ = PNG_COLOR_TYPE_PALETTE;
  bool hasHoles_ = false;
  std::vector<Colour> colours_;
  std::unordered_map<Colour, png_byte> places_;
};

/// A file as the library writes it. What is refused once is dropped from then on, so that the library, which
/// would leave by a long jump, meets no error but the end of memory.
class PngFile {
 public:
  explicit PngFile(const TakeBytes& take)
      : take_(take), png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, endOfMemory, ignore)) {
    if (png_ != nullptr) info_ = png_create_info_struct(png_);
    if (info_ == nullptr) {
      png_destroy_write_struct(&png_, &info_);
      throw std::bad_alloc();
    }
    png_set_write_fn(
        png_, this,
        [](png_structp png, png_bytep bytes, std::size_t count) {
          auto& file = *static_cast<PngFile*>(png_get_io_ptr(png));
          const std::string_view more(reinterpret_cast<const char*>(bytes), count);
          file.whole_ = file.whole_ && file.take_(more);
        },
        nullptr);
  }
  PngFile(const PngFile&) = delete;
  PngFile& operator=(const PngFile&) = delete;
  ~PngFile() { png_destroy_write_struct(&png_, &info_); }

  [[nodiscard]] bool isWhole() const { return whole_; }

  void begin(png_uint_32 width, png_uint_32 height, int dpi, const Palette& palette) {
    constexpr double kInchesAMetre = 1 / 0.0254;
    png_set_IHDR(png_, info_, width, height, kBits, palette.kind(), PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    const auto dots = static_cast<png_uint_32>(std::lround(dpi * kInchesAMetre));
    png_set_pHYs(png_, info_, dots, dots, PNG_RESOLUTION_METER);
    if (palette.kind() == PNG_COLOR_TYPE_PALETTE) setPalette(palette);
    // Nearly every row is the one above: its difference is nothing. The library takes what looks smaller.
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE | PNG_FILTER_UP);
    png_write_info(png_, info_);
  }
  void add(const std::vector<png_byte>& row) { png_write_row(png_, row.data()); }
  void finish() { png_write_end(png_, nullptr); }

 private:
  [[noreturn]] static void endOfMemory(png_structp /*png*/, png_const_charp /*words*/) {
    throw std::bad_alloc();
  }
  static void ignore(png_structp /*png*/, png_const_charp /*words*/) {}

  void setPalette(const Palette& palette) {
    const std::vector<Colour>& colours = palette.colours();
    std::vector<png_color> parts(colours.size());
    std::transform(colours.begin(), colours.end(), parts.begin(), [](Colour colour) {
      return png_color{partOf(colour, 0), partOf(colour, 8), partOf(colour, 16)};
    });
    png_set_PLTE(png_, info_, parts.data(), static_cast<int>(parts.size()));
    if (!palette.hasHoles()) return;
    std::vector<png_byte> seen(colours.size());
    std::transform(colours.begin(), colours.end(), seen.begin(), opacityOf);
    png_set_tRNS(png_, info_, seen.data(), static_cast<int>(seen.size()), nullptr);
  }

  const TakeBytes& take_;
  png_structp png_;
  png_infop info_ = nullptr;
  bool whole_ = true;
};

/// A row of pixels as wide as in the file.
std::vector<png_byte> rowOf(const BitmapView& picture, int y, int scale, const Palette& palette) {
  std::vector<png_byte> row;
  for (int x = 0; x < picture.width; ++x) {
    for (int i = 0; i < scale; ++i) palette.addPixel(row, picture.row(y)[x]);
  }
  return row;
}

}  // namespace

bool writePng(const BitmapView& picture, int scale, int dpi, const TakeBytes& take) {
  if (picture.isEmpty()) return false;
  const Palette palette(picture);
  const auto side = [&](int pixels) {
    return static_cast<png_uint_32>(pixels) * static_cast<png_uint_32>(scale);
  };
  PngFile file(take);
  file.begin(side(picture.width), side(picture.height), dpi, palette);
  std::vector<png_byte> row;
  for (int y = 0; y < picture.height; ++y) {
    if (!file.isWhole()) return false;
    if (y == 0 || !picture.isLikeRowAbove(y)) row = rowOf(picture, y, scale, palette);
    for (int i = 0; i < scale; ++i) file.add(row);
  }
  file.finish();
  return file.isWhole();
}

std::string pngOf(const BitmapView& picture, int scale, int dpi) {
  std::string bytes;
  writePng(picture, scale, dpi, [&](std::string_view more) {
    bytes += more;
    return true;
  });
  return bytes;
}

}  // namespace gridwright
