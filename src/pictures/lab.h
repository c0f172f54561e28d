// How far apart two colours look.
#pragma once

#include "canvas/colour.h"

namespace gridwright {

/// A colour in CIE L*a*b* under the light that screens are made for: L is 0 for black and 100 for white.
struct Lab {
  double l = 0, a = 0, b = 0;
};

Lab labOf(Colour colour);

/// About 2 can just be told apart; black and white are 100 apart.
double apart(const Lab& one, const Lab& other);

}  // namespace gridwright
