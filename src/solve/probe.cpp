#include "solve/probe.h"

#include "solve/trail.h"

namespace gridwright {

void probeStep(Program& program) {
  ProgramState& s = program.state;
  const Probe next = onePixelOn({s.solver.probeX, s.solver.probeY, s.deltaX, s.deltaY},
                                [&](int x, int y) { return isWay(program, x, y); });
  s.solver.probeX = next.x;
  s.solver.probeY = next.y;
  s.deltaX = next.dx;
  s.deltaY = next.dy;
  s.cur = cellOfProbe(s, s.cur, next.x, next.y);
}

}  // namespace gridwright
