// The ways out of a square, side by side, as a person who plays or carves finds them.
#pragma once

#include <array>
#include <cstdint>

namespace gridwright {

enum class Way : std::uint8_t {
  closed,  ///< A step there is refused.
  open,    ///< A step goes into the next cell.
  tunnel,  ///< The step would go under a corridor, where one can be passed.
};

/// By step code less one: left, right, up, down.
using Ways = std::array<Way, 4>;

/// A unit step by the same order.
struct WayStep {
  int dx, dy;
};
inline constexpr std::array<WayStep, 4> kWaySteps = {{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};

}  // namespace gridwright
