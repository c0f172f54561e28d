// The baseline: a perfect maze by the plainest walk over pixels that makes one.
//
// Carve into 32-bit pixels while a free neighbour exists, one sample a test; else step at random over
// carved cells until a free one is stepped on. No colour sets, no patterns, no pump, no second plane.
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace gridwright::bench {

class PlainWalk {
 public:
  PlainWalk(int width, int height, int wall) : width_(width), height_(height), wall_(wall) {}

  /// Carves a whole maze. \returns how many cells were carved.
  int carve(std::uint32_t seed) {
    chance_.seed(seed);
    pixels_.assign(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), kFree);
    for (int x = 0; x < width_; ++x) fill(x, 0, x, wall_ - 1, kBorder);
    for (int y = 0; y < height_; ++y) fill(0, y, wall_ - 1, y, kBorder);
    int left = cells() - 1;
    x_ = y_ = wall_ + 1;
    fill(x_, y_, x_ + wall_ - 3, y_ + wall_ - 3, kCarved);
    while (left > 0) {
      if (hasFreeNeighbour()) {
        std::size_t d = 0;
        do {
          d = direction();
        } while (at(x_ + kX[d] * wall_, y_ + kY[d] * wall_) != kFree);
        join(d);
        --left;
        continue;
      }
      const std::size_t d = direction();
      const std::uint32_t ahead = at(x_ + kX[d] * wall_, y_ + kY[d] * wall_);
      if (ahead == kBorder) continue;
      if (ahead == kFree) {
        join(d);
        --left;
      } else {
        step(d);
      }
    }
    return cells();
  }

  [[nodiscard]] int columns() const { return width_ / wall_ - 1; }
  [[nodiscard]] int rows() const { return height_ / wall_ - 1; }
  [[nodiscard]] int cells() const { return columns() * rows(); }
  [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return pixels_; }

  static constexpr std::uint32_t kFree = 0x800000, kCarved = 0xFFFFFF, kBorder = 0xFF0000;
  static constexpr std::uint32_t kStart = 0xFF00FF, kFinish = 0x0000FF;

  /// Puts a start into the first cell and a finish into the last. \returns their left and top.
  std::pair<int, int> putEnds() {
    const int first = wall_ + 1;
    const int right = columns() * wall_ + 1;
    const int bottom = rows() * wall_ + 1;
    fill(first, first, first + wall_ - 3, first + wall_ - 3, kStart);
    fill(right, bottom, right + wall_ - 3, bottom + wall_ - 3, kFinish);
    return {right, bottom};
  }

 private:
  static constexpr std::array<int, 4> kX = {-1, 1, 0, 0}, kY = {0, 0, -1, 1};

  std::size_t direction() { return chance_() & 3U; }
  [[nodiscard]] std::uint32_t at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return kBorder;
    return pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x)];
  }
  void fill(int x1, int y1, int x2, int y2, std::uint32_t colour) {
    for (int y = y1; y <= y2; ++y) {
      for (int x = x1; x <= x2; ++x) {
        pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                static_cast<std::size_t>(x)] = colour;
      }
    }
  }
  [[nodiscard]] bool hasFreeNeighbour() const {
    for (std::size_t d = 0; d < 4; ++d) {
      if (at(x_ + kX[d] * wall_, y_ + kY[d] * wall_) == kFree) return true;
    }
    return false;
  }
  void step(std::size_t d) {
    x_ += kX.at(d) * wall_;
    y_ += kY.at(d) * wall_;
  }
  void join(std::size_t d) {
    const int fromX = x_;
    const int fromY = y_;
    step(d);
    fill(std::min(fromX, x_), std::min(fromY, y_), std::max(fromX, x_) + wall_ - 3,
         std::max(fromY, y_) + wall_ - 3, kCarved);
  }

  int width_, height_, wall_;
  int x_ = 0, y_ = 0;
  std::mt19937 chance_;
  std::vector<std::uint32_t> pixels_;
};

}  // namespace gridwright::bench
