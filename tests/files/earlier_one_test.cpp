#include "files/earlier_one.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <optional>
#include <string>

#include "session/input.h"
#include "support/disk_session.h"
#include "support/full_disk.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

struct Target {
  TempFolder temp;
  fs::path path = temp.path() / "waves.pat";
  void expectFiles(int count) const {
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.path()), {}), count);
  }
};

TEST(WhatIsHeld, BecomesTheOneBeforeWhenTheNewOneIsThere) {
  Target t;
  t.temp.put("waves.pat", "old");
  t.temp.put("waves.pat~", "older");
  EXPECT_TRUE(holdEarlier(t.path));
  EXPECT_TRUE(isHeld(t.path));
  EXPECT_EQ(t.temp.get("waves.pat"), "old") << "it stays in its place meanwhile";
  EXPECT_EQ(t.temp.get("waves.pat~"), "older");
  t.temp.put("new", "new");
  fs::rename(t.temp.path() / "new", t.path);
  keepEarlier(t.path);
  EXPECT_EQ(t.temp.get("waves.pat"), "new");
  EXPECT_EQ(t.temp.get("waves.pat~"), "old");
  t.expectFiles(2);
}

TEST(WhatIsHeld, LeavesNoTraceWhenItIsDropped) {
  Target t;
  t.temp.put("waves.pat", "old");
  t.temp.put("waves.pat~", "older");
  EXPECT_TRUE(holdEarlier(t.path));
  dropEarlier(t.path);
  EXPECT_EQ(t.temp.get("waves.pat"), "old");
  EXPECT_EQ(t.temp.get("waves.pat~"), "older");
  t.expectFiles(2);
}

TEST(NothingIsHeld, WhereNothingLies) {
  Target t;
  t.temp.put("waves.pat~.building", "of a save that was cut off");
  EXPECT_TRUE(holdEarlier(t.path));
  EXPECT_FALSE(isHeld(t.path));
  keepEarlier(t.path);
  t.expectFiles(0);
}

TEST(NothingIsHeld, WhereAFolderBearsTheNameOfTheOneBefore) {
  Target t;
  t.temp.put("waves.pat", "old");
  fs::create_directory(t.temp.path() / "waves.pat~");
  EXPECT_FALSE(holdEarlier(t.path));
  EXPECT_FALSE(isHeld(t.path));
}

TEST(ASaveThatWasCutOff, KeepsWhatItHeldOnlyIfTheNewOneIsThere) {
  for (const bool isNew : {false, true}) {
    Target t;
    t.temp.put("waves.pat", "old");
    t.temp.put("waves.pat~", "older");
    EXPECT_TRUE(holdEarlier(t.path));
    if (isNew) {
      t.temp.put("new", "new");
      fs::rename(t.temp.path() / "new", t.path);
    }
    recoverEarlier(t.path);
    EXPECT_EQ(t.temp.get("waves.pat"), isNew ? "new" : "old");
    EXPECT_EQ(t.temp.get("waves.pat~"), isNew ? "old" : "older");
    t.expectFiles(2);
  }
}

TEST(ASaveThatWasCutOff, KeepsTheOneBeforeWhereWhatItHeldIsACopy) {
  Target t;
  t.temp.put("waves.pat", "old");
  t.temp.put("waves.pat~.building", "old");
  t.temp.put("waves.pat~", "older");
  recoverEarlier(t.path);
  EXPECT_EQ(t.temp.get("waves.pat"), "old");
  EXPECT_EQ(t.temp.get("waves.pat~"), "older");
  t.expectFiles(2);
}

TEST(ASaveOverADrawing, KeepsTheOneBeforeAndSaysSo) {
  TempFolder temp;
  DiskSession s(temp.path(), drawing({"......", "......", "......", "......"}));
  s.draw();
  s.look([](Program& p) { p.notices.tell(""); });
  s.save("cat");
  std::string record;
  std::string bitmap;
  s.look([&](Program& p) {
    EXPECT_EQ(p.notices.words(), "") << "a drawing of a new name";
    record = temp.get("cat.maze");
    bitmap = temp.get("cat.bmp");
    p.state.drawColor = 255;
  });
  s.desktop.act([](Program& p) {
    p.canvas.setAutoRedraw(true), p.canvas.fill(0, 0, 50, 50, kRed), p.canvas.setAutoRedraw(false);
  });
  s.save("CAT");
  s.look([&](Program& p) {
    EXPECT_EQ(p.notices.words(), "cat is saved; the one before it stays as cat.maze~ and cat.bmp~");
    EXPECT_EQ(temp.get("cat.maze~"), record);
    EXPECT_EQ(temp.get("cat.bmp~"), bitmap);
    EXPECT_NE(temp.get("cat.bmp"), bitmap);
  });
  for (const Item panel : {Item::ldrawing, Item::importdrawing}) {
    s.desktop.menu(panel);
    s.look([](Program& p) {
      for (const ControlId list : {ControlId::File1, ControlId::File2, ControlId::File5}) {
        for (const std::string& name : p.controls[list].entries) EXPECT_NE(name.back(), '~') << name;
      }
    });
    s.desktop.act([panel](Program& p) {
      input::escapePressed(p, panel == Item::ldrawing ? ControlId::Text4 : ControlId::Text8);
    });
    s.desktop.pumpsPass(1);
  }
  s.run();
}

/// Saves the present patterns as a set; "1" repeated so often is its left list.
void saveSet(DiskSession& s, const std::string& name, std::size_t steps) {
  s.look([steps](Program& p) { p.steps.write(MazeKind::regular, step::left, Steps(steps, step::left)); });
  s.desktop.menu(Item::savepatterns);
  s.desktop.enter(ControlId::Text5, name);
  s.desktop.pumpsPass(2);
}

std::string setText(std::size_t steps) {
  return formatSteps(Steps(steps, step::left)) + formatSteps({2}) + formatSteps({3}) + formatSteps({4});
}

TEST(ASaveOverASet, KeepsTheOneBeforeAndSaysSo) {
  const TempFolder temp;
  DiskSession s(temp.path(), drawing({"......", "......", "......", "......"}));
  for (std::size_t steps = 1; steps <= 3; ++steps) saveSet(s, steps == 3 ? "WAVES" : "waves", steps);
  s.look([&](Program& p) {
    EXPECT_EQ(p.notices.words(), "waves.pat is saved; the one before it stays as waves.pat~");
    EXPECT_EQ(temp.get("waves.pat"), setText(3));
    EXPECT_EQ(temp.get("waves.pat~"), setText(2));
    for (const std::string& name : p.controls[ControlId::File4].entries) EXPECT_EQ(name, "waves.pat");
  });
  s.run();
}

TEST(ASaveThatFails, LeavesTheSetAndTheOneBeforeAndSaysNothingOfThem) {
  const TempFolder temp;
  DiskSession s(temp.path(), drawing({"......", "......", "......", "......"}));
  saveSet(s, "waves", 1);
  saveSet(s, "waves", 2);
  std::optional<FullDisk> full;
  s.look([&](Program& p) {
    p.notices.tell("");
    full.emplace(3);
  });
  saveSet(s, "waves", 3);
  s.look([&](Program& p) {
    full.reset();
    EXPECT_EQ(s.desktop.messages, std::vector<std::string>{"Error: bad file name."});
    EXPECT_EQ(p.notices.words(), "");
    EXPECT_EQ(temp.get("waves.pat"), setText(2));
    EXPECT_EQ(temp.get("waves.pat~"), setText(1));
    EXPECT_FALSE(isHeld(temp.path() / "waves.pat"));
  });
  s.run();
}

}  // namespace
}  // namespace gridwright::test
