// One step of the walker in a regular maze.
#pragma once

#include "state/program.h"

namespace gridwright {

enum class StepResult {
  done,           ///< Made or refused; a full pass follows.
  walkBackEnded,  ///< The walk back's own random steps ended on free ground: its join comes at once.
};

/// A walk back hops over one cell that is neither background nor carved, to the carved ground behind.
void hopOverBorder(Program& program);

/// `leadX`, `leadY`: the edge of the square that goes first.
void leadFromDelta(ProgramState& state);

/// Whether the whole cell at the present offset, and a pixel around it, is free.
bool wholeCellIsFree(const Program& program, int dx, int dy);

/// Whether a regular maze's step by (dx, dy) onto a cell of this colour is taken: free ground, or carved
/// ground on the way back.
bool entersCell(const Program& program, WalkMode mode, Colour ahead, int dx, int dy);

/// Moves the square onto free or, walking back, carved ground, or refuses the step.
StepResult regularStep(Program& program);

}  // namespace gridwright
