// The values of step lists in files that hold several.
#pragma once

#include <optional>
#include <string_view>

#include "files/step_files.h"

namespace gridwright {

inline constexpr std::string_view kValueSeparators = ",\r\n";

/// A whole number with blanks around it; nothing where the text is none.
std::optional<int> wholeValue(std::string_view value);

/// The values of a text one by one; commas and line ends are one kind of separator.
class StepValues {
 public:
  explicit StepValues(std::string_view text) : text_(text) {}

  /// Whether nothing is left but separators.
  [[nodiscard]] bool atEnd() const { return text_.find_first_not_of(",\r\n ") == std::string_view::npos; }

  /// The next value as a whole number; nothing at the end or where it is none.
  std::optional<int> next();

 private:
  std::string_view text_;
};

/// What the end of the file counts as in a list.
enum class AtEnd { broken, endsList };

/// One list up to its end mark and, unless it is the file's last, the closing value after it.
/// \returns nothing when it does not end so, or a value is no step.
std::optional<Steps> readStepList(StepValues& values, bool last, AtEnd atEnd);

}  // namespace gridwright
