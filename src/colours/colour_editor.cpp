#include "colours/colour_editor.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "colours/colour_repairs.h"

namespace gridwright {

namespace {

constexpr std::array kClassifyFrame = {ControlId::Check33, ControlId::Check34, ControlId::Command1};

Colour paletteOf(int i) { return kPalette[static_cast<std::size_t>(i)]; }
bool inSlots(const ColourSets::Slots& slots, Colour colour) {
  return std::find(slots.begin(), slots.end(), colour) != slots.end();
}

/// A colour panel holds the window as a text panel does, without a box.
void holdWindow(ProgramState& s) { s.panelOpen = s.paused = true; }
void giveWindowBack(ProgramState& s) { s.panelOpen = s.paused = false; }

void showFrame(Program& program, bool on) {
  for (const ControlId id : kClassifyFrame) {
    program.controls.setVisible(id, on);
    program.controls.setEnabled(id, on);
  }
}

/// The first slot from the beginning whose colour is fit, else the last.
template <class Unfit>
Colour firstFit(const ColourSets::Slots& slots, Unfit unfit) {
  const auto* fit = std::find_if_not(slots.begin(), slots.end(), unfit);
  return fit == slots.end() ? slots.back() : *fit;
}

void closeDrawingPanel(Program& program) {
  program.state.colours.colorTicksReady = false;
  for (int k = 0; k < kSlots; ++k) program.controls.hide(drawingSwatch(k));
  program.controls.setVisible(ControlId::Label6, false);
  giveWindowBack(program.state);
}

void pickDrawingColour(Program& program, int i) {
  ProgramState& s = program.state;
  if (!s.colours.colorTicksReady) return;
  s.drawColor = paletteOf(i);
  closeDrawingPanel(program);
}

/// The colour that the panel opened with is picked again; a brush of no palette colour keeps its own.
void pickTickedColour(Program& program) {
  int i = 0;
  while (i < kSlots && program.controls[drawingSwatch(i)].value == 0) ++i;
  if (i < kSlots) return pickDrawingColour(program, i);
  closeDrawingPanel(program);
}

void pickMazeColour(Program& program, int j) {
  ProgramState& s = program.state;
  if (s.colours.mazeColorPick != 1) return;
  const ControlId swatch = mazeSwatch(j);
  if (swatch == ControlId::Check49 || swatch == ControlId::Check50) program.controls.setValue(swatch, 0);
  if (s.colours.editedPaletteColor == paletteOf(j)) {
    program.controls.setValue(swatch, 0);
    program.notices.tell("No colour can be its own maze colour");
    return;
  }
  const auto* edited = std::find(kPalette.begin(), kPalette.end(), s.colours.editedPaletteColor);
  program.colours.setMaze(static_cast<int>(edited - kPalette.begin()), paletteOf(j));
  s.colours.mazeColorPick = 2;
}

bool countsAs(const Program& program, int i, int value) {
  const Control& swatch = program.controls[classifySwatch(i)];
  return swatch.text == "Maze Color" || swatch.value == value;
}

int countSwatches(const Program& program, int value) {
  int count = 0;
  for (int i = 0; i < kSlots; ++i) count += countsAs(program, i, value) ? 1 : 0;
  return count;
}

void disablePlain(Program& program, int value) {
  for (int i = 0; i < kSlots; ++i) {
    const Control& swatch = program.controls[classifySwatch(i)];
    if (swatch.value == value && swatch.text != "Maze Color")
      program.controls.setEnabled(classifySwatch(i), false);
  }
}

/// The last plain border colour cannot become a background, nor the last plain background a border.
void keepBothKinds(Program& program) {
  const int backgrounds = countSwatches(program, 1);
  const int borders = countSwatches(program, 0);
  if (backgrounds >= 15) disablePlain(program, 0);
  if (backgrounds < 15 && borders < 15) {
    for (int i = 0; i < kSlots; ++i) program.controls.setEnabled(classifySwatch(i), true);
  }
  if (borders >= 15) disablePlain(program, 1);
}

bool mazePanelIsUp(const Program& program) { return program.controls[ControlId::Check35].visible; }

/// A colour kept as the last plain one of its kind cannot be taken as a maze colour either.
void greyMazeSwatches(Program& program) {
  for (int i = 0; i < kSlots; ++i)
    program.controls.setEnabled(mazeSwatch(i), program.controls[classifySwatch(i)].enabled);
}

/// What the swatches say now, and which may be clicked next. Each pass does it, and so does each click:
/// the next may come before the pass, and the swatches to classify stay in reach under the maze panel.
void bringSwatchesInLine(Program& program) {
  refillSetsFromSwatches(program);
  captionSwatches(program);
  keepBothKinds(program);
  if (mazePanelIsUp(program)) greyMazeSwatches(program);
}

void openMazePanel(Program& program) {
  program.controls.hide(ControlId::Label5);
  program.controls.show(ControlId::Label7);
  for (int i = 0; i < kSlots; ++i) program.controls.setVisible(mazeSwatch(i), true);
  greyMazeSwatches(program);
  showFrame(program, false);
}

void closeMazePanel(Program& program) {
  program.controls.setVisible(ControlId::Label5, true);
  showFrame(program, true);
  program.controls.hide(ControlId::Label7);
  for (int i = 0; i < kSlots; ++i) program.controls.hide(mazeSwatch(i));
}

void mazePanelPass(Program& program) {
  const int pick = program.state.colours.mazeColorPick;
  if (pick == 1 && !mazePanelIsUp(program)) openMazePanel(program);
  if (pick == 2) closeMazePanel(program);
}

/// The brush never lays a maze colour: it goes on in the list that its colour stood in. It does so when
/// the panel has gone that made it one, and this is no stroke: nobody asked for another colour here.
void repairDrawColor(Program& program) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  if (s.panelOpen || !sets.isMaze(s.drawColor)) return;
  const bool nothingAsked = s.drawColor == s.drawing.lastColor;
  const auto& slots = sets.isBorder(s.drawColor) ? sets.border() : sets.background();
  s.drawColor = firstFit(slots, [&](Colour c) { return sets.isMaze(c) || isSentinel(c); });
  if (nothingAsked) s.drawing.lastColor = s.drawColor;
}

void repairBrushColours(Program& program) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  if (sets.isMaze(s.backgroundDrawColor) || inSlots(sets.border(), s.backgroundDrawColor)) {
    s.backgroundDrawColor =
        firstFit(sets.background(), [&](Colour c) { return sets.isMaze(c) || isSentinel(c); });
  }
  if (sets.isMaze(s.borderDrawColor) || sets.isBackground(s.borderDrawColor)) {
    // Looser than the other, wanted so: a slot with another maze colour ends the walk.
    s.borderDrawColor = firstFit(sets.border(), [&](Colour c) {
      return isSentinel(c) || (c == s.mazeColor && (sets.isMaze(c) || sets.isBackground(c)));
    });
  }
}

bool pictureIsBlank(const Program& program) {
  const ProgramState& s = program.state;
  const Canvas& canvas = program.canvas;
  const Colour first = canvas.point(s.wallWidth + 1, s.wallHeight + 1);
  for (int y = s.wallHeight + 1; y < canvas.scaleHeight(); y += s.wallHeight) {
    for (int x = s.wallWidth + 1; x < canvas.scaleWidth(); x += s.wallWidth) {
      if (canvas.point(x, y) != first) return false;
    }
  }
  return true;
}

/// A blank picture whose colour is maze or background now gets a border colour.
void repairBlankPicture(Program& program) {
  const ColourSets& sets = program.colours;
  Canvas& canvas = program.canvas;
  const Colour back = canvas.backColor();
  if (!sets.isMaze(back) && !sets.isBackground(back)) return;
  const auto& border = sets.border();
  const auto* plain = std::find_if(border.begin(), border.end(),
                                   [&](Colour c) { return !sets.isMaze(c) && !(c >= 299 && c <= 401); });
  if (plain == border.end() || *plain == back) return;
  const bool redraw = canvas.autoRedraw();
  canvas.setAutoRedraw(true);
  const bool blank = pictureIsBlank(program);
  canvas.setAutoRedraw(redraw);
  if (blank) canvas.setBackColor(*plain);
}

int indexIn(ControlId swatch, ControlId first) { return static_cast<int>(swatch) - static_cast<int>(first); }
bool isOneOf16(int index) { return index >= 0 && index < kSlots; }

}  // namespace

void choosew(Program& program) {
  holdWindow(program.state);
  showFrame(program, true);
  program.controls.show(ControlId::Label5);
  for (int i = 0; i < kSlots; ++i) program.controls.show(classifySwatch(i));
  keepBothKinds(program);
}

void selectcolor(Program& program) {
  ProgramState& s = program.state;
  s.colours.colorTicksReady = false;
  holdWindow(s);
  program.controls.show(ControlId::Label6);
  for (int i = 0; i < kSlots; ++i) {
    program.controls.setValue(drawingSwatch(i), paletteOf(i) == s.drawColor ? 1 : 0);
    const bool isMaze = inSlots(program.colours.maze(), paletteOf(i));
    if (isMaze) program.controls.setText(drawingSwatch(i), "Maze Color");
    program.controls.setVisible(drawingSwatch(i), true);
    program.controls.setEnabled(drawingSwatch(i), !isMaze);
  }
  s.colours.colorTicksReady = true;
}

void resetcolors(Program& program) { defaultColours(program); }

void swatchClicked(Program& program, ControlId swatch) {
  ControlModel& controls = program.controls;
  controls.setValue(swatch, 1 - controls[swatch].value);
  if (swatch == ControlId::Check33 || swatch == ControlId::Check34) {
    if (controls[swatch].value == 1)
      program.state.colours.individualMazeColors = swatch == ControlId::Check33;
    return;
  }
  const int drawing = indexIn(swatch, ControlId::Check17);
  const int maze = indexIn(swatch, ControlId::Check35);
  if (isOneOf16(drawing)) pickDrawingColour(program, drawing);
  if (isOneOf16(maze)) pickMazeColour(program, maze);
  bringSwatchesInLine(program);
}

void swatchRightPressed(Program& program, ControlId swatch) {
  ProgramState& s = program.state;
  const int i = indexIn(swatch, ControlId::Check1);
  if (!isOneOf16(i)) return;
  if (program.controls[ControlId::Check33].value == 0) {
    s.mazeColor = s.keptMazeColor = paletteOf(i);
    program.colours.setAllMaze(paletteOf(i));
    bringSwatchesInLine(program);
    return;
  }
  s.colours.editedPaletteColor = paletteOf(i);
  showFrame(program, false);
  const Colour present = program.colours.maze()[static_cast<std::size_t>(i)];
  const auto* ticked = std::find(kPalette.begin(), kPalette.end(), present);
  for (int k = 0; k < kSlots; ++k) {
    program.controls.setValue(mazeSwatch(k), kPalette.begin() + k == ticked ? 1 : 0);
  }
  s.colours.mazeColorPick = 1;
}

void command1(Program& program) {
  giveWindowBack(program.state);
  program.state.colours.mazeColorPick = 0;
  hideColourPanels(program);
  repairBrushColours(program);
  repairBlankPicture(program);
}

void colourPanelEscaped(Program& program) {
  ColourEditorState& colours = program.state.colours;
  if (colours.colorTicksReady) {
    pickTickedColour(program);
  } else if (colours.mazeColorPick == 1) {
    colours.mazeColorPick = 2;
  } else if (program.controls[ControlId::Command1].visible) {
    command1(program);
  }
}

void hideColourPanels(Program& program) {
  showFrame(program, false);
  for (const ControlId label : {ControlId::Label5, ControlId::Label6, ControlId::Label7})
    program.controls.hide(label);
  for (int i = 0; i < kSlots; ++i) {
    for (const ControlId swatch : {classifySwatch(i), drawingSwatch(i), mazeSwatch(i)})
      program.controls.hide(swatch);
  }
}

void swatchPass(Program& program) {
  program.controls.setValue(ControlId::Check33, program.state.colours.individualMazeColors ? 1 : 0);
  program.controls.setValue(ControlId::Check34, program.state.colours.individualMazeColors ? 0 : 1);
  bringSwatchesInLine(program);
  mazePanelPass(program);
  repairDrawColor(program);
}

}  // namespace gridwright
