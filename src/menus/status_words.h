// What the right side of the status line tells, and a screen reader of the Canvas: the phase, the walls, the
// colour in hand, where the square stands and how large it is, how far a maze, a walk or a run has come.
//
// The values come first and the words are made of them, so that a tenant asks for words only when the
// values differ from those it shows. A maze that the computer carves changes none of them but what is
// counted, and that is counted by who tells it.
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

/// How far a maze has grown.
struct Growth {
  int carved = 0, left = 0;  ///< Cells that the walker has carved, and cells that are free.
  friend bool operator==(const Growth&, const Growth&) = default;
};

/// What the record does not hold: somebody counts it, and looks at a clock.
struct Counted {
  std::optional<Growth> growth;  ///< While a maze is made.
  std::optional<int> seconds;    ///< Since carving or solving began.
};

/// How many mazes of a run are done, and how many it makes.
struct RunStatus {
  int done = 0, total = 0;  ///< 0 mazes where there is no run.
  friend bool operator==(const RunStatus&, const RunStatus&) = default;
};

/// What is to be told in the present phase. Values that do not belong to it stay at their defaults.
struct Status {
  enum class Tells {
    nothing,         ///< At the title.
    brush,           ///< Drawing: colour, size, place, on or off.
    walker,          ///< A person carves: what does so, colour and place.
    step,            ///< A person draws a pattern: place in the field.
    player,          ///< A person solves: place, steps and time.
    ends,            ///< Where start and finish are.
    way,             ///< The same, and how long the way is,
    played,          ///< or what it took a person.
    computerDraws,   ///< The computer makes a pattern,
    computerCarves,  ///< carves
    computerSolves,  ///< or solves.
  };
  Tells tells = Tells::nothing;
  std::string phase;             ///< In words.
  int wallSize = 0;              ///< In pixels; 0 where it is not told.
  std::optional<Colour> colour;  ///< The colour in hand, to be shown beside its name.
  Cells square, finish;          ///< `finish` of the ends alone, whose `square` is the start.
  bool drawingOff = false;
  std::optional<Growth> growth;
  std::optional<int> seconds;
  int steps = 0;      ///< Of a person who solves.
  int wayLength = 0;  ///< Cells of the answer with both ends, those under a corridor not counted.
  RunStatus run;
  friend bool operator==(const Status&, const Status&) = default;
};

/// \param counted what of it belongs to the phase is told.
Status statusOf(const ProgramState& state, const Counted& counted = {});

/// The status in one line; empty when there is nothing to tell.
std::string statusWords(const Status& status);

/// "drawing", "making the maze", and so on; empty at the title.
std::string phaseWords(const ProgramState& state);

/// The palette's name of a colour, else its red, green and blue.
std::string colourWords(Colour colour);

/// The letter that marks a colour of the palette.
std::optional<char> colourLetter(Colour colour);

}  // namespace gridwright
