#include "canvas/cell_grid.h"

namespace gridwright {

int lastGridLine(int wall, int pitch, int extent) {
  int line = wall;
  while (line + pitch <= extent - pitch) line += pitch;
  return line;
}

}  // namespace gridwright
