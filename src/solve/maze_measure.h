// How long and how hard a finished maze is, counted from its pixels.
#pragma once

#include "solve/maze_ways.h"

namespace gridwright {

/// Counts of what can be reached from the start; in pipes the joins between two are no cells.
struct MazeMeasure {
  int carved = 0;       ///< Cells with a corridor anywhere in the picture, also where no way leads to.
  bool solved = false;  ///< A way leads from the start to the finish, another cell; else what follows `cells`
                        ///< is not told.
  int cells = 0;
  int wayLength = 0;    ///< Cells of the shortest way, both ends counted.
  int turns = 0;        ///< Cells of it that it leaves in another direction than it came.
  int deadEnds = 0;     ///< Cells with one way only, the ends left out.
  int junctions = 0;    ///< Cells of the way from which something else branches.
  int underpasses = 0;  ///< All of them, on the way or not.
  /// How hard it is to find the way, to the hundredth. A stretch weighs what it has of cells, turns and twice
  /// of underpasses. The way and each branch from it add the logarithm, to base 2, of one more than their
  /// weight: a branch that is twice as long takes one doubling more to be found wrong.
  double difficulty = 0;
};

MazeMeasure measureMaze(const MazePicture& maze);

}  // namespace gridwright
