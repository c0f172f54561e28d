#include "canvas/folded_bitmap.h"

#include <gtest/gtest.h>

#include "canvas/canvas.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

const Bitmap kStripes = pixels({"..#", "..#", "*d.", "*d.", "*d.", "..#"});

TEST(AFoldedPicture, IsThePictureThatItTook) {
  FoldedBitmap folded;
  EXPECT_TRUE(folded.view().isEmpty());
  for (const Bitmap& picture : {kStripes, pixels({"."}), pixels({"#.", ".#", "#."}), Bitmap{}, kStripes}) {
    folded.take(picture);
    EXPECT_TRUE(samePicture(folded.view().copied(), picture));
    EXPECT_TRUE(folded.view().isSameAs(picture));
  }
}

TEST(AFoldedPicture, HoldsARowThatIsLikeTheOneAboveOnce) {
  FoldedBitmap folded;
  folded.take(kStripes);
  const BitmapView view = folded.view();
  EXPECT_EQ(view.row(1), view.row(0));
  EXPECT_EQ(view.row(2), view.row(0) + 3);
  EXPECT_EQ(view.row(4), view.row(2));
  EXPECT_EQ(view.row(5), view.row(0) + 6) << "and one that comes again further down twice";
}

TEST(AFoldedPicture, HoldsNoMarksOfTheCanvas) {
  Canvas canvas;
  canvas.resize({3, 3});
  canvas.setBackColor(kNavy);
  canvas.fill(0, 1, 2, 1, kNavy);
  ASSERT_NE(canvas.imageView().row(1)[0], kNavy) << "the Canvas marks what is covered";
  FoldedBitmap folded;
  folded.take(canvas.imageView());
  for (int y = 0; y < 3; ++y) EXPECT_EQ(folded.view().row(y)[0], kNavy);
}

TEST(AFoldedPicture, MayBeTakenFromAnother) {
  FoldedBitmap one;
  FoldedBitmap other;
  one.take(kStripes);
  other.take(one.view());
  one.take(pixels({"dd", "dd"}));
  EXPECT_TRUE(samePicture(other.view().copied(), kStripes));
}

TEST(AFoldedPictureThatIsTakenAnew, KeepsItsPlaceInMemory) {
  FoldedBitmap folded;
  folded.take(kStripes);
  const Colour* before = folded.view().first;
  folded.take(pixels({"*.#", "*.#"}));
  EXPECT_EQ(folded.view().first, before);
}

}  // namespace
}  // namespace gridwright::test
