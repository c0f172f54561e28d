#include "solve/place_keys.h"

#include <algorithm>
#include <array>

#include "canvas/slot_walk.h"
#include "colours/colour_repairs.h"
#include "state/key_codes.h"

namespace gridwright {

namespace {

struct MoveKey {
  int code;
  bool finish;  // else the start
  int dx, dy;
};
constexpr std::array kMoves = {
    MoveKey{key::left, true, -1, 0}, MoveKey{key::right, true, 1, 0}, MoveKey{key::up, true, 0, -1},
    MoveKey{key::down, true, 0, 1},  MoveKey{key::J, false, -1, 0},   MoveKey{key::L, false, 1, 0},
    MoveKey{key::I, false, 0, -1},   MoveKey{key::K, false, 0, 1},
};

/// In pipes a square may hop over the other one, that stands right beside it.
void hopOverOther(Program& program, const MoveKey& move, Square& own, const Square& other,
                  Colour otherColour) {
  ProgramState& s = program.state;
  const int x = own.left + move.dx * s.stepX;
  const int y = own.top + move.dy * s.stepY;
  if (program.canvas.point(x, y) != otherColour || other.left != x || other.top != y) return;
  const Colour behind =
      program.canvas.point(own.left + 2 * move.dx * s.stepX, own.top + 2 * move.dy * s.stepY);
  if (!program.colours.isMaze(behind)) return;
  s.ends.underFinish = behind;  // wanted: also when it is the start that hops
  // Wanted: the start's vertical hop goes by the horizontal pitch.
  const int stepY = move.finish ? s.stepY : s.stepX;
  own = own.moved(2 * move.dx * s.stepX, 2 * move.dy * stepY);
}

void moveEnd(Program& program, const MoveKey& move) {
  ProgramState& s = program.state;
  Square& own = move.finish ? s.finish : s.start;
  Colour& under = move.finish ? s.ends.underFinish : s.ends.underStart;
  // Wanted: a move up is measured from the bottom edge.
  const int fromY = move.dy < 0 ? own.bottom : own.top;
  const auto tryMove = [&](int dx, int dy) {
    const Colour pixel = program.canvas.point(own.left + dx, fromY + dy);
    if (!program.colours.isMaze(pixel)) return false;
    under = pixel;
    own = own.moved(dx, dy);
    return true;
  };
  if (tryMove(move.dx * s.stepX, move.dy * s.stepY)) return;
  if (s.mazeKind == MazeKind::pipe) {
    hopOverOther(program, move, own, move.finish ? s.start : s.finish,
                 move.finish ? s.startColor : s.finishColor);
  } else {
    tryMove(2 * move.dx * s.wallWidth, 2 * move.dy * s.wallHeight);
  }
}

struct ColourKey {
  int code;
  bool finish;
  int direction;
};
constexpr std::array kColourKeys = {ColourKey{key::Z, false, -1}, ColourKey{key::X, false, 1},
                                    ColourKey{key::N, true, -1}, ColourKey{key::M, true, 1}};

void stepEndColour(Program& program, const ColourKey& change) {
  ProgramState& s = program.state;
  const ColourSets& sets = program.colours;
  const auto unfit = [&](Colour c) {
    return (c >= 299 && c <= 401) || sets.isMaze(c) || sets.isBackground(c);
  };
  Colour& colour = change.finish ? s.finishColor : s.startColor;
  (change.finish ? s.ends.finishColorMoved : s.ends.startColorMoved) = true;
  if (const auto next = nextInSlots(sets.border(), unNudged(colour), change.direction, unfit))
    colour = nudged(*next);
}

}  // namespace

void placeKey(Program& program, int code) {
  const auto* move =
      std::find_if(kMoves.begin(), kMoves.end(), [&](const MoveKey& m) { return m.code == code; });
  if (move != kMoves.end()) return moveEnd(program, *move);
  const auto* change = std::find_if(kColourKeys.begin(), kColourKeys.end(),
                                    [&](const ColourKey& c) { return c.code == code; });
  if (change != kColourKeys.end()) stepEndColour(program, *change);
}

}  // namespace gridwright
