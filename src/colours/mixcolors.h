// Which colour the walker paints: each background has its own maze colour, and along a boundary a
// square takes the one of the region it lies in.
//
// Both leave their result in `mazeColor`; a case that decides nothing leaves it as it was.
#pragma once

#include "state/program.h"

namespace gridwright {

/// For the current square, by the pixel at its corner and those around it.
void mixcolors(Program& program);

/// For the previous square. Its colour is the one read on arrival, since it has been painted since,
/// and its second ring is read from its left and top, two pixels nearer on the right and lower side.
void mixcolors2(Program& program);

}  // namespace gridwright
