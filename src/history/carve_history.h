// Undo of what is carved by hand. The picture is all that a maze is; with the walker where the key found it
// the carving has not happened.
#pragma once

#include "history/steps.h"

namespace gridwright {

/// Nothing can be taken back, and what is painted belongs to nobody.
void forgetCarving(CarveHistory& carving);

/// Ascribes what was carved since the last look to the last arrow key. What nobody's key has carved, such as
/// another maze, ends what can be taken back.
void lookAtCarving(Program& program, CarveHistory& carving, std::size_t mostBytes);

/// An arrow key is about to be taken by a walker that waits for it.
void noteArrow(Program& program, CarveHistory& carving);

/// Takes back the last step; nothing without one.
void undoCarving(Program& program, CarveHistory& carving);

}  // namespace gridwright
