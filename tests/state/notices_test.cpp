// What the program says when a command cannot run: each refusal in its place, in a session.
#include "state/notices.h"

#include <gtest/gtest.h>

#include <array>

#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {"......", "......", "......", "......"};

TEST(ANotice, IsTheLastOneToldAndGrowsItsRevisionEachTime) {
  Notices notices;
  EXPECT_EQ(notices.revision(), 0U);
  notices.tell("one", "/a/file.pdf");
  EXPECT_EQ(notices.opens(), "/a/file.pdf");
  notices.tell("two");
  notices.tell("two");
  EXPECT_EQ(notices.words(), "two");
  EXPECT_TRUE(notices.opens().empty());
  EXPECT_EQ(notices.revision(), 3U);
}

/// A session over a drawing whose last notice is looked at.
struct Told : World {
  explicit Told(const Text& cells = kRoom) {
    program.keysHintTold = true;
    begin(drawing(cells));
    desktop.pumpsPass(2);
  }
  void makeMaze() {
    desktop.menu(Item::cgenerate);
    desktop.menu(Item::newmaze);
    desktop.untilPhase(Phase::placing);
    desktop.pumpsPass(1);
  }
  void choose(Item item) {
    desktop.menu(item);
    desktop.pumpsPass(2);
  }
  /// Looks now: each notice is told once for each choice.
  void expect(const std::string& words, std::uint64_t told = 1) {
    desktop.look([=](Program& p) {
      EXPECT_EQ(p.notices.words(), words);
      EXPECT_EQ(p.notices.revision(), told);
    });
  }
  void expectNothing() { expect("", 0); }
};

TEST(WithoutThreeFreeCells, EachCommandThatWouldStartAMazeSaysSo) {
  for (const Item item : {Item::createreg, Item::newmaze}) {
    Told w({"##..##", "######", "######"});
    w.choose(item);
    w.desktop.pumpsPass(3);
    w.expect("Nothing to fill: fewer than three cells of a background colour are free");
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(w.state.phase, Phase::drawing);
    EXPECT_TRUE(w.desktop.messages.empty());
  }
}

TEST(AMazeThatStarts, SaysNothing) {
  Told w;
  w.makeMaze();
  w.choose(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  w.choose(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.choose(Item::backtodrawing);
  w.expectNothing();
  EXPECT_EQ(w.run(), "");
}

TEST(TheKindThatIsInHandAlready, IsToldWhenItIsChosenAgain) {
  const auto kinds = std::to_array<std::pair<Item, std::string>>(
      {{Item::createreg, "2-d mazes"}, {Item::create3d, "3d-mazes"}, {Item::create3dpipe, "3d-pipe-mazes"}});
  for (const auto& [item, name] : kinds) {
    Told w;
    if (item != Item::createreg) w.choose(item);
    w.expectNothing();
    w.makeMaze();
    w.choose(item);
    w.expect("These are " + name + " already: choose New maze for another one");
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(w.state.phase, Phase::placing);
  }
}

TEST(APictureTooTightForPipes, SaysSoWhenTheMazeInHandIsToBecomeOne) {
  Told w({"r.r.r.", "......", "r.r.r."});
  w.makeMaze();
  w.choose(Item::create3dpipe);
  w.expect("No room for 3d-pipe-mazes: fewer than three of their cells are free");
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.mazeKind, MazeKind::regular);
}

TEST(AMazeOfLessThanThreeCells, SaysWhyItsEndsCannotBePlaced) {
  Told w;
  w.choose(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(1);
  w.choose(Item::sandf);
  w.expect("Nothing to place: fewer than three cells are carved");
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.phase, Phase::making);
}

TEST(ThePatternInTheEditor, IsToldWhenItIsChosenAgain) {
  constexpr auto kPatterns = std::to_array<std::pair<Item, const char*>>({{Item::editpatterns, "left"},
                                                                          {Item::rightpattern, "right"},
                                                                          {Item::uppattern, "up"},
                                                                          {Item::downpattern, "down"}});
  for (const auto& [item, name] : kPatterns) {
    Told w;
    w.choose(item);
    w.expectNothing();
    w.choose(item);
    w.expect("The " + std::string(name) + " pattern is being edited already");
    w.choose(item == Item::uppattern ? Item::downpattern : Item::uppattern);
    w.expect("The " + std::string(name) + " pattern is being edited already");
    EXPECT_EQ(w.run(), "");
  }
}

TEST(ACommandWhileRandomPatternsAreMade, IsToldToComeTooEarly) {
  Told w;
  w.choose(Item::crnd1);
  w.desktop.menu(Item::createreg);
  w.desktop.until([](const Program& p) { return p.state.editor.preparing; });
  w.desktop.act([](Program& p) { input::menuClick(p, Item::stopfinish); });
  w.expect("Not now: random patterns are being made for the next maze");
  EXPECT_EQ(w.run(), "");
  EXPECT_FALSE(w.state.stopAtFinish);
}

TEST(ACountOfNoMazes, IsToldToStartNoRun) {
  for (const char* count : {"0", "", "none", "-3"}) {
    for (const Item item : {Item::printnosolutions, Item::printwithsolutions}) {
      Told w;
      w.choose(item);
      w.desktop.enter(ControlId::Text3, count);
      w.expect("Nothing to print: no number above 0 was typed");
      EXPECT_EQ(w.run(), "");
      EXPECT_EQ(w.state.print.printTotal, 0);
    }
  }
}

TEST(ADisabledItem, SaysNothingSinceItIsSeenToBeOff) {
  Told w;
  w.desktop.act([](Program& p) { input::menuClick(p, Item::solvemaze); });
  w.expectNothing();
  EXPECT_EQ(w.run(), "");
}

}  // namespace
}  // namespace gridwright::test
