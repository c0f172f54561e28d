// What each colour means: the three colour sets, looked up by pixel.
//
// A picture's pixel is classed by comparing it with the members of the sets; a repeated value is no
// different from one that stands once. The sentinels 300 to 331 are members like any other, since a
// pixel can hold them. The lookup is rebuilt whenever a slot changes, and answers in a few
// instructions, because the walker asks it a hundred times a step.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "canvas/canvas.h"
#include "canvas/colour.h"

namespace gridwright {

inline constexpr int kSlots = 16;  ///< Palette colours, and slots of each set.

class ColourSets {
 public:
  using Slots = std::array<Colour, kSlots>;

  ColourSets();

  [[nodiscard]] const Slots& background() const { return background_; }
  [[nodiscard]] const Slots& border() const { return border_; }
  [[nodiscard]] const Slots& maze() const { return maze_; }
  [[nodiscard]] Colour extraBackground() const { return extraBackground_; }

  void setMaze(int slot, Colour colour);
  void setAllMaze(Colour colour);
  /// Files palette colour `slot` as background or border; the other set's slot gets its sentinel.
  void classify(int slot, bool isBackground);
  /// The frame rule: a background becomes a border. Slot 0 gets 302 where `classify` writes 301.
  void makeFrameBorder(int slot);
  /// 31744 while green is a background, else a number no pixel can equal.
  void setExtraBackgroundByRule();
  /// At process start both sides of that rule are still unset and equal, so it starts as 31744.
  void setExtraBackground(Colour colour);

  /// Grows with every change of a set.
  [[nodiscard]] std::uint64_t revision() const { return revision_; }

  /// Already carved corridor.
  [[nodiscard]] bool isMaze(Colour pixel) const { return (classOf(pixel) & kMaze) != 0; }
  /// Part of a region the maze may grow through (all seventeen entries), unless it is also maze.
  [[nodiscard]] bool isBackground(Colour pixel) const { return (classOf(pixel) & kBackground) != 0; }
  /// Part of the picture's outlines.
  [[nodiscard]] bool isBorder(Colour pixel) const { return (classOf(pixel) & kBorder) != 0; }
  /// A pixel the walker may carve: background and not maze. The maze question comes first.
  [[nodiscard]] bool isFree(Colour pixel) const {
    return (classOf(pixel) & (kMaze | kBackground)) == kBackground;
  }
  /// A carved or a border pixel: what closes a direction to a carving walker.
  [[nodiscard]] bool isClosed(Colour pixel) const { return (classOf(pixel) & (kMaze | kBorder)) != 0; }
  /// Neither background nor maze: ground that no walk goes over.
  [[nodiscard]] bool isNoGround(Colour pixel) const { return (classOf(pixel) & (kMaze | kBackground)) == 0; }

 private:
  static constexpr std::uint8_t kMaze = 1, kBackground = 2, kBorder = 4;
  static constexpr std::size_t kTableBits = 10;

  struct Entry {
    Colour colour;
    std::uint8_t bits;
  };

  [[nodiscard]] std::size_t place(Colour colour) const {
    return (static_cast<std::uint32_t>(colour) * multiplier_) >> (32 - kTableBits);
  }
  [[nodiscard]] std::uint8_t classOf(Colour colour) const {
    const Entry& entry = table_[place(colour)];
    return entry.colour == colour ? entry.bits : std::uint8_t{0};
  }
  void rebuild();
  bool fits();

  Slots background_{}, border_{}, maze_{};
  Colour extraBackground_ = 0;
  std::uint64_t revision_ = 0;
  std::uint32_t multiplier_ = 2654435769U;
  std::array<Entry, std::size_t{1} << kTableBits> table_{};
};

/// Pixel tests over a Canvas: the vocabulary of the walker and its companions.
class Pixels {
 public:
  Pixels(const Canvas& canvas, const ColourSets& sets) : canvas_(canvas), sets_(sets) {}

  [[nodiscard]] Colour at(int x, int y) const { return canvas_.point(x, y); }
  [[nodiscard]] bool maze(int x, int y) const { return sets_.isMaze(at(x, y)); }
  [[nodiscard]] bool background(int x, int y) const { return sets_.isBackground(at(x, y)); }
  [[nodiscard]] bool border(int x, int y) const { return sets_.isBorder(at(x, y)); }
  [[nodiscard]] bool free(int x, int y) const { return sets_.isFree(at(x, y)); }
  [[nodiscard]] bool closed(int x, int y) const { return sets_.isClosed(at(x, y)); }
  [[nodiscard]] bool noGround(int x, int y) const { return sets_.isNoGround(at(x, y)); }

  /// Whether every pixel of the box is free and none has the colour `barred`.
  [[nodiscard]] bool allFree(int left, int top, int right, int bottom, Colour barred = kOutside) const;
  /// Whether every pixel of the box is carved: a maze pixel or the walker's cursor.
  [[nodiscard]] bool allCarved(int left, int top, int right, int bottom) const;
  /// Whether every pixel of the box is maze or background.
  [[nodiscard]] bool allGround(int left, int top, int right, int bottom) const;
  /// Whether every pixel of the box is maze, background or cursor.
  [[nodiscard]] bool allGroundOrCursor(int left, int top, int right, int bottom) const;
  [[nodiscard]] bool carved(int x, int y) const {
    return sets_.isMaze(at(x, y)) || at(x, y) == kCursorColour;
  }

  [[nodiscard]] const ColourSets& sets() const { return sets_; }

 private:
  template <class Test>
  bool all(int left, int top, int right, int bottom, Test test) const;

  const Canvas& canvas_;
  const ColourSets& sets_;
};

}  // namespace gridwright
