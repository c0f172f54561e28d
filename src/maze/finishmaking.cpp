#include "maze/finishmaking.h"

#include "maze/entry_tests.h"

namespace gridwright {

void resetfillcursor(ProgramState& state) {
  state.scanX = state.wallWidth + 1 - state.stepX;
  state.scanY = state.wallHeight + 1 - state.stepY;
  state.walker.freeCellMetSinceStep = false;
}

bool isFreeForMaze(const Program& program, int x, int y) {
  const ProgramState& s = program.state;
  const Colour corner = program.canvas.point(x, y);
  if (!program.colours.isFree(corner) || corner == kCursorColour) return false;
  if (!s.walker.givenUpCells.empty() && s.walker.givenUpCells.contains({x, y})) return false;
  if (!s.mazeMadeOnce) return true;
  return program.pixels().allFree(x - 1, y - 1, x + s.wallWidth - 2, y + s.wallHeight - 2, kCursorColour);
}

bool stopsFillCursor(const Program& program, int x, int y) {
  return isFreeForMaze(program, x, y) &&
         (program.state.mazeKind != MazeKind::threeD || firstEntry(program, x, y).has_value());
}

void finishmaking(Program& program) {
  ProgramState& s = program.state;
  if (!stopsFillCursor(program, s.scanX, s.scanY)) return;
  s.walker.rescueMemory.freeGround = {s.scanX, s.scanY};
  resetfillcursor(s);
  s.walker.freeCellMetSinceStep = true;
}

bool advancefillcursor(ProgramState& state) {
  state.scanX += state.stepX;
  if (state.scanX > state.canvasWidth) {
    state.scanX = state.wallWidth + 1 - state.stepX;
    state.scanY += state.stepY;
  }
  return state.scanY <= state.canvasHeight;
}

}  // namespace gridwright
