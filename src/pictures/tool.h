// What a person has in hand over the workshop's sheet.
#pragma once

#include "canvas/colour.h"
#include "pictures/ready.h"

namespace gridwright {

enum class Tool { pencil, line, rectangle, ellipse, fill, eraser, pick };

/// About the sheet's middle.
enum class Mirror { none, leftRight, topBottom, both };

inline constexpr int kThickest = 50;  ///< Pixels; the thinnest is 1.

/// The inks of the sheet by number: the palette without its white, in whose place paper stands.
inline constexpr int kInks = 16;
inline constexpr int kPaperInk = 15;
inline constexpr Colour colourOfInk(int ink) {
  return ink == kPaperInk ? kPaper : kPalette[static_cast<std::size_t>(ink)];
}

/// A cell of the maze that is to come: blocks of `stepX` by `stepY` lie side by side from `wall`, `wall` on.
struct CellPitch {
  int stepX = 10, stepY = 10, wall = 10;
  friend bool operator==(const CellPitch&, const CellPitch&) = default;
};

struct ToolSettings {
  Tool tool = Tool::pencil;
  int size = 1;          ///< Pixels, 1 to 50: how thick pencil, line, eraser and outlines are.
  bool oneCell = false;  ///< As thick as a cell instead.
  bool snap = false;  ///< What is painted is whole cells: all that the stroke touches. A fill stays as it is.
  bool outline = false;  ///< Rectangle and ellipse are outlines, which grow inwards; else full.
  Mirror mirror = Mirror::none;
  int colour = 1;  ///< An ink.
  friend bool operator==(const ToolSettings&, const ToolSettings&) = default;
};

}  // namespace gridwright
