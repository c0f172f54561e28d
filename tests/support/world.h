// A whole program on a desktop of memory, for tests of one routine and for tests of sessions.
#pragma once

#include <memory>

#include "state/program.h"
#include "support/bare_desktop.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {

struct World {
  /// A window of this size; nothing has happened yet.
  explicit World(Size client = {800, 600});
  /// A window just as large as the drawing, the drawing on the Canvas, colours and wall size at their
  /// defaults, the grid measured and a maze under way: what the routines of a maze expect.
  explicit World(const Bitmap& picture, int wall = 10);

  /// Runs the program from its start through the desktop's list. \returns why it ended early, if it did.
  std::string run();

  /// Puts on the list: leave the title, put the picture on the Canvas as an import does.
  void begin(const Bitmap& picture);

  BareDesktop desktop;
  Program program;
  ProgramState& state = program.state;
  Canvas& canvas = program.canvas;
  MemoryFolder& folder = static_cast<MemoryFolder&>(*program.files);
};

/// The square of the cell in this column and row, both counted from 1.
Square squareOf(int column, int row, int wall = 10);

}  // namespace gridwright::test
