// Enter and Escape in the text box of a panel, on their way to the room whose panel it is.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Enter or Escape in a text box.
void panelEntered(Program& program, ControlId box);
void panelEscaped(Program& program, ControlId box);

}  // namespace gridwright
