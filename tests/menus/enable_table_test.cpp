#include "menus/enable_table.h"

#include <gtest/gtest.h>

#include <array>

#include "menus/panels.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// In which of the phases 0 to 4 a command of one maze's road is on.
struct Row {
  Item item;
  std::array<bool, 5> phases;
};
constexpr auto kRows = std::to_array<Row>({
    {Item::importdrawing, {true, false, false, false, false}},
    {Item::changewallsize, {true, true, false, false, false}},
    {Item::createreg, {true, true, true, true, true}},
    {Item::newmaze, {true, true, true, true, true}},
    {Item::backtodrawing, {false, true, true, true, true}},
    {Item::backtomaze, {false, false, true, true, true}},
    {Item::sandf, {false, true, false, true, true}},
    {Item::solvemaze, {false, false, true, false, false}},
    {Item::mpdrawing, {false, true, false, false, false}},
    {Item::printfff, {true, true, true, true, true}},
    {Item::quit2, {true, true, true, true, true}},
});

TEST(EachCommand, IsOnInItsPhasesAndNoOthers) {
  World w(drawing({"...", "..."}));
  for (int phase = 0; phase <= 4; ++phase) {
    w.state.phase = static_cast<Phase>(phase);
    applyEnableTable(w.program);
    for (const Row& row : kRows) {
      EXPECT_EQ(w.program.menus.enabled(row.item), row.phases.at(static_cast<std::size_t>(phase)))
          << rowOf(row.item).name << " in phase " << phase;
    }
  }
}

TEST(APanel, TakesTheCommandsButNotTheKeptMaze) {
  World w(drawing({"...", "..."}));
  for (int phase = 0; phase <= 4; ++phase) {
    w.state.phase = static_cast<Phase>(phase);
    openPanel(w.program, kWallSizePanel, "10");
    applyEnableTable(w.program);
    for (const Row& row : kRows) {
      const bool stays = row.item == Item::mpdrawing && phase == 1;
      EXPECT_EQ(w.program.menus.enabled(row.item), stays) << rowOf(row.item).name << " in phase " << phase;
    }
    closePanel(w.program, kWallSizePanel);
    applyEnableTable(w.program);
    for (const Row& row : kRows) {
      EXPECT_EQ(w.program.menus.enabled(row.item), row.phases.at(static_cast<std::size_t>(phase)))
          << "given back: " << rowOf(row.item).name;
    }
  }
}

TEST(Refreshing, IsOnWhileAMazeIsPartOfEveryMaze) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::making;
  applyEnableTable(w.program);
  EXPECT_FALSE(w.program.menus.enabled(Item::nrefresh));
  w.state.nrefreshDue = true;
  applyEnableTableIfChanged(w.program);
  EXPECT_TRUE(w.program.menus.enabled(Item::nrefresh));
}

TEST(UndoAndRedo, SayWhatHoldsThemBack) {
  World w(drawing({"...", "..."}));
  w.program.undoMarks = {true, true};
  w.state.phase = Phase::drawing;
  const auto expect = [&w](const std::string& why) {
    applyEnableTableIfChanged(w.program);
    for (const Item item : {Item::undo, Item::redo}) {
      EXPECT_EQ(w.program.menus.enabled(item), why.empty()) << rowOf(item).name;
      EXPECT_EQ(w.program.menus.tip(item) == why, !why.empty()) << w.program.menus.tip(item);
    }
  };
  expect("");
  w.state.editedPattern = 1;
  expect("not in the pattern editor");
  w.state.editedPattern = 0;
  w.state.print.printTotal = 2;
  expect("not while a run is set up or patterns are made for a maze");
  w.state.print.printTotal = 0;
  openPanel(w.program, kWallSizePanel, "10");
  expect("not while a panel is open");
  closePanel(w.program, kWallSizePanel);
  expect("");
  w.state.editor.preparing = true;
  expect("not while a run is set up or patterns are made for a maze");
}

TEST(TheTable, IsAppliedAnewOnlyWhenSomethingItReadsHasChanged) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::placing;
  applyEnableTable(w.program);
  w.program.menus.setEnabled(Item::solvemaze, false);
  applyEnableTableIfChanged(w.program);
  EXPECT_FALSE(w.program.menus.enabled(Item::solvemaze)) << "nothing has changed";
  w.state.phase = Phase::solving;
  applyEnableTableIfChanged(w.program);
  w.state.phase = Phase::placing;
  applyEnableTableIfChanged(w.program);
  EXPECT_TRUE(w.program.menus.enabled(Item::solvemaze));
}

TEST(TheTable, LeavesSettingsAloneWhichFollowRulesOfTheirOwn) {
  for (const Item item : {Item::gofinish, Item::ugenerate, Item::aon, Item::usepattern, Item::keysmaze}) {
    EXPECT_FALSE(tableLists(item)) << rowOf(item).name;
  }
}

}  // namespace
}  // namespace gridwright::test
