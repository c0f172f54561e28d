// A maze and its answer as a printer draws them, without a page around them.
#pragma once

#include <optional>
#include <string>

#include "canvas/outcome.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// What a document keeps of a drawing: the dictionary and the bytes of a stream, as they stand in a file. A
/// form measures the Canvas in pixels; an image is one unit wide and high, as images are in such documents.
struct BareDrawing {
  std::string dictionary;  ///< As text, without the length of the bytes.
  std::string bytes;       ///< Packed.
  bool isImage = false;
};

struct BarePage {
  BareDrawing maze;
  std::optional<BareDrawing> answer;
  /// Drawn over the maze the answer's own drawing is its trail alone. Else it is whole.
  bool isAnswerOverMaze = false;
  std::optional<std::string> notVector;  ///< Why these are pixels though vectors were asked for.
};

/// Cuts the maze into rectangles and packs them; pixels without loss where that is asked for, and where it
/// would take more than 20,000 rectangles and more than four for each cell of the maze. Reads nothing but its
/// parameters, so that threads do it beside each other.
BarePage barePageOf(const MadeMaze& made, MazeFormat format, bool withAnswer);

}  // namespace gridwright::book
