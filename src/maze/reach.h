// Two floods over the cells of the fill cursor's way, which paint nothing and draw no number: where can
// the walker still get to, and what free ground hangs together with nothing carved?
//
// Both use the room that makeSweepMemory made, and expect the memory in line (maze/sweep_memory.h).
#pragma once

#include <array>
#include <cstdint>

#include "maze/cursor_way.h"
#include "state/program.h"

namespace gridwright {

/// A cell's four neighbours, left, right, up, down.
std::array<CellPlace, 4> neighbours(CellPlace cell);

/// Whether a free cell can be joined to the cell beside it: in pipes the cell between must be wholly free
/// too.
bool canBeJoined(const Program& program, CellCorner cell, CellCorner beside);

/// The look: whether the walker can still get to free ground over carved ground, as far as it is known to
/// wander: from cell to cell through walls, from the finish to the origin, over one cell of border, in the
/// 3-d kind over any one cell. A flood over more cells than passes were waited is given up, so that it never
/// costs more than the wait; nor is it known where a walker beside the way can get to. The answer is yes
/// then.
bool canReachFreeGround(Program& program);

/// Looks for free cells from which no carved ground can be reached over free cells.
class Islands {
 public:
  explicit Islands(Program& program);

  /// Whether the free cell lies on an island.
  bool hold(CellPlace cell);

 private:
  Program& program_;
  CursorWay way_;
  std::uint32_t looked_;  // floods up to this one are of the past
};

}  // namespace gridwright
