// A small world, wholly: all 4096 drawings of four by three cells.
#include <gtest/gtest.h>

#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr int kColumns = 4, kRows = 3;

Text cellsOf(int number) {
  Text cells(kRows, std::string(kColumns, '#'));
  for (int cell = 0; cell < kColumns * kRows; ++cell) {
    if ((number >> cell & 1) != 0)
      cells[static_cast<std::size_t>(cell / kColumns)][static_cast<std::size_t>(cell % kColumns)] = '.';
  }
  return cells;
}

int freeCellsOf(int number) {
  int count = 0;
  for (int cell = 0; cell < kColumns * kRows; ++cell) count += number >> cell & 1;
  return count;
}

/// One program goes through all drawings: a drawing, its maze, its answer, back to drawing.
struct Round {
  World& world;
  Bitmap before{}, maze{}, answer{};
  bool made = false, reachable = false;
  int mazes = 0, answers = 0;

  [[nodiscard]] MazeReading reading() const { return {before, maze, PlainSets(world.program.colours), 10}; }

  void put(int number) {
    BareDesktop& d = world.desktop;
    d.act([this, number](Program& p) {
      before = drawing(cellsOf(number));
      p.canvas.setPicture(before);
      p.state.drawing.skipPaintOnce = true;
      made = reachable = false;
    });
    d.menu(Item::newmaze);
    d.until(
        [](const Program& p) { return p.state.phase == Phase::placing || p.state.phase == Phase::drawing; });
    d.look([this](Program& p) {
      made = p.state.phase == Phase::placing;
      if (!made) return;
      maze = *world.desktop.file("drawing3.bmp");
      reachable = reading().way(p.state.start, p.state.finish).has_value();
    });
    d.act([this](Program& p) {
      if (reachable) p.state.phase = Phase::solving;
    });
    d.until([this](const Program& p) { return !reachable || p.state.phase == Phase::solved; });
    d.look([this, number](Program& p) { check(p, number); });
    d.act([this](Program& p) {
      if (made) p.state.phase = Phase::drawing;
      p.state.drawing.reloadDrawing = false;
    });
    d.untilPhase(Phase::drawing);
  }

  void check(const Program& p, int number) {
    SCOPED_TRACE(textOf(pixels(cellsOf(number))));
    EXPECT_EQ(made, freeCellsOf(number) >= 3);
    if (!made) return;
    ++mazes;
    EXPECT_EQ(reading().fault(), "");
    if (!reachable) return;
    ++answers;
    EXPECT_TRUE(
        samePicture(p.canvas.image(), withAnswer(reading(), *world.desktop.file("drawing2.bmp"), p.state)));
  }
};

TEST(EveryDrawingOfFourByThreeCells, IsCarvedWhollyAndSolvedWhereAWayLeadsToTheFinish) {
  World world(Size{50, 40});
  Round round{world};
  world.desktop.limit = 400'000'000;
  world.desktop.click(ControlId::Command2);
  world.desktop.untilPhase(Phase::drawing);
  world.desktop.menu(Item::cgenerate);
  world.desktop.look([&](Program& p) { p.state.mazeMadeOnce = true; });
  for (int number = 0; number < 1 << (kColumns * kRows); ++number) round.put(number);
  EXPECT_EQ(world.run(), "");
  EXPECT_EQ(round.mazes, 4096 - 1 - 12 - 66) << "all but those with no, one or two free cells";
  EXPECT_GT(round.answers, 1000);
}

}  // namespace
}  // namespace gridwright::test
