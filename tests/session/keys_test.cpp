#include "session/keys.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "colours/colour_repairs.h"
#include "menus/enable_table.h"
#include "menus/panels.h"
#include "session/input.h"
#include "session/menu_commands.h"
#include "state/field_names.h"
#include "state/key_codes.h"
#include "state/phase_keys.h"
#include "state/shortcuts.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(ASecondKeyInTheSamePump, IsLost) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::drawing;
  input::keyDown(w.program, key::slash);
  input::keyDown(w.program, key::slash);
  EXPECT_TRUE(w.state.drawingOff);
  EXPECT_TRUE(w.state.keyBusy);
  w.state.keyBusy = false;
  input::keyDown(w.program, key::slash);
  EXPECT_FALSE(w.state.drawingOff);
}

TEST(AKeyUnderAPanel, IsLost) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::drawing;
  openPanel(w.program, kWallSizePanel, "10");
  input::keyDown(w.program, key::slash);
  EXPECT_FALSE(w.state.drawingOff);
  EXPECT_FALSE(w.state.keyBusy);
}

TEST(WhileABookIsPrinted, OnlyJAndTheArrowsOfAMazeGoOn) {
  World w(drawing({"...", "..."}));
  w.state.session.bookMode = 1;
  w.state.phase = Phase::drawing;
  dispatchKey(w.program, key::slash);
  EXPECT_FALSE(w.state.drawingOff);
  w.state.phase = Phase::making;
  w.state.walkMode = WalkMode::carve;
  dispatchKey(w.program, key::G);
  EXPECT_EQ(w.state.walkMode, WalkMode::carve);
  dispatchKey(w.program, key::left);
  EXPECT_EQ(w.state.patternDirection, step::left);
  dispatchKey(w.program, key::J);
  EXPECT_EQ(w.state.creationMode, CreationMode::computer);
}

TEST(APhaseWithoutKeys, IgnoresAllOfThem) {
  for (const Phase phase : {Phase::title, Phase::quitToTitle, Phase::patternRequest, Phase::solved}) {
    World w(drawing({"...", "..."}));
    w.state.phase = phase;
    const Square cur = w.state.cur;
    for (int code = 0; code < 256; ++code) dispatchKey(w.program, code);
    EXPECT_EQ(w.state.cur, cur);
    EXPECT_EQ(w.state.stepCode, step::none);
    EXPECT_FALSE(w.state.drawingOff);
    EXPECT_EQ(w.state.phase, phase);
  }
}

TEST(TheArrowsOfThePatternEditor, AskForTheirStepAndGTakesEffectOnce) {
  for (const auto& [code, wanted] :
       {std::pair{37, 1}, std::pair{39, 2}, std::pair{38, 3}, std::pair{40, 4}}) {
    World w(drawing({"...", "..."}));
    w.state.phase = Phase::patternEditing;
    dispatchKey(w.program, code);
    EXPECT_EQ(w.state.stepCode, wanted);
  }
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::patternEditing;
  w.state.walkMode = WalkMode::carve;
  dispatchKey(w.program, key::G);
  EXPECT_EQ(w.state.stepCode, 5);
  EXPECT_EQ(w.state.walkMode, WalkMode::back);
  w.state.stepCode = step::none;
  dispatchKey(w.program, key::G);
  EXPECT_EQ(w.state.stepCode, step::none);
}

/// A world in which every key of the phase has something to do.
std::unique_ptr<World> worldOf(Phase phase) {
  auto w = std::make_unique<World>(Bitmap(plainBitmap(110, 110, kPalette[11])));
  ProgramState& s = w->state;
  s.phase = phase;
  s.cur = s.prev = {30, 30, 49, 49};
  s.drawing.squareWidth = s.drawing.squareHeight = 19;
  s.drawing.centreLeft = s.drawing.centreTop = 10;
  s.drawing.mirror = s.cur;
  s.canvasWidth = w->canvas.scaleWidth();
  s.canvasHeight = w->canvas.scaleHeight();
  s.walkMode = WalkMode::carve;
  s.borderDrawColor = s.drawColor = kPalette[12];
  s.backgroundDrawColor = kPalette[2];
  w->canvas.setBackColor(kPalette[10]);
  s.start = squareOf(3, 3);
  s.finish = squareOf(5, 3);
  if (phase >= Phase::placing) {
    w->canvas.fill(0, 0, s.canvasWidth, s.canvasHeight, s.mazeColor = kWhite);
    s.playMode = PlayMode::easy;
    s.cur = squareOf(3, 3);
    s.startColor = nudged(kPalette[12]);
    s.finishColor = nudged(kPalette[12]);
  }
  return w;
}

std::uint64_t lookOf(const World& w) {
  const ProgramState& s = w.state;
  std::uint64_t look = w.canvas.changes();
  for (const FieldName& field : fieldNames())
    look = look * 1099511628211U + static_cast<std::uint64_t>(field.read(w.program));
  for (const std::int64_t value :
       {std::int64_t{s.startColor}, std::int64_t{s.finishColor}, std::int64_t{s.stepCode},
        std::int64_t{s.patternDirection}, static_cast<std::int64_t>(s.walkMode),
        std::int64_t{s.solver.probeX}, static_cast<std::int64_t>(s.creationMode), std::int64_t{s.drawColor},
        std::int64_t{s.mazeColor}}) {
    look = look * 1099511628211U + static_cast<std::uint64_t>(value);
  }
  return look;
}

/// A key that has something to do, wherever the brush has its colour from.
bool keyDoesSomething(World& w, int code) {
  const ProgramState before = w.state;
  bool does = false;
  for (const Colour colour : {before.borderDrawColor, before.backgroundDrawColor}) {
    w.state.drawColor = colour;
    w.canvas.setBackColor(kPalette[10]);
    w.canvas.fill(0, 0, before.canvasWidth, before.canvasHeight, kWhite);
    const std::uint64_t look = lookOf(w);
    dispatchKey(w.program, code);
    does = does || lookOf(w) != look;
    w.state = before;
  }
  return does;
}

TEST(TheTableOfKeys, HoldsEveryKeyThatDoesSomethingInItsPhaseAndNoOther) {
  for (const Phase phase : {Phase::patternRequest, Phase::patternEditing, Phase::drawing, Phase::making,
                            Phase::placing, Phase::solving, Phase::solved}) {
    const auto w = worldOf(phase);
    for (int code = 0; code < 256; ++code) {
      EXPECT_EQ(keyDoesSomething(*w, code), isKeyOf(phase, code))
          << "key " << code << " in phase " << static_cast<int>(phase);
    }
  }
}

TEST(EveryKeyOfTheTable, HasACapAndEveryPhaseAPlaceOnTheSheet) {
  for (const PhaseKeys& row : kPhaseKeys) {
    EXPECT_FALSE(row.words.empty());
    for (const int code : row.codes) EXPECT_EQ(capOf(code).empty(), code == 0) << code;
  }
}

TEST(TheSheetOfKeys, ShowsThePresentPhasesRowsAndTheFunctionKeysThatLeadOn) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::making;
  w.program.menus.setVisible(Item::filet, true);
  applyEnableTable(w.program);
  input::menuClick(w.program, Item::showkeys);
  const KeysSheet& sheet = w.program.keys;
  ASSERT_TRUE(sheet.shown);
  EXPECT_EQ(sheet.title, "Keys: making the maze");
  ASSERT_GE(sheet.rows.size(), 3U);
  EXPECT_EQ(sheet.rows[0].caps, std::vector<std::string>{"J"});
  EXPECT_EQ(sheet.rows[0].words, "let the computer carve, or carve yourself");
  EXPECT_EQ(sheet.rows[1].caps, (std::vector<std::string>{"←", "→", "↑", "↓"}));
  std::set<std::string> functions;
  for (const KeysSheet::Row& row : sheet.rows) functions.insert(row.caps.front());
  EXPECT_TRUE(functions.contains("F8")) << "a maze leads back to its drawing";
  EXPECT_FALSE(functions.contains("F6")) << "it is not to be solved yet";
}

TEST(TheKeyThatClosesTheSheet, DoesNothingElseAndTheNextOneDoes) {
  World w(Size{60, 50});
  w.begin(drawing({"...", "..."}));
  int passes = 0;
  w.desktop.menu(Item::showkeys);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.keys.shown);
    passes = w.desktop.housekeeping;
  });
  w.desktop.pumpsPass(3);
  w.desktop.look([&](Program&) { EXPECT_EQ(w.desktop.housekeeping, passes) << "the program stands still"; });
  w.desktop.act([](Program& p) { input::keyDown(p, key::slash); });
  w.desktop.look([](Program& p) {
    EXPECT_FALSE(p.keys.shown);
    EXPECT_FALSE(p.state.drawingOff);
  });
  w.desktop.act([](Program& p) { input::keyDown(p, key::slash); });
  w.desktop.look([](Program& p) { EXPECT_TRUE(p.state.drawingOff); });
  EXPECT_EQ(w.run(), "");
}

TEST(AMazeUnderTheSheet, GrowsOnWhenAnItemClosesIt) {
  World w(Size{200, 200});
  w.begin(drawing({"..........", "..........", "..........", "..........", "..........", ".........."}));
  std::uint64_t painted = 0;
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(5);
  w.desktop.menu(Item::showkeys);
  w.desktop.look([&](Program& p) { painted = p.canvas.changes(); });
  w.desktop.pumpsPass(20);
  w.desktop.look([&](Program& p) { EXPECT_EQ(p.canvas.changes(), painted); });
  w.desktop.menu(Item::backtodrawing);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.phase, Phase::making) << "it closed the sheet alone"; });
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
}

TEST(WhatArrivesBesideTheProgram, ClosesTheSheetWhenItOpensAPanel) {
  World w(Size{60, 50});
  w.begin(drawing({"...", "..."}));
  w.desktop.menu(Item::showkeys);
  w.desktop.act([](Program& p) { openPanel(p, kWallSizePanel, "10"); });
  w.desktop.look([](Program& p) { EXPECT_FALSE(p.keys.shown); });
  EXPECT_EQ(w.run(), "");
}

TEST(TheFirstDrawing, SaysThatF1ShowsTheKeysAndNoLaterOne) {
  World w(Size{60, 50});
  w.begin(drawing({"...", "..."}));
  w.desktop.look([](Program& p) { EXPECT_EQ(p.notices.words(), "F1 shows the keys"); });
  w.desktop.menu(Item::quit2);
  w.desktop.untilPhase(Phase::title);
  w.desktop.act([](Program& p) { p.notices.tell("something else"); });
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.notices.words(), "something else"); });
  EXPECT_EQ(w.run(), "");
}

TEST(TheKeysOfTheMenus, ChooseOneItemEachAndF5TheTickedKind) {
  MenuModel menus;
  const std::map<std::string_view, std::string_view> kCaptions = {{"Ctrl+N", "New maze "},
                                                                  {"Ctrl+S", "Save Gridwright Drawing"},
                                                                  {"Ctrl+L", "Load Gridwright Drawing"},
                                                                  {"Ctrl+P", "print the window"},
                                                                  {"F6", "Solve maze"},
                                                                  {"F7", "Place start and finish"},
                                                                  {"F8", "Go back to Drawing"},
                                                                  {"Ctrl+Q", "Quit to Main Menu"},
                                                                  {"F1", "Keys…"},
                                                                  {"F2", "Tell surroundings"},
                                                                  {"F11", "Whole screen"},
                                                                  {"Ctrl+O", "Open picture…"},
                                                                  {"Ctrl+V", "Paste picture"},
                                                                  {"Ctrl+D", "Workshop…"},
                                                                  {"Ctrl+Z", "Undo"},
                                                                  {"Ctrl+Shift+Z", "Redo"},
                                                                  {"Ctrl+Y", "Redo"},
                                                                  {"Ctrl+C", "Copy"}};
  for (const Shortcut& shortcut : kShortcuts) {
    const auto item = itemOfKeys(menus, shortcut.keys);
    ASSERT_TRUE(item) << shortcut.keys;
    EXPECT_NE(commandOf(*item), nullptr) << shortcut.keys;
    if (shortcut.keys == "F5") continue;
    EXPECT_EQ(menus.caption(*item), kCaptions.at(shortcut.keys));
  }
  EXPECT_EQ(itemOfKeys(menus, "F5"), Item::createreg);
  EXPECT_EQ(keysOfItem(menus, Item::createreg), "F5");
  EXPECT_EQ(keysOfItem(menus, Item::create3d), "");
  menus.setChecked(Item::createreg, false);
  menus.setChecked(Item::create3d, true);
  EXPECT_EQ(itemOfKeys(menus, "F5"), Item::create3d);
  EXPECT_EQ(keysOfItem(menus, Item::create3d), "F5");
  EXPECT_EQ(keysOfItem(menus, Item::redo), "Ctrl+Shift+Z");
  EXPECT_EQ(itemOfKeys(menus, "Ctrl+Y"), Item::redo);
  EXPECT_EQ(itemOfKeys(menus, "Ctrl+K"), std::nullopt);
}

TEST(WhatTheWindowShows, IsSwitchedByItsItemsAndKeptByTheProgram) {
  World w(Size{60, 50});
  w.begin(drawing({"...", "..."}));
  const auto stands = [&](bool letters, bool off) {
    w.desktop.look([=](Program& p) {
      EXPECT_EQ(p.markColours, letters);
      EXPECT_EQ(p.menus.checked(Item::markcolours), letters);
      EXPECT_EQ(p.statusLineOff, off);
      EXPECT_EQ(p.menus.checked(Item::statusline), !off);
    });
  };
  stands(false, false);
  w.desktop.menu(Item::markcolours);
  w.desktop.menu(Item::statusline);
  stands(true, true);
  w.desktop.menu(Item::markcolours);
  w.desktop.menu(Item::statusline);
  stands(false, false);
  EXPECT_EQ(w.run(), "");
}

}  // namespace
}  // namespace gridwright::test
