// What a tool's stroke covers, row by row.
#pragma once

#include <cstdint>
#include <vector>

#include "canvas/cell_grid.h"
#include "canvas/geometry.h"
#include "pictures/tool.h"

namespace gridwright {

/// A part of a row, right included.
struct Span {
  int y = 0, left = 0, right = 0;
};
using Spans = std::vector<Span>;

/// What a stroke is made with: a disc, or a box.
struct Pen {
  int width = 1, height = 1;
  bool isRound = true;
};

/// Each gives no rows but those of a sheet of this height; spans may reach beyond its sides. Corners are
/// within a hundred thousand pixels. \param thick of the outline, inwards; 0 by 0 for a full figure.
Spans lineFigure(Corner from, Corner to, const Pen& pen, int sheetHeight);
Spans rectangleFigure(Corner from, Corner to, Size thick, int sheetHeight);
Spans ellipseFigure(Corner from, Corner to, Size thick, int sheetHeight);

/// The end of a line made level, upright or diagonal, whichever is nearest; the corner of a box made a
/// square.
Corner straightened(Corner from, Corner to);
Corner squared(Corner from, Corner to);

/// A figure and its mirror pictures on a sheet of this size.
Spans mirrored(const Spans& spans, Mirror mirror, Size sheet);
/// All cells that a figure touches, whole; those at the sheet's edge as far as they lie on it.
Spans snappedToCells(const Spans& spans, const CellPitch& pitch, Size sheet);

}  // namespace gridwright
