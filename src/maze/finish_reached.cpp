#include "maze/finish_reached.h"

#include "colours/mixcolors.h"
#include "maze/walk_paint.h"

namespace gridwright {

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
  s.cur = s.walker.walkStart;
  s.walkMode = WalkMode::back;
  return false;
}

}  // namespace gridwright
