#include "underpass/findunderpasses.h"

#include <array>
#include <optional>

#include "underpass/nocrosses.h"

namespace gridwright {

namespace {

enum class Trial { goesOn, ended };

/// The margin: Long pipes keep one pixel further off.
int marginOf(const ProgramState& s) { return s.shortUnderpasses ? 0 : 1; }

bool here(const Program& program) {
  const Square& p = program.state.underpass.probe;
  return program.pixels().maze(p.left, p.top);
}
bool ahead(const Program& program) {
  const ProgramState& s = program.state;
  return program.pixels().maze(s.underpass.probeLeadX + s.deltaX, s.underpass.probeLeadY + s.deltaY);
}
bool behind(const Program& program) {
  const ProgramState& s = program.state;
  return program.pixels().maze(s.underpass.probe.left - s.deltaX, s.underpass.probe.top - s.deltaY);
}

/// The first pixel that is not free in the square widened by 1 and the margin, at a stride of as
/// much; nothing when the scan passes.
std::optional<Colour> firstNotFree(const Program& program, const Square& square, int margin) {
  if (!program.state.mazeMadeOnce) return std::nullopt;
  const int stride = 1 + margin;
  for (int y = square.top - stride; y <= square.bottom + stride; y += stride) {
    for (int x = square.left - stride; x <= square.right + stride; x += stride) {
      const Colour pixel = program.canvas.point(x, y);
      if (!program.colours.isFree(pixel)) return pixel;
    }
  }
  return std::nullopt;
}

Trial refuse(Program& program) {
  program.state.underpass.underpassOk = false;
  return Trial::ended;
}

Trial crossesNothing(Program& program) {
  nocrosses(program);
  return program.state.underpass.underpassOk ? Trial::goesOn : Trial::ended;
}

void advanceProbe(ProgramState& s) { putProbe(s, s.underpass.probe.moved(s.deltaX, s.deltaY)); }

/// An island of corridor that leads nowhere cannot be tunnelled under.
bool onIsland(const Program& program) {
  const Pixels pixels = program.pixels();
  const Square& p = program.state.underpass.probe;
  return here(program) && !pixels.maze(p.left - 1, p.top) && !pixels.maze(p.right + 1, p.top) &&
         !pixels.maze(p.left, p.top - 1) && !pixels.maze(p.left, p.bottom + 1);
}

/// Whether all four cells around the one ahead of the probe are closed: a tunnel that surfaced there
/// could not go on. The scans of this test have no margin.
bool surfacesInTrap(const Program& program) {
  const ProgramState& s = program.state;
  const UnderpassState& u = s.underpass;
  const int w = s.wallWidth;
  const int h = s.wallHeight;
  const Square cell = u.probe.moved(s.deltaX, s.deltaY);
  struct Neighbour {
    int dx, dy;  // from the cell ahead
    int x, y;    // its probe pixel
  };
  const std::array<Neighbour, 4> around = {{{-w, 0, u.probe.left + s.deltaX - w, u.probeLeadY + s.deltaY},
                                            {w, 0, u.probe.left + s.deltaX + w, u.probeLeadY + s.deltaY},
                                            {0, -h, u.probeLeadX + s.deltaX, u.probe.top + s.deltaY - h},
                                            {0, h, u.probeLeadX + s.deltaX, u.probe.bottom + s.deltaY + h}}};
  for (const Neighbour& n : around) {
    const bool closed = firstNotFree(program, cell.moved(n.dx, n.dy), 0) || program.pixels().closed(n.x, n.y);
    if (!closed) return false;
  }
  return true;
}

/// What the 3-d kind asks of each position before anything else.
Trial threeDTests(Program& program) {
  if (program.state.mazeKind != MazeKind::threeD) return Trial::goesOn;
  if (onIsland(program)) return refuse(program);
  if (!ahead(program) && surfacesInTrap(program)) return refuse(program);
  return crossesNothing(program);
}

/// A gap of one cell between two corridors: skipped over, refused or left alone, by difficulty.
Trial gapTest(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  const bool gap = program.pixels().free(u.probe.left, u.probe.top) &&
                   !firstNotFree(program, u.probe, marginOf(s)) && !here(program) && ahead(program) &&
                   behind(program);
  if (!gap || s.difficultyLevel >= 6) return Trial::goesOn;
  if (s.difficultyLevel != 2 && s.difficultyLevel != 4) return refuse(program);
  u.crossCount = 0;
  advanceProbe(s);
  return s.mazeKind == MazeKind::threeD ? crossesNothing(program) : Trial::goesOn;
}

/// The corridor under the probe must open on a side, or run across on both; one that ends beside free
/// ground counts as a side crossing.
void acrossTest(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  if (!here(program)) return;
  const Pixels pixels = program.pixels();
  const Square& p = u.probe;
  const bool horizontal = s.stepCode == step::left || s.stepCode == step::right;
  // Beside the corridor, at distance 1 whatever the margin: one further out the end of another tunnel
  // would pass for an opening.
  const bool opens = horizontal ? pixels.maze(p.left, p.top - 1) || pixels.maze(p.left, p.bottom + 1)
                                : pixels.maze(p.left - 1, p.top) || pixels.maze(p.right + 1, p.top);
  if (opens) return;
  const bool far =
      horizontal ? pixels.maze(p.left + s.wallWidth, p.top) : pixels.maze(p.left, p.top + s.wallHeight);
  const bool near =
      horizontal ? pixels.maze(p.right - s.wallWidth, p.top) : pixels.maze(p.left, p.bottom - s.wallHeight);
  if (!far || !near) u.underpassOk = false;
  const int beyond = 1 + marginOf(s);
  const bool endsBesideFreeGround =
      (s.stepCode == step::left && near && pixels.free(p.left - beyond, p.top)) ||
      (s.stepCode == step::right && far && pixels.free(p.right + beyond, p.top)) ||
      (s.stepCode == step::up && near && pixels.free(p.left, p.top - beyond)) ||
      (s.stepCode == step::down && far && pixels.free(p.left, p.bottom + beyond));
  if (endsBesideFreeGround) u.crossCount += beyond;
}

/// Where the probe stands after its step, and whether free ground has come.
Trial groundTest(Program& program) {
  ProgramState& s = program.state;
  const UnderpassState& u = s.underpass;
  const Pixels pixels = program.pixels();
  const auto stopped = firstNotFree(program, u.probe, marginOf(s));
  const bool noGround =
      (stopped && program.colours.isNoGround(*stopped)) || pixels.border(u.probe.left, u.probe.top);
  if (noGround) return here(program) ? Trial::goesOn : refuse(program);
  const bool nextIsFree = pixels.free(u.probeLeadX + s.deltaX, u.probeLeadY + s.deltaY) &&
                          !firstNotFree(program, u.probe.moved(s.deltaX, s.deltaY), marginOf(s));
  if (!nextIsFree || here(program) || ahead(program)) return Trial::goesOn;
  if (pixels.maze(u.probeLeadX + 2 * s.deltaX, u.probeLeadY + 2 * s.deltaY)) return Trial::goesOn;
  nocrosses(program);
  return Trial::ended;
}

Trial onePosition(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  if (threeDTests(program) == Trial::ended) return Trial::ended;
  if (s.difficultyLevel <= 2 && here(program) && ahead(program)) u.underpassOk = false;
  if (gapTest(program) == Trial::ended) return Trial::ended;
  acrossTest(program);
  advanceProbe(s);
  if (groundTest(program) == Trial::ended) return Trial::ended;
  if (s.difficultyLevel <= 4 && u.crossCount > 0) u.underpassOk = false;
  return u.underpassOk ? Trial::goesOn : Trial::ended;
}

}  // namespace

void putProbe(ProgramState& state, const Square& square) {
  UnderpassState& u = state.underpass;
  u.probe = square;
  u.probeLeadX = state.deltaX > 0 ? square.right : square.left;
  u.probeLeadY = state.deltaY > 0 ? square.bottom : square.top;
}

void findunderpasses(Program& program) {
  while (onePosition(program) == Trial::goesOn) {
  }
}

}  // namespace gridwright
