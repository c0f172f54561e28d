// What the right side of the status line tells: the colour in hand, where the square stands and how
// large it is, and whether it draws.
//
// The values come first and the words are made of them, so that a tenant asks for words only when the
// values differ from those it shows: a maze that the computer carves changes none of them.
#pragma once

#include <optional>
#include <string>

#include "state/program_state.h"

namespace gridwright {

/// A square in cells: its column and row counted from 1, and how many it covers each way.
struct Cells {
  int column = 0, row = 0, columns = 0, rows = 0;
  friend bool operator==(const Cells&, const Cells&) = default;
};

/// The cells that a square covers on the present grid. The squares of walker and ends lie inside their
/// cell and count as that cell.
Cells cellsOf(const ProgramState& state, const Square& square);

/// "column 3, row 1"
std::string placeWords(const Cells& cells);

/// What is to be told in the present phase. Values that do not belong to it stay at their defaults.
struct Status {
  enum class Tells {
    nothing,         ///< At the title.
    brush,           ///< Drawing: colour, size, place, on or off.
    walker,          ///< A person carves: colour and place.
    step,            ///< A person draws a pattern: place in the field.
    player,          ///< A person solves: place.
    ends,            ///< Where start and finish are.
    computerDraws,   ///< The computer makes a pattern,
    computerCarves,  ///< carves
    computerSolves,  ///< or solves.
  };
  Tells tells = Tells::nothing;
  std::optional<Colour> colour;  ///< The colour in hand, to be shown beside its name.
  Cells square, finish;          ///< `finish` of the ends alone, whose `square` is the start.
  bool drawingOff = false;
  friend bool operator==(const Status&, const Status&) = default;
};

Status statusOf(const ProgramState& state);

/// The status in one line; empty when there is nothing to tell.
std::string statusWords(const Status& status);

/// The palette's name of a colour, else its red, green and blue.
std::string colourWords(Colour colour);

}  // namespace gridwright
