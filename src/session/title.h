// The title screen: its picture and its buttons.
#pragma once

#include <string_view>

#include "state/program.h"

namespace gridwright {

/// Paints the title picture, 800 by 600, over the Canvas.
void paintTitle(Program& program);

/// A picture that came with the program.
Outcome<Bitmap> loadContent(Program& program, std::string_view name);

void showTitleButtons(Program& program);
void hideTitleButtons(Program& program);

void command2(Program& program);  ///< "Click to Begin"

// Three more buttons that are never shown: books of mazes.
void command4(Program& program);  ///< "Create Combined Maze Book (1)"
void command5(Program& program);  ///< "Create Regular Maze Book (2)"
void command6(Program& program);  ///< "Create 3d-pipe-Maze book (3)"

}  // namespace gridwright
