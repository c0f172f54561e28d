#include "state/workshop.h"

namespace gridwright {

InkRole roleOf(int ink, const ColourSets& sets) {
  if (ink == kPaperInk) return InkRole::border;
  const Colour colour = colourOfInk(ink);
  if (sets.isMaze(colour)) return InkRole::taken;
  return sets.isFree(colour) ? InkRole::grows : InkRole::border;
}

}  // namespace gridwright
