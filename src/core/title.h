// The title screen: its picture and its buttons.
#pragma once

#include "core/program.h"

namespace gridwright {

/// Paints the title picture, 800 by 600, over the Canvas.
void paintTitle(Program& program);

void showTitleButtons(Program& program);
void hideTitleButtons(Program& program);

void command2(Program& program);  ///< "Click to Begin"

}  // namespace gridwright
