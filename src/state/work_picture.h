// A picture in progress comes back onto the Canvas.
#pragma once

#include <string_view>

#include "state/program.h"

namespace gridwright {

/// Paints a work picture over the Canvas, persistent.
void paintWorkPicture(Program& program, std::string_view name);

}  // namespace gridwright
