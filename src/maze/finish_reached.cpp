#include "maze/finish_reached.h"

#include "colours/mixcolors.h"
#include "maze/walk_paint.h"

namespace gridwright {

namespace {

/// To the origin; but where the rescue holds the walker beside a cell, back there.
void sendAway(ProgramState& s) {
  auto& help = s.walker.help;
  s.cur = help && help->held ? help->beside : s.walker.walkStart;
  if (help) help->sentAway = true;
}

}  // namespace

bool finishReached(Program& program) {
  ProgramState& s = program.state;
  if (s.walkMode == WalkMode::carve && !s.panelOpen) paintJoin(program);
  mixcolors(program);
  if (!s.panelOpen) boxSquare(program, s.cur);
  const Pixels pixels = program.pixels();
  if (s.stopAtFinish && pixels.maze(s.start.left, s.start.top) && pixels.maze(s.finish.left, s.finish.top)) {
    if (!s.panelOpen) boxSquare(program, s.prev);
    s.phase = Phase::placing;
    return true;
  }
  sendAway(s);
  s.walkMode = WalkMode::back;
  return false;
}

}  // namespace gridwright
