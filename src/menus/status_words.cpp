#include "menus/status_words.h"

#include <algorithm>

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

void tellPattern(const ProgramState& s, Status& status) {
  const bool byChance = s.editor.randomRunning || s.editor.preparing;
  status.tells = byChance ? Status::Tells::computerDraws : Status::Tells::step;
  if (!byChance) status.square = cellsOf(s, s.cur);
}

void tellMaking(const ProgramState& s, Status& status) {
  const bool byHand = s.creationMode == CreationMode::user;
  status.tells = byHand ? Status::Tells::walker : Status::Tells::computerCarves;
  if (!byHand) return;
  status.colour = s.mazeColor;
  status.square = cellsOf(s, s.cur);
}

void tellEnds(const ProgramState& s, Status& status) {
  status.tells = Status::Tells::ends;
  if (isPlaced(s.start)) status.square = cellsOf(s, s.start);
  if (isPlaced(s.finish)) status.finish = cellsOf(s, s.finish);
}

void tellSolving(const ProgramState& s, Status& status) {
  const bool searching = s.finishMethod != FinishMethod::user && !s.finishFound;
  const bool byHand = s.playMode != PlayMode::off && !searching;
  status.tells = byHand ? Status::Tells::player : Status::Tells::computerSolves;
  if (byHand) status.square = cellsOf(s, s.cur);
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

Status statusOf(const ProgramState& state) {
  Status status;
  switch (state.phase) {
    case Phase::quitToTitle:
    case Phase::title:
      break;
    case Phase::patternRequest:
    case Phase::patternEditing:
      tellPattern(state, status);
      break;
    case Phase::drawing:
      tellDrawing(state, status);
      break;
    case Phase::making:
      tellMaking(state, status);
      break;
    case Phase::solving:
      tellSolving(state, status);
      break;
    case Phase::placing:
    case Phase::solved:
      tellEnds(state, status);
      break;
  }
  return status;
}

std::string statusWords(const Status& status) {
  switch (status.tells) {
    case Status::Tells::nothing:
      break;
    case Status::Tells::brush:
      return colourWords(status.colour.value_or(0)) + ", " + sizeWords(status.square) + " at " +
             placeWords(status.square) + ", drawing " + (status.drawingOff ? "off" : "on");
    case Status::Tells::walker:
      return colourWords(status.colour.value_or(0)) + ", square at " + placeWords(status.square);
    case Status::Tells::step:
    case Status::Tells::player:
      return "square at " + placeWords(status.square);
    case Status::Tells::ends:
      return endsWords(status);
    case Status::Tells::computerDraws:
      return "the computer draws the pattern";
    case Status::Tells::computerCarves:
      return "the computer carves";
    case Status::Tells::computerSolves:
      return "the computer solves";
  }
  return {};
}

std::string colourWords(Colour colour) {
  const auto* named = std::find(kPalette.begin(), kPalette.end(), colour);
  if (named != kPalette.end()) return kPaletteNames[static_cast<std::size_t>(named - kPalette.begin())];
  return "colour " + std::to_string(colour & 255) + "," + std::to_string(colour >> 8 & 255) + "," +
         std::to_string(colour >> 16 & 255);
}

}  // namespace gridwright
