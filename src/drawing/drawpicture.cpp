#include "drawing/drawpicture.h"

#include "colours/colour_editor.h"
#include "drawing/mirror.h"
#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "patterns/pattern_editor.h"

namespace gridwright {

namespace {

bool leaves(Phase phase) { return phase == Phase::making || phase == Phase::quitToTitle; }

void menusOfPass(Program& program) {
  markSettings(program);
  mazemenus(program);
  showCreateItems(program);
  enableKeyHelp(program, Item::keysdrawing);
  if (program.state.print.printMode != PrintMode::none) printStatus(program);
}

/// Two boxes that together sweep the square's old place, its new place and all between.
void sweep(Canvas& canvas, const Square& from, const Square& to, Colour colour) {
  canvas.fill(from.left, from.top, to.right, to.bottom, colour);
  canvas.fill(from.right, from.bottom, to.left, to.top, colour);
}

void strokeSquareAndMirrors(Program& program) {
  const ProgramState& s = program.state;
  const DrawingState& d = s.drawing;
  const Square& p = s.prev;
  const Square& q = s.cur;
  const Square& pm = d.prevMirror;
  const Square& m = d.mirror;
  const bool across = s.symmetryMode == Symmetry::horizontal || s.symmetryMode == Symmetry::fourWay;
  const bool down = s.symmetryMode == Symmetry::vertical || s.symmetryMode == Symmetry::fourWay;
  const auto stroke = [&](const Square& from, const Square& to) {
    sweep(program.canvas, from, to, s.drawColor);
  };
  stroke(p, q);
  if (across) stroke({pm.left, p.top, pm.right, p.bottom}, {m.left, q.top, m.right, q.bottom});
  if (down) stroke({p.left, pm.top, p.right, pm.bottom}, {q.left, m.top, q.right, m.bottom});
  if (across && down) stroke(pm, m);
}

/// The stroke from where the square was. A colour change alone, before the first stroke, paints
/// nothing.
void paintStroke(Program& program) {
  ProgramState& s = program.state;
  DrawingState& d = s.drawing;
  if (!d.firstPaint || d.lastColor == s.drawColor) strokeSquareAndMirrors(program);
  d.firstPaint = false;
}

/// The outline is on the screen alone. While a panel is up nothing is painted: it may be over the square.
/// \returns whether the pass changed anything.
bool paintPass(Program& program) {
  ProgramState& s = program.state;
  DrawingState& d = s.drawing;
  Canvas& canvas = program.canvas;
  if (!s.panelOpen) canvas.outline(s.cur.left, s.cur.top, s.cur.right, s.cur.bottom, qb::lightRed);
  if (!s.drawingOff) canvas.setAutoRedraw(true);
  const bool moved = s.cur != s.prev;
  const bool changed = moved || s.drawColor != d.lastColor;
  if (!d.skipPaintOnce && changed && !s.panelOpen) paintStroke(program);
  const bool skipped = d.skipPaintOnce;
  d.skipPaintOnce = false;
  canvas.setAutoRedraw(false);
  const bool edgesMoved =
      s.cur.top != s.prev.top || s.cur.right != s.prev.right || s.cur.bottom != s.prev.bottom;
  if (edgesMoved || (s.cur.left != s.prev.left && s.drawingOff)) canvas.cls();
  d.lastColor = s.drawColor;
  s.prev = s.cur;
  d.prevMirror = d.mirror;
  return changed || skipped;
}

/// Another Canvas or another place of the square: the grid and the mirror are told anew.
void measureIfDue(Program& program) {
  const ProgramState& s = program.state;
  const bool sameSize =
      program.canvas.scaleWidth() == s.canvasWidth && program.canvas.scaleHeight() == s.canvasHeight;
  if (!sameSize || s.drawing.skipPaintOnce) measureDrawing(program);
}

}  // namespace

void drawpicture(Program& program) {
  ProgramState& s = program.state;
  s.drawing.lastColor = s.drawColor;
  s.drawing.prevMirror = s.drawing.mirror;
  do {
    housekeeping(program);
    menusOfPass(program);
    swatchPass(program);
    s.drawing.squareWidth = s.cur.right - s.cur.left;
    s.drawing.squareHeight = s.cur.bottom - s.cur.top;
    measureIfDue(program);
    if (s.editedPattern != 0) {
      editpat(program);
      if (s.phase == Phase::quitToTitle) return;
      measureIfDue(
          program);  // the window may have changed under the editor; the next key meets the new limits
    }
    const bool changed = paintPass(program);
    yield(program, changed ? Pace::working : Pace::idle);
  } while (!leaves(s.phase));
}

}  // namespace gridwright
