// Pictures as a person would draw them in a test: text, one letter a cell or a pixel.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright::test {

inline constexpr Colour kNavy = 8388608, kGreen = 32768, kMaroon = 128, kBlack = 0;    // backgrounds
inline constexpr Colour kBlue = 16711680, kLime = 65280, kRed = 255, kGrey = 8421504;  // borders
inline constexpr Colour kFuchsia = 16711935, kYellow = 65535;                          // borders
inline constexpr Colour kWhite = 16777215;                                             // every maze colour

using Text = std::vector<std::string>;

/// `.` navy, `,` green, `o` maroon, `k` black (backgrounds); `#` blue, `=` lime, `r` red, `y` yellow, `g`
/// grey (borders); `*` white, which is maze; `d` the dark green 31744; `c` the walker's cursor; `S` fuchsia.
Colour colourOfLetter(char letter);
/// The other way; `?` for a colour without a letter.
char letterOf(Colour colour);

/// One letter a pixel.
Bitmap pixels(const Text& rows);

/// One letter a cell of `wall` pixels, the band of one wall size along the top and left in `band`: the
/// Canvas has exactly this many columns and rows of cells.
Bitmap drawing(const Text& cells, int wall = 10, char band = '#');

/// A pixel of a picture that a test paints.
Colour& pixelAt(Bitmap& picture, int x, int y);

/// A picture as letters, one a pixel.
std::string textOf(const Bitmap& picture);

/// Every pixel, exactly. Small pictures are printed both, of large ones the first difference.
::testing::AssertionResult samePicture(const Bitmap& actual, const Bitmap& expected);

}  // namespace gridwright::test
