// The items of the menu bar, the 120 that people know and ours: names, captions and places as data that
// the compiler checks, and the model of what each looks like now. Rules write the model; the tenants mirror
// it to widgets and nobody asks a widget for the truth.
#pragma once

#include <algorithm>
#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gridwright {

enum class Item : int {
#define ROW(item, parent, caption, start) item,
#define OURS ROW
#include "state/menu_rows.inc"
#undef OURS
#undef ROW
  count,
  bar = -1,  ///< The menu bar itself, parent of the titles.
};

inline constexpr std::size_t kItemCount = static_cast<std::size_t>(Item::count);

enum class ItemStart { plain, checked, disabled, hidden, hiddenAndDisabled };

struct MenuRow {
  std::string_view name;  ///< What scripts, tests and rules call it; never changes.
  Item parent;
  std::string_view caption;
  ItemStart start;
  bool isOurs = false;  ///< Stands beside the 120.
};

inline constexpr std::array<MenuRow, kItemCount> kMenuRows = {{
#define ROW(item, parent, caption, start) {#item, Item::parent, caption, ItemStart::start},
#define OURS(item, parent, caption, start) {#item, Item::parent, caption, ItemStart::start, true},
#include "state/menu_rows.inc"
#undef OURS
#undef ROW
}};

static_assert(std::count_if(kMenuRows.begin(), kMenuRows.end(),
                            [](const MenuRow& row) { return !row.isOurs; }) == 120,
              "one of the 120 items is gone, or a new one stands among them: give it a row of OURS");

consteval bool parentsStandAbove() {
  for (std::size_t row = 0; row < kItemCount; ++row) {
    if (static_cast<int>(kMenuRows[row].parent) >= static_cast<int>(row)) return false;
  }
  return true;
}
static_assert(parentsStandAbove(), "a menu row names a parent that is not above it");

constexpr const MenuRow& rowOf(Item item) { return kMenuRows[static_cast<std::size_t>(item)]; }
constexpr Item itemAt(std::size_t row) { return static_cast<Item>(row); }

/// The item of a name, or nothing.
std::optional<Item> itemNamed(std::string_view name);

/// Whether an item opens a submenu of other items.
bool hasChildren(Item item);

/// Whether an item opens a submenu of entries, which are no items but words that change as the program runs.
constexpr bool hasEntries(Item item) { return item == Item::openrecent || item == Item::openexample; }

class MenuModel {
 public:
  MenuModel();  ///< Every item in its start state.

  [[nodiscard]] bool enabled(Item item) const { return enabled_[index(item)]; }
  [[nodiscard]] bool visible(Item item) const { return visible_[index(item)]; }
  [[nodiscard]] bool checked(Item item) const { return checked_[index(item)]; }
  [[nodiscard]] const std::string& caption(Item item) const { return captions_[index(item)]; }

  /// Words that help with an item, shown beside it; may be empty.
  [[nodiscard]] const std::string& tip(Item item) const { return tips_[index(item)]; }

  /// What an item with entries holds now, in order; an entry is chosen by its place.
  [[nodiscard]] const std::vector<std::string>& entries(Item item) const { return entries_[index(item)]; }

  /// Whether a person can choose the item: it and all above it are shown and enabled.
  [[nodiscard]] bool available(Item item) const;

  void setEnabled(Item item, bool on) { set(enabled_, item, on); }
  void setVisible(Item item, bool on) { set(visible_, item, on); }
  void setChecked(Item item, bool on) { set(checked_, item, on); }
  void setCaption(Item item, std::string_view caption);
  void setTip(Item item, std::string_view tip);
  void setEntries(Item item, std::vector<std::string> entries);

  /// Grows with every change; a tenant whose widgets show an older one brings them in line.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }

  /// What the enable table was last applied for; kept here so that it is asked anew only on a change.
  std::uint64_t enableKey = ~std::uint64_t{0};

  /// What the rules of a running loop were last applied for, and the revision they left.
  std::uint64_t loopKey = ~std::uint64_t{0}, loopRevision = 0;

 private:
  using Bits = std::bitset<kItemCount>;
  static std::size_t index(Item item) { return static_cast<std::size_t>(item); }
  void set(Bits& bits, Item item, bool on) {
    if (bits[index(item)] == on) return;
    bits[index(item)] = on;
    ++revision_;
  }

  Bits enabled_, visible_, checked_;
  std::array<std::string, kItemCount> captions_;
  std::array<std::string, kItemCount> tips_;
  std::array<std::vector<std::string>, kItemCount> entries_;
  std::uint64_t revision_ = 1;
};

}  // namespace gridwright
