// The slow twin: reads cells, walls and ways from the pixels of a picture, with plain comparisons and
// a breadth-first search, and knows nothing of how a maze was made.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "canvas/bitmap.h"
#include "canvas/geometry.h"
#include "state/program.h"

namespace gridwright::test {

/// Colours that a drawing's pixels are held against, member by member.
struct PlainSets {
  std::vector<Colour> background, maze;
  explicit PlainSets(const ColourSets& sets);
  [[nodiscard]] bool isMaze(Colour c) const;
  [[nodiscard]] bool isFree(Colour c) const;  ///< Background and not maze.
};

class MazeReading {
 public:
  /// \param before the drawing; \param after the maze in it.
  MazeReading(Bitmap before, Bitmap after, PlainSets sets, int wall);

  /// What is wrong with the maze, or nothing: every region of free cells is a spanning tree of carved
  /// squares, joins are whole, and no other pixel has changed.
  [[nodiscard]] std::string fault() const;

  /// Cells on the one way between two squares, both included; nothing when there is none.
  [[nodiscard]] std::optional<std::vector<int>> way(const Square& from, const Square& to) const;

  [[nodiscard]] int cellOf(const Square& square) const;
  [[nodiscard]] Square squareAt(int cell) const;
  [[nodiscard]] int freeCells() const;
  [[nodiscard]] int regions() const;
  [[nodiscard]] int joins() const;

 private:
  [[nodiscard]] std::vector<int> neighbours(int cell) const;  ///< Free cells beside it.
  [[nodiscard]] bool joined(int a, int b) const;
  [[nodiscard]] Square wallBetween(int a, int b) const;
  [[nodiscard]] bool all(const Square& box, bool carved) const;
  [[nodiscard]] std::vector<int> regionOf(int cell, bool overJoins) const;
  [[nodiscard]] std::string pixelFault() const;
  [[nodiscard]] std::string where(int cell) const;

  Bitmap before_, after_;
  const PlainSets sets_;
  int wall_, columns_, rows_;
  std::vector<bool> free_;
};

/// The picture of the maze with the answer drawn in: both ends, and a stroke from centre to centre.
Bitmap withAnswer(const MazeReading& maze, const Bitmap& picture, const ProgramState& state);

}  // namespace gridwright::test
