#include "drawings/wall_size.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "state/grid.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {"......", "......", "......"};

int sizeAfter(const std::string& typed) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::changewallsize);
  w.desktop.enter(ControlId::Text2, typed);
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "") << typed;
  EXPECT_FALSE(w.state.panelOpen);
  EXPECT_EQ(w.state.wallHeight, w.state.wallWidth);
  EXPECT_EQ(w.state.stepX, w.state.wallWidth);
  EXPECT_EQ(w.state.stepY, w.state.wallHeight);
  EXPECT_EQ(w.state.cur, firstCell(w.state));
  return w.state.wallWidth;
}

TEST(AWallSize, IsHeldBetweenFiveAndFifty) {
  EXPECT_EQ(sizeAfter("20"), 20);
  EXPECT_EQ(sizeAfter("5"), 5);
  EXPECT_EQ(sizeAfter("4"), 5);
  EXPECT_EQ(sizeAfter("50"), 50);
  EXPECT_EQ(sizeAfter("51"), 50);
  EXPECT_EQ(sizeAfter("99999999999999999999"), 50);
}

TEST(AnEmptyBox, GivesFive) { EXPECT_EQ(sizeAfter(""), 5); }

TEST(WhatIsNoNumber, GivesFive) {
  EXPECT_EQ(sizeAfter("abc"), 5);
  EXPECT_EQ(sizeAfter("-3"), 5);
  EXPECT_EQ(sizeAfter("1e9"), 5) << "one, and the rest is ignored";
  EXPECT_EQ(sizeAfter("  12 pixels"), 12);
}

TEST(ThePanel, ShowsThePresentSizeUnderItsLabel) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::changewallsize);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.controls[ControlId::Text2].text, "10");
    EXPECT_EQ(p.controls[ControlId::Label4].text, "Please type in a wall size (5 to 50):");
    EXPECT_TRUE(p.controls[ControlId::Label4].visible);
    EXPECT_FALSE(p.menus.available(Item::quit2));
    EXPECT_FALSE(p.menus.available(Item::importdrawing));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(Escape, ClosesThePanelAndChangesNothing) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::changewallsize);
  w.desktop.act([](Program& p) { input::textTyped(p, ControlId::Text2, "33"); });
  w.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text2); });
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.wallWidth, 10);
  EXPECT_FALSE(w.state.panelOpen);
  EXPECT_TRUE(samePicture(w.canvas.image(), drawing(kRoom)));
}

TEST(ANewWallSize, UnsetsBothEndsAndWritesTheDrawing) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::changewallsize);
  w.desktop.enter(ControlId::Text2, "20");
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.start, (Square{0, 0, -5, -5}));
    EXPECT_EQ(p.state.finish, (Square{0, 0, -3, -3}));
    EXPECT_EQ(p.state.symmetryMode, Symmetry::off);
    EXPECT_FALSE(p.state.drawingOff);
    EXPECT_EQ(p.state.drawColor, p.canvas.backColor());
    EXPECT_TRUE(samePicture(*w.desktop.file("drawing1.bmp"), drawing(kRoom)));
    EXPECT_TRUE(samePicture(*w.desktop.file("drawing1b.bmp"), drawing(kRoom)));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ANewWallSizeInMidMaze, GoesBackToTheDrawingWithoutTheHalfMadeMaze) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(30);
  w.desktop.menu(Item::changewallsize);
  w.desktop.enter(ControlId::Text2, "5");
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(3);
  w.desktop.look([](Program& p) {
    EXPECT_TRUE(samePicture(p.canvas.image(), drawing(kRoom)));
    EXPECT_EQ(p.state.drawing.savedCur, firstCell(p.state));
  });
  EXPECT_EQ(w.run(), "");
}

/// A person has drawn a navy room by hand, and the computer has carved its last cell; the fill sweep, which
/// ends the maze, is not through.
struct CarvedByComputer : World {
  CarvedByComputer() : World(Size{200, 150}) {
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.menu(Item::rmazes);
    desktop.pumpsPass(1);
    for (const int code :
         {key::slash, key::L, key::K, key::period, key::slash, key::D, key::D, key::D, key::S})
      desktop.act([code](Program& p) { input::keyDown(p, code); });
    desktop.pumpsPass(1);
    desktop.look([this](Program& p) { drawn = p.canvas.image(); });
    desktop.menu(Item::cgenerate);
    desktop.menu(Item::createreg);
    desktop.until([](const Program& p) { return p.state.phase == Phase::making && !freeCell(p); });
  }
  static bool freeCell(const Program& p) {
    const CellGrid grid = presentGrid(p.state);
    return grid.count(1, [&](Corner at) { return isFreeCell(p, grid, at); }) == 1;
  }
  Bitmap drawn;
};

TEST(AMazeThatEndsUnderThePanel, DoesNotTurnANewWallSizeIntoAnEmptyPicture) {
  CarvedByComputer w;
  w.desktop.menu(Item::changewallsize);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look([](Program& p) { EXPECT_TRUE(p.state.panelOpen && !p.state.mazeMadeOnce); });
  w.desktop.enter(ControlId::Text2, "20");
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(3);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.wallWidth, 20);
    EXPECT_TRUE(samePicture(p.canvas.image(), w.drawn));
    EXPECT_TRUE(samePicture(*w.desktop.file("drawing1.bmp"), w.drawn));
    EXPECT_TRUE(samePicture(*w.desktop.file("drawing1b.bmp"), w.drawn));
    EXPECT_EQ(p.state.creationMode, CreationMode::computer) << "that goes with the picture";
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_NE(w.drawn, plainBitmap(200, 150, w.drawn.at(0, 0))) << "there was something to lose";
}

TEST(ABackColorThatIsBackgroundOrMaze, GivesWayToTheFirstPlainBorder) {
  World w(drawing(kRoom));
  for (const Colour bad : {kNavy, kWhite}) {
    w.canvas.setBackColor(bad);
    repairBackColor(w.program);
    EXPECT_EQ(w.canvas.backColor(), kGrey);
  }
  w.canvas.setBackColor(kYellow);
  repairBackColor(w.program);
  EXPECT_EQ(w.canvas.backColor(), kYellow);
}

TEST(ANewSizeAsked, HidesWhatOnlyAMadeMazeShowsUntilThePanelIsGone) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    World w;
    w.begin(drawing(kRoom));
    w.desktop.look([kind](Program& p) {
      p.state.mazeKind = kind;
      pitchFromKind(p.state);
      p.state.mazeMadeOnce = true;
    });
    w.desktop.pumpsPass(2);
    const auto shows = [&](bool create, bool pipes) {
      w.desktop.look([=](Program& p) {
        EXPECT_EQ(p.menus.visible(Item::createreg), create);
        EXPECT_EQ(p.menus.visible(Item::create3d), create);
        EXPECT_EQ(p.menus.visible(Item::create3dpipe), pipes);
        EXPECT_EQ(p.menus.visible(Item::changewallsize), pipes);
      });
    };
    shows(true, true);
    w.desktop.menu(Item::newwallsize);
    w.desktop.pumpsPass(2);
    shows(kind != MazeKind::pipe, false);
    w.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text2); });
    w.desktop.pumpsPass(2);
    shows(true, true);
    EXPECT_EQ(w.run(), "");
  }
}

TEST(ANewSizeGivenUp, IsNotAskedForByTheNextChange) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.look([](Program& p) { p.state.mazeMadeOnce = true; });
  w.desktop.menu(Item::newwallsize);
  w.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text2); });
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::changewallsize);
  w.desktop.enter(ControlId::Text2, "12");
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "");
  EXPECT_TRUE(samePicture(w.canvas.image(), drawing(kRoom))) << "the drawing is kept";
}

}  // namespace
}  // namespace gridwright::test
