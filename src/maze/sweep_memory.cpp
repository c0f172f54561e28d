#include "maze/sweep_memory.h"

#include <algorithm>

#include "maze/finishmaking.h"

namespace gridwright {

namespace {

using Ground = SweepMemory::Ground;

Ground groundOf(const Program& program) {
  const ProgramState& s = program.state;
  return {s.mazeKind,
          s.mazeMadeOnce,
          s.wallWidth,
          s.wallHeight,
          s.stepX,
          s.stepY,
          s.canvasWidth,
          s.canvasHeight,
          s.start,
          s.finish,
          s.walker.walkStart,
          program.colours.revision(),
          s.walker.givenUpCells.size()};
}

int originX(const ProgramState& s) { return s.wallWidth + 1 - s.stepX; }
int originY(const ProgramState& s) { return s.wallHeight + 1 - s.stepY; }
int columnsOf(const ProgramState& s) { return std::max(0, (s.canvasWidth - originX(s)) / s.stepX + 1); }
int rowsOf(const ProgramState& s) { return std::max(0, (s.canvasHeight - originY(s)) / s.stepY + 1); }

std::size_t cellsOf(const ProgramState& s) {
  return static_cast<std::size_t>(columnsOf(s)) * static_cast<std::size_t>(rowsOf(s));
}

/// The cells whose tests read a pixel from `first` to `last`: the farthest one read lies two walls and a
/// pixel before a cell's square, or three walls behind its corner.
struct Span {
  int from, to;
};
Span readersOf(int first, int last, int origin, int step, int wall, int count) {
  const int from = (first - 3 * wall - origin) / step - 1;
  const int to = (last + 2 * wall + 1 - origin) / step + 1;
  return {std::clamp(from, 0, count), std::clamp(to, 0, count)};
}

void forgetPainted(SweepMemory& memory, const ProgramState& s, const Canvas::Dirty& painted) {
  const Span columns =
      readersOf(painted.left, painted.right - 1, originX(s), s.stepX, s.wallWidth, columnsOf(s));
  const Span rows = readersOf(painted.top, painted.bottom - 1, originY(s), s.stepY, s.wallHeight, rowsOf(s));
  for (int row = rows.from; row < rows.to; ++row) {
    const auto begin = memory.passed.begin() + static_cast<std::ptrdiff_t>(row) * columnsOf(s);
    std::fill(begin + columns.from, begin + columns.to, std::uint8_t{0});
  }
}

}  // namespace

void makeSweepMemory(Program& program) {
  SweepMemory& memory = program.state.walker.sweepMemory;
  memory.passed.assign(cellsOf(program.state), 0);
  memory.ground = groundOf(program);
}

void bringSweepMemoryInLine(Program& program) {
  SweepMemory& memory = program.state.walker.sweepMemory;
  const Canvas::Dirty painted = program.canvas.takePainted();
  if (memory.ground != groundOf(program)) return makeSweepMemory(program);
  if (!painted.empty()) forgetPainted(memory, program.state, painted);
}

FillCursor::FillCursor(Program& program)
    : program_(program),
      passed_(program.state.walker.sweepMemory.passed.data()),
      count_(program.state.walker.sweepMemory.passed.size()),
      columns_(static_cast<std::size_t>(columnsOf(program.state))) {
  const ProgramState& s = program.state;
  at_ = static_cast<std::size_t>((s.scanY - originY(s)) / s.stepY) * columns_ +
        static_cast<std::size_t>((s.scanX - originX(s)) / s.stepX);
}

int FillCursor::xAt() const {
  const ProgramState& s = program_.state;
  return originX(s) + static_cast<int>(at_ % columns_) * s.stepX;
}

int FillCursor::yAt() const {
  const ProgramState& s = program_.state;
  return originY(s) + static_cast<int>(at_ / columns_) * s.stepY;
}

bool FillCursor::stops() {
  if (stopsFillCursor(program_, xAt(), yAt())) return true;
  passed_[at_] = 1;
  return false;
}

bool FillCursor::standsOnItsWay() const {
  const ProgramState& s = program_.state;
  return at_ < count_ && s.scanX == xAt() && s.scanY == yAt();
}

void FillCursor::writeBack(ProgramState& state) const {
  state.scanX = xAt();
  state.scanY = yAt();
}

}  // namespace gridwright
