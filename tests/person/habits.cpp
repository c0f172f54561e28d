#include "person/habits.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <vector>

#include "state/phase_keys.h"

namespace gridwright::person {

namespace {

constexpr auto kBoxes =
    std::to_array<ControlId>({ControlId::text1, ControlId::Text2, ControlId::Text3, ControlId::Text4,
                              ControlId::Text5, ControlId::Text6, ControlId::Text7, ControlId::Text8});
constexpr auto kLists = std::to_array<ControlId>(
    {ControlId::File1, ControlId::File2, ControlId::File3, ControlId::File4, ControlId::File5});

constexpr auto kNames =
    std::to_array<std::string_view>({"a",      "room",      "good",  "b.c",          "A",
                                     " a",     "halls.bmp", "cut",   "lying",        "words",
                                     "lone",   "tiny",      "wide",  "near",         "numbers",
                                     "",       "drawing1",  "title", "last-drawing", "last-sheet",
                                     "../out", "/tmp/x",    "x/y",   "..",           ".",
                                     "none",   "~",         "a~",    "a\\b",         "ä",
                                     "日本",   "a\"b",      "turns", "spellbad",     "a.building",
                                     "%s%n",   "room.png",  "soft",  "example1.bmp"});
constexpr auto kNumbers = std::to_array<std::string_view>({"5",
                                                           "6",
                                                           "7",
                                                           "8",
                                                           "10",
                                                           "13",
                                                           "20",
                                                           "49",
                                                           "50",
                                                           "51",
                                                           "2",
                                                           "3",
                                                           "1",
                                                           "0",
                                                           "-1",
                                                           "99",
                                                           "",
                                                           "x",
                                                           "1.9",
                                                           " 6",
                                                           "+7",
                                                           "1e9",
                                                           "99999999999999999999",
                                                           ".5",
                                                           "4 5"});

// What leads from phase to phase, so that all of them are met; the rest of the menu comes by chance.
constexpr auto kOnward = std::to_array<Item>(
    {Item::cgenerate,      Item::createreg,          Item::create3d,        Item::create3dpipe,
     Item::newmaze,        Item::solvemaze,          Item::backtodrawing,   Item::backtomaze,
     Item::sandf,          Item::nrefresh,           Item::mpdrawing,       Item::importdrawing,
     Item::changewallsize, Item::printwithsolutions, Item::editpatterns,    Item::exitpattern,
     Item::crpattern,      Item::workshop,           Item::largestsolution, Item::includeunderpasses,
     Item::easymode,       Item::hardmode,           Item::ugenerate,       Item::undo,
     Item::redo,           Item::sdrawing,           Item::ldrawing,        Item::choosew,
     Item::srndpatterns,   Item::printnosolutions,   Item::showregions});

std::string named(std::string_view verb, std::string_view name) {
  return std::string(verb) + " " + std::string(name);
}

bool isShown(const Program& program, ControlId id) {
  return program.controls[id].visible && program.controls[id].enabled;
}

/// A shown control of a kind, any of them.
std::optional<ControlId> shownControl(const Program& program, ControlKind kind, Choices& choices) {
  std::vector<ControlId> shown;
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const ControlId id = controlAt(row);
    if (rowOf(id).kind == kind && isShown(program, id)) shown.push_back(id);
  }
  if (shown.empty()) return std::nullopt;
  return choices.oneOf(shown);
}

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string textFor(ControlId box, Choices& choices) {
  const bool isNumber = box == ControlId::Text2 || box == ControlId::Text3 || box == ControlId::Text7;
  if (choices.oneIn(12)) {
    std::string longOne(static_cast<std::size_t>(choices.between(1, 300)), 'n');
    return longOne;
  }
  if (isNumber && !choices.oneIn(10))
    return box == ControlId::Text3 && !choices.oneIn(4) ? choices.numberBetween(1, 3)
                                                        : std::string(choices.oneOf(kNumbers));
  return std::string(choices.oneOf(kNames));
}

std::string boxDeed(const Program& program, ControlId box, Choices& choices) {
  const std::string_view name = rowOf(box).name;
  switch (choices.below(8)) {
    case 0:
      return named("escape", name);
    case 1:
    case 2:
      for (const ControlId list : kLists) {
        if (!isShown(program, list) || program.controls[list].entries.empty()) continue;
        return named("pick", rowOf(list).name) + " " +
               inQuotes(choices.oneOf(program.controls[list].entries));
      }
      [[fallthrough]];
    case 3:
    case 4:
      return named("type", name) + " " + inQuotes(textFor(box, choices));
    default:
      return named("enter", name);
  }
}

std::string swatchDeed(const Program& program, Choices& choices) {
  const auto swatch = shownControl(program, ControlKind::checkBox, choices);
  if (!swatch) return "pumps 1";
  const std::string_view name = rowOf(*swatch).name;
  switch (choices.below(12)) {
    case 0:
      return named("escape", name);
    case 1:
    case 2:
    case 3:
      return named("rightclick", name);
    case 4:
      return isShown(program, ControlId::Command1) ? "click Command1" : named("click", name);
    default:
      return named("click", name);
  }
}

std::string pageDeed(Choices& choices) {
  static constexpr auto kWords = std::to_array<std::string_view>(
      {"paper=a3", "paper=a6", "paper=auto", "landscape=1", "landscape=0", "landscape=auto", "margin=0",
       "margin=50", "margin=auto", "nameline=1", "nameline=0", "endwords=1", "endwords=0",
       "title=\"For Mia\"", "title="});
  if (choices.oneIn(4)) return "cancel";
  return "pagesetup " + std::string(choices.oneOf(kWords)) + " " + std::string(choices.oneOf(kWords));
}

std::string exportDeed(Choices& choices) {
  static constexpr auto kFiles = std::to_array<std::string_view>(
      {"a.png", "b.svg", "c.pdf", "A.PNG", "room.png", "none", "x.gif", "gone/a.png", ".png", "a.png"});
  static constexpr auto kWords = std::to_array<std::string_view>(
      {"", " dpi=72", " answer=0", " answer=1", " clear=1", " dpi=100 clear=1"});
  return "export " + std::string(choices.oneOf(kFiles)) + std::string(choices.oneOf(kWords));
}

std::string bookDeed(Choices& choices) {
  static constexpr auto kOptions = std::to_array<std::string_view>(
      {"--drawing", "--drawing -n 2", "--sheet", "room.png", "gone.png", "--words numbers.txt",
       "--drawing --wall 3", "--drawing --kind 3d,pipe --total 2", "--drawing -o a.txt",
       "--drawing --answers none --paper a6", "--drawing --patterns random:5 --per-page 1x2 --title Mia"});
  if (choices.oneIn(2)) return "cancel";
  if (choices.oneIn(4)) return "accept";
  return "book " + inQuotes(choices.oneOf(kOptions));
}

/// What somebody chooses who wants to see a maze solved, and then another.
Item nextGoal(const Program& program, Choices& choices) {
  switch (program.state.phase) {
    case Phase::drawing:
      return program.state.creationMode == CreationMode::user ? Item::cgenerate : Item::newmaze;
    case Phase::making:
      return choices.oneIn(2) ? Item::cgenerate : Item::sandf;
    case Phase::placing:
      return Item::solvemaze;
    case Phase::patternEditing:
      return Item::exitpattern;
    default:
      return choices.oneIn(2) ? Item::backtodrawing : Item::newmaze;
  }
}

std::string menuDeed(const Program& program, Choices& choices) {
  // Ten tries to find one that is on; a person sees which are.
  for (int tries = 0; tries < 10; ++tries) {
    const int goal = choices.below(6);
    const Item item = goal == 0 ? nextGoal(program, choices)
                      : goal < 4
                          ? choices.oneOf(kOnward)
                          : itemAt(static_cast<std::size_t>(choices.below(static_cast<int>(kItemCount))));
    if (!program.menus.available(item) || hasChildren(item)) continue;
    if (item == Item::quit2 && !choices.oneIn(3)) continue;
    const std::string line = named("menu", rowOf(item).name);
    return hasEntries(item) ? line + " " + choices.numberBetween(1, 12) : line;
  }
  return "pumps 3";
}

/// A key that the phase knows, for the most part.
std::string keyDeed(const Program& program, Choices& choices) {
  static constexpr auto kOthers = std::to_array<int>({1, 13, 27, 32, 36, 37, 65, 90, 112, 188, 222, 255});
  std::vector<int> known;
  for (const PhaseKeys& row : kPhaseKeys) {
    if (row.phase != program.state.phase) continue;
    std::copy_if(row.codes.begin(), row.codes.end(), std::back_inserter(known),
                 [](int code) { return code != 0; });
  }
  const int code = known.empty() || choices.oneIn(12) ? choices.oneOf(kOthers) : choices.oneOf(known);
  const std::string line = "key " + std::to_string(code);
  return choices.oneIn(3) ? line + " " + choices.numberBetween(2, 12) : line;
}

/// Until nothing more happens, which must come. Paper is looked at long, and so is a dead end by a pattern of
/// hundreds of steps.
std::string restDeed(const Program& program) {
  constexpr std::int64_t kSmallestCell = 25, kPumpsForACell = 50'000;
  const std::int64_t area = std::int64_t{program.canvas.scaleWidth()} * program.canvas.scaleHeight();
  return "settle " + std::to_string((area / kSmallestCell + 1) * kPumpsForACell);
}

std::string waitDeed(const Program& program, Choices& choices) {
  static constexpr auto kPumps = std::to_array<int>({1, 2, 5, 20, 100, 600, 3000});
  constexpr int kFewMazes = 4;
  const PrintState& job = program.state.print;
  if (job.printTotal > kFewMazes || choices.oneIn(2)) return "pumps " + std::to_string(choices.oneOf(kPumps));
  return restDeed(program);
}

std::string windowDeed(Choices& choices) {
  switch (choices.below(8)) {
    case 0:
      return "minimize";
    case 1:
    case 2:
      return "restore";
    case 3:
      return choices.oneIn(2) ? "mouse left" : "mouse right";
    case 4:
      return choices.oneIn(2) ? "tick autosave" : "tick sheetwatch";
    case 5:
      return "seed " + choices.numberBetween(0, 9999);
    default:
      return "resize " + choices.numberBetween(50, 300) + "x" + choices.numberBetween(50, 300);
  }
}

std::string titleDeed(const Program& program, Choices& choices) {
  static constexpr auto kShow = std::to_array<std::string_view>(
      {"key 32", "key 27", "mouse left", "mouse right", "tick Timer1", "tick Timer2"});
  if (choices.oneIn(2)) return "click Command2";
  if (choices.oneIn(2)) return std::string(choices.oneOf(kShow));
  const auto button = shownControl(program, ControlKind::button, choices);
  return button && *button != ControlId::Command7 ? named("click", rowOf(*button).name) : "click Command2";
}

std::string workDeed(const Program& program, Choices& choices) {
  const int what = choices.below(20);
  if (what < 9) return keyDeed(program, choices);
  if (what < 15) return menuDeed(program, choices);
  if (what < 19) return waitDeed(program, choices);
  if (choices.oneIn(4)) return exportDeed(choices);
  return program.state.phase == Phase::drawing
             ? "startat " + choices.numberBetween(0, 300) + " " + choices.numberBetween(0, 300)
             : keyDeed(program, choices);
}

}  // namespace

std::string nextDeed(const Program& program, Choices& choices) {
  switch (choices.below(80)) {
    case 0:
    case 1:
    case 2:
      return windowDeed(choices);
    case 3:
    case 4:
      return fileDeed(choices);
    case 5:
      return arrivalDeed(choices);
    case 6:  // whatever holds the window
      return workDeed(program, choices);
    case 7:
      return choices.oneIn(12) ? "close" : "pumps 1";
    default:
      break;
  }
  if (program.workshop.open) return workshopDeed(program, choices);
  if (program.pages.open) return pageDeed(choices);
  if (program.exporting.open) return choices.oneIn(2) ? "cancel" : exportDeed(choices);
  if (program.book.open) return bookDeed(choices);
  for (const ControlId box : kBoxes) {
    if (isShown(program, box)) return boxDeed(program, box, choices);
  }
  if (program.state.phase == Phase::title) return titleDeed(program, choices);
  const bool hasSwatches = shownControl(program, ControlKind::checkBox, choices).has_value();
  if (hasSwatches && program.state.paused) return swatchDeed(program, choices);
  return workDeed(program, choices);
}

}  // namespace gridwright::person
