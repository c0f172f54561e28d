#include "solve/finish_methods.h"

#include "core/menu_rules.h"

namespace gridwright {

void userplace(Program& program) {
  program.state.finishFound = false;
  program.state.finishMethod = FinishMethod::user;
  markSettings(program);
}

void keepFinishMethodPossible(Program& program) {
  ProgramState& s = program.state;
  if (s.mazeKind == MazeKind::regular && s.finishMethod > FinishMethod::largest) {
    s.finishMethod = FinishMethod::largest;
    markSettings(program);
  }
}

}  // namespace gridwright
