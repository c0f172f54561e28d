#include "solve/finish_methods.h"

#include "menus/menu_rules.h"

namespace gridwright {

void userplace(Program& program) {
  program.state.finishFound = false;
  program.state.finishMethod = FinishMethod::user;
  markSettings(program);
}

namespace {

/// The computer is to find another finish: the old one goes from the Canvas.
void chooseSearch(Program& program, FinishMethod method) {
  ProgramState& s = program.state;
  if (s.finishMethod != method && s.phase == Phase::placing) {
    program.canvas.fill(s.ends.lastFinish, s.ends.finishMazeColor);
    s.finishFound = false;
  }
  s.finishMethod = method;
  markSettings(program);
}

}  // namespace

void largestsolution(Program& program) { chooseSearch(program, FinishMethod::largest); }
void includeunderpasses(Program& program) { chooseSearch(program, FinishMethod::includeUnderpasses); }
void mostunderpasses(Program& program) { chooseSearch(program, FinishMethod::mostUnderpasses); }

void keepFinishMethodPossible(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind == MazeKind::regular && s.finishMethod > FinishMethod::largest) {
    s.finishMethod = FinishMethod::largest;
    markSettings(program);
  }
}

}  // namespace gridwright
