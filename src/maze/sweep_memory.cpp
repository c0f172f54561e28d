#include "maze/sweep_memory.h"

#include <algorithm>

#include "maze/cursor_way.h"
#include "maze/finishmaking.h"

namespace gridwright {

namespace {

using Ground = SweepMemory::Ground;

Ground groundOf(const Program& program) {
  const ProgramState& s = program.state;
  return {s.mazeKind,
          s.mazeMadeOnce,
          s.wallWidth,
          s.wallHeight,
          s.stepX,
          s.stepY,
          s.canvasWidth,
          s.canvasHeight,
          s.start,
          s.finish,
          s.walker.walkStart,
          program.colours.revision(),
          s.walker.givenUpCells.size()};
}

void forgetPainted(SweepMemory& memory, const CursorWay& way, const CellSpan& painted) {
  for (int row = painted.fromRow; row < painted.toRow; ++row) {
    const auto begin = memory.cells.begin() + static_cast<std::ptrdiff_t>(row) * way.columns();
    std::fill(begin + painted.fromColumn, begin + painted.toColumn, SweepMemory::Cell::unknown);
  }
}

CellSpan spanOfBoth(const CellSpan& a, const CellSpan& b) {
  if (a.fromColumn >= a.toColumn || a.fromRow >= a.toRow) return b;
  return {std::min(a.fromColumn, b.fromColumn), std::max(a.toColumn, b.toColumn),
          std::min(a.fromRow, b.fromRow), std::max(a.toRow, b.toRow)};
}

/// What was painted may be free again, and free ground may have come to lie beside carved ground.
void searchPainted(RescueMemory& memory, const CellSpan& painted) {
  memory.treesFromRow = std::min(memory.treesFromRow, painted.fromRow);
  memory.besideCarved = spanOfBoth(memory.besideCarved, painted);
}

}  // namespace

void makeSweepMemory(Program& program) {
  WalkerState& walker = program.state.walker;
  const CursorWay way(program.state);
  walker.sweepMemory.cells.assign(way.cells(), SweepMemory::Cell::unknown);
  walker.sweepMemory.ground = groundOf(program);
  RescueMemory& rescue = walker.rescueMemory;
  rescue.treesFromRow = 0;
  rescue.besideCarved = way.whole();
  rescue.seen.assign(way.cells(), 0);
  rescue.flood = 0;
  rescue.cells.resize(2 * way.cells());
  rescue.freeGround = way.corner(CellPlace{});
}

void bringSweepMemoryInLine(Program& program) {
  SweepMemory& memory = program.state.walker.sweepMemory;
  const Canvas::Dirty painted = program.canvas.takePainted();
  if (memory.ground != groundOf(program)) return makeSweepMemory(program);
  if (painted.empty()) return;
  const CursorWay way(program.state);
  const CellSpan readers = way.readersOf(painted.left, painted.top, painted.right, painted.bottom);
  forgetPainted(memory, way, readers);
  searchPainted(program.state.walker.rescueMemory, readers);
}

bool isCarvedAt(Program& program, const CursorWay& way, CellPlace cell) {
  SweepMemory::Cell& known = program.state.walker.sweepMemory.cells[way.number(cell)];
  if (known == SweepMemory::Cell::carved) return true;
  const CellCorner corner = way.corner(cell);
  if (!program.pixels().maze(corner.left, corner.top)) return false;
  known = SweepMemory::Cell::carved;
  return true;
}

bool stopsFillCursorAt(Program& program, const CursorWay& way, CellPlace cell) {
  SweepMemory::Cell& known = program.state.walker.sweepMemory.cells[way.number(cell)];
  if (known != SweepMemory::Cell::unknown || isCarvedAt(program, way, cell)) return false;
  const CellCorner corner = way.corner(cell);
  if (stopsFillCursor(program, corner.left, corner.top)) return true;
  known = SweepMemory::Cell::passed;
  return false;
}

FillCursor::FillCursor(Program& program)
    : program_(program),
      way_(program.state),
      cells_(program.state.walker.sweepMemory.cells.data()),
      count_(program.state.walker.sweepMemory.cells.size()),
      at_(way_.number(way_.place(CellCorner{program.state.scanX, program.state.scanY}))) {}

bool FillCursor::stops() {
  const CellPlace cell = way_.place(at_);
  if (!stopsFillCursorAt(program_, way_, cell)) return false;
  program_.state.walker.rescueMemory.freeGround = way_.corner(cell);
  return true;
}

bool FillCursor::standsOnItsWay() const {
  return way_.holds(CellCorner{program_.state.scanX, program_.state.scanY});
}

void FillCursor::writeBack(ProgramState& state) const {
  const CellCorner at = way_.corner(way_.place(at_));
  state.scanX = at.left;
  state.scanY = at.top;
}

}  // namespace gridwright
