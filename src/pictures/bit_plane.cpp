#include "pictures/bit_plane.h"

#include <algorithm>

namespace gridwright {

namespace {

using Word = BitPlane::Word;

/// The bits from `low` to `high` of a word, both included.
Word bitsBetween(int low, int high) { return (~Word{0} >> (63 - high)) & (~Word{0} << low); }

/// Where bit x of the result is bit x + by of the row.
void shiftDown(const Word* from, Word* to, std::size_t words, int by) {
  const auto whole = static_cast<std::size_t>(by / BitPlane::kWordBits);
  const int rest = by % BitPlane::kWordBits;
  for (std::size_t i = 0; i < words; ++i) {
    const Word low = i + whole < words ? from[i + whole] : 0;
    const Word high = i + whole + 1 < words ? from[i + whole + 1] : 0;
    to[i] = rest == 0 ? low : low >> rest | high << (BitPlane::kWordBits - rest);
  }
}

void shiftUp(const Word* from, Word* to, std::size_t words, int by) {
  const auto whole = static_cast<std::size_t>(by / BitPlane::kWordBits);
  const int rest = by % BitPlane::kWordBits;
  for (std::size_t i = words; i-- > 0;) {
    const Word high = i >= whole ? from[i - whole] : 0;
    const Word low = i >= whole + 1 ? from[i - whole - 1] : 0;
    to[i] = rest == 0 ? high : high << rest | low >> (BitPlane::kWordBits - rest);
  }
}

/// Joins a row, or a plane of rows, with itself shifted, in as few steps as doubling takes.
template <class Step>
void byDoubling(int length, Step step) {
  for (int covered = 1; covered < length;) {
    const int by = std::min(covered, length - covered);
    step(by);
    covered += by;
  }
}

}  // namespace

BitPlane::BitPlane(Size size)
    : size_(size), words_((static_cast<std::size_t>(size.width) + kWordBits - 1) / kWordBits) {
  bits_.assign(words_ * static_cast<std::size_t>(size.height), 0);
}

void BitPlane::span(int y, int left, int right, bool value) {
  left = std::max(left, 0);
  right = std::min(right, size_.width - 1);
  if (y < 0 || y >= size_.height || left > right) return;
  Word* const words = row(y);
  const int first = left / kWordBits;
  const int last = right / kWordBits;
  for (int i = first; i <= last; ++i) {
    const Word bits =
        bitsBetween(i == first ? left % kWordBits : 0, i == last ? right % kWordBits : kWordBits - 1);
    words[i] = value ? words[i] | bits : words[i] & ~bits;
  }
}

void BitPlane::setBox(const Square& box) {
  for (int y = std::max(box.top, 0); y <= std::min(box.bottom, size_.height - 1); ++y)
    setSpan(y, box.left, box.right);
}

int BitPlane::next(int y, int x, bool wanted) const {
  const Word* const words = row(y);
  const Word flip = wanted ? 0 : ~Word{0};
  if (x >= size_.width) return size_.width;
  Word rest = (words[x / kWordBits] ^ flip) & (~Word{0} << (x % kWordBits));
  for (auto i = static_cast<std::size_t>(x / kWordBits);;) {
    if (rest != 0) return std::min(size_.width, static_cast<int>(i) * kWordBits + std::countr_zero(rest));
    if (++i == words_) return size_.width;
    rest = words[i] ^ flip;
  }
}

int BitPlane::previous(int y, int x, bool wanted) const {
  if (x <= 0) return -1;
  const Word* const words = row(y);
  const Word flip = wanted ? 0 : ~Word{0};
  int i = (x - 1) / kWordBits;
  Word rest = (words[i] ^ flip) & bitsBetween(0, (x - 1) % kWordBits);
  for (;;) {
    if (rest != 0) return i * kWordBits + kWordBits - 1 - std::countl_zero(rest);
    if (--i < 0) return -1;
    rest = words[i] ^ flip;
  }
}

bool BitPlane::all(const Square& box) const {
  if (box.left < 0 || box.top < 0 || box.right >= size_.width || box.bottom >= size_.height) return false;
  for (int y = box.top; y <= box.bottom; ++y) {
    if (next(y, box.left, false) <= box.right) return false;
  }
  return true;
}

bool BitPlane::any(const Square& box) const {
  const int left = std::max(box.left, 0);
  const int right = std::min(box.right, size_.width - 1);
  for (int y = std::max(box.top, 0); y <= std::min(box.bottom, size_.height - 1); ++y) {
    if (left <= right && next(y, left, true) <= right) return true;
  }
  return false;
}

std::int64_t BitPlane::count() const {
  std::int64_t number = 0;
  for (const Word word : bits_) number += std::popcount(word);
  return number;
}

Square BitPlane::bounds() const {
  Square box{size_.width, size_.height, -1, -1};
  for (int y = 0; y < size_.height; ++y) {
    const int left = next(y, 0, true);
    if (left == size_.width) continue;
    box.left = std::min(box.left, left);
    box.right = std::max(box.right, previous(y, size_.width, true));
    box.top = std::min(box.top, y);
    box.bottom = y;
  }
  return box;
}

BitPlane& BitPlane::operator|=(const BitPlane& other) {
  std::transform(bits_.begin(), bits_.end(), other.bits_.begin(), bits_.begin(), std::bit_or<>());
  return *this;
}

BitPlane& BitPlane::operator&=(const BitPlane& other) {
  std::transform(bits_.begin(), bits_.end(), other.bits_.begin(), bits_.begin(), std::bit_and<>());
  return *this;
}

BitPlane& BitPlane::without(const BitPlane& other) {
  std::transform(bits_.begin(), bits_.end(), other.bits_.begin(), bits_.begin(),
                 [](Word mine, Word theirs) { return mine & ~theirs; });
  return *this;
}

BitPlane BitPlane::cut(const Square& part) const {
  BitPlane plane({part.right - part.left + 1, part.bottom - part.top + 1});
  plane.lay(*this, -part.left, -part.top);
  return plane;
}

void BitPlane::lay(const BitPlane& other, int x, int y) {
  forRuns(other, [&](int row, int left, int right) { setSpan(row + y, left + x, right + x); });
}

BitPlane BitPlane::boxesThatFit(Size box) const {
  BitPlane plane = *this;
  std::vector<Word> shifted(words_);
  for (int y = 0; y < size_.height; ++y) {
    Word* const words = plane.row(y);
    byDoubling(box.width, [&](int by) {
      shiftDown(words, shifted.data(), words_, by);
      for (std::size_t i = 0; i < words_; ++i) words[i] &= shifted[i];
    });
  }
  byDoubling(box.height, [&](int by) {
    for (int y = 0; y < size_.height; ++y) {
      for (std::size_t i = 0; i < words_; ++i)
        plane.row(y)[i] &= y + by < size_.height ? plane.row(y + by)[i] : 0;
    }
  });
  return plane;
}

BitPlane BitPlane::coveredByBoxes(Size box) const {
  BitPlane plane = *this;
  std::vector<Word> shifted(words_);
  const Word last = size_.width % kWordBits == 0 ? ~Word{0} : bitsBetween(0, size_.width % kWordBits - 1);
  for (int y = 0; y < size_.height; ++y) {
    Word* const words = plane.row(y);
    byDoubling(box.width, [&](int by) {
      shiftUp(words, shifted.data(), words_, by);
      for (std::size_t i = 0; i < words_; ++i) words[i] |= shifted[i];
      words[words_ - 1] &= last;
    });
  }
  byDoubling(box.height, [&](int by) {
    for (int y = size_.height - 1; y >= by; --y) {
      for (std::size_t i = 0; i < words_; ++i) plane.row(y)[i] |= plane.row(y - by)[i];
    }
  });
  return plane;
}

namespace {

struct Run {
  int y, left, right;
};

/// Takes the run of ground at a place out of what is left, and remembers it.
void takeRun(const BitPlane& ground, BitPlane& flooded, std::vector<Run>& open, int y, int x) {
  const Run run{y, ground.previous(y, x, false) + 1, ground.next(y, x, false) - 1};
  flooded.setSpan(y, run.left, run.right);
  open.push_back(run);
}

/// Goes on from runs into those above and below that touch them. A run is whole or not flooded at all.
void floodOn(const BitPlane& ground, BitPlane& flooded, std::vector<Run>& open) {
  while (!open.empty()) {
    const Run run = open.back();
    open.pop_back();
    for (const int y : {run.y - 1, run.y + 1}) {
      if (y < 0 || y >= ground.height()) continue;
      for (int x = ground.next(y, run.left, true); x <= run.right;
           x = ground.next(y, ground.next(y, x, false), true)) {
        if (!flooded.at(x, y)) takeRun(ground, flooded, open, y, x);
      }
    }
  }
}

}  // namespace

BitPlane floodedFrom(const BitPlane& ground, const BitPlane& seeds) {
  BitPlane flooded(ground.size());
  std::vector<Run> open;
  BitPlane begin = seeds;
  begin &= ground;
  forRuns(begin, [&](int y, int left, int) {
    if (!flooded.at(left, y)) takeRun(ground, flooded, open, y, left);
  });
  floodOn(ground, flooded, open);
  return flooded;
}

BitPlane floodedFrom(const BitPlane& ground, int x, int y) {
  BitPlane seed(ground.size());
  seed.set(x, y);
  return floodedFrom(ground, seed);
}

}  // namespace gridwright
