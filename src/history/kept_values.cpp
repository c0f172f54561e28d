#include "history/kept_values.h"

#include "colours/colour_repairs.h"
#include "drawing/mirror.h"
#include "menus/menu_rules.h"
#include "solve/finish_methods.h"

namespace gridwright {

namespace {

template <class Value>
void change(Value& value, const Value& from, const Value& to) {
  if (from != to) value = to;
}

void changeColours(Program& program, const KeptValues& from, const KeptValues& to) {
  ProgramState& s = program.state;
  for (int i = 0; i < kSlots; ++i) {
    const auto slot = static_cast<std::size_t>(i);
    if (from.swatches[slot] != to.swatches[slot])
      program.controls.setValue(classifySwatch(i), to.swatches[slot]);
    if (from.mazeColors[slot] != to.mazeColors[slot]) program.colours.setMaze(i, to.mazeColors[slot]);
  }
  refillSetsFromSwatches(program);
  captionSwatches(program);
  change(s.colours.individualMazeColors, from.individualMazeColors, to.individualMazeColors);
  change(s.drawColor, from.drawColor, to.drawColor);
  change(s.backgroundDrawColor, from.backgroundDrawColor, to.backgroundDrawColor);
  change(s.borderDrawColor, from.borderDrawColor, to.borderDrawColor);
  change(s.mazeColor, from.mazeColor, to.mazeColor);
  change(s.keptMazeColor, from.keptMazeColor, to.keptMazeColor);
  if (from.backColor != to.backColor) program.canvas.setBackColor(to.backColor);
}

/// The keys carry the mirror along, and near the Canvas's edge it goes where no measuring would find it.
void changePlace(Program& program, const KeptValues& from, const KeptValues& to) {
  ProgramState& s = program.state;
  change(s.cur, from.cur, to.cur);
  s.drawing.skipPaintOnce = false;
  measureDrawing(program);
  const Size canvas{s.canvasWidth, s.canvasHeight};
  if (to.canvas == canvas && s.cur == to.cur) s.drawing.mirror = s.drawing.prevMirror = to.mirror;
  s.prev = s.cur;
  s.drawing.lastColor = s.drawColor;
}

}  // namespace

KeptValues keptValuesOf(const Program& program) {
  const ProgramState& s = program.state;
  KeptValues values;
  values.cur = s.cur;
  values.mirror = s.drawing.mirror;
  values.canvas = {s.canvasWidth, s.canvasHeight};
  values.drawColor = s.drawColor;
  values.backgroundDrawColor = s.backgroundDrawColor;
  values.borderDrawColor = s.borderDrawColor;
  values.drawingOff = s.drawingOff;
  values.firstPaint = s.drawing.firstPaint;
  values.wallWidth = s.wallWidth;
  values.wallHeight = s.wallHeight;
  values.mazeKind = s.mazeKind;
  values.symmetryMode = s.symmetryMode;
  for (int i = 0; i < kSlots; ++i)
    values.swatches[static_cast<std::size_t>(i)] = program.controls[classifySwatch(i)].value;
  values.mazeColors = program.colours.maze();
  values.individualMazeColors = s.colours.individualMazeColors;
  values.mazeColor = s.mazeColor;
  values.keptMazeColor = s.keptMazeColor;
  values.backColor = program.canvas.backColor();
  values.mazeMadeOnce = s.mazeMadeOnce;
  values.drawing.number = program.lastPicture.drawing;
  return values;
}

void changeValues(Program& program, const KeptValues& from, const KeptValues& to) {
  ProgramState& s = program.state;
  changeColours(program, from, to);
  change(s.drawingOff, from.drawingOff, to.drawingOff);
  change(s.drawing.firstPaint, from.firstPaint, to.firstPaint);
  change(s.wallWidth, from.wallWidth, to.wallWidth);
  change(s.wallHeight, from.wallHeight, to.wallHeight);
  change(s.mazeKind, from.mazeKind, to.mazeKind);
  change(s.symmetryMode, from.symmetryMode, to.symmetryMode);
  change(s.mazeMadeOnce, from.mazeMadeOnce, to.mazeMadeOnce);
  change(program.lastPicture.drawing, from.drawing.number, to.drawing.number);
  changePlace(program, from, to);
  if (from.mazeKind != to.mazeKind) {
    s.files.lastSet.clear();
    keepFinishMethodPossible(program);
    captionDrawing(program);
  }
  markSettings(program);
  mazemenus(program);
  showCreateItems(program);
}

}  // namespace gridwright
