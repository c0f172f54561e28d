// Patterns made by chance: one in the editor, or a fresh one before every maze.
#pragma once

#include "state/program.h"

namespace gridwright {

void crpattern(Program& program);  ///< "Create random pattern"
void crnd1(Program& program);      ///< "Create random identical patterns for every maze"

/// Makes a random left pattern without an editor: the same field and loop, with no menu, key or
/// caption changed. Returns with `phase` 1 and the picture as it was, or with -6 at a quit.
void editrandompat(Program& program);

/// Before a maze, if that was asked for: a random left pattern and its images in the other three.
/// \returns false at a quit to the title.
bool makeRandomPatterns(Program& program);

}  // namespace gridwright
