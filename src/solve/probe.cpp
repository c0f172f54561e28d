#include "solve/probe.h"

#include "solve/trail.h"

namespace gridwright {

namespace {

/// Always lands on the positive direction of the other axis first.
void turn(ProgramState& s) {
  const int x = s.deltaX == 0 ? 1 : 0;
  s.deltaY = s.deltaY == 0 ? 1 : 0;
  s.deltaX = x;
}

/// Only a 1 is negated, never a -1.
void negate(ProgramState& s) {
  if (s.deltaY == 1) s.deltaY = -1;
  if (s.deltaX == 1) s.deltaX = -1;
}

bool wallAhead(const Program& program) {
  const ProgramState& s = program.state;
  return !isWay(program, s.solver.probeX + s.deltaX, s.solver.probeY + s.deltaY);
}

/// Whether neither the pixel nor one of its four neighbours is wall.
bool noWallAround(const Program& program, int x, int y) {
  return isWay(program, x, y) && isWay(program, x - 1, y) && isWay(program, x + 1, y) &&
         isWay(program, x, y - 1) && isWay(program, x, y + 1);
}

void trackCell(ProgramState& s) {
  const int x = s.solver.probeX;
  const int y = s.solver.probeY;
  if (x > s.cur.right) s.cur = s.cur.moved(s.wallWidth, 0);
  if (x < s.cur.left) s.cur = s.cur.moved(-s.wallWidth, 0);
  if (y > s.cur.bottom) s.cur = s.cur.moved(0, s.wallHeight);
  if (y < s.cur.top) s.cur = s.cur.moved(0, -s.wallHeight);
}

}  // namespace

void probeStep(Program& program) {
  ProgramState& s = program.state;
  s.solver.probeX += s.deltaX;
  s.solver.probeY += s.deltaY;
  if (wallAhead(program)) {
    turn(s);
    if (wallAhead(program)) negate(s);
  }
  if (noWallAround(program, s.solver.probeX, s.solver.probeY)) {
    turn(s);
    if (noWallAround(program, s.solver.probeX + s.deltaX, s.solver.probeY + s.deltaY)) negate(s);
  }
  trackCell(s);
}

}  // namespace gridwright
