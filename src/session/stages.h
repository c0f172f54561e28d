// The stages of the main loop. Each returns the next; none calls another, so the jumps of the
// program can be read, and walked by a test, as one table.
#pragma once

#include "state/program.h"

namespace gridwright {

enum class Stage {
  processStart,  // A
  title,         // B: the restart point
  leaveTitle,    // C
  drawing,       // D
  checks,        // E
  making,        // F
  ends,          // G
  solving,       // H
};

/// The stage that waits for a phase; the title for a quit. Any other phase has none of its own and
/// gives the stage of solving, which waits until one is set that has.
Stage stageOf(Phase phase);

/// Runs one stage. \returns the stage to go on with.
Stage runStage(Program& program, Stage stage);

// What each does, in the order of a maze's road.
Stage processStartStage(Program& program);
Stage titleStage(Program& program);
Stage leaveTitleStage(Program& program);
Stage drawingStage(Program& program);
Stage checksStage(Program& program);
Stage makingStage(Program& program);
Stage endsStage(Program& program);
Stage solvingStage(Program& program);

}  // namespace gridwright
