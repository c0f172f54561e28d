// A loaded drawing is one step, which brings back all that a drawing file holds.
#include <gtest/gtest.h>

#include "drawings/drawing_values.h"
#include "history/history.h"
#include "menus/menu_rules.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/disk_session.h"
#include "support/pictures.h"
#include "support/unlike_the_defaults.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

/// All that a load can change.
struct Whole {
  DrawingRecord record;
  Bitmap image;
  std::string caption;
  HistorySize size;
};

struct Loading {
  Loading() : session(folder.path(), drawing(Text(8, "..,,##o...."))) {
    session.draw();
    session.save("plain");
    session.desktop.act([](Program& p) {
      unlikeTheDefaults(p, MazeKind::threeD);
      captionDrawing(p);
    });
    session.desktop.pumpsPass(2);
    session.look([](Program& p) { beginHistory(p); });
    session.desktop.act([](Program& p) { input::keyDown(p, key::L); });
    session.desktop.pumpsPass(2);
    see(before);
  }
  void see(Whole& whole) {
    session.look([&whole](Program& p) {
      whole = {recordOf(p), p.canvas.image(), p.controls.caption(), historySize(p)};
    });
  }
  void menu(Item item) {
    session.desktop.menu(item);
    session.desktop.pumpsPass(3);
  }
  /// It was one step, which goes and comes back.
  void expectOneStep() {
    see(after);
    menu(Item::undo);
    see(back);
    menu(Item::redo);
    see(again);
    session.run();
    EXPECT_NE(after.record.lists, before.record.lists);
    EXPECT_NE(after.record.values[record::finish], before.record.values[record::finish]);
    EXPECT_EQ(after.size.toUndo, before.size.toUndo + 1);
    expectEqual(back, before);
    expectEqual(again, after);
  }
  static void expectEqual(const Whole& is, const Whole& was) {
    for (std::size_t i = 0; i < record::count; ++i) {
      if (i == record::windowState) continue;  // maximised from the load on
      EXPECT_EQ(is.record.values[i], was.record.values[i]) << "value " << i + 1;
    }
    EXPECT_EQ(is.record.lists, was.record.lists);
    EXPECT_TRUE(samePicture(is.image, was.image));
    EXPECT_EQ(is.caption, was.caption);
  }

  TempFolder folder;
  DiskSession session;
  Whole before, after, back, again;
};

TEST(ALoad, GoesAndComesBackWithAllItsValuesAndPatterns) {
  Loading l;
  l.session.load("plain");
  l.expectOneStep();
}

TEST(ADrawingOpenedWhereItLies, GoesAndComesBackInTheSameWay) {
  Loading l;
  l.session.desktop.act([&l](Program& p) { input::filesBrought(p, {l.folder.path() / "plain.maze"}); });
  l.session.desktop.pumpsPass(4);
  l.expectOneStep();
}

TEST(TheStepAfterALoad, LeavesPatternsAndEndsAloneWhenItIsTakenBack) {
  Loading l;
  l.session.load("plain");
  l.see(l.after);
  l.session.desktop.act([](Program& p) { input::keyDown(p, key::K); });
  l.session.desktop.pumpsPass(2);
  l.session.look([](Program& p) {
    p.steps.install(MazeKind::regular, step::up, Steps(3, step::left));
    p.state.finish = {31, 21, 38, 28};
  });
  l.menu(Item::undo);
  l.see(l.back);
  l.session.look([](Program& p) {
    EXPECT_EQ(p.steps.steps(MazeKind::regular, step::up), Steps(3, step::left));
    EXPECT_EQ(p.state.finish, (Square{31, 21, 38, 28}));
  });
  l.session.run();
  EXPECT_EQ(l.back.size.toUndo, l.after.size.toUndo);
  EXPECT_TRUE(samePicture(l.back.image, l.after.image));
}

TEST(AFailedLoad, IsNoStep) {
  Loading l;
  l.session.load("none");
  l.see(l.after);
  l.session.run();
  EXPECT_EQ(l.after.size.toUndo, l.before.size.toUndo);
  EXPECT_EQ(l.after.record, l.before.record);
}

}  // namespace
}  // namespace gridwright::test
