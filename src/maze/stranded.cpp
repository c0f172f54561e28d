#include "maze/stranded.h"

#include <array>
#include <optional>

#include "core/grid.h"
#include "maze/finishmaking.h"
#include "maze/mixcolors.h"
#include "maze/walk_paint.h"

namespace gridwright {

namespace {

struct Point {
  int x, y;
};

std::array<Point, 4> oneStepEachWay(int stepX, int stepY) {
  return {{{-stepX, 0}, {stepX, 0}, {0, -stepY}, {0, stepY}}};
}

/// The first free cell in row order, given by its square's corner, that passes. The cells of the grid
/// come first; the band along the top and left, which the fill cursor visits too, comes after them.
template <class Test>
std::optional<Point> firstFree(const Program& program, Test test) {
  const ProgramState& s = program.state;
  const int gridX = s.wallWidth + 1;
  const int gridY = s.wallHeight + 1;
  for (const bool band : {false, true}) {
    for (int y = band ? gridY - s.stepY : gridY; y <= s.canvasHeight; y += s.stepY) {
      for (int x = band ? gridX - s.stepX : gridX; x <= s.canvasWidth; x += s.stepX) {
        if (band && x >= gridX && y >= gridY) continue;
        if (isFreeForMaze(program, x, y) && test(Point{x, y})) return Point{x, y};
      }
    }
  }
  return std::nullopt;
}

bool isFinish(const ProgramState& s, Point corner) {
  return corner.x == s.finish.left && corner.y == s.finish.top;
}

Square squareAt(const ProgramState& s, Point corner) { return normalised(s, {corner.x, corner.y, 0, 0}); }

void startCarving(ProgramState& s) {
  if (s.patternState == PatternState::random && s.randomStepsTemporary) releaseRandomSteps(s);
  s.walkMode = WalkMode::carve;
  resetfillcursor(s);
}

/// Beside a free cell there is carved ground: the walk back goes on from there.
bool walkOnBesideFreeCell(Program& program) {
  ProgramState& s = program.state;
  Point carved{};
  const auto hasCarvedNeighbour = [&](Point cell) {
    for (const Point& d : oneStepEachWay(s.stepX, s.stepY)) {
      carved = {cell.x + d.x, cell.y + d.y};
      if (program.pixels().maze(carved.x, carved.y) && !isFinish(s, carved)) return true;
    }
    return false;
  };
  if (!firstFree(program, hasCarvedNeighbour)) return false;
  s.cur = s.prev = squareAt(s, carved);
  s.walkMode = WalkMode::back;
  return true;
}

/// Only the finish lies beside the free ground: the walker leaves the finish for it, this once.
bool leaveFinish(Program& program) {
  ProgramState& s = program.state;
  Point towards{};
  const auto besideFinish = [&](Point cell) {
    for (const Point& d : oneStepEachWay(s.stepX, s.stepY)) {
      towards = {-d.x, -d.y};
      const Point carved{cell.x + d.x, cell.y + d.y};
      if (isFinish(s, carved) && program.pixels().maze(carved.x, carved.y)) return true;
    }
    return false;
  };
  const auto cell = firstFree(program, besideFinish);
  if (!cell) return false;
  s.prev = normalised(s, s.finish);
  s.cur = squareAt(s, *cell);
  const auto sign = [](int value) { return value > 0 ? 1 : value < 0 ? -1 : 0; };
  s.deltaX = sign(towards.x) * s.wallWidth;
  s.deltaY = sign(towards.y) * s.wallHeight;
  startCarving(s);
  return true;
}

/// Nothing carved lies beside any free cell: a tree of its own begins in the first of them.
void beginNewTree(Program& program) {
  ProgramState& s = program.state;
  auto cell = firstFree(program, [&](Point corner) { return !isFinish(s, corner); });
  if (!cell) cell = firstFree(program, [](Point) { return true; });
  if (!cell) return;
  s.cur = s.prev = squareAt(s, *cell);
  mixcolors(program);
  boxSquare(program, s.cur);
  startCarving(s);
}

}  // namespace

void rescueIfStranded(Program& program) {
  ProgramState& s = program.state;
  if (s.creationMode != CreationMode::computer) {
    s.walker.passesSinceCarved = 0;
    return;
  }
  const std::int64_t columns = (s.gridRight - s.wallWidth) / s.stepX + 1;
  const std::int64_t rows = (s.gridBottom - s.wallHeight) / s.stepY + 1;
  if (++s.walker.passesSinceCarved < 100 * columns * rows) return;
  s.walker.passesSinceCarved = 0;
  if (walkOnBesideFreeCell(program) || leaveFinish(program)) return;
  beginNewTree(program);
}

}  // namespace gridwright
