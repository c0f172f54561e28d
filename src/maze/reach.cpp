#include "maze/reach.h"

#include <cstddef>
#include <limits>

#include "maze/finishmaking.h"
#include "maze/sweep_memory.h"

namespace gridwright {

namespace {

/// Cells that were come to, each once, and which of them is next.
class Flood {
 public:
  explicit Flood(RescueMemory& memory)
      : seen_(memory.seen.data()),
        cells_(memory.cells.data()),
        flood_(++memory.flood),
        next_(memory.seen.size()),
        end_(next_) {}

  [[nodiscard]] bool hasSeen(std::size_t number) const { return seen_[number] == flood_; }
  /// Takes a cell that was not seen yet; it is the next one, or the last.
  void take(CellPlace cell, std::size_t number, bool asNext) {
    seen_[number] = flood_;
    cells_[asNext ? --next_ : end_++] = cell;
    ++size_;
  }

  [[nodiscard]] bool goesOn() const { return next_ < end_; }
  CellPlace next() { return cells_[next_++]; }
  [[nodiscard]] std::size_t size() const { return size_; }

 private:
  std::uint32_t* seen_;
  CellPlace* cells_;
  std::uint32_t flood_;
  std::size_t next_, end_, size_ = 0;
};

CellCorner cornerOf(const Square& square) { return {square.left, square.top}; }

CellPlace oneOn(CellPlace cell, CellPlace before) {
  return {2 * cell.column - before.column, 2 * cell.row - before.row};
}

/// What the look asks of the cells beside one.
class Look {
 public:
  explicit Look(Program& program)
      : program_(program),
        way_(program.state),
        known_(program.state.walker.sweepMemory.cells.data()),
        flood_(program.state.walker.rescueMemory),
        goal_(way_.place(program.state.walker.rescueMemory.freeGround)),
        origin_(cornerOf(program.state.walker.walkStart)) {
    const CellCorner finish = cornerOf(program.state.finish);
    if (way_.holds(finish)) finish_ = way_.number(way_.place(finish));
  }

  bool reachesFreeGround() {
    const ProgramState& s = program_.state;
    if (!way_.holds(cornerOf(s.cur)) || !way_.holds(origin_)) return true;
    take(way_.place(cornerOf(s.cur)));
    while (flood_.goesOn()) {
      if (flood_.size() > static_cast<std::size_t>(s.walker.passesSinceCarved)) return true;
      const CellPlace cell = flood_.next();
      for (const CellPlace beside : neighbours(cell)) {
        if (!way_.holds(beside)) continue;
        const std::size_t number = way_.number(beside);
        if (known_[number] == SweepMemory::Cell::carved || isCarvedAt(program_, way_, beside)) {
          goOnFrom(beside, number, cell);
        } else if (mayBeEntered(beside, cell)) {
          return true;
        } else {
          hopOver(beside, cell);
        }
      }
    }
    return false;
  }

 private:
  void goOnFrom(CellPlace cell, std::size_t number, CellPlace from) {
    if (number == finish_) return take(way_.place(origin_));
    if (!flood_.hasSeen(number)) flood_.take(cell, number, isNearer(cell, from));
  }

  void take(CellPlace cell) {
    const std::size_t number = way_.number(cell);
    if (!flood_.hasSeen(number)) flood_.take(cell, number, false);
  }

  /// One of two neighbours is nearer to the goal than the other.
  [[nodiscard]] bool isNearer(CellPlace cell, CellPlace other) const {
    return (cell.column - other.column) * (goal_.column - other.column) +
               (cell.row - other.row) * (goal_.row - other.row) >
           0;
  }

  [[nodiscard]] bool mayBeEntered(CellPlace cell, CellPlace from) const {
    return stopsFillCursorAt(program_, way_, cell) &&
           canBeJoined(program_, way_.corner(cell), way_.corner(from));
  }

  /// The walk back goes over one cell that is not carved: in the regular kind over what is no background, in
  /// the 3-d kind over anything, in pipes not at all.
  void hopOver(CellPlace cell, CellPlace from) {
    const MazeKind kind = program_.state.mazeKind;
    if (kind == MazeKind::pipe) return;
    const CellCorner corner = way_.corner(cell);
    if (kind == MazeKind::regular && program_.pixels().background(corner.left, corner.top)) return;
    const CellPlace beyond = oneOn(cell, from);
    if (way_.holds(beyond) && isCarvedAt(program_, way_, beyond)) take(beyond);
  }

  Program& program_;
  CursorWay way_;
  const SweepMemory::Cell* known_;
  Flood flood_;
  CellPlace goal_;
  CellCorner origin_;
  std::size_t finish_ = std::numeric_limits<std::size_t>::max();  // none, unless it lies on the way
};

}  // namespace

std::array<CellPlace, 4> neighbours(CellPlace cell) {
  return {{{cell.column - 1, cell.row},
           {cell.column + 1, cell.row},
           {cell.column, cell.row - 1},
           {cell.column, cell.row + 1}}};
}

bool canBeJoined(const Program& program, CellCorner cell, CellCorner beside) {
  return program.state.mazeKind != MazeKind::pipe ||
         isFreeForMaze(program, (cell.left + beside.left) / 2, (cell.top + beside.top) / 2);
}

bool canReachFreeGround(Program& program) { return Look(program).reachesFreeGround(); }

Islands::Islands(Program& program)
    : program_(program), way_(program.state), looked_(program.state.walker.rescueMemory.flood) {}

bool Islands::hold(CellPlace start) {
  const auto isFreeCell = [&](CellPlace cell) {
    const CellCorner corner = way_.corner(cell);
    return isFreeForMaze(program_, corner.left, corner.top);
  };
  RescueMemory& memory = program_.state.walker.rescueMemory;
  if (memory.seen[way_.number(start)] > looked_ || !isFreeCell(start)) return false;
  Flood flood(memory);
  flood.take(start, way_.number(start), false);
  bool reachesCarved = false;
  while (flood.goesOn()) {
    for (const CellPlace beside : neighbours(flood.next())) {
      const CellCorner corner = way_.corner(beside);
      if (program_.pixels().carved(corner.left, corner.top)) {
        reachesCarved = true;
      } else if (way_.holds(beside) && !flood.hasSeen(way_.number(beside)) && isFreeCell(beside)) {
        flood.take(beside, way_.number(beside), false);
      }
    }
  }
  return !reachesCarved;
}

}  // namespace gridwright
