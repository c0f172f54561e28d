#include "menus/status_words.h"

#include <algorithm>
#include <initializer_list>

#include "state/grid.h"

namespace gridwright {

namespace {

int cellAt(int position, int wall, int pitch) {
  return (position - wall) / std::max(1, pitch) + 1;  // a square on no grid must not divide by 0
}

std::string sizeWords(const Cells& cells) {
  if (cells.columns == 1 && cells.rows == 1) return "1 cell";
  return std::to_string(cells.columns) + " x " + std::to_string(cells.rows) + " cells";
}

std::string endsWords(const Status& status) {
  std::string words;
  if (status.square.columns > 0) words = "start at " + placeWords(status.square);
  if (status.finish.columns > 0)
    words += (words.empty() ? "" : "; ") + ("finish at " + placeWords(status.finish));
  return words;
}

void tellDrawing(const ProgramState& s, Status& status) {
  status.tells = Status::Tells::brush;
  status.colour = s.drawColor;
  status.square = cellsOf(s, s.cur);
  status.drawingOff = s.drawingOff;
}

/// The field has walls of its own, which are not those of the maze.
void tellPattern(const ProgramState& s, Status& status) {
  const bool byChance = s.editor.randomRunning || s.editor.preparing;
  status.tells = byChance ? Status::Tells::computerDraws : Status::Tells::step;
  status.wallSize = 0;
  if (!byChance) status.square = cellsOf(s, s.cur);
}

void tellMaking(const ProgramState& s, const Counted& counted, Status& status) {
  const bool byHand = s.creationMode == CreationMode::user;
  status.tells = byHand ? Status::Tells::walker : Status::Tells::computerCarves;
  status.growth = counted.growth;
  status.seconds = counted.seconds;
  if (!byHand) return;
  status.colour = s.mazeColor;
  status.square = cellsOf(s, s.cur);
}

void tellEnds(const ProgramState& s, Status& status) {
  status.tells = Status::Tells::ends;
  if (isPlaced(s.start)) status.square = cellsOf(s, s.start);
  if (isPlaced(s.finish)) status.finish = cellsOf(s, s.finish);
}

void tellSolving(const ProgramState& s, const Counted& counted, Status& status) {
  const bool searching = isSearching(s);
  const bool byHand = s.playMode != PlayMode::off && !searching;
  status.tells = byHand ? Status::Tells::player : Status::Tells::computerSolves;
  if (!byHand) return;
  status.square = cellsOf(s, s.cur);
  status.steps = s.solver.playSteps;
  status.seconds = counted.seconds;
}

/// A way is as long as the trail along it; a person who leaves none has only taken steps.
void tellSolved(const ProgramState& s, const Counted& counted, Status& status) {
  tellEnds(s, status);
  const bool played = s.playMode != PlayMode::off;
  status.tells = played ? Status::Tells::played : Status::Tells::way;
  if (played) {
    status.steps = s.solver.playSteps;
    status.seconds = counted.seconds;
  } else {
    status.wayLength = s.solver.pathLength + 2;  // the walk counts no end
  }
}

std::string many(int count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string timeWords(int seconds) {
  if (seconds < 60) return std::to_string(seconds) + " s";
  return std::to_string(seconds / 60) + " min " + std::to_string(seconds % 60) + " s";
}

/// Joins what is to be told, leaving out what is not.
std::string joined(std::initializer_list<std::string> parts, const char* between) {
  std::string words;
  for (const std::string& part : parts) {
    if (!part.empty()) words += (words.empty() ? "" : between) + part;
  }
  return words;
}

std::string growthWords(const Status& status) {
  std::string time = status.seconds ? timeWords(*status.seconds) : "";
  if (!status.growth) return time;
  return joined(
      {many(status.growth->carved, "cell") + " carved", std::to_string(status.growth->left) + " left", time},
      ", ");
}

std::string stepsWords(const Status& status) {
  return joined({many(status.steps, "step"), status.seconds ? timeWords(*status.seconds) : ""}, ", ");
}

/// What belongs to the phase, between the words of all phases.
std::string ownWords(const Status& status) {
  switch (status.tells) {
    case Status::Tells::nothing:
      break;
    case Status::Tells::brush:
      return colourWords(status.colour.value_or(0)) + ", " + sizeWords(status.square) + " at " +
             placeWords(status.square) + ", drawing " + (status.drawingOff ? "off" : "on");
    case Status::Tells::walker:
      return joined({"arrows carve; J lets the computer", growthWords(status),
                     colourWords(status.colour.value_or(0)) + ", square at " + placeWords(status.square)},
                    "; ");
    case Status::Tells::step:
      return "square at " + placeWords(status.square);
    case Status::Tells::player:
      return stepsWords(status) + "; square at " + placeWords(status.square);
    case Status::Tells::ends:
      return endsWords(status);
    case Status::Tells::way:
      return joined({"the way has " + many(status.wayLength, "cell"), endsWords(status)}, "; ");
    case Status::Tells::played:
      return joined({stepsWords(status), endsWords(status)}, "; ");
    case Status::Tells::computerDraws:
      return "the computer draws the pattern";
    case Status::Tells::computerCarves:
      return joined({"the computer carves", growthWords(status)}, "; ");
    case Status::Tells::computerSolves:
      return "the computer solves";
  }
  return {};
}

std::string runWords(const RunStatus& run) {
  if (run.total == 0) return {};
  return many(run.done, "maze") + " done, " + std::to_string(run.total - run.done) + " to come";
}

}  // namespace

Cells cellsOf(const ProgramState& state, const Square& square) {
  return {cellAt(square.left, state.wallWidth, state.stepX),
          cellAt(square.top, state.wallHeight, state.stepY),
          (square.right - square.left) / std::max(1, state.stepX) + 1,
          (square.bottom - square.top) / std::max(1, state.stepY) + 1};
}

std::string placeWords(const Cells& cells) {
  return "column " + std::to_string(cells.column) + ", row " + std::to_string(cells.row);
}

std::string phaseWords(const ProgramState& state) {
  switch (state.phase) {
    case Phase::quitToTitle:
    case Phase::title:
      break;
    case Phase::patternRequest:
    case Phase::patternEditing:
      return "pattern";
    case Phase::drawing:
      return "drawing";
    case Phase::making:
      return "making the maze";
    case Phase::placing:
      return "start and finish";
    case Phase::solving:
      return "solving";
    case Phase::solved:
      return "solved";
  }
  return {};
}

Status statusOf(const ProgramState& state, const Counted& counted) {
  Status status;
  status.phase = phaseWords(state);
  if (status.phase.empty()) return status;
  status.wallSize = state.wallWidth;
  if (state.print.printMode != PrintMode::none)
    status.run = {state.print.printedCount, state.print.printTotal};
  switch (state.phase) {
    case Phase::patternRequest:
    case Phase::patternEditing:
      tellPattern(state, status);
      break;
    case Phase::drawing:
      tellDrawing(state, status);
      break;
    case Phase::making:
      tellMaking(state, counted, status);
      break;
    case Phase::solving:
      tellSolving(state, counted, status);
      break;
    case Phase::placing:
      tellEnds(state, status);
      break;
    case Phase::solved:
      tellSolved(state, counted, status);
      break;
    default:
      break;  // the title, which tells nothing
  }
  return status;
}

std::string statusWords(const Status& status) {
  const std::string walls = status.wallSize == 0 ? "" : "walls " + std::to_string(status.wallSize);
  return joined({joined({status.phase, walls}, ", "), runWords(status.run), ownWords(status)}, "; ");
}

std::string colourWords(Colour colour) {
  const auto* named = std::find(kPalette.begin(), kPalette.end(), colour);
  if (named != kPalette.end()) return kPaletteNames[static_cast<std::size_t>(named - kPalette.begin())];
  return "colour " + std::to_string(colour & 255) + "," + std::to_string(colour >> 8 & 255) + "," +
         std::to_string(colour >> 16 & 255);
}

std::optional<char> colourLetter(Colour colour) {
  const auto* known = std::find(kPalette.begin(), kPalette.end(), colour);
  if (known == kPalette.end()) return std::nullopt;
  return kPaletteLetters[static_cast<std::size_t>(known - kPalette.begin())];
}

}  // namespace gridwright
