// Stepping from colour to colour through the slots of a set, as the colour keys do.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

#include "canvas/colour_sets.h"

namespace gridwright {

/// The next slot's colour from the one that holds `from`, `direction` -1 towards slot 1 or 1 towards
/// slot 16, passing over unfit ones. There is no wrap-around: nothing when no fit slot comes, or when
/// no slot holds `from`.
template <class Unfit>
std::optional<Colour> nextInSlots(const ColourSets::Slots& slots, Colour from, int direction, Unfit unfit) {
  const auto* slot = std::find(slots.begin(), slots.end(), from);
  if (slot == slots.end()) return std::nullopt;
  for (auto i = slot - slots.begin() + direction; i >= 0 && i < kSlots; i += direction) {
    const Colour colour = slots[static_cast<std::size_t>(i)];
    if (!unfit(colour)) return colour;
  }
  return std::nullopt;
}

}  // namespace gridwright
