// The probe: a pixel that keeps a wall at its left hand.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Where the probe is, and which pixel it goes to next.
struct Probe {
  int x, y, dx, dy;

  [[nodiscard]] Probe ahead() const { return {x + dx, y + dy, dx, dy}; }
  /// Always lands on the positive direction of the other axis first.
  void turn() {
    const int across = dx == 0 ? 1 : 0;
    dy = dy == 0 ? 1 : 0;
    dx = across;
  }
  /// Only a 1 is negated, never a -1.
  void negate() {
    if (dy == 1) dy = -1;
    if (dx == 1) dx = -1;
  }
};

/// Where the probe is one pixel on; `isWay(x, y)` says what it may go over.
template <class IsWay>
Probe onePixelOn(Probe p, const IsWay& isWay) {
  const auto wallAhead = [&] { return !isWay(p.x + p.dx, p.y + p.dy); };
  /// Whether neither the pixel nor one of its four neighbours is wall.
  const auto noWallAround = [&](const Probe& at) {
    return isWay(at.x, at.y) && isWay(at.x - 1, at.y) && isWay(at.x + 1, at.y) && isWay(at.x, at.y - 1) &&
           isWay(at.x, at.y + 1);
  };
  p = p.ahead();
  if (wallAhead()) {
    p.turn();
    if (wallAhead()) p.negate();
  }
  if (noWallAround(p)) {
    p.turn();
    if (noWallAround(p.ahead())) p.negate();
  }
  return p;
}

/// The cell that the probe is in now: `cell`, or the one beside it.
inline Square cellOfProbe(const ProgramState& state, Square cell, int x, int y) {
  if (x > cell.right) cell = cell.moved(state.wallWidth, 0);
  if (x < cell.left) cell = cell.moved(-state.wallWidth, 0);
  if (y > cell.bottom) cell = cell.moved(0, state.wallHeight);
  if (y < cell.top) cell = cell.moved(0, -state.wallHeight);
  return cell;
}

/// One pixel on. Leaves `probeX`, `probeY`, the direction, and the cell the probe is in.
void probeStep(Program& program);

}  // namespace gridwright
