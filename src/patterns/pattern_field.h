// The field on which a pattern is drawn: a navy square of 5-pixel cells on a yellow Canvas, the walker
// in its middle. Shared by the editor and by patterns made by chance.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Keeps the picture in "drawing4.bmp" and what the field takes over of the record.
void enterField(Program& program);
/// Gives both back: the picture painted persistent, then the record.
void leaveField(Program& program);

/// Where the walker begins, and where the field's edges lie: patterns made by chance have their field
/// one pixel further right and down.
enum class FieldPlace { editor, byChance };

/// Clears the Canvas, lays the field out, replays the step file of the edited direction on it and
/// leaves it open for appending. `phase` becomes -1.
void setUpField(Program& program, FieldPlace place);

/// `deltaX`, `deltaY` from `stepCode`; 5 turns to walking back.
void fieldStepFromCode(ProgramState& state);

/// What a pass of the editor's loop does with the step in hand: walks, records and paints.
/// \returns whether anything changed.
bool fieldStep(Program& program);

/// The sweep over all directions after a refused underpass.
void fieldSweep(Program& program);

}  // namespace gridwright
