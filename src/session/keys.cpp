#include "session/keys.h"

#include "drawing/brush_keys.h"
#include "maze/carve_keys.h"
#include "patterns/pattern_editor.h"
#include "session/slideshow.h"
#include "solve/place_keys.h"
#include "solve/play.h"
#include "state/key_codes.h"
#include "state/phase_keys.h"

namespace gridwright {

namespace {

/// While a book is printed a person may only carve.
bool heldBack(const ProgramState& s, int code) {
  const bool carves = code == key::J || (code >= key::left && code <= key::down);
  return s.session.bookMode != 0 && !(s.phase == Phase::making && carves);
}

}  // namespace

void dispatchKey(Program& program, int code) {
  const ProgramState& s = program.state;
  if (!isKeyOf(s.phase, code) || heldBack(s, code)) return;
  switch (s.phase) {
    case Phase::title:
      return slideKey(program, code);
    case Phase::patternEditing:
      return patternKey(program, code);
    case Phase::drawing:
      return brushKey(program, code);
    case Phase::making:
      return carveKey(program, code);
    case Phase::placing:
      return placeKey(program, code);
    case Phase::solving:
      return playKey(program, code);
    default:
      return;  // other phases have no keys
  }
}

}  // namespace gridwright
