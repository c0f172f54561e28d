// Escape in the three colour panels.
#include <gtest/gtest.h>

#include "colours/colour_editor.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

Colour palette(int i) { return kPalette[static_cast<std::size_t>(i)]; }

/// A session in the drawing phase over a small drawing.
struct Colours : World {
  Colours() : World(Size{50, 40}) {
    begin(drawing({"....", "....", "...."}));
    desktop.pumpsPass(2);
  }
  void left(ControlId swatch) {
    desktop.act([swatch](Program& p) { input::swatchLeft(p, swatch); });
    desktop.pumpsPass(2);
  }
  void right(ControlId swatch) {
    desktop.act([swatch](Program& p) { input::swatchRight(p, swatch); });
    desktop.pumpsPass(2);
  }
  void escape(ControlId control) {
    desktop.act([control](Program& p) { input::escapePressed(p, control); });
    desktop.pumpsPass(2);
  }
};

TEST(EscapeInSelectColor, PicksTheTickedColourAgainAndPaintsNothing) {
  Colours w;
  Bitmap before;
  w.desktop.look([&](Program& p) {
    p.state.drawColor = p.state.drawing.lastColor = palette(12);
    before = p.canvas.image();
  });
  w.desktop.menu(Item::selectcolor);
  w.escape(ControlId::Check20);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.drawColor, palette(12));
    EXPECT_FALSE(p.state.paused || p.state.panelOpen || p.state.colours.colorTicksReady);
    EXPECT_FALSE(p.controls[ControlId::Check20].visible || p.controls[ControlId::Label6].visible);
    EXPECT_TRUE(p.menus.available(Item::selectcolor));
    EXPECT_TRUE(samePicture(p.canvas.image(), before));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(EscapeInSelectColor, LeavesABrushOfNoPaletteColourAsItIs) {
  Colours w;
  w.desktop.look([](Program& p) { p.state.drawColor = p.state.drawing.lastColor = palette(12) + 1; });
  w.desktop.menu(Item::selectcolor);
  w.escape(ControlId::Check17);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.drawColor, palette(12) + 1);
    EXPECT_FALSE(p.state.paused || p.state.panelOpen);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(EscapeInTheMazeColours, GoesBackWithNothingChanged) {
  Colours w;
  w.desktop.menu(Item::choosew);
  w.left(ControlId::Check33);
  w.right(classifySwatch(1));
  ColourSets::Slots before{};
  w.desktop.look([&](Program& p) {
    ASSERT_TRUE(p.controls[ControlId::Check35].visible);
    before = p.colours.maze();
  });
  w.escape(ControlId::Check37);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.colours.maze(), before);
    EXPECT_EQ(p.state.mazeColor, palette(15));
    EXPECT_FALSE(p.controls[ControlId::Check35].visible || p.controls[ControlId::Label7].visible);
    for (const ControlId id : {ControlId::Check1, ControlId::Check33, ControlId::Command1, ControlId::Label5})
      EXPECT_TRUE(p.controls[id].visible);
    EXPECT_TRUE(p.state.paused && p.state.panelOpen) << "back in the panel that it came from";
  });
  w.right(classifySwatch(2));
  w.desktop.look([](Program& p) { EXPECT_TRUE(p.controls[ControlId::Check35].visible) << "once more"; });
  w.left(mazeSwatch(5));
  w.desktop.look([](Program& p) { EXPECT_EQ(p.colours.maze()[2], palette(5)); });
  EXPECT_EQ(w.run(), "");
}

TEST(EscapeInEditColors, IsDone) {
  for (const ControlId where : {ControlId::Check1, ControlId::Check34, ControlId::Command1}) {
    Colours w;
    w.desktop.menu(Item::choosew);
    w.left(classifySwatch(2));
    w.desktop.look([](Program& p) { p.state.backgroundDrawColor = palette(2); });
    w.escape(where);
    w.desktop.look([](Program& p) {
      EXPECT_FALSE(p.state.paused || p.state.panelOpen);
      for (const ControlId id : {ControlId::Check1, ControlId::Check34, ControlId::Command1})
        EXPECT_FALSE(p.controls[id].visible);
      EXPECT_TRUE(p.colours.isBorder(palette(2))) << "what was changed stays";
      EXPECT_EQ(p.state.backgroundDrawColor, palette(0)) << "the brushes are put right as by Done";
    });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(EscapeOnASwatchThatIsNotShown, DoesNothing) {
  Colours w;
  w.desktop.menu(Item::choosew);
  w.escape(ControlId::Check17);
  w.escape(ControlId::Check35);
  w.desktop.look([](Program& p) { EXPECT_TRUE(p.state.paused && p.controls[ControlId::Check1].visible); });
  EXPECT_EQ(w.run(), "");
}

}  // namespace
}  // namespace gridwright::test
