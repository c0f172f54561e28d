#include "solve/trail.h"

#include "solve/finish_search.h"

namespace gridwright {

namespace {

/// A passage that a trail taken back went through: what the wall's own colour was is read at its
/// side, and repaired when the middle differs.
struct Passage {
  int middleX, middleY;  // in the way of the trail
  int sideX, sideY;      // beside it
  int endX, endY;        // of the line, left out by it
};

void repairPassage(Program& program, const Passage& p) {
  const ProgramState& s = program.state;
  const Colour middle = program.canvas.point(p.middleX, p.middleY);
  if (!program.colours.isMaze(middle)) return;
  const Colour side = program.canvas.point(p.sideX, p.sideY);
  if (side == s.startColor || side == middle) return;
  program.canvas.line(p.middleX, p.middleY, p.endX, p.endY, side);
}

void repairPassages(Program& program) {
  const ProgramState& s = program.state;
  const Square& q = s.cur;
  const int cx = centreX(s, q);
  const int cy = centreY(s, q);
  if (s.prev.top < q.top) repairPassage(program, {cx, q.top - 1, q.left, q.top - 1, cx, q.top - 3});
  if (s.prev.top > q.top) repairPassage(program, {cx, q.bottom + 1, q.left, q.bottom + 1, cx, q.bottom + 3});
  if (s.prev.left < q.left) repairPassage(program, {q.left - 1, cy, q.left - 1, q.top, q.left - 3, cy});
  if (s.prev.left > q.left) repairPassage(program, {q.right + 1, cy, q.right + 1, q.top, q.right + 3, cy});
}

/// The colour of a through-stroke: the trail, or the closed cell's own where it is walked back.
Colour throughColour(const Program& program) {
  const ProgramState& s = program.state;
  const Square& q = s.cur;
  const Colour corner = program.canvas.point(s.prev.left, s.prev.top);
  const Colour ground = isEndColour(s, corner) ? s.mazeColor : corner;
  const int a = s.shortUnderpasses ? 0 : 1;
  const auto lacksTrail = [&](int x, int y) { return program.canvas.point(x, y) != s.startColor; };
  const int halfW = s.wallWidth / 2;
  const int halfH = s.wallHeight / 2;
  const bool walkedBack = (s.prev.left > q.left && lacksTrail(q.left + halfW + a, centreY(s, q))) ||
                          (s.prev.left < q.left && lacksTrail(q.left + halfW - 2 - a, centreY(s, q))) ||
                          (s.prev.top > q.top && lacksTrail(centreX(s, q), q.top + halfH + a)) ||
                          (s.prev.top < q.top && lacksTrail(centreX(s, q), q.top + halfH - 2 - a));
  return walkedBack ? ground : s.startColor;
}

void strokeBetweenCells(Program& program) {
  const ProgramState& s = program.state;
  program.canvas.fill(centreX(s, s.prev), centreY(s, s.prev), centreX(s, s.cur), centreY(s, s.cur),
                      s.solver.trailPaint);
  if (s.solver.trailPaint != s.startColor) repairPassages(program);
}

}  // namespace

int centreX(const ProgramState& state, const Square& box) { return box.left + state.wallWidth / 2 - 1; }
int centreY(const ProgramState& state, const Square& box) { return box.top + state.wallHeight / 2 - 1; }

bool showsTrail(const Program& program, const Square& cell) {
  const ProgramState& s = program.state;
  return program.canvas.point(centreX(s, cell), centreY(s, cell)) == s.startColor;
}

void closedCellTest(Program& program) {
  ProgramState& s = program.state;
  const Square& q = s.prev;
  if (s.mazeKind == MazeKind::regular) {
    s.testCount = 1;
    return;
  }
  // Long pipes: one pixel further out along the axis of the move.
  const int x = !s.shortUnderpasses && s.prev.left != s.cur.left ? 2 : 1;
  const int y = !s.shortUnderpasses && s.prev.top != s.cur.top ? 2 : 1;
  const bool open = isWay(program, q.left - x, q.top) || isWay(program, q.right + x, q.top) ||
                    isWay(program, q.left, q.top - y) || isWay(program, q.left, q.bottom + y);
  s.testCount = open ? 1 : 0;
}

void strokeThroughClosedCell(Program& program, Colour colour) {
  const ProgramState& s = program.state;
  const Square& p = s.prev;
  const int a = s.shortUnderpasses ? 0 : 1;
  if (p.left - s.wallWidth > s.cur.left || p.left + s.wallWidth < s.cur.left) {
    program.canvas.fill(p.left - a, centreY(s, p), p.right + a, centreY(s, p), colour);
  }
  // No distance is asked for here, wanted so.
  if (p.top != s.cur.top) program.canvas.fill(centreX(s, p), p.top - a, centreX(s, p), p.bottom + a, colour);
}

void updateTrail(Program& program) {
  ProgramState& s = program.state;
  const bool changed = cellChanged(s);
  s.solver.trailPaint = s.startColor;
  closedCellTest(program);
  if (changed && s.testCount != 0) ++s.solver.pathLength;
  if (!s.cur.sameCorner(s.finish) && !s.cur.sameCorner(s.start)) {
    const Colour corner = program.canvas.point(s.cur.left, s.cur.top);
    if (!isEndColour(s, corner)) s.mazeColor = corner;
  }
  if (showsTrail(program, s.cur)) {
    s.solver.trailPaint = s.mazeColor;
    if (changed && s.testCount != 0) s.solver.pathLength -= 2;
  }
  if (changed && s.testCount == 1) strokeBetweenCells(program);
  if (changed && s.testCount == 0) strokeThroughClosedCell(program, throughColour(program));
  const Colour left = program.canvas.point(s.prev.left, s.prev.top);
  if (changed && s.testCount == 1 && s.solver.trailPaint == s.mazeColor && left != s.mazeColor) {
    program.canvas.fill(s.prev, left);  // a cell on the border of two maze colours
  }
  bestCellTest(s);
}

}  // namespace gridwright
