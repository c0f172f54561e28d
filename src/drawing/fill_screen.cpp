#include "drawing/fill_screen.h"

#include <algorithm>

#include "canvas/slot_walk.h"

namespace gridwright {

namespace {

struct Sample {
  int x, y;
};

/// \returns whether all samples from there on have one colour; `at` is then beyond the last.
bool isPlain(const Program& program, Sample& at) {
  const ProgramState& s = program.state;
  const Colour first = program.canvas.point(at.x, at.y);
  while (at.y < s.canvasHeight) {
    if (program.canvas.point(at.x, at.y) != first) return false;
    at.x += s.wallWidth;
    if (at.x >= s.canvasWidth) {
      at.x = s.wallWidth + 1;
      at.y += s.wallHeight;
    }
  }
  return true;
}

}  // namespace

void fillScreen(Program& program, int direction) {
  ProgramState& s = program.state;
  Canvas& canvas = program.canvas;
  Sample at{s.wallWidth + 1, s.wallHeight + 1};
  if (!canvas.inside(at.x, at.y)) {  // nothing could say that the Canvas is of one colour
    program.notices.tell("Nothing filled: the Canvas is too small for a cell");
    return;
  }
  if (direction > 0 && canvas.inside(s.scanX, s.scanY)) at = {s.scanX, s.scanY};
  const bool redraw = canvas.autoRedraw();
  canvas.setAutoRedraw(true);
  const bool plain = isPlain(program, at);
  canvas.setAutoRedraw(redraw);
  if (!plain) {
    program.notices.tell("Nothing filled: the drawing is not of one colour");
    return;
  }

  const auto& border = program.colours.border();
  const auto unfit = [&](Colour c) { return isSentinel(c) || program.colours.isMaze(c); };
  Colour colour = canvas.backColor();  // in no slot it is applied again
  if (std::find(border.begin(), border.end(), colour) != border.end()) {
    const auto next = nextInSlots(border, colour, direction, unfit);
    if (!next) {
      program.notices.tell(direction < 0 ? "Nothing filled: this is the first border colour"
                                         : "Nothing filled: this is the last border colour");
      return;
    }
    colour = *next;
  }
  s.scanX = at.x;
  s.scanY = at.y;
  canvas.clearPicture();
  canvas.setBackColor(colour);
}

}  // namespace gridwright
