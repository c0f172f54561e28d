#include "colours/mixcolors.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace gridwright {

namespace {

struct Point {
  int x, y;
};

/// What one mixing looks at: the square's own colour, the pixels just outside its four sides, and
/// the second ring, which backs a maze colour found there.
struct Neighbourhood {
  Colour centre;
  const Square& square;
  Point farLeft, farRight, farTop, farBottom;
};

void baseIs(ProgramState& s, Colour colour) {
  s.walker.cellBaseKnown = true;
  s.walker.cellBaseColor = colour;
}

/// A side colour that another side shares: picture ground becomes the base, a maze colour counts
/// only when the second ring has it too.
void agree(Program& program, Colour colour, const std::array<Point, 3>& ring) {
  const auto hasColour = [&](Point p) { return program.canvas.point(p.x, p.y) == colour; };
  if (!program.colours.isMaze(colour)) {
    baseIs(program.state, colour);
  } else if (std::any_of(ring.begin(), ring.end(), hasColour)) {
    program.state.mazeColor = colour;
  }
}

void askSides(Program& program, const Neighbourhood& n) {
  const Canvas& c = program.canvas;
  const Colour left = c.point(n.square.left - 1, n.square.top);
  const Colour right = c.point(n.square.right + 1, n.square.top);
  const Colour top = c.point(n.square.left, n.square.top - 1);
  const Colour bottom = c.point(n.square.left, n.square.bottom + 1);
  if (left != n.centre && (left == right || left == top || left == bottom)) {
    agree(program, left, {n.farRight, n.farTop, n.farBottom});
  }
  if (right != n.centre && (right == top || right == bottom)) {
    agree(program, right, {n.farLeft, n.farTop, n.farBottom});
  }
  if (top != n.centre && top == bottom) agree(program, top, {n.farLeft, n.farRight, n.farBottom});
}

void mix(Program& program, const Neighbourhood& n) {
  ProgramState& s = program.state;
  s.walker.cellBaseKnown = false;
  if (program.colours.isMaze(n.centre)) {
    askSides(program, n);
  } else {
    baseIs(s, n.centre);
  }
  if (!s.walker.cellBaseKnown) return;
  const auto* slot = std::find(kPalette.begin(), kPalette.end(), s.walker.cellBaseColor);
  if (slot != kPalette.end()) {
    s.mazeColor = program.colours.maze()[static_cast<std::size_t>(slot - kPalette.begin())];
  }
}

}  // namespace

void mixcolors(Program& program) {
  const Square& q = program.state.cur;
  const int w = program.state.wallWidth;
  const int h = program.state.wallHeight;
  mix(program, {program.canvas.point(q.left, q.top),
                q,
                {q.left - w, q.top},
                {q.right + w, q.top},
                {q.left, q.top - h},
                {q.left, q.bottom + h}});
}

void mixcolors2(Program& program) {
  const Square& q = program.state.prev;
  const int w = program.state.wallWidth;
  const int h = program.state.wallHeight;
  mix(program, {program.state.walker.cellColorAtEntry,
                q,
                {q.left - w, q.top},
                {q.left + w, q.top},
                {q.left, q.top - h},
                {q.left, q.top + h}});
}

}  // namespace gridwright
