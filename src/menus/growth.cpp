#include "menus/growth.h"

#include <algorithm>

#include "canvas/free_cell.h"

namespace gridwright {

namespace {

CellGrid gridOfCanvas(const Program& program) {
  const ProgramState& s = program.state;
  return gridOn({program.canvas.scaleWidth(), program.canvas.scaleHeight()}, s.wallWidth, s.mazeKind);
}

bool isCarved(const Pixels& pixels, Corner cell) { return pixels.carved(cell.x + 1, cell.y + 1); }

}  // namespace

int carvedCells(const Program& program) {
  const Pixels pixels = program.pixels();
  int carved = 0;
  gridOfCanvas(program).first([&](Corner cell) {
    carved += isCarved(pixels, cell) ? 1 : 0;
    return false;
  });
  return carved;
}

Growth growthOf(const Program& program) {
  const Pixels pixels = program.pixels();
  const CellGrid grid = gridOfCanvas(program);
  Growth growth;
  grid.first([&](Corner cell) {
    if (isCarved(pixels, cell)) {
      ++growth.carved;
    } else if (isFreeCell(pixels, grid, cell)) {
      ++growth.left;
    }
    return false;
  });
  return growth;
}

Growth growthOfMaze(const Program& program) {
  Growth growth = growthOf(program);
  growth.carved = std::max(0, growth.carved - program.state.session.carvedBefore);
  return growth;
}

}  // namespace gridwright
