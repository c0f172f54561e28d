// What a page says of itself besides its picture.
#pragma once

#include "state/program.h"

namespace gridwright {

/// How many cells of the maze on the Canvas have a corridor: without a trail, and without ground that had a
/// corridor's colour before there was a maze. 0 where no maze is made; and where all cells of the grid are
/// too few to allow a page more rectangles than any picture may take, since then nothing hangs on it. Reads
/// the shown plane, "drawing1.bmp", and "drawing2.bmp" where a trail may lie on the maze.
int mazeCells(Program& program);

/// The page's title, the settings in force, the seed that Rnd was given last, and which maze of a run it is.
PageAbout aboutPage(const Program& program, const MazeInRun& maze);

}  // namespace gridwright
