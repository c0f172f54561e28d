// Nothing is lost without a question being asked: the drawing is kept in last-drawing.bmp while it is drawn
// and whenever it is given up, and the workshop's sheet in last-sheet.bmp. What was there before stays as
// last-drawing.bmp~ once the first picture of another drawing takes the name, so that a drawing never covers
// more than itself.
//
// Where the working folder takes no files both go to the data folder. Each is written beside its name and
// renamed: a program that is killed leaves the old picture or the new one, whole.
#pragma once

#include <filesystem>
#include <optional>

#include "state/program.h"

namespace gridwright {

/// The persistent image, where anything is drawn on it, with what a smaller window hides, goes quietly to
/// last-drawing.bmp; in the pattern editor the picture that lies under its field. Nothing at the title.
void keepLastDrawing(Program& program);

/// The same, before another drawing takes its place on the Canvas: what is kept from then on is of that one.
void giveUpDrawing(Program& program);

/// The drawing has not changed for a while: it is kept. While a maze stands over it, it is the drawing as it
/// was left for the maze.
void autosaveDrawing(Program& program);

/// "Last picture": what the drawing before this one left, in this run or another, is taken as an import is;
/// what was on the Canvas takes its place, so that the two change places when it is chosen again. Tells when
/// there is none.
void lastpicture(Program& program);

/// A sheet of the workshop goes quietly to last-sheet.bmp.
/// \param place the folder where an earlier state of the same sheet is kept; empty for none, and the sheet
///   that is there stays as last-sheet.bmp~.
/// \returns the folder that it is in now; empty where it could not be kept.
std::filesystem::path keepSheet(Program& program, const Bitmap& sheet, const std::filesystem::path& place);

struct KeptSheet {
  Bitmap picture;
  std::filesystem::path place;  ///< The folder that it is in.
};
/// The sheet that was kept last; nothing where there is none that can be read.
std::optional<KeptSheet> keptSheet(Program& program);

/// After a program that was killed while it kept a picture: of what was there and what was written nothing is
/// lost.
void recoverLastPictures(const WorkFolder& folder);

/// Says, once each, what a person must know of the folder before drawing in it: that it is not the one
/// expected, that it takes no files, that the last drawing cannot be kept under its name.
void tellOfFolder(Program& program);

}  // namespace gridwright
