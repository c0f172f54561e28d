#include "solve/default_ends.h"

#include "canvas/free_cell.h"
#include "state/grid.h"

namespace gridwright {

namespace {

constexpr Square kNowhere{-10, -10, -10, -10};

Square searchStart(const Program& program, const CellGrid& grid) {
  const auto cell = grid.first([&](Corner at) { return isFreeCell(program, grid, at); });
  return cell ? grid.squareIn(*cell) : kNowhere;
}

Square searchFinish(const Program& program, const CellGrid& grid, const Square& start, bool pipe,
                    const Square& otherwise) {
  const auto test = [&](Corner at) {
    if (pipe && !grid.onPipeGrid(at)) return false;
    const Square square = grid.squareIn(at);
    return !square.sameCorner(start) && program.pixels().background(square.right, square.bottom) &&
           program.pixels().allFree(at.x, at.y, at.x + grid.wallWidth - 1, at.y + grid.wallHeight - 1);
  };
  const auto cell = grid.fromFarCorner(test);
  return cell ? grid.squareIn(*cell) : otherwise;
}

}  // namespace

bool isGoodStart(const Program& program, const Square& q) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  return isPlaced(q) &&
         pixels.allFree(q.left - 1, q.top - 1, q.left + s.wallWidth - 2, q.top + s.wallHeight - 2) &&
         !pixels.border(q.left, q.top);
}

bool isGoodFinish(const Program& program, const Square& q, const Square& start) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  const Colour corner = program.canvas.point(q.left, q.top);
  return q.left != q.right && q.top != q.bottom && !q.sameCorner(start) &&
         pixels.allFree(q.right - s.wallWidth + 2, q.bottom - s.wallHeight + 2, q.right + 1, q.bottom + 1) &&
         (!program.colours.isBorder(corner) || corner == program.colours.extraBackground());
}

void placedefaultends(Program& program) {
  ProgramState& s = program.state;
  const CellGrid grid = presentGrid(s);
  if (!isGoodStart(program, s.start)) s.start = searchStart(program, grid);
  if (!isGoodFinish(program, s.finish, s.start)) {
    s.finish = searchFinish(program, grid, s.start, s.mazeKind == MazeKind::pipe, s.finish);
  }
}

bool startat(Program& program, int x, int y) {
  const ProgramState& s = program.state;
  const CellGrid grid =
      gridOn({program.canvas.scaleWidth(), program.canvas.scaleHeight()}, s.wallWidth, s.mazeKind);
  const auto holds = [&](Corner cell) {
    return x >= cell.x && x < cell.x + grid.wallWidth && y >= cell.y && y < cell.y + grid.wallHeight;
  };
  const auto cell = grid.first(holds);
  if (cell) program.state.start = grid.squareIn(*cell);
  return cell.has_value();
}

void placepipefinish(Program& program) {
  ProgramState& s = program.state;
  const CellGrid grid = pipeGrid(program);
  s.ends.pipeStart = s.ends.pipeFinish = kNowhere;
  const bool keepStart = isGoodStart(program, s.start) && grid.onPipeGrid(s.start);
  s.ends.pipeStart = keepStart ? s.start : searchStart(program, grid);
  const bool keepFinish = isGoodFinish(program, s.finish, s.ends.pipeStart) && grid.onPipeGrid(s.finish);
  s.ends.pipeFinish =
      keepFinish ? s.finish : searchFinish(program, grid, s.ends.pipeStart, true, s.ends.pipeFinish);
}

}  // namespace gridwright
