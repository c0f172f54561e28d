#include "solve/firstnoxy.h"

#include "solve/solvingmaze.h"
#include "solve/trail.h"

namespace gridwright {

namespace {

void exitHorizontally(ProgramState& s) {
  s.solver.underpassLock = 2;
  s.solver.probeX = s.start.left + 1;
  s.solver.probeY = s.start.top;
  s.deltaX = 1;
  s.deltaY = 0;
}

void exitVertically(ProgramState& s) {
  s.solver.underpassLock = 1;
  s.solver.probeX = s.start.left;
  s.solver.probeY = s.start.top + 1;
  s.deltaX = 0;
  s.deltaY = 1;
}

bool closedAbove(const Program& program, int x, const Square& start) {
  return !isWay(program, x, start.top - 1) && !isWay(program, x, start.bottom + 1);
}

/// Walks left over the bracket of underpass cells that the start lies in. \returns whether it ends in
/// a wall instead of the matching exit.
bool leftIsBlocked(const Program& program) {
  const ProgramState& s = program.state;
  int depth = 1;
  Square jump = s.start;
  do {
    jump = jump.moved(-s.wallWidth, 0);
    if (!isWay(program, jump.left, s.start.top)) return true;
    int closedSides = 0;
    if (!isWay(program, jump.left - 1, s.start.top) && closedAbove(program, jump.left, s.start)) {
      ++depth;
      ++closedSides;
    }
    if (!isWay(program, jump.right + 1, s.start.top) && closedAbove(program, jump.left, s.start)) {
      --depth;
      ++closedSides;
    }
    if (closedSides == 2 && depth == 1) depth = 0;
  } while (depth >= 1);
  return false;
}

}  // namespace

void firstnoxy(Program& program) {
  ProgramState& s = program.state;
  const Square& q = s.start;
  if (isWay(program, q.left - 1, q.top) || isWay(program, q.right + 1, q.top) ||
      isWay(program, q.left, q.top - 1) || isWay(program, q.left, q.bottom + 1)) {
    return;
  }
  const bool rowGoesOn =
      isWay(program, q.left - s.wallWidth, q.top) && isWay(program, q.left + s.wallWidth, q.top);
  if (!rowGoesOn || leftIsBlocked(program)) {
    exitHorizontally(s);
  } else {
    exitVertically(s);
  }
}

void restartWalk(Program& program) {
  putWalkOnStart(program.state);
  program.state.solver.underpassLock = 0;
  if (program.state.mazeKind == MazeKind::threeD) firstnoxy(program);
}

}  // namespace gridwright
