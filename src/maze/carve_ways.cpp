#include "maze/carve_ways.h"

#include "maze/notrap1.h"
#include "maze/regular_step.h"

namespace gridwright {

namespace {

/// A step of the walker, and the edge of the square that goes first.
struct Lead {
  int dx, dy, x, y;

  Lead(const ProgramState& s, const WayStep& step)
      : dx(step.dx * s.wallWidth),
        dy(step.dy * s.wallHeight),
        x(dx > 0 ? s.cur.right : s.cur.left),
        y(dy > 0 ? s.cur.bottom : s.cur.top) {}
};

Colour ahead(const Program& program, const Lead& lead, int times) {
  return program.canvas.point(lead.x + times * lead.dx, lead.y + times * lead.dy);
}

bool isFreeAhead(const Program& program, const Lead& lead, int times) {
  return program.colours.isFree(ahead(program, lead, times)) &&
         wholeCellIsFree(program, times * lead.dx, times * lead.dy);
}

/// On its way back the walker hops over one cell that is neither ground nor carved.
bool hops(const Program& program, const Lead& lead) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  return s.walkMode == WalkMode::back && pixels.noGround(s.cur.left + lead.dx, s.cur.top + lead.dy) &&
         pixels.maze(s.cur.left + 2 * lead.dx, s.cur.top + 2 * lead.dy);
}

Way regularWay(const Program& program, WalkMode mode, const Lead& lead) {
  const bool enters = entersCell(program, mode, ahead(program, lead, 1), lead.dx, lead.dy);
  return enters || hops(program, lead) ? Way::open : Way::closed;
}

Way wayWithUnderpasses(const Program& program, WalkMode mode, const Lead& lead) {
  const bool pipe = program.state.mazeKind == MazeKind::pipe;
  const bool carvedBehind = program.colours.isMaze(ahead(program, lead, 2));
  const bool carvedAhead = !pipe && program.colours.isMaze(ahead(program, lead, 1));
  if (mode == WalkMode::back && (carvedBehind || carvedAhead)) return Way::open;
  if (!isFreeAhead(program, lead, 1)) return Way::closed;
  if (carvedBehind) return Way::tunnel;
  return pipe && !isFreeAhead(program, lead, 2) ? Way::closed : Way::open;
}

}  // namespace

Ways waysToCarve(const Program& program) {
  const bool regular = program.state.mazeKind == MazeKind::regular;
  // A walker in a trap turns back by itself with the next step, after it has looked for a hop.
  const WalkMode mode = isTrapped(program) ? WalkMode::back : program.state.walkMode;
  Ways ways{};
  for (std::size_t i = 0; i < ways.size(); ++i) {
    const Lead lead(program.state, kWaySteps.at(i));
    ways.at(i) = regular ? regularWay(program, mode, lead) : wayWithUnderpasses(program, mode, lead);
  }
  return ways;
}

}  // namespace gridwright
