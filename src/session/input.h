// What a person does, as the tenants report it from inside the pump. Handlers change state; the
// running loop acts on it. A menu command proceeds only while `keyBusy` is 0 and sets it, so one pump
// takes one command and drops the rest; buttons, boxes, lists, swatches, timers and the close of the
// window do not ask.
#pragma once

#include <filesystem>
#include <vector>

#include "state/key_codes.h"
#include "state/program.h"

namespace gridwright::input {

/// A key goes down with this code; `go` says how it came after the one before, for the steps of undoing. Lost
/// while a panel or an editor holds the work, while a text box has the keyboard, and when a command was taken
/// in this pump already.
void keyDown(Program& program, int code, KeyGo go = KeyGo::fresh);

/// Chooses an item. One that is disabled, hidden or only informs does nothing.
void menuClick(Program& program, Item item);

/// Chooses an entry of an item that has some, by its place from 0, under the same rules.
void menuEntryClick(Program& program, Item item, int entry);

/// A person is about to look at the menu: its entries are brought up to date.
void menuLookedAt(Program& program);

/// A mouse button went down on the Canvas: 1 left, 2 right.
void mouseDown(Program& program, int button);

/// A running timer's wait is over.
void timerTick(Program& program, ControlId timer);

/// Neither drawing nor sheet has changed for `kAutosaveSeconds`.
void autosave(Program& program);
inline constexpr int kAutosaveSeconds = 20;

/// Presses a button; one that is not shown does nothing.
/// \throws ProgramEnd for the button that quits the program.
void buttonClick(Program& program, ControlId button);

/// The left button on a swatch or another check box, and the right button on one.
void swatchLeft(Program& program, ControlId swatch);
void swatchRight(Program& program, ControlId swatch);

/// Puts text into a shown text box, as typing does.
void textTyped(Program& program, ControlId box, std::string_view text);
void enterPressed(Program& program, ControlId box);

/// Escape in a shown text box, or on a shown part of a colour panel: leaves the panel.
void escapePressed(Program& program, ControlId control);

/// Chooses an entry of a shown file list: it goes into the panel's box, which gets the focus.
void listClick(Program& program, ControlId list, int entry);

/// Files came from outside, dropped on the window or given when the program was started; or something that
/// is no file of this computer. Lost when a command was taken in this pump already.
void filesBrought(Program& program, const std::vector<std::filesystem::path>& files);
void nothingBrought(Program& program);

/// Something is pasted onto the window, at the title too. Lost when a command was taken in this pump already.
void pasteAsked(Program& program);

/// Any key or click while the view of regions or the sheet of keys stands, also one that no phase knows: it
/// closes that.
void viewDismissed(Program& program);

/// The start is put into the cell that holds this pixel of the drawing.
/// \returns whether it was: in the drawing alone, not under a panel, and where a cell holds the pixel.
bool startPut(Program& program, int x, int y);

/// What a person does in the workshop and on its page that makes a picture ready; nothing while it is closed.
/// What is done with tools goes to session/workshop.h at once.
void preparationChanged(Program& program, const PrepareSettings& settings);
void preparedAccepted(Program& program);
void pictureAcceptedAsItIs(Program& program);
void preparationCancelled(Program& program);

/// What a person does with the panel of page setup; nothing while it is closed.
void pageSetupEntered(Program& program, const PageSetup& setup);
void pageSetupEscaped(Program& program);

/// What a person does with the panel of exports; `exportEntered` without the panel too, which tells why the
/// picture can't be taken now.
void exportEntered(Program& program, const ExportWish& wish);
void exportEscaped(Program& program);

/// The keys of "Copy": the item is chosen, or a line tells why it is off.
void copyAsked(Program& program);

/// What a person does with the panel that makes a book, and with the book that is being made.
void bookFilled(Program& program, const BookWish& wish);
void bookAccepted(Program& program, const BookWish& wish);
void bookEscaped(Program& program);
void bookCancelled(Program& program);
void bookPagesAsked(Program& program, bool shown);

/// The window's client area has a new size: the Canvas follows at the title and in drawing only.
void resized(Program& program, Size size);

}  // namespace gridwright::input
