#include "support/pictures.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace gridwright::test {

namespace {

struct Letter {
  char letter;
  Colour colour;
};
constexpr std::array kLegend = {Letter{'.', kNavy},   Letter{',', kGreen},     Letter{'o', kMaroon},
                                Letter{'k', kBlack},  Letter{'#', kBlue},      Letter{'=', kLime},
                                Letter{'r', kRed},    Letter{'y', kYellow},    Letter{'g', kGrey},
                                Letter{'*', kWhite},  Letter{'d', kDarkGreen}, Letter{'c', kCursorColour},
                                Letter{'S', kFuchsia}};
constexpr int kSmall = 80;  // sides that fit into a failure's message

}  // namespace

Colour colourOfLetter(char letter) {
  const auto* row =
      std::find_if(kLegend.begin(), kLegend.end(), [&](Letter l) { return l.letter == letter; });
  if (row == kLegend.end()) throw std::invalid_argument(std::string("no colour has the letter ") + letter);
  return row->colour;
}

char letterOf(Colour colour) {
  const auto* row =
      std::find_if(kLegend.begin(), kLegend.end(), [&](Letter l) { return l.colour == colour; });
  return row == kLegend.end() ? '?' : row->letter;
}

Bitmap pixels(const Text& rows) {
  Bitmap picture = plainBitmap(static_cast<int>(rows.at(0).size()), static_cast<int>(rows.size()), 0);
  auto out = picture.pixels.begin();
  for (const std::string& row : rows) {
    for (const char letter : row) *out++ = colourOfLetter(letter);
  }
  return picture;
}

Bitmap drawing(const Text& cells, int wall, char band) {
  const int columns = static_cast<int>(cells.at(0).size());
  const int rows = static_cast<int>(cells.size());
  Bitmap picture = plainBitmap((columns + 1) * wall, (rows + 1) * wall, colourOfLetter(band));
  for (int y = wall; y < picture.height; ++y) {
    const std::string& row = cells.at(static_cast<std::size_t>(y / wall - 1));
    for (int x = wall; x < picture.width; ++x) {
      pixelAt(picture, x, y) = colourOfLetter(row.at(static_cast<std::size_t>(x / wall - 1)));
    }
  }
  return picture;
}

Colour& pixelAt(Bitmap& picture, int x, int y) {
  return picture.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                           static_cast<std::size_t>(x));
}

std::string textOf(const Bitmap& picture) {
  std::string text;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) text += letterOf(picture.at(x, y));
    text += '\n';
  }
  return text;
}

::testing::AssertionResult samePicture(const Bitmap& actual, const Bitmap& expected) {
  if (actual == expected) return ::testing::AssertionSuccess();
  auto failure = ::testing::AssertionFailure();
  if (actual.width != expected.width || actual.height != expected.height) {
    return failure << "sizes " << actual.width << "x" << actual.height << " and " << expected.width << "x"
                   << expected.height;
  }
  const auto [at, wanted] =
      std::mismatch(actual.pixels.begin(), actual.pixels.end(), expected.pixels.begin());
  const auto index = static_cast<int>(at - actual.pixels.begin());
  failure << "first at (" << index % actual.width << ", " << index / actual.width << "): " << *at
          << " and not " << *wanted;
  if (actual.width <= kSmall && actual.height <= kSmall) {
    failure << "\nis:\n" << textOf(actual) << "should be:\n" << textOf(expected);
  }
  return failure;
}

}  // namespace gridwright::test
