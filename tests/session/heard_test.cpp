#include "session/heard.h"

#include <gtest/gtest.h>

#include "menus/panels.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A drawing of one corridor's room, with ears that have heard what there was to hear.
struct Listening : World {
  Listener ears;
  std::vector<std::string> heard;

  explicit Listening(const Bitmap& picture) : World(Size{picture.width, picture.height}) {
    begin(picture);
    hear();
  }
  /// What is new by then, once the program waits.
  void hear() {
    desktop.pumpsPass(3);
    desktop.look([this](Program& p) { heard.push_back(ears.listen(p)); });
  }
  void key(int code) {
    desktop.act([code](Program& p) { input::keyDown(p, code); });
    hear();
  }
  void choose(Item item) {
    desktop.menu(item);
    hear();
  }
  /// All that was heard after the first, which is the way out of the title.
  std::vector<std::string> all() {
    EXPECT_EQ(run(), "");
    return {heard.begin() + 1, heard.end()};
  }
};

using Lines = std::vector<std::string>;

TEST(TheWayOutOfTheTitle, TellsCaptionAndWhatIsInHand) {
  World w(Size{100, 60});
  Listener ears;
  Lines heard;
  const auto hear = [&] { w.desktop.look([&](Program& p) { heard.push_back(ears.listen(p)); }); };
  hear();
  w.desktop.click(ControlId::Command2);
  w.desktop.pumpsPass(3);
  hear();
  hear();
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(heard, (Lines{"Gridwright-by Orrin Vale; title; Tab leads through its buttons; Click to Begin; "
                          "Click to see examples and credits; Click to Quit Program",
                          "drawing picture for 'Regular mazes'; yellow; 1 cell; row 1, column 1; drawing on; "
                          "F1 shows the keys",
                          ""}))
      << "and what was heard once is not heard again";
}

TEST(TheSlides, SayHowTheyAreLeft) {
  World w(Size{100, 60});
  Listener ears;
  std::string heard;
  w.desktop.look([&](Program& p) { ears.listen(p); });
  w.desktop.click(ControlId::Command3);
  w.desktop.pumpsPass(2);
  w.desktop.look([&](Program& p) { heard = ears.listen(p); });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(heard, "slides; Space shows the next, Escape goes back to the title");
}

TEST(TheBrush, IsHeardInEachThingThatChanges) {
  Listening w(drawing({"......", "......", "......"}));
  w.key(key::L);
  w.key(key::D);
  w.key(key::slash);
  w.key(key::period);
  w.key(key::slash);
  EXPECT_EQ(w.all(),
            (Lines{"row 1, column 2", "2 x 1 cells; row 1, column 2", "drawing off", "navy", "drawing on"}));
}

TEST(ANotice, IsHeardEachTimeItIsTold) {
  Listening w(drawing({"......"}));
  for (const char* words : {"one", "one", "two"}) {
    w.desktop.act([words](Program& p) { p.notices.tell(words); });
    w.hear();
  }
  EXPECT_EQ(w.all(), (Lines{"one", "one", "two"}));
}

TEST(SurroundingsThatAreAskedFor, AreHeardWholeAgain) {
  Listening w(drawing({"......", "......"}));
  w.key(key::L);
  w.choose(Item::surroundings);
  w.choose(Item::surroundings);
  const std::string all =
      "drawing picture for 'Regular mazes'; walls 10; yellow; 1 cell; row 1, column 2; drawing on";
  EXPECT_EQ(w.all(), (Lines{"row 1, column 2", all, all}));
}

TEST(APanelOfSwatches, IsHeardWithItsSwatchesAndThenWhatChangesOnThem) {
  Listening w(drawing({"......"}));
  w.choose(Item::choosew);
  w.desktop.act([](Program& p) { input::swatchLeft(p, ControlId::Check2); });
  w.hear();
  w.desktop.click(ControlId::Command1);
  w.hear();
  EXPECT_EQ(w.all(),
            (Lines{"Click the left button to change a color from \"border\" to \"background\" (right "
                   "click changes \"maze\" colors); Background: black, navy, green, teal, maroon, "
                   "purple, olive and silver; Border Color: gray, blue, lime, cyan, red, magenta and "
                   "yellow; Maze Color: white",
                   "navy, Border Color", "yellow; 1 cell; row 1, column 1; drawing on"}));
}

TEST(AnotherWallSize, IsHeardWhenItsPanelHasGone) {
  Listening w(drawing({"......", "......"}));
  w.desktop.menu(Item::newwallsize);
  w.hear();
  w.desktop.enter(ControlId::Text2, "5");
  w.hear();
  EXPECT_EQ(w.all(), (Lines{"", "walls 5"}));
}

TEST(ThePanelToDrawWith, SaysWhichSwatchIsTicked) {
  Listening w(drawing({"......"}));
  w.choose(Item::selectcolor);
  const Lines heard = w.all();
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_TRUE(heard[0].ends_with("; yellow is ticked")) << heard[0];
}

TEST(ATextPanel, IsReadByItselfAndWhatItHeldBackIsHeardAfterwards) {
  Listening w(drawing({"......"}));
  w.desktop.act([](Program& p) { openPanel(p, kSavePanel, "a"); });
  w.hear();
  w.desktop.act([](Program& p) { p.notices.tell("told meanwhile"); });
  w.hear();
  w.desktop.act([](Program& p) { closePanel(p, kSavePanel); });
  w.hear();
  EXPECT_EQ(w.all(), (Lines{"", "", "told meanwhile"}));
}

TEST(WhoeverCarves, HearsEachStepAndEachBump) {
  Listening w(drawing({"......", "......"}));
  w.desktop.menu(Item::dontusepattern);
  w.choose(Item::newmaze);
  w.key(key::right);
  w.key(key::down);
  w.key(key::up);
  w.key(key::left);
  w.key(key::G);
  EXPECT_EQ(w.all(), (Lines{"creating 2d-maze; you carve; row 1, column 1; open right and down",
                            "row 1, column 2; open right and down", "row 2, column 2; open left and right",
                            "bump up; open left and right", "row 2, column 1; open right and up", ""}));
}

TEST(WhoeverHandsTheMazeOver, HearsWhoCarvesAndWhereTheEndsAre) {
  Listening w(drawing({"......", "......"}));
  w.desktop.menu(Item::dontusepattern);
  w.choose(Item::newmaze);
  w.desktop.act([](Program& p) { input::keyDown(p, key::J); });
  w.desktop.untilPhase(Phase::placing);
  w.hear();
  w.key(key::L);
  w.key(key::left);
  const Lines heard = w.all();
  ASSERT_EQ(heard.size(), 4U);
  EXPECT_TRUE(heard[1].starts_with("placing start and finish; start at row 1, column 1; finish at row "))
      << heard[1];
}

/// A maze of one row, played from its left end.
struct Corridor : Listening {
  Corridor() : Listening(drawing({".....", "#####"})) {
    desktop.menu(Item::cgenerate);
    desktop.menu(Item::newmaze);
    desktop.untilPhase(Phase::placing);
    desktop.menu(Item::easymode);
    desktop.menu(Item::solvemaze);
    hear();
  }
};

TEST(WhoeverPlays, HearsEachStepEachBumpAndTheEnd) {
  Corridor w;
  w.key(key::right);
  w.key(key::down);
  w.key(key::down);
  w.key(key::right);
  w.key(key::right);
  EXPECT_EQ(w.all(), (Lines{"user is solving maze; row 1, column 1; open right; finish at row 1, column 4",
                            "row 1, column 2; open left and right", "bump down; open left and right",
                            "bump down; open left and right", "row 1, column 3; open left and right",
                            "user has solved maze; 3 steps"}));
}

TEST(SurroundingsInPlay, TellTheWaysAndTheFinish) {
  Corridor w;
  w.key(key::right);
  w.choose(Item::surroundings);
  EXPECT_EQ(
      w.all().back(),
      "user is solving maze; walls 10; row 1, column 2; open left and right; finish at row 1, column 4");
}

TEST(TheSheetOfKeys, IsHeardWhenItIsShown) {
  Listening w(drawing({"......"}));
  w.choose(Item::showkeys);
  const Lines heard = w.all();
  EXPECT_TRUE(heard[0].starts_with("Keys: drawing; J L I K move the square")) << heard[0];
  EXPECT_TRUE(heard[0].ends_with("any key goes back")) << heard[0];
}

TEST(Ways, AreListedAsOneSpeaksAndTunnelsApart) {
  EXPECT_EQ(waysWords({Way::closed, Way::closed, Way::closed, Way::closed}), "closed all round");
  EXPECT_EQ(waysWords({Way::open, Way::closed, Way::closed, Way::open}), "open left and down");
  EXPECT_EQ(waysWords({Way::open, Way::open, Way::tunnel, Way::open}),
            "open left, right and down; tunnel up");
}

}  // namespace
}  // namespace gridwright::test
