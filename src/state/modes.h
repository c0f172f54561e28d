// Phases, kinds and modes, with the numbers that scripts, drawing files and tests know them by.
#pragma once

#include "canvas/maze_kind.h"
#include "files/step_codes.h"

namespace gridwright {

enum class Phase : int {
  quitToTitle = -6,
  title = -5,
  patternRequest = -2,
  patternEditing = -1,
  drawing = 0,
  making = 1,
  placing = 2,
  solving = 3,
  solved = 4,
};

/// `none` stands in `lastWalkMode` at a start, so that any mode counts as a change.
enum class WalkMode : int { none = -9, back = -1, carve = 1 };

enum class CreationMode : int { user = -1, computer = 1 };

enum class PlayMode : int { off = 0, easy = 1, hard = 2 };

enum class FinishMethod : int { user = 0, largest = 1, includeUnderpasses = 2, mostUnderpasses = 3 };

/// Where the walker's steps come from. The numbers are those of the drawing file.
enum class PatternState : int { choose = 0, reading = 1, random = 3 };

enum class PrintMode : int { none = 0, withAnswers = 1, withoutAnswers = 2 };

enum class Symmetry : int { off = 0, horizontal = 1, vertical = 2, fourWay = 3 };

enum class WindowState : int { normal = 0, minimised = 1, maximised = 2 };

}  // namespace gridwright
