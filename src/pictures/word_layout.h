// Where the lines of a text lie, and its letters made thick enough and joined.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "canvas/cell_grid.h"
#include "pictures/letter_cells.h"
#include "pictures/letters.h"

namespace gridwright {

/// Lines of ink under one another, each about the middle of the widest.
class WordLayout {
 public:
  /// \param capital how high a capital stands, in pixels: lines are that and three quarters of it apart, and
  /// never less than a pitch. Lines that would lie further down than ink may reach are left out.
  WordLayout(const std::vector<LineInk>& lines, int capital, const CellPitch& pitch);

  /// How large all ink is.
  [[nodiscard]] Size size() const { return size_; }
  /// How many of the lines that have ink are not left out: the first so many.
  [[nodiscard]] std::size_t lines() const { return places_.size(); }

  struct Letters {
    std::vector<std::vector<Letter>> lines;  ///< On planes that are all equally large.
    Size plane;
    Corner origin;  ///< Where on the sheet the upper left of the planes lies; a whole number of pitches.
  };
  /// \param at where on the sheet the upper left of the ink is to lie.
  [[nodiscard]] Letters lettersAt(Corner at) const;

 private:
  struct Place {
    const LineInk* line;
    int x, y;
  };
  CellPitch pitch_;
  std::vector<Place> places_;
  Size size_;
};

/// One letter, ready to be painted.
struct ReadyLetter {
  std::string name;
  BitPlane ink;
  BitPlane cells;     ///< Of its one region; of the largest where it could not be made one.
  bool isOne = true;  ///< Whether its cells are one region.
};

struct JoinedLetters {
  std::vector<ReadyLetter> letters;       ///< In the order of reading.
  std::vector<std::vector<Square>> bars;  ///< After each letter: boxes of pixels that lead on from it.
};

/// Each letter thick enough, and joined to the next; the lines joined where they are nearest.
JoinedLetters joinLetters(const WordLayout::Letters& letters, const CellPitch& pitch);
/// The letters as they are.
JoinedLetters plainLetters(const WordLayout::Letters& letters);
/// Whether all letters of this name can be made one region each.
bool canBeWhole(const WordLayout::Letters& letters, const std::string& name, const CellPitch& pitch);

}  // namespace gridwright
