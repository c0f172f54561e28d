#include "session/show_regions.h"

#include <utility>

#include "canvas/free_cell.h"
#include "pictures/regions.h"
#include "state/grid.h"

namespace gridwright {

void showregions(Program& program) {
  const ProgramState& s = program.state;
  const Bitmap drawing = program.canvas.image();
  const CellGrid grid = gridOn({drawing.width, drawing.height}, s.wallWidth, s.mazeKind);
  const RegionMap map = mapRegions(drawing, program.colours, grid);
  RegionsView& view = program.regions;
  view.shown = true;
  view.colours = inColours(map, {drawing.width, drawing.height});
  view.line = regionLine(map.count);
  ++view.revision;
  program.platform.told(view.line);
}

bool hideRegions(Program& program) {
  RegionsView& view = program.regions;
  if (!view.shown) return false;
  view.shown = false;
  view.colours = {};
  ++view.revision;
  return true;
}

}  // namespace gridwright
