#include "colours/colour_repairs.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace gridwright {

namespace {

constexpr std::string_view kMazeCaption = "Maze Color";

bool isBackgroundSwatch(const Program& program, int i) {
  return program.controls[classifySwatch(i)].value == 1;
}
bool isMazeSwatch(const Program& program, int i) {
  return program.controls[classifySwatch(i)].text == kMazeCaption;
}

/// The colour of the picture's outer frame is always a border from here on.
void makeFrameABorder(Program& program, Colour frame) {
  const auto& background = program.colours.background();
  const auto* slot = std::find(background.begin(), background.end(), frame);
  if (slot == background.end()) return;
  const int i = static_cast<int>(slot - background.begin());
  program.controls.setValue(classifySwatch(i), 0);
  program.colours.makeFrameBorder(i);
}

/// Without any background left, the first plain border colour but the frame's becomes one.
/// \returns whether one did.
bool makeABackground(Program& program, Colour frame) {
  for (int i = 0; i < kSlots; ++i) {
    if (!isMazeSwatch(program, i) && isBackgroundSwatch(program, i)) return false;
  }
  for (int i = 0; i < kSlots; ++i) {
    if (isMazeSwatch(program, i) || kPalette[static_cast<std::size_t>(i)] == frame) continue;
    program.controls.setValue(classifySwatch(i), 1);
    program.colours.classify(i, true);
    return true;
  }
  return false;
}

void replaceMazeColour(Program& program, Colour conflicting) {
  const ColourSets::Slots maze = program.colours.maze();
  const auto* other = std::find_if(maze.begin(), maze.end(), [&](Colour m) { return m != conflicting; });
  if (other == maze.end()) return;
  for (int i = 0; i < kSlots; ++i) {
    if (maze[static_cast<std::size_t>(i)] == conflicting) program.colours.setMaze(i, *other);
  }
  for (Colour* follower : {&program.state.mazeColor, &program.state.keptMazeColor}) {
    if (*follower == conflicting) *follower = *other;
  }
}

/// A maze colour that lies on a cell's corner would be taken for carved ground.
void scanForConflicts(Program& program) {
  const ProgramState& s = program.state;
  for (int y = s.wallHeight + 1 - s.stepY; y <= program.canvas.scaleHeight(); y += s.stepY) {
    for (int x = s.wallWidth + 1 - s.stepX; x <= program.canvas.scaleWidth(); x += s.stepX) {
      const Colour pixel = program.canvas.point(x, y);
      if (program.colours.isMaze(pixel)) replaceMazeColour(program, pixel);
    }
  }
}

bool unfitForEnd(const ColourSets& sets, Colour colour) {
  return sets.isMaze(colour) || sets.isBackground(colour) || isSentinel(colour);
}

Colour firstGoodBorder(const ColourSets& sets) {
  const auto& border = sets.border();
  const auto* good =
      std::find_if_not(border.begin(), border.end(), [&](Colour c) { return unfitForEnd(sets, c); });
  return good == border.end() ? border.back() : *good;
}

bool mayTakeBack(const ColourSets& sets, Colour saved) {
  return !sets.isMaze(saved) && !(saved >= 300 && saved < 400) && sets.isBorder(saved);
}

}  // namespace

void refillSetsFromSwatches(Program& program) {
  for (int i = 0; i < kSlots; ++i) program.colours.classify(i, isBackgroundSwatch(program, i));
}

void defaultColours(Program& program) {
  program.controls.setValue(ControlId::Check33, 0);
  program.controls.setValue(ControlId::Check34, 1);
  program.state.colours.individualMazeColors = false;
  for (int i = 0; i < kSlots; ++i) program.controls.setValue(classifySwatch(i), i < 8 ? 1 : 0);
  refillSetsFromSwatches(program);
  program.colours.setAllMaze(program.colours.border()[15]);
  captionSwatches(program);
}

void captionSwatches(Program& program) {
  const auto& maze = program.colours.maze();
  for (int i = 0; i < kSlots; ++i) {
    const bool isMaze =
        std::find(maze.begin(), maze.end(), kPalette[static_cast<std::size_t>(i)]) != maze.end();
    if (isMaze) {
      program.controls.setText(classifySwatch(i), kMazeCaption);
      continue;
    }
    const std::string_view caption = isBackgroundSwatch(program, i) ? "Background" : "Border Color";
    program.controls.setText(classifySwatch(i), caption);
    program.controls.setText(drawingSwatch(i), caption);
  }
}

void repairSetsBeforeMaze(Program& program) {
  const Colour frame = program.canvas.point(1, 1);
  makeFrameABorder(program, frame);
  if (!makeABackground(program, frame)) scanForConflicts(program);
  program.colours.setExtraBackgroundByRule();
}

void repairEndColours(Program& program) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  s.keptMazeColor = s.mazeColor;
  if (sets.isMaze(s.startColor) || sets.isBackground(s.startColor)) {
    s.startColor = firstGoodBorder(sets);
    s.savedStartColor = sets.border()[0];
  }
  if (sets.isMaze(s.finishColor) || sets.isBackground(s.finishColor)) s.finishColor = firstGoodBorder(sets);
}

Colour nudged(Colour plain) {
  const auto* slot = std::find(kPalette.begin(), kPalette.end(), plain);
  if (slot == kPalette.end()) return plain;
  return slot - kPalette.begin() < 12 ? plain + 1 : plain - 1;
}

Colour unNudged(Colour colour) {
  const auto* low = std::find(kPalette.begin(), kPalette.begin() + 12, colour - 1);
  if (low != kPalette.begin() + 12) return colour - 1;
  const auto* high = std::find(kPalette.begin() + 12, kPalette.end(), colour + 1);
  return high != kPalette.end() ? colour + 1 : colour;
}

void restoreSavedEndColours(Program& program) {
  ProgramState& s = program.state;
  if (s.savedStartColorValid && mayTakeBack(program.colours, s.savedStartColor))
    s.startColor = s.savedStartColor;
  if (s.savedFinishColorValid && mayTakeBack(program.colours, s.savedFinishColor)) {
    s.finishColor = s.savedFinishColor;
  }
}

}  // namespace gridwright
