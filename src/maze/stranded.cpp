#include "maze/stranded.h"

#include <array>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "colours/mixcolors.h"
#include "maze/entry_tests.h"
#include "maze/finishmaking.h"
#include "maze/walk_paint.h"
#include "state/grid.h"

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

/// In pipes the cell between two neighbours must be wholly free too.
bool canBeJoined(const Program& program, Point cell, Point towards) {
  return program.state.mazeKind != MazeKind::pipe ||
         isFreeForMaze(program, cell.x + towards.x / 2, cell.y + towards.y / 2);
}

/// Beside a free cell there is carved ground: the walk back goes on from there. In a 3-d maze it is
/// the neighbour from which the cell can be entered.
bool walkOnBesideFreeCell(Program& program, const std::optional<CellCorner>& holdAt) {
  ProgramState& s = program.state;
  Point carved{};
  const auto hasCarvedNeighbour = [&](Point cell) {
    if (s.mazeKind == MazeKind::threeD) {
      const auto entry = firstEntry(program, cell.x, cell.y);
      if (entry) carved = {entry->x, entry->y};
      return entry.has_value();
    }
    for (const Point& d : oneStepEachWay(s.stepX, s.stepY)) {
      carved = {cell.x + d.x, cell.y + d.y};
      if (program.pixels().maze(carved.x, carved.y) && !isFinish(s, carved) &&
          canBeJoined(program, cell, d)) {
        return true;
      }
    }
    return false;
  };
  const auto cell = firstFree(program, hasCarvedNeighbour);
  if (!cell) return false;
  s.cur = s.prev = squareAt(s, carved);
  const CellCorner helped{cell->x, cell->y};
  s.walker.help = RescueHelp{helped, s.cur, false, holdAt == helped};
  s.walkMode = WalkMode::back;
  return true;
}

/// Only the finish lies beside the free ground: the walker leaves the finish for it, this once.
bool leaveFinish(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind == MazeKind::threeD) return false;
  Point towards{};
  const auto besideFinish = [&](Point cell) {
    for (const Point& d : oneStepEachWay(s.stepX, s.stepY)) {
      towards = {-d.x, -d.y};
      const Point carved{cell.x + d.x, cell.y + d.y};
      if (isFinish(s, carved) && program.pixels().maze(carved.x, carved.y) && canBeJoined(program, cell, d)) {
        return true;
      }
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

/// A tree of its own begins in the first free cell that passes, the finish only if there is no other.
template <class Test>
bool beginNewTree(Program& program, Test test) {
  ProgramState& s = program.state;
  auto cell = firstFree(program, [&](Point corner) { return !isFinish(s, corner) && test(corner); });
  if (!cell) cell = firstFree(program, test);
  if (!cell) return false;
  s.cur = s.prev = squareAt(s, *cell);
  mixcolors(program);
  boxSquare(program, s.cur);
  startCarving(s);
  return true;
}

/// Free cells from which no carved ground can be reached over free cells. Marks on a scratch copy of
/// the grid, swept until nothing changes, tell them without a list.
class Islands {
 public:
  explicit Islands(const Program& program)
      : s_(program.state),
        originX_(s_.wallWidth + 1 - s_.stepX),
        originY_(s_.wallHeight + 1 - s_.stepY),
        columns_((s_.canvasWidth - originX_) / s_.stepX + 1),
        rows_((s_.canvasHeight - originY_) / s_.stepY + 1),
        marks_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_), Mark::none) {
    for (int row = 0; row < rows_; ++row) {
      for (int column = 0; column < columns_; ++column) markCell(program, column, row);
    }
    while (sweep()) {
    }
  }

  [[nodiscard]] bool holds(Point corner) const {
    const int column = (corner.x - originX_) / s_.stepX;
    const int row = (corner.y - originY_) / s_.stepY;
    return mark(column, row) == Mark::free;
  }

 private:
  enum class Mark : unsigned char { none, free, reachesCarved };

  [[nodiscard]] Mark mark(int column, int row) const {
    if (column < 0 || row < 0 || column >= columns_ || row >= rows_) return Mark::none;
    return marks_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                  static_cast<std::size_t>(column)];
  }
  Mark& markAt(int column, int row) {
    return marks_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                  static_cast<std::size_t>(column)];
  }

  void markCell(const Program& program, int column, int row) {
    const int x = originX_ + column * s_.stepX;
    const int y = originY_ + row * s_.stepY;
    if (!isFreeForMaze(program, x, y)) return;
    Mark& own = markAt(column, row) = Mark::free;
    for (const Point& d : oneStepEachWay(s_.stepX, s_.stepY)) {
      if (program.pixels().carved(x + d.x, y + d.y)) own = Mark::reachesCarved;
    }
  }

  bool sweep() {
    bool changed = false;
    for (int row = 0; row < rows_; ++row) {
      for (int column = 0; column < columns_; ++column) {
        if (mark(column, row) != Mark::free) continue;
        for (const Point& d : oneStepEachWay(1, 1)) {
          if (mark(column + d.x, row + d.y) != Mark::reachesCarved) continue;
          markAt(column, row) = Mark::reachesCarved;
          changed = true;
          break;
        }
      }
    }
    return changed;
  }

  const ProgramState& s_;
  int originX_, originY_, columns_, rows_;
  std::vector<Mark> marks_;
};

/// Nothing was carved since the walker was put beside a cell. Where the finish has sent it away it is held
/// there the next time. Else the cell looks as if it could be entered, and cannot: white paper does that,
/// which is carved ground to every test while the mazes are white.
/// \returns the cell to be held at.
std::optional<CellCorner> judgeLastHelp(WalkerState& walker) {
  const auto last = std::exchange(walker.help, std::nullopt);
  if (!last) return std::nullopt;
  if (last->sentAway && !last->held) return last->cell;
  walker.givenUpCells.insert(last->cell);
  return std::nullopt;
}

}  // namespace

void forgetRescues(WalkerState& walker) {
  walker.passesSinceCarved = 0;
  walker.help.reset();
  walker.givenUpCells.clear();
}

std::int64_t passesBeforeRescue(const ProgramState& s) {
  const int columns = (s.gridRight - s.wallWidth) / s.stepX + 1;
  const int rows = (s.gridBottom - s.wallHeight) / s.stepY + 1;
  return std::int64_t{100} * columns * rows - s.walker.passesSinceCarved - 1;
}

void rescueIfStranded(Program& program) {
  ProgramState& s = program.state;
  if (s.creationMode != CreationMode::computer) {
    s.walker.passesSinceCarved = 0;
    return;
  }
  if (++s.walker.passesSinceCarved < 100) return;  // no grid has less than one cell
  if (passesBeforeRescue(s) >= 0) return;
  s.walker.passesSinceCarved = 0;
  const auto holdAt = judgeLastHelp(s.walker);
  if (walkOnBesideFreeCell(program, holdAt) || leaveFinish(program)) return;
  beginNewTree(program, [](Point) { return true; });
}

bool beginTreeOnIsland(Program& program) {
  const ProgramState& s = program.state;
  if (s.mazeKind != MazeKind::threeD || s.creationMode != CreationMode::computer) return false;
  const Islands islands(program);
  return beginNewTree(program, [&](Point corner) { return islands.holds(corner); });
}

}  // namespace gridwright
