#include "files/work_pictures.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "files/work_place.h"
#include "support/disk_desktop.h"
#include "support/full_disk.h"
#include "support/no_plain_files.h"
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
    for (int row = 0; row < 3; ++row) pixelAt(picture, i, row) = i << (8 * row);
  }
  p.pictures.save("title.bmp", picture);
  EXPECT_TRUE(samePicture(p.pictures.load("title.bmp"), picture));
}

/// Pictures in a real folder, and how often one was written.
struct PicturesOnDisk {
  struct Counting : DiskDesktop {
    Outcome<Done> saveBitmap(const Bitmap& picture, const std::filesystem::path& path,
                             Overwrite how) override {
      ++written;
      return DiskDesktop::saveBitmap(picture, path, how);
    }
    int written = 0;
  };
  /// \returns how many files a save has written.
  int save(const Bitmap& picture) {
    const int before = desktop.written;
    pictures.save("drawing4.bmp", picture);
    return desktop.written - before;
  }

  TempFolder temp;
  Counting desktop;
  WorkFolder folder{temp.path()};
  WorkPictures pictures{desktop, folder};
};

TEST(AWorkPictureThatIsOnDiskAlready, IsNotWrittenAgain) {
  PicturesOnDisk p;
  EXPECT_EQ(p.save(kOne), 1);
  EXPECT_EQ(p.save(kOne), 0);
  EXPECT_EQ(p.save(kOther), 1);
  EXPECT_EQ(p.save(kOne), 1);
  EXPECT_TRUE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), kOne));
}

TEST(AWorkPictureThatAnotherHandHasTouched, IsWrittenAgain) {
  PicturesOnDisk p;
  const auto path = p.temp.path() / "drawing4.bmp";
  p.save(kOne);
  std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::seconds(5));
  EXPECT_EQ(p.save(kOne), 1);
  std::filesystem::remove(path);
  EXPECT_EQ(p.save(kOne), 1);
  EXPECT_TRUE(std::filesystem::exists(path));
}

TEST(AWorkPictureThatCouldNotBeWritten, IsTriedAgain) {
  PicturesOnDisk p;
  p.save(kOne);
  {
    const FullDisk full(0);
    EXPECT_EQ(p.save(kOther), 1);
    EXPECT_EQ(p.save(kOther), 1);
  }
  EXPECT_EQ(p.save(kOther), 1);
  EXPECT_TRUE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), kOther));
}

TEST(AWorkPictureUnderANameThatIsNoPlainFiles, ComesFromMemoryAndIsToldOnce) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    PicturesOnDisk p;
    const TempFolder elsewhere;
    ASSERT_TRUE(writeBitmapFile(kOther, elsewhere.path() / "mine.bmp"));
    put(kind, p.temp.path() / "drawing4.bmp", elsewhere.path() / "mine.bmp");
    std::vector<std::string> told;
    p.folder.tellThrough([&](std::string_view words) { told.emplace_back(words); });
    p.save(kOther);
    p.save(kOne);
    EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp"), kOne));
    EXPECT_TRUE(samePicture(readBitmapFile(elsewhere.path() / "mine.bmp").value(), kOther));
    EXPECT_TRUE(isNoPlainFile(p.temp.path() / "drawing4.bmp"));
    EXPECT_EQ(told,
              std::vector<std::string>{"Error: drawing4.bmp is not a plain file; nothing is written to it."});
  }
}

TEST(AWorkPictureTornInTheMiddle, ComesFromMemoryUntilItIsWhole) {
  PicturesOnDisk p;
  const Bitmap first = plainBitmap(60, 40, kNavy);
  const Bitmap second = plainBitmap(60, 40, kRed);
  p.save(first);
  {
    const FullDisk full(3000);  // the disk gives up in the middle of the file that is written over
    p.save(second);
    EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp"), second));
  }
  EXPECT_FALSE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), second));
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp"), second));
  EXPECT_EQ(p.save(second), 1) << "not taken for one that is on disk already";
  EXPECT_TRUE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), second));
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
  EXPECT_EQ(w.desktop.messages, std::vector<std::string>{wordsOnUnwritableFolder({})})
      << "it is told once, and quiet from then on";
}

}  // namespace
}  // namespace gridwright::test
