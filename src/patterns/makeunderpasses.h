// The underpass step of the pattern preview: what a pattern does, shown on a field of its own.
//
// It is the walker's step of the 3-d and pipe kinds with fixed colours, without whole cells and
// margins, and with pixels read from the square's top left; what differs is part of what the preview
// shows. In the regular kind only the dead end and the pipe release are looked at, and the editor
// moves the square by itself.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Expects `deltaX`, `deltaY`, `stepCode`, and the square and the previous square alike. Moves the
/// walker, paints in white, and appends to the open pattern what `patternRewriting` and
/// `patternRecording` ask for.
void makeunderpasses(Program& program);

}  // namespace gridwright
