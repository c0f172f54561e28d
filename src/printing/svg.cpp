#include "printing/svg.h"

#include <array>
#include <charconv>

namespace gridwright {

namespace {

void add(std::string& text, int number) {
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  text.append(digits.data(), end);
}

void addColour(std::string& text, Colour colour) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  text += '#';
  for (const int part : {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF}) {
    text += kDigits[static_cast<std::size_t>(part) >> 4];
    text += kDigits[static_cast<std::size_t>(part) & 15];
  }
}

/// Round the patch, from its top left.
void addPatch(std::string& text, const Patch& patch) {
  text += 'M';
  add(text, patch.x);
  text += ' ';
  add(text, patch.y);
  text += 'h';
  add(text, patch.width);
  text += 'v';
  add(text, patch.height);
  text += 'h';
  add(text, -patch.width);
  text += 'z';
}

/// The length of the sign that begins here: 0 where the bytes are no UTF-8, or no sign of an XML text.
std::size_t signAt(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(0);
  if (first < 0x80) return first >= 0x20 && first != 0x7F ? 1 : 0;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 0;
  if (length == 0 || first > 0xF4 || text.size() < length) return 0;
  unsigned sign = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return 0;
    sign = sign << 6 | (byte(i) & 0x3FU);
  }
  constexpr std::array<unsigned, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const bool isHalf = sign >= 0xD800 && sign <= 0xDFFF;
  const bool isNone = (sign & 0xFFFEU) == 0xFFFE || sign < 0xA0;
  return sign < kLeast.at(length) || isHalf || isNone || sign > 0x10FFFF ? 0 : length;
}

std::string escaped(std::string_view text) {
  std::string safe;
  while (!text.empty()) {
    const std::size_t length = signAt(text);
    const char sign = text.front();
    if (sign == '&') {
      safe += "&amp;";
    } else if (sign == '<') {
      safe += "&lt;";
    } else if (sign == '>') {
      safe += "&gt;";
    } else {
      safe += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return safe;
}

}  // namespace

std::string svgOf(const ColourLayers& layers, const Size& size, std::string_view title) {
  const std::string width = std::to_string(size.width);
  const std::string height = std::to_string(size.height);
  std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                     "\n"
                     R"(<svg xmlns="http://www.w3.org/2000/svg" width=")";
  text.append(width).append("\" height=\"").append(height).append("\" viewBox=\"0 0 ");
  text.append(width).append(" ").append(height).append("\" shape-rendering=\"crispEdges\">\n");
  if (!title.empty()) text.append("<title>").append(escaped(title)).append("</title>\n");
  for (const ColourLayer& layer : layers) {
    if (layer.patches.empty()) continue;
    text += "<path fill=\"";
    addColour(text, layer.colour);
    text += "\" d=\"";
    for (const Patch& patch : layer.patches) addPatch(text, patch);
    text += "\"/>\n";
  }
  return text += "</svg>\n";
}

}  // namespace gridwright
