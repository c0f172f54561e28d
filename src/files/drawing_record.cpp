#include "files/drawing_record.h"

#include "patterns/step_values.h"

namespace gridwright {

namespace {

constexpr std::array kKindsInFile = {MazeKind::regular, MazeKind::threeD, MazeKind::pipe};

Fault broken(const char* why) { return {Fault::Kind::malformed, why}; }

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
  StepValues values(text);
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
    auto steps = readStepList(values, &list == &drawing.lists.back(), AtEnd::broken);
    if (!steps) return broken("a list of steps");
    list = std::move(*steps);
  }
  return drawing;
}

}  // namespace gridwright
