#include "state/shortcuts.h"

#include <algorithm>

namespace gridwright {

namespace {

/// Several items share keys only where they are choices of one thing.
bool isShared(std::string_view keys, Item item) {
  return std::any_of(kShortcuts.begin(), kShortcuts.end(),
                     [&](const Shortcut& s) { return s.keys == keys && s.item != item; });
}

bool holds(const MenuModel& menus, const Shortcut& shortcut) {
  return !isShared(shortcut.keys, shortcut.item) || menus.checked(shortcut.item);
}

}  // namespace

std::optional<Item> itemOfKeys(const MenuModel& menus, std::string_view keys) {
  const auto* row = std::find_if(kShortcuts.begin(), kShortcuts.end(),
                                 [&](const Shortcut& s) { return s.keys == keys && holds(menus, s); });
  if (row == kShortcuts.end()) return std::nullopt;
  return row->item;
}

std::string_view keysOfItem(const MenuModel& menus, Item item) {
  const auto* row =
      std::find_if(kShortcuts.begin(), kShortcuts.end(), [&](const Shortcut& s) { return s.item == item; });
  return row != kShortcuts.end() && holds(menus, *row) ? row->keys : std::string_view();
}

}  // namespace gridwright
