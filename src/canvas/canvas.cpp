#include "canvas/canvas.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace gridwright {

namespace {

/// Most pictures are painted over the like: to look is less than to write.
void putRow(Colour* to, const Colour* from, int columns) {
  if (!std::equal(from, from + columns, to)) std::copy_n(from, columns, to);
}

}  // namespace

Canvas::Canvas()
    : persistent_(static_cast<std::size_t>(kSide) * kSide, qb::white),
      shown_(persistent_),
      plane_(persistent_.data()) {}

void Canvas::resize(Size size) {
  width_ = std::clamp(size.width, 1, kSide);
  height_ = std::clamp(size.height, 1, kSide);
  touch(0, 0, width_ - 1, height_ - 1);
}

void Canvas::fill(int x1, int y1, int x2, int y2, Colour colour) {
  const int left = std::max(std::min(x1, x2), 0);
  const int top = std::max(std::min(y1, y2), 0);
  const int right = std::min(std::max(x1, x2), kSide - 1);
  const int bottom = std::min(std::max(y1, y2), kSide - 1);
  if (left > right || top > bottom) return;
  const Colour ink = (colour & kColourBits) | kCovered;
  const auto run = static_cast<std::size_t>(right - left) + 1;
  for (int y = top; y <= bottom; ++y) {
    std::fill_n(shown_.data() + index(left, y), run, ink);
    if (autoRedraw_) std::fill_n(persistent_.data() + index(left, y), run, ink);
  }
  touch(left, top, right, bottom);
  if (autoRedraw_) noteKept(left, top, right, bottom);
}

void Canvas::line(int x1, int y1, int x2, int y2, Colour colour) {
  if (x1 == x2 && y1 == y2) return;
  if (y1 == y2) {
    fill(x1, y1, x2 > x1 ? x2 - 1 : x2 + 1, y2, colour);
  } else {
    fill(x1, y1, x2, y2 > y1 ? y2 - 1 : y2 + 1, colour);
  }
}

void Canvas::outline(int x1, int y1, int x2, int y2, Colour colour) {
  fill(x1, y1, x2, y1, colour);
  fill(x1, y2, x2, y2, colour);
  fill(x1, y1, x1, y2, colour);
  fill(x2, y1, x2, y2, colour);
}

void Canvas::cls() {
  if (autoRedraw_) {
    std::fill(persistent_.begin(), persistent_.end(), backColor_ & kColourBits);
    noteKept(0, 0, kSide - 1, kSide - 1);
  }
  shown_ = persistent_;  // same size: copies in place
  touch(0, 0, kSide - 1, kSide - 1);
}

void Canvas::paintPicture(const BitmapView& source) {
  const int columns = std::min(source.width, kSide);
  const int rows = std::min(source.height, kSide);
  if (columns <= 0 || rows <= 0) return;
  std::array<Colour, kSide> ink{};
  for (int y = 0; y < rows; ++y) {
    const Colour* in = source.row(y);
    if (y == 0 || in != source.row(y - 1)) {
      for (int x = 0; x < columns; ++x) ink[static_cast<std::size_t>(x)] = (in[x] & kColourBits) | kCovered;
    }
    putRow(shown_.data() + index(0, y), ink.data(), columns);
    if (autoRedraw_) putRow(persistent_.data() + index(0, y), ink.data(), columns);
  }
  touch(0, 0, columns - 1, rows - 1);
  if (autoRedraw_) noteKept(0, 0, columns - 1, rows - 1);
}

void Canvas::setPicture(const BitmapView& picture) {
  const int columns = std::min(picture.width, kSide);
  const int rows = std::min(picture.height, kSide);
  const Colour ground = backColor_ & kColourBits;
  for (int y = 0; y < kSide; ++y) {
    Colour* row = persistent_.data() + index(0, y);
    const int covered = y < rows ? columns : 0;
    const Colour* in = covered > 0 ? picture.row(y) : nullptr;
    for (int x = 0; x < covered; ++x) row[x] = (in[x] & kColourBits) | kCovered;
    std::fill(row + covered, row + kSide, ground);
  }
  shown_ = persistent_;
  touch(0, 0, kSide - 1, kSide - 1);
  noteKept(0, 0, kSide - 1, kSide - 1);
}

void Canvas::setBackColor(Colour colour) {
  if (colour == backColor_) return;
  backColor_ = colour;
  const Colour ground = colour & kColourBits;
  for (auto* plane : {&persistent_, &shown_}) {
    for (Colour& pixel : *plane) {
      if ((pixel & kCovered) == 0) pixel = ground;
    }
  }
  touch(0, 0, kSide - 1, kSide - 1);
  noteKept(0, 0, kSide - 1, kSide - 1);
}

Colour Canvas::shownPoint(int x, int y) const {
  if (!inside(x, y)) return kOutside;
  return shown_[index(x, y)] & kColourBits;
}

bool Canvas::showsAnything() const {
  const Colour first = colourOf(persistent_[0]);
  for (int y = 0; y < height_; ++y) {
    const Colour* row = persistent_.data() + index(0, y);
    if (std::any_of(row, row + width_, [&](Colour pixel) { return colourOf(pixel) != first; })) return true;
  }
  return false;
}

BitmapView Canvas::wholeView() const {
  const Colour ground = backColor_ & kColourBits;
  const auto shows = [&](Colour pixel) { return colourOf(pixel) != ground; };
  int width = width_, height = height_;
  for (int y = 0; y < kSide; ++y) {
    const auto row = persistent_.begin() + static_cast<std::ptrdiff_t>(index(0, y));
    const auto end = row + kSide;
    const auto last =
        std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(row + width), shows);
    width = static_cast<int>(last.base() - row);
    if (y >= height && std::any_of(row, row + width, shows)) height = y + 1;
  }
  return {width, height, persistent_.data(), kSide};
}

void Canvas::touch(int left, int top, int right, int bottom) {
  widen(dirty_, left, top, right, bottom);
  widen(painted_, left, top, right, bottom);
  ++changes_;
}

void Canvas::widen(Dirty& part, int left, int top, int right, int bottom) {
  if (part.empty()) {
    part = {left, top, right + 1, bottom + 1};
    return;
  }
  part.left = std::min(part.left, left);
  part.top = std::min(part.top, top);
  part.right = std::max(part.right, right + 1);
  part.bottom = std::max(part.bottom, bottom + 1);
}

// Two strokes of a sweep are one box, a square and its mirrors four: what lies between them is not looked at.
void Canvas::noteKept(int left, int top, int right, int bottom) {
  ++keptChanges_;
  const auto area = [](const Dirty& box) { return (box.right - box.left) * (box.bottom - box.top); };
  const Dirty added{left, top, right + 1, bottom + 1};
  for (std::size_t i = 0; i < kept_.count; ++i) {
    Dirty& box = kept_.boxes[i];
    Dirty both = box;
    widen(both, left, top, right, bottom);
    if (area(both) > area(box) + area(added)) continue;
    box = both;
    return;
  }
  if (kept_.count < kept_.boxes.size()) {
    kept_.boxes[kept_.count++] = added;
    return;
  }
  Dirty& all = kept_.boxes[0];
  for (const Dirty& box : kept_.boxes) widen(all, box.left, box.top, box.right - 1, box.bottom - 1);
  widen(all, left, top, right, bottom);
  kept_.count = 1;
}

Canvas::KeptBoxes Canvas::takeKept() {
  const KeptBoxes taken = kept_;
  kept_.count = 0;
  return taken;
}

Bitmap Canvas::imageOnGround(Colour ground) const {
  Bitmap picture = image();
  for (int y = 0; y < picture.height; ++y) {
    const Colour* const kept = keptRow(y);
    Colour* const row = picture.pixels.data() + std::ptrdiff_t{y} * picture.width;
    for (int x = 0; x < picture.width; ++x) {
      if ((kept[x] & kCovered) == 0) row[x] = ground;
    }
  }
  return picture;
}

void Canvas::putBack(const Dirty& box, const Colour* pixels) {
  if (box.empty()) return;
  const auto run = static_cast<std::size_t>(box.right - box.left);
  for (int y = box.top; y < box.bottom; ++y, pixels += run) {
    std::copy_n(pixels, run, persistent_.data() + index(box.left, y));
    std::copy_n(pixels, run, shown_.data() + index(box.left, y));
  }
  touch(box.left, box.top, box.right - 1, box.bottom - 1);
  noteKept(box.left, box.top, box.right - 1, box.bottom - 1);
}

Canvas::Dirty Canvas::takePainted() {
  const Dirty taken = painted_;
  painted_ = {};
  return taken;
}

Canvas::Dirty Canvas::takeDirty() {
  Dirty taken = dirty_;
  dirty_ = {};
  taken.right = std::min(taken.right, width_);
  taken.bottom = std::min(taken.bottom, height_);
  return taken;
}

}  // namespace gridwright
