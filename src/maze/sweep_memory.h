// What the fill cursor has found out: the cells over which it goes on. The rescue's memory goes with it.
//
// The cursor goes over the same carved cells again and again, up to the first that is free. A cell that
// did not stop it does not stop it the next time either, while nothing that the test reads was painted;
// so this remembers test results, not cells. It is no part of the maze and may be forgotten at any time.
#pragma once

#include "maze/cursor_way.h"
#include "state/program.h"

namespace gridwright {

/// Makes room for the present grid; nothing is remembered. Called at the start of a maze, so that no pass
/// asks for memory: what the memory goes by stays as it is then.
void makeSweepMemory(Program& program);

/// Forgets what has been painted over, and all where something else has changed that the tests read.
void bringSweepMemoryInLine(Program& program);

/// Whether the pixel at the cell's corner is carved ground, and whether the cell stops the fill cursor; what
/// holds it back no longer is remembered. Both expect the memory in line, and no stroke since.
bool isCarvedAt(Program& program, const CursorWay& way, CellPlace cell);
bool stopsFillCursorAt(Program& program, const CursorWay& way, CellPlace cell);

/// The fill cursor as a number: it counts up by one a pump. Expects the memory in line, and no stroke
/// since.
class FillCursor {
 public:
  explicit FillCursor(Program& program);

  /// Whether `scanX` and `scanY` lie where the cursor can come.
  [[nodiscard]] bool standsOnItsWay() const;

  /// Whether one more pump leaves it inside the grid: the last one ends the maze.
  [[nodiscard]] bool goesOn() const { return at_ + 1 < count_; }

  /// What `finishmaking` and `advancefillcursor` do. \returns whether the cursor met a free cell.
  bool pump() {
    const bool stopped = cells_[at_] == SweepMemory::Cell::unknown && stops();
    at_ = stopped ? 1 : at_ + 1;
    return stopped;
  }

  /// `scanX` and `scanY`.
  void writeBack(ProgramState& state) const;

 private:
  bool stops();

  Program& program_;
  CursorWay way_;
  const SweepMemory::Cell* cells_;
  std::size_t count_, at_;
};

}  // namespace gridwright
