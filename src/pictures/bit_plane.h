// A plane of bits: which pixels are ink, which belong to a flood.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "canvas/geometry.h"

namespace gridwright {

/// Rows of 64 bits a word, the first pixel lowest. Bits beyond the width are always 0.
class BitPlane {
 public:
  using Word = std::uint64_t;
  static constexpr int kWordBits = 64;

  BitPlane() = default;
  explicit BitPlane(Size size);

  [[nodiscard]] Size size() const { return size_; }
  [[nodiscard]] int width() const { return size_.width; }
  [[nodiscard]] int height() const { return size_.height; }
  [[nodiscard]] std::size_t wordsInRow() const { return words_; }
  [[nodiscard]] const Word* row(int y) const { return bits_.data() + static_cast<std::size_t>(y) * words_; }
  [[nodiscard]] Word* row(int y) { return bits_.data() + static_cast<std::size_t>(y) * words_; }

  /// Outside nothing is set.
  [[nodiscard]] bool at(int x, int y) const {
    return x >= 0 && y >= 0 && x < size_.width && y < size_.height &&
           (row(y)[x / kWordBits] >> (x % kWordBits) & 1) != 0;
  }
  /// What lies outside is left out.
  void set(int x, int y) { setSpan(y, x, x); }
  /// From `left` to `right`, both included; left out where outside.
  void setSpan(int y, int left, int right) { span(y, left, right, true); }
  void clearSpan(int y, int left, int right) { span(y, left, right, false); }
  void setBox(const Square& box);

  /// The first column from `x` on, in this row, whose bit is set or clear as asked; the width when there is
  /// none.
  [[nodiscard]] int next(int y, int x, bool wanted) const;
  /// The last one before `x`, or -1.
  [[nodiscard]] int previous(int y, int x, bool wanted) const;
  /// Whether all bits of a box are set; a box that is outside in part has none there.
  [[nodiscard]] bool all(const Square& box) const;
  [[nodiscard]] bool any(const Square& box) const;

  [[nodiscard]] std::int64_t count() const;
  /// The smallest square that holds all that is set; right less than left when nothing is.
  [[nodiscard]] Square bounds() const;

  /// Of planes of one size.
  BitPlane& operator|=(const BitPlane& other);
  BitPlane& operator&=(const BitPlane& other);
  BitPlane& without(const BitPlane& other);
  friend bool operator==(const BitPlane&, const BitPlane&) = default;

  /// A part of it; what lies outside is clear.
  [[nodiscard]] BitPlane cut(const Square& part) const;
  /// Sets what is set in another plane, laid with its upper left at a place.
  void lay(const BitPlane& other, int x, int y);

  /// Where the upper left of a box of this size lies all of which is set.
  [[nodiscard]] BitPlane boxesThatFit(Size box) const;
  /// What boxes of this size cover whose upper left is set.
  [[nodiscard]] BitPlane coveredByBoxes(Size box) const;

 private:
  void span(int y, int left, int right, bool value);

  Size size_{};
  std::size_t words_ = 0;
  std::vector<Word> bits_;
};

/// What hangs together by sides, in `ground`, with any pixel of ground that is set in `seeds`.
BitPlane floodedFrom(const BitPlane& ground, const BitPlane& seeds);
BitPlane floodedFrom(const BitPlane& ground, int x, int y);

/// Calls `take` with y, left and right, both included, of each run of set bits.
template <class Take>
void forRuns(const BitPlane& plane, Take take) {
  for (int y = 0; y < plane.height(); ++y) {
    for (int x = plane.next(y, 0, true); x < plane.width();) {
      const int end = plane.next(y, x, false);
      take(y, x, end - 1);
      x = plane.next(y, end, true);
    }
  }
}

}  // namespace gridwright
