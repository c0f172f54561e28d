// Colours as numbers in the form 0x00BBGGRR, held signed.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace gridwright {

using Colour = std::int32_t;

/// The bits of a pixel that are its colour.
inline constexpr Colour kColourBits = 0xFFFFFF;

/// What a read outside the Canvas gives: it lies in no colour set, so code may probe past the edge.
inline constexpr Colour kOutside = -1;

/// A value from 300 to 400 in a colour slot keeps the slot from matching.
inline constexpr bool isSentinel(Colour value) { return value >= 300 && value <= 400; }

/// The sixteen fixed colours, in the order of the swatches.
inline constexpr std::array<Colour, 16> kPalette = {0,     8388608,  32768,   8421376,  128,   8388736,
                                                    32896, 12632256, 8421504, 16711680, 65280, 16776960,
                                                    255,   16711935, 65535,   16777215};

/// What a person calls them, in the same order.
inline constexpr std::array<const char*, 16> kPaletteNames = {
    "black", "navy", "green", "teal", "maroon", "purple",  "olive",  "silver",
    "gray",  "blue", "lime",  "cyan", "red",    "magenta", "yellow", "white"};

/// A letter for each, in the same order, for those who do not tell all of them apart.
inline constexpr std::string_view kPaletteLetters = "KNGTMPOSABLCREYW";
static_assert(kPaletteLetters.size() == kPalette.size());

/// The values of the standard 16-colour numbering that the program uses.
namespace qb {
inline constexpr Colour gray = 8421504;
inline constexpr Colour lightRed = 255;
inline constexpr Colour lightMagenta = 16711935;
inline constexpr Colour yellow = 65535;
inline constexpr Colour white = 16777215;
}  // namespace qb

/// The square that shows where the walker stands in a maze made by hand. Three off black, so that it
/// is told from a black background or border.
inline constexpr Colour kCursorColour = kPalette[0] + 3;

/// The seventeenth background entry: a green just darker than the palette's while that is a
/// background, else a number that no pixel can equal.
inline constexpr Colour kDarkGreen = 31744;
inline constexpr Colour kNoGreen = -5814440;

}  // namespace gridwright
