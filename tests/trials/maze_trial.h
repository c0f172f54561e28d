// One maze of thousands: a drawing, its settings, its maze and its answer, all chosen by a number, and looked
// at by the slow twin.
#pragma once

#include <cstdint>
#include <string>

#include "canvas/geometry.h"
#include "canvas/maze_kind.h"
#include "state/menu_tree.h"

namespace gridwright::test {

struct MazeTrial {
  enum class Patterns { own, none, random, set };

  std::uint32_t seed =
      0;            ///< Of the program's random numbers, of what stands in the drawing, of the patterns.
  int drawing = 0;  ///< One of the thirty.
  Size size;
  int wall = 10;
  MazeKind kind = MazeKind::regular;
  int difficulty = 4;
  bool largePaths = false, longUnderpasses = false;
  Patterns patterns = Patterns::own;
  int patternSize = 5;             ///< Of random ones.
  bool patternsOfAnySize = false;  ///< Up to that size.
  Item finish = Item::userplace;
  bool untilReached = false;  ///< The maze is made only until start and finish are reached.

  /// In words, for who wants it again.
  [[nodiscard]] std::string words() const;
};

/// The trial of this number: each drawing in turn, all else by chance.
/// \param largest side of a Canvas, 50 to 1000.
MazeTrial trialOf(std::uint32_t seed, int number, int largest);

struct TrialOutcome {
  std::string fault;     ///< What is wrong; empty when nothing is.
  bool refused = false;  ///< There are fewer than three free cells.
  bool joined = false;   ///< A way leads from the start to the finish, which then was walked.
  int cells = 0;         ///< Of the grid, free or not.
  std::int64_t making = 0, searching = 0, solving = 0;  ///< Passes.
};

/// How many passes a maze takes at most with search and answer: so many for each cell of the grid, more where
/// the drawing shows colours of the corridors, and so many besides.
inline constexpr std::int64_t kMostPassesOfACell = 5'000, kMostPassesOfACellOnPaper = 200'000;
inline constexpr std::int64_t kMostPassesBesides = 200'000;

/// Makes the maze in a program of its own, in any thread.
TrialOutcome runTrial(const MazeTrial& trial);

}  // namespace gridwright::test
