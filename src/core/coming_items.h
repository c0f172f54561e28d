// Items whose subsystem is not built yet: they stand in the tree, disabled. The list shrinks.
#pragma once

#include <algorithm>
#include <array>

#include "core/menu_tree.h"

namespace gridwright {

inline constexpr auto kComingItems = std::to_array<Item>({
    Item::crnd1,
    Item::editpatterns,
    Item::rightpattern,
    Item::uppattern,
    Item::downpattern,
    Item::crpattern,
    Item::resetpattern,
    Item::resetpatterns,
    Item::makeidentical,
    Item::savepatterns,
    Item::loadpatterns,
    Item::exitpattern,
});

constexpr bool isComing(Item item) {
  return std::find(kComingItems.begin(), kComingItems.end(), item) != kComingItems.end();
}

}  // namespace gridwright
