// The way to a finish that no hand on a wall leads to.
//
// A maze is a tree, and whoever follows its walls comes everywhere. Where the picture shows ground in a
// colour of the corridors, as white paper does, there are ways round islands, and a walk with the island's
// wall under its hand never leaves it. Then the cells are counted through instead.
#pragma once

#include "state/program.h"

namespace gridwright {

/// To be called when the walk goes in a circle. Looks on the unsolved picture for the shortest way from the
/// start to the finish; where there is one, leaves the picture with its trail up to the last cell before the
/// finish, the walk about to enter it, and `pathLength` as for a walk that came there.
/// \returns whether there is one; else nothing has changed but the trail, which is gone.
bool takePlainWay(Program& program);

}  // namespace gridwright
