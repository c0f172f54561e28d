// The keys that choose an item of the menus. The window shows them beside the items and listens to them;
// they are no keys of a phase.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "state/menu_tree.h"

namespace gridwright {

struct Shortcut {
  std::string_view keys;  ///< As people and Qt write them.
  Item item;
};

/// An item's first row is the one that is shown. Keys that stand at several items belong to the ticked one.
inline constexpr auto kShortcuts = std::to_array<Shortcut>({
    {"Ctrl+O", Item::openpicture}, {"Ctrl+V", Item::pastepicture}, {"Ctrl+D", Item::workshop},
    {"Ctrl+Z", Item::undo},        {"Ctrl+Shift+Z", Item::redo},   {"Ctrl+Y", Item::redo},
    {"F1", Item::showkeys},        {"F2", Item::surroundings},     {"F11", Item::wholescreen},
    {"Ctrl+S", Item::sdrawing},    {"Ctrl+L", Item::ldrawing},     {"F5", Item::createreg},
    {"F5", Item::create3d},        {"F5", Item::create3dpipe},     {"Ctrl+Q", Item::quit2},
    {"Ctrl+P", Item::printfff},    {"F8", Item::backtodrawing},    {"Ctrl+N", Item::newmaze},
    {"F7", Item::sandf},           {"F6", Item::solvemaze},        {"Ctrl+C", Item::copymaze},
});

/// The item that keys choose now, or nothing.
std::optional<Item> itemOfKeys(const MenuModel& menus, std::string_view keys);

/// The keys to be shown beside an item now; empty for none.
std::string_view keysOfItem(const MenuModel& menus, Item item);

}  // namespace gridwright
