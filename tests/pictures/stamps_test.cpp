// The stamps that come with the program.
#include "pictures/stamps.h"

#include "canvas/free_cell.h"
#include "pictures/golden.h"
#include "pictures/regions.h"
#include "pictures/sheet.h"
#include "pictures/with_fonts.h"

namespace gridwright::test {
namespace {

using AStamp = WithFonts;

Bitmap inkOf(const BitPlane& plane) {
  Bitmap picture = plainBitmap(plane.width(), plane.height(), kPaper);
  forRuns(plane, [&](int y, int left, int right) {
    for (int x = left; x <= right; ++x)
      picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                     static_cast<std::size_t>(x)] = kPalette[1];
  });
  return picture;
}

TEST_F(AStamp, IsAsHighAsItIsWantedAtAnySize) {
  for (const std::string_view name : kStamps) {
    for (const int height : {7, 50, 200, 999}) {
      const BitPlane stamp = ink.stamp(std::string(name), height);
      EXPECT_EQ(stamp.height(), height) << name;
      EXPECT_GT(stamp.count(), 0) << name;
    }
    const BitPlane large = ink.stamp(std::string(name), 500);
    EXPECT_EQ(large.bounds().left, 0) << name;
    EXPECT_EQ(large.bounds().right, large.width() - 1) << name;
    EXPECT_LE(large.bounds().top, 2) << name << ", but for the point of a tip";
    EXPECT_EQ(large.bounds().bottom, 499) << name;
  }
}

TEST_F(AStamp, OfTwentyFourCellsIsOneRegion) {
  for (const std::string_view name : kStamps) {
    for (const int wall : {5, 10, 17, 20}) {
      Sheet sheet({1000, 600});
      sheet.placeInk(inkOf(ink.stamp(std::string(name), 24 * wall)), {2 * wall, 2 * wall});
      const RegionCount count =
          countRegions(sheet.picture(), startingSets(), gridOn(sheet.size(), wall, MazeKind::regular));
      EXPECT_EQ(count.regions, 1) << name << " at wall " << wall;
    }
  }
}

TEST_F(AStamp, LooksAsItDid) {
  for (const std::string_view name : kStamps)
    EXPECT_TRUE(looksAsItDid(inkOf(ink.stamp(std::string(name), 120)), "stamp_" + std::string(name)));
}

TEST_F(AStamp, OfAnotherNameIsNone) {
  for (const char* name : {"dragon", "", "../stamps/heart", "/etc/passwd"})
    EXPECT_EQ(ink.stamp(name, 100).size(), Size{}) << name;
}

}  // namespace
}  // namespace gridwright::test
