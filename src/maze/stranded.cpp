#include "maze/stranded.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <utility>

#include "colours/mixcolors.h"
#include "maze/entry_tests.h"
#include "maze/finishmaking.h"
#include "maze/reach.h"
#include "maze/sweep_memory.h"
#include "maze/walk_paint.h"
#include "state/grid.h"

namespace gridwright {

namespace {

/// The first free cell of the span in row order that passes.
template <class Test>
std::optional<CellPlace> firstFreeIn(const Program& program, const CellSpan& span, Test test) {
  const CursorWay way(program.state);
  for (int row = span.fromRow; row < span.toRow; ++row) {
    for (int column = span.fromColumn; column < span.toColumn; ++column) {
      const CellPlace place{column, row};
      const CellCorner corner = way.corner(place);
      if (program.pixels().free(corner.left, corner.top) && test(place) &&
          isFreeForMaze(program, corner.left, corner.top)) {
        return place;
      }
    }
  }
  return std::nullopt;
}

/// The part of the span that lies on the grid.
CellSpan gridOf(const CellSpan& span) {
  return {std::max(span.fromColumn, 1), span.toColumn, std::max(span.fromRow, 1), span.toRow};
}

/// In the part of the span that lies on the band along the top and left, row by row.
template <class Test>
std::optional<CellPlace> firstFreeInBand(const Program& program, const CellSpan& span, Test test) {
  const CellSpan top{span.fromColumn, span.toColumn, span.fromRow, std::min(span.toRow, 1)};
  if (const auto cell = firstFreeIn(program, top, test)) return cell;
  const CellSpan left{span.fromColumn, std::min(span.toColumn, 1), std::max(span.fromRow, 1), span.toRow};
  return firstFreeIn(program, left, test);
}

/// The cells of the grid come first; the band, which the fill cursor visits too, comes after them.
template <class Test>
std::optional<CellPlace> firstFree(const Program& program, const CellSpan& span, Test test) {
  if (const auto cell = firstFreeIn(program, gridOf(span), test)) return cell;
  return firstFreeInBand(program, span, test);
}

bool isFinish(const ProgramState& s, CellCorner corner) {
  return corner == CellCorner{s.finish.left, s.finish.top};
}

Square squareAt(const ProgramState& s, CellCorner corner) {
  return normalised(s, {corner.left, corner.top, 0, 0});
}

void startCarving(ProgramState& s) {
  if (s.patternState == PatternState::random && s.randomStepsTemporary) releaseRandomSteps(s);
  s.walkMode = WalkMode::carve;
  resetfillcursor(s);
}

/// Beside a free cell there is carved ground: the walk back goes on from there. In a 3-d maze it is
/// the neighbour from which the cell can be entered.
bool walkOnBesideFreeCell(Program& program, const std::optional<CellCorner>& holdAt) {
  ProgramState& s = program.state;
  const CursorWay way(s);
  CellSpan& span = s.walker.rescueMemory.besideCarved;
  CellCorner carved{};
  const auto hasCarvedNeighbour = [&](CellPlace cell) {
    const CellCorner corner = way.corner(cell);
    if (s.mazeKind == MazeKind::threeD) {
      const auto entry = firstEntry(program, corner.left, corner.top);
      if (entry) carved = {entry->x, entry->y};
      return entry.has_value();
    }
    for (const CellPlace beside : neighbours(cell)) {
      carved = way.corner(beside);
      if (program.pixels().maze(carved.left, carved.top) && !isFinish(s, carved) &&
          canBeJoined(program, corner, carved)) {
        return true;
      }
    }
    return false;
  };
  const auto cell = firstFree(program, span, hasCarvedNeighbour);
  if (!cell) {
    span = {};
    return false;
  }
  s.cur = s.prev = squareAt(s, carved);
  const CellCorner helped = way.corner(*cell);
  s.walker.help = RescueHelp{helped, s.cur, false, holdAt == helped};
  s.walkMode = WalkMode::back;
  return true;
}

/// Only the finish lies beside the free ground: the walker leaves the finish for it, this once.
bool leaveFinish(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind == MazeKind::threeD) return false;
  const CursorWay way(s);
  const CellCorner finish{s.finish.left, s.finish.top};
  if (!program.pixels().maze(finish.left, finish.top)) return false;
  const auto besideFinish = [&](CellPlace cell) {
    for (const CellPlace beside : neighbours(cell)) {
      if (way.corner(beside) == finish && canBeJoined(program, way.corner(cell), finish)) return true;
    }
    return false;
  };
  const auto cell = firstFree(program, way.around(finish), besideFinish);
  if (!cell) return false;
  const CellCorner corner = way.corner(*cell);
  s.prev = normalised(s, s.finish);
  s.cur = squareAt(s, corner);
  const auto sign = [](int value) { return value > 0 ? 1 : value < 0 ? -1 : 0; };
  s.deltaX = sign(corner.left - finish.left) * s.wallWidth;
  s.deltaY = sign(corner.top - finish.top) * s.wallHeight;
  startCarving(s);
  return true;
}

/// A tree of its own begins in the first free cell where one may: anywhere, but in the 3-d kind only on an
/// island, since what else is left there lies beside corridors that it cannot be entered from. The finish is
/// taken only if there is no other. What was carved stays carved: the search goes on where the last one
/// ended.
bool beginNewTree(Program& program) {
  ProgramState& s = program.state;
  const CursorWay way(s);
  int& fromRow = s.walker.rescueMemory.treesFromRow;
  Islands islands(program);
  const auto mayBegin = [&](CellPlace cell) { return s.mazeKind != MazeKind::threeD || islands.hold(cell); };
  const auto mayBeginHere = [&](CellPlace cell) { return !isFinish(s, way.corner(cell)) && mayBegin(cell); };
  const CellSpan rest = gridOf({0, way.columns(), fromRow, way.rows()});
  auto cell = firstFreeIn(program, rest, mayBeginHere);
  fromRow = cell ? cell->row : way.rows();
  if (!cell) cell = firstFreeInBand(program, way.whole(), mayBeginHere);
  if (!cell) {
    cell = firstFree(program, way.around({s.finish.left, s.finish.top}),
                     [&](CellPlace place) { return isFinish(s, way.corner(place)) && mayBegin(place); });
  }
  if (!cell) return false;
  s.cur = s.prev = squareAt(s, way.corner(*cell));
  mixcolors(program);
  boxSquare(program, s.cur);
  startCarving(s);
  return true;
}

/// Nothing was carved since the walker was put beside a cell. Where the finish has sent it away, or the look
/// finds that it has lost its way before the long wait is over, it is held there the next time. Else the cell
/// looks as if it could be entered, and cannot: white paper does that, which is carved ground to every test
/// while the mazes are white.
/// \returns the cell to be held at.
std::optional<CellCorner> judgeLastHelp(WalkerState& walker, bool waitedLong) {
  const auto last = std::exchange(walker.help, std::nullopt);
  if (!last) return std::nullopt;
  if ((last->sentAway || !waitedLong) && !last->held) return last->cell;
  walker.givenUpCells.insert(last->cell);
  return std::nullopt;
}

/// \returns whether there was something to do.
bool rescue(Program& program, bool waitedLong) {
  ProgramState& s = program.state;
  const auto holdAt = judgeLastHelp(s.walker, waitedLong);
  bringSweepMemoryInLine(program);  // a cell may have been given up
  if (!walkOnBesideFreeCell(program, holdAt) && !leaveFinish(program) && !beginNewTree(program)) return false;
  s.walker.passesSinceCarved = 0;
  return true;
}

/// How many passes in vain are a long wait: a hundred for each cell of the grid.
std::int64_t longWait(const ProgramState& s) {
  const int columns = (s.gridRight - s.wallWidth) / s.stepX + 1;
  const int rows = (s.gridBottom - s.wallHeight) / s.stepY + 1;
  return std::int64_t{100} * columns * rows;
}

/// The look comes after a hundred passes in vain, and each time as many have gone by again.
constexpr std::int64_t kFirstLook = 100;

bool isTimeToLook(std::int64_t passes) {
  return passes % kFirstLook == 0 && std::has_single_bit(static_cast<std::uint64_t>(passes / kFirstLook));
}

}  // namespace

void forgetRescues(WalkerState& walker) {
  walker.passesSinceCarved = 0;
  walker.help.reset();
  walker.givenUpCells.clear();
}

std::int64_t passesBeforeLook(const ProgramState& s) {
  const std::int64_t passes = s.walker.passesSinceCarved;
  const auto doubled = std::bit_floor(static_cast<std::uint64_t>(passes / kFirstLook)) * 2;
  const std::int64_t look = kFirstLook * std::max<std::int64_t>(1, static_cast<std::int64_t>(doubled));
  const std::int64_t wait = longWait(s);
  return std::min(look, (passes / wait + 1) * wait) - passes - 1;
}

void rescueIfStranded(Program& program) {
  ProgramState& s = program.state;
  if (s.creationMode != CreationMode::computer) {
    s.walker.passesSinceCarved = 0;
    return;
  }
  const std::int64_t passes = ++s.walker.passesSinceCarved;
  if (passes < kFirstLook) return;  // no grid has less than one cell
  const bool waitedLong = passes % longWait(s) == 0;
  if (!waitedLong && !isTimeToLook(passes)) return;
  bringSweepMemoryInLine(program);
  if (waitedLong || !canReachFreeGround(program)) rescue(program, waitedLong);
}

bool beginTreeOnIsland(Program& program) {
  const ProgramState& s = program.state;
  if (s.mazeKind != MazeKind::threeD || s.creationMode != CreationMode::computer) return false;
  bringSweepMemoryInLine(program);
  return beginNewTree(program);
}

}  // namespace gridwright
