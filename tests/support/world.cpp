#include "support/world.h"

#include "colours/colour_repairs.h"
#include "session/main_loop.h"
#include "state/grid.h"

namespace gridwright::test {

World::World(Size client) : desktop(client), program(desktop, std::make_unique<MemoryFolder>()) {}

World::World(const Bitmap& picture, int wall) : World(Size{picture.width, picture.height}) {
  canvas.resize({picture.width, picture.height});
  canvas.paintPicture(picture);
  defaultColours(program);
  program.colours.setExtraBackgroundByRule();
  state.wallWidth = state.wallHeight = wall;
  pitchFromKind(state);
  measureGrid(program);
  state.mazeColor = state.keptMazeColor = kWhite;
  state.phase = Phase::making;
  state.mazeMadeOnce = true;
}

std::string World::run() {
  try {
    runProgram(program);
  } catch (const ProgramEnd&) {
    return desktop.trouble;
  }
}

void World::begin(const Bitmap& picture) {
  desktop.setClient({picture.width, picture.height});
  desktop.putFile("begin.bmp", picture);
  desktop.click(ControlId::Command2);
  desktop.untilPhase(Phase::drawing);
  desktop.menu(Item::importdrawing);
  desktop.enter(ControlId::Text8, "begin");
}

Square squareOf(int column, int row, int wall) {
  return {column * wall + 1, row * wall + 1, column * wall + wall - 2, row * wall + wall - 2};
}

}  // namespace gridwright::test
