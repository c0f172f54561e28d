// Runs of mazes on paper. A job is no loop of its own, only a few values that the stages read: they
// make maze after maze and print each as it is placed, and once more when it is solved. A page that cannot
// be kept ends its job, a message says so, and the maze in hand runs on as an ordinary one.
#pragma once

#include "state/program.h"

namespace gridwright {

void printwithsolutions(Program& program);  ///< "print mazes(with answers)"
void printnosolutions(Program& program);    ///< "print mazes(without answers)"
void stopallprintings(Program& program);    ///< "stop all printings"

void printEntered(Program& program);
void printEscaped(Program& program);
/// Any key in the panel's box: a solver that the panel stopped in mid-play starts cleanly again.
void printPanelKey(Program& program);

/// Placement has both ends on the Canvas: prints the maze. \returns whether a job goes on; `phase` is
/// 3 then (with answers), or 1 (without).
bool printPlacedMaze(Program& program);

/// The finish is reached: prints the answer of a job that asked for it. \returns whether the job goes
/// on; `phase` is 1 then.
bool printSolvedMaze(Program& program);

/// No way leads to the finish: a job that asked for the answer does without it. \returns whether the job
/// goes on; `phase` is 1 then. Its end tells how many were left out.
bool leaveAnswerOut(Program& program);

/// Before a maze begins: a job whose count is reached ends, its pages are one document.
void endJobWhenDone(Program& program);

/// Ends a job wherever it stands; the maze in hand runs on as an ordinary one.
void endJob(Program& program);

}  // namespace gridwright
