// The baseline: the trail through a maze by the plainest wall follower over pixels that finds one.
//
// One 32-bit plane, one pixel a step: to the left where that is open, else straight on, else it turns on the
// spot. A new cell gets a stroke from centre to centre, or loses the one it has. No colour sets, no pump, no
// second plane, no search, no play, no proof that it does not go round for ever.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/geometry.h"

namespace gridwright::bench {

class PlainFollower {
 public:
  struct Inks {
    Colour carved, start, finish;
  };

  /// A maze with both ends on it.
  PlainFollower(Bitmap maze, int wall, const Square& start, const Square& finish, const Inks& inks)
      : maze_(std::move(maze)), pixels_(maze_), wall_(wall), start_(start), finish_(finish), inks_(inks) {}

  /// Walks from the start to the finish of its maze. \returns how many pixels it went.
  int follow() { return follow(maze_.pixels); }

  /// The same in another maze of the size, with both ends on it.
  template <typename Pixels>
  int follow(const Pixels& maze) {
    std::copy(maze.begin(), maze.end(), pixels_.pixels.begin());
    left_ = start_.left;
    top_ = start_.top;
    int x = left_;  // in the cell's corner, so that there is a wall to follow
    int y = top_;
    int dx = 1;
    int dy = 0;
    int steps = 0;
    for (;;) {
      if (isWay(x + dy, y - dx)) {
        std::swap(dx, dy);
        dy = -dy;
      } else if (!isWay(x + dx, y + dy)) {
        std::swap(dx, dy);
        dx = -dx;
        continue;
      }
      x += dx;
      y += dy;
      ++steps;
      if (enterCell(x, y) && left_ == finish_.left && top_ == finish_.top) break;
    }
    strokeToFinish(dx, dy);
    return steps;
  }

  [[nodiscard]] const Bitmap& pixels() const { return pixels_; }

 private:
  [[nodiscard]] Colour& at(int x, int y) {
    return pixels_.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels_.width) +
                          static_cast<std::size_t>(x)];
  }
  [[nodiscard]] bool isWay(int x, int y) {
    const Colour pixel = at(x, y);
    return pixel == inks_.carved || pixel == inks_.start || pixel == inks_.finish;
  }
  void fill(int x1, int y1, int x2, int y2, Colour colour) {
    for (int y = std::min(y1, y2); y <= std::max(y1, y2); ++y) {
      for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x) at(x, y) = colour;
    }
  }
  void fill(const Square& box, Colour colour) { fill(box.left, box.top, box.right, box.bottom, colour); }

  /// \returns whether the pixel is in the next cell; then there is a stroke to it, or the one that was is
  /// gone.
  bool enterCell(int x, int y) {
    int left = left_;
    int top = top_;
    if (x > left_ + wall_ - 3) left += wall_;
    if (x < left_) left -= wall_;
    if (y > top_ + wall_ - 3) top += wall_;
    if (y < top_) top -= wall_;
    if (left == left_ && top == top_) return false;
    const int half = wall_ / 2 - 1;
    if (left != finish_.left || top != finish_.top) {
      const bool back = at(left + half, top + half) == inks_.start;
      fill(left_ + half, top_ + half, left + half, top + half, back ? inks_.carved : inks_.start);
      if (left == start_.left && top == start_.top) fill(start_, inks_.start);
    }
    left_ = left;
    top_ = top;
    return true;
  }

  /// The last stroke, which ends in the middle of the finish.
  void strokeToFinish(int dx, int dy) {
    const int half = wall_ / 2 - 1;
    fill(left_ - dx * wall_ + half, top_ - dy * wall_ + half, left_ + half, top_ + half, inks_.start);
    fill(start_, inks_.start);
  }

  Bitmap maze_, pixels_;
  int wall_;
  int left_ = 0, top_ = 0;
  Square start_, finish_;
  Inks inks_;
};

}  // namespace gridwright::bench
