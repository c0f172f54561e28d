#include "canvas/colour_sets.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace gridwright {

namespace {
constexpr Colour kNobody = std::numeric_limits<Colour>::min();  // an empty place of the table
}

ColourSets::ColourSets() {
  for (int slot = 0; slot < kSlots; ++slot) {
    background_[static_cast<std::size_t>(slot)] = 301 + 2 * slot;
    border_[static_cast<std::size_t>(slot)] = kPalette[static_cast<std::size_t>(slot)];
  }
  maze_.fill(kPalette[15]);
  extraBackground_ = kNoGreen;
  rebuild();
}

void ColourSets::setMaze(int slot, Colour colour) {
  Colour& member = maze_[static_cast<std::size_t>(slot)];
  if (member == colour) return;
  member = colour;
  rebuild();
}

void ColourSets::setAllMaze(Colour colour) {
  maze_.fill(colour);
  rebuild();
}

void ColourSets::classify(int slot, bool isBackground) {
  const auto i = static_cast<std::size_t>(slot);
  const Colour asBackground = isBackground ? kPalette[i] : 301 + 2 * slot;
  const Colour asBorder = isBackground ? 300 + 2 * slot : kPalette[i];
  if (background_[i] == asBackground && border_[i] == asBorder) return;
  background_[i] = asBackground;
  border_[i] = asBorder;
  rebuild();
}

void ColourSets::makeFrameBorder(int slot) {
  const auto i = static_cast<std::size_t>(slot);
  border_[i] = kPalette[i];
  background_[i] = slot == 0 ? 302 : 301 + 2 * slot;
  rebuild();
}

void ColourSets::setExtraBackgroundByRule() {
  setExtraBackground(background_[2] == kPalette[2] ? kDarkGreen : kNoGreen);
}

void ColourSets::setExtraBackground(Colour colour) {
  if (extraBackground_ == colour) return;
  extraBackground_ = colour;
  rebuild();
}

// Looks for a multiplier that sends all members to places of their own, so that a lookup is one
// multiplication and one comparison. With at most 49 members in 1024 places a few tries do.
void ColourSets::rebuild() {
  ++revision_;
  while (!fits()) multiplier_ = multiplier_ * 1664525U + 1013904223U;
}

bool ColourSets::fits() {
  table_.fill({kNobody, 0});
  const auto add = [this](Colour colour, std::uint8_t bit) {
    Entry& entry = table_[place(colour)];
    if (entry.colour != kNobody && entry.colour != colour) return false;
    entry.colour = colour;
    entry.bits = static_cast<std::uint8_t>(entry.bits | bit);
    return true;
  };
  for (std::size_t i = 0; i < kSlots; ++i) {
    if (!add(maze_[i], kMaze) || !add(background_[i], kBackground) || !add(border_[i], kBorder)) return false;
  }
  return add(extraBackground_, kBackground);
}

/// Whether pixels in a row are equal, the mark of a stroke included: each is its neighbour.
bool allAlike(const Colour* row, std::size_t width) {
  return std::memcmp(row, row + 1, (width - 1) * sizeof(Colour)) == 0;
}

template <class Test>
bool Pixels::all(int left, int top, int right, int bottom, Test test) const {
  if (!canvas_.inside(left, top) || !canvas_.inside(right, bottom)) return false;
  // Most boxes that fail hold a carved cell, which fails at its middle. Most that pass are of one colour:
  // a row that equals the one before it needs no look at its pixels.
  if (!test(canvas_.point((left + right) / 2, (top + bottom) / 2))) return false;
  const auto width = static_cast<std::size_t>(right - left) + 1;
  const auto passes = [&](Colour raw) { return test(Canvas::colourOf(raw)); };
  const Colour* above = nullptr;
  for (int y = top; y <= bottom; ++y) {
    const Colour* row = canvas_.row(left, y);
    Canvas::noteReads(width);
    if (above == nullptr || std::memcmp(above, row, width * sizeof(Colour)) != 0) {
      if (!allAlike(row, width) && !std::all_of(row, row + width, passes)) return false;
      if (!passes(row[0])) return false;
    }
    above = row;
  }
  return true;
}

bool Pixels::allFree(int left, int top, int right, int bottom, Colour barred) const {
  return all(left, top, right, bottom, [&](Colour pixel) { return sets_.isFree(pixel) && pixel != barred; });
}

bool Pixels::allCarved(int left, int top, int right, int bottom) const {
  return all(left, top, right, bottom,
             [&](Colour pixel) { return sets_.isMaze(pixel) || pixel == kCursorColour; });
}

bool Pixels::allGround(int left, int top, int right, int bottom) const {
  return all(left, top, right, bottom, [&](Colour pixel) { return !sets_.isNoGround(pixel); });
}

bool Pixels::allGroundOrCursor(int left, int top, int right, int bottom) const {
  return all(left, top, right, bottom,
             [&](Colour pixel) { return !sets_.isNoGround(pixel) || pixel == kCursorColour; });
}

}  // namespace gridwright
