// Can a free cell of a 3-d maze be entered? One whose every way in would touch an underpass must not
// hold the maze open.
#pragma once

#include <optional>

#include "state/program.h"

namespace gridwright {

/// A carved neighbour from which the free cell can be entered, by its corner.
struct EntryFrom {
  int x, y;
};

/// Tests the neighbours below, above, right and left of the cell whose square begins at (x, y), in
/// this order. \returns the first from which an ordinary entry is possible.
std::optional<EntryFrom> firstEntry(const Program& program, int x, int y);

}  // namespace gridwright
