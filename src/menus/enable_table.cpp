#include "menus/enable_table.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "state/menu_tips.h"

namespace gridwright {

namespace {

constexpr unsigned bit(Phase phase) { return 1U << (static_cast<int>(phase) + 6); }
constexpr unsigned phases(Phase from, Phase to) {
  unsigned set = 0;
  for (int p = static_cast<int>(from); p <= static_cast<int>(to); ++p) set |= bit(static_cast<Phase>(p));
  return set;
}

constexpr unsigned kEditing = phases(Phase::patternRequest, Phase::patternEditing);
constexpr unsigned kDrawing = bit(Phase::drawing);
constexpr unsigned kWorking = phases(Phase::drawing, Phase::solved);           // 0 to 4
constexpr unsigned kWhole = kDrawing | phases(Phase::placing, Phase::solved);  // no maze grows
constexpr unsigned kAll = kEditing | kWorking;

/// What a row asks besides its phases.
enum Need : unsigned {
  kNothing = 0,
  kUnderTextPanel = 1U << 0,  // stays on while a text panel holds the window
  kUnderAnyPanel = 1U << 1,   // stays on while any panel holds it
  kWhileEditing = 1U << 2,    // stays on in the pattern editor
  kNoPrintRun = 1U << 4,      // while `printTotal` is 0
  kPrintRun = 1U << 5,        // while `printMode` is not 0
  kRefreshDue = 1U << 6,      // while a maze is part of every maze
  kBesideNoRun = 1U << 7,     // while neither a run is set up nor patterns are made for a maze
  kUndo = 1U << 8,            // while something can be taken back
  kRedo = 1U << 9,            // while something can be done again
  kNoSearch = 1U << 10,       // while the solver looks for no finish
};

struct Rule {
  Item item;
  unsigned phases;
  unsigned needs;
};

constexpr auto kTable = std::to_array<Rule>({
    {Item::openpicture, kWorking, kBesideNoRun},
    {Item::openrecent, kWorking, kBesideNoRun},
    {Item::openexample, kWorking, kBesideNoRun},
    {Item::pastepicture, kWorking, kBesideNoRun},
    {Item::lastpicture, kDrawing, kNothing},
    {Item::workshop, kDrawing, kBesideNoRun},
    {Item::preparepicture, kDrawing, kBesideNoRun},
    {Item::whiteground, kWorking, kBesideNoRun},
    {Item::pagesetup, kWorking, kNothing},
    {Item::printpreview, kWorking, kNothing},
    {Item::exportmaze, kWhole, kNoSearch},
    {Item::copymaze, kWhole, kNoSearch},
    {Item::makebook, kDrawing, kBesideNoRun},
    {Item::showregions, kDrawing, kBesideNoRun},
    {Item::undo, phases(Phase::drawing, Phase::making), kBesideNoRun | kUndo},
    {Item::redo, kDrawing, kBesideNoRun | kRedo},
    {Item::markcolours, kWorking, kNothing},
    {Item::statusline, kAll, kWhileEditing},
    {Item::wholescreen, kAll, kWhileEditing},
    {Item::showkeys, kAll, kWhileEditing},
    {Item::surroundings, kAll, kWhileEditing},
    {Item::importdrawing, kDrawing, kNothing},
    {Item::ndrawing, kDrawing, kNothing},
    {Item::sdrawing, kDrawing, kNothing},
    {Item::ldrawing, kDrawing, kNothing},
    {Item::choosew, kDrawing, kNothing},
    {Item::selectcolor, kDrawing, kNothing},
    {Item::resetcolors, kDrawing, kNothing},
    {Item::drawingon, kDrawing, kUnderTextPanel},
    {Item::drawingoff, kDrawing, kUnderTextPanel},
    {Item::multdrawing, kDrawing, kUnderTextPanel},
    {Item::changewallsize, phases(Phase::drawing, Phase::making), kNothing},
    {Item::createreg, kWorking, kNothing},
    {Item::create3d, kWorking, kNothing},
    {Item::create3dpipe, kWorking, kNothing},
    {Item::newmaze, kWorking, kNothing},
    {Item::backtodrawing, phases(Phase::making, Phase::solved), kNothing},
    {Item::backtomaze, phases(Phase::placing, Phase::solved), kNothing},
    {Item::sandf, bit(Phase::making) | phases(Phase::solving, Phase::solved), kNothing},
    {Item::solvemaze, bit(Phase::placing), kNothing},
    {Item::rfinish, phases(Phase::drawing, Phase::placing), kNothing},
    {Item::mpdrawing, bit(Phase::making), kUnderTextPanel},
    {Item::nrefresh, kWorking, kRefreshDue},
    {Item::srndpatterns, phases(Phase::drawing, Phase::placing), kNothing},
    {Item::printwithsolutions, kWorking, kNoPrintRun},
    {Item::printnosolutions, kWorking, kNoPrintRun},
    {Item::printfff, kAll, kWhileEditing},
    {Item::editpatterns, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::rightpattern, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::uppattern, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::downpattern, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::savepatterns, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::loadpatterns, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::resetpatterns, kEditing | phases(Phase::drawing, Phase::making), kWhileEditing},
    {Item::exitpattern, kEditing, kWhileEditing},
    {Item::crpattern, kEditing, kWhileEditing},
    {Item::resetpattern, kEditing, kWhileEditing},
    {Item::makeidentical, kEditing, kWhileEditing},
    {Item::quit2, kAll, kWhileEditing},
    {Item::stopallprintings, kAll, kWhileEditing | kUnderAnyPanel | kPrintRun},
});

/// A text panel shows a label and a box; the colour panels show swatches.
bool colourPanelOpen(const Program& program) {
  return program.state.panelOpen &&
         (program.controls[ControlId::Check1].visible || program.controls[ControlId::Check17].visible);
}

bool holds(const Program& program, const Rule& rule) {
  const ProgramState& s = program.state;
  const auto has = [&](Need need) { return (rule.needs & need) != 0; };
  if ((rule.phases & bit(s.phase)) == 0) return false;
  if (s.paused && !has(kUnderAnyPanel) && !(has(kUnderTextPanel) && !colourPanelOpen(program))) return false;
  if (s.editedPattern != 0 && !has(kWhileEditing)) return false;
  if (has(kNoPrintRun) && s.print.printTotal != 0) return false;
  if (has(kBesideNoRun) && (s.print.printTotal != 0 || s.editor.preparing)) return false;
  if (has(kPrintRun) && s.print.printMode == PrintMode::none) return false;
  if (has(kUndo) && !whyNoUndo(program).empty()) return false;
  if (has(kRedo) && !whyNoRedo(program).empty()) return false;
  if (has(kNoSearch) && s.phase == Phase::solving && isSearching(s)) return false;
  return !has(kRefreshDue) || s.nrefreshDue;
}

const Rule* ruleOf(Item item) {
  const auto* row = std::find_if(kTable.begin(), kTable.end(), [&](const Rule& r) { return r.item == item; });
  return row == kTable.end() ? nullptr : row;
}

std::uint64_t keyOf(const Program& program) {
  const ProgramState& s = program.state;
  auto key = static_cast<std::uint64_t>(static_cast<int>(s.phase)) + 6;
  for (const bool flag :
       {s.paused, s.panelOpen, s.editedPattern != 0, s.print.printTotal != 0,
        s.print.printMode != PrintMode::none, s.nrefreshDue, program.controls[ControlId::Check1].visible,
        program.controls[ControlId::Check17].visible, program.undoMarks.canUndo, program.undoMarks.canRedo,
        s.creationMode == CreationMode::user, isSearching(s)}) {
    key = key << 1 | static_cast<std::uint64_t>(flag);
  }
  return key;
}

constexpr std::string_view kRunStands = "not while a run is set up or patterns are made for a maze";

constexpr std::uint64_t kHeldBack = ~std::uint64_t{0} - 1;  // no key of any values

/// Patterns made before a maze change no menu but the items that stand beside no such work; the table is
/// written anew when they are made.
void holdBack(MenuModel& menus) {
  if (menus.enableKey == kHeldBack) return;
  menus.enableKey = kHeldBack;
  for (const Rule& rule : kTable) {
    if ((rule.needs & kBesideNoRun) != 0) menus.setEnabled(rule.item, false);
  }
  for (const Item item : {Item::undo, Item::redo}) menus.setTip(item, kRunStands);
}

std::string_view plainTip(Item item) {
  const auto* row =
      std::find_if(kMenuTips.begin(), kMenuTips.end(), [&](const MenuTip& t) { return t.item == item; });
  return row == kMenuTips.end() ? std::string_view() : row->words;
}

/// An item that is off says why.
void tipUndo(Program& program) {
  const std::string_view noUndo = whyNoUndo(program), noRedo = whyNoRedo(program);
  program.menus.setTip(Item::undo, noUndo.empty() ? plainTip(Item::undo) : noUndo);
  program.menus.setTip(Item::redo, noRedo.empty() ? plainTip(Item::redo) : noRedo);
}

/// What holds back both.
std::string_view whyNeither(const ProgramState& s) {
  if (s.editedPattern != 0) return "not in the pattern editor";
  if (s.print.printTotal != 0 || s.editor.preparing) return kRunStands;
  return s.panelOpen || s.paused ? "not while a panel is open" : "";
}

}  // namespace

std::string_view whyNoUndo(const Program& program) {
  const ProgramState& s = program.state;
  if (const std::string_view why = whyNeither(s); !why.empty()) return why;
  if (s.phase == Phase::making)
    return s.creationMode == CreationMode::user ? "" : "not while the computer carves";
  if (s.phase != Phase::drawing) return "only in the drawing, and while you carve";
  return program.undoMarks.canUndo ? "" : "nothing was done yet";
}

std::string_view whyNoRedo(const Program& program) {
  const ProgramState& s = program.state;
  if (const std::string_view why = whyNeither(s); !why.empty()) return why;
  if (s.phase != Phase::drawing) return "only in the drawing";
  return program.undoMarks.canRedo ? "" : "nothing was taken back";
}

bool tableLists(Item item) { return ruleOf(item) != nullptr; }

bool tableEnables(const Program& program, Item item) {
  const Rule* rule = ruleOf(item);
  return rule != nullptr && holds(program, *rule);
}

void applyEnableTable(Program& program) {
  for (const Rule& rule : kTable) {
    program.menus.setEnabled(rule.item, holds(program, rule));
  }
  tipUndo(program);
  program.menus.enableKey = keyOf(program);
}

bool enableTableStands(const Program& program) { return program.menus.enableKey == keyOf(program); }

void applyEnableTableIfChanged(Program& program) {
  if (program.state.editor.preparing) return holdBack(program.menus);
  if (!enableTableStands(program)) applyEnableTable(program);
}

}  // namespace gridwright
