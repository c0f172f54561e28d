#include "solve/trail.h"

#include <array>

namespace gridwright {

namespace {

bool isEndColour(const ProgramState& s, Colour colour) {
  return colour == s.startColor || colour == s.finishColor;
}

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

void strokeBetweenCells(Program& program) {
  const ProgramState& s = program.state;
  program.canvas.fill(centreX(s, s.prev), centreY(s, s.prev), centreX(s, s.cur), centreY(s, s.cur),
                      s.solver.trailPaint);
  if (s.solver.trailPaint != s.startColor) repairPassages(program);
}

}  // namespace

bool isWay(const Program& program, int x, int y) {
  const Colour pixel = program.canvas.point(x, y);
  return program.colours.isMaze(pixel) || isEndColour(program.state, pixel);
}

int centreX(const ProgramState& state, const Square& box) { return box.left + state.wallWidth / 2 - 1; }
int centreY(const ProgramState& state, const Square& box) { return box.top + state.wallHeight / 2 - 1; }

void closedCellTest(Program& program) { program.state.testCount = 1; }

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
  if (program.canvas.point(centreX(s, s.cur), centreY(s, s.cur)) == s.startColor) {
    s.solver.trailPaint = s.mazeColor;
    if (changed && s.testCount != 0) s.solver.pathLength -= 2;
  }
  if (!changed) return;
  if (s.testCount == 1) strokeBetweenCells(program);
  const Colour left = program.canvas.point(s.prev.left, s.prev.top);
  if (s.testCount == 1 && s.solver.trailPaint == s.mazeColor && left != s.mazeColor) {
    program.canvas.fill(s.prev, left);  // a cell on the border of two maze colours
  }
}

}  // namespace gridwright
