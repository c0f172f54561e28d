#include "session/show_regions.h"

#include <array>
#include <utility>

#include "canvas/free_cell.h"
#include "pictures/regions.h"
#include "state/grid.h"

namespace gridwright {

namespace {

/// Regions side by side differ in colour; areas without a cell are red, the colour of the thing to look at.
constexpr auto kRegionColours =
    std::to_array<Colour>({0xE0A030, 0x40B050, 0xC050A0, 0x30A0D0, 0xA0A020, 0x8060E0, 0x60C0A0, 0xD08080});
constexpr Colour kTooSmall = 0x0000FF;

Bitmap inColours(const Bitmap& drawing, const RegionMap& map) {
  Bitmap colours = plainBitmap(drawing.width, drawing.height, kOutside);
  for (std::size_t i = 0; i < colours.pixels.size(); ++i) {
    if (map.small[i] != 0) colours.pixels[i] = kTooSmall;
    if (map.regions[i] == 0) continue;
    colours.pixels[i] = kRegionColours[static_cast<std::size_t>(map.regions[i] - 1) % kRegionColours.size()];
  }
  return colours;
}

}  // namespace

void showregions(Program& program) {
  const ProgramState& s = program.state;
  const Bitmap drawing = program.canvas.image();
  const CellGrid grid = gridOn({drawing.width, drawing.height}, s.wallWidth, s.mazeKind);
  const RegionMap map = mapRegions(drawing, program.colours, grid);
  RegionsView& view = program.regions;
  view.shown = true;
  view.colours = inColours(drawing, map);
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
