#include "state/menu_tree.h"

#include <algorithm>
#include <utility>

#include "state/menu_tips.h"

namespace gridwright {

std::optional<Item> itemNamed(std::string_view name) {
  const auto row = std::find_if(kMenuRows.begin(), kMenuRows.end(),
                                [&](const MenuRow& candidate) { return candidate.name == name; });
  if (row == kMenuRows.end()) return std::nullopt;
  return itemAt(static_cast<std::size_t>(row - kMenuRows.begin()));
}

bool hasChildren(Item item) {
  return std::any_of(kMenuRows.begin(), kMenuRows.end(),
                     [&](const MenuRow& row) { return row.parent == item; });
}

MenuModel::MenuModel() {
  for (std::size_t i = 0; i < kItemCount; ++i) {
    const ItemStart start = kMenuRows[i].start;
    enabled_[i] = start != ItemStart::disabled && start != ItemStart::hiddenAndDisabled;
    visible_[i] = start != ItemStart::hidden && start != ItemStart::hiddenAndDisabled;
    checked_[i] = start == ItemStart::checked;
    captions_[i] = kMenuRows[i].caption;
  }
  for (const MenuTip& tip : kMenuTips) tips_[index(tip.item)] = tip.words;
}

bool MenuModel::available(Item item) const {
  for (Item at = item; at != Item::bar; at = rowOf(at).parent) {
    if (!enabled(at) || !visible(at)) return false;
  }
  return true;
}

void MenuModel::setCaption(Item item, std::string_view caption) {
  if (captions_[index(item)] == caption) return;
  captions_[index(item)] = caption;
  ++revision_;
}

void MenuModel::setEntries(Item item, std::vector<std::string> entries) {
  if (entries_[index(item)] == entries) return;
  entries_[index(item)] = std::move(entries);
  ++revision_;
}

void MenuModel::setTip(Item item, std::string_view tip) {
  if (tips_[index(item)] == tip) return;
  tips_[index(item)] = tip;
  ++revision_;
}

}  // namespace gridwright
