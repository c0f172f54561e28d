#include "files/work_pictures.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>
#include <utility>

#include "files/work_place.h"
#include "support/as_nobody.h"
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
  EXPECT_TRUE(samePicture(p.pictures.load("drawing1.bmp").copied(), kOther));
}

TEST(AWorkPictureThatIsSavedAnew, KeepsItsPlaceInMemory) {
  Pictures p;
  p.pictures.save("drawing3.bmp", kOther);
  p.desktop.savesFail = true;
  p.pictures.save("drawing3.bmp", kOne);
  const Colour* before = p.pictures.load("drawing3.bmp").first;
  p.pictures.save("drawing3.bmp", plainBitmap(2, 2, kNavy));
  EXPECT_TRUE(samePicture(p.pictures.load("drawing3.bmp").copied(), plainBitmap(2, 2, kNavy)));
  EXPECT_EQ(p.pictures.load("drawing3.bmp").first, before);
}

TEST(AWorkPictureWhoseFileIsGone, ComesFromTheCopyInMemory) {
  Pictures p;
  p.pictures.save("drawing1.bmp", kOne);
  p.desktop.bitmaps.clear();
  EXPECT_TRUE(samePicture(p.pictures.load("drawing1.bmp").copied(), kOne));
}

TEST(AWorkPictureThatCouldNotBeWritten, ComesFromMemoryAndNotFromTheOlderFile) {
  Pictures p;
  p.pictures.save("drawing3.bmp", kOther);
  p.desktop.savesFail = true;
  p.pictures.save("drawing3.bmp", kOne);
  EXPECT_TRUE(samePicture(*p.desktop.file("drawing3.bmp"), kOther)) << "the old file still lies there";
  EXPECT_TRUE(samePicture(p.pictures.load("drawing3.bmp").copied(), kOne));

  p.desktop.savesFail = false;
  p.pictures.save("drawing3.bmp", kOther);
  p.desktop.putFile("drawing3.bmp", kOne);
  EXPECT_TRUE(samePicture(p.pictures.load("drawing3.bmp").copied(), kOne))
      << "a good write makes the file count again";
}

TEST(AWorkPictureNeverWritten, IsEmpty) {
  Pictures p;
  EXPECT_TRUE(p.pictures.load("drawing2.bmp").isEmpty());
  p.desktop.putFile("drawing2.bmp", kOther);
  EXPECT_TRUE(samePicture(p.pictures.load("drawing2.bmp").copied(), kOther))
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
  EXPECT_TRUE(samePicture(p.pictures.load("title.bmp").copied(), picture));
}

/// Pictures in a real folder, and how often one was written.
struct PicturesOnDisk {
  struct Counting : DiskDesktop {
    Outcome<FileMark> saveBitmap(const BitmapView& picture, const FilePlace& target, Overwrite how) override {
      ++written;
      auto saved = DiskDesktop::saveBitmap(picture, target, how);
      if (meanwhile) meanwhile();
      return saved;
    }
    Outcome<Bitmap> loadBitmap(const FilePlace& target) override {
      ++read;
      auto loaded = DiskDesktop::loadBitmap(target);
      if (meanwhile) meanwhile();
      return loaded;
    }
    int written = 0, read = 0;
    std::function<void()> meanwhile;  ///< What another hand does before the caller goes on.
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

TEST(AWorkPictureThatWasCutFromALargerFile, IsWrittenAgain) {
  PicturesOnDisk p;
  const auto path = p.temp.path() / "drawing4.bmp";
  ASSERT_TRUE(writeBitmapFile(plainBitmap(2, 1003, kNavy), path));
  const Bitmap part = p.pictures.load("drawing4.bmp").copied();
  EXPECT_TRUE(samePicture(part, plainBitmap(2, 1000, kNavy)));
  EXPECT_EQ(p.save(part), 1) << "its file holds more";
  EXPECT_EQ(p.save(part), 0);
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

TEST(AWorkPictureThatAnotherHandReplacedByOneAsLongAndAsOld, IsReadAndIsWrittenAgain) {
  PicturesOnDisk p;
  const auto path = p.temp.path() / "drawing4.bmp";
  p.save(kOne);
  const auto replace = [&] {
    const auto time = std::filesystem::last_write_time(path);
    ASSERT_TRUE(writeBitmapFile(kOther, path));  // a new file under the name
    std::filesystem::last_write_time(path, time);
  };
  replace();
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther));
  EXPECT_EQ(p.save(kOne), 1);
  replace();
  EXPECT_EQ(p.save(kOne), 1);
  EXPECT_TRUE(samePicture(readBitmapFile(path).value(), kOne));
}

TEST(AWorkPictureThatAnotherHandReplacesAtOnce, IsNotTakenForTheOneThatWasWritten) {
  PicturesOnDisk p;
  const auto path = p.temp.path() / "drawing4.bmp";
  p.desktop.meanwhile = [&] { ASSERT_TRUE(writeBitmapFile(kOther, path)); };
  p.save(kOne);
  p.desktop.meanwhile = nullptr;
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther));
  EXPECT_EQ(p.save(kOne), 1);
}

TEST(AWorkPictureThatWasReadFromTheDisk, IsNeitherReadNorWrittenAgain) {
  PicturesOnDisk p;
  const auto path = p.temp.path() / "drawing4.bmp";
  ASSERT_TRUE(writeBitmapFile(kOther, path));
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther));
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther));
  EXPECT_EQ(p.desktop.read, 1);
  EXPECT_EQ(p.save(kOther), 0);
  std::filesystem::remove(path);
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther)) << "the copy stands in";
  EXPECT_EQ(p.save(kOther), 1);
}

TEST(AWorkPictureThatAnotherHandReplacesWhileItIsRead, IsReadAgain) {
  PicturesOnDisk p;
  const auto path = p.temp.path() / "drawing4.bmp";
  ASSERT_TRUE(writeBitmapFile(kOther, path));
  p.desktop.meanwhile = [&] { ASSERT_TRUE(writeBitmapFile(kOne, path)); };
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther));
  p.desktop.meanwhile = nullptr;
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOne));
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
    EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOne));
    EXPECT_TRUE(samePicture(readBitmapFile(elsewhere.path() / "mine.bmp").value(), kOther));
    EXPECT_TRUE(isNoPlainFile(p.temp.path() / "drawing4.bmp"));
    EXPECT_EQ(told,
              std::vector<std::string>{"Error: drawing4.bmp is not a plain file; nothing is written to it."});
  }
}

TEST(AWorkPictureThatTheDiskCutsOff, ComesFromMemoryAndLeavesTheOlderFileWhole) {
  PicturesOnDisk p;
  const Bitmap first = plainBitmap(60, 40, kNavy);
  const Bitmap second = plainBitmap(60, 40, kRed);
  p.save(first);
  {
    const FullDisk full(3000);  // the disk gives up in the middle of the new file
    p.save(second);
    EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), second));
  }
  EXPECT_TRUE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), first));
  EXPECT_FALSE(std::filesystem::exists(p.temp.path() / "drawing4.bmp.building"));
  EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), second));
  EXPECT_EQ(p.save(second), 1) << "not taken for one that is on disk already";
  EXPECT_TRUE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), second));
}

TEST(AFolderThatCannotBeWritten, KeepsItsPictureWhileTheNewOneComesFromMemory) {
  PicturesOnDisk p;
  p.save(kOne);
  {
    const ReadOnly readOnly(p.temp.path());
    p.save(kOther);
    EXPECT_TRUE(samePicture(p.pictures.load("drawing4.bmp").copied(), kOther));
    EXPECT_TRUE(samePicture(readBitmapFile(p.temp.path() / "drawing4.bmp").value(), kOne));
  }
  EXPECT_EQ(p.save(kOther), 1) << "it can be written again";
}

/// Writes picture after picture, each all of one colour, until it is killed; says when the first is there.
[[noreturn]] void writeForEver(const std::filesystem::path& path, int says) {
  DiskDesktop desktop;
  WorkFolder folder(path);
  WorkPictures pictures{desktop, folder};
  for (int n = 1;; n = n % 200 + 1) {
    pictures.save("drawing1.bmp", plainBitmap(400, 300, n));
    if (says >= 0 && ::write(std::exchange(says, -1), "!", 1) != 1) std::abort();
  }
}

TEST(AProgramKilledAtAnyMoment, LeavesTheOldWorkPictureOrTheNewOneWhole) {
  const TempFolder temp;
  std::mt19937 moments(1);
  std::array<int, 2> written{};
  ASSERT_EQ(::pipe(written.data()), 0);
  for (int kill = 0; kill < 300; ++kill) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) writeForEver(temp.path(), written[1]);
    char first = 0;  // however slow the machine is, the kill comes among the writes
    ASSERT_EQ(::read(written[0], &first, 1), 1);
    std::this_thread::sleep_for(std::chrono::microseconds(moments() % 5000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const auto picture = readBitmapFile(temp.path() / "drawing1.bmp");
    ASSERT_TRUE(picture) << "kill " << kill;
    ASSERT_EQ(picture.value(), plainBitmap(400, 300, picture.value().pixels.front())) << "kill " << kill;
    WorkFolder(temp.path()).removeLeftOvers();  // as at the next start
    EXPECT_FALSE(std::filesystem::exists(temp.path() / "drawing1.bmp.building")) << "kill " << kill;
  }
  ::close(written[0]);
  ::close(written[1]);
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
