// The made-up person is no use unless it sees what goes wrong, and says it in a script that does it again.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <set>
#include <utility>

#include "menus/enable_table.h"
#include "person/sitting.h"
#include "person/watch.h"
#include "person/watched_run.h"
#include "support/world.h"

namespace gridwright::person {
namespace {

using test::TempFolder;
using test::World;

/// A drawing that nothing has happened to.
struct Drawn {
  Drawn() { world.state.phase = Phase::drawing, applyEnableTable(world.program); }
  World world{test::drawing({"....", "...."})};
  Program& program = world.program;
  Watch watch;
};

/// A place for sessions.
struct Place {
  Place() { prepareGround(folder.path()); }
  Story run(const Deeds& deeds, unsigned patience = 60) {
    return watchedRun({folder.path(), {130, 100}}, deeds, patience);
  }
  TempFolder folder;
};

Deeds seeded(std::uint32_t seed, int count) {
  return [choices = SeededChoices(seed), deeds = Deeds(), left = count](const Program& program) mutable {
    if (!deeds) deeds = madeUp(choices, [&left] { return left-- == 0; });
    return deeds(program);
  };
}

TEST(AScriptThatFails, IsCutDownToTheLinesThatItTakes) {
  Lines lines;
  for (int i = 0; i < 200; ++i) lines.push_back("line " + std::to_string(i));
  const Lines needed = {"line 3", "line 90", "line 91", "line 199"};
  const auto fails = [&](const Lines& some) {
    return std::all_of(needed.begin(), needed.end(), [&](const std::string& line) {
      return std::find(some.begin(), some.end(), line) != some.end();
    });
  };
  EXPECT_EQ(shortest(lines, fails), needed);
}

TEST(AScriptThatFails, StaysAsItIsWhereNoTriesAreLeft) {
  EXPECT_EQ(shortest(
                {"a", "b"}, [](const Lines&) { return true; }, 0),
            (Lines{"a", "b"}));
}

TEST(ACommandThatFailed, IsFoundWhereItHasChangedTheDrawing) {
  Drawn d;
  d.watch.before(d.program, "enter Text8");
  d.watch.refused("Error: can't find bitmap.");
  EXPECT_EQ(d.watch.after(d.program), "");
  d.watch.before(d.program, "enter Text8");
  d.world.canvas.fill(d.world.state.cur, test::kRed);
  EXPECT_EQ(d.watch.after(d.program), "") << "one that did not fail may change it";
  d.watch.before(d.program, "enter Text8");
  d.world.canvas.fill(d.world.state.cur, test::kGreen);
  d.program.notices.tell("words.bmp is no picture of a kind that is read");
  EXPECT_EQ(kindOf(d.watch.after(d.program)), "a command that failed has changed the drawing");
}

TEST(ADrawingThatIsAnotherAfterTheMaze, IsFound) {
  Drawn d;
  const auto goAndComeBack = [&] {
    d.watch.before(d.program, "menu createreg");
    d.world.state.phase = Phase::making;
    applyEnableTable(d.program);
    EXPECT_EQ(d.watch.after(d.program), "");
    d.watch.before(d.program, "menu backtodrawing");
    d.world.state.phase = Phase::drawing;
    applyEnableTable(d.program);
  };
  goAndComeBack();
  EXPECT_EQ(d.watch.after(d.program), "");
  goAndComeBack();
  d.world.canvas.fill(d.world.state.cur, test::kRed);
  EXPECT_EQ(d.watch.after(d.program), "the drawing is another than it was left for the maze");
}

TEST(AnItemAgainstTheTable, IsFound) {
  Drawn d;
  EXPECT_EQ(itemsAgainstTable(d.program), "");
  d.program.menus.setEnabled(Item::solvemaze, true);
  EXPECT_EQ(itemsAgainstTable(d.program), "an item is on against the table: solvemaze");
  applyEnableTable(d.program);
  d.program.menus.setEnabled(Item::newmaze, false);
  EXPECT_EQ(itemsAgainstTable(d.program), "an item is off against the table: newmaze");
}

TEST(APanelThatNothingCloses, IsFound) {
  Drawn d;
  d.world.state.panelOpen = true;
  EXPECT_EQ(lockedPanel(d.program), "a panel holds the window, and nothing closes it");
  d.program.controls.show(ControlId::Text2);
  EXPECT_EQ(lockedPanel(d.program), "");
}

TEST(ACrash, IsToldWithTheLinesThatLedToIt) {
  Place place;
  int left = 3;
  const Story story = place.run([&left](const Program&) {
    if (left-- == 0) ::raise(SIGKILL);
    return std::optional<std::string>("pumps 1");
  });
  EXPECT_EQ(kindOf(story.fault), "a crash by signal KILL");
  EXPECT_EQ(story.lines, Lines(3, "pumps 1"));
}

TEST(ADeedThatNeverEnds, IsToldLikeACrash) {
  Place place;
  const Story story = place.run(
      [begun = false](const Program&) mutable {
        if (std::exchange(begun, true)) ::pause();
        return std::optional<std::string>("pumps 1");
      },
      1);
  EXPECT_EQ(kindOf(story.fault), "a deed that never ends");
}

TEST(AWaitThatNeverEnds, IsFound) {
  Place place;
  const Story story = place.run(
      asWritten({"click Command2", "open ../kit/room.bmp", "menu cgenerate", "menu newmaze", "settle 3"}));
  EXPECT_EQ(kindOf(story.fault), "a wait that never ends");
}

TEST(AFileBesideTheWorkingFolder, IsFound) {
  Place place;
  const Story story = place.run(asWritten({"click Command2", "image ../beside.bmp"}));
  EXPECT_EQ(story.fault, "a file beside the working folder: beside.bmp");
}

TEST(ALineThatIsRefused, IsLeftOutOfTheStory) {
  Place place;
  const Story story = place.run(asWritten({"click Command2", "menu solvemaze", "key 76", "nonsense"}));
  EXPECT_EQ(story.fault, "");
  EXPECT_EQ(story.lines, (Lines{"click Command2", "key 76"}));
}

TEST(WhatASessionDid, IsDoneAgainByItsLines) {
  Place place;
  const Story story = place.run(seeded(4, 150));
  ASSERT_EQ(story.fault, "");
  EXPECT_GT(story.lines.size(), 100U);
  const std::string picture = place.folder.get("work/last-drawing.bmp");
  ASSERT_FALSE(picture.empty());
  const Story again = place.run(asWritten(story.lines));
  EXPECT_EQ(again.fault, "");
  EXPECT_EQ(again.lines, story.lines) << "no line was refused";
  EXPECT_EQ(place.folder.get("work/last-drawing.bmp"), picture);
}

/// What a person has before the eyes, by the names of the vocabulary.
std::set<std::string> sights(const Program& p) {
  std::set<std::string> seen = {"phase " + std::to_string(static_cast<int>(p.state.phase)),
                                "kind " + std::to_string(static_cast<int>(p.state.mazeKind)),
                                "play " + std::to_string(static_cast<int>(p.state.playMode)),
                                "print " + std::to_string(static_cast<int>(p.state.print.printMode))};
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const bool isPanel = kControlRows[row].kind == ControlKind::textBox ||
                         controlAt(row) == ControlId::Check1 || controlAt(row) == ControlId::Check17 ||
                         controlAt(row) == ControlId::Check35;
    if (isPanel && p.controls[controlAt(row)].visible) seen.emplace(kControlRows[row].name);
  }
  if (p.workshop.open) seen.insert(p.prepare.open ? "preparing" : "workshop");
  if (p.pages.open) seen.insert("page setup");
  if (p.exporting.open) seen.insert("export");
  if (p.book.open) seen.insert("book");
  if (p.keys.shown) seen.insert("keys");
  if (p.regions.shown) seen.insert("regions");
  if (p.state.nrefreshDue) seen.insert("part of every maze");
  return seen;
}

TEST(SomebodyWhoTriesEverything, MeetsEveryPhaseEveryKindAndEveryPanel) {
  Place place;
  std::set<std::string> seen;
  for (std::uint32_t seed = 1; seed <= 28; ++seed) {
    layOutAnew(place.folder.path());
    const Deeds deeds = seeded(seed, 250);
    const Story story = sit({place.folder.path(), {90, 80}}, [&](const Program& program) {
      seen.merge(sights(program));
      return deeds(program);
    });
    EXPECT_EQ(story.fault, "") << seed;
  }
  for (const char* sight :
       {"phase -5",  "phase -1",   "phase 0", "phase 1", "phase 2", "phase 3", "phase 4",
        "kind 0",    "kind 1",     "kind 2",  "play 0",  "play 1",  "play 2",  "print 0",
        "print 1",   "print 2",    "text1",   "Text2",   "Text3",   "Text4",   "Text5",
        "Text6",     "Text7",      "Text8",   "Check1",  "Check17", "Check35", "workshop",
        "preparing", "page setup", "export",  "book",    "keys",    "regions", "part of every maze"}) {
    EXPECT_TRUE(seen.contains(sight)) << sight;
  }
}

TEST(AProgramThatWasClosed, IsStartedAgainInTheSameFolder) {
  Place place;
  const Story story =
      place.run(asWritten({"click Command2", "open ../kit/halls.bmp", "close", "click Command2",
                           "menu lastpicture", "expect pixel 60 50 16711680"}));
  EXPECT_EQ(story.fault, "");
  EXPECT_EQ(story.lines.size(), 6U);
}

}  // namespace
}  // namespace gridwright::person
