#include "maze/carve_keys.h"

#include "session/maze_commands.h"
#include "state/key_codes.h"

namespace gridwright {

int stepOfArrow(int code) {
  switch (code) {
    case key::left:
      return step::left;
    case key::right:
      return step::right;
    case key::up:
      return step::up;
    case key::down:
      return step::down;
    default:
      return step::none;
  }
}

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
