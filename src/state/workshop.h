// The workshop as it stands: a sheet of paper to draw on with what every drawing program has, and what a
// person has set for its words and stamps. Rules write this model; a tenant shows it and reports what a
// person does through session/input.h.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "canvas/bitmap.h"
#include "canvas/colour_sets.h"
#include "files/file_mark.h"
#include "files/file_place.h"
#include "pictures/regions.h"
#include "pictures/sheet.h"
#include "pictures/words.h"

namespace gridwright {

struct StampSettings {
  std::string name = "heart";  ///< One of `kStamps`.
  int height = 20;             ///< In cells, 1 to 200.
  int colour = 1;              ///< An ink.
  friend bool operator==(const StampSettings&, const StampSettings&) = default;
};

inline constexpr int kMostCellsHigh = 200;  ///< Of a capital, and of a stamp.

/// The picture that was placed last, for as long as nothing else was done: it can be moved and scaled.
struct PlacedPicture {
  Bitmap ink;                  ///< In its own size, just as large as what is painted of it.
  Corner at;                   ///< Where the upper left pixel of it lies,
  Size size;                   ///< and how large it is there, in pixels.
  std::optional<Size> alone;   ///< It has become the whole sheet, of this size, and nothing is beneath it.
  bool isStep = false;         ///< Putting it down has changed the sheet.
  std::uint64_t revision = 0;  ///< Of the sheet, when it was put down.
};

enum class WorkshopPage { sheet, prepare };

/// What an ink is in the maze that is to come.
enum class InkRole {
  grows,
  border,
  taken
};  ///< taken: the maze is carved in it, so it is no ink to paint with

struct Workshop {
  bool open = false;
  WorkshopPage page = WorkshopPage::sheet;  ///< The other shows `PreparePanel`.
  /// Null until the workshop is opened, as the run before left it; it stays until the program ends.
  std::unique_ptr<Sheet> sheet;
  std::filesystem::path keptIn;  ///< The folder where this sheet is kept; empty while it is not.
  ColourSets drawingSets;        ///< What colours mean in the drawing, as the workshop was opened.
  ToolSettings firstTool;        ///< What the first sheet begins with.
  WordSettings words;
  StampSettings stamp;
  std::optional<PlacedPicture> placed;
  bool firstFills = false;  ///< It was opened by a picture, which is the sheet as soon as it is placed.
  bool filled = false;      ///< That picture is the sheet, and nothing was done since.
  Size canvas;              ///< What *Use* will make the sheet as large as.
  Bitmap seen;  ///< The drawing as it was when the sheet was used or left, in inks; empty for none.
  std::optional<FilePlace> elsewhere;  ///< The file that another program has.
  std::optional<FileMark> mark;        ///< Of that file, when it was looked at last.
  std::string note;  ///< What has to be said of the whole sheet, such as how much of it will be cut.

  std::uint64_t countedAt =
      0;  ///< The sheet's revision that `map` is of; see `countSheet` (session/workshop.h).
  RegionMap map;
  std::string line;  ///< "2,156 cells in 3 regions; 12 areas too small for a cell"

  std::uint64_t revision = 1;  ///< Grows with every change of this but the sheet's own.

  /// What the sheet's colours mean to a maze.
  [[nodiscard]] ColourSets sets() const {
    return sheet && sheet->meaning() == Meaning::ofTheDrawing ? drawingSets : startingSets();
  }
};

/// \param ink 0 to 14, or paper, which is a border.
InkRole roleOf(int ink, const ColourSets& sets);

}  // namespace gridwright
