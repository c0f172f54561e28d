#include "canvas/bitmap_view.h"

#include <gtest/gtest.h>

#include "canvas/canvas.h"
#include "support/pictures.h"

namespace gridwright::test {
namespace {

/// A Canvas whose shown plane has a stroke that the persistent one has not.
struct TwoPlanes {
  TwoPlanes() {
    canvas.resize({4, 3});
    canvas.setPicture(pixels({"....", ".**.", "...."}));
    canvas.setAutoRedraw(false);
    canvas.fill(0, 0, 1, 0, kWhite);
  }
  Canvas canvas;
};

TEST(AViewOfTheCanvas, IsTheVisiblePartOfItsPlane) {
  TwoPlanes t;
  EXPECT_TRUE(samePicture(t.canvas.imageView().copied(), pixels({"....", ".**.", "...."})));
  EXPECT_TRUE(samePicture(t.canvas.shownView().copied(), pixels({"**..", ".**.", "...."})));
}

TEST(AViewOfTheCanvas, IsNoCopy) {
  TwoPlanes t;
  const BitmapView shown = t.canvas.shownView();
  t.canvas.fill(3, 2, 3, 2, kWhite);
  EXPECT_TRUE(samePicture(shown.copied(), pixels({"**..", ".**.", "...*"})));
}

TEST(AView, LooksPastWhatAPixelHoldsAboveItsColour) {
  TwoPlanes t;
  ASSERT_NE(t.canvas.imageView().row(1)[1], kWhite) << "the Canvas marks what is covered";
  EXPECT_EQ(t.canvas.imageView().copied().at(1, 1), kWhite);
  EXPECT_TRUE(t.canvas.imageView().isSameAs(pixels({"....", ".**.", "...."})));
}

TEST(AView, IsAnotherPictureByOnePixelOrBySize) {
  TwoPlanes t;
  const BitmapView view = t.canvas.imageView();
  EXPECT_FALSE(view.isSameAs(pixels({"....", ".**.", "...*"})));
  EXPECT_FALSE(view.isSameAs(pixels({"*...", ".**.", "...."})));
  EXPECT_FALSE(view.isSameAs(pixels({"....", ".**."})));
  EXPECT_FALSE(view.isSameAs(pixels({"...", ".**", "..."})));
}

TEST(AView, IsCopiedIntoTheMemoryThatABitmapHas) {
  TwoPlanes t;
  Bitmap bitmap = plainBitmap(4, 3, kNavy);
  bitmap.cutFrom = {4, 300};
  const Colour* memory = bitmap.pixels.data();
  t.canvas.imageView().copyTo(bitmap);
  EXPECT_EQ(bitmap, pixels({"....", ".**.", "...."}));
  EXPECT_EQ(bitmap.pixels.data(), memory);
}

}  // namespace
}  // namespace gridwright::test
