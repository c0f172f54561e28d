#include "trials/thirty_drawings.h"

#include <algorithm>
#include <array>
#include <utility>

#include "support/pictures.h"

namespace gridwright::test {

namespace {

/// A picture with a grid: cells are counted from 0, behind the band of one wall size along the top and left.
class Sheet {
 public:
  Sheet(Size size, int wallSize, Colour colour, std::mt19937& chance)
      : picture(plainBitmap(size.width, size.height, colour)), wall(wallSize), chance_(chance) {}

  [[nodiscard]] int columns() const { return std::max(picture.width / wall - 1, 1); }
  [[nodiscard]] int rows() const { return std::max(picture.height / wall - 1, 1); }
  void box(int left, int top, int right, int bottom, Colour colour) {
    for (int y = std::max(top, 0); y <= std::min(bottom, picture.height - 1); ++y) {
      for (int x = std::max(left, 0); x <= std::min(right, picture.width - 1); ++x)
        pixelAt(picture, x, y) = colour;
    }
  }
  void cells(int fromColumn, int fromRow, int toColumn, int toRow, Colour colour) {
    box((fromColumn + 1) * wall, (fromRow + 1) * wall, (toColumn + 2) * wall - 1, (toRow + 2) * wall - 1,
        colour);
  }
  void cell(int column, int row, Colour colour) { cells(column, row, column, row, colour); }
  void room(Colour colour = kNavy) { cells(0, 0, columns() - 1, rows() - 1, colour); }
  int upTo(int most) { return static_cast<int>(chance_() % static_cast<unsigned>(most + 1)); }

  Bitmap picture;
  const int wall;

 private:
  std::mt19937& chance_;
};

constexpr std::array kGrounds = {kNavy, kGreen, kMaroon, kBlack};

void oneCell(Sheet& s) { s.cell(s.upTo(s.columns() - 1), s.upTo(s.rows() - 1), kNavy); }

void twoCells(Sheet& s) {
  const int column = s.upTo(std::max(s.columns() - 2, 0)), row = s.upTo(s.rows() - 1);
  s.cells(column, row, column + 1, row, kNavy);
}

void threeCells(Sheet& s) {
  const int column = s.upTo(std::max(s.columns() - 2, 0)), row = s.upTo(std::max(s.rows() - 2, 0));
  s.cells(column, row, column + 1, row, kNavy);
  s.cell(column, row + 1, kNavy);
}

void threeLoneCells(Sheet& s) {
  s.cell(0, 0, kNavy);
  s.cell(s.columns() - 1, 0, kNavy);
  s.cell(s.columns() - 1, s.rows() - 1, kNavy);
}

void oneRow(Sheet& s) { s.cells(0, s.rows() / 2, s.columns() - 1, s.rows() / 2, kNavy); }

void oneColumn(Sheet& s) { s.cells(s.columns() / 2, 0, s.columns() / 2, s.rows() - 1, kNavy); }

void oneRoom(Sheet& s) { s.room(); }

void wholeCanvas(Sheet& s) { s.box(0, 0, s.picture.width, s.picture.height, kNavy); }

void comb(Sheet& s) {
  s.cells(0, 0, s.columns() - 1, 0, kNavy);
  for (int c = 0; c < s.columns(); c += 2) s.cells(c, 1, c, s.rows() - 1, kNavy);
}

void combOfThree(Sheet& s) {
  s.cells(0, 0, 2, s.rows() - 1, kNavy);
  for (int r = 0; r < s.rows(); r += 4) s.cells(3, r, s.columns() - 1, r + 2, kNavy);
}

/// A corridor of so many cells, turn within turn, with a wall of one cell.
void spiral(Sheet& s, int wide) {
  int left = 0, top = 0, right = s.columns() - 1, bottom = s.rows() - 1;
  for (int from = 0; right - left >= wide && bottom - top >= wide;) {
    s.cells(from, top, right, top + wide - 1, kNavy);
    s.cells(right - wide + 1, top, right, bottom, kNavy);
    s.cells(left, bottom - wide + 1, right, bottom, kNavy);
    s.cells(left, top + wide + 1, left + wide - 1, bottom, kNavy);
    from = left;  // the next turn begins where this one ends
    left += wide + 1, top += wide + 1, right -= wide + 1, bottom -= wide + 1;
    if (right - left >= wide && bottom - top >= wide) s.cells(from, top, left, top + wide - 1, kNavy);
  }
}

void thinSpiral(Sheet& s) { spiral(s, 1); }

void wideSpiral(Sheet& s) { spiral(s, 3); }

void islands(Sheet& s) {
  s.room();
  for (int i = 0; i < s.columns() * s.rows() / 12; ++i) {
    const int c = s.upTo(s.columns()), r = s.upTo(s.rows());
    s.cells(c, r, c + s.upTo(3), r + s.upTo(3), kBlue);
  }
}

void islandsWithinIslands(Sheet& s) {
  const int rings = std::min(s.columns(), s.rows()) / 2;
  for (int i = 0; i <= rings; ++i) {
    s.cells(i, i, s.columns() - 1 - i, s.rows() - 1 - i,
            i % 3 == 2 ? kBlue : kGrounds.at(static_cast<std::size_t>(i) % kGrounds.size()));
  }
}

void ringsWithDoors(Sheet& s) {
  const int rings = std::min(s.columns(), s.rows()) / 2;
  for (int i = 0; i <= rings; ++i)
    s.cells(i, i, s.columns() - 1 - i, s.rows() - 1 - i, i % 2 == 1 ? kBlue : kNavy);
  for (int i = 1; i <= rings; i += 2) s.cell(i + s.upTo(2), i, kNavy);
}

void noiseOfCells(Sheet& s) {
  const int free = 2 + s.upTo(7);
  for (int r = 0; r < s.rows(); ++r) {
    for (int c = 0; c < s.columns(); ++c)
      s.cell(c, r, s.upTo(9) <= free ? kGrounds.at(static_cast<std::size_t>(s.upTo(3))) : kBlue);
  }
}

void noiseOfPixels(Sheet& s) {
  const int rarity = 20 + s.upTo(5000);
  for (Colour& pixel : s.picture.pixels)
    pixel = s.upTo(rarity) == 0 ? kPalette.at(static_cast<std::size_t>(s.upTo(14))) : kNavy;
  s.box(0, 0, s.wall, s.wall, kBlue);
}

void stripesOfAllColours(Sheet& s) {
  const int wide = std::max(s.columns() / 16, 1);
  for (int c = 0; c < s.columns(); ++c)
    s.cells(c, 0, c, s.rows() - 1, kPalette.at(static_cast<std::size_t>(c / wide) % 16));
}

void patchesOfAllColours(Sheet& s) {
  for (int r = 0; r < s.rows(); ++r) {
    for (int c = 0; c < s.columns(); ++c)
      s.cell(c, r, kPalette.at(static_cast<std::size_t>((c / 3) * 5 + (r / 3) * 3) % 16));
  }
}

/// One more or less in one of three parts.
Colour nearOne(Colour colour, int step) {
  const Colour part = Colour{1} << (step % 3 * 8);
  const bool isFull = ((colour >> (step % 3 * 8)) & 255) == 255;
  return isFull ? colour - part : colour + part;
}

void nearColours(Sheet& s) {
  s.room();
  for (int i = 0; i < 40; ++i) {
    const int c = s.upTo(s.columns()), r = s.upTo(s.rows());
    s.cells(c, r, c + s.upTo(4), r + s.upTo(4),
            nearOne(kPalette.at(static_cast<std::size_t>(s.upTo(15))), s.upTo(2)));
  }
}

void sentinelColours(Sheet& s) {
  s.room();
  for (int i = 0; i < 64; ++i) {
    const int c = s.upTo(s.columns()), r = s.upTo(s.rows());
    s.cells(c, r, c + s.upTo(3), r + s.upTo(3), 300 + i % 32);
  }
}

void darkGreen(Sheet& s) {
  for (int c = 0; c < s.columns(); ++c)
    s.cells(c, 0, c, s.rows() - 1, c / 4 % 3 == 0 ? kDarkGreen : c / 4 % 3 == 1 ? kGreen : kNavy);
}

void framesOfEveryColour(Sheet& s) {
  for (int i = 0; i < 16; ++i) {
    s.box(i * 3, i * 3, s.picture.width - 1 - i * 3, s.picture.height - 1 - i * 3,
          kPalette.at(static_cast<std::size_t>(i + s.upTo(15)) % 16));
  }
  s.box(48, 48, s.picture.width - 49, s.picture.height - 49, kNavy);
}

/// A drawing within a frame of one colour, which pixel (1, 1) makes a border.
void oneFrame(Sheet& s) {
  s.box(0, 0, s.picture.width, s.picture.height, kPalette.at(static_cast<std::size_t>(s.upTo(14))));
  s.room(kGrounds.at(static_cast<std::size_t>(s.upTo(3))));
}

void panes(Sheet& s, int wide, int high) {
  s.box(0, 0, s.picture.width, s.picture.height, kNavy);
  for (int x = 0; x < s.picture.width; x += wide) s.box(x, 0, x, s.picture.height, kBlue);
  for (int y = 0; y < s.picture.height; y += high) s.box(0, y, s.picture.width, y, kBlue);
  s.box(0, 0, 2, 2, kBlue);
}

void thinBordersOnGrid(Sheet& s) { panes(s, s.wall * 5, s.wall * 4); }

void thinBordersOffGrid(Sheet& s) { panes(s, s.wall * 4 + 3, s.wall * 5 + 1); }

void whitePaper(Sheet& s) {
  s.box(0, 0, s.picture.width, s.picture.height, kWhite);
  s.cells(1, 1, s.columns() - 2, s.rows() - 2, kNavy);
}

void blotsOnWhitePaper(Sheet& s) {
  s.box(0, 0, s.picture.width, s.picture.height, kWhite);
  for (int i = 0; i < 12; ++i) {
    const int c = s.upTo(s.columns()), r = s.upTo(s.rows());
    s.cells(c, r, c + s.upTo(6), r + s.upTo(6), i % 4 == 3 ? kLime : kNavy);
  }
}

void whiteLines(Sheet& s) {
  s.room();
  for (int i = 0; i < 6; ++i) {
    const int x = s.upTo(s.picture.width), y = s.upTo(s.picture.height);
    s.box(x, s.wall, x + s.upTo(s.wall), s.picture.height, kWhite);
    s.box(s.wall, y, s.picture.width, y + s.upTo(s.wall), kWhite);
  }
}

void discs(Sheet& s) {
  for (int i = 0; i < 14; ++i) {
    const int cx = s.upTo(s.picture.width), cy = s.upTo(s.picture.height);
    const int radius = s.wall + s.upTo(std::min(s.picture.width, s.picture.height) / 3);
    const Colour colour = i % 3 == 2 ? kLime : kGrounds.at(static_cast<std::size_t>(s.upTo(1)));
    for (int y = std::max(cy - radius, 0); y < std::min(cy + radius, s.picture.height); ++y) {
      for (int x = std::max(cx - radius, 0); x < std::min(cx + radius, s.picture.width); ++x) {
        if ((x - cx) * (x - cx) + (y - cy) * (y - cy) < radius * radius) pixelAt(s.picture, x, y) = colour;
      }
    }
  }
  s.box(0, 0, 2, 2, kBlue);
}

struct Row {
  DrawingKind kind;
  Colour ground;
  void (*paint)(Sheet&);
};

constexpr std::array<Row, kDrawingCount> kDrawings = {{
    {{"one cell", false}, kBlue, oneCell},
    {{"two cells", false}, kBlue, twoCells},
    {{"three cells", false}, kBlue, threeCells},
    {{"three lone cells", false}, kBlue, threeLoneCells},
    {{"a row", false}, kBlue, oneRow},
    {{"a column", false}, kBlue, oneColumn},
    {{"a room", false}, kBlue, oneRoom},
    {{"nothing but ground", false}, kNavy, wholeCanvas},
    {{"a comb", false}, kBlue, comb},
    {{"a comb with wide teeth", false}, kBlue, combOfThree},
    {{"a spiral one cell wide", false}, kBlue, thinSpiral},
    {{"a spiral three cells wide", false}, kBlue, wideSpiral},
    {{"islands", false}, kBlue, islands},
    {{"islands within islands", false}, kBlue, islandsWithinIslands},
    {{"rings with doors", false}, kBlue, ringsWithDoors},
    {{"noise of cells", false}, kBlue, noiseOfCells},
    {{"noise of pixels", false}, kNavy, noiseOfPixels},
    {{"stripes of all colours", true}, kBlue, stripesOfAllColours},
    {{"patches of all colours", true}, kBlue, patchesOfAllColours},
    {{"colours near the palette's", true}, kBlue, nearColours},
    {{"the colours 300 to 331", true}, kBlue, sentinelColours},
    {{"dark green", false}, kBlue, darkGreen},
    {{"frames of every colour", true}, kBlue, framesOfEveryColour},
    {{"one frame of any colour", false}, kBlue, oneFrame},
    {{"borders one pixel thick on the grid", false}, kNavy, thinBordersOnGrid},
    {{"borders one pixel thick off the grid", false}, kNavy, thinBordersOffGrid},
    {{"white paper", true}, kWhite, whitePaper},
    {{"blots on white paper", true}, kWhite, blotsOnWhitePaper},
    {{"white lines", true}, kBlue, whiteLines},
    {{"discs off the grid", false}, kBlue, discs},
}};

}  // namespace

const DrawingKind& drawingKind(int which) { return kDrawings.at(static_cast<std::size_t>(which)).kind; }

Bitmap trialDrawing(int which, Size size, int wall, std::mt19937& chance) {
  const Row& row = kDrawings.at(static_cast<std::size_t>(which));
  Sheet sheet(size, wall, row.ground, chance);
  row.paint(sheet);
  return std::move(sheet.picture);
}

}  // namespace gridwright::test
