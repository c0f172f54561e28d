#include "canvas/canvas.h"

#include <gtest/gtest.h>

#include <random>

#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// A Canvas of a few pixels, navy, both planes alike.
struct Small {
  explicit Small(int width = 6, int height = 4) {
    canvas.resize({width, height});
    canvas.setBackColor(kNavy);
    canvas.cls();
  }
  Canvas canvas;
};

TEST(ABox, HasBothCornersInIt) {
  Small s;
  s.canvas.fill(1, 1, 3, 2, kWhite);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"......", ".***..", ".***..", "......"})));
}

TEST(ABox, TakesItsCornersInAnyOrder) {
  for (const auto& corners : {Square{3, 2, 1, 1}, Square{1, 2, 3, 1}, Square{3, 1, 1, 2}}) {
    Small s;
    s.canvas.fill(corners, kWhite);
    EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"......", ".***..", ".***..", "......"})));
  }
}

TEST(ABoxWithEqualCorners, PaintsOnePixel) {
  Small s;
  s.canvas.fill(2, 1, 2, 1, kWhite);
  s.canvas.outline(4, 2, 4, 2, kRed);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"......", "..*...", "....r.", "......"})));
}

TEST(AnOutline, LeavesTheInsideAlone) {
  Small s;
  s.canvas.outline(1, 0, 4, 3, kRed);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({".rrrr.", ".r..r.", ".r..r.", ".rrrr."})));
}

TEST(ALine, LeavesOutItsLastPoint) {
  Small s;
  s.canvas.line(0, 0, 3, 0, kRed);
  s.canvas.line(5, 1, 2, 1, kWhite);
  s.canvas.line(0, 1, 0, 3, kLime);
  s.canvas.line(5, 3, 5, 1, kBlue);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"rrr...", "=..***", "=....#", ".....#"})));
}

TEST(ALineFromAPointToTheOneBelow, PaintsOnePixel) {
  Small s;
  s.canvas.line(2, 1, 2, 2, kRed);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"......", "..r...", "......", "......"})));
}

TEST(ALineWithEqualPoints, PaintsNothing) {
  Small s;
  s.canvas.line(2, 1, 2, 1, kRed);
  EXPECT_TRUE(samePicture(s.canvas.image(), plainBitmap(6, 4, kNavy)));
}

TEST(AStroke, IsClippedAtEverySide) {
  Small s;
  s.canvas.fill(-5, -5, 0, 0, kRed);
  s.canvas.fill(5, 3, 4000, 4000, kWhite);
  s.canvas.fill(-9, -9, -1, -1, kLime);
  s.canvas.line(-10, 2, 2, 2, kLime);
  s.canvas.outline(3, -2, 8, 1, kBlue);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"r..#..", "...###", "==....", ".....*"})));
}

TEST(APointOutside, IsInNoColourSetWhicheverSideItLiesOn) {
  const Small s;
  EXPECT_EQ(s.canvas.point(-1, 0), -1);
  EXPECT_EQ(s.canvas.point(0, -1), -1);
  EXPECT_EQ(s.canvas.point(6, 0), -1);
  EXPECT_EQ(s.canvas.point(0, 4), -1);
  EXPECT_EQ(s.canvas.point(1'000'000, -1'000'000), -1);
  EXPECT_EQ(s.canvas.point(5, 3), kNavy);
}

TEST(AStrokeWithoutRedraw, ShowsAndIsGoneAtTheNextClsWithoutRedraw) {
  Small s;
  s.canvas.setAutoRedraw(false);
  s.canvas.fill(1, 1, 2, 1, kRed);

  EXPECT_EQ(s.canvas.point(1, 1), kRed) << "reads go to the plane that strokes go to";
  EXPECT_EQ(s.canvas.shownPoint(1, 1), kRed);
  EXPECT_TRUE(samePicture(s.canvas.image(), plainBitmap(6, 4, kNavy)))
      << "it is not in the file that is saved";

  s.canvas.cls();
  EXPECT_EQ(s.canvas.point(1, 1), kNavy);
  EXPECT_TRUE(samePicture(s.canvas.shownImage(), plainBitmap(6, 4, kNavy)));
}

TEST(AStrokeWithRedraw, GoesToBothPlanesAndSurvivesTheCls) {
  Small s;
  s.canvas.fill(1, 1, 2, 1, kRed);
  s.canvas.setAutoRedraw(false);
  s.canvas.cls();
  EXPECT_EQ(s.canvas.point(2, 1), kRed);
  EXPECT_EQ(s.canvas.image(), s.canvas.shownImage());
}

TEST(APoint, IsReadFromThePersistentPlaneWhileRedrawIsOn) {
  Small s;
  s.canvas.setAutoRedraw(false);
  s.canvas.fill(0, 0, 5, 3, kRed);
  s.canvas.setAutoRedraw(true);
  EXPECT_EQ(s.canvas.point(2, 2), kNavy);
  EXPECT_EQ(s.canvas.shownPoint(2, 2), kRed) << "the stroke still shows";
}

TEST(AStrokeWithRedrawOverOneWithout, ShowsOnBothPlanesWhereItLies) {
  Small s;
  s.canvas.setAutoRedraw(false);
  s.canvas.fill(0, 0, 5, 0, kRed);
  s.canvas.setAutoRedraw(true);
  s.canvas.fill(2, 0, 3, 0, kWhite);
  EXPECT_TRUE(samePicture(s.canvas.shownImage(), pixels({"rr**rr", "......", "......", "......"})));
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"..**..", "......", "......", "......"})));
}

TEST(ClsWithRedraw, FillsBothPlanesWithTheBackColor) {
  Small s;
  s.canvas.fill(0, 0, 3, 3, kRed);
  s.canvas.setAutoRedraw(false);
  s.canvas.fill(2, 2, 5, 3, kLime);
  s.canvas.setAutoRedraw(true);
  s.canvas.cls();
  EXPECT_TRUE(samePicture(s.canvas.image(), plainBitmap(6, 4, kNavy)));
  EXPECT_TRUE(samePicture(s.canvas.shownImage(), plainBitmap(6, 4, kNavy)));
}

TEST(ANewBackColor, ShowsWhereNeitherAStrokeNorAPictureHasCovered) {
  Small s;
  s.canvas.setPicture(pixels({"r=", "=r"}));
  s.canvas.fill(4, 0, 4, 3, kNavy);  // a stroke in the old back colour covers too
  s.canvas.setBackColor(kGreen);
  const Bitmap expected = pixels({"r=,,.,", "=r,,.,", ",,,,.,", ",,,,.,"});
  EXPECT_TRUE(samePicture(s.canvas.image(), expected));
  EXPECT_TRUE(samePicture(s.canvas.shownImage(), expected));
}

TEST(ANewBackColor, LeavesWhatPaintPictureCoveredAlone) {
  Small s;
  s.canvas.paintPicture(plainBitmap(2, 1, kNavy));
  s.canvas.setBackColor(kGreen);
  EXPECT_TRUE(samePicture(s.canvas.image(), pixels({"..,,,,", ",,,,,,", ",,,,,,", ",,,,,,"})));
}

TEST(ANewBackColor, KeepsStrokesOfEachPlaneApart) {
  Small s;
  s.canvas.setAutoRedraw(false);
  s.canvas.fill(0, 0, 1, 0, kRed);
  s.canvas.setBackColor(kGreen);
  EXPECT_EQ(s.canvas.shownPoint(0, 0), kRed);
  EXPECT_EQ(s.canvas.shownPoint(2, 0), kGreen);
  s.canvas.cls();
  EXPECT_EQ(s.canvas.point(0, 0), kGreen) << "on the persistent plane nothing had covered the pixel";
}

TEST(SettingAPicture, MakesBothPlanesAnew) {
  Small s;
  s.canvas.fill(0, 0, 5, 3, kRed);
  s.canvas.setAutoRedraw(false);
  s.canvas.fill(1, 1, 4, 2, kLime);
  s.canvas.setPicture(pixels({"##", "##"}));
  const Bitmap expected = pixels({"##....", "##....", "......", "......"});
  EXPECT_TRUE(samePicture(s.canvas.image(), expected));
  EXPECT_TRUE(samePicture(s.canvas.shownImage(), expected));
  EXPECT_FALSE(s.canvas.autoRedraw()) << "the drawing mode is another matter";
}

TEST(TheEmptyPicture, LeavesTheBackColorAlone) {
  Small s;
  s.canvas.fill(0, 0, 5, 3, kRed);
  s.canvas.clearPicture();
  EXPECT_TRUE(samePicture(s.canvas.image(), plainBitmap(6, 4, kNavy)));
}

TEST(PaintPicture, CoversOnlyTheSourcesOwnAreaAndOnlyTheShownPlaneWithoutRedraw) {
  Small s;
  s.canvas.setAutoRedraw(false);
  s.canvas.paintPicture(pixels({"rr", "=="}));
  EXPECT_TRUE(samePicture(s.canvas.shownImage(), pixels({"rr....", "==....", "......", "......"})));
  EXPECT_TRUE(samePicture(s.canvas.image(), plainBitmap(6, 4, kNavy)));
}

TEST(PaintPicture, CutsASourceLargerThanTheBlock) {
  Canvas canvas;
  canvas.resize({1000, 1000});
  Bitmap large = plainBitmap(1200, 1100, kRed);
  large.pixels[999] = kLime;
  canvas.paintPicture(large);
  EXPECT_EQ(canvas.point(999, 0), kLime);
  EXPECT_EQ(canvas.point(0, 999), kRed);
  EXPECT_EQ(canvas.image().width, 1000);
}

TEST(ASmallerWindow, HidesPixelsThatALargerOneShowsAgain) {
  Small s;
  s.canvas.fill(5, 3, 5, 3, kRed);
  s.canvas.resize({3, 2});
  EXPECT_EQ(s.canvas.point(5, 3), -1);
  EXPECT_EQ(s.canvas.image().width, 3);
  s.canvas.resize({6, 4});
  EXPECT_EQ(s.canvas.point(5, 3), kRed);
}

TEST(TheCanvas, IsAtMostAThousandPixelsEachWay) {
  Canvas canvas;
  canvas.resize({4000, 3000});
  EXPECT_EQ(canvas.scaleWidth(), 1000);
  EXPECT_EQ(canvas.scaleHeight(), 1000);
  canvas.resize({0, -3});
  EXPECT_EQ(canvas.scaleWidth(), 1);
  EXPECT_EQ(canvas.scaleHeight(), 1);
}

TEST(WhatHasChanged, IsToldOnceAndInsideTheVisiblePart) {
  Small s;
  s.canvas.takeDirty();
  EXPECT_FALSE(s.canvas.isDirty());
  s.canvas.fill(1, 1, 2, 1, kRed);
  s.canvas.fill(4, 2, 9, 9, kRed);
  const Canvas::Dirty dirty = s.canvas.takeDirty();
  EXPECT_EQ(dirty.left, 1);
  EXPECT_EQ(dirty.top, 1);
  EXPECT_EQ(dirty.right, 6);
  EXPECT_EQ(dirty.bottom, 4);
  EXPECT_FALSE(s.canvas.isDirty());
}

/// The Canvas told as plainly as it can be: two planes of optional pixels.
struct SlowCanvas {
  static constexpr int kWidth = 12, kHeight = 9;
  struct Plane {
    Bitmap strokes = plainBitmap(kWidth, kHeight, -2);  // -2: not covered
  } persistent, shown;
  bool redraw = true;
  Colour back = kNavy;

  void put(int x, int y, Colour colour) {
    if (x < 0 || y < 0 || x >= kWidth || y >= kHeight) return;
    pixelAt(shown.strokes, x, y) = colour;
    if (redraw) pixelAt(persistent.strokes, x, y) = colour;
  }
  [[nodiscard]] Bitmap look(const Plane& plane) const {
    Bitmap picture = plainBitmap(kWidth, kHeight, back);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
      if (plane.strokes.pixels[i] != -2) picture.pixels[i] = plane.strokes.pixels[i];
    }
    return picture;
  }
};

TEST(AnyRowOfStrokes, LooksAsThePlainestCanvasWouldPaintIt) {
  std::mt19937 chance(7);
  for (int round = 0; round < 200; ++round) {
    Canvas canvas;
    canvas.resize({SlowCanvas::kWidth, SlowCanvas::kHeight});
    canvas.setBackColor(kNavy);
    SlowCanvas slow;
    for (int stroke = 0; stroke < 25; ++stroke) {
      const auto number = [&](int from, int to) {
        return from + static_cast<int>(chance() % static_cast<unsigned>(to - from + 1));
      };
      const Square b{number(-2, 13), number(-2, 10), number(-2, 13), number(-2, 10)};
      const Colour colour = kPalette[chance() % 16];
      const int x1 = std::min(b.left, b.right), x2 = std::max(b.left, b.right);
      const int y1 = std::min(b.top, b.bottom), y2 = std::max(b.top, b.bottom);
      switch (chance() % 7) {
        case 0:
          canvas.fill(b, colour);
          for (int y = y1; y <= y2; ++y) {
            for (int x = x1; x <= x2; ++x) slow.put(x, y, colour);
          }
          break;
        case 1:
          canvas.outline(b.left, b.top, b.right, b.bottom, colour);
          for (int y = y1; y <= y2; ++y) {
            for (int x = x1; x <= x2; ++x) {
              if (x == x1 || x == x2 || y == y1 || y == y2) slow.put(x, y, colour);
            }
          }
          break;
        case 2:
          canvas.line(b.left, b.top, b.right, b.top, colour);
          for (int x = b.left; x != b.right; x += b.right > b.left ? 1 : -1) slow.put(x, b.top, colour);
          break;
        case 3:
          canvas.line(b.left, b.top, b.left, b.bottom, colour);
          for (int y = b.top; y != b.bottom; y += b.bottom > b.top ? 1 : -1) slow.put(b.left, y, colour);
          break;
        case 4:
          canvas.setAutoRedraw(slow.redraw = !slow.redraw);
          break;
        case 5:
          canvas.cls();
          if (slow.redraw) slow.persistent = {};
          slow.shown = slow.persistent;
          break;
        default:
          canvas.setBackColor(slow.back = colour);
      }
    }
    ASSERT_TRUE(samePicture(canvas.image(), slow.look(slow.persistent))) << "round " << round;
    ASSERT_TRUE(samePicture(canvas.shownImage(), slow.look(slow.shown))) << "round " << round;
  }
}

}  // namespace
}  // namespace gridwright::test
