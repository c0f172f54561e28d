#include "colours/colour_editor.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "colours/colour_repairs.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

Colour palette(int i) { return kPalette[static_cast<std::size_t>(i)]; }

/// A session in the drawing phase over a small drawing.
struct Colours : World {
  explicit Colours(const Bitmap& picture = drawing({"....", "....", "...."}))
      : World(Size{picture.width, picture.height}) {
    begin(picture);
    desktop.pumpsPass(2);
  }
  void left(ControlId swatch) {
    desktop.act([swatch](Program& p) { input::swatchLeft(p, swatch); });
    desktop.pumpsPass(1);
  }
  void right(ControlId swatch) {
    desktop.act([swatch](Program& p) { input::swatchRight(p, swatch); });
    desktop.pumpsPass(1);
  }
  void look(BareDesktop::Action action) { desktop.look(std::move(action)); }
  void edit() {
    desktop.menu(Item::choosew);
    desktop.pumpsPass(1);
  }
  void done() {
    desktop.click(ControlId::Command1);
    desktop.pumpsPass(1);
  }
};

TEST(TheClassifyPanel, ShowsItsPartsAndHoldsTheKeys) {
  Colours w;
  w.edit();
  w.look([](Program& p) {
    EXPECT_TRUE(p.state.paused && p.state.panelOpen);
    for (int i = 0; i < kSlots; ++i) {
      EXPECT_TRUE(p.controls[classifySwatch(i)].visible && p.controls[classifySwatch(i)].enabled) << i;
      EXPECT_FALSE(p.controls[drawingSwatch(i)].visible || p.controls[mazeSwatch(i)].visible);
    }
    for (const ControlId id :
         {ControlId::Check33, ControlId::Check34, ControlId::Command1, ControlId::Label5})
      EXPECT_TRUE(p.controls[id].visible);
    for (const Item item : {Item::choosew, Item::selectcolor, Item::quit2, Item::newmaze, Item::printfff})
      EXPECT_FALSE(p.menus.available(item));
  });
  w.done();
  w.look([](Program& p) {
    EXPECT_FALSE(p.state.paused || p.state.panelOpen);
    for (const Item item : {Item::choosew, Item::selectcolor, Item::quit2, Item::newmaze})
      EXPECT_TRUE(p.menus.available(item));
    for (int i = 0; i < kSlots; ++i) EXPECT_FALSE(p.controls[classifySwatch(i)].visible);
    EXPECT_FALSE(p.controls[ControlId::Label5].visible);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(EverySwatch, TogglesBetweenBackgroundAndBorder) {
  Colours w;
  w.edit();
  for (int i = 0; i < 15; ++i) {
    const bool wasBackground = i < 8;
    w.left(classifySwatch(i));
    w.look([=](Program& p) {
      EXPECT_EQ(p.colours.isBackground(palette(i)), !wasBackground) << i;
      EXPECT_EQ(p.colours.isBorder(palette(i)), wasBackground) << i;
      EXPECT_EQ(p.controls[classifySwatch(i)].text, wasBackground ? "Border Color" : "Background");
      EXPECT_EQ(p.controls[drawingSwatch(i)].text, wasBackground ? "Border Color" : "Background");
    });
    w.left(classifySwatch(i));
    w.look([=](Program& p) { EXPECT_EQ(p.colours.isBackground(palette(i)), wasBackground) << i; });
  }
  w.look([](Program& p) { EXPECT_EQ(p.controls[classifySwatch(15)].text, "Maze Color"); });
  EXPECT_EQ(w.run(), "");
}

TEST(WithFifteenBackgrounds, TheLastPlainBorderIsGreyedAndCannotBeTicked) {
  Colours w;
  w.edit();
  for (int i = 8; i < 14; ++i) w.left(classifySwatch(i));  // white is maze and counts as either
  w.look([](Program& p) { EXPECT_FALSE(p.controls[classifySwatch(14)].enabled); });
  w.left(classifySwatch(14));
  w.look([](Program& p) {
    EXPECT_EQ(p.controls[classifySwatch(14)].value, 0);
    EXPECT_TRUE(p.controls[classifySwatch(0)].enabled);
  });
  w.left(classifySwatch(13));
  w.look([](Program& p) { EXPECT_TRUE(p.controls[classifySwatch(14)].enabled) << "two are left again"; });
  EXPECT_EQ(w.run(), "");
}

TEST(WithFifteenBorders, TheLastPlainBackgroundIsGreyedAndCannotBeUnticked) {
  Colours w;
  w.edit();
  for (int i = 0; i < 7; ++i) w.left(classifySwatch(i));
  w.look([](Program& p) { EXPECT_FALSE(p.controls[classifySwatch(7)].enabled); });
  w.left(classifySwatch(7));
  w.look([](Program& p) { EXPECT_EQ(p.controls[classifySwatch(7)].value, 1); });
  EXPECT_EQ(w.run(), "");
}

TEST(ARightPressForAllBackgrounds, MakesTheColourTheMazeColourAndMovesTheBrush) {
  Colours w;
  w.edit();
  w.look([](Program& p) { p.state.drawColor = palette(14); });
  w.right(classifySwatch(14));
  w.look([](Program& p) {
    EXPECT_EQ(p.state.mazeColor, palette(14));
    EXPECT_EQ(p.state.keptMazeColor, palette(14));
    for (int i = 0; i < kSlots; ++i) EXPECT_EQ(p.colours.maze()[static_cast<std::size_t>(i)], palette(14));
    EXPECT_EQ(p.controls[classifySwatch(14)].text, "Maze Color");
    EXPECT_EQ(p.state.drawColor, palette(14)) << "the brush waits for the panel to go";
  });
  w.done();
  w.look([](Program& p) {
    EXPECT_EQ(p.state.drawColor, palette(8)) << "a border before, the first border slot now";
  });
  w.desktop.menu(Item::selectcolor);
  w.look([](Program& p) {
    EXPECT_EQ(p.controls[drawingSwatch(14)].text, "Maze Color");
    EXPECT_FALSE(p.controls[drawingSwatch(14)].enabled);
    EXPECT_TRUE(p.controls[drawingSwatch(14)].visible);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ABrushOfABackgroundThatBecomesMaze, StaysWithTheBackgrounds) {
  Colours w;
  w.look([](Program& p) { p.state.drawColor = palette(0); });
  w.edit();
  w.right(classifySwatch(0));
  w.done();
  w.look([](Program& p) { EXPECT_EQ(p.state.drawColor, palette(1)); });
  EXPECT_EQ(w.run(), "");
}

TEST(TheTwoChoices, AreAPair) {
  Colours w;
  w.edit();
  w.left(ControlId::Check33);
  w.look([](Program& p) {
    EXPECT_TRUE(p.state.colours.individualMazeColors);
    EXPECT_EQ(p.controls[ControlId::Check33].value, 1);
    EXPECT_EQ(p.controls[ControlId::Check34].value, 0);
  });
  w.left(ControlId::Check33);
  w.look(
      [](Program& p) { EXPECT_EQ(p.controls[ControlId::Check33].value, 1) << "turned off, it comes back"; });
  w.left(ControlId::Check34);
  w.look([](Program& p) {
    EXPECT_FALSE(p.state.colours.individualMazeColors);
    EXPECT_EQ(p.controls[ControlId::Check33].value, 0);
    EXPECT_EQ(p.controls[ControlId::Check34].value, 1);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ARightPressForOneBackground, OpensTheMazePanelWithItsColourTicked) {
  Colours w;
  w.edit();
  w.left(ControlId::Check33);
  w.right(classifySwatch(1));
  w.desktop.pumpsPass(1);
  w.look([](Program& p) {
    EXPECT_EQ(p.state.colours.mazeColorPick, 1);
    EXPECT_EQ(p.state.colours.editedPaletteColor, palette(1));
    for (int i = 0; i < kSlots; ++i) {
      EXPECT_TRUE(p.controls[mazeSwatch(i)].visible);
      EXPECT_EQ(p.controls[mazeSwatch(i)].value, i == 15 ? 1 : 0) << i;
      EXPECT_EQ(p.controls[mazeSwatch(i)].text, "");
    }
    EXPECT_TRUE(p.controls[ControlId::Label7].visible);
    for (const ControlId id :
         {ControlId::Label5, ControlId::Check33, ControlId::Check34, ControlId::Command1})
      EXPECT_FALSE(p.controls[id].visible || p.controls[id].enabled);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(ABackgroundsOwnColour, IsNoMazeColourForItAndLeavesThePanelUp) {
  Colours w;
  w.edit();
  w.left(ControlId::Check33);
  w.right(classifySwatch(1));
  w.left(mazeSwatch(1));
  w.look([](Program& p) {
    EXPECT_EQ(p.controls[mazeSwatch(1)].value, 0);
    EXPECT_EQ(p.state.colours.mazeColorPick, 1);
    EXPECT_TRUE(p.controls[mazeSwatch(0)].visible);
    EXPECT_EQ(p.colours.maze()[1], palette(15));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(EveryPickOfAMazeColour, ChangesThatBackgroundAloneAndLeavesTheCommonOne) {
  for (int j = 0; j < kSlots; ++j) {
    const int i = j == 3 ? 4 : 3;
    Colours w;
    w.edit();
    w.left(ControlId::Check33);
    w.right(classifySwatch(i));
    w.left(mazeSwatch(j));
    w.desktop.pumpsPass(1);
    w.look([=](Program& p) {
      EXPECT_EQ(p.colours.maze()[static_cast<std::size_t>(i)], palette(j));
      EXPECT_EQ(p.state.mazeColor, palette(15)) << "not changed";
      EXPECT_EQ(p.state.colours.mazeColorPick, 2);
      EXPECT_TRUE(p.controls[ControlId::Label5].visible);
      EXPECT_FALSE(p.controls[ControlId::Label5].enabled) << "visible but not enabled";
      EXPECT_TRUE(p.controls[ControlId::Command1].visible && p.controls[ControlId::Check33].visible);
      EXPECT_FALSE(p.controls[ControlId::Label7].visible || p.controls[mazeSwatch(0)].visible);
      EXPECT_TRUE(j < 14 || p.controls[mazeSwatch(j)].value == 0) << "yellow and white never stay ticked";
    });
    w.done();
    w.look([](Program& p) { EXPECT_EQ(p.state.colours.mazeColorPick, 0); });
    EXPECT_EQ(w.run(), "") << j;
  }
}

TEST(AColourKeptAsTheLastPlainBorder, CannotBeTakenAsAMazeColour) {
  Colours w;
  w.edit();
  for (int i = 8; i < 14; ++i) w.left(classifySwatch(i));
  w.left(ControlId::Check33);
  w.right(classifySwatch(1));
  w.desktop.pumpsPass(1);
  w.look([](Program& p) {
    EXPECT_FALSE(p.controls[mazeSwatch(14)].enabled);
    EXPECT_TRUE(p.controls[mazeSwatch(14)].visible);
    EXPECT_TRUE(p.controls[mazeSwatch(13)].enabled);
  });
  w.left(mazeSwatch(14));
  w.look([](Program& p) { EXPECT_EQ(p.colours.maze()[1], palette(15)); });
  EXPECT_EQ(w.run(), "");
}

TEST(EveryDrawingColour, IsPickedByItsSwatch) {
  for (int i = 0; i < 15; ++i) {
    Colours w;
    w.look([](Program& p) { p.state.drawColor = palette(3); });
    w.desktop.menu(Item::selectcolor);
    w.look([](Program& p) {
      for (int k = 0; k < kSlots; ++k) EXPECT_EQ(p.controls[drawingSwatch(k)].value, k == 3 ? 1 : 0);
      EXPECT_FALSE(p.menus.available(Item::choosew)) << "one panel at a time";
    });
    w.left(drawingSwatch(i));
    w.look([i](Program& p) {
      EXPECT_EQ(p.state.drawColor, palette(i)) << "also the one already ticked";
      EXPECT_FALSE(p.state.paused || p.state.panelOpen);
      EXPECT_FALSE(p.controls[drawingSwatch(0)].visible || p.controls[ControlId::Label6].visible);
      EXPECT_TRUE(p.controls[ControlId::Label6].enabled) << "its Enabled stays on";
    });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(Done, RepairsTheBackgroundBrushByTheFirstUsableSlot) {
  World w(drawing({"..", ".."}));
  w.state.backgroundDrawColor = palette(12);
  command1(w.program);
  EXPECT_EQ(w.state.backgroundDrawColor, palette(0));
  w.program.colours.setMaze(3, palette(0));
  w.state.backgroundDrawColor = palette(0);
  command1(w.program);
  EXPECT_EQ(w.state.backgroundDrawColor, palette(1));
  w.program.colours.classify(1, false);
  w.state.backgroundDrawColor = palette(1);
  command1(w.program);
  EXPECT_EQ(w.state.backgroundDrawColor, palette(2)) << "slot 1 holds a sentinel";
}

TEST(Done, RepairsTheBorderBrushLooser) {
  World w(drawing({"..", ".."}));
  w.state.borderDrawColor = palette(2);
  command1(w.program);
  EXPECT_EQ(w.state.borderDrawColor, palette(8)) << "slots 0 to 7 hold sentinels";
  w.program.colours.setMaze(3, palette(8));
  w.state.borderDrawColor = palette(8);
  command1(w.program);
  EXPECT_EQ(w.state.borderDrawColor, palette(8)) << "a maze colour of another background ends the walk";
  w.state.mazeColor = palette(8);
  command1(w.program);
  EXPECT_EQ(w.state.borderDrawColor, palette(9)) << "the common maze colour does not";
}

TEST(DoneOnABlankCanvas, GivesTheBackColourAUsableBorderColour) {
  for (const bool drawn : {false, true}) {
    for (const bool redraw : {false, true}) {
      World w(Size{60, 50});
      w.canvas.resize({60, 50});
      w.state.wallWidth = w.state.wallHeight = 10;
      defaultColours(w.program);
      w.canvas.setBackColor(palette(1));
      if (drawn) {
        w.canvas.setAutoRedraw(true);
        w.canvas.fill(21, 11, 25, 15, palette(9));
      }
      w.canvas.setAutoRedraw(redraw);
      command1(w.program);
      EXPECT_EQ(w.canvas.backColor(), drawn ? palette(1) : palette(8));
      EXPECT_EQ(w.canvas.autoRedraw(), redraw);
    }
  }
}

TEST(ResetAllColors, BringsSwatchesAndMazeColoursBackAndLeavesTheBrush) {
  Colours w;
  w.edit();
  w.left(classifySwatch(2));
  w.left(classifySwatch(12));
  w.right(classifySwatch(9));
  w.left(ControlId::Check33);
  w.done();
  w.desktop.menu(Item::resetcolors);
  w.desktop.pumpsPass(1);
  w.look([](Program& p) {
    EXPECT_FALSE(p.state.colours.individualMazeColors);
    for (int i = 0; i < kSlots; ++i) {
      EXPECT_EQ(p.controls[classifySwatch(i)].value, i < 8 ? 1 : 0);
      EXPECT_EQ(p.colours.maze()[static_cast<std::size_t>(i)], palette(15));
    }
    EXPECT_EQ(p.state.mazeColor, palette(9)) << "it leaves the common one";
  });
  EXPECT_EQ(w.run(), "");
}

TEST(RegionsOfAMaze, TakeTheColoursThatTheirBackgroundsWereGiven) {
  const Bitmap picture = drawing({"....#,,,,", "....#,,,,", "....#,,,,", "....#,,,,"});
  Colours w(picture);
  w.edit();
  w.left(ControlId::Check33);
  const auto indexOf = [](Colour c) {
    return static_cast<int>(std::find(kPalette.begin(), kPalette.end(), c) - kPalette.begin());
  };
  w.right(classifySwatch(indexOf(kGreen)));
  w.left(mazeSwatch(13));
  w.done();
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  EXPECT_EQ(w.run(), "");
  const Bitmap maze = w.canvas.image();
  int changed = 0;
  for (int y = 0; y < maze.height; ++y) {
    for (int x = 0; x < maze.width; ++x) {
      if (maze.at(x, y) == palette(13)) {
        ++changed;
        EXPECT_EQ(picture.at(x, y), kGreen);
      }
      if (maze.at(x, y) == kWhite) {
        EXPECT_EQ(picture.at(x, y), kNavy);
      }
    }
  }
  EXPECT_GT(changed + std::count(maze.pixels.begin(), maze.pixels.end(), kWhite), 16 * 60);
}

}  // namespace
}  // namespace gridwright::test
