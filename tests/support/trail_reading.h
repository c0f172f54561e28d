// The trail of a solved maze held against the way that the slow twin finds.
#pragma once

#include <string>
#include <vector>

#include "support/tunnel_reading.h"

namespace gridwright::test {

/// What is wrong with the trail on the Canvas, which shows in the cells of the one way and in no others;
/// empty when nothing is.
inline std::string trailFault(const TunnelReading& maze, const Program& p, int start, int finish) {
  const auto reach = maze.reachFrom(start);
  std::vector<bool> onWay(reach.size());
  for (int cell = finish; cell != -1; cell = reach[static_cast<std::size_t>(cell)].from)
    onWay[static_cast<std::size_t>(cell)] = true;
  if (!onWay[static_cast<std::size_t>(start)]) return "no way for the twin";
  for (const int cell : maze.carvedCells()) {
    const Square q = maze.squareAt(cell);
    bool any = false;
    for (int y = q.top; y <= q.bottom; ++y) {
      for (int x = q.left; x <= q.right; ++x) any = any || p.canvas.point(x, y) == p.state.startColor;
    }
    if (any != onWay[static_cast<std::size_t>(cell)]) {
      return std::string(any ? "a stub" : "a gap") + " at (" + std::to_string(q.left) + ", " +
             std::to_string(q.top) + ")";
    }
  }
  return {};
}

}  // namespace gridwright::test
