#include "underpass/nocrosses.h"

namespace gridwright {

bool corridorAcross(const Program& program, const Square& square, int leadX, int leadY) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  const int dx = s.deltaX;
  const int dy = s.deltaY;
  if (s.stepCode == step::left || s.stepCode == step::right) {
    const auto acrossInRow = [&](int y) {
      return pixels.maze(leadX + dx, y) && !pixels.maze(square.left + dx - 1, y) &&
             !pixels.maze(square.right + dx + 1, y);
    };
    return acrossInRow(square.top - s.wallHeight) || acrossInRow(square.bottom + s.wallHeight);
  }
  const auto acrossInColumn = [&](int x) {
    return pixels.maze(x, leadY + dy) && !pixels.maze(x, square.top + dy - 1) &&
           !pixels.maze(x, square.bottom + dy + 1);
  };
  return acrossInColumn(square.left - s.wallWidth) || acrossInColumn(square.right + s.wallWidth);
}

void nocrosses(Program& program) {
  ProgramState& s = program.state;
  UnderpassState& u = s.underpass;
  if (program.pixels().maze(u.probeLeadX + s.deltaX, u.probeLeadY + s.deltaY)) return;
  if (corridorAcross(program, u.probe, u.probeLeadX, u.probeLeadY)) u.underpassOk = false;
}

}  // namespace gridwright
