// How a maze begins and begins again. A program that has only pixels for data keeps its history in
// pictures, and restarting is loading the right one.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Prepares the walker at each entry of `makemaze`: picture, square, patterns and colours. Returns
/// with `phase` 1 and `walkMode` walking back, also for a maze that is resumed, or with -6 at a quit
/// while random patterns were made.
void makemaze2(Program& program);

/// The part of it that forgets the step in hand.
void makemaze1(Program& program);

/// Short underpasses for a maze that begins; long ones only in pipes that ask for them.
void chooseUnderpassLength(Program& program);

/// The user's own square, shown where the user makes the maze and nothing holds the window.
void showCursorSquare(Program& program);

}  // namespace gridwright
