// Sessions on a disk that fills up: nobody loses a drawing, and a job goes on from memory.
#include "support/full_disk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>

#include "support/disk_session.h"
#include "support/small_disk.h"
#include "support/work_folders.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

const Bitmap kRoom = drawing({"......", "......", "......", "......"});
const std::vector<std::string> kBadFileName{"Error: bad file name."};

struct Session : DiskSession {
  explicit Session(const TempFolder& temp) : DiskSession(temp.path(), kRoom) { draw(); }
  void stroke() {
    desktop.act([](Program& p) { p.canvas.fill(20, 20, 29, 29, kRed); });
    desktop.pumpsPass(1);
  }
  void printTwoMazes() {
    desktop.menu(Item::cgenerate);
    desktop.menu(Item::printwithsolutions);
    desktop.enter(ControlId::Text3, "2");
    desktop.pumpsPass(1);
    desktop.menu(Item::newmaze);
    desktop.until([](const Program& p) { return p.state.print.printMode == PrintMode::none; });
  }
};

void expectNoLeavings(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator(folder)) {
    EXPECT_NE(entry.path().extension(), ".building") << entry.path();
    EXPECT_NE(entry.path().extension(), ".ready") << entry.path();
  }
}

/// Leaves no byte free on the disk that the folder is.
void fillUp(const fs::path& folder) {
  std::ofstream filler(folder / "filler", std::ios::binary);
  const std::string block(4096, 'x');
  while (filler.write(block.data(), 4096).flush()) {
  }
}

/// How many bytes fit before the disk is full: none, a part of the record, a part of the bitmap.
class ASaveOnADiskThatFillsUp : public ::testing::TestWithParam<rlim_t> {};
INSTANTIATE_TEST_SUITE_P(After, ASaveOnADiskThatFillsUp, ::testing::Values(0, 100, 5000));

TEST_P(ASaveOnADiskThatFillsUp, LeavesTheOldPairWholeAndTheDrawingOnTheCanvas) {
  const TempFolder temp;
  std::optional<FullDisk> full;
  std::string record;
  std::string bitmap;
  Session s(temp);
  s.save("one");
  s.desktop.look([&](Program&) {
    record = temp.get("one.maze");
    bitmap = temp.get("one.bmp");
    EXPECT_GT(record.size(), 100U);
    EXPECT_GT(bitmap.size(), 5000U);
  });
  s.stroke();
  s.desktop.look([&](Program&) { full.emplace(GetParam()); });
  s.save("one");
  s.desktop.look([&](Program& p) {
    full.reset();
    EXPECT_EQ(s.desktop.messages, kBadFileName);
    EXPECT_FALSE(p.state.panelOpen);
    EXPECT_EQ(temp.get("one.maze"), record);
    EXPECT_EQ(temp.get("one.bmp"), bitmap);
    expectNoLeavings(temp.path());
    EXPECT_EQ(p.canvas.point(25, 25), kRed);
  });
  s.save("one");
  s.desktop.look([&](Program& p) {
    EXPECT_EQ(s.desktop.messages, kBadFileName) << "room again, and no other message";
    EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "one.bmp").value(), p.canvas.image()));
  });
  s.run();
}

TEST(AJobOnAFullDisk, GoesOnFromMemory) {
  const auto pagesOf = [](bool filled) {
    const TempFolder temp;
    std::optional<FullDisk> full;
    Session s(temp);
    s.desktop.look([&](Program&) {
      if (filled) full.emplace(0);
    });
    s.printTwoMazes();
    s.run();
    EXPECT_EQ(fs::exists(temp.path() / "drawing1b.bmp"), !filled);
    return s.desktop.pages;
  };
  const auto pages = pagesOf(false);
  EXPECT_EQ(pages.size(), 4U);
  EXPECT_EQ(pagesOf(true), pages);
}

TEST(ASmallDisk, ThatFillsUpCostsNoDrawingAndStopsNoJob) {
  const TempFolder temp;
  const int roomForTheSession = 8 * static_cast<int>(kRoom.pixels.size()) * 4 / 1024;
  const auto session = [&](const std::function<void()>& fill) {
    std::string record;
    std::string bitmap;
    Session s(temp);
    s.save("one");
    s.stroke();
    s.desktop.look([&](Program&) {
      record = temp.get("one.maze");
      bitmap = temp.get("one.bmp");
      EXPECT_FALSE(bitmap.empty());
      fill();
    });
    s.save("one");
    s.save("other");
    s.printTwoMazes();
    s.desktop.look([&](Program&) {
      EXPECT_EQ(s.desktop.messages, (std::vector<std::string>{kBadFileName[0], kBadFileName[0]}));
      EXPECT_EQ(s.desktop.pages.size(), 4U);
      EXPECT_EQ(temp.get("one.maze"), record);
      EXPECT_EQ(temp.get("one.bmp"), bitmap);
      EXPECT_FALSE(fs::exists(temp.path() / "other.maze") || fs::exists(temp.path() / "other.bmp"));
      expectNoLeavings(temp.path());
    });
    s.run();
  };
  const OnSmallDisk outcome =
      onSmallDisk(temp.path(), roomForTheSession, [&] { session([&] { fillUp(temp.path()); }); });
  EXPECT_NE(outcome, OnSmallDisk::failed);
  if (outcome != OnSmallDisk::notAllowed) return;
  std::optional<FullDisk> full;  // where nobody may mount a disk, files stop growing instead
  session([&] { full.emplace(0); });
}

}  // namespace
}  // namespace gridwright::test
