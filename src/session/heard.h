// What a person hears who does not see the window: the words that a screen reader is given, made of what has
// changed since it was given words last.
//
// What has the keyboard by itself, a text box, the workshop, a menu, a screen reader reads without help, and
// here nothing is told meanwhile; what happened then is told afterwards. Places are told row first, as one
// reads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "menus/status_words.h"
#include "state/program.h"
#include "state/ways.h"

namespace gridwright {

/// A swatch, or a button of the title.
struct HeardChoice {
  std::string name, caption;  ///< The colour, and what stands on it; nothing on one that is off.
  bool ticked = false;
  friend bool operator==(const HeardChoice&, const HeardChoice&) = default;
};

/// A panel of swatches, or the title with its buttons, as they stand.
struct HeardPanel {
  std::string prompt;  ///< Empty for none.
  std::vector<HeardChoice> choices;
  friend bool operator==(const HeardPanel&, const HeardPanel&) = default;
};

/// Everything that can be heard of a program, as values.
struct Heard {
  bool atTitle = false;
  std::string caption;          ///< Without the program's name.
  Status status;                ///< Nothing in it is counted or timed.
  std::optional<Ways> ways;     ///< Round the square of a person who carves or plays.
  std::optional<Cells> finish;  ///< Of a person who plays.
  HeardPanel panel;
  std::string over;          ///< What lies over the Canvas until the next key: keys, or the count of regions.
  std::uint64_t notice = 0;  ///< Its revision,
  std::string noticeWords;   ///< and its words.
  std::uint64_t asked = 0, arrows = 0;
  int arrow = 0;
};

/// Reads the state, the models and, while a person carves or plays, the pixels round the square.
Heard heardOf(const Program& program);

/// What of `now` was not heard `before`, in one line; empty for nothing.
std::string heardWords(const Heard& before, const Heard& now);

/// All of it: the caption, what is in hand, where the square stands and which ways lead on.
std::string surroundingsWords(const Heard& now);

/// "row 4, column 3"
std::string rowWords(const Cells& cells);

/// "open left and down; tunnel right"; "closed all round".
std::string waysWords(const Ways& ways);

/// Remembers what was heard.
class Listener {
 public:
  /// What is new since the last call; empty for nothing, and while something has the keyboard by itself.
  std::string listen(const Program& program);

 private:
  Heard heard_;
};

/// "Tell surroundings": whoever listens hears all of it again. Who sees the window notices nothing.
void surroundings(Program& program);

/// An arrow key was handed on: one that leads nowhere is heard too.
void noteArrow(Program& program, int code);

}  // namespace gridwright
