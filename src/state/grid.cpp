#include "state/grid.h"

#include "canvas/free_cell.h"

namespace gridwright {

bool isPlaced(const Square& q) {
  return q.left != q.right && q.top != q.bottom && q.left >= 0 && q.top >= 0 && q.right >= 0 && q.bottom >= 0;
}

CellGrid presentGrid(const ProgramState& state) {
  return {state.wallWidth, state.wallHeight, state.stepX, state.stepY, state.gridRight, state.gridBottom};
}

CellGrid pipeGrid(const Program& program) {
  const ProgramState& s = program.state;
  const int stepX = 2 * s.wallWidth;
  const int stepY = 2 * s.wallHeight;
  return {s.wallWidth,
          s.wallHeight,
          stepX,
          stepY,
          lastGridLine(s.wallWidth, stepX, program.canvas.scaleWidth()),
          lastGridLine(s.wallHeight, stepY, program.canvas.scaleHeight())};
}

void measureGrid(Program& program) {
  ProgramState& s = program.state;
  s.canvasWidth = program.canvas.scaleWidth();
  s.canvasHeight = program.canvas.scaleHeight();
  s.gridRight = lastGridLine(s.wallWidth, s.stepX, s.canvasWidth);
  s.gridBottom = lastGridLine(s.wallHeight, s.stepY, s.canvasHeight);
}

Size canvasFor(Size client) {
  return {std::clamp(client.width, 1, Canvas::kSide), std::clamp(client.height, 1, Canvas::kSide)};
}

void followWindow(Program& program, Size client) {
  if (program.platform.windowState() != WindowState::minimised) program.canvas.resize(client);
}

void pitchFromKind(ProgramState& state) {
  state.stepX = pitchOf(state.wallWidth, state.mazeKind);
  state.stepY = pitchOf(state.wallHeight, state.mazeKind);
}

Square firstCell(const ProgramState& state) {
  return {state.wallWidth, state.wallHeight, 2 * state.wallWidth - 1, 2 * state.wallHeight - 1};
}

bool isFreeCell(const Program& program, const CellGrid& grid, Corner cell) {
  return isFreeCell(program.pixels(), grid, cell);
}

Square normalised(const ProgramState& state, const Square& square) {
  return {square.left, square.top, square.left + state.wallWidth - 3, square.top + state.wallHeight - 3};
}

}  // namespace gridwright
