#include "patterns/pattern_commands.h"

#include <array>

#include "patterns/open_pattern.h"
#include "patterns/pattern_editor.h"

namespace gridwright {

namespace {

/// The image of left, right, up, down by source and target direction.
constexpr std::array<std::array<std::array<int, 4>, 4>, 4> kImages = {{
    {{{1, 2, 3, 4}, {2, 1, 4, 3}, {3, 4, 2, 1}, {4, 3, 1, 2}}},  // left
    {{{2, 1, 4, 3}, {1, 2, 3, 4}, {4, 3, 1, 2}, {3, 4, 2, 1}}},  // right
    {{{4, 3, 1, 2}, {3, 4, 2, 1}, {1, 2, 3, 4}, {2, 1, 4, 3}}},  // up
    {{{3, 4, 2, 1}, {4, 3, 1, 2}, {2, 1, 4, 3}, {1, 2, 3, 4}}},  // down
}};

void writeImages(Program& program, int from) {
  const MazeKind kind = program.state.mazeKind;
  const Steps source = program.steps.steps(kind, from);
  for (int to = step::left; to <= step::down; ++to) {
    if (to == from) continue;
    Steps image;
    for (const int code : source) {
      if (step::isCode(code)) image.push_back(imageOfStep(from, to, code));
    }
    program.steps.write(kind, to, image);
  }
}

}  // namespace

int imageOfStep(int from, int to, int code) {
  if (code < step::left || code > step::down) return code;
  const auto at = [](int value) { return static_cast<std::size_t>(value - 1); };
  return kImages.at(at(from)).at(at(to)).at(at(code));
}

void finishOpenPattern(Program& program) {
  ProgramState& s = program.state;
  if (s.editedPattern == 0) return;
  endRandomRun(s);
  closeOpenPattern(program);
  s.phase = Phase::patternRequest;
}

void resetpattern(Program& program) {
  ProgramState& s = program.state;
  if (s.editedPattern == 0) return;
  endRandomRun(s);
  dropOpenPattern(s);
  s.patternDirection = 0;
  s.phase = Phase::patternRequest;
  program.steps.reset(s.mazeKind, s.editedPattern);
}

void resetpatterns(Program& program) {
  ProgramState& s = program.state;
  endRandomRun(s);
  dropOpenPattern(s);
  s.patternDirection = 0;
  s.walker.channelPosition = 0;
  if (s.editedPattern != 0) s.phase = Phase::patternRequest;
  program.steps.resetKind(s.mazeKind);
}

void makeidentical(Program& program) {
  const ProgramState& s = program.state;
  if (s.editedPattern == 0) return;
  finishOpenPattern(program);
  writeImages(program, s.editedPattern);
}

void mkidentical(Program& program) {
  if (program.state.editedPattern == step::left) writeImages(program, step::left);
}

}  // namespace gridwright
