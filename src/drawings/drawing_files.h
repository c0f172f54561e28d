// Drawings on disk: a pair of files of one base name, the record and the Canvas as a bitmap.
//
// A save builds both beside their targets and takes them over only when both are complete. Killed at
// any moment, either the old pair or the new one is there: a pair that was complete but not yet taken
// over is taken over at the next look, one that was not is forgotten.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "drawings/drawing_record.h"
#include "state/program.h"

namespace gridwright {

void sdrawing(Program& program);  ///< "Save Gridwright Drawing"
void saveEntered(Program& program);
void saveEscaped(Program& program);

void ldrawing(Program& program);  ///< "Load Gridwright Drawing"
void loadEntered(Program& program);
void loadEscaped(Program& program);

/// Saves the drawing on the Canvas under a base name that may be a drawing's, as the panel does.
Outcome<Done> saveDrawing(Program& program, const std::string& base);

struct SavedDrawing {
  DrawingRecord record;
  Bitmap picture;
};

/// A drawing in any folder, by its record's path, with the bitmap of its name beside it. Only reads.
/// \returns a Fault with one line for a person.
Outcome<SavedDrawing> readDrawing(Program& program, const std::filesystem::path& record);

/// A drawing that was read comes back, in the drawing phase; what was drawn goes to last-drawing.bmp.
void takeDrawing(Program& program, const SavedDrawing& drawing);

/// Whether a name may be a drawing's: not empty, no separator, none of the program's own pictures.
bool isNameForDrawing(std::string_view base);

/// Finishes or forgets saves that were cut off.
void recoverSaves(const WorkFolder& folder);

}  // namespace gridwright
