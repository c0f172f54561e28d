#include "files/drawing_record.h"

#include <algorithm>
#include <optional>

#include "patterns/step_values.h"

namespace gridwright {

namespace {

constexpr std::array kKindsInFile = {MazeKind::regular, MazeKind::threeD, MazeKind::pipe};

Fault broken(const char* why) { return {Fault::Kind::malformed, why}; }

/// The record's values, one comma between two of them: where one is missing the others must not move up.
/// \returns what follows them, or nothing.
std::optional<std::string_view> readRecord(std::string_view text, DrawingRecord& drawing) {
  for (int& value : drawing.values) {
    const std::size_t end = std::min(text.find_first_of(kValueSeparators), text.size());
    const auto read = wholeValue(text.substr(0, end));
    const bool last = &value == &drawing.values.back();
    if (!read || (!last && (end == text.size() || text[end] != ','))) return std::nullopt;
    value = *read;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return text;
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
  return drawing;
}

}  // namespace gridwright
