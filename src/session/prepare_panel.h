// The workshop's page that makes a picture ready for a maze: its picture, its settings, and what comes of
// them.
//
// The work is done beside the program; when the settings change under it, only the last ones count. Nothing
// else changes until a person places what came of it on the sheet, or uses it.
#pragma once

#include <memory>

#include "state/program.h"

namespace gridwright {

void preparepicture(Program& program);  ///< "Prepare this picture…": on what is on the Canvas.

/// Opens the workshop, where it is not open, and in it the page with the settings of the start; a picture
/// that comes onto a sheet with something on it is offered in its own size.
void openPreparePanel(Program& program, std::shared_ptr<const Picture> picture);

/// New settings. Whoever changes another one than the ticks leaves `grow` out: the colours found will be
/// others.
void changePreparation(Program& program, PrepareSettings settings);

/// "As it is": the picture becomes the drawing unchanged, where it fits; the colours stay.
void usePictureAsItIs(Program& program);

/// The page has no picture any more; the workshop stays open.
void closePreparation(Program& program);

/// The window has another size: the picture is made ready for that.
void preparationResized(Program& program);

}  // namespace gridwright
