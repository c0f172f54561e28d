// Walking over planes of pixels that are kept row by row.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include "canvas/colour.h"
#include "canvas/geometry.h"

namespace gridwright {

inline std::size_t placeOf(Size size, int x, int y) {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) + static_cast<std::size_t>(x);
}

/// The largest difference of a channel.
inline int channelsApart(Colour one, Colour other) {
  const int red = std::abs((one & 0xFF) - (other & 0xFF));
  const int green = std::abs((one >> 8 & 0xFF) - (other >> 8 & 0xFF));
  const int blue = std::abs((one >> 16 & 0xFF) - (other >> 16 & 0xFF));
  return std::max({red, green, blue});
}

/// Red, green and blue as they add to brightness, 0 to 255.
inline int brightnessOf(Colour colour) {
  return (77 * (colour & 0xFF) + 150 * (colour >> 8 & 0xFF) + 29 * (colour >> 16 & 0xFF)) >> 8;
}

/// Calls `take` with the place of each neighbour by a side that lies in the picture.
template <class Take>
void forSides(Size size, std::size_t at, Take take) {
  const auto width = static_cast<std::size_t>(size.width);
  const std::size_t x = at % width;
  const std::size_t y = at / width;
  if (x > 0) take(at - 1);
  if (x + 1 < width) take(at + 1);
  if (y > 0) take(at - width);
  if (y + 1 < static_cast<std::size_t>(size.height)) take(at + width);
}

/// The same of each neighbour by a side or a corner.
template <class Take>
void forAround(Size size, std::size_t at, Take take) {
  const int x = static_cast<int>(at % static_cast<std::size_t>(size.width));
  const int y = static_cast<int>(at / static_cast<std::size_t>(size.width));
  for (int ny = std::max(0, y - 1); ny <= std::min(size.height - 1, y + 1); ++ny) {
    for (int nx = std::max(0, x - 1); nx <= std::min(size.width - 1, x + 1); ++nx) {
      if (nx != x || ny != y) take(placeOf(size, nx, ny));
    }
  }
}

/// Visits what hangs together by its sides with `from`, from itself on. `enter(from, to)` says whether a step
/// is taken, and has to say no to what was visited.
template <class Enter, class Visit>
void floodFrom(Size size, std::size_t from, Enter enter, Visit visit) {
  std::vector<std::size_t> open{from};
  visit(from);
  while (!open.empty()) {
    const std::size_t at = open.back();
    open.pop_back();
    forSides(size, at, [&](std::size_t next) {
      if (!enter(at, next)) return;
      visit(next);
      open.push_back(next);
    });
  }
}

}  // namespace gridwright
