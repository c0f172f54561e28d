#include "drawing/brush_keys.h"

#include <algorithm>
#include <array>

#include "canvas/slot_walk.h"
#include "drawing/fill_screen.h"
#include "state/key_codes.h"

namespace gridwright {

namespace {

struct Direction {
  int code;
  int dx, dy;  // one of them -1 or 1
};

/// By one cell. The mirror goes the other way.
constexpr std::array kSmallSteps = {Direction{key::J, -1, 0}, Direction{key::I, 0, -1},
                                    Direction{key::L, 1, 0}, Direction{key::K, 0, 1}};
/// By the square's own size plus one pixel, and a further wall size for pipes.
constexpr std::array kLargeSteps = {Direction{key::left, -1, 0}, Direction{key::up, 0, -1},
                                    Direction{key::right, 1, 0}, Direction{key::down, 0, 1}};

/// Whether the square may go so far: its near edge stays above 0 on the way left and up, its far edge
/// at most one wall size from the Canvas's on the way right and down.
bool fits(const ProgramState& s, int dx, int dy) {
  if (dx < 0) return s.cur.left + dx > 0;
  if (dy < 0) return s.cur.top + dy > 0;
  if (dx > 0) return s.cur.right + dx <= s.canvasWidth - s.wallWidth;
  return s.cur.bottom + dy <= s.canvasHeight - s.wallHeight;
}

void moveSquare(ProgramState& s, int dx, int dy) {
  if (!fits(s, dx, dy)) return;
  s.cur = s.cur.moved(dx, dy);
  s.drawing.mirror = s.drawing.mirror.moved(-dx, -dy);
}

bool largeStepFits(const ProgramState& s, const Direction& d) {
  return fits(s, d.dx * (s.drawing.squareWidth + 1), d.dy * (s.drawing.squareHeight + 1));
}

void largeStep(ProgramState& s, const Direction& d) {
  const bool pipe = s.mazeKind == MazeKind::pipe;
  if (!largeStepFits(s, d)) return;
  moveSquare(s, d.dx * (s.drawing.squareWidth + 1 + (pipe ? s.wallWidth : 0)),
             d.dy * (s.drawing.squareHeight + 1 + (pipe ? s.wallHeight : 0)));
}

/// One side of the square moves by a cell; the opposite side of its mirror moves the other way.
struct SizeKey {
  int code;
  int Square::*side;
  int Square::*mirrorSide;
  int direction;  // of the side: -1 towards the top left
  bool grows;
};
constexpr std::array kSizeKeys = {
    SizeKey{key::W, &Square::top, &Square::bottom, -1, true},
    SizeKey{key::S, &Square::bottom, &Square::top, 1, true},
    SizeKey{key::A, &Square::left, &Square::right, -1, true},
    SizeKey{key::D, &Square::right, &Square::left, 1, true},
    SizeKey{key::T, &Square::bottom, &Square::top, -1, false},
    SizeKey{key::G, &Square::top, &Square::bottom, 1, false},
    SizeKey{key::F, &Square::right, &Square::left, -1, false},
    SizeKey{key::H, &Square::left, &Square::right, 1, false},
};

void sizeSquare(ProgramState& s, const SizeKey& key) {
  const bool horizontal = key.side == &Square::left || key.side == &Square::right;
  const int by = key.direction * (horizontal ? s.stepX : s.stepY);
  if (key.grows) {
    if (!fits(s, horizontal ? by : 0, horizontal ? 0 : by)) return;
  } else {
    Square smaller = s.cur;
    smaller.*key.side += by;
    if (smaller.right <= smaller.left || smaller.bottom <= smaller.top) return;
  }
  s.cur.*key.side += by;
  s.drawing.mirror.*key.mirrorSide -= by;
}

/// Paints the square where it is and jumps to the centre cell: no stripe joins the two places.
void jumpToCentre(Program& program) {
  ProgramState& s = program.state;
  const DrawingState& d = s.drawing;
  if (d.centreLeft + s.drawing.squareWidth > s.canvasWidth - s.wallWidth) return;
  if (d.centreTop + s.drawing.squareHeight > s.canvasHeight - s.wallHeight) return;
  const bool redraw = program.canvas.autoRedraw();
  if (!s.drawingOff) program.canvas.setAutoRedraw(true);
  program.canvas.fill(s.cur, s.drawColor);
  program.canvas.setAutoRedraw(redraw);
  s.cur = s.cur.moved(d.centreLeft - s.cur.left, d.centreTop - s.cur.top);
  s.drawing.skipPaintOnce = true;
}

void stepDrawColor(Program& program, int direction) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  const auto unfit = [&](Colour c) { return isSentinel(c) || sets.isMaze(c); };
  for (const auto* slots : {&sets.background(), &sets.border()}) {
    if (std::find(slots->begin(), slots->end(), s.drawColor) == slots->end()) continue;
    s.drawColor = nextInSlots(*slots, s.drawColor, direction, unfit).value_or(s.drawColor);
    return;
  }
}

void drawWithBorderColours(Program& program) {
  ProgramState& s = program.state;
  if (!program.colours.isFree(s.drawColor)) return;
  s.backgroundDrawColor = s.drawColor;
  s.drawColor = s.borderDrawColor;
}

void drawWithBackgroundColours(Program& program) {
  ProgramState& s = program.state;
  if (!program.colours.isBorder(s.drawColor) || program.colours.isMaze(s.drawColor)) return;
  s.borderDrawColor = s.drawColor;
  s.drawColor = s.backgroundDrawColor;
}

template <class Rows>
const auto* rowOfKey(const Rows& rows, int code) {
  const auto* row = std::find_if(rows.begin(), rows.end(), [&](const auto& r) { return r.code == code; });
  return row == rows.end() ? nullptr : row;
}

}  // namespace

void brushKey(Program& program, int code) {
  ProgramState& s = program.state;
  if (const auto* step = rowOfKey(kSmallSteps, code))
    return moveSquare(s, step->dx * s.stepX, step->dy * s.stepY);
  if (const auto* step = rowOfKey(kLargeSteps, code)) return largeStep(s, *step);
  if (const auto* size = rowOfKey(kSizeKeys, code)) return sizeSquare(s, *size);
  switch (code) {
    case key::C:
      return jumpToCentre(program);
    case key::Z:
      return stepDrawColor(program, -1);
    case key::X:
      return stepDrawColor(program, 1);
    case key::comma:
      return drawWithBorderColours(program);
    case key::period:
      return drawWithBackgroundColours(program);
    case key::slash:
      s.drawingOff = !s.drawingOff;
      return;
    case key::N:
      return fillScreen(program, -1);
    case key::M:
      return fillScreen(program, 1);
    case key::quote:
      s.mazeColor = s.drawColor;
      return;
    default:
      return;
  }
}

}  // namespace gridwright
