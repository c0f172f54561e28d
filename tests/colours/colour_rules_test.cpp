// What holds at each click on a swatch, however many come before the drawing loop looks.
#include <gtest/gtest.h>

#include <random>

#include "colours/colour_editor.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

Colour palette(int i) { return kPalette[static_cast<std::size_t>(i)]; }

/// Edit Colors is up over a small drawing.
struct Editing : World {
  Editing() : World(Size{50, 40}) {
    begin(drawing({"....", "....", "...."}));
    desktop.pumpsPass(2);
    desktop.menu(Item::choosew);
    desktop.pumpsPass(1);
  }
  void left(ControlId swatch) {
    desktop.act([swatch](Program& p) { input::swatchLeft(p, swatch); });
    desktop.pumpsPass(1);
  }
  void right(ControlId swatch) {
    desktop.act([swatch](Program& p) { input::swatchRight(p, swatch); });
    desktop.pumpsPass(1);
  }
  void classify(int from, int to) {
    for (int i = from; i <= to; ++i) left(classifySwatch(i));
  }
  /// The panel of the maze colours, for one background.
  void pickMazeColourOf(int i) {
    left(ControlId::Check33);
    right(classifySwatch(i));
  }
};

/// Colours of a kind that are in no corridor.
int plain(const Program& p, bool background) {
  int count = 0;
  for (int i = 0; i < kSlots; ++i) {
    const bool isBackground = p.controls[classifySwatch(i)].value == 1;
    count += isBackground == background && !p.colours.isMaze(palette(i)) ? 1 : 0;
  }
  return count;
}

TEST(UnderTheMazePanel, AColourThatBecomesTheLastPlainBorderCanNoLongerBeTaken) {
  Editing w;
  w.classify(8, 12);  // the plain borders left are 13 and 14; white is maze
  w.pickMazeColourOf(1);
  w.left(classifySwatch(13));
  w.desktop.look([](Program& p) {
    EXPECT_FALSE(p.controls[classifySwatch(14)].enabled);
    EXPECT_FALSE(p.controls[mazeSwatch(14)].enabled);
    EXPECT_TRUE(p.controls[mazeSwatch(13)].enabled);
  });
  w.left(mazeSwatch(14));
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.colours.maze()[1], palette(15));
    EXPECT_EQ(p.state.colours.mazeColorPick, 1) << "the panel waits for another";
    EXPECT_EQ(plain(p, false), 1);
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.drawColor, palette(14)) << "the brush keeps the last plain border";
}

TEST(UnderTheMazePanel, AColourThatBecomesTheLastPlainBackgroundCanNoLongerBeTaken) {
  Editing w;
  w.classify(0, 5);  // the plain backgrounds left are 6 and 7
  w.pickMazeColourOf(9);
  w.left(classifySwatch(6));
  w.left(mazeSwatch(7));
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.colours.maze()[9], palette(15));
    EXPECT_EQ(plain(p, true), 1);
  });
  w.left(classifySwatch(3));
  w.left(mazeSwatch(7));
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.colours.maze()[9], palette(7)) << "it can, once there is another background";
    EXPECT_EQ(plain(p, true), 1);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TwoClicksInOnePump, KeepThePlainBorderThatTheFirstHasLeft) {
  Editing w;
  w.classify(8, 12);
  w.desktop.act([](Program& p) {
    input::swatchLeft(p, classifySwatch(13));
    input::swatchLeft(p, classifySwatch(14));
    EXPECT_EQ(plain(p, false), 1);
    input::swatchRight(p, classifySwatch(14));
    EXPECT_FALSE(p.colours.isMaze(palette(14)));
  });
  w.desktop.pumpsPass(1);
  EXPECT_EQ(w.run(), "");
}

TEST(TheEditorOpenedAnew, HasTheLastPlainBorderGreyedFromTheFirst) {
  Editing w;
  w.classify(8, 13);
  w.desktop.click(ControlId::Command1);
  w.desktop.pumpsPass(1);
  w.desktop.act([](Program& p) {
    input::menuClick(p, Item::choosew);
    EXPECT_FALSE(p.controls[classifySwatch(14)].enabled);
    input::swatchLeft(p, classifySwatch(14));
    EXPECT_EQ(plain(p, false), 1);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(HoweverTheSwatchesAreClicked, APlainBorderAndAPlainBackgroundStay) {
  Editing w;
  auto chance = std::make_shared<std::mt19937>(4);
  for (int pump = 0; pump < 3000; ++pump) {
    w.desktop.act([chance](Program& p) {
      for (auto clicks = 1 + (*chance)() % 3; clicks > 0; --clicks) {
        const int i = static_cast<int>((*chance)() % kSlots);
        switch ((*chance)() % 8) {
          case 0:
            input::swatchLeft(p, ControlId::Check33);
            break;
          case 1:
            if ((*chance)() % 8 == 0) input::swatchLeft(p, ControlId::Check34);
            break;
          case 2:
          case 3:
            input::swatchRight(p, classifySwatch(i));
            break;
          case 4:
          case 5:
            input::swatchLeft(p, mazeSwatch(i));
            break;
          default:
            input::swatchLeft(p, classifySwatch(i));
        }
        ASSERT_GE(plain(p, false), 1);
        ASSERT_GE(plain(p, true), 1);
      }
    });
    if (pump % 3 == 0) w.desktop.pumpsPass(1);
  }
  EXPECT_EQ(w.run(), "");
}

TEST(ABackgroundsOwnColour, IsToldToBeNoMazeColourForIt) {
  Editing w;
  w.pickMazeColourOf(1);
  w.left(mazeSwatch(1));
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.program.notices.words(), "No colour can be its own maze colour");
}

}  // namespace
}  // namespace gridwright::test
