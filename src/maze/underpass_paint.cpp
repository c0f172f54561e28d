#include "maze/underpass_paint.h"

#include "colours/mixcolors.h"
#include "maze/regular_step.h"
#include "maze/walk_paint.h"

namespace gridwright {

namespace {

void moveBy(ProgramState& s, int times) { s.cur = s.cur.moved(times * s.deltaX, times * s.deltaY); }

/// The maze colour of the cell so many offsets on.
void mixAt(Program& program, int times) {
  moveBy(program.state, times);
  mixcolors(program);
  moveBy(program.state, -times);
}

/// Two boxes that cover the squares `from` and `to` offsets on, and what lies between.
void boxBetween(Program& program, int from, int to) {
  const ProgramState& s = program.state;
  boxAcross(program, s.cur.moved(from * s.deltaX, from * s.deltaY),
            s.cur.moved(to * s.deltaX, to * s.deltaY));
}

/// In Long pipes corridor and tunnel are told apart by one pixel more: an edge along the side of a
/// square, the far one (in the step's direction) or the near one.
void edge(Program& program, const Square& q, bool farSide) {
  const ProgramState& s = program.state;
  if (s.shortUnderpasses) return;
  const int towards = (s.deltaX + s.deltaY > 0) == farSide ? 1 : -1;
  if (s.deltaX != 0) {
    const int x = towards > 0 ? q.right + 1 : q.left - 1;
    program.canvas.line(x, q.top, x, q.bottom + 1, s.mazeColor);
  } else {
    const int y = towards > 0 ? q.bottom + 1 : q.top - 1;
    program.canvas.line(q.left, y, q.right + 1, y, s.mazeColor);
  }
}

void paintEntry(Program& program) {
  ProgramState& s = program.state;
  mixAt(program, 1);
  boxBetween(program, 0, 1);
  mixcolors(program);
  paintJoin(program);
  mixcolors2(program);
  program.canvas.fill(s.prev, s.mazeColor);
  edge(program, s.cur.moved(s.deltaX, s.deltaY), true);
  s.walker.previousMazeColor = s.mazeColor;
}

/// A cell of the tunnel that is not carved yet.
void paintTunnelCell(Program& program) {
  const ProgramState& s = program.state;
  if (program.pixels().maze(s.cur.left, s.cur.top)) return;
  program.canvas.fill(s.cur, s.mazeColor);
  edge(program, s.cur, false);
  edge(program, s.cur, true);
}

/// Two free cells between here and the next corridor are bridged.
void bridge(Program& program) {
  ProgramState& s = program.state;
  mixAt(program, 2);
  boxBetween(program, 1, 2);
  mixAt(program, 1);
  program.canvas.fill(s.cur.moved(s.deltaX, s.deltaY), s.mazeColor);
  leadFromDelta(s);
}

void paintTunnel(Program& program) {
  ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  for (;;) {
    moveBy(s, 1);
    leadFromDelta(s);
    mixcolors(program);
    const int x1 = s.walker.leadX + s.deltaX;
    const int y1 = s.walker.leadY + s.deltaY;
    const int x2 = x1 + s.deltaX;
    const int y2 = y1 + s.deltaY;
    const bool thirdCarved = pixels.maze(s.cur.left + 3 * s.deltaX, s.cur.top + 3 * s.deltaY);
    if (!pixels.maze(x1, y1) && !pixels.maze(x2, y2) && !thirdCarved) return;
    if (pixels.free(x1, y1) && pixels.free(x2, y2) && thirdCarved) bridge(program);
    s.walker.previousMazeColor = s.mazeColor;
    paintTunnelCell(program);
    moveBy(s, 1);
    leadFromDelta(s);
    mixcolors(program);
    paintTunnelCell(program);
    moveBy(s, -1);
    leadFromDelta(s);
  }
}

void paintFarEnd(Program& program) {
  ProgramState& s = program.state;
  boxBetween(program, 1, 2);
  moveBy(s, 1);
  mixcolors(program);
  boxBetween(program, 0, 1);
  edge(program, s.cur, false);
  moveBy(s, 1);
  mixcolors(program);
  s.prev = s.cur;
}

}  // namespace

void paintUnderpass(Program& program) {
  noteCarved(program.state.walker);
  paintEntry(program);
  paintTunnel(program);
  paintFarEnd(program);
}

}  // namespace gridwright
