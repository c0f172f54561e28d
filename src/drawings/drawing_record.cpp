#include "drawings/drawing_record.h"

#include <algorithm>
#include <optional>

#include "files/step_values.h"

namespace gridwright {

namespace {

constexpr std::array kKindsInFile = {MazeKind::regular, MazeKind::threeD, MazeKind::pipe};

Fault broken(const char* why) { return {Fault::Kind::malformed, why}; }

/// The record's values, one comma between two of them and the line's end after the last: where one is
/// missing or too many, the others must not move.
/// \returns what follows them, or nothing.
std::optional<std::string_view> readRecord(std::string_view text, DrawingRecord& drawing) {
  for (int& value : drawing.values) {
    const std::size_t end = std::min(text.find_first_of(kValueSeparators), text.size());
    const auto read = wholeValue(text.substr(0, end));
    const bool last = &value == &drawing.values.back();
    if (!read || end == text.size() || (text[end] == ',') == last) return std::nullopt;
    value = *read;
    text.remove_prefix(end + 1);
  }
  return text;
}

/// Whether nothing follows the last list's end mark but its closing value, which may be left out.
bool endsThere(StepValues& values) {
  return values.atEnd() || (values.next() == step::closing && values.atEnd());
}

}  // namespace

ListPlace listPlace(std::size_t list) {
  return {kKindsInFile.at(list / 4), static_cast<int>(list % 4) + step::left};
}

std::string formatDrawing(const DrawingRecord& drawing) {
  std::string text;
  for (const int value : drawing.values) {
    if (!text.empty()) text += ',';
    text += std::to_string(value);
  }
  text += "\r\n";
  for (const Steps& steps : drawing.lists) text += formatSteps(steps);
  return text;
}

Outcome<DrawingRecord> parseDrawing(std::string_view text) {
  DrawingRecord drawing;
  const auto lists = readRecord(text, drawing);
  if (!lists) return broken("a value is missing or no number");
  StepValues values(*lists);
  const auto wallSizeFits = [&](std::size_t at) {
    return drawing.values[at] >= 5 && drawing.values[at] <= 50;
  };
  if (!wallSizeFits(record::wallWidth) || !wallSizeFits(record::wallHeight)) return broken("wall size");
  const int kind = drawing.values[record::mazeKind];
  if (kind < 0 || kind > 2) return broken("kind of maze");
  for (Steps& list : drawing.lists) {
    auto steps = readStepList(values, &list == &drawing.lists.back(), AtEnd::broken);
    if (!steps) return broken("a list of steps");
    list = std::move(*steps);
  }
  if (!endsThere(values)) return broken("more than twelve lists");
  return drawing;
}

}  // namespace gridwright
