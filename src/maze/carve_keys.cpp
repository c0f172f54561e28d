#include "maze/carve_keys.h"

#include "maze/maze_settings.h"
#include "state/key_codes.h"

namespace gridwright {

void carveKey(Program& program, int code) {
  ProgramState& s = program.state;
  const bool user = s.creationMode == CreationMode::user;
  if (code == key::J) return setCreationMode(program, user ? CreationMode::computer : CreationMode::user);
  if (code == key::G) {
    s.walkMode = WalkMode::back;
    return;
  }
  const int arrow = stepOfArrow(code);
  if (arrow == step::none || !user) return;
  // With patterns a key plays the whole step file of its direction; while one is being read, it is
  // ignored.
  if (s.patternState == PatternState::choose) s.patternDirection = arrow;
  if (s.patternState == PatternState::random) s.stepCode = arrow;
}

}  // namespace gridwright
