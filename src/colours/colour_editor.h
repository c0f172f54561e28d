// The colours of a picture are edited on three panels of swatches, laid over the drawing: which are
// background and which border, which maze colour each background takes, and which to draw with.
//
// Handlers act on a person's clicks; the rules that keep the sets sound run after each click and in each
// pass of the drawing loop, also while a panel is up: a plain border and a plain background always stay.
#pragma once

#include "state/program.h"

namespace gridwright {

void choosew(Program& program);      ///< "Edit Colors"
void selectcolor(Program& program);  ///< "Select color"
void resetcolors(Program& program);  ///< "Reset all colors"

/// A left click on one of the check boxes: it toggles, and acts as its panel says.
void swatchClicked(Program& program, ControlId swatch);

/// The right button on a classify swatch: its colour becomes every background's maze colour, or the
/// panel for this one background's is wanted.
void swatchRightPressed(Program& program, ControlId swatch);

void command1(Program& program);  ///< "Done"

/// Escape in the uppermost colour panel: picks the ticked colour again, goes back from the maze colours
/// with nothing changed, or is "Done".
void colourPanelEscaped(Program& program);

/// Each pass of the drawing loop: sets from swatches, captions, the last plain border and background
/// kept, the maze colour panel, and, while no panel is up, the colour of the brush.
void swatchPass(Program& program);

void hideColourPanels(Program& program);

}  // namespace gridwright
