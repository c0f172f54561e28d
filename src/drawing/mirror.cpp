#include "drawing/mirror.h"

#include "state/grid.h"

namespace gridwright {

namespace {

/// Lines of the grid along one axis, and the one that the square stands on or has last passed.
struct Lines {
  int last = 0;   ///< Position of the last line.
  int count = 0;  ///< How many there are, from 1.
  int own = 1;    ///< The square's, from 1.
};

Lines walkLines(int wall, int pitch, int extent, int position) {
  Lines lines{wall, 1, 1};
  for (;;) {
    if (lines.last <= position) lines.own = lines.count;
    if (lines.last + pitch > extent - pitch) return lines;
    ++lines.count;
    lines.last += pitch;
  }
}

void setMirrorUp(ProgramState& s, int column, int row) {
  DrawingState& d = s.drawing;
  const bool pipe = s.mazeKind == MazeKind::pipe;
  d.mirror.left =
      s.gridRight - column * s.stepX + s.wallWidth - s.drawing.squareWidth - 1 + (pipe ? s.stepX : 0);
  d.mirror.right = d.mirror.left + s.drawing.squareWidth;
  d.centreLeft = (s.gridColumns - 1) / 2 * s.stepX - s.wallWidth;
  d.mirror.top = s.gridBottom - row * s.stepY + s.wallHeight - s.drawing.squareHeight - 1;
  if (s.wallHeight != 5) d.mirror.top -= s.stepY;
  if (pipe) d.mirror.top += 2 * s.stepY;
  d.mirror.bottom = d.mirror.top + s.drawing.squareHeight;
  d.centreTop = (s.gridRows - 1) / 2 * s.stepY - s.wallHeight;
  d.prevMirror = d.mirror;
}

}  // namespace

void measureDrawing(Program& program) {
  ProgramState& s = program.state;
  const int width = program.canvas.scaleWidth();
  const int height = program.canvas.scaleHeight();
  pitchFromKind(s);
  // A smaller Canvas leaves the square outside, and so does a jump to the centre of one with two columns.
  const bool outside = s.cur.left < 0 || s.cur.top < 0 || s.cur.right >= width || s.cur.bottom >= height;
  if (outside) {
    s.cur = firstCell(s);  // no stroke leads there, but the outline at the old place goes
    s.drawing.skipPaintOnce = true;
  }
  s.drawing.squareWidth = s.cur.right - s.cur.left;
  s.drawing.squareHeight = s.cur.bottom - s.cur.top;
  const Lines columns = walkLines(s.wallWidth, s.stepX, width, s.cur.left);
  const Lines rows = walkLines(s.wallHeight, s.stepY, height, s.cur.top);
  s.gridRight = columns.last;
  s.gridColumns = columns.count;
  s.gridBottom = rows.last;
  s.gridRows = rows.count;
  // Rows go one further than columns do, but for pipes: the mirror is told from there.
  if (s.mazeKind != MazeKind::pipe) s.gridBottom += s.stepY;
  s.canvasWidth = width;
  s.canvasHeight = height;
  setMirrorUp(s, columns.own, rows.own);
}

}  // namespace gridwright
