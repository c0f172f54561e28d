// The repairs made to the colour sets when a drawing is left for a maze, and to the colours of the
// end squares before carving starts.
#pragma once

#include "state/program.h"

namespace gridwright {

/// Sixteen classify swatches, `Check33`, `Check34` and `individualMazeColors` as at the first start,
/// the sets refilled from them, and every maze colour white.
void defaultColours(Program& program);

/// `backgroundColors` and `borderColors` from the classify swatches.
void refillSetsFromSwatches(Program& program);

/// The captions of the classify and drawing swatches: "Maze Color", "Background", "Border Color".
void captionSwatches(Program& program);

/// Reads the Canvas and the swatches. The frame colour becomes a border; when no background is left
/// one is made; a colour on the picture's cell corners stops being a maze colour if another can take
/// its place, and `mazeColor` follows it.
void repairSetsBeforeMaze(Program& program);

/// Keeps `mazeColor` as the colour to come back to; `startColor` and `finishColor` become border colours
/// that are neither maze nor background.
void repairEndColours(Program& program);

/// One step off the palette, so that an end square is told from any picture colour by exact value.
Colour nudged(Colour plain);
/// The inverse; a colour that is not nudged stays as it is.
Colour unNudged(Colour colour);

/// Takes back `savedStartColor` and `savedFinishColor`, each if it is still a plain border colour.
void restoreSavedEndColours(Program& program);

}  // namespace gridwright
