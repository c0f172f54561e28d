#include "solve/crossing.h"

#include <array>

#include "solve/trail.h"
#include "state/ways.h"

namespace gridwright {

namespace {

enum Side : int { kLeft, kRight, kUp, kDown };

/// What makes one direction differ from the other three, for both variants.
struct Direction {
  Side side;
  int dx, dy;
  int blockingLock;  ///< The lock that forbids this direction; a fully closed cell sets the other one.
  int ownLock;
};
constexpr std::array<Direction, 4> kDirections = {
    {{kLeft, -1, 0, 2, 1}, {kRight, 1, 0, 2, 1}, {kUp, 0, -1, 1, 2}, {kDown, 0, 1, 1, 2}}};

constexpr Side opposite(Side side) {
  constexpr std::array kOpposite = {kRight, kLeft, kDown, kUp};
  return kOpposite.at(static_cast<std::size_t>(side));
}
constexpr bool isHorizontal(Side side) { return side == kLeft || side == kRight; }
/// The pair of sides across a direction.
constexpr std::array<Side, 2> across(Side side) {
  return isHorizontal(side) ? std::array{kUp, kDown} : std::array{kLeft, kRight};
}

/// Whether the pixel so far outside a box's side is a way.
bool wayBeside(const Program& program, const Square& box, Side side, int distance) {
  switch (side) {
    case kLeft:
      return isWay(program, box.left - distance, box.top);
    case kRight:
      return isWay(program, box.right + distance, box.top);
    case kUp:
      return isWay(program, box.left, box.top - distance);
    default:
      return isWay(program, box.left, box.bottom + distance);
  }
}

/// In the long variant a side is read one pixel further out while the probe moves along it. Two reads stay
/// at the near pixel, wanted so: the bottom for left, the right for up.
int mouthDistance(const Direction& d, Side side, bool isLong, const WayStep& moving) {
  if (!isLong) return 1;
  if ((d.side == kLeft && side == kDown) || (d.side == kUp && side == kRight)) return 1;
  return (isHorizontal(side) ? moving.dx : moving.dy) != 0 ? 2 : 1;
}

/// Whether a tunnel may begin in the current cell: a wall ahead, a way behind it, and walls across.
bool isMouth(const Program& program, const Direction& d, bool isLong, const WayStep& moving) {
  const ProgramState& s = program.state;
  if (wayBeside(program, s.cur, d.side, mouthDistance(d, d.side, isLong, moving))) return false;
  if (!wayBeside(program, s.cur, d.side, d.dx != 0 ? s.wallWidth : s.wallHeight)) return false;
  for (const Side side : across(d.side)) {
    if (wayBeside(program, s.cur, side, mouthDistance(d, side, isLong, moving))) return false;
  }
  return true;
}

bool hasShortTunnels(const ProgramState& s) {
  return s.mazeKind == MazeKind::threeD || (s.mazeKind == MazeKind::pipe && s.shortUnderpasses);
}
bool hasLongTunnels(const ProgramState& s) { return s.mazeKind == MazeKind::pipe && !s.shortUnderpasses; }

/// One attempt in one direction. The long variant reads and paints one pixel further out along the
/// axis of the crossing; what else it does differently stands where it does.
class Crossing {
 public:
  Crossing(Program& program, const Direction& direction, bool isLong)
      : program_(program), s_(program.state), d_(direction), long_(isLong), a_(isLong ? 1 : 0) {}

  void attempt() {
    trigger();
    if (s_.solver.underpassLock == d_.blockingLock || !probeStandsAtSide() || s_.testCount != 1) return;
    const int lockBefore = s_.solver.underpassLock;
    if (!scan()) {
      s_.solver.underpassLock = lockBefore;
      s_.testCount = 0;
      return;
    }
    leave();
    jump();
    reseatProbe();
  }

 private:
  void trigger() { s_.testCount = isMouth(program_, d_, long_, {s_.deltaX, s_.deltaY}) ? 1 : 0; }

  [[nodiscard]] bool probeStandsAtSide() const {
    switch (d_.side) {
      case kLeft:
        return s_.solver.probeX == s_.cur.left;
      case kRight:
        return s_.solver.probeX == s_.cur.right;
      case kUp:
        return s_.solver.probeY == s_.cur.top;
      default:
        return s_.solver.probeY == s_.cur.bottom;
    }
  }

  [[nodiscard]] bool closedTowards(const Square& box, Side side) const {
    if (wayBeside(program_, box, side, 1 + a_)) return false;
    for (const Side beside : across(side)) {
      if (wayBeside(program_, box, beside, 1)) return false;
    }
    return true;
  }

  /// From cell to cell until the exit that matches: one more opening for a cell closed at its far
  /// side, one less for its near side. Cells open across count for nothing: those pass over.
  /// \returns false when the scan has left the Canvas: it was no crossing.
  bool scan() {
    jump_ = s_.cur;
    s_.solver.underpassLock = 0;
    span_ = 0;
    do {
      int closedSides = 0;
      ++span_;
      jump_ = jump_.moved(d_.dx * s_.wallWidth, d_.dy * s_.wallHeight);
      const Canvas& canvas = program_.canvas;
      if (jump_.right < 0 || jump_.bottom < 0 || jump_.left >= canvas.scaleWidth() ||
          jump_.top >= canvas.scaleHeight()) {
        return false;
      }
      if (closedTowards(jump_, d_.side)) {
        ++s_.testCount;
        ++closedSides;
      }
      if (closedTowards(jump_, opposite(d_.side))) {
        --s_.testCount;
        ++closedSides;
      }
      if (closedSides == 2 && s_.testCount == 1) {
        s_.testCount = 0;
        s_.solver.underpassLock = d_.ownLock;
      }
    } while (s_.testCount >= 1);
    return true;
  }

  [[nodiscard]] bool paints() const {
    const bool searching = s_.finishMethod != FinishMethod::user && !s_.finishFound;
    return (!long_ && searching) || s_.playMode == PlayMode::off || !s_.trailOff;
  }

  void readGround() {
    const int in = long_ ? 0 : 1;
    const Colour ground = program_.canvas.point(s_.cur.left + in, s_.cur.top + in);
    if (ground != s_.startColor && ground != s_.finishColor) s_.mazeColor = ground;
  }

  /// The pixel of the cell's half stroke on the side of the leaving: in the start colour when the
  /// trail already runs through it.
  [[nodiscard]] bool leavesOverTrail() const {
    const Square& q = s_.cur;
    const int cx = centreX(s_, q);
    const int cy = centreY(s_, q);
    const auto shows = [&](int x, int y) { return program_.canvas.point(x, y) == s_.startColor; };
    switch (d_.side) {
      case kLeft:
        return long_ ? shows(q.left - 1, cy) : shows(q.left + s_.wallWidth / 2 - 2, cy);
      // The long variant measures the height along the x axis; wanted so.
      case kRight:
        return shows(q.left + (long_ ? s_.wallHeight : s_.wallWidth) / 2, cy);
      case kUp:
        return shows(cx, q.top + s_.wallHeight / 2 - 2);
      default:
        return shows(cx, q.top + s_.wallHeight / 2);
    }
  }

  /// A stroke along the crossing's axis through the cell's centre line.
  void stroke(int from, int to) {
    const Square& q = s_.cur;
    if (isHorizontal(d_.side)) {
      program_.canvas.fill(from, centreY(s_, q), to, centreY(s_, q), s_.solver.trailPaint);
    } else {
      program_.canvas.fill(centreX(s_, q), from, centreX(s_, q), to, s_.solver.trailPaint);
    }
  }

  void leave() {
    const Square& q = s_.cur;
    bool open = wayBeside(program_, q, d_.side, 1 + a_) || wayBeside(program_, q, opposite(d_.side), 1 + a_);
    for (const Side side : across(d_.side)) open = open || wayBeside(program_, q, side, 1);
    s_.testCount = open ? 1 : 0;
    if (!open) return;
    s_.solver.trailPaint = s_.startColor;
    readGround();
    if (leavesOverTrail()) s_.solver.trailPaint = s_.mazeColor;
    if (!paints()) return;
    const bool horizontal = isHorizontal(d_.side);
    stroke((horizontal ? q.left : q.top) - a_, (horizontal ? q.right : q.bottom) + a_);
    // The start box stays whole: a stripe in it would be taken for a trail.
    if (q.sameCorner(s_.start)) program_.canvas.fill(s_.start, s_.startColor);
  }

  /// Half a stroke on the side that the walk came in; when erasing, the centre pixel is left alone.
  void strokeArrival() {
    const Square& q = s_.cur;
    const bool horizontal = isHorizontal(d_.side);
    const int low = horizontal ? q.left : q.top;
    const int high = horizontal ? q.right : q.bottom;
    const int half = (horizontal ? s_.wallWidth : s_.wallHeight) / 2;
    const int centre = low + half - 1;
    const bool forward = s_.solver.trailPaint == s_.startColor;
    if (d_.side == kLeft || d_.side == kUp) {
      stroke(forward ? centre : low + half, high + a_);
    } else {
      stroke(low - a_, forward ? centre : low + half - 2);
    }
  }

  void count() {
    SolverState& solver = s_.solver;
    const bool spansCount = s_.finishMethod == FinishMethod::includeUnderpasses;
    ++solver.pathUnderpasses;
    if (spansCount) solver.pathLength += span_;
    solver.trailPaint = s_.startColor;
    if (program_.canvas.point(centreX(s_, s_.cur), centreY(s_, s_.cur)) != s_.startColor) return;
    solver.trailPaint = s_.mazeColor;  // the crossing is being walked back
    solver.pathUnderpasses -= 2;
    if (spansCount) solver.pathLength -= 2 * span_;
  }

  void jump() {
    s_.cur = jump_;
    if (!long_ || d_.side != kRight) readGround();
    count();
    if (paints()) strokeArrival();
    if ((s_.playMode != PlayMode::off && s_.trailOff) || s_.testCount != 1) return;
    if (s_.cur.left != s_.sweepX || s_.cur.top != s_.sweepY) {
      s_.sweepX = s_.prev.left;
      s_.sweepY = s_.prev.top;
    }
    if (isHorizontal(d_.side)) {
      s_.prev.left = s_.cur.left;
      s_.prev.right = s_.cur.right;
    } else {
      s_.prev.top = s_.cur.top;
      s_.prev.bottom = s_.cur.bottom;
    }
  }

  void reseatProbe() {
    const Square& q = s_.cur;
    switch (d_.side) {
      case kLeft:
        s_.solver.probeX = q.right - 1;
        break;
      case kRight:
        s_.solver.probeX = q.left + 1;
        break;
      case kUp:
        s_.solver.probeY = q.bottom - 1;
        break;
      default:
        s_.solver.probeY = q.top + 1;
        break;
    }
    s_.deltaX = d_.dx;
    s_.deltaY = d_.dy;
  }

  Program& program_;
  ProgramState& s_;
  const Direction& d_;
  bool long_;
  int a_;
  Square jump_;
  int span_ = 0;
};

void tryAll(Program& program, bool isLong) {
  for (const Direction& direction : kDirections) Crossing(program, direction, isLong).attempt();
}

}  // namespace

void maze3dunderpass(Program& program) {
  if (hasShortTunnels(program.state)) tryAll(program, false);
}

void longUnderpass(Program& program) {
  if (hasLongTunnels(program.state)) tryAll(program, true);
}

bool crossingBegins(const Program& program, int stepCode) {
  const ProgramState& s = program.state;
  const bool isLong = hasLongTunnels(s);
  if (!isLong && !hasShortTunnels(s)) return false;
  const Direction& d = kDirections.at(static_cast<std::size_t>(stepCode) - 1);
  return s.solver.underpassLock != d.blockingLock && isMouth(program, d, isLong, {d.dx, d.dy});
}

}  // namespace gridwright
