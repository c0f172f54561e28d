#include "files/work_pictures.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace gridwright::test {
namespace {

const Bitmap kOne = pixels({".#", "*d"});
const Bitmap kOther = pixels({"===", "rrr"});

struct Pictures {
  BareDesktop desktop;
  MemoryFolder folder;
  WorkPictures pictures{desktop, folder};
};

TEST(AWorkPicture, IsReadFromItsFile) {
  Pictures p;
  p.pictures.save("drawing1.bmp", kOne);
  EXPECT_TRUE(samePicture(*p.desktop.file("drawing1.bmp"), kOne));
  p.desktop.putFile("drawing1.bmp", kOther);  // changed by hand
  EXPECT_TRUE(samePicture(p.pictures.load("drawing1.bmp"), kOther));
}

TEST(AWorkPictureWhoseFileIsGone, ComesFromTheCopyInMemory) {
  Pictures p;
  p.pictures.save("drawing1.bmp", kOne);
  p.desktop.bitmaps.clear();
  EXPECT_TRUE(samePicture(p.pictures.load("drawing1.bmp"), kOne));
}

TEST(AWorkPictureThatCouldNotBeWritten, ComesFromMemoryAndNotFromTheOlderFile) {
  Pictures p;
  p.pictures.save("drawing3.bmp", kOther);
  p.desktop.savesFail = true;
  p.pictures.save("drawing3.bmp", kOne);
  EXPECT_TRUE(samePicture(*p.desktop.file("drawing3.bmp"), kOther)) << "the old file still lies there";
  EXPECT_TRUE(samePicture(p.pictures.load("drawing3.bmp"), kOne));

  p.desktop.savesFail = false;
  p.pictures.save("drawing3.bmp", kOther);
  p.desktop.putFile("drawing3.bmp", kOne);
  EXPECT_TRUE(samePicture(p.pictures.load("drawing3.bmp"), kOne))
      << "a good write makes the file count again";
}

TEST(AWorkPictureNeverWritten, IsEmpty) {
  Pictures p;
  EXPECT_EQ(p.pictures.load("drawing2.bmp"), Bitmap{});
  p.desktop.putFile("drawing2.bmp", kOther);
  EXPECT_TRUE(samePicture(p.pictures.load("drawing2.bmp"), kOther))
      << "unless a file of that name lies there";
}

TEST(TheCopyInMemory, KeepsEveryColourExactly) {
  Pictures p;
  p.desktop.savesFail = true;
  Bitmap picture = plainBitmap(256, 3, 0);
  for (int i = 0; i < 256; ++i) {
    for (int row = 0; row < 3; ++row)
      picture.pixels[static_cast<std::size_t>(row * 256 + i)] = i << (8 * row);
  }
  p.pictures.save("title.bmp", picture);
  EXPECT_TRUE(samePicture(p.pictures.load("title.bmp"), picture));
}

TEST(AWholeSession, LosesNothingWhenNoPictureAndNoStepFileCanBeWritten) {
  World w;
  w.desktop.savesFail = true;
  w.folder.writesFail = w.folder.readsFail = true;
  w.begin(drawing({".....", ".....", "....."}));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  w.desktop.menu(Item::backtomaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::backtodrawing);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "");
  EXPECT_TRUE(samePicture(w.canvas.image(), drawing({".....", ".....", "....."})));
  EXPECT_TRUE(w.desktop.messages.empty()) << "it is quiet";
}

}  // namespace
}  // namespace gridwright::test
