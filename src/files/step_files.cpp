#include "files/step_files.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "files/work_folder.h"

namespace gridwright {

namespace {

constexpr std::array<std::array<std::string_view, 4>, 3> kNames = {{
    {"Left.pt", "Right.pt", "up.pt", "down.pt"},
    {"3dpipeLeft.pt", "3dpipeRight.pt", "3dpipeup.pt", "3dpipedown.pt"},
    {"3dLeft.pt", "3dRight.pt", "3dup.pt", "3ddown.pt"},
}};
constexpr std::array<std::array<std::string_view, 4>, 3> kScratchNames = {{
    {"left2.pt", "right2.pt", "up2.pt", "down2.pt"},
    {"3dpipeleft2.pt", "3dpiperight2.pt", "3dpipeup2.pt", "3dpipedown2.pt"},
    {"3dleft2.pt", "3dright2.pt", "3dup2.pt", "3ddown2.pt"},
}};
constexpr std::string_view kClosingLine = "9999,88\r\n";
constexpr std::array kKinds = {MazeKind::regular, MazeKind::pipe, MazeKind::threeD};

std::size_t indexOf(MazeKind kind) { return static_cast<std::size_t>(kind); }
std::size_t indexOf(int direction) { return static_cast<std::size_t>(direction - 1); }

/// The number a value begins with; a value without digits is 0 and never a step.
int numberIn(std::string_view value) {
  value.remove_prefix(std::min(value.find_first_not_of(" \t\""), value.size()));
  int number = 0;
  std::from_chars(value.data(), value.data() + value.size(), number);
  return number;
}

}  // namespace

std::string_view stepFileName(MazeKind kind, int direction) {
  return kNames.at(indexOf(kind)).at(indexOf(direction));
}

Steps parseSteps(std::string_view text) {
  Steps steps;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(",\r\n"), text.size());
    const std::string_view value = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (value.find_first_not_of(" \t") == std::string_view::npos) continue;
    const int code = numberIn(value);
    if (code == step::endMark) break;
    steps.push_back(code);
  }
  return steps;
}

bool hasStep(const Steps& steps) { return std::any_of(steps.begin(), steps.end(), step::isCode); }

std::string formatSteps(const Steps& steps) {
  std::string text;
  for (const int code : steps) text += std::to_string(code) + "\r\n";
  return text += kClosingLine;
}

std::string defaultStepText(int direction) {
  return std::to_string(direction) + "," + std::string(kClosingLine);
}

StepFiles::Slot& StepFiles::slot(MazeKind kind, int direction) {
  return slots_.at(indexOf(kind) * 4 + indexOf(direction));
}

const Steps& StepFiles::steps(MazeKind kind, int direction) {
  Slot& kept = slot(kind, direction);
  if (!kept.steps) {
    const auto text = folder_.readText(stepFileName(kind, direction));
    kept.steps = text ? parseSteps(text.value()) : Steps{};
    if (!hasStep(*kept.steps)) kept.steps = Steps{direction};
  }
  return *kept.steps;
}

void StepFiles::writeText(MazeKind kind, int direction, std::string_view text) {
  Slot& kept = slot(kind, direction);
  kept.steps = parseSteps(text);
  kept.lastWriteFailed = !put(stepFileName(kind, direction), text);
}

bool StepFiles::put(std::string_view name, std::string_view text) {
  const auto written = folder_.writeText(name, text);
  if (!written) folder_.tellIfNoPlainFile(written.fault());
  return static_cast<bool>(written);
}

void StepFiles::write(MazeKind kind, int direction, const Steps& steps) {
  writeText(kind, direction, formatSteps(steps));
}

void StepFiles::install(MazeKind kind, int direction, const Steps& steps) {
  writeText(kind, direction, hasStep(steps) ? formatSteps(steps) : defaultStepText(direction));
}

void StepFiles::reset(MazeKind kind, int direction) {
  writeText(kind, direction, defaultStepText(direction));
}

void StepFiles::resetKind(MazeKind kind) {
  for (int direction = step::left; direction <= step::down; ++direction) reset(kind, direction);
}

void StepFiles::resetAll() {
  for (const MazeKind kind : kKinds) resetKind(kind);
}

void StepFiles::writeScratch(MazeKind kind, int direction, const Steps& steps) {
  put(kScratchNames.at(indexOf(kind)).at(indexOf(direction)), formatSteps(steps));
}

void StepFiles::rereadFromDisk() {
  for (Slot& kept : slots_) {
    if (!kept.lastWriteFailed) kept.steps.reset();
  }
}

}  // namespace gridwright
