#include "platform/shared/png_writer.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "state/export_panel.h"

namespace gridwright {

namespace {

constexpr std::size_t kMostPaletteColours = 256;
constexpr std::size_t kPiece = 1 << 16;  // bytes of a piece of the file

enum class Kind : char { rgb = 2, palette = 3, rgba = 6 };
enum class Filter : char { none = 0, up = 2 };

std::string number(std::uint32_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) bytes += static_cast<char>(value >> shift & 0xFFU);
  return bytes;
}

void addParts(std::string& bytes, Colour pixel) {
  for (const int shift : {0, 8, 16}) bytes += static_cast<char>(pixel >> shift & 0xFF);
}

const Bytef* bytesOf(std::string_view bytes) { return reinterpret_cast<const Bytef*>(bytes.data()); }

/// A file as it is written, chunk by chunk.
class Chunks {
 public:
  explicit Chunks(const TakeBytes& take) : take_(take) {}

  void add(std::string_view name, std::string_view content) {
    const std::string head = number(static_cast<std::uint32_t>(content.size())) + std::string(name);
    uLong sum = crc32(0, bytesOf(head) + 4, 4);
    sum = crc32(sum, bytesOf(content), static_cast<uInt>(content.size()));
    put(head);
    put(content);
    put(number(static_cast<std::uint32_t>(sum)));
  }
  void put(std::string_view bytes) { whole_ = whole_ && take_(bytes); }
  [[nodiscard]] bool isWhole() const { return whole_; }

 private:
  const TakeBytes& take_;
  bool whole_ = true;
};

/// Packs what comes into chunks of pixels.
class Packer {
 public:
  explicit Packer(Chunks& chunks) : chunks_(chunks) {
    begun_ = deflateInit(&stream_, Z_DEFAULT_COMPRESSION) == Z_OK;
    room();
  }
  Packer(const Packer&) = delete;
  Packer& operator=(const Packer&) = delete;
  ~Packer() { deflateEnd(&stream_); }

  void add(const std::string& bytes) {
    stream_.next_in = const_cast<Bytef*>(bytesOf(bytes));  // NOLINT: it only reads them
    stream_.avail_in = static_cast<uInt>(bytes.size());
    while (begun_ && stream_.avail_in > 0) {
      deflate(&stream_, Z_NO_FLUSH);
      if (stream_.avail_out == 0) flush();
    }
  }
  /// \returns whether all was packed.
  bool finish() {
    while (begun_ && deflate(&stream_, Z_FINISH) == Z_OK) flush();
    flush();
    return begun_;
  }

 private:
  void room() {
    stream_.next_out = reinterpret_cast<Bytef*>(packed_.data());
    stream_.avail_out = static_cast<uInt>(packed_.size());
  }
  void flush() {
    const std::size_t packed = packed_.size() - stream_.avail_out;
    if (packed > 0) chunks_.add("IDAT", std::string_view(packed_).substr(0, packed));
    room();
  }

  Chunks& chunks_;
  z_stream stream_{};
  std::string packed_ = std::string(kPiece, '\0');
  bool begun_ = false;
};

constexpr Colour kShown = kColourBits | kSeeThrough;

/// What the pixels of a file are: places in a palette, or colours themselves where they are too many.
class Palette {
 public:
  explicit Palette(const BitmapView& picture) {
    for (int y = 0; y < picture.height; ++y) {
      if (y > 0 && picture.isLikeRowAbove(y)) continue;
      for (int x = 0; x < picture.width; ++x) look(picture.row(y)[x] & kShown);
    }
    if (colours_.size() <= kMostPaletteColours) return;
    kind_ = hasHoles_ ? Kind::rgba : Kind::rgb;
  }

  [[nodiscard]] Kind kind() const { return kind_; }
  [[nodiscard]] const std::vector<Colour>& colours() const { return colours_; }
  [[nodiscard]] bool hasHoles() const { return hasHoles_; }

  void addPixel(std::string& row, Colour raw) const {
    const Colour pixel = raw & kShown;
    if (kind_ == Kind::palette) {
      row += static_cast<char>(places_.at(pixel));
      return;
    }
    addParts(row, pixel);
    if (kind_ == Kind::rgba) row += static_cast<char>((pixel & kSeeThrough) != 0 ? 0 : 0xFF);
  }

 private:
  void look(Colour pixel) {
    hasHoles_ = hasHoles_ || (pixel & kSeeThrough) != 0;
    if (colours_.size() > kMostPaletteColours) return;
    if (places_.try_emplace(pixel, colours_.size()).second) colours_.push_back(pixel);
  }

  Kind kind_ = Kind::palette;
  bool hasHoles_ = false;
  std::vector<Colour> colours_;
  std::unordered_map<Colour, std::size_t> places_;
};

void writeHead(Chunks& chunks, const BitmapView& picture, int scale, int dpi, const Palette& palette) {
  constexpr double kInchesAMetre = 1 / 0.0254;
  constexpr char kBits = 8;
  const auto side = [&](int pixels) {
    return static_cast<std::uint32_t>(pixels) * static_cast<std::uint32_t>(scale);
  };
  chunks.put("\x89PNG\r\n\x1a\n");
  chunks.add("IHDR", number(side(picture.width)) + number(side(picture.height)) +
                         std::string{kBits, static_cast<char>(palette.kind()), 0, 0, 0});
  const std::string dots = number(static_cast<std::uint32_t>(std::lround(dpi * kInchesAMetre)));
  chunks.add("pHYs", dots + dots + '\1');
  if (palette.kind() != Kind::palette) return;
  std::string colours, seen;
  for (const Colour colour : palette.colours()) {
    addParts(colours, colour);
    seen += static_cast<char>((colour & kSeeThrough) != 0 ? 0 : 0xFF);
  }
  chunks.add("PLTE", colours);
  if (palette.hasHoles()) chunks.add("tRNS", seen);
}

/// A row of pixels as wide as in the file, before it the way in which it is to be read.
std::string rowOf(const BitmapView& picture, int y, int scale, const Palette& palette) {
  std::string row(1, static_cast<char>(Filter::none));
  std::string pixel;
  for (int x = 0; x < picture.width; ++x) {
    pixel.clear();
    palette.addPixel(pixel, picture.row(y)[x]);
    for (int i = 0; i < scale; ++i) row += pixel;
  }
  return row;
}

}  // namespace

bool writePng(const BitmapView& picture, int scale, int dpi, const TakeBytes& take) {
  if (picture.isEmpty()) return false;
  Chunks chunks(take);
  const Palette palette(picture);
  writeHead(chunks, picture, scale, dpi, palette);
  bool packed = false;
  {
    Packer packer(chunks);
    std::string again;  // no pixel differs from the one above
    for (int y = 0; y < picture.height && chunks.isWhole(); ++y) {
      int rows = scale;
      if (y == 0 || !picture.isLikeRowAbove(y)) {
        const std::string row = rowOf(picture, y, scale, palette);
        packer.add(row);
        again.assign(row.size(), '\0');
        again.front() = static_cast<char>(Filter::up);
        --rows;
      }
      for (; rows > 0; --rows) packer.add(again);
    }
    packed = packer.finish();
  }
  chunks.add("IEND", "");
  return packed && chunks.isWhole();
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
