#include "menus/menu_rules.h"

#include <array>
#include <string>

namespace gridwright {

namespace {

constexpr std::array kDifficulties = {Item::mode1, Item::mode2, Item::mode3,
                                      Item::mode4, Item::mode5, Item::mode6};

void markPair(MenuModel& menus, Item ifTrue, Item ifFalse, bool value) {
  menus.setChecked(ifTrue, value);
  menus.setChecked(ifFalse, !value);
}

/// What the rules of a running loop go by.
std::uint64_t loopKeyOf(const ProgramState& s) {
  auto key = static_cast<std::uint64_t>(static_cast<int>(s.phase)) + 6;
  for (const int value : {static_cast<int>(s.mazeKind), s.creationMode == CreationMode::user ? 0 : 1,
                          s.difficultyLevel, static_cast<int>(s.print.printMode), s.panelOpen ? 1 : 0,
                          s.mazeMadeOnce ? 1 : 0, s.print.printedNow ? 1 : 0}) {
    key = key << 4 | static_cast<std::uint64_t>(value);
  }
  return key << 28 | static_cast<std::uint64_t>(s.print.printTotal) << 14 |
         static_cast<std::uint64_t>(s.print.printedCount);
}

}  // namespace

bool loopRulesStand(const Program& program) {
  const MenuModel& menus = program.menus;
  return menus.loopRevision == menus.revision() && menus.loopKey == loopKeyOf(program.state);
}

void noteLoopRules(Program& program) {
  program.menus.loopKey = loopKeyOf(program.state);
  program.menus.loopRevision = program.menus.revision();
}

void markOne(MenuModel& menus, std::initializer_list<Item> group, Item marked) {
  for (const Item item : group) menus.setChecked(item, item == marked);
}

void enableKeyHelp(Program& program, Item title) {
  for (const Item item :
       {Item::keysdrawing, Item::keyspattern, Item::keysmaze, Item::ksandf, Item::keysanswer}) {
    program.menus.setEnabled(item, item == title);
  }
  program.menus.setEnabled(Item::fddf, title == Item::keysdrawing);
}

void mazemenus(Program& program) {
  const MazeKind kind = program.state.mazeKind;
  MenuModel& menus = program.menus;
  menus.setVisible(Item::mazemode1, kind != MazeKind::regular);
  menus.setVisible(Item::lengthp, kind == MazeKind::pipe);
  menus.setVisible(Item::includeunderpasses, kind != MazeKind::regular);
  menus.setVisible(Item::mostunderpasses, kind != MazeKind::regular);
  for (std::size_t level = 0; level < kDifficulties.size(); ++level) {
    menus.setChecked(kDifficulties[level], program.state.difficultyLevel == static_cast<int>(level) + 1);
  }
}

void keysmenu(Program& program) { enableKeyHelp(program, Item::keysanswer); }

bool runWaitsForMaze(const ProgramState& state) {
  return state.phase == Phase::drawing || (state.phase >= Phase::solving && !state.print.printedNow);
}

bool answerIsDue(const ProgramState& state) {
  return state.print.printMode == PrintMode::withAnswers && state.print.printedNow;
}

/// What a print job waits for, when it does.
std::string_view jobWaitsFor(const ProgramState& s) {
  if (s.print.printedCount > 0 && s.creationMode == CreationMode::computer) return "";
  if (s.phase == Phase::making && s.creationMode == CreationMode::user)
    return "waiting for you to make the maze";
  return runWaitsForMaze(s) ? "waiting for a new maze: choose New maze" : "";
}

void printStatus(Program& program) {
  const ProgramState& s = program.state;
  MenuModel& menus = program.menus;
  if (s.print.printMode != PrintMode::none) {
    menus.setTip(Item::printing, jobWaitsFor(s));
    menus.setCaption(Item::printing, std::to_string(s.print.printTotal - s.print.printedCount) +
                                         " mazes left to print out of " + std::to_string(s.print.printTotal));
    return;
  }
  menus.setVisible(Item::printing, false);
  menus.setEnabled(Item::printing, false);
  menus.setChecked(Item::printwithsolutions, false);
  menus.setChecked(Item::printnosolutions, false);
}

void printmenus(Program& program) {
  if (program.state.print.printTotal == 0) printStatus(program);
}

void declaremenus1(Program& program) {
  markPair(program.menus, Item::ugenerate, Item::cgenerate, program.state.creationMode == CreationMode::user);
  enableKeyHelp(program, Item::keysmaze);
  mazemenus(program);
  printmenus(program);
}

void showCreateItems(Program& program) {
  const ProgramState& s = program.state;
  if (s.panelOpen) return;
  program.menus.setVisible(Item::create3dpipe, s.mazeMadeOnce);
  program.menus.setVisible(Item::changewallsize, s.mazeMadeOnce);
  const bool pipeOnly = s.mazeKind == MazeKind::pipe && !s.mazeMadeOnce;
  program.menus.setVisible(Item::createreg, !pipeOnly);
  program.menus.setVisible(Item::create3d, !pipeOnly);
}

void markKind(Program& program) {
  constexpr std::array kItems = {Item::createreg, Item::create3dpipe, Item::create3d};
  markOne(program.menus, {Item::createreg, Item::create3d, Item::create3dpipe},
          kItems.at(static_cast<std::size_t>(program.state.mazeKind)));
}

void markSettings(Program& program) {
  const ProgramState& s = program.state;
  MenuModel& menus = program.menus;
  markPair(menus, Item::drawingoff, Item::drawingon, s.drawingOff);
  constexpr std::array kSymmetry = {Item::turnsoff, Item::horizontal, Item::vertical, Item::way4};
  markOne(menus, {Item::turnsoff, Item::horizontal, Item::vertical, Item::way4},
          kSymmetry.at(static_cast<std::size_t>(s.symmetryMode)));
  constexpr std::array kMethods = {Item::userplace, Item::largestsolution, Item::includeunderpasses,
                                   Item::mostunderpasses};
  markOne(menus, {Item::userplace, Item::largestsolution, Item::includeunderpasses, Item::mostunderpasses},
          kMethods.at(static_cast<std::size_t>(s.finishMethod)));
  menus.setChecked(Item::leavetrail, !s.trailOff);
  markPair(menus, Item::plarge, Item::pnormal, s.pathSize == 2);
  markPair(menus, Item::ugenerate, Item::cgenerate, s.creationMode == CreationMode::user);
  markKind(program);
}

void captionRandomSizes(Program& program) {
  const std::string size = std::to_string(program.state.randomPatterns.randomPatternSize);
  program.menus.setCaption(Item::maxrnd, R"(Random patterns are allways size ")" + size + '"');
  program.menus.setCaption(Item::usernd, R"(Random patterns are any size from "1" to ")" + size + '"');
}

void captionDrawing(Program& program) {
  constexpr std::array kCaptions = {"Gridwright-(drawing picture for 'Regular mazes')",
                                    "Gridwright-(drawing picture for '3d-pipe-mazes')",
                                    "Gridwright-(drawing picture for '3d-mazes')"};
  program.controls.setCaption(kCaptions.at(static_cast<std::size_t>(program.state.mazeKind)));
}

void captionMaking(Program& program) {
  constexpr std::array kCaptions = {"Gridwright-(creating 2d-maze)", "Gridwright-(creating 3d-pipe-maze)",
                                    "Gridwright-(creating 3d-maze)"};
  program.controls.setCaption(kCaptions.at(static_cast<std::size_t>(program.state.mazeKind)));
}

}  // namespace gridwright
