// Which pictures are taken as they are.
#include "pictures/ready.h"

#include <gtest/gtest.h>

#include "session/defaults.h"
#include "support/pictures.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(APictureOfPaperAndPaletteColours, IsReady) {
  Bitmap picture = plainBitmap(30, 20, kPaper);
  picture.pixels[100] = kNavy;
  picture.pixels[101] = kYellow;
  EXPECT_TRUE(isReady(picture, startingSets()));
}

TEST(APictureWithAWhitePixel, IsNotReady) {
  Bitmap picture = plainBitmap(30, 20, kPaper);
  picture.pixels[100] = kWhite;
  EXPECT_FALSE(isReady(picture, startingSets()));
}

TEST(APictureWithAColourOfItsOwn, IsNotReady) {
  Bitmap picture = plainBitmap(30, 20, kPaper);
  picture.pixels[599] = 0x123456;
  EXPECT_FALSE(isReady(picture, startingSets()));
}

TEST(TheColourOfTheFrame, DecidesWhetherAPictureIsReady) {
  EXPECT_TRUE(isReady(plainBitmap(30, 20, kYellow), startingSets()));
  EXPECT_FALSE(isReady(plainBitmap(30, 20, kNavy), startingSets()));
  ColourSets sets = startingSets();
  sets.classify(1, false);
  EXPECT_TRUE(isReady(plainBitmap(30, 20, kNavy), sets)) << "by the swatches as they stand";
}

TEST(APictureLargerThanACanvas, IsNotReady) {
  EXPECT_TRUE(isReady(plainBitmap(1000, 1000, kPaper), startingSets()));
  EXPECT_FALSE(isReady(plainBitmap(1001, 20, kPaper), startingSets()));
  EXPECT_FALSE(isReady(plainBitmap(20, 1001, kPaper), startingSets()));
}

TEST(APictureWithoutAPixelAtOneOne, IsNotReady) {
  EXPECT_FALSE(isReady(plainBitmap(1, 20, kPaper), startingSets()));
  EXPECT_FALSE(isReady(Bitmap{}, startingSets()));
}

TEST(APictureOfPaletteColoursCutOut, IsReadySinceWhatIsTransparentBecomesPaper) {
  Picture picture;
  picture.own = {30, 20};
  picture.whole.colours = plainBitmap(30, 20, kWhite);
  picture.whole.clear.assign(600, 1);
  picture.whole.colours.pixels[100] = kNavy;
  picture.whole.clear[100] = 0;
  EXPECT_TRUE(isReady(picture, startingSets()));
  picture.whole.clear[101] = 0;
  EXPECT_FALSE(isReady(picture, startingSets())) << "a white pixel that is not transparent";
}

TEST(TheStartingSets, AreThoseOfAProgramThatHasJustBegun) {
  World world;
  forgetEverything(world.program);
  world.program.colours.setExtraBackgroundByRule();
  const ColourSets sets = startingSets();
  EXPECT_EQ(sets.background(), world.program.colours.background());
  EXPECT_EQ(sets.border(), world.program.colours.border());
  EXPECT_EQ(sets.maze(), world.program.colours.maze());
  EXPECT_EQ(sets.extraBackground(), world.program.colours.extraBackground());
}

}  // namespace
}  // namespace gridwright::test
