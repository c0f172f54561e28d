#include "patterns/makeunderpasses.h"

#include <array>

#include "colours/mixcolors.h"
#include "patterns/open_pattern.h"
#include "underpass/preview_pixels.h"
#include "underpass/tunnel_search.h"

namespace gridwright {

namespace {

/// The preview's field: fixed colours, single pixels from the probe's top left, no margin.
class PreviewGround {
 public:
  static constexpr bool endsAtCrossings = false;

  explicit PreviewGround(Program& program)
      : s_(program.state), u_(program.state.underpass), pixels_(program.canvas) {}

  [[nodiscard]] bool maze(int x, int y) const { return pixels_.maze(x, y); }
  [[nodiscard]] bool free(int x, int y) const { return pixels_.free(x, y); }
  [[nodiscard]] static int margin() { return 0; }
  [[nodiscard]] Position past(int n) const {
    return {u_.probe.left + n * s_.deltaX, u_.probe.top + n * s_.deltaY};
  }
  [[nodiscard]] bool trapPastProbe() const {
    const Position cell = past(1);
    return pixels_.closed(cell.x - s_.wallWidth, cell.y) && pixels_.closed(cell.x + s_.wallWidth, cell.y) &&
           pixels_.closed(cell.x, cell.y - s_.wallHeight) &&
           pixels_.closed(cell.x, u_.probe.bottom + s_.deltaY + s_.wallHeight);
  }
  [[nodiscard]] static bool probeScanPasses() { return true; }
  /// The leading edge stays as the last search left it.
  void moveProbe() { u_.probe = u_.probe.moved(s_.deltaX, s_.deltaY); }
  [[nodiscard]] bool stoppedByBorder() const { return pixels_.wall(u_.probe.left, u_.probe.top); }
  [[nodiscard]] bool nextIsGround() const {
    const Position next = past(1);
    return free(next.x, next.y);
  }

 private:
  ProgramState& s_;
  UnderpassState& u_;
  PreviewPixels pixels_;
};

/// What one direction of the dead-end test looks at: five pixels, and in the 3-d kind two corner
/// cells, each with the two pixels at its sides.
struct Corner3d {
  Position cell;
  std::array<Position, 2> sides;
};
struct DeadEndDirection {
  std::array<Position, 5> pixels;
  std::array<Corner3d, 2> corners;
  bool sidesAgainstClosed;  ///< To the right yellow at a corner's side counts, unlike elsewhere.
};

std::array<DeadEndDirection, 4> deadEndDirections(const ProgramState& s) {
  const Square& q = s.cur;
  const int w = s.wallWidth;
  const int h = s.wallHeight;
  const auto inColumn = [&](int x, int y, int side1, int side2) {
    return Corner3d{{x, y}, {{{side1, y}, {side2, y}}}};
  };
  const auto inRow = [&](int x, int y, int side1, int side2) {
    return Corner3d{{x, y}, {{{x, side1}, {x, side2}}}};
  };
  const int above = q.top - h;
  const int below = q.bottom + h;
  const int leftOf = q.left - w;
  const int rightOf = q.right + w;
  return {
      {{{{{leftOf, q.top},
          {leftOf - 1, q.top},
          {q.left - 1, q.top},
          {leftOf, q.top - 1},
          {leftOf, q.bottom + 1}}},
        {{inColumn(leftOf, above, leftOf - 1, q.right - w + 1),
          inColumn(leftOf, below, leftOf - 1, q.right - w + 1)}},
        false},
       {{{{rightOf, q.top},
          {q.left + w - 1, q.top},
          {rightOf + 1, q.top},
          {rightOf, q.top - 1},
          {rightOf, q.bottom + 1}}},
        {{inColumn(rightOf, above, q.left + w - 1, rightOf + 1),
          inColumn(rightOf, below, q.left + w - 1, rightOf + 1)}},
        true},
       {{{{q.left, above},
          {q.left, above - 1},
          {q.left, q.top - 1},
          {q.left - 1, above},
          {q.right + 1, above}}},
        {{inRow(leftOf, above, above - 1, q.bottom - h + 1),
          inRow(rightOf, above, above - 1, q.bottom - h + 1)}},
        false},
       {{{{q.left, below},
          {q.left, below + 1},
          {q.left, q.bottom + 1},
          {q.left - 1, below},
          {q.right + 1, below}}},
        {{inRow(leftOf, below, q.top + h - 1, below + 1), inRow(rightOf, below, q.top + h - 1, below + 1)}},
        false}}};
}

bool isClosedWay(const Program& program, const DeadEndDirection& d) {
  const PreviewPixels pixels(program.canvas);
  for (const Position& p : d.pixels) {
    if (pixels.closed(p.x, p.y)) return true;
  }
  if (program.state.mazeKind != MazeKind::threeD) return false;
  for (const Corner3d& corner : d.corners) {
    if (!pixels.maze(corner.cell.x, corner.cell.y)) continue;
    const auto counts = [&](const Position& p) {
      return d.sidesAgainstClosed ? pixels.closed(p.x, p.y) : pixels.maze(p.x, p.y);
    };
    if (!counts(corner.sides[0]) && !counts(corner.sides[1])) return true;
  }
  return false;
}

void deadEnd(Program& program) {
  ProgramState& s = program.state;
  if (s.walkMode != WalkMode::carve) return;
  int closedWays = 0;
  for (const DeadEndDirection& d : deadEndDirections(s)) closedWays += isClosedWay(program, d) ? 1 : 0;
  if (closedWays <= 3) return;
  program.canvas.fill(s.cur, preview::marker);
  s.walkMode = WalkMode::back;
  if (s.editor.patternRewriting) appendToOpenPattern(program, step::walkBack);
}

void pipeRelease(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind != MazeKind::pipe || s.walkMode != WalkMode::back) return;
  if (program.canvas.point(s.cur.left + 2 * s.deltaX, s.cur.top + 2 * s.deltaY) == preview::field) {
    s.walkMode = WalkMode::carve;
  }
}

/// A path beside the step, closed along its direction. Pixels are compared with one another here.
bool pathAcross(const Program& program) {
  const ProgramState& s = program.state;
  const PreviewPixels pixels(program.canvas);
  const Square& q = s.cur;
  const auto across = [&](Position cell, Position side1, Position side2) {
    const Colour own = pixels.at(cell.x, cell.y);
    const Colour side = pixels.at(side1.x, side1.y);
    return pixels.maze(cell.x, cell.y) && side == pixels.at(side2.x, side2.y) && side != own;
  };
  if (s.deltaX != 0) {
    const auto inRow = [&](int y) {
      return across({q.left + s.deltaX, y}, {q.left + s.deltaX - 1, y}, {q.right + s.deltaX + 1, y});
    };
    return inRow(q.top - s.wallHeight) || inRow(q.bottom + s.wallHeight);
  }
  const auto inColumn = [&](int x) {
    return across({x, q.top + s.deltaY}, {x, q.top + s.deltaY - 1}, {x, q.bottom + s.deltaY + 1});
  };
  return inColumn(q.left - s.wallWidth) || inColumn(q.right + s.wallWidth);
}

/// Walking back, a path beside the square that none of three sides opens to.
bool pathBesideClosedSquare(const Program& program) {
  const ProgramState& s = program.state;
  if (s.walkMode != WalkMode::back) return false;
  const PreviewPixels pixels(program.canvas);
  const Square& q = s.cur;
  const Colour left = pixels.at(q.left - 1, q.top);
  const Colour right = pixels.at(q.right + 1, q.top);
  const Colour top = pixels.at(q.left, q.top - 1);
  const Colour bottom = pixels.at(q.left, q.bottom + 1);
  const auto beside = [&](int x, int y, Colour a, Colour b, Colour c) {
    const Colour own = pixels.at(x, y);
    return pixels.maze(x, y) && a != own && b != own && c != own;
  };
  if (s.deltaX != 0) {
    return beside(q.left, q.bottom + s.wallHeight, bottom, right, left) ||
           beside(q.left, q.top - s.wallHeight, top, right, left);
  }
  return beside(q.right + s.wallWidth, q.top, top, bottom, right) ||
         beside(q.left - s.wallWidth, q.top, top, bottom, left);
}

void lookAhead(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  s.testCount = 0;
  u.underpassOk = u.notMovedYet = true;
  u.aheadTwoState = u.aheadOneState = 3;
  const Colour two = program.canvas.point(s.cur.left + 2 * s.deltaX, s.cur.top + 2 * s.deltaY);
  const Colour one = program.canvas.point(s.cur.left + s.deltaX, s.cur.top + s.deltaY);
  if (two == preview::path) {
    u.aheadTwoState = 1;
  } else if (s.mazeKind == MazeKind::threeD || two == preview::field) {
    u.aheadTwoState = 0;
  }
  if (one == preview::path) u.aheadOneState = 1;
  if (one == preview::field) u.aheadOneState = 0;
  const bool alongside =
      s.mazeKind == MazeKind::threeD && (pathBesideClosedSquare(program) || pathAcross(program));
  u.sideState = alongside ? 1 : 0;
}

void moveSquare(ProgramState& s, bool twice) {
  const int times = twice ? 2 : 1;
  s.cur = s.cur.moved(times * s.deltaX, times * s.deltaY);
  s.underpass.notMovedYet = false;
}

void plainMove(Program& program) {
  ProgramState& s = program.state;
  s.walkMode = WalkMode::carve;
  ++s.randomPatterns.randomStepsDone;
  moveSquare(s, s.mazeKind == MazeKind::pipe);
  program.canvas.fill(s.cur.left, s.cur.top, s.prev.right, s.prev.bottom, preview::path);
  s.underpass.underpassOk = false;
}

void walkOverPath(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  const PreviewPixels pixels(program.canvas);
  u.sideState = pixels.maze(s.cur.left + 2 * s.deltaX, s.cur.top + 2 * s.deltaY) ? 2 : 0;
  if (s.mazeKind == MazeKind::threeD && pixels.maze(s.cur.left + s.deltaX, s.cur.top + s.deltaY))
    u.sideState = 1;
  if (u.underpassOk && s.walkMode == WalkMode::back && u.sideState != 0) {
    moveSquare(s, s.mazeKind == MazeKind::pipe || u.sideState == 2);
  }
}

/// Two boxes over the square and the one an offset on.
void boxToNext(Program& program, bool bothWays) {
  const ProgramState& s = program.state;
  const Square& q = s.cur;
  program.canvas.fill(q.left, q.top, q.right + s.deltaX, q.bottom + s.deltaY, preview::path);
  if (bothWays) program.canvas.fill(q.left + s.deltaX, q.top + s.deltaY, q.right, q.bottom, preview::path);
}

void paintTunnel(Program& program) {
  ProgramState& s = program.state;
  const PreviewPixels pixels(program.canvas);
  if (s.editor.patternRecording) appendToOpenPattern(program, s.stepCode);
  ++s.randomPatterns.randomStepsDone;
  program.canvas.fill(s.prev, preview::path);
  mixcolors(program);
  boxToNext(program, false);
  for (;;) {
    s.cur = s.cur.moved(s.deltaX, s.deltaY);
    mixcolors(program);
    if (!pixels.maze(s.cur.left, s.cur.top) && !pixels.maze(s.cur.left + s.deltaX, s.cur.top + s.deltaY)) {
      if (!pixels.maze(s.cur.left + 2 * s.deltaX, s.cur.top + 2 * s.deltaY)) break;
      boxToNext(program, false);
    }
    program.canvas.fill(s.cur, preview::path);
  }
  boxToNext(program, true);
  s.cur = s.cur.moved(s.deltaX, s.deltaY);
  mixcolors(program);
  s.prev = s.cur;
}

/// Unlike the maze's, a refused tunnel never goes straight to the walk back.
void beginSweep(ProgramState& s) {
  if (s.walker.sweepActive) return;
  s.walker.sweepActive = true;
  s.walker.sweepCode = 0;
  s.sweepX = s.cur.left;
  s.sweepY = s.cur.top;
}

}  // namespace

void makeunderpasses(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  deadEnd(program);
  pipeRelease(program);
  if (s.mazeKind == MazeKind::regular || (s.deltaX == 0 && s.deltaY == 0)) return;
  lookAhead(program);
  if (u.aheadTwoState == 0 && u.aheadOneState == 0 && u.sideState != 1) plainMove(program);
  walkOverPath(program);
  u.sideState = s.testCount = 0;
  const bool meetsPath = u.aheadTwoState == 1 && u.aheadOneState == 0;
  if (s.walkMode != WalkMode::carve || !meetsPath || !u.notMovedYet) return;
  u.crossCount = 0;
  u.probe = s.cur.moved(2 * s.deltaX, 2 * s.deltaY);
  PreviewGround ground(program);
  TunnelSearch(program, ground).run();
  if (u.underpassOk) {
    paintTunnel(program);
  } else {
    beginSweep(s);
  }
}

}  // namespace gridwright
