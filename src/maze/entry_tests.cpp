#include "maze/entry_tests.h"

#include <array>

namespace gridwright {

namespace {

struct Point {
  int x, y;
};

/// A neighbour beside the way in: its own pixel, and three of walls around it.
struct Beside {
  Point cell;
  std::array<Point, 3> walls;
};

/// A side of the neighbour that the cell would be entered from: the wall, and the cell beyond it.
struct Side {
  Point wall, cell;
};

struct Entry {
  Point from;  // N
  Point opposite;
  Point farWall;
  std::array<Side, 2> sides;
  std::array<Beside, 2> beside;
};

// Walls are read where a corridor's opening would show: one pixel before a square, or its far edge
// counted from the square's left or top.
std::array<Entry, 4> entriesAround(int X, int Y, int w, int h) {
  const std::array<Beside, 2> leftAndRight = {
      {{{X - w, Y}, {{{X - 1, Y}, {X - w, Y - 1}, {X - w, Y + h - 1}}}},
       {{X + w, Y}, {{{X + w - 1, Y}, {X + w, Y - 1}, {X + w, Y + h - 1}}}}}};
  const std::array<Beside, 2> upAndDown = {
      {{{X, Y - h}, {{{X, Y - 1}, {X - 1, Y - h}, {X + w - 1, Y - h}}}},
       {{X, Y + h}, {{{X, Y + h - 1}, {X - 1, Y + h}, {X + w - 1, Y + h}}}}}};
  return {{
      {{X, Y + h},
       {X, Y - h},
       {X, Y + 2 * h - 1},
       {{{{X - 1, Y + h}, {X - w, Y + h}}, {{X + w - 1, Y + h}, {X + w, Y + h}}}},
       leftAndRight},
      {{X, Y - h},
       {X, Y + h},
       {X, Y - h - 1},
       {{{{X - 1, Y - h}, {X - w, Y - h}}, {{X + w - 1, Y - h}, {X + w, Y - h}}}},
       leftAndRight},
      {{X + w, Y},
       {X - w, Y},
       {X + 2 * w - 1, Y},
       {{{{X + w, Y - 1}, {X + w, Y - h}}, {{X + w, Y + h - 1}, {X + w, Y + h}}}},
       upAndDown},
      {{X - w, Y},
       {X + w, Y},
       {X - w - 1, Y},
       {{{{X - w, Y - 1}, {X - w, Y - h}}, {{X - w, Y + h - 1}, {X - w, Y + h}}}},
       upAndDown},
  }};
}

bool isForbiddenNeighbour(const ProgramState& s, Point n) {
  const bool finish = n.x == s.finish.left && n.y == s.finish.top;
  const bool start = n.x == s.start.left && n.y == s.start.top && !s.start.sameCorner(s.walker.walkStart);
  return finish || start;
}

/// N is closed ahead, and on one side a carved corridor runs past its wall.
bool runsPastNeighbour(const Program& program, const Entry& entry) {
  const Pixels pixels = program.pixels();
  const Colour own = pixels.at(entry.from.x, entry.from.y);
  if (pixels.at(entry.farWall.x, entry.farWall.y) == own) return false;
  for (const Side& side : entry.sides) {
    if (pixels.at(side.wall.x, side.wall.y) != own && pixels.carved(side.cell.x, side.cell.y)) return true;
  }
  return false;
}

bool isClosedAllRound(const Pixels& pixels, const Beside& beside) {
  const Colour own = pixels.at(beside.cell.x, beside.cell.y);
  for (const Point& wall : beside.walls) {
    if (pixels.at(wall.x, wall.y) == own) return false;
  }
  return true;
}

bool isPossible(const Program& program, const Entry& entry) {
  const Pixels pixels = program.pixels();
  if (pixels.carved(entry.opposite.x, entry.opposite.y)) return false;
  if (!pixels.carved(entry.from.x, entry.from.y)) return false;
  if (isForbiddenNeighbour(program.state, entry.from) || runsPastNeighbour(program, entry)) return false;
  return !isClosedAllRound(pixels, entry.beside[0]) && !isClosedAllRound(pixels, entry.beside[1]);
}

}  // namespace

std::optional<EntryFrom> firstEntry(const Program& program, int x, int y) {
  const ProgramState& s = program.state;
  for (const Entry& entry : entriesAround(x, y, s.wallWidth, s.wallHeight)) {
    if (isPossible(program, entry)) return EntryFrom{entry.from.x, entry.from.y};
  }
  return std::nullopt;
}

}  // namespace gridwright
