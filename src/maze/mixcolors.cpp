#include "maze/mixcolors.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace gridwright {

namespace {

/// The pixels that one mixing looks at: the square's own, those just outside its four sides, and for
/// left, right and top the second ring that backs a maze colour found there.
struct Neighbourhood {
  Colour centre, left, right, top, bottom;
  std::array<std::array<Colour, 3>, 3> ring;
};

void baseIs(ProgramState& s, Colour colour) {
  s.walker.cellBaseKnown = true;
  s.walker.cellBaseColor = colour;
}

/// A side colour that another side shares: picture ground becomes the base, a maze colour counts
/// only when the second ring has it too.
void agree(Program& program, Colour colour, const std::array<Colour, 3>& ring) {
  if (!program.colours.isMaze(colour)) {
    baseIs(program.state, colour);
  } else if (std::find(ring.begin(), ring.end(), colour) != ring.end()) {
    program.state.mazeColor = colour;
  }
}

void mix(Program& program, const Neighbourhood& n) {
  ProgramState& s = program.state;
  s.walker.cellBaseKnown = false;
  if (!program.colours.isMaze(n.centre)) {
    baseIs(s, n.centre);
  } else {
    if (n.left != n.centre && (n.left == n.right || n.left == n.top || n.left == n.bottom)) {
      agree(program, n.left, n.ring[0]);
    }
    if (n.right != n.centre && (n.right == n.top || n.right == n.bottom)) agree(program, n.right, n.ring[1]);
    if (n.top != n.centre && n.top == n.bottom) agree(program, n.top, n.ring[2]);
  }
  if (!s.walker.cellBaseKnown) return;
  const auto* slot = std::find(kPalette.begin(), kPalette.end(), s.walker.cellBaseColor);
  if (slot != kPalette.end()) {
    s.mazeColor = program.colours.maze()[static_cast<std::size_t>(slot - kPalette.begin())];
  }
}

}  // namespace

void mixcolors(Program& program) {
  const Canvas& c = program.canvas;
  const Square& q = program.state.cur;
  const int w = program.state.wallWidth;
  const int h = program.state.wallHeight;
  const Colour centre = c.point(q.left, q.top);
  if (!program.colours.isMaze(centre)) return mix(program, {centre, 0, 0, 0, 0, {}});
  const Colour farLeft = c.point(q.left - w, q.top);
  const Colour farRight = c.point(q.right + w, q.top);
  const Colour farTop = c.point(q.left, q.top - h);
  const Colour farBottom = c.point(q.left, q.bottom + h);
  mix(program,
      {centre,
       c.point(q.left - 1, q.top),
       c.point(q.right + 1, q.top),
       c.point(q.left, q.top - 1),
       c.point(q.left, q.bottom + 1),
       {{{farRight, farTop, farBottom}, {farLeft, farTop, farBottom}, {farLeft, farRight, farBottom}}}});
}

void mixcolors2(Program& program) {
  const Canvas& c = program.canvas;
  const Square& q = program.state.prev;
  const int w = program.state.wallWidth;
  const int h = program.state.wallHeight;
  const Colour centre = program.state.walker.cellColorAtEntry;
  if (!program.colours.isMaze(centre)) return mix(program, {centre, 0, 0, 0, 0, {}});
  const Colour farLeft = c.point(q.left - w, q.top);
  const Colour farRight = c.point(q.left + w, q.top);
  const Colour farTop = c.point(q.left, q.top - h);
  const Colour farBottom = c.point(q.left, q.top + h);
  mix(program,
      {centre,
       c.point(q.left - 1, q.top),
       c.point(q.right + 1, q.top),
       c.point(q.left, q.top - 1),
       c.point(q.left, q.bottom + 1),
       {{{farRight, farTop, farBottom}, {farLeft, farTop, farBottom}, {farLeft, farBottom, farRight}}}});
}

}  // namespace gridwright
