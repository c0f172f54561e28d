// The steps of a sheet: what each of them changed, small enough to keep thousands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/geometry.h"

namespace gridwright {

/// What the colours of a sheet mean to a maze: what they mean when the program starts, or what they meant in
/// the drawing that came onto the sheet.
enum class Meaning : std::uint8_t { ofTheStart, ofTheDrawing };

/// What a step goes from or to.
struct SheetState {
  Size size;
  Meaning meaning = Meaning::ofTheStart;
};

/// A step holds the inks before it and after it as one plane of differences, from which either is got from
/// the other, packed by runs: what has not changed costs next to nothing.
class SheetSteps {
 public:
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  explicit SheetSteps(std::size_t mostBytes) : mostBytes_(mostBytes) {}

  /// A step was made; what had been taken back before it can be had no more.
  /// \param part holds all that differs, where both are of one size.
  /// \returns whether anything differs: nothing is kept else.
  bool add(const Bitmap& before, const Bitmap& after, const Square& part, Meaning was, Meaning is);

  [[nodiscard]] bool canUndo() const { return present_ > 0; }
  [[nodiscard]] bool canRedo() const { return present_ < steps_.size(); }
  /// Brings the picture to what it was before the last step, or after the next one. There must be one.
  /// \returns what may have changed.
  Square undo(Bitmap& picture, Meaning& meaning) {
    return cross(picture, meaning, steps_[--present_], false);
  }
  Square redo(Bitmap& picture, Meaning& meaning) { return cross(picture, meaning, steps_[present_++], true); }

  /// What is on the sheet now means this from now on, also when a step leads back to it.
  void setMeaning(Meaning meaning);

  [[nodiscard]] std::size_t bytes() const { return bytes_; }

 private:
  struct Step {
    SheetState before, after;
    Square part;
    std::vector<std::uint8_t> packed;
    [[nodiscard]] std::size_t bytes() const { return sizeof(Step) + packed.capacity(); }
  };
  static Square cross(Bitmap& picture, Meaning& meaning, const Step& step, bool forwards);

  std::size_t mostBytes_;
  std::deque<Step> steps_;
  std::size_t present_ = 0;  ///< How many of them stand on the sheet.
  std::size_t bytes_ = 0;
};

/// The picture at another size: cut, or filled up with paper.
Bitmap resized(const Bitmap& picture, Size size);
/// The number of a sheet's colour (tool.h).
int inkOf(Colour colour);

}  // namespace gridwright
