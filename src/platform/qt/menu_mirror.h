// The menu bar as the model has it. Widgets are written, never asked: a click reports itself and takes
// its own effect on the tick back, since the model alone decides what is marked.
#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/qt/input_queue.h"
#include "state/menu_tree.h"

class QAction;
class QMenuBar;

namespace gridwright {

class MenuMirror {
 public:
  /// Builds all items.
  MenuMirror(QMenuBar& bar, InputQueue& inputs);

  /// Brings every item in line with the model, if that has changed since.
  void mirror(const MenuModel& model);

  [[nodiscard]] std::uint64_t shown() const { return shown_; }
  [[nodiscard]] QAction* action(Item item) const { return actions_[static_cast<std::size_t>(item)]; }

 private:
  void chosen(Item item);
  void listEntries(Item item, const std::vector<std::string>& entries);

  InputQueue& inputs_;
  std::array<QAction*, kItemCount> actions_{};
  std::array<bool, kItemCount> marked_{};
  std::array<std::vector<std::string>, kItemCount> entries_;  // as they are shown
  std::uint64_t shown_ = 0;
};

/// What Qt is told so that a person reads the caption: ampersands doubled, and for the titles one
/// put before the letter that opens them together with Alt; behind the caption the keys that do the same.
QString menuText(Item item, std::string_view caption);

}  // namespace gridwright
