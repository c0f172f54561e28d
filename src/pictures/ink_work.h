// What is asked of a library for fonts and drawings of lines: letters and stamps as planes of bits.
#pragma once

#include <string>
#include <vector>

#include "pictures/bit_plane.h"

namespace gridwright {

/// What a reader counts as one letter, and which columns of its line it takes, right excluded.
struct LetterExtent {
  std::string text;
  int left = 0, right = 0;
};

/// A line of text as ink with hard edges.
struct LineInk {
  BitPlane ink;                       ///< Just as large as the ink; 0 by 0 when there is none.
  int baseline = 0;                   ///< The row of the plane on which letters stand; it may lie outside.
  std::vector<LetterExtent> letters;  ///< In the order of reading, blanks left out.
  std::vector<std::string> missing;   ///< Letters that no font has; they are left out.
};

struct LetterFont {
  std::string name = "DejaVu Sans";  ///< One that is not there is replaced by the nearest.
  bool bold = true;
  int capital = 120;  ///< How high a capital stands, in pixels, 1 to 1000.
};

/// The same line, font and height give the same bits. Ink that would be more than `kInkSide` wide or high is
/// cut off there.
class InkWork {
 public:
  static constexpr int kInkSide = 4000;

  virtual ~InkWork() = default;
  /// \param line UTF-8 without line feeds.
  virtual LineInk line(const std::string& line, const LetterFont& font) = 0;
  /// The names of the fonts that letters can be had in, sorted.
  virtual std::vector<std::string> fontNames() = 0;
  /// A stamp of this height, 1 to 1000 pixels, just as wide as its outline; 0 by 0 when there is none of that
  /// name.
  virtual BitPlane stamp(const std::string& name, int height) = 0;
};

}  // namespace gridwright
