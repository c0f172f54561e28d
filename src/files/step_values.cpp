#include "files/step_values.h"

#include <algorithm>
#include <charconv>

namespace gridwright {

std::optional<int> StepValues::next() {
  text_.remove_prefix(std::min(text_.find_first_not_of(kValueSeparators), text_.size()));
  const std::string_view value = text_.substr(0, text_.find_first_of(kValueSeparators));
  text_.remove_prefix(value.size());
  return wholeValue(value);
}

std::optional<int> wholeValue(std::string_view value) {
  value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
  value = value.substr(0, value.find_last_not_of(' ') + 1);
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (value.empty() || error != std::errc{} || end != value.data() + value.size()) return std::nullopt;
  return number;
}

std::optional<Steps> readStepList(StepValues& values, bool last, AtEnd atEnd) {
  Steps steps;
  for (;;) {
    if (atEnd == AtEnd::endsList && values.atEnd()) return steps;
    const auto code = values.next();
    if (!code) return std::nullopt;
    if (*code == step::endMark) break;
    if (!step::isCode(*code)) return std::nullopt;
    steps.push_back(*code);
  }
  if (last || (atEnd == AtEnd::endsList && values.atEnd())) return steps;
  if (values.next() != step::closing) return std::nullopt;
  return steps;
}

}  // namespace gridwright
