// Lines of ink taken apart into letters, as they are joined and coloured.
#pragma once

#include <string>
#include <vector>

#include "pictures/bit_plane.h"
#include "pictures/ink_work.h"

namespace gridwright {

/// A connected piece of ink with what stands above or below it. A word of a script that joins its letters is
/// one.
struct Letter {
  std::string name;             ///< What a reader calls it, such as "A"; of several letters all.
  std::vector<BitPlane> parts;  ///< As large as the plane on which its line was laid; the largest first.
  [[nodiscard]] BitPlane ink() const;
};

/// The letters of a line in the order of reading.
/// \param plane how large their planes are. \param x,y where on them the upper left of the line's ink lies.
std::vector<Letter> lettersOf(const LineInk& line, Size plane, int x, int y);

}  // namespace gridwright
