// What an arrow key carved by hand is taken back.
#include "history/carve_history.h"

#include <gtest/gtest.h>

#include <array>

#include "history/history.h"
#include "state/key_codes.h"
#include "support/drawing_sitting.h"

namespace gridwright::test {
namespace {

/// What stands between two inputs of a maze carved by hand.
struct Standing {
  Bitmap image, shown;
  Square cur, prev;
  WalkMode walkMode = WalkMode::none;
  PatternState patternState = PatternState::choose;
  int patternDirection = 0;
};

struct Carver : Sitting {
  explicit Carver(const Text& room, Item kind = Item::createreg) : Sitting(sizeOf(room)) {
    desktop.putFile("room.bmp", drawing(room));
    menu(Item::importdrawing);
    enter(ControlId::Text8, "room");
    if (kind != Item::createreg) menu(kind);
    menu(kind);
    desktop.untilPhase(Phase::making);
    pump(kSettled);
  }
  static Size sizeOf(const Text& room) {
    const Bitmap picture = drawing(room);
    return {picture.width, picture.height};
  }
  void arrow(int code) {
    key(code);
    pump(kSettled);
  }
  std::shared_ptr<Standing> stand() {
    auto standing = std::make_shared<Standing>();
    look([standing](Program& p) {
      const ProgramState& s = p.state;
      *standing = {p.canvas.image(), p.canvas.shownImage(), s.cur, s.prev, s.walkMode,
                   s.patternState,   s.patternDirection};
    });
    return standing;
  }
  static constexpr int kSettled = 120;  // pumps, for a pattern to be played and the fill sweep to stop
};

void expectSame(const Standing& is, const Standing& was) {
  EXPECT_TRUE(samePicture(is.image, was.image));
  EXPECT_TRUE(samePicture(is.shown, was.shown));
  EXPECT_EQ(is.cur, was.cur);
  EXPECT_EQ(is.walkMode, WalkMode::carve);
}

const Text kRoom(8, "............");

TEST(WhatAnArrowKeyCarved, IsTakenBackKeyByKeyDownToTheHandOver) {
  Carver c(kRoom);
  std::vector<std::shared_ptr<Standing>> before;
  constexpr std::array kWay = {key::right, key::right, key::down, key::down, key::right, key::up};
  for (const int code : kWay) {
    before.push_back(c.stand());
    c.arrow(code);
  }
  const auto end = c.stand();
  std::vector<std::shared_ptr<Standing>> after;
  for (std::size_t i = 0; i < kWay.size(); ++i) {
    c.menu(Item::undo);
    after.push_back(c.stand());
  }
  c.menu(Item::undo);
  const auto bottom = c.stand();
  c.run();
  EXPECT_NE(end->image, before.back()->image);
  for (std::size_t i = 0; i < kWay.size(); ++i) expectSame(*after[i], *before[kWay.size() - 1 - i]);
  expectSame(*bottom, *before.front());
}

TEST(AfterAnUndo, CarvingGoesOnFromThereAndTheFillCursorHasBegunAnew) {
  Carver c(kRoom);
  c.arrow(key::right);
  const auto before = c.stand();
  c.arrow(key::down);
  const auto down = c.stand();
  Square prev, cur;
  int scanX = 0, scanY = 0;
  c.desktop.act([&](Program& p) {
    input::menuClick(p, Item::undo);
    prev = p.state.prev;
    cur = p.state.cur;
    scanX = p.state.scanX;
    scanY = p.state.scanY;
  });
  c.pump(Carver::kSettled);
  const auto back = c.stand();
  c.arrow(key::down);
  const auto again = c.stand();
  c.run();
  EXPECT_EQ(cur, before->cur);
  EXPECT_EQ(prev, cur);
  EXPECT_EQ(scanX, 1);
  EXPECT_EQ(scanY, 1);
  expectSame(*back, *before);
  EXPECT_TRUE(samePicture(again->image, down->image));
  EXPECT_EQ(again->cur, down->cur);
}

TEST(AnUndo, DrawsNoNumber) {
  Carver c(kRoom);
  c.arrow(key::right);
  bool same = false;
  c.desktop.act([&](Program& p) {
    const Random before = p.random;
    input::menuClick(p, Item::undo);
    Random after = p.random;
    Random then = before;
    same = after.oneTo(1'000'000) == then.oneTo(1'000'000);
  });
  c.run();
  EXPECT_TRUE(same);
}

TEST(APatternBeingPlayed, EndsWithTheUndo) {
  Carver c(kRoom);
  c.look([](Program& p) { p.steps.install(MazeKind::regular, step::right, Steps(6, step::right)); });
  c.arrow(key::down);
  const auto before = c.stand();
  c.desktop.act([](Program& p) { input::keyDown(p, key::right); });
  c.pump(3);
  const auto playing = c.stand();
  c.desktop.menu(Item::undo);
  c.pump(Carver::kSettled);
  const auto back = c.stand();
  c.run();
  EXPECT_EQ(playing->patternState, PatternState::reading);
  EXPECT_NE(playing->cur, before->cur);
  expectSame(*back, *before);
  EXPECT_EQ(back->patternState, PatternState::choose);
  EXPECT_EQ(back->patternDirection, 0);
}

TEST(SingleSteps, StayInForceOverAnUndo) {
  Carver c(kRoom);
  c.menu(Item::dontusepattern);
  c.arrow(key::right);
  c.menu(Item::undo);
  const auto back = c.stand();
  c.run();
  EXPECT_EQ(back->patternState, PatternState::random);
}

TEST(AWalkBackOverCorridors, IsTakenBackWithTheCarvingBeforeIt) {
  Carver c(kRoom);
  c.arrow(key::right);
  const auto before = c.stand();
  c.arrow(key::right);
  c.key(key::G);
  c.arrow(key::left);
  const auto walked = c.stand();
  c.menu(Item::undo);
  const auto back = c.stand();
  c.run();
  EXPECT_EQ(walked->walkMode, WalkMode::back);
  expectSame(*back, *before);
}

TEST(AnUnderpass, GoesWhole) {
  Carver c(kRoom, Item::create3d);
  // A corridor down from the start's row, then one that comes from the left and passes under it.
  for (const int code :
       {key::right, key::right, key::right, key::down, key::down, key::down, key::left, key::left, key::up})
    c.arrow(code);
  std::vector<std::shared_ptr<Standing>> before;
  for (int i = 0; i < 3; ++i) {
    before.push_back(c.stand());
    c.arrow(key::right);
  }
  const auto under = c.stand();
  for (int i = 0; i < 3; ++i) c.menu(Item::undo);
  const auto back = c.stand();
  c.run();
  bool passedUnder = false;
  before.push_back(under);
  for (std::size_t i = 1; i < before.size(); ++i)
    passedUnder = passedUnder || before[i]->cur.left - before[i - 1]->cur.left >= 20;
  ASSERT_TRUE(passedUnder);
  EXPECT_TRUE(samePicture(back->image, before.front()->image));
  EXPECT_EQ(back->cur, before.front()->cur);
}

void stays(void (*handOver)(Carver&)) {
  Carver c(kRoom);
  c.arrow(key::right);
  c.arrow(key::right);
  handOver(c);
  c.pump(Carver::kSettled);
  const auto before = c.stand();
  c.act([](Program& p) { input::menuClick(p, Item::undo); });
  c.pump(Carver::kSettled);
  const auto after = c.stand();
  c.run();
  EXPECT_TRUE(samePicture(after->image, before->image));
  EXPECT_EQ(after->cur, before->cur);
}

TEST(WhatStoodAtTheHandOver, IsNotTakenBack) {
  stays([](Carver& c) { c.key(key::J), c.key(key::J); });
  stays([](Carver& c) { c.menu(Item::cgenerate), c.menu(Item::ugenerate); });
}

TEST(WhatIsPartOfEveryMaze, IsNotTakenBack) {
  stays([](Carver& c) { c.menu(Item::mpdrawing); });
}

TEST(ANewMaze, IsNotTakenBackToTheOneBefore) {
  stays([](Carver& c) { c.menu(Item::newmaze); });
  stays([](Carver& c) { c.menu(Item::create3d); });
  stays([](Carver& c) {
    c.menu(Item::mpdrawing);
    c.arrow(key::right);
    c.menu(Item::nrefresh);
  });
}

TEST(Undo, IsOffWhileTheComputerCarvesAndInOtherPhasesAndRedoInAMaze) {
  Carver c(kRoom);
  const auto see = [&c] {
    auto words = std::make_shared<std::array<std::string, 2>>();
    c.look([words](Program& p) {
      const auto one = [&](Item item) {
        return p.menus.tip(item) + (p.menus.enabled(item) ? " on" : " off");
      };
      *words = {one(Item::undo), one(Item::redo)};
    });
    return words;
  };
  const auto byHand = see();
  c.desktop.menu(Item::cgenerate);
  const auto byComputer = see();
  c.desktop.untilPhase(Phase::placing);
  const auto placing = see();
  c.run();
  EXPECT_EQ((*byHand)[0], "takes back what was done last on");
  EXPECT_EQ((*byHand)[1], "only in the drawing off");
  EXPECT_EQ((*byComputer)[0], "not while the computer carves off");
  EXPECT_EQ((*placing)[0], "only in the drawing, and while you carve off");
}

TEST(AMazeAfterUndos, IsFinishedByTheComputerAsOneWithoutThem) {
  Carver c(kRoom);
  for (const int code : {key::right, key::down, key::right, key::down}) c.arrow(code);
  for (int i = 0; i < 3; ++i) c.menu(Item::undo);
  c.menu(Item::cgenerate);
  c.desktop.untilPhase(Phase::placing);
  const auto done = c.stand();
  c.run();
  for (int row = 1; row <= 8; ++row) {
    for (int column = 1; column <= 12; ++column) {
      EXPECT_NE(done->image.at(column * 10 + 5, row * 10 + 5), kNavy) << column << ", " << row;
    }
  }
}

}  // namespace
}  // namespace gridwright::test
