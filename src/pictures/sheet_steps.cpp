#include "pictures/sheet_steps.h"

#include <algorithm>
#include <utility>

#include "canvas/cell_grid.h"
#include "pictures/pixel_walk.h"
#include "pictures/tool.h"

namespace gridwright {

namespace {

/// Packed, a run is one byte, the difference in its high half and the length in its low one, 1 to 15; a
/// length of 0 is followed by the length in bytes of seven bits, lowest first, the highest bit set in all but
/// the last.
class Packer {
 public:
  void add(int difference, std::uint32_t length) {
    if (difference != difference_) {
      flush();
      difference_ = difference;
      length_ = 0;
    }
    length_ += length;
  }
  std::vector<std::uint8_t> packed() {
    flush();
    packed_.shrink_to_fit();
    return std::move(packed_);
  }

 private:
  void flush() {
    if (length_ == 0) return;
    const bool isShort = length_ < 16;
    packed_.push_back(
        static_cast<std::uint8_t>(difference_ << 4 | (isShort ? static_cast<int>(length_) : 0)));
    for (std::uint32_t rest = isShort ? 0 : length_; rest != 0; rest >>= 7)
      packed_.push_back(static_cast<std::uint8_t>((rest & 0x7F) | (rest > 0x7F ? 0x80 : 0)));
  }

  std::vector<std::uint8_t> packed_;
  int difference_ = 0;
  std::uint32_t length_ = 0;
};

/// Calls `take` with each difference and how often it comes.
template <class Take>
void unpack(const std::vector<std::uint8_t>& packed, Take take) {
  for (std::size_t i = 0; i < packed.size();) {
    const int difference = packed[i] >> 4;
    std::uint32_t length = packed[i++] & 0xF;
    for (unsigned shift = 0; length == 0 || shift > 0; shift += 7) {
      length |= static_cast<std::uint32_t>(packed[i] & 0x7F) << shift;
      if ((packed[i++] & 0x80) == 0) break;
    }
    take(difference, length);
  }
}

Square wholeOf(Size size) { return {0, 0, size.width - 1, size.height - 1}; }

Size larger(Size one, Size other) {
  return {std::max(one.width, other.width), std::max(one.height, other.height)};
}

std::vector<std::uint8_t> packedDifference(const Bitmap& before, const Bitmap& after, const Square& part) {
  Packer packer;
  for (int y = part.top; y <= part.bottom; ++y) {
    const Colour* const one = before.row(y);
    const Colour* const other = after.row(y);
    for (int x = part.left; x <= part.right;) {
      const int begin = x;
      const Colour was = one[x];
      const Colour is = other[x];
      while (x <= part.right && one[x] == was && other[x] == is) ++x;
      packer.add(was == is ? 0 : inkOf(was) ^ inkOf(is), static_cast<std::uint32_t>(x - begin));
    }
  }
  return packer.packed();
}

/// The smallest square of a part that holds all that differs.
Square differing(const Bitmap& before, const Bitmap& after, const Square& part) {
  Square box{part.right + 1, part.bottom + 1, part.left - 1, part.top - 1};
  for (int y = part.top; y <= part.bottom; ++y) {
    const Colour* const one = before.row(y);
    const Colour* const other = after.row(y);
    int x = part.left;
    while (x <= part.right && one[x] == other[x]) ++x;
    if (x > part.right) continue;
    int last = part.right;
    while (one[last] == other[last]) --last;
    box.left = std::min(box.left, x);
    box.right = std::max(box.right, last);
    box.top = std::min(box.top, y);
    box.bottom = y;
  }
  return box;
}

}  // namespace

int inkOf(Colour colour) {
  const auto* const found = std::find(kPalette.begin(), kPalette.end() - 1, colour);
  return static_cast<int>(found - kPalette.begin());  // paper stands in the place of white, at the end
}

Bitmap resized(const Bitmap& picture, Size size) {
  if (Size{picture.width, picture.height} == size) return picture;
  Bitmap other = plainBitmap(size.width, size.height, kPaper);
  const int width = std::min(size.width, picture.width);
  for (int y = 0; y < std::min(size.height, picture.height); ++y)
    std::copy_n(picture.row(y), width, other.pixels.begin() + std::ptrdiff_t{y} * size.width);
  return other;
}

bool SheetSteps::add(const Bitmap& before, const Bitmap& after, const Square& part, Meaning was, Meaning is) {
  Step step{{{before.width, before.height}, was}, {{after.width, after.height}, is}, part, {}};
  if (step.before.size == step.after.size) {
    step.part = differing(before, after, part);
    if (step.part.left > step.part.right) {
      if (was == is) return false;
      step.part = {};
    }
    step.packed = packedDifference(before, after, step.part);
  } else {
    const Size both = larger(step.before.size, step.after.size);
    step.part = wholeOf(both);
    step.packed = packedDifference(resized(before, both), resized(after, both), step.part);
  }
  for (; canRedo(); steps_.pop_back()) bytes_ -= steps_.back().bytes();
  bytes_ += step.bytes();
  steps_.push_back(std::move(step));
  for (; bytes_ > mostBytes_; steps_.pop_front()) bytes_ -= steps_.front().bytes();
  present_ = steps_.size();
  return true;
}

void SheetSteps::setMeaning(Meaning meaning) {
  if (canUndo()) steps_[present_ - 1].after.meaning = meaning;
  if (canRedo()) steps_[present_].before.meaning = meaning;
}

Square SheetSteps::cross(Bitmap& picture, Meaning& meaning, const Step& step, bool forwards) {
  const SheetState& state = forwards ? step.after : step.before;
  meaning = state.meaning;
  picture = resized(picture, larger(step.before.size, step.after.size));
  Corner at{step.part.left, step.part.top};
  Colour* row = picture.pixels.data() + placeOf({picture.width, picture.height}, 0, at.y);
  unpack(step.packed, [&](int difference, std::uint32_t length) {
    while (length > 0) {
      const auto here = std::min(length, static_cast<std::uint32_t>(step.part.right - at.x + 1));
      const int end = at.x + static_cast<int>(here);
      for (int x = at.x; difference != 0 && x < end; ++x) row[x] = colourOfInk(inkOf(row[x]) ^ difference);
      length -= here;
      at.x = end;
      if (at.x <= step.part.right) continue;
      at.x = step.part.left;
      row += picture.width;
    }
  });
  if (step.before.size == step.after.size) return step.part;
  picture = resized(picture, state.size);
  return wholeOf(state.size);
}

}  // namespace gridwright
