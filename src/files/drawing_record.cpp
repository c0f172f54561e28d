#include "files/drawing_record.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace gridwright {

namespace {

constexpr std::array kKindsInFile = {MazeKind::regular, MazeKind::threeD, MazeKind::pipe};

Fault broken(const char* why) { return {Fault::Kind::malformed, why}; }

/// The values of a text one by one; commas and line ends are one kind of separator.
class Values {
 public:
  explicit Values(std::string_view text) : text_(text) {}

  /// The next value as a whole number; nothing at the end or where it is none.
  std::optional<int> next() {
    constexpr std::string_view kSeparators = ",\r\n";
    text_.remove_prefix(std::min(text_.find_first_not_of(kSeparators), text_.size()));
    std::string_view value = text_.substr(0, text_.find_first_of(kSeparators));
    text_.remove_prefix(value.size());
    value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    value = value.substr(0, value.find_last_not_of(' ') + 1);
    int number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (value.empty() || error != std::errc{} || end != value.data() + value.size()) return std::nullopt;
    return number;
  }

 private:
  std::string_view text_;
};

/// Steps up to the end mark, and the closing value after it where it is there.
std::optional<Steps> readList(Values& values, bool last) {
  Steps steps;
  for (;;) {
    const auto code = values.next();
    if (!code) return std::nullopt;
    if (*code == step::endMark) break;
    if (*code < step::left || *code > step::walkBack) return std::nullopt;
    steps.push_back(*code);
  }
  if (!last && values.next() != step::closing) return std::nullopt;  // the last list stops at its end mark
  return steps;
}

}  // namespace

ListPlace listPlace(std::size_t list) {
  return {kKindsInFile.at(list / 4), static_cast<int>(list % 4) + step::left};
}

std::string formatDrawing(const DrawingRecord& drawing) {
  std::string text;
  for (const int value : drawing.values) text += (text.empty() ? "" : ",") + std::to_string(value);
  text += "\r\n";
  for (const Steps& steps : drawing.lists) text += formatSteps(steps);
  return text;
}

Outcome<DrawingRecord> parseDrawing(std::string_view text) {
  DrawingRecord drawing;
  Values values(text);
  for (int& value : drawing.values) {
    const auto read = values.next();
    if (!read) return broken("a value is missing or no number");
    value = *read;
  }
  const auto wallSizeFits = [&](std::size_t at) {
    return drawing.values[at] >= 5 && drawing.values[at] <= 50;
  };
  if (!wallSizeFits(record::wallWidth) || !wallSizeFits(record::wallHeight)) return broken("wall size");
  const int kind = drawing.values[record::mazeKind];
  if (kind < 0 || kind > 2) return broken("kind of maze");
  for (Steps& list : drawing.lists) {
    auto steps = readList(values, &list == &drawing.lists.back());
    if (!steps) return broken("a list of steps");
    list = std::move(*steps);
  }
  return drawing;
}

}  // namespace gridwright
