#include "menus/menu_rules.h"

#include <gtest/gtest.h>

#include <array>

#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {"....", "...."};

TEST(TheKindsOwnSettings, AreShownForTheirKindsAlone) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    World w(drawing(kRoom));
    w.state.mazeKind = kind;
    mazemenus(w.program);
    EXPECT_EQ(w.program.menus.visible(Item::mazemode1), kind != MazeKind::regular);
    EXPECT_EQ(w.program.menus.visible(Item::includeunderpasses), kind != MazeKind::regular);
    EXPECT_EQ(w.program.menus.visible(Item::mostunderpasses), kind != MazeKind::regular);
    EXPECT_EQ(w.program.menus.visible(Item::lengthp), kind == MazeKind::pipe);
  }
}

TEST(TheDifficulty, HasOneMark) {
  constexpr std::array kLevels = {Item::mode1, Item::mode2, Item::mode3,
                                  Item::mode4, Item::mode5, Item::mode6};
  int level = 0;
  for (const Item chosen : kLevels) {
    World w(drawing(kRoom));
    w.state.difficultyLevel = ++level;
    mazemenus(w.program);
    for (const Item item : kLevels) EXPECT_EQ(w.program.menus.checked(item), item == chosen) << level;
  }
}

TEST(TheCreateItems, ComeBackOnceAMazeWasMade) {
  World w(drawing(kRoom));
  for (const bool made : {false, true}) {
    w.state.mazeMadeOnce = made;
    showCreateItems(w.program);
    EXPECT_EQ(w.program.menus.visible(Item::create3dpipe), made);
    EXPECT_EQ(w.program.menus.visible(Item::changewallsize), made);
    EXPECT_TRUE(w.program.menus.visible(Item::createreg));
  }
  w.state.mazeMadeOnce = false;
  w.state.panelOpen = true;
  showCreateItems(w.program);
  EXPECT_TRUE(w.program.menus.visible(Item::changewallsize)) << "left as they are under a panel";
  w.state.panelOpen = false;
  w.state.mazeKind = MazeKind::pipe;
  showCreateItems(w.program);
  EXPECT_FALSE(w.program.menus.visible(Item::createreg)) << "a drawing for pipes makes pipes only";
}

TEST(ThePrintJob, TellsWhatIsLeft) {
  World w(drawing(kRoom));
  w.state.print.printMode = PrintMode::withoutAnswers;
  w.state.print.printTotal = 12;
  w.state.print.printedCount = 5;
  printStatus(w.program);
  EXPECT_EQ(w.program.menus.caption(Item::printing), "7 mazes left to print out of 12");
}

TEST(TheRandomSizes, StandInTheirCaptions) {
  World w(drawing(kRoom));
  w.state.randomPatterns.randomPatternSize = 42;
  captionRandomSizes(w.program);
  EXPECT_EQ(w.program.menus.caption(Item::maxrnd), "Random patterns are allways size \"42\"");
  EXPECT_EQ(w.program.menus.caption(Item::usernd), "Random patterns are any size from \"1\" to \"42\"");
}

TEST(TheKeyHelp, IsThatOfThePhase) {
  World w;
  w.begin(drawing({".....", ".....", "....."}));
  const auto only = [&](Item title) {
    w.desktop.look([title](Program& p) {
      for (const Item item : {Item::keysdrawing, Item::keysmaze, Item::ksandf, Item::keysanswer}) {
        EXPECT_EQ(p.menus.enabled(item), item == title) << rowOf(item).name;
      }
    });
  };
  w.desktop.menu(Item::cgenerate);
  only(Item::keysdrawing);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  only(Item::keysmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.pumpsPass(1);
  only(Item::ksandf);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  only(Item::keysanswer);
  EXPECT_EQ(w.run(), "");
}

TEST(TheCaptions, FollowTheKind) {
  struct Row {
    MazeKind kind;
    const char *drawing, *making;
  };
  for (const Row& row : {Row{MazeKind::regular, "Gridwright-(drawing picture for 'Regular mazes')",
                             "Gridwright-(creating 2d-maze)"},
                         Row{MazeKind::pipe, "Gridwright-(drawing picture for '3d-pipe-mazes')",
                             "Gridwright-(creating 3d-pipe-maze)"},
                         Row{MazeKind::threeD, "Gridwright-(drawing picture for '3d-mazes')",
                             "Gridwright-(creating 3d-maze)"}}) {
    World w(drawing(kRoom));
    w.state.mazeKind = row.kind;
    captionDrawing(w.program);
    EXPECT_EQ(w.program.controls.caption(), row.drawing);
    captionMaking(w.program);
    EXPECT_EQ(w.program.controls.caption(), row.making);
  }
}

}  // namespace
}  // namespace gridwright::test
