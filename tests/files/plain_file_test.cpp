#include "files/plain_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/full_disk.h"
#include "support/no_plain_files.h"
#include "support/pipe.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

constexpr Fault::Kind kNotPlain = Fault::Kind::notPlain;
constexpr Fault::Kind kNotFound = Fault::Kind::notFound;

TEST(ABuildingName, LeadsToItsTargetWithLettersOfItsOwnOrWithout) {
  EXPECT_EQ(targetOfBuilding("a.pdf.building"), "a.pdf");
  const fs::path path = "/folder/a.pdf";
  const std::string fresh = freshBuildingName(path)->filename();
  EXPECT_NE(fresh, freshBuildingName(path)->filename());
  EXPECT_EQ(targetOfBuilding(fresh), "a.pdf");
  EXPECT_EQ(targetOfBuilding("a.3d-pipe-pat.building"), "a.3d-pipe-pat");
  EXPECT_EQ(targetOfBuilding("a.pdf"), "");
  EXPECT_EQ(targetOfBuilding(".building"), "");
}

TEST(AFileThatGrows, BearsANameThatNobodyCanKnowBefore) {
  const TempFolder temp;
  const FilePlace target = temp.path() / "a.bmp";
  std::set<std::string> names;
  for (int i = 0; i < 200; ++i) {
    const BuildingFile made = makeBuildingFile(target);
    ASSERT_TRUE(made.file);
    EXPECT_EQ(targetOfBuilding(made.place.filename()), "a.bmp");
    names.insert(made.place.filename());
  }
  EXPECT_EQ(names.size(), 200U);
  EXPECT_EQ(growingTowards(target).size(), 200U);
  removeLeftOversOf(target);
  EXPECT_TRUE(growingTowards(target).empty()) << "nobody holds them any more";
}

/// So many pieces that the system does not take them at once, of different lengths, some without a byte.
std::vector<std::string> manyPieces() {
  std::vector<std::string> pieces;
  for (std::size_t i = 0; i < 2500; ++i) pieces.emplace_back(i % 7 * 31, static_cast<char>('a' + i % 26));
  return pieces;
}

std::string joined(const std::vector<std::string>& pieces) {
  std::string whole;
  for (const std::string& piece : pieces) whole += piece;
  return whole;
}

TEST(AFileOfPieces, HoldsThemOneAfterTheOther) {
  const TempFolder temp;
  const std::vector<std::string> pieces = manyPieces();
  const std::vector<std::string_view> views(pieces.begin(), pieces.end());
  ASSERT_TRUE(replacePlainFile(temp.path() / "a", views));
  EXPECT_EQ(readPlainFile(temp.path() / "a").value(), joined(pieces));
  ASSERT_TRUE(replacePlainFile(temp.path() / "a", ""));
  EXPECT_EQ(readPlainFile(temp.path() / "a").value(), "");
}

/// Has every write of this thread that waits come back with what it has written so far.
void cutWritesOff() {
  struct sigaction action {};
  action.sa_handler = [](int) {};  // without SA_RESTART
  ::sigaction(SIGUSR1, &action, nullptr);
}

TEST(AFileOfPieces, GoesOnWhereAWriteWasCutOff) {
  const std::vector<std::string> pieces = manyPieces();
  const std::vector<std::string_view> views(pieces.begin(), pieces.end());
  const std::string whole = joined(pieces);
  Pipe pipe;
  const int room = ::fcntl(pipe.ends[0], F_SETPIPE_SZ, 4096);
  ASSERT_EQ(room, 4096);
  cutWritesOff();
  bool taken = false;
  std::thread writer([&] { taken = writeAll(OpenFile(std::exchange(pipe.ends[1], -1)), views); });
  std::string read;
  while (read.size() < whole.size()) {
    int waiting = 0;
    ::ioctl(pipe.ends[0], FIONREAD, &waiting);
    if (waiting == 0) continue;
    ::pthread_kill(writer.native_handle(), SIGUSR1);  // it has filled the pipe amid a piece, and waits
    std::string bytes(static_cast<std::size_t>(room), '\0');
    const ssize_t count = ::read(pipe.ends[0], bytes.data(), bytes.size());
    if (count <= 0) break;
    read.append(bytes, 0, static_cast<std::size_t>(count));
  }
  writer.join();
  ::signal(SIGUSR1, SIG_DFL);
  EXPECT_TRUE(taken);
  EXPECT_EQ(read, whole);
}

TEST(WhatIsNoPlainFile, IsNeverWrittenThroughNorReplaced) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "precious");
    const fs::path path = temp.path() / "Left.pt";
    put(kind, path, elsewhere.path() / "mine");
    EXPECT_TRUE(isNoPlainFile(path));
    EXPECT_EQ(replacePlainFile(path, "new").fault().kind, kNotPlain);
    EXPECT_TRUE(isNoPlainFile(path));
    EXPECT_EQ(elsewhere.get("mine"), "precious");
    EXPECT_FALSE(fs::exists(elsewhere.path() / "made")) << "where a link points that leads nowhere";
    EXPECT_TRUE(growingTowards(path).empty());
  }
}

TEST(WhatIsNoPlainFileUnderABuildingName, IsLeftAloneAndHoldsNoWriterUp) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "precious");
    temp.put("a.bmp", "old");
    const fs::path building = temp.path() / "a.bmp.building";
    put(kind, building, elsewhere.path() / "mine");
    EXPECT_TRUE(replacePlainFile(temp.path() / "a.bmp", "new"));
    removeLeftOver(building);
    EXPECT_TRUE(isNoPlainFile(building));
    EXPECT_EQ(temp.get("a.bmp"), "new");
    EXPECT_EQ(elsewhere.get("mine"), "precious");
  }
}

TEST(AReader, FollowsALinkAndWaitsForNoWriter) {
  const TempFolder temp;
  temp.put("text", "words");
  fs::create_symlink(temp.path() / "text", temp.path() / "link");
  put(NoPlainFile::pipe, temp.path() / "pipe", {});
  EXPECT_EQ(readPlainFile(temp.path() / "link").value(), "words");
  EXPECT_EQ(readPlainFile(temp.path() / "pipe").fault().kind, kNotFound);
  EXPECT_EQ(readPlainFile(temp.path()).fault().kind, kNotFound);
  EXPECT_EQ(readPlainFile(temp.path() / "none").fault().kind, kNotFound);
  EXPECT_EQ(readPlainFile("/dev/zero").fault().kind, kNotFound);
}

TEST(AReader, RefusesWhatIsLargerThanItMayBe) {
  const TempFolder temp;
  temp.put("text", "12345");
  EXPECT_EQ(readPlainFile(temp.path() / "text", 5).value(), "12345");
  EXPECT_EQ(readPlainFile(temp.path() / "text", 4).fault().kind, Fault::Kind::malformed);
}

TEST(AFile, IsReadAsFarAsItsBeginningMakesWanted) {
  const TempFolder temp;
  temp.put("text", "3:12345");
  const auto read = [&temp](std::size_t beginning, const WantedBytes& wanted) {
    return readWantedBytes(temp.path() / "text", beginning, wanted);
  };
  const auto wants = [](std::uint64_t count) {
    return [count](std::string_view beginning, std::uint64_t length) {
      EXPECT_EQ(beginning, "3:");
      EXPECT_EQ(length, 7U);
      return Outcome<std::uint64_t>(count);
    };
  };
  EXPECT_EQ(read(2, wants(5)).value(), "3:123");
  EXPECT_EQ(read(2, wants(7)).value(), "3:12345");
  EXPECT_EQ(read(2, wants(9)).value(), "3:12345") << "as much as there is";
  EXPECT_EQ(read(2, wants(0)).value(), "3:") << "what was looked at is there";
  const Fault none{Fault::Kind::malformed, "not wanted"};
  const auto refused = read(100, [&none](std::string_view beginning, std::uint64_t) {
    EXPECT_EQ(beginning, "3:12345");
    return Outcome<std::uint64_t>(none);
  });
  EXPECT_EQ(refused.fault().words, "not wanted");
  EXPECT_EQ(readWantedBytes(temp.path() / "none", 2, wants(5)).fault().kind, kNotFound);
  EXPECT_EQ(readWantedBytes(temp.path(), 2, wants(5)).fault().kind, kNotFound);
}

TEST(AFileWithAnotherName, KeepsItsContentUnderThatOne) {
  const TempFolder temp;
  temp.put("mine", "precious");
  for (const char* name : {"Left.pt", "a.bmp.building"})
    fs::create_hard_link(temp.path() / "mine", temp.path() / name);
  EXPECT_TRUE(replacePlainFile(temp.path() / "Left.pt", "new"));
  EXPECT_TRUE(replacePlainFile(temp.path() / "a.bmp", "newer"));
  EXPECT_EQ(temp.get("Left.pt"), "new");
  EXPECT_EQ(temp.get("a.bmp"), "newer");
  EXPECT_EQ(temp.get("mine"), "precious");
}

TEST(AReplacedFile, IsTheOldOneUntilTheNewOneIsWhole) {
  const TempFolder temp;
  temp.put("a", "the old one");
  {
    const FullDisk full(4);
    EXPECT_EQ(replacePlainFile(temp.path() / "a", "the new one").fault().kind, Fault::Kind::notWritable);
  }
  EXPECT_EQ(temp.get("a"), "the old one");
  EXPECT_TRUE(growingTowards(temp.path() / "a").empty());
  EXPECT_TRUE(replacePlainFile(temp.path() / "a", "the new one"));
  EXPECT_EQ(temp.get("a"), "the new one");
}

TEST(AFileThatGrows, IsNoLeftOverAsLongAsSomebodyWritesIt) {
  const TempFolder temp;
  const FilePlace target = temp.path() / "a.bmp";
  {
    const BuildingFile held = makeBuildingFile(target);
    ASSERT_TRUE(held.file);
    ASSERT_EQ(::write(held.file.descriptor(), "half", 4), 4);
    removeLeftOver(held.place);
    EXPECT_EQ(temp.get(held.place.filename()), "half") << "somebody writes it";
    EXPECT_TRUE(replacePlainFile(target, "other"));
    EXPECT_EQ(temp.get(held.place.filename()), "half");
  }
  removeLeftOversOf(target);
  EXPECT_TRUE(growingTowards(target).empty()) << "nobody does any more";
  EXPECT_EQ(temp.get("a.bmp"), "other");
}

TEST(AFileThatCannotBeOpened, IsNoLeftOver) {
  const TempFolder temp;
  temp.put("cat.bmp.building", "of another person");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit none{0, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
  removeLeftOver(temp.path() / "cat.bmp.building");
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_EQ(temp.get("cat.bmp.building"), "of another person");
}

TEST(AReplacedFile, IsWholeHoweverManyReplaceIt) {
  const TempFolder temp;
  const fs::path path = temp.path() / "a";
  const std::string bytes(20'000, 'x');
  ASSERT_TRUE(replacePlainFile(path, bytes));
  std::atomic<int> writing = 3;
  std::vector<std::thread> writers;
  writers.reserve(3);
  for (int i = 0; i < 3; ++i) {
    writers.emplace_back([&] {
      for (int times = 0; times < 1'000; ++times) (void)replacePlainFile(path, bytes);
      --writing;
    });
  }
  int cut = 0;
  while (writing > 0) {
    const auto read = readPlainFile(path);
    if (!read || read.value() != bytes) ++cut;
  }
  for (std::thread& writer : writers) writer.join();
  EXPECT_EQ(cut, 0);
}

TEST(AFileReplacedWithoutHurry, IsTheNewOneAndLeavesNothingBehind) {
  const TempFolder temp;
  const fs::path path = temp.path() / "a";
  for (const char* bytes : {"first", "another length", "third"}) {
    const auto written = replacePlainFile(path, bytes, Overwrite::unhurried);
    ASSERT_TRUE(written);
    EXPECT_EQ(temp.get("a"), bytes);
    EXPECT_EQ(markOf(path), written.value());
    EXPECT_TRUE(growingTowards(path).empty());
  }
}

TEST(AFileReplacedWithoutHurry, LeavesTheOldOneAloneUnderAnotherNameThatItHas) {
  const TempFolder temp;
  temp.put("mine", "old");
  fs::create_hard_link(temp.path() / "mine", temp.path() / "a");
  ASSERT_TRUE(replacePlainFile(temp.path() / "a", "new", Overwrite::unhurried));
  EXPECT_EQ(temp.get("mine"), "old");
  EXPECT_EQ(temp.get("a"), "new");
}

TEST(AMark, IsThatOfTheFileWithTheBytesThatWereWritten) {
  const TempFolder temp;
  const fs::path path = temp.path() / "a";
  const auto written = replacePlainFile(path, "12345");
  ASSERT_TRUE(written);
  EXPECT_EQ(markOf(path), written.value());
  EXPECT_EQ(written.value().bytes, 5U);
}

TEST(AMark, IsAnotherOnceAnotherHandHasWrittenReplacedOrRemovedTheFile) {
  const TempFolder temp;
  const fs::path path = temp.path() / "a";
  const FileMark first = replacePlainFile(path, "12345").value();
  fs::last_write_time(path, fs::last_write_time(path) + std::chrono::nanoseconds(1));
  EXPECT_NE(markOf(path), first) << "written to";
  const FileMark second = replacePlainFile(path, "12345").value();
  fs::copy_file(path, temp.path() / "other");
  fs::last_write_time(temp.path() / "other", fs::last_write_time(path));
  fs::rename(temp.path() / "other", path);
  EXPECT_NE(markOf(path), second) << "another file, as long and as old";
  fs::remove(path);
  EXPECT_EQ(markOf(path), std::nullopt);
}

TEST(AMark, IsNoneForWhatIsNoPlainFile) {
  for (const NoPlainFile kind : kNoPlainFiles) {
    SCOPED_TRACE(nameOf(kind));
    const TempFolder temp;
    const TempFolder elsewhere;
    elsewhere.put("mine", "precious");
    put(kind, temp.path() / "a", elsewhere.path() / "mine");
    EXPECT_EQ(markOf(temp.path() / "a"), std::nullopt);
  }
}

}  // namespace
}  // namespace gridwright::test
