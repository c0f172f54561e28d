// The menu bar as the model has it. Widgets are written, never asked: a click reports itself and takes
// its own effect on the tick back, since the model alone decides what is marked.
#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/qt/input_queue.h"
#include "platform/qt/mnemonics.h"
#include "state/menu_tree.h"

class QAction;
class QMenuBar;

namespace gridwright {

/// By item the place of its letter in its caption.
using MnemonicPlaces = std::array<std::size_t, kItemCount>;

/// Every item with a letter or a digit in its caption has one, none twice in a menu.
MnemonicPlaces mnemonicsOf(const MenuModel& model);

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
  void markAnew(const MenuModel& model);
  void listEntries(Item item, const std::vector<std::string>& entries);

  InputQueue& inputs_;
  std::array<QAction*, kItemCount> actions_{};
  std::array<bool, kItemCount> marked_{};
  std::array<std::vector<std::string>, kItemCount> entries_;  // as they are shown
  std::array<std::string, kItemCount> captions_;              // that the letters were found for
  MnemonicPlaces mnemonics_{};
  std::uint64_t shown_ = 0;
};

/// What Qt is told so that a person reads the caption: ampersands doubled, one put before the letter that
/// opens it, and behind the caption the keys that do the same; none where they are empty.
QString menuText(std::string_view caption, std::size_t mnemonic, std::string_view keys);

}  // namespace gridwright
