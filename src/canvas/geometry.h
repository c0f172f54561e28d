// Squares and sizes on the Canvas, in pixels.
#pragma once

namespace gridwright {

/// A rectangle given by its corner values, right and bottom included.
struct Square {
  int left = 0, top = 0, right = 0, bottom = 0;

  friend bool operator==(const Square&, const Square&) = default;

  /// The same square moved by an offset in pixels.
  [[nodiscard]] Square moved(int dx, int dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
  /// Whether two squares have the same top left corner: the walker "stands on" a square then.
  [[nodiscard]] bool sameCorner(const Square& other) const { return left == other.left && top == other.top; }
};

/// A cell, told by the top left of its square.
struct CellCorner {
  int left = 0, top = 0;
  friend bool operator==(const CellCorner&, const CellCorner&) = default;
  /// Row by row.
  friend bool operator<(const CellCorner& a, const CellCorner& b) {
    return a.top != b.top ? a.top < b.top : a.left < b.left;
  }
};

struct Size {
  int width = 0, height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

}  // namespace gridwright
