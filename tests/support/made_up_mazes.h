// Mazes for pages that care little how a maze was made: a tree of corridors over a whole rectangle of cells,
// and the way through it.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/book/book_record.h"
#include "support/pictures.h"

namespace gridwright::test {

class MadeUpMaze {
 public:
  MadeUpMaze(int columns, int rows, int wall, std::uint32_t seed)
      : columns_(columns), rows_(rows), wall_(wall), from_(cells(), -1), chance_(seed) {
    picture_ = plainBitmap((columns + 1) * wall, (rows + 1) * wall, kNavy);
    fill(picture_, 0, 0, picture_.width, wall, kBlue);
    fill(picture_, 0, 0, wall, picture_.height, kBlue);
    carve();
  }

  /// Start in the first cell, finish in the last one that was reached, and a stroke from the one to the
  /// other.
  [[nodiscard]] book::MadeMaze made(int number) const {
    book::MadeMaze made;
    made.maze = picture_;
    square(made.maze, 0, kFuchsia);
    square(made.maze, last_, kRed);
    made.answer = made.maze;
    int length = 1;
    for (int cell = last_; cell != 0; cell = from_[at(cell)], ++length) {
      const auto [x1, y1] = middle(cell);
      const auto [x2, y2] = middle(from_[at(cell)]);
      fill(made.answer, std::min(x1, x2), std::min(y1, y2), std::abs(x1 - x2) + 2, std::abs(y1 - y2) + 2,
           kLime);
    }
    made.record.number = number;
    made.record.picture = "picture " + std::to_string(number);
    made.record.seed = 100U + static_cast<std::uint32_t>(number);
    made.record.width = picture_.width;
    made.record.height = picture_.height;
    made.record.cells = columns_ * rows_;
    made.record.wayLength = length;
    made.record.difficulty = 100.0 * length / (columns_ * rows_);
    return made;
  }

 private:
  [[nodiscard]] std::size_t cells() const { return at(columns_ * rows_); }
  static std::size_t at(int cell) { return static_cast<std::size_t>(cell); }
  static void fill(Bitmap& picture, int x, int y, int width, int height, Colour colour) {
    for (int v = y; v < y + height; ++v)
      for (int u = x; u < x + width; ++u) pixelAt(picture, u, v) = colour;
  }
  [[nodiscard]] std::pair<int, int> corner(int cell) const {
    return {(cell % columns_ + 1) * wall_ + 1, (cell / columns_ + 1) * wall_ + 1};
  }
  [[nodiscard]] std::pair<int, int> middle(int cell) const {
    const auto [x, y] = corner(cell);
    return {x + wall_ / 2 - 2, y + wall_ / 2 - 2};
  }
  void square(Bitmap& picture, int cell, Colour colour) const {
    const auto [x, y] = corner(cell);
    fill(picture, x, y, wall_ - 2, wall_ - 2, colour);
  }
  void join(int a, int b) {
    const auto [x1, y1] = corner(a);
    const auto [x2, y2] = corner(b);
    fill(picture_, std::min(x1, x2), std::min(y1, y2), std::abs(x1 - x2) + wall_ - 2,
         std::abs(y1 - y2) + wall_ - 2, kWhite);
  }
  [[nodiscard]] std::vector<int> freeBeside(int cell) const {
    const int x = cell % columns_;
    const int y = cell / columns_;
    std::vector<int> free;
    const auto look = [&](bool isThere, int other) {
      if (isThere && other != 0 && from_[at(other)] < 0) free.push_back(other);
    };
    look(x > 0, cell - 1);
    look(x + 1 < columns_, cell + 1);
    look(y > 0, cell - columns_);
    look(y + 1 < rows_, cell + columns_);
    return free;
  }
  void carve() {
    std::vector<int> way{0};
    while (!way.empty()) {
      const std::vector<int> free = freeBeside(way.back());
      if (free.empty()) {
        way.pop_back();
        continue;
      }
      const int next = free[chance_() % free.size()];
      from_[at(next)] = way.back();
      join(way.back(), next);
      way.push_back(next);
      last_ = next;
    }
  }

  int columns_, rows_, wall_;
  std::vector<int> from_;
  std::mt19937 chance_;
  Bitmap picture_;
  int last_ = 0;
};

}  // namespace gridwright::test
