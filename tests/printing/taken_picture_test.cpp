#include "printing/taken_picture.h"

#include <gtest/gtest.h>

#include "pictures/ready.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A wall size of one pixel, so that a picture is seen as text; the ground is yellow.
struct Sheet : World {
  explicit Sheet(const Text& rows) : World(pixels(rows)) {
    canvas.setBackColor(kYellow);
    state.wallWidth = state.wallHeight = 1;
    state.phase = Phase::drawing;
  }
  void paper(int x, int y) {
    canvas.setAutoRedraw(true);
    canvas.fill(x, y, x, y, kPaper);
  }
};

/// What drawing the layers one after the other leaves; `?` where nothing is drawn.
Text drawn(const ColourLayers& layers, Size size) {
  Bitmap bitmap = plainBitmap(size.width, size.height, -1);
  for (const ColourLayer& layer : layers) {
    for (const Patch& p : layer.patches) {
      for (int y = p.y; y < p.y + p.height; ++y)
        for (int x = p.x; x < p.x + p.width; ++x) pixelAt(bitmap, x, y) = layer.colour;
    }
  }
  Text rows(static_cast<std::size_t>(size.height));
  for (int y = 0; y < size.height; ++y)
    for (int x = 0; x < size.width; ++x)
      rows[static_cast<std::size_t>(y)] += bitmap.at(x, y) == -1 ? '?' : letterOf(bitmap.at(x, y));
  return rows;
}

TEST(ThePictureTaken, HasTheColoursOfTheCanvasPaperToo) {
  Sheet w({"yyy", "y.y"});
  w.paper(2, 1);
  const Bitmap taken = takenPicture(w.program, false, false);
  EXPECT_TRUE(samePicture(taken, w.canvas.shownView().copied()));
  EXPECT_EQ(taken.at(2, 1), kPaper);
}

TEST(ThePictureTaken, IsItsPagesRectangleOnWhiteWithAWhiteGround) {
  Sheet w({"yyyyy", "yyyyy", "yyyy.", "y.yyy", "yyyyy", "yyyyy"});
  w.paper(2, 3);
  w.state.print.whiteGround = true;
  EXPECT_EQ(textOf(takenPicture(w.program, false, false)),
            textOf(pixels({"*****", "****.", "*.***", "*****"})));
}

TEST(AClearPicture, ShowsNothingWherePaperOrTheGroundIs) {
  Sheet w({"yyyy", "y.*y", "yy#y"});
  w.paper(3, 2);
  const Bitmap taken = takenPicture(w.program, false, true);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 4; ++x) {
      const bool inked = (y == 1 && (x == 1 || x == 2)) || (y == 2 && x == 2);
      EXPECT_EQ(isSeeThrough(taken.at(x, y)), !inked) << x << ", " << y;
    }
  }
  EXPECT_EQ(drawn(*layersOfTaken(taken, 100), {4, 3}), (Text{"????", "?.*?", "??#?"}));
  EXPECT_FALSE(layersOfTaken(taken, 2));
}

TEST(AClearPicture, OfAWhiteGroundHasItsRectangle) {
  Sheet w({"yyyyyy", "yyyyyy", "yyy.yy", "yyyyyy", "yyyyyy"});
  w.state.print.whiteGround = true;
  const Bitmap taken = takenPicture(w.program, false, true);
  EXPECT_EQ(drawn(*layersOfTaken(taken, 100), {3, 3}), (Text{"???", "?.?", "???"}));
}

TEST(ThePictureWithoutItsTrail, IsTheOneBeforeTheWalkWhereThereWasOne) {
  Sheet w({"yyy", "yyy"});
  const Bitmap before = pixels({"...", "..."});
  w.program.pictures.save("drawing2.bmp", before);
  for (const Phase phase : {Phase::drawing, Phase::placing, Phase::solving, Phase::solved}) {
    w.state.phase = phase;
    const bool walked = phase == Phase::solving || phase == Phase::solved;
    EXPECT_TRUE(samePicture(takenPicture(w.program, true, false), walked ? before : pixels({"yyy", "yyy"})));
    EXPECT_TRUE(samePicture(takenPicture(w.program, false, false), pixels({"yyy", "yyy"})));
  }
}

TEST(TheScaleOnAPage, IsTheLargestWholeOneThatFitsItsPrintableArea) {
  const PageSetup usual;
  // A4 lying, 277 by 190 mm: 3271 by 2244 dots at 300 an inch.
  EXPECT_EQ(scaleOnPage({800, 600}, usual, {}, 300), 3);
  EXPECT_EQ(scaleOnPage({818, 561}, usual, {}, 300), 3);
  EXPECT_EQ(scaleOnPage({817, 561}, usual, {}, 300), 4);
  EXPECT_EQ(scaleOnPage({817, 562}, usual, {}, 300), 3);
  EXPECT_EQ(scaleOnPage({561, 817}, usual, {}, 300), 4) << "upright";
  EXPECT_EQ(scaleOnPage({1000, 1000}, usual, {}, 72), 1) << "never less, though the page holds only 538";
  EXPECT_EQ(scaleOnPage({1000, 1000}, usual, {}, 1200), 8);
  EXPECT_EQ(scaleOnPage({800, 600}, {paperNamed("a3"), {}, {}, {}}, {}, 300), 5);
  EXPECT_EQ(scaleOnPage({800, 600}, {{}, false, {}, {}}, {}, 300), 2) << "turned upright";
  EXPECT_EQ(scaleOnPage({800, 600}, {{}, {}, allRound(30), {}}, {}, 300), 2);
  EXPECT_EQ(scaleOnPage({100, 70}, {paperNamed("a6"), {}, allRound(50), {}}, {}, 254), 7)
      << "no margin takes more than a quarter: 74 by 52.5 mm are left";
  EXPECT_EQ(scaleOnPage({800, 600}, usual, {{2794, 4318}, allRound(0), {}}, 300), 5) << "the desktop's paper";
}

}  // namespace
}  // namespace gridwright::test
