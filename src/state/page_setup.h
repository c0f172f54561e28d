// How pages look: their paper, and what stands on them beside the picture. What a page adds is on the page
// alone: no plane of the Canvas knows of it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/geometry.h"

namespace gridwright {

/// A sheet that stands upright, in tenths of a millimetre.
struct PaperSize {
  int width = 2100, height = 2970;
  friend bool operator==(const PaperSize&, const PaperSize&) = default;
};

/// What stays free at the edges of a page as it is read, in tenths of a millimetre.
struct Margins {
  int left = 100, top = 100, right = 100, bottom = 100;
  friend bool operator==(const Margins&, const Margins&) = default;
};

inline constexpr int kTenths = 10;      ///< Of a millimetre.
inline constexpr int kMostMargin = 50;  ///< In millimetres.

struct NamedPaper {
  std::string_view name;   ///< In scripts.
  std::string_view words;  ///< For a person.
  PaperSize size;
};
inline constexpr auto kPapers = std::to_array<NamedPaper>({
    {"a3", "A3", {2970, 4200}},
    {"a4", "A4", {2100, 2970}},
    {"a5", "A5", {1480, 2100}},
    {"a6", "A6", {1050, 1480}},
    {"letter", "Letter", {2159, 2794}},
    {"legal", "Legal", {2159, 3556}},
    {"tabloid", "Tabloid", {2794, 4318}},
});

/// Over how many sheets a page is spread.
struct PageTiles {
  int columns = 1, rows = 1;
  [[nodiscard]] int count() const { return columns * rows; }
  friend bool operator==(const PageTiles&, const PageTiles&) = default;
};
inline constexpr int kMostTiles = 9;  ///< Each way.

/// What a person has set; nothing of it is set at the start.
struct PageSetup {
  std::optional<PaperSize> paper;  ///< Nothing: as the printer has it, a PDF as the desktop.
  std::optional<bool> landscape;   ///< Nothing: as the picture lies.
  std::optional<Margins> margins;  ///< Nothing: as with the paper.
  std::string title;               ///< One line at the head of the page; empty for none.
  bool nameLine = false;           ///< "Name: ____" at the head of the page.
  bool endWords = false;           ///< "Start" and "Finish" beside the ends.
  PageTiles tiles = {};            ///< Each sheet is of that paper, and has those margins.
  friend bool operator==(const PageSetup&, const PageSetup&) = default;
};

/// What pages are printed on where nobody has set anything, and who says so: "the printer Hall", "the
/// desktop".
struct UsualPaper {
  PaperSize size;
  Margins margins;
  std::string whose = "the desktop";
};

/// A word that belongs beside a square of the page's picture.
struct EndWord {
  Square square;  ///< In pixels of the picture.
  std::string_view word;
  friend bool operator==(const EndWord&, const EndWord&) = default;
};

/// Which maze of a run a page shows.
struct MazeInRun {
  int number = 0;  ///< From 1; 0 on a page that belongs to no run.
  bool isAnswer = false;
  friend bool operator==(const MazeInRun&, const MazeInRun&) = default;
};

/// What a document says of a page without showing it.
struct PageAbout {
  std::string title = "Gridwright";  ///< The page's, else the program's name.
  std::string settings;              ///< Of its maze: "kind regular; wall 10; …".
  std::uint32_t seed = 0;            ///< That Rnd was given when the title was left.
  MazeInRun maze;
};

/// What makes a page of a picture.
struct PageLook {
  PageSetup setup;
  std::vector<EndWord> ends;  ///< None where the picture shows no ends, or no words are wanted.
  int cells = 0;              ///< With a corridor; so many allow a document more rectangles.
  PageAbout about = {};
};

/// The setup in force, and its panel, which a tenant shows: what a person changes there counts when it is
/// accepted.
struct PagePanel {
  PageSetup setup;
  bool open = false;
  UsualPaper usual;            ///< As it was when the panel opened.
  std::uint64_t revision = 1;  ///< Grows as it opens and closes.
};

/// What a margin takes of a side of the sheet at most, both in one measure: a quarter.
constexpr double heldMargin(double margin, double side) { return margin < side / 4 ? margin : side / 4; }

constexpr Margins allRound(int millimetres) {
  const int tenths = millimetres * kTenths;
  return {tenths, tenths, tenths, tenths};
}

/// \returns nothing for a name that no paper has.
std::optional<PaperSize> paperNamed(std::string_view name);

/// "3x2": columns and rows, each from 1 to `kMostTiles`. \returns nothing for anything else.
std::optional<PageTiles> tilesNamed(std::string_view name);

/// "A4", or "176 x 250 mm" for a paper without a name here.
std::string paperWords(const PaperSize& size);

/// The paper with a name that is within a millimetre of this size, which may have been told in whole
/// millimetres; else the size itself.
PaperSize knownPaper(const PaperSize& about);

}  // namespace gridwright
