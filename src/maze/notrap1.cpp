#include "maze/notrap1.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "maze/walk_paint.h"

namespace gridwright {

namespace {

struct Point {
  int x, y;
};

/// What one direction of the carving test looks at.
struct Direction {
  int dx, dy;    ///< The neighbour's offset.
  Point sample;  ///< Stands in for the scan while no maze was made yet.
  std::array<Point, 4> edges;
};

// The samples are measured now from the near and now from the far side of the square, so they stand
// as a table and not as a rotation.
std::array<Direction, 4> directionsAround(const Square& q, int w, int h) {
  return {
      {{-w,
        0,
        {q.left - w, q.top},
        {{{q.left - w - 1, q.top},
          {q.left - 1, q.top},
          {q.left - w, q.top - 1},
          {q.left - w, q.bottom + 1}}}},
       {w,
        0,
        {q.right + w, q.top},
        {{{q.left + w - 1, q.top},
          {q.right + w + 1, q.top},
          {q.right + w, q.top - 1},
          {q.right + w, q.bottom + 1}}}},
       {0,
        -h,
        {q.left, q.top - h},
        {{{q.left, q.top - h - 1}, {q.left, q.top - 1}, {q.left - 1, q.top - h}, {q.right + 1, q.top - h}}}},
       {0,
        h,
        {q.left, q.bottom + h},
        {{{q.left, q.bottom + h + 1},
          {q.left, q.bottom + 1},
          {q.left - 1, q.bottom + h},
          {q.right + 1, q.bottom + h}}}}}};
}

/// A square diagonally beside the walker, beside the neighbour too, and the pixels outside two of its sides.
struct Beside {
  Point square;
  std::array<Point, 2> outside;
};

/// What a direction of the 3-d kind looks at besides. Only to the right does a border pixel open a side.
struct Besides {
  std::array<Beside, 2> squares;
  bool borderOpens;
};

std::array<Besides, 4> besidesAround(const Square& q, int w, int h) {
  const auto [left, top, right, bottom] = q;
  return {{{{{{{left - w, top - h}, {{{left - w - 1, top - h}, {right - w + 1, top - h}}}},
              {{left - w, bottom + h}, {{{left - w - 1, bottom + h}, {right - w + 1, bottom + h}}}}}},
            false},
           {{{{{right + w, top - h}, {{{left + w - 1, top - h}, {right + w + 1, top - h}}}},
              {{right + w, bottom + h}, {{{left + w - 1, bottom + h}, {right + w + 1, bottom + h}}}}}},
            true},
           {{{{{left - w, top - h}, {{{left - w, top - h - 1}, {left - w, bottom - h + 1}}}},
              {{right + w, top - h}, {{{right + w, top - h - 1}, {right + w, bottom - h + 1}}}}}},
            false},
           {{{{{left - w, bottom + h}, {{{left - w, top + h - 1}, {left - w, bottom + h + 1}}}},
              {{right + w, bottom + h}, {{{right + w, top + h - 1}, {right + w, bottom + h + 1}}}}}},
            false}}};
}

/// Whether a corridor in the neighbour would run alongside an underpass: beside it lies a carved square
/// with both of these sides shut.
bool runsAlongside(const Pixels& pixels, const Besides& besides) {
  const auto isOpen = [&](Point p) {
    return pixels.maze(p.x, p.y) || (besides.borderOpens && pixels.border(p.x, p.y));
  };
  return std::any_of(besides.squares.begin(), besides.squares.end(), [&](const Beside& b) {
    return pixels.maze(b.square.x, b.square.y) && std::none_of(b.outside.begin(), b.outside.end(), isOpen);
  });
}

bool isBlocked(const Program& program, const Direction& d) {
  const Pixels pixels = program.pixels();
  const Square cell = program.state.cur.moved(d.dx, d.dy);
  if (program.state.mazeMadeOnce) {
    if (!pixels.allFree(cell.left - 1, cell.top - 1, cell.right + 1, cell.bottom + 1)) return true;
  } else if (pixels.closed(d.sample.x, d.sample.y)) {
    return true;
  }
  for (const Point& edge : d.edges) {
    if (pixels.closed(edge.x, edge.y)) return true;
  }
  return false;
}

/// Whether the last test was made here and nothing that it read has changed since: its count stands.
bool testStands(Program& program) {
  const ProgramState& s = program.state;
  const TrapTest now{s.cur,
                     s.mazeKind,
                     s.wallWidth,
                     s.wallHeight,
                     s.mazeMadeOnce,
                     program.canvas.changes(),
                     program.colours.revision(),
                     program.canvas.autoRedraw(),
                     s.walker.trapTest.count};
  if (now == s.walker.trapTest && now.count <= 3) return true;
  program.state.walker.trapTest = now;
  return false;
}

int blockedDirections(const Program& program) {
  const ProgramState& s = program.state;
  int blocked = 0;
  const bool lookBesides = s.mazeKind == MazeKind::threeD;
  const auto directions = directionsAround(s.cur, s.wallWidth, s.wallHeight);
  const auto besides =
      lookBesides ? besidesAround(s.cur, s.wallWidth, s.wallHeight) : std::array<Besides, 4>{};
  for (std::size_t i = 0; i < directions.size(); ++i) {
    if (isBlocked(program, directions.at(i)) ||
        (lookBesides && runsAlongside(program.pixels(), besides.at(i)))) {
      ++blocked;
    }
  }
  return blocked;
}

constexpr int kAllBlocked = 4;

void carvingTest(Program& program) {
  ProgramState& s = program.state;
  if (testStands(program)) {
    s.testCount = s.walker.trapTest.count;
    return;
  }
  s.testCount = s.walker.trapTest.count = blockedDirections(program);
  if (s.testCount < kAllBlocked) return;
  boxSquare(program, s.cur);
  s.walkMode = WalkMode::back;
}

// All points are taken from the square's top left, so right and down are measured from there too.
bool isTrappedInPipes(const Program& program) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  const int w = s.wallWidth;
  const int h = s.wallHeight;
  for (const Point& d : std::array<Point, 4>{{{-w, 0}, {w, 0}, {0, -h}, {0, h}}}) {
    const bool farIsNoGround = pixels.noGround(s.cur.left + 2 * d.x, s.cur.top + 2 * d.y);
    if (!farIsNoGround && !pixels.closed(s.cur.left + d.x, s.cur.top + d.y)) return false;
  }
  return true;
}

}  // namespace

bool isTrapped(const Program& program) {
  if (program.state.mazeKind == MazeKind::pipe) return isTrappedInPipes(program);
  return program.state.walkMode == WalkMode::carve && blockedDirections(program) == kAllBlocked;
}

void notrap1(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind == MazeKind::pipe) {
    if (isTrappedInPipes(program)) s.walkMode = WalkMode::back;
  } else if (s.walkMode == WalkMode::carve) {
    carvingTest(program);
  }
}

}  // namespace gridwright
