// Pictures and drawings that a person brings from anywhere: dropped on the window, pasted, chosen in the
// desktop's dialog or among those opened last, given when the program is started, taken from the examples.
//
// What is ready for a maze, and a drawing, is taken at once; any other picture opens the panel that makes it
// ready. At the title a picture that can be read begins a drawing first, and in phases 1 to 4 what is taken
// goes back to the drawing first. What cannot be taken is told in one line, and nothing has changed.
// A picture is read beside the program, so that the window stays alive; of several only the last counts.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "state/program.h"

namespace gridwright {

inline constexpr std::size_t kMostRecent = 10;  ///< Files that are remembered as opened last.

void openpicture(Program& program);   ///< "Open picture…"
void pastepicture(Program& program);  ///< "Paste picture"

/// An entry of "Open recent" or of "Examples", counted from 0.
void openRecent(Program& program, int entry);
void openExample(Program& program, int entry);

/// Writes what "Open recent" and "Examples" hold now into the menu: the files opened last, the example
/// pictures, and, where patterns can be loaded, the sets of the present kind.
void listArrivals(Program& program);

/// Files that came at once. The first is taken; a line says so when there are more. One that ends in .maze
/// is a drawing, read where it lies with its bitmap beside it; the working folder stays.
void filesArrived(Program& program, const std::vector<std::filesystem::path>& files);

/// Something came that is no file of this computer, such as an address in the web.
void nothingArrived(Program& program);

/// Pasting, wherever the program stands.
void pasteArrived(Program& program);

/// Runs `take` in the drawing phase: now, or, from another phase, as soon as its stage has begun.
void takeInDrawing(Program& program, std::function<void(Program&)> take);

/// What waited for the drawing phase; run by its stage. \returns whether anything did.
bool takeWhatWaited(Program& program);

}  // namespace gridwright
