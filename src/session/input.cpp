#include "session/input.h"

#include <algorithm>
#include <array>

#include "colours/colour_editor.h"
#include "drawings/last_picture.h"
#include "history/history.h"
#include "menus/enable_table.h"
#include "menus/keys_sheet.h"
#include "menus/panels.h"
#include "printing/export_maze.h"
#include "printing/page_setup.h"
#include "printing/print_job.h"
#include "session/arrivals.h"
#include "session/book_panel.h"
#include "session/heard.h"
#include "session/keys.h"
#include "session/main_loop.h"
#include "session/menu_commands.h"
#include "session/panel_entries.h"
#include "session/prepare_panel.h"
#include "session/show_regions.h"
#include "session/slideshow.h"
#include "session/title.h"
#include "session/workshop.h"
#include "solve/default_ends.h"
#include "state/grid.h"

namespace gridwright::input {

namespace {

bool isLive(const Program& program, ControlId id) {
  return program.controls[id].visible && program.controls[id].enabled;
}

/// While a maze is prepared by a loop of its own, only leaving is possible, and what changes nothing but the
/// window.
bool isHeldBack(const ProgramState& s, Item item) {
  constexpr std::array kGoOn = {Item::quit2,       Item::stopallprintings, Item::markcolours,
                                Item::statusline,  Item::wholescreen,      Item::showkeys,
                                Item::surroundings};
  return s.editor.preparing && std::find(kGoOn.begin(), kGoOn.end(), item) == kGoOn.end();
}

/// What lies over the Canvas is taken away. \returns whether anything did: the input was for that alone.
bool closesView(Program& program) {
  const bool keys = hideKeys(program);
  return hideRegions(program) || keys;
}

/// A click that closes a view chooses nothing.
bool canBeChosen(Program& program, Item item) {
  if (closesView(program)) return false;
  applyEnableTableIfChanged(program);
  return !program.state.keyBusy && program.menus.available(item);
}

struct Button {
  ControlId id;
  void (*press)(Program&);
};
constexpr std::array kButtons = {
    Button{ControlId::Command1, command1},
    Button{ControlId::Command2, command2},
    Button{ControlId::Command3, command3},
    Button{ControlId::Command4, command4},
    Button{ControlId::Command5, command5},
    Button{ControlId::Command6, command6},
    Button{ControlId::Command7, [](Program&) { endProgram(); }},
};

/// The box that a file list fills.
struct ListOfPanel {
  ControlId list, box;
};
constexpr std::array kLists = {
    ListOfPanel{ControlId::File1, ControlId::text1}, ListOfPanel{ControlId::File2, ControlId::Text4},
    ListOfPanel{ControlId::File3, ControlId::Text5}, ListOfPanel{ControlId::File4, ControlId::Text6},
    ListOfPanel{ControlId::File5, ControlId::Text8}};

}  // namespace

void keyDown(Program& program, int code, KeyGo go) {
  if (closesView(program)) return;
  ProgramState& s = program.state;
  if (s.paused || program.controls.focus() || s.keyBusy) return;
  s.keyBusy = true;
  noteKey(program, code, go);
  noteArrow(program, code);
  dispatchKey(program, code);
}

void menuClick(Program& program, Item item) {
  const Command command = commandOf(item);
  if (command == nullptr || !canBeChosen(program, item)) return;
  if (isHeldBack(program.state, item)) {
    program.notices.tell(std::string(whyHeld(program)));
    return;
  }
  program.state.keyBusy = true;
  noteItem(program, item);
  command(program);
}

void menuEntryClick(Program& program, Item item, int entry) {
  const EntryCommand command = entryCommandOf(item);
  const auto count = static_cast<int>(program.menus.entries(item).size());
  if (command == nullptr || entry < 0 || entry >= count || !canBeChosen(program, item)) return;
  program.state.keyBusy = true;
  noteItem(program, item);
  command(program, entry);
}

void menuLookedAt(Program& program) { listArrivals(program); }

void mouseDown(Program& program, int button) {
  if (!closesView(program)) slideMouse(program, button);
}

void timerTick(Program& program, ControlId timer) { slideTimer(program, timer); }

void autosave(Program& program) {
  autosaveDrawing(program);
  autosaveSheet(program);
}

void buttonClick(Program& program, ControlId button) {
  if (!isLive(program, button)) return;
  const auto* row =
      std::find_if(kButtons.begin(), kButtons.end(), [&](const Button& b) { return b.id == button; });
  if (row != kButtons.end()) row->press(program);
}

void swatchLeft(Program& program, ControlId swatch) {
  if (isLive(program, swatch)) swatchClicked(program, swatch);
}

void swatchRight(Program& program, ControlId swatch) {
  if (isLive(program, swatch)) swatchRightPressed(program, swatch);
}

void textTyped(Program& program, ControlId box, std::string_view text) {
  if (!isLive(program, box)) return;
  if (box == ControlId::Text3) printPanelKey(program);
  program.controls.setText(box, text);
}

void enterPressed(Program& program, ControlId box) {
  if (!isLive(program, box)) return;
  if (box == ControlId::Text3) printPanelKey(program);
  if (box == ControlId::Text4) noteLoad(program);
  panelEntered(program, box);
}

void escapePressed(Program& program, ControlId control) {
  if (!isLive(program, control)) return;
  if (rowOf(control).kind != ControlKind::textBox) return colourPanelEscaped(program);
  if (control == ControlId::Text3) printPanelKey(program);
  panelEscaped(program, control);
}

void listClick(Program& program, ControlId list, int entry) {
  const Control& control = program.controls[list];
  if (!isLive(program, list) || entry < 0 || entry >= static_cast<int>(control.entries.size())) return;
  const auto* row =
      std::find_if(kLists.begin(), kLists.end(), [&](const ListOfPanel& l) { return l.list == list; });
  if (row == kLists.end()) return;
  program.controls.setSelected(list, entry);
  if (list == ControlId::File2)
    program.state.files.lastDrawing = control.entries[static_cast<std::size_t>(entry)];
  if (list == ControlId::File4)
    program.state.files.lastSet = control.entries[static_cast<std::size_t>(entry)];
  program.controls.setText(row->box, control.entries[static_cast<std::size_t>(entry)]);
  program.controls.setFocus(row->box);
}

void filesBrought(Program& program, const std::vector<std::filesystem::path>& files) {
  closesView(program);
  filesArrived(program, files);
}

void nothingBrought(Program& program) {
  closesView(program);
  nothingArrived(program);
}

void pasteAsked(Program& program) {
  if (hideKeys(program)) return;
  hideRegions(program);
  pasteArrived(program);
}

bool startPut(Program& program, int x, int y) {
  const ProgramState& s = program.state;
  return s.phase == Phase::drawing && !s.panelOpen && startat(program, x, y);
}

void viewDismissed(Program& program) { closesView(program); }

void preparationChanged(Program& program, const PrepareSettings& settings) {
  changePreparation(program, settings);
}

void preparedAccepted(Program& program) { useWorkshop(program); }
void pictureAcceptedAsItIs(Program& program) { usePictureAsItIs(program); }
void preparationCancelled(Program& program) { leaveWorkshop(program); }

void pageSetupEntered(Program& program, const PageSetup& setup) { takePageSetup(program, setup); }
void pageSetupEscaped(Program& program) { leavePageSetup(program); }

void exportEntered(Program& program, const ExportWish& wish) {
  closesView(program);
  takeExport(program, wish);
}

void exportEscaped(Program& program) { leaveExport(program); }

void copyAsked(Program& program) {
  applyEnableTableIfChanged(program);
  if (program.menus.available(Item::copymaze)) return menuClick(program, Item::copymaze);
  if (!closesView(program)) tellNotTaken(program);
}

void bookFilled(Program& program, const BookWish& wish) { fillBook(program, wish); }
void bookAccepted(Program& program, const BookWish& wish) { acceptBook(program, wish); }
void bookEscaped(Program& program) { leaveBook(program); }
void bookCancelled(Program& program) { cancelBook(program); }
void bookPagesAsked(Program& program, bool shown) { showBookPages(program, shown); }

void resized(Program& program, Size size) {
  hideRegions(program);
  workshopResized(program);
  preparationResized(program);
  noteResize(program);
  const ProgramState& s = program.state;
  if (s.phase != Phase::title && s.phase != Phase::drawing) return;
  if (s.editedPattern == 0) followWindow(program, size);
}

}  // namespace gridwright::input
