// The title left alone turns into a show of example mazes and credits, and comes back.
#pragma once

#include "state/program.h"

namespace gridwright {

void command3(Program& program);  ///< "Click to see examples and credits"

/// The wait of one of the two timers is over.
void slideTimer(Program& program, ControlId timer);

/// Mouse buttons on the window: the left ends the show, the right goes on at once.
void slideMouse(Program& program, int button);

/// Keys at the title: Escape does what the left button does, Space what the right one does.
void slideKey(Program& program, int code);

}  // namespace gridwright
