// The wall size and its panel.
#pragma once

#include "core/program.h"

namespace gridwright {

void changewallsize(Program& program);  ///< "Change wall size"

void wallSizeEntered(Program& program);
void wallSizeEscaped(Program& program);

/// A Canvas colour that is maze or background gives way to the first plain border colour.
void repairBackColor(Program& program);

}  // namespace gridwright
