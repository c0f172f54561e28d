#include "session/remembered.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "session/workshop.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

using Memory = std::map<std::string, std::string, std::less<>>;

/// A run of the program in the drawing phase, on a desktop that remembers this.
struct Sitting : World {
  explicit Sitting(Memory memory = Memory()) : World(Size{70, 50}) {
    desktop.memory = std::move(memory);
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.pumpsPass(2);
  }
  void act(BareDesktop::Action action) {
    desktop.act(std::move(action));
    desktop.pumpsPass(2);
  }
  /// \returns what the next run will find.
  Memory ends() {
    EXPECT_EQ(run(), "");
    return desktop.memory;
  }
};

ToolSettings thickEllipse() {
  ToolSettings tool;
  tool.tool = Tool::ellipse;
  tool.size = 7;
  tool.snap = tool.outline = true;
  tool.mirror = Mirror::topBottom;
  tool.colour = 9;
  return tool;
}

TEST(TheNextRun, FindsWhatThisOneLeft) {
  Sitting first;
  first.desktop.picturesElsewhere["/a.png"] =
      first.desktop.picturesElsewhere["/b.png"] = {{drawing({"...."}), {}}, {}, {50, 20}};
  for (const char* file : {"/a.png", "/b.png"})
    first.act([file](Program& p) { input::filesBrought(p, {file}); });
  first.desktop.menu(Item::whiteground);
  first.act(workshop);
  first.act([](Program& p) {
    onSheet(p, [](Sheet& sheet) { sheet.choose(thickEllipse()); });
    p.workshop.words.font = "Serif";
    p.statusLineOff = p.keysHintTold = true;
  });
  const Memory memory = first.ends();

  Sitting next(memory);
  next.desktop.look([](Program& p) {
    EXPECT_EQ(p.recent, (std::vector<std::filesystem::path>{"/b.png", "/a.png"}));
    EXPECT_EQ(p.menus.entries(Item::openrecent).size(), 2U);
    EXPECT_TRUE(p.state.print.whiteGround && p.menus.checked(Item::whiteground));
    EXPECT_TRUE(p.statusLineOff && p.keysHintTold);
    EXPECT_FALSE(p.menus.checked(Item::statusline));
  });
  next.act(workshop);
  next.desktop.look([](Program& p) {
    EXPECT_EQ(p.workshop.sheet->settings(), thickEllipse());
    EXPECT_EQ(p.workshop.words.font, "Serif");
  });
  EXPECT_EQ(next.ends(), memory);
}

TEST(AWhiteGroundThatIsTakenOff, IsForgottenAgain) {
  Memory memory;
  memory["whiteground"] = "on";
  Sitting run(memory);
  run.desktop.menu(Item::whiteground);
  memory = run.ends();
  EXPECT_EQ(memory.find("whiteground")->second, "");
  Sitting next(memory);
  next.desktop.look([](Program& p) { EXPECT_FALSE(p.state.print.whiteGround); });
  next.ends();
}

TEST(AWhiteGround, StaysThroughTheTitleWhetherOrNotItIsRemembered) {
  Sitting run;
  run.desktop.menu(Item::whiteground);
  run.desktop.menu(Item::quit2);
  run.desktop.click(ControlId::Command2);
  run.desktop.untilPhase(Phase::drawing);
  run.desktop.look(
      [](Program& p) { EXPECT_TRUE(p.state.print.whiteGround && p.menus.checked(Item::whiteground)); });
  run.ends();
}

TEST(OfTheSettingsOfMazes, NothingIsRemembered) {
  Sitting run;
  run.desktop.menu(Item::cgenerate);
  run.desktop.menu(Item::largestsolution);
  run.desktop.menu(Item::way4);
  run.desktop.menu(Item::rmazes);
  EXPECT_EQ(run.ends(), (Memory{{"keystold", "on"}})) << "a drawing was begun";
}

TEST(WhatIsMalformed, CountsAsNothing) {
  for (const char* tool : {"", "x", "9 1 0 0 0 0 1", "-1 1 0 0 0 0 1", "0 1 0 0 0 4 1", "0 1 2 0 0 0 1",
                           "1 2", "99999999999999999999 1 0 0 0 0 1"}) {
    Sitting run(
        {{"tool", tool}, {"recent1", "no/whole/path"}, {"statusline", "maybe"}, {"whiteground", "1"}});
    run.act(workshop);
    run.desktop.look([tool](Program& p) {
      EXPECT_EQ(p.workshop.sheet->settings(), ToolSettings()) << tool;
      EXPECT_TRUE(p.recent.empty());
      EXPECT_FALSE(p.statusLineOff || p.state.print.whiteGround);
    });
    run.ends();
  }
}

}  // namespace
}  // namespace gridwright::test
