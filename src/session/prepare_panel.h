// The panel that makes a picture ready for a maze: its picture, its settings, and what comes of them.
//
// The work is done beside the program; when the settings change under it, only the last ones count. While the
// panel is open the maze under it stands still. Nothing else changes until a person uses what came of it.
#pragma once

#include <memory>

#include "state/program.h"

namespace gridwright {

void preparepicture(Program& program);  ///< "Prepare this picture…": on what is on the Canvas.

/// Maximises the window and opens the panel with the settings of the start.
void openPreparePanel(Program& program, std::shared_ptr<const Picture> picture);

/// New settings. Whoever changes another one than the ticks leaves `grow` out: the colours found will be
/// others.
void changePreparation(Program& program, PrepareSettings settings);

/// "Use": the prepared picture becomes the drawing by the rules of an import, with all colours reset; from
/// another phase the program goes back to the drawing first. Work that is under way is waited for.
void usePrepared(Program& program);

/// "As it is": the picture becomes the drawing unchanged, where it fits; the colours stay.
void usePictureAsItIs(Program& program);

/// "Cancel": everything is as it was before.
void cancelPreparation(Program& program);

/// The window has another size: the picture is made ready for that.
void preparationResized(Program& program);

}  // namespace gridwright
