// Where everything stands on the pages of a book: paper, margins, heads, feet, and the mazes row by row.
//
// Lengths are points, 72 to the inch, from the top left of the sheet. Nothing here knows a document's bytes
// or a font: pages are laid out before any of them is written, since the list names them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/book/book_record.h"

namespace gridwright::book {

struct Box {
  double x = 0, y = 0, width = 0, height = 0;
  friend bool operator==(const Box&, const Box&) = default;
};

/// A maze or its answer on a page.
struct PlacedMaze {
  std::size_t maze = 0;        ///< Place in the records.
  Box place;                   ///< Of the picture, in its own shape.
  std::optional<Box> caption;  ///< Below it, over the whole width that it may take.
};

struct PlannedPage {
  int number = 1;
  bool isAnswers = false;
  std::optional<Box> nameLine, title, pageNumber;
  std::vector<PlacedMaze> mazes;
};

struct PlannedDocument {
  double width = 0, height = 0;
  std::vector<PlannedPage> pages;
};

struct PlannedBook {
  PlannedDocument book;
  std::optional<PlannedDocument> answers;  ///< Where they are a file of their own.
};

/// Heights of rows of words, in points; letters take a part of theirs.
inline constexpr double kPointsAMillimetre = 72 / 25.4;
inline constexpr double kNameRow = 12 * kPointsAMillimetre, kTitleRow = 13 * kPointsAMillimetre;
inline constexpr double kNumberRow = 8 * kPointsAMillimetre;

/// What is against the page, margins and tiles of a plan, in one line: nothing is left of the paper, or too
/// little for the tiles. Nothing when mazes can be laid out by it.
std::optional<std::string> whyNoPages(const BookPlan& plan);

/// What the margins leave of a sheet for pictures, in tenths of a millimetre.
Size pictureArea(const BookPlan& plan);

/// Puts the records into the order of the book: by their numbers, or the easiest first and of those that are
/// as difficult the lower number.
void putInOrder(std::vector<MazeRecord>& mazes, const BookPlan& plan);

/// Lays out the mazes in the order in which they come, and sets `page` and `answerPage` of each. Odd pages
/// lie on the right and are bound on their left side.
PlannedBook planPages(const BookPlan& plan, std::vector<MazeRecord>& mazes);

/// The same for a part, which has a page for each maze and then one for each answer.
void numberPartPages(const BookPlan& plan, std::vector<MazeRecord>& mazes);

/// The caption of a maze: what stands in braces is put in from its record. `{difficulty}` has one digit
/// behind the point.
std::string captionOf(const std::string& format, const MazeRecord& maze);

}  // namespace gridwright::book
