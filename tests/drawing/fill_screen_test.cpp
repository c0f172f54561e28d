#include "drawing/fill_screen.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

/// A blank drawing in a border colour.
struct Blank : World {
  Blank() : World(Size{130, 100}) {
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.menu(Item::rmazes);
    desktop.pumpsPass(2);
  }
  /// \returns whether the whole Canvas has one colour, and that is `BackColor`.
  static bool isPlain(const Program& p) {
    const Bitmap picture = p.canvas.image();
    for (const Colour c : picture.pixels) {
      if (c != p.canvas.backColor()) return false;
    }
    return true;
  }
};

TEST(MAndN, FillAPlainScreenWithTheNextAndThePreviousBorderColour) {
  Blank b;
  Colour first = 0;
  b.desktop.act([&](Program& p) {
    first = p.canvas.backColor();  // the last slot
    fillScreen(p, -1);
    EXPECT_NE(p.canvas.backColor(), first);
    EXPECT_TRUE(p.colours.isBorder(p.canvas.backColor()));
    EXPECT_TRUE(Blank::isPlain(p));
    fillScreen(p, 1);
    EXPECT_EQ(p.canvas.backColor(), first);
    EXPECT_TRUE(Blank::isPlain(p));
  });
  EXPECT_EQ(b.run(), "");
}

TEST(N, OnADrawingWithOneStrokeInIt_DoesNothing) {
  Blank b;
  b.desktop.act([](Program& p) {
    p.canvas.setAutoRedraw(true);
    p.canvas.fill(40, 40, 49, 49, kNavy);
    const Bitmap before = p.canvas.image();
    p.state.scanX = 77;
    p.state.scanY = 55;
    fillScreen(p, -1);
    EXPECT_TRUE(samePicture(p.canvas.image(), before));
    EXPECT_EQ(p.state.scanX, 77) << "a refused key leaves the sample point";
    EXPECT_EQ(p.state.scanY, 55);
  });
  EXPECT_EQ(b.run(), "");
}

TEST(M, BeginsAtThePresentSamplePointWhereNBeginsAtTheFirst) {
  Blank b;
  b.desktop.act([](Program& p) {
    fillScreen(p, -1);  // away from the end slot
    p.canvas.setAutoRedraw(true);
    p.canvas.fill(20, 20, 29, 29, kNavy);  // above the sample point
    const Colour back = p.canvas.backColor();
    p.state.scanX = 11;
    p.state.scanY = 51;
    fillScreen(p, -1);
    EXPECT_EQ(p.canvas.backColor(), back) << "N sees the stroke";
    fillScreen(p, 1);
    EXPECT_NE(p.canvas.backColor(), back) << "M does not";
  });
  EXPECT_EQ(b.run(), "");
}

TEST(M, WithASamplePointOutsideLooksAtTheWholeGridBeforeItClears) {
  Blank b;
  b.desktop.act([](Program& p) {
    p.canvas.setAutoRedraw(true);
    p.canvas.fill(20, 20, 29, 29, kNavy);
    const Bitmap before = p.canvas.image();
    for (const int outside : {-9, 500}) {
      p.state.scanX = p.state.scanY = outside;
      fillScreen(p, 1);
      EXPECT_TRUE(samePicture(p.canvas.image(), before));
    }
  });
  EXPECT_EQ(b.run(), "");
}

TEST(OnACanvasWithoutASample, NAndMChangeNothing) {
  for (const int direction : {-1, 1}) {
    for (const Size client : {Size{51, 100}, Size{100, 51}, Size{30, 30}}) {
      World w(client);
      w.desktop.click(ControlId::Command2);
      w.desktop.untilPhase(Phase::drawing);
      w.desktop.menu(Item::newwallsize);
      w.desktop.enter(ControlId::Text2, "50");  // the first sample lies at 51, 51
      w.desktop.pumpsPass(2);
      w.desktop.act([&](Program& p) {
        p.canvas.setAutoRedraw(true);
        p.canvas.fill(5, 5, 20, 20, kNavy);
        p.canvas.fill(12, 5, 20, 20, kRed);
        const Bitmap before = p.canvas.image();
        const Colour back = p.canvas.backColor();
        for (int i = 0; i < 3; ++i) fillScreen(p, direction);
        EXPECT_TRUE(samePicture(p.canvas.image(), before));
        EXPECT_EQ(p.canvas.backColor(), back);
        EXPECT_EQ(p.notices.words(), "Nothing filled: the Canvas is too small for a cell");
      });
      EXPECT_EQ(w.run(), "");
    }
  }
}

TEST(ARefusedFill, SaysWhy) {
  Blank b;
  b.desktop.act([](Program& p) {
    for (int i = 0; i < 20; ++i) fillScreen(p, -1);
    EXPECT_EQ(p.notices.words(), "Nothing filled: this is the first border colour");
    for (int i = 0; i < 20; ++i) fillScreen(p, 1);
    EXPECT_EQ(p.notices.words(), "Nothing filled: this is the last border colour");
    p.canvas.setAutoRedraw(true);
    p.canvas.fill(40, 40, 49, 49, kNavy);
    fillScreen(p, -1);
    EXPECT_EQ(p.notices.words(), "Nothing filled: the drawing is not of one colour");
  });
  EXPECT_EQ(b.run(), "");
}

TEST(ABackColorInNoBorderSlot, IsAppliedAgainAndClearsTheCanvas) {
  for (const int direction : {-1, 1}) {
    Blank b;
    b.desktop.act([&](Program& p) {
      p.canvas.setBackColor(kNavy);
      p.canvas.setAutoRedraw(true);
      p.canvas.fill(14, 14, 15, 15, kRed);  // between the samples
      p.state.scanX = p.state.scanY = -9;
      fillScreen(p, direction);
      EXPECT_EQ(p.canvas.backColor(), kNavy);
      EXPECT_TRUE(Blank::isPlain(p));
    });
    EXPECT_EQ(b.run(), "");
  }
}

TEST(MAndN, StopInTheEndSlotsWithoutClearing) {
  for (const int direction : {-1, 1}) {
    Blank b;
    b.desktop.act([&](Program& p) {
      for (int i = 0; i < 40; ++i) fillScreen(p, direction);
      const Colour last = p.canvas.backColor();
      p.canvas.setAutoRedraw(true);
      p.canvas.fill(14, 14, 15, 15, kRed);
      const Bitmap before = p.canvas.image();
      fillScreen(p, direction);
      EXPECT_EQ(p.canvas.backColor(), last);
      EXPECT_TRUE(samePicture(p.canvas.image(), before));
    });
    EXPECT_EQ(b.run(), "");
  }
}

}  // namespace
}  // namespace gridwright::test
