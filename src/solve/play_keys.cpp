// The arrow keys of play.
#include <algorithm>
#include <array>

#include "solve/play.h"
#include "solve/trail.h"
#include "state/key_codes.h"

namespace gridwright {

namespace {

struct PlayKey {
  int code;
  int dx, dy;
};
constexpr std::array kKeys = {PlayKey{key::left, -1, 0}, PlayKey{key::right, 1, 0}, PlayKey{key::up, 0, -1},
                              PlayKey{key::down, 0, 1}};

struct Position {
  int x, y;
};

/// The pixel so far outside the cell on the key's side.
Position outside(const Square& q, const PlayKey& k, int distance) {
  if (k.dx < 0) return {q.left - distance, q.top};
  if (k.dx > 0) return {q.right + distance, q.top};
  if (k.dy < 0) return {q.left, q.top - distance};
  return {q.left, q.bottom + distance};
}

/// The cell stays, but the walk now stands at the wall: a crossing may take it from there.
void standAtWall(ProgramState& s, const PlayKey& k) {
  if (k.dx != 0) {
    s.solver.probeX = k.dx < 0 ? s.cur.left : s.cur.right;
  } else {
    s.solver.probeY = k.dy < 0 ? s.cur.top : s.cur.bottom;
  }
  s.deltaX = k.dx;
  s.deltaY = k.dy;
}

}  // namespace

void playKey(Program& program, int code) {
  ProgramState& s = program.state;
  const auto* k =
      std::find_if(kKeys.begin(), kKeys.end(), [&](const PlayKey& row) { return row.code == code; });
  if (k == kKeys.end() || s.playMode == PlayMode::off) return;
  const Position near = outside(s.cur, *k, 1);
  const Position far = outside(s.cur, *k, 2);
  const bool farDiffers = program.canvas.point(near.x, near.y) != program.canvas.point(far.x, far.y);
  // In a Long pipe a change of colour between the two pixels means a wall: no move either way.
  const bool pipeWall = !s.shortUnderpasses && farDiffers;
  const Position asked = pipeWall ? far : near;
  if (!isWay(program, asked.x, asked.y)) {
    standAtWall(s, *k);
  } else if (!pipeWall) {
    s.cur = s.cur.moved(k->dx * s.wallWidth, k->dy * s.wallHeight);
  }
}

}  // namespace gridwright
