// The workshop: words, shapes and pictures on a sheet of paper that becomes the drawing.
//
// It is a panel: while it is open the maze under it stands still, and nothing on either plane of the Canvas
// and no value of the square changes until "Use", which is an import. Each routine does nothing while it is
// closed, but for `workshop`.
#pragma once

#include <functional>
#include <optional>

#include "state/program.h"

namespace gridwright {

void workshop(Program& program);  ///< "Workshop…"

/// Opens it, or leaves it as it is where it is open. The window is maximised. A drawing that shows something
/// else than the sheet was last used or left for comes onto the sheet as one more step.
/// \param forPicture a picture is to be made ready: the first that is placed becomes the whole sheet.
void openWorkshop(Program& program, bool forPicture);

/// "Use": the sheet becomes the drawing by the rules of an import, cut or filled up with paper to the size of
/// the Canvas; with all colours reset, unless the sheet came from the drawing. A picture under preparation is
/// placed first. Where nothing was painted nothing changes.
void useWorkshop(Program& program);

/// "Cancel": everything is as it was, and the sheet waits for the next time.
void leaveWorkshop(Program& program);

/// What a person does with a tool, or with the steps.
void onSheet(Program& program, const std::function<void(Sheet&)>& act);
void newsheet(Program& program);

/// A sheet on which something was done is no longer the first picture's alone: what is placed comes onto it.
void stopFilling(Program& program);

/// Puts words or a stamp down, as one step, mirrored as the tools are. The settings stay.
/// \param at where the upper left painted pixel belongs; nothing: the middle of the sheet.
void putWords(Program& program, const WordSettings& settings, std::optional<Corner> at);
void putStamp(Program& program, const StampSettings& settings, std::optional<Corner> at);

/// "Place": puts the prepared picture down. The first one fills the sheet; another comes in the middle, in
/// its own size. Nothing while none is ready.
void placePrepared(Program& program, std::optional<Corner> at, std::optional<Size> size);

/// Moves or scales the picture that was placed last; nothing when something else was done since.
void movePlaced(Program& program, Corner at, Size size);

/// The prepared picture is put away.
void putPictureAway(Program& program);

void turnPage(Program& program, WorkshopPage page);

/// Asks a person for a picture, which opens its page.
void choosePictureForSheet(Program& program);

/// Counts the cells and regions of the sheet, if it has changed since: `Workshop::line` and `map` are of what
/// is on it.
void countSheet(Program& program);

/// What the last step and the size of the sheet have to say; empty for nothing.
std::string sheetNote(const Program& program);

/// The sheet as sheet.png in the working folder, in the desktop's program for such files.
void editelsewhere(Program& program);
/// Looks at that file: where it was saved anew it comes back as one step, as it is where its colours are the
/// sheet's, else through the page that makes pictures ready. A file that is torn, gone or no picture changes
/// nothing.
void watchSheetFile(Program& program);

/// A program that ends keeps a sheet on which something was painted as last-sheet.bmp.
void keepLastSheet(Program& program);

/// The same, before something else takes the place of all that is on it: that will not cover what was kept.
void giveUpSheet(Program& program);

/// The same for a sheet that has not changed for a while; one that is under a stroke waits for its end.
void autosaveSheet(Program& program);

/// The window has another size: the sheet stays as large as it is.
void workshopResized(Program& program);

}  // namespace gridwright
