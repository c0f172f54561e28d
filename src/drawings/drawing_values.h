// What a drawing file keeps of the program, and how it comes back.
#pragma once

#include "drawings/drawing_record.h"
#include "state/program.h"

namespace gridwright {

/// The 88 values and twelve lists as they stand.
DrawingRecord recordOf(Program& program);

/// Takes over what a drawing holds beside its picture: values, colours, settings, patterns and the window's
/// place; captions, ticks and menus are brought in line. The next pass of the drawing paints no stroke.
void takeValues(Program& program, const DrawingRecord& drawing);

/// Takes a drawing over: values, colours, patterns and picture. Settings outside their values take
/// their defaults; the phase stays 0; captions, ticks and menus are brought in line.
void install(Program& program, const DrawingRecord& drawing, const Bitmap& picture);

}  // namespace gridwright
