#include "menus/growth.h"

#include <algorithm>

#include "canvas/free_cell.h"

namespace gridwright {

Growth growthOf(const Program& program) {
  const ProgramState& s = program.state;
  const Canvas& canvas = program.canvas;
  const Pixels pixels = program.pixels();
  const CellGrid grid = gridOn({canvas.scaleWidth(), canvas.scaleHeight()}, s.wallWidth, s.mazeKind);
  Growth growth;
  grid.first([&](Corner cell) {
    if (pixels.carved(cell.x + 1, cell.y + 1)) {
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
