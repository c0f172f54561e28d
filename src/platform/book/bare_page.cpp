#include "platform/book/bare_page.h"

#include <QByteArray>
#include <QtGlobal>
#include <array>
#include <charconv>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "printing/patches.h"

namespace gridwright::book {

namespace {

constexpr std::size_t kMostPaletteColours = 256;
constexpr int kPacking = 5;  // in half the time of the usual 6, and a hundredth longer

std::string packed(const std::string& bytes) {
  const auto* begin = reinterpret_cast<const uchar*>(bytes.data());
  const QByteArray whole = qCompress(begin, static_cast<qsizetype>(bytes.size()), kPacking);
  constexpr qsizetype kLength = 4;  // Qt puts the length before what a document takes
  return {whole.constData() + kLength, static_cast<std::size_t>(whole.size() - kLength)};
}

struct Parts {
  int red, green, blue;
};
constexpr Parts partsOf(Colour colour) { return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF}; }

void add(std::string& text, int number) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  text.append(digits.data(), end);
  text += ' ';
}

/// A part of a colour in the document's measure, from 0 to 1, so close that it comes back as it was.
void addPart(std::string& text, int part) {
  std::array<char, 12> digits{};
  constexpr int kPlaces = 4;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), part / 255.0,
                                 std::chars_format::fixed, kPlaces)
                       .ptr;
  std::string_view number(digits.data(), static_cast<std::size_t>(end - digits.data()));
  while (number.ends_with('0')) number.remove_suffix(1);
  if (number.ends_with('.')) number.remove_suffix(1);
  text += number;
  text += ' ';
}

/// All of one colour is one path: what fills it knows no edges between its rectangles.
std::string contentOf(const ColourLayers& layers) {
  std::string text;
  text.reserve(countPatches(layers) * 16 + 64);
  for (const ColourLayer& layer : layers) {
    const Parts parts = partsOf(layer.colour);
    for (const int part : {parts.red, parts.green, parts.blue}) addPart(text, part);
    text += "rg\n";
    for (const Patch& patch : layer.patches) {
      for (const int number : {patch.x, patch.y, patch.width, patch.height}) add(text, number);
      text += "re\n";
    }
    text += "f\n";
  }
  return text;
}

/// Rows come from the top, so that the form turns them over.
BareDrawing formOf(const ColourLayers& layers, const Size& size) {
  std::string dictionary =
      "<< /Type /XObject /Subtype /Form /FormType 1 /Filter /FlateDecode /Resources << >> ";
  const std::string width = std::to_string(size.width);
  const std::string height = std::to_string(size.height);
  dictionary += "/BBox [ 0 0 " + width + " " + height + " ] /Matrix [ 1 0 0 -1 0 " + height + " ] >>";
  return {std::move(dictionary), packed(contentOf(layers)), false};
}

/// Which of its colours each pixel has; nothing where they are more than a palette holds.
struct Indexed {
  std::vector<Colour> palette;
  std::string bytes;
};
std::optional<Indexed> indexed(const Bitmap& picture) {
  Indexed result;
  std::unordered_map<Colour, char> places;
  result.bytes.reserve(picture.pixels.size());
  for (const Colour pixel : picture.pixels) {
    const Colour colour = pixel & kColourBits;
    const auto [place, isNew] = places.try_emplace(colour, static_cast<char>(result.palette.size()));
    if (isNew && result.palette.size() == kMostPaletteColours) return std::nullopt;
    if (isNew) result.palette.push_back(colour);
    result.bytes += place->second;
  }
  return result;
}

std::string hexOf(const std::vector<Colour>& colours) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const Colour colour : colours) {
    const Parts parts = partsOf(colour);
    for (const int part : {parts.red, parts.green, parts.blue}) {
      text += kDigits[static_cast<std::size_t>(part) >> 4];
      text += kDigits[static_cast<std::size_t>(part) & 15];
    }
  }
  return text;
}

std::string threeBytesAPixel(const Bitmap& picture) {
  std::string bytes;
  bytes.reserve(picture.pixels.size() * 3);
  for (const Colour pixel : picture.pixels) {
    const Parts parts = partsOf(pixel & kColourBits);
    for (const int part : {parts.red, parts.green, parts.blue}) bytes += static_cast<char>(part);
  }
  return bytes;
}

BareDrawing imageOf(const Bitmap& picture) {
  std::string dictionary =
      "<< /Type /XObject /Subtype /Image /BitsPerComponent 8 /Interpolate false /Filter /FlateDecode";
  dictionary += " /Width " + std::to_string(picture.width) + " /Height " + std::to_string(picture.height);
  const auto few = indexed(picture);
  if (!few) return {dictionary + " /ColorSpace /DeviceRGB >>", packed(threeBytesAPixel(picture)), true};
  dictionary += " /ColorSpace [ /Indexed /DeviceRGB " + std::to_string(few->palette.size() - 1) + " <" +
                hexOf(few->palette) + "> ] >>";
  return {std::move(dictionary), packed(few->bytes), true};
}

/// Nothing where it takes too many rectangles.
std::optional<BarePage> inVectors(const MadeMaze& made, bool withAnswer, std::size_t most) {
  const auto maze = layersOf(made.maze, most);
  if (!maze) return std::nullopt;
  const Size size{made.maze.width, made.maze.height};
  BarePage page;
  page.maze = formOf(*maze, size);
  if (!withAnswer) return page;
  const auto trail = layersOver(made.maze, made.answer, most - countPatches(*maze));
  if (!trail) return std::nullopt;
  page.answer = formOf(*trail, size);
  page.isAnswerOverMaze = true;
  return page;
}

}  // namespace

BarePage barePageOf(const MadeMaze& made, MazeFormat format, bool withAnswer) {
  const std::size_t most = mostPatches(made.record.cells);
  if (format == MazeFormat::vector) {
    if (auto page = inVectors(made, withAnswer, most)) return *std::move(page);
  }
  BarePage page;
  page.maze = imageOf(made.maze);
  if (withAnswer) page.answer = imageOf(made.answer);
  if (format == MazeFormat::vector) page.notVector = "more than " + std::to_string(most) + " rectangles";
  return page;
}

}  // namespace gridwright::book
