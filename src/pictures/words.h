// Words as ink: letters with hard edges, thick enough for a maze, joined so that one way leads through all of
// them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/cell_grid.h"
#include "pictures/ink_work.h"
#include "pictures/tool.h"

namespace gridwright {

inline constexpr int kMostLetters =
    60;  ///< Of a text; what comes after them is left out, and the note says so.

struct WordSettings {
  std::string text;  ///< UTF-8; a line feed begins a line.
  std::string font = "DejaVu Sans";
  bool bold = true;
  std::optional<int> height = 12;  ///< Of a capital, in cells; nothing: as large as the ground holds.
  std::optional<int> colour = 1;   ///< An ink; nothing: the letters in turn take `WordGround::turns`.
  bool join = true;                ///< Thicken letters and join each to the next, line to line too.
  bool frame = false;              ///< Two cells thick, two cells away.
};

/// What the words are to stand on.
struct WordGround {
  Size size;
  CellPitch pitch;
  std::vector<int> turns;       ///< The inks that a maze fills, for letters in turn; paper is none.
  int frameInk = 9;             ///< An ink that a maze does not fill.
  int margin = 1;               ///< Cells of paper all round that "as large as the ground holds" leaves.
  std::optional<Corner> place;  ///< Of the upper left painted pixel; nothing: the middle.
};

struct WordInk {
  Bitmap picture;    ///< Paper where there is no ink; empty when there is nothing to paint.
  Corner at;         ///< Where its upper left pixel belongs. Moved by whole cells it stays one region.
  std::string note;  ///< What could not be done, letter by letter; empty when all could.
};

/// Words made ready for a place. With `join` the cells of all ink are one region, save those of letters that
/// the note names.
WordInk makeWords(const WordSettings& settings, const WordGround& ground, InkWork& work);

}  // namespace gridwright
