// A picture from anywhere, as its reader hands it on: exact colours, and what of it was transparent.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "canvas/bitmap.h"

namespace gridwright {

/// No side of a picture that a reader hands on is longer, in pixels: what a Canvas can hold.
inline constexpr int kLongestSide = 1000;

/// Pixels, each 0x00BBGGRR, and which of them were more transparent than not.
struct Layer {
  Bitmap colours;
  std::vector<std::uint8_t> clear;  ///< One a pixel, 1 where it was transparent; empty: nowhere.

  [[nodiscard]] bool isClear(std::size_t pixel) const { return !clear.empty() && clear[pixel] != 0; }
  [[nodiscard]] Size size() const { return {colours.width, colours.height}; }
};

/// A file may hold many times what a Canvas does, so two parts of it are kept, neither longer on a side
/// than `kLongestSide`: all of it, reduced where it has to be, and its middle, pixel for pixel.
struct Picture {
  Layer whole;   ///< All of the picture; as it is where it fits.
  Layer middle;  ///< Its middle as it is, where the whole had to be reduced or is drawn at any size; else
                 ///< empty.
  Size own;      ///< How large it is by itself, in pixels.
  /// Reads the middle where that costs as much again as all else and is seldom asked for: it is left empty
  /// then, though the whole had to be reduced. Empty where it is read or not needed; may give nothing.
  std::function<Layer()> readMiddle = {};

  /// The picture, or its middle, in its own pixels.
  [[nodiscard]] Layer asItIs() const {
    Layer read = readMiddle ? readMiddle() : Layer{};
    if (!read.colours.pixels.empty()) return read;
    return middle.colours.pixels.empty() ? whole : middle;
  }
  /// Whether all of it is here in its own pixels.
  [[nodiscard]] bool isWholeAsItIs() const {
    return !readMiddle && (middle.colours.pixels.empty() ? whole : middle).size() == own;
  }
};

}  // namespace gridwright
