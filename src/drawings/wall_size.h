// The wall size and its panel.
#pragma once

#include "state/program.h"

namespace gridwright {

void changewallsize(Program& program);  ///< "Change wall size"
void newwallsize(Program& program);     ///< "New drawing and new wall size(in pixels)"

void wallSizeEntered(Program& program);
void wallSizeEscaped(Program& program);

/// Fills the whole window with `BackColor` in the persistent image.
void fillWithBackColor(Canvas& canvas);

/// A Canvas colour that is maze or background gives way to the first plain border colour.
void repairBackColor(Program& program);

}  // namespace gridwright
