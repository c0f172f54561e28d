// What holds of every regular maze that the computer makes, over seeds and drawings.
#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <random>
#include <string>

#include "session/maze_commands.h"
#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Shape {
  const char* name;
  Text cells;
};

const std::array kShapes = {
    Shape{"one room", {"........", "........", "........", "........"}},
    Shape{"a corridor", {"............"}},
    Shape{"a ring", {".......", ".#####.", ".#...#.", ".#.#.#.", ".#...#.", ".#####.", "......."}},
    Shape{"two rooms behind a thin border", {"....#....", "....#....", "....#....", "....#...."}},
    Shape{"two rooms behind a thick border", {"...####...", "...####...", "...####...", "...####..."}},
    Shape{"nine lone cells", {".##.##.", "#######", "#######", ".##.##.", "#######", ".##.##."}},
    Shape{"a comb", {".........", ".#.#.#.#.", ".#.#.#.#.", ".#.#.#.#."}},
    Shape{"a diagonal", {".######", "#.#####", "##.####", "###.###", "####..."}},
    Shape{"three backgrounds side by side", {"...,,,ooo", "...,,,ooo", "...,,,ooo", "...,,,ooo"}},
    Shape{"a spiral", {".......", "######.", ".....#.", ".###.#.", ".#...#.", ".#####.", "......."}},
};

/// The drawing made into a maze by a session that begins at the title. The maze is "drawing3.bmp".
struct Made {
  explicit Made(const Bitmap& picture, std::uint32_t seed, int wall = 10) : before(picture) {
    world.desktop.seed = seed;
    world.begin(picture);
    if (wall != 10) {
      world.desktop.menu(Item::changewallsize);
      world.desktop.enter(ControlId::Text2, std::to_string(wall));
    }
    world.desktop.menu(Item::cgenerate);
    world.desktop.menu(Item::newmaze);
    world.desktop.untilPhase(Phase::placing);
    world.desktop.pumpsPass(1);
    trouble = world.run();
    maze = world.desktop.file("drawing3.bmp");
  }

  [[nodiscard]] MazeReading reading() const {
    return {before, *maze, PlainSets(world.program.colours), world.state.wallWidth};
  }

  Bitmap before;
  World world;
  std::string trouble;
  const Bitmap* maze = nullptr;
};

class EveryShape : public ::testing::TestWithParam<Shape> {};

TEST_P(EveryShape, BecomesASpanningTreeInEachOfItsRegionsAndNothingElseChanges) {
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    const Made made(drawing(GetParam().cells), seed);
    ASSERT_EQ(made.trouble, "") << "seed " << seed;
    EXPECT_EQ(made.reading().fault(), "") << "seed " << seed;
  }
}

TEST_P(EveryShape, BecomesATreeWithoutPatternsToo) {
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    World world;
    const Bitmap picture = drawing(GetParam().cells);
    world.desktop.seed = seed;
    world.begin(picture);
    world.desktop.menu(Item::cgenerate);
    world.desktop.menu(Item::dontusepattern);
    world.desktop.menu(Item::newmaze);
    world.desktop.untilPhase(Phase::placing);
    ASSERT_EQ(world.run(), "") << "seed " << seed;
    EXPECT_EQ(world.state.patternState, PatternState::random);
    const MazeReading maze(picture, *world.desktop.file("drawing3.bmp"), PlainSets(world.program.colours),
                           10);
    EXPECT_EQ(maze.fault(), "") << "seed " << seed;
  }
}

TEST_P(EveryShape, BecomesATreeAtOddAndSmallWallSizes) {
  for (const int wall : {5, 7, 13}) {
    const Made made(drawing(GetParam().cells, wall), 5, wall);
    ASSERT_EQ(made.trouble, "") << "wall " << wall;
    EXPECT_EQ(made.reading().fault(), "") << "wall " << wall;
  }
}

std::string nameOf(const ::testing::TestParamInfo<Shape>& shape) {
  std::string name = shape.param.name;
  for (char& c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Shapes, EveryShape, ::testing::ValuesIn(kShapes), nameOf);

TEST(TheSameSeed, GivesTheSamePixels) {
  const Bitmap picture = drawing({"......#...", "......#...", "..,,,,....", "....#....."});
  const Made one(picture, 17);
  const Made again(picture, 17);
  const Made other(picture, 18);

  EXPECT_TRUE(samePicture(*one.maze, *again.maze));
  EXPECT_NE(*one.maze, *other.maze) << "another seed gives another maze";
}

TEST(OutlinesInTheMazeColour, AreCarvedGroundThatTheWalkerGoesOverAndEveryFreeCellIsCarved) {
  for (std::uint32_t seed = 1; seed <= 8; ++seed) {
    const Made made(drawing({"...*...", "...*...", "****...", ".......", "...*..."}), seed);
    ASSERT_EQ(made.trouble, "");
    const PlainSets sets(made.world.program.colours);
    for (int row = 1; row <= 5; ++row) {
      for (int column = 1; column <= 7; ++column) {
        EXPECT_TRUE(sets.isMaze(made.maze->at(column * 10 + 1, row * 10 + 1))) << column << ", " << row;
      }
    }
  }
}

TEST(AnyDrawing, BecomesATreeInEveryRegionAndItsAnswerIsTheOneWay) {
  std::mt19937 chance(20261120);
  for (int round = 0; round < 60; ++round) {
    const int columns = 3 + static_cast<int>(chance() % 10);
    const int rows = 3 + static_cast<int>(chance() % 8);
    const std::uint32_t freeOf10 = 3 + chance() % 8;
    Text cells(static_cast<std::size_t>(rows), std::string(static_cast<std::size_t>(columns), '#'));
    for (std::string& row : cells) {
      for (char& cell : row) {
        if (chance() % 10 < freeOf10) cell = ".,ok"[chance() % 4];
      }
    }
    cells[0].replace(0, 3, "...");  // three free cells at least
    SCOPED_TRACE(textOf(pixels(cells)));

    Made made(drawing(cells), static_cast<std::uint32_t>(round));
    ASSERT_EQ(made.trouble, "");
    ASSERT_EQ(made.reading().fault(), "");
  }
}

/// Discs of backgrounds and of border over each other, cut by the edges and off the grid everywhere; free
/// ground reaches into the band along the top and left.
Bitmap blots(std::mt19937& chance) {
  Bitmap picture =
      plainBitmap(150 + static_cast<int>(chance() % 40), 110 + static_cast<int>(chance() % 30), kBlue);
  for (int blot = 0; blot < 14; ++blot) {
    const int cx = static_cast<int>(chance() % 190);
    const int cy = static_cast<int>(chance() % 140);
    const int radius =
        blot % 3 == 2 ? 3 + static_cast<int>(chance() % 9) : 20 + static_cast<int>(chance() % 25);
    const Colour colour = blot % 3 == 2 ? kLime : (chance() % 2 == 0 ? kNavy : kGreen);
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        const bool within = (x - cx) * (x - cx) + (y - cy) * (y - cy) < radius * radius;
        if (within) pixelAt(picture, x, y) = colour;
      }
    }
  }
  pixelAt(picture, 1, 1) = kBlue;  // the frame
  return picture;
}

TEST(APictureWithEdgesOffTheGrid, IsCarvedInEveryRegionOfWholeFreeCellsAndNoOtherPixelChanges) {
  std::mt19937 chance(42);
  int regions = 0;
  for (int round = 0; round < 60; ++round) {
    const Bitmap picture = blots(chance);
    Made made(picture, static_cast<std::uint32_t>(round));
    ASSERT_EQ(made.trouble, "") << "round " << round;
    ASSERT_EQ(made.reading().fault(), "") << "round " << round;
    regions += made.reading().regions();
  }
  EXPECT_GT(regions, 80) << "many pictures fall into several regions";
}

TEST(TheAnswer, IsTheOneWayBetweenStartAndFinishAndNothingElse) {
  int solved = 0;
  for (const Shape& shape : kShapes) {
    for (std::uint32_t seed = 1; seed <= 6; ++seed) {
      SCOPED_TRACE(std::string(shape.name) + ", seed " + std::to_string(seed));
      const Bitmap picture = drawing(shape.cells);
      World world;
      world.desktop.seed = seed;
      world.begin(picture);
      world.desktop.menu(Item::cgenerate);
      world.desktop.menu(Item::newmaze);
      world.desktop.untilPhase(Phase::placing);
      const auto reading = [&] {
        return MazeReading(picture, *world.desktop.file("drawing3.bmp"), PlainSets(world.program.colours),
                           10);
      };
      bool reachable = false;
      world.desktop.look(
          [&](Program& p) { reachable = reading().way(p.state.start, p.state.finish).has_value(); });
      world.desktop.menu(Item::solvemaze);
      world.desktop.until([&](const Program& p) { return !reachable || p.state.phase == Phase::solved; });
      Bitmap answer;
      Bitmap expected;
      int pathLength = 0;
      world.desktop.look([&](Program& p) {
        if (!reachable) return;
        answer = p.canvas.image();
        expected = withAnswer(reading(), *world.desktop.file("drawing2.bmp"), p.state);
        pathLength = p.state.solver.pathLength;
      });
      ASSERT_EQ(world.run(), "");
      if (!reachable) continue;
      ++solved;
      EXPECT_TRUE(samePicture(answer, expected));
      EXPECT_EQ(world.state.phase, Phase::solved);
      const auto way = reading().way(world.state.start, world.state.finish);
      EXPECT_EQ(pathLength, static_cast<int>(way->size()) - 2)
          << "the last step onto the finish is not counted";
    }
  }
  EXPECT_GT(solved, 30);
}

}  // namespace
}  // namespace gridwright::test
