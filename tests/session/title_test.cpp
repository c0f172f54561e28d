#include "session/title.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(TheTitlePicture, IsEightHundredBySixHundredAndWrittenForTheShowToComeBackTo) {
  World w(Size{1000, 700});
  w.desktop.untilPhase(Phase::title);
  EXPECT_EQ(w.run(), "");
  const Bitmap* title = w.desktop.file("title.bmp");
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->width, 800);
  EXPECT_EQ(title->height, 600);
  EXPECT_GT(std::count(title->pixels.begin(), title->pixels.end(), kNavy), 5000) << "the name stands in it";
  EXPECT_GT(std::count(title->pixels.begin(), title->pixels.end(), kWhite), 1000) << "with corridors";
}

TEST(ATitlePictureBesideTheProgram, IsShownInsteadOfThePaintedOne) {
  World w;
  w.desktop.content = "/content";
  w.desktop.putFile("title.bmp", plainBitmap(800, 600, kMaroon));
  w.desktop.untilPhase(Phase::title);
  w.desktop.look(
      [](Program& p) { EXPECT_TRUE(samePicture(p.canvas.image(), plainBitmap(800, 600, kMaroon))); });
  EXPECT_EQ(w.run(), "");
}

TEST(ContentThatIsNotInstalled, IsMissing) {
  World w;
  w.desktop.putFile("example1.bmp", plainBitmap(2, 2, kRed));
  EXPECT_FALSE(loadContent(w.program, "example1.bmp")) << "no content folder, whatever the name";
  w.desktop.content = "/content";
  EXPECT_TRUE(loadContent(w.program, "example1.bmp"));
  EXPECT_FALSE(loadContent(w.program, "example2.bmp"));
}

TEST(TheQuitButton, IsHiddenButNeverDisabled) {
  World w;
  showTitleButtons(w.program);
  hideTitleButtons(w.program);
  EXPECT_FALSE(w.program.controls[ControlId::Command7].visible);
  EXPECT_TRUE(w.program.controls[ControlId::Command7].enabled);
  EXPECT_FALSE(w.program.controls[ControlId::Command2].enabled);
  EXPECT_FALSE(w.program.controls[ControlId::Command3].enabled);
}

}  // namespace
}  // namespace gridwright::test
