// The colours found in a picture, paired with those of the sixteen that may stand for them.
#pragma once

#include <vector>

#include "canvas/colour.h"

namespace gridwright {

/// For each of `colours` one of `choices`, of which there is at least one. Of all pairs the nearest to the
/// eye is taken, then the nearest of what is left, each choice once; when all are taken they begin anew.
std::vector<Colour> paired(const std::vector<Colour>& colours, const std::vector<Colour>& choices);

}  // namespace gridwright
