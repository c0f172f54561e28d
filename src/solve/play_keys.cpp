// The arrow keys of play.
#include <algorithm>
#include <array>

#include "solve/crossing.h"
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

/// What the pixels on the key's side say.
struct Ahead {
  bool isWay;
  bool pipeWall;  ///< In a Long pipe a change of colour between the two pixels: no move either way.
};

Ahead aheadOf(const Program& program, const PlayKey& k) {
  const Position near = outside(program.state.cur, k, 1);
  const Position far = outside(program.state.cur, k, 2);
  const bool farDiffers = program.canvas.point(near.x, near.y) != program.canvas.point(far.x, far.y);
  const bool pipeWall = !program.state.shortUnderpasses && farDiffers;
  const Position asked = pipeWall ? far : near;
  return {isWay(program, asked.x, asked.y), pipeWall};
}

}  // namespace

void playKey(Program& program, int code) {
  ProgramState& s = program.state;
  const auto* k =
      std::find_if(kKeys.begin(), kKeys.end(), [&](const PlayKey& row) { return row.code == code; });
  if (k == kKeys.end() || s.playMode == PlayMode::off) return;
  const Ahead ahead = aheadOf(program, *k);
  if (!ahead.isWay) {
    standAtWall(s, *k);
  } else if (!ahead.pipeWall) {
    s.cur = s.cur.moved(k->dx * s.wallWidth, k->dy * s.wallHeight);
  }
}

Ways waysInPlay(const Program& program) {
  Ways ways{};
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    const Ahead ahead = aheadOf(program, kKeys.at(i));
    if (ahead.isWay && !ahead.pipeWall) ways.at(i) = Way::open;
    if (!ahead.isWay && crossingBegins(program, stepOfArrow(kKeys.at(i).code))) ways.at(i) = Way::tunnel;
  }
  return ways;
}

}  // namespace gridwright
