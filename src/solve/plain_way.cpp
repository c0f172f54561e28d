#include "solve/plain_way.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "solve/maze_ways.h"
#include "solve/trail.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

/// A cell of the way, and the step that leads there from the one before.
struct Stop {
  int cell = 0;
  MazeWays::Way step;
};

/// The shortest way, the start left out; empty where there is none.
std::vector<Stop> wayThrough(const MazeWays& ways) {
  struct Arrival {
    int from = -1;
    MazeWays::Way step;
  };
  if (ways.start() < 0 || ways.finish() < 0) return {};
  std::vector<Arrival> arrivals(static_cast<std::size_t>(ways.cells()));
  std::vector<int> open{ways.start()};
  const auto at = [&](int cell) -> Arrival& { return arrivals[static_cast<std::size_t>(cell)]; };
  at(ways.start()).from = ways.start();
  for (std::size_t i = 0; i < open.size() && at(ways.finish()).from < 0; ++i) {
    for (const MazeWays::Way& step : ways.from(open[i])) {
      if (at(step.to).from >= 0) continue;
      at(step.to) = {open[i], step};
      open.push_back(step.to);
    }
  }
  std::vector<Stop> stops;
  if (at(ways.finish()).from < 0) return stops;
  for (int cell = ways.finish(); cell != ways.start(); cell = at(cell).from)
    stops.push_back({cell, at(cell).step});
  std::reverse(stops.begin(), stops.end());
  return stops;
}

/// The square to which a step leads; one that passes under others goes on over several.
Square squareAfter(const ProgramState& s, const Square& from, const Stop& stop, int fromCell, int columns) {
  const int across = stop.cell % columns - fromCell % columns;
  const int along = stop.cell / columns - fromCell / columns;
  return from.moved(across * s.wallWidth, along * s.wallHeight);
}

/// From the middle of a mouth to its edge, where the trail goes on out of sight.
void strokeMouth(Program& program, const Square& mouth, MazeWays::Side side) {
  const ProgramState& s = program.state;
  const int cx = centreX(s, mouth);
  const int cy = centreY(s, mouth);
  const int toX = side == MazeWays::left ? mouth.left : side == MazeWays::right ? mouth.right : cx;
  const int toY = side == MazeWays::up ? mouth.top : side == MazeWays::down ? mouth.bottom : cy;
  program.canvas.fill(cx, cy, toX, toY, s.startColor);
}

void strokeStep(Program& program, const Square& from, const Square& to, const MazeWays::Way& step) {
  const ProgramState& s = program.state;
  if (step.under) {
    strokeMouth(program, from, step.side);
    strokeMouth(program, to, opposite(step.side));
  } else {
    program.canvas.fill(centreX(s, from), centreY(s, from), centreX(s, to), centreY(s, to), s.startColor);
  }
}

}  // namespace

bool takePlainWay(Program& program) {
  ProgramState& s = program.state;
  paintWorkPicture(program, "drawing2.bmp");
  const MazeWays ways({program.canvas.imageView(), program.colours, s.startColor, s.finishColor, s.mazeKind,
                       s.wallWidth, s.start, s.finish});
  const bool inLine =
      (s.finish.left - s.start.left) % s.wallWidth == 0 && (s.finish.top - s.start.top) % s.wallHeight == 0;
  if (!inLine) return false;
  const std::vector<Stop> stops = wayThrough(ways);
  if (stops.empty()) return false;
  Square here = s.start;
  int cell = ways.start();
  for (const Stop& stop : stops) {
    const Square next = squareAfter(s, here, stop, cell, ways.columns());
    strokeStep(program, here, next, stop.step);
    s.prev = stop.step.under ? next : here;  // no stroke leads from one mouth to the other
    here = next;
    cell = stop.cell;
  }
  s.cur = s.finish;
  s.solver.pathLength = static_cast<int>(stops.size());
  return true;
}

}  // namespace gridwright
