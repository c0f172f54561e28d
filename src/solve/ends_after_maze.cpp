#include "solve/ends_after_maze.h"

#include <array>

#include "colours/mixcolors.h"
#include "state/grid.h"

namespace gridwright {

namespace {

struct Move {
  int x, y;  // in wall sizes
};
using Tour = std::array<Move, 8>;

// Once around the square, one wall size at a time. The finish begins to the right and below, the
// start to the left and above, and the last move of each goes back to the middle column.
constexpr Tour kAroundFinish = {{{1, 1}, {0, -1}, {0, -1}, {-1, 0}, {-1, 0}, {0, 1}, {0, 1}, {1, 0}}};
constexpr Tour kAroundStart = {{{-1, -1}, {0, 1}, {0, 1}, {1, 0}, {1, 0}, {0, -1}, {0, -1}, {-1, 0}}};

/// In a 3-d maze an end may lie on a cell that an underpass closed: a neighbour stands in.
void tryNeighbours(const Program& program, Square& square, const Tour& tour) {
  const ProgramState& s = program.state;
  if (s.mazeKind != MazeKind::threeD) return;
  for (const Move& move : tour) {
    square = normalised(s, square.moved(move.x * s.wallWidth, move.y * s.wallHeight));
    if (standsOnCarved(program, square)) return;
  }
}

void makeFinishGood(Program& program) {
  ProgramState& s = program.state;
  if (standsOnCarved(program, s.finish)) return;
  tryNeighbours(program, s.finish, kAroundFinish);
  s.finish = normalised(s, s.finish);
  if (standsOnCarved(program, s.finish)) return;
  const bool own = s.creationMode == CreationMode::user && !s.cur.sameCorner(s.start);
  s.finish = own ? s.cur : s.walker.lastStop;
  if (standsOnCarved(program, s.finish) && !s.finish.sameCorner(s.start)) return;
  const Square found = searchCarvedFinish(program);
  if (isPlaced(found)) s.finish = found;
}

void makeStartGood(Program& program) {
  ProgramState& s = program.state;
  if (standsOnCarved(program, s.start)) return;
  tryNeighbours(program, s.start, kAroundStart);
  s.start = normalised(s, s.start);
  if (!standsOnCarved(program, s.start)) s.start = s.walker.walkStart;
}

/// The last cell but the start's, its inner corner on maze, background or cursor, that passes.
template <class Test>
Square searchFromFarCorner(const Program& program, Test test) {
  const ProgramState& s = program.state;
  const CellGrid grid = presentGrid(s);
  const auto cell = grid.fromFarCorner([&](Corner at) {
    const Square square = grid.squareIn(at);
    if (square.sameCorner(s.start)) return false;
    if (s.mazeKind == MazeKind::pipe && !grid.onPipeGrid(at)) return false;
    const Colour corner = program.canvas.point(square.right, square.bottom);
    return (!program.colours.isNoGround(corner) || corner == kCursorColour) && test(at);
  });
  return cell ? grid.squareIn(*cell) : Square{};
}

void readCover(const Program& program, const Square& square, Colour endColour, Colour& under, Colour& cover) {
  const Colour pixel = program.canvas.point(square.left, square.top);
  if (program.colours.isMaze(pixel) && pixel != endColour) under = cover = pixel;
}

}  // namespace

bool standsOnCarved(const Program& program, const Square& square) {
  return isPlaced(square) && program.pixels().carved(square.left, square.top);
}

Square searchCarvedFinish(const Program& program) {
  return searchFromFarCorner(program, [&](Corner at) {
    const ProgramState& s = program.state;
    return program.pixels().allCarved(at.x + 2, at.y + 2, at.x + s.wallWidth - 3, at.y + s.wallHeight - 3);
  });
}

Square searchFinishToBeCarved(const Program& program) {
  return searchFromFarCorner(program, [&](Corner at) {
    const ProgramState& s = program.state;
    return program.pixels().allGroundOrCursor(at.x, at.y, at.x + s.wallWidth - 1, at.y + s.wallHeight - 1);
  });
}

void makeEndsGood(Program& program) {
  ProgramState& s = program.state;
  makeFinishGood(program);
  makeStartGood(program);
  mixcolors(program);
  program.canvas.fill(s.cur, s.mazeColor);
  readCover(program, s.start, s.startColor, s.ends.underStart, s.ends.startMazeColor);
  readCover(program, s.finish, s.finishColor, s.ends.underFinish, s.ends.finishMazeColor);
}

}  // namespace gridwright
