// How big will it be: the regions of the drawing in colours, before a maze is made.
#pragma once

#include "state/program.h"

namespace gridwright {

/// "How big will it be?": shows the regions, and the line of how many cells they have, over the Canvas and on
/// no plane of it. It stands until the next key or click.
void showregions(Program& program);

/// \returns whether it was shown.
bool hideRegions(Program& program);

}  // namespace gridwright
