#include "canvas/free_cell.h"

namespace gridwright {

int pitchOf(int wallSize, MazeKind kind) { return kind == MazeKind::pipe ? 2 * wallSize : wallSize; }

CellGrid gridOn(Size canvas, int wallSize, MazeKind kind) {
  const int pitch = pitchOf(wallSize, kind);
  return {wallSize,
          wallSize,
          pitch,
          pitch,
          lastGridLine(wallSize, pitch, canvas.width),
          lastGridLine(wallSize, pitch, canvas.height)};
}

bool isFreeCell(const Pixels& pixels, const CellGrid& grid, Corner cell) {
  return pixels.background(cell.x + 1, cell.y + 1) &&
         pixels.allFree(cell.x, cell.y, cell.x + grid.wallWidth - 1, cell.y + grid.wallHeight - 1);
}

}  // namespace gridwright
