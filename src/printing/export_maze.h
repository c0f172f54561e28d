// The picture on the Canvas as a file for other programs, and to be pasted into them.
#pragma once

#include <string_view>

#include "state/program.h"

namespace gridwright {

/// "Export…": the panel opens with what was wished last in this run, under a name that nothing bears yet, and
/// holds the program.
void exportmaze(Program& program);

/// Writes the picture as wished: the panel's, which closes when it could be done, or without one, which a
/// script does. What bore the file's name stays beside it as NAME~. Else one line tells why nothing was
/// written, in the panel too, and what was there stays: no ending that is known, a folder, no folder, no
/// room; an answer where no solved maze stands; a maze that grows, a finish that is looked for. Reads the
/// shown plane, or `drawing2.bmp`.
void takeExport(Program& program, const ExportWish& wish);

/// The panel closes, and nothing is written.
void leaveExport(Program& program);

/// "Copy": the picture can be pasted into other programs, in its own pixels and as an SVG.
void copymaze(Program& program);

/// Why the picture can't be taken elsewhere now; empty when it can.
std::string_view whyNotTaken(const Program& program);

/// Tells that, and nothing where the picture can be taken, or where there is none yet: at the title.
void tellNotTaken(Program& program);

}  // namespace gridwright
