// What must hold whatever a person does, looked at between two deeds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "canvas/bitmap.h"
#include "state/program.h"

namespace gridwright::person {

class Watch {
 public:
  /// The deed that comes now.
  void before(const Program& program, std::string_view deed);
  /// The program said that something cannot be done.
  void refused(std::string_view words) { refusal_ = words; }

  /// \returns what does not hold after the deed; empty when all does. In one form of words for one fault,
  ///   with what differs from time to time behind a colon.
  [[nodiscard]] std::string after(const Program& program);

 private:
  std::string drawingStays(const Program& program);

  std::string deed_;
  std::string refusal_;
  std::uint64_t notices_ = 0;
  int number_ = 0;                         ///< Of the drawing before the deed.
  std::optional<Bitmap> drawing_, sheet_;  ///< As they were before the deed; none where there was none.
  std::optional<Bitmap> left_;             ///< The drawing as it was left for a maze,
  int leftNumber_ = 0;                     ///< and its number.
};

/// An item that is on where the table has it off, or off where it has it on; empty when there is none.
std::string itemsAgainstTable(const Program& program);

/// A panel that holds the window must show what it can be closed with.
std::string lockedPanel(const Program& program);

}  // namespace gridwright::person
