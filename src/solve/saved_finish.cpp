#include "solve/saved_finish.h"

namespace gridwright {

void restoreSavedFinish(Program& program) {
  ProgramState& s = program.state;
  if (s.phase != Phase::solving || s.finishMethod == FinishMethod::user || s.finishFound) return;
  const Square& saved = s.ends.savedFinish;
  if (!program.pixels().noGround(saved.left, saved.top)) s.finish = saved;
}

}  // namespace gridwright
