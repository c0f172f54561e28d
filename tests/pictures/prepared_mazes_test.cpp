// The mazes made in prepared pictures: solved by the computer and by a person's keys, and walled off from the
// paper.
#include <gtest/gtest.h>

#include "canvas/free_cell.h"
#include "pictures/brought.h"
#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const std::string kTooSmall = "small_text.png";

/// The picture fitted to a window, with cells of 12 pixels, a size at which each of them holds some.
Bitmap madeReady(const std::string& name, MazeKind kind) {
  LeptonicaWork work;
  PrepareGround ground{{700, 560}, 12, kind};
  PrepareSettings settings;
  settings.grow = {1, 2, 3, 4};
  return prepare(readBrought(name), settings, ground, work).picture;
}

/// Whether a corridor, or a square of a start or finish, has a pixel of paper beside it, corners counted.
bool touchesPaper(const Bitmap& maze) {
  const auto isPaper = [&](int x, int y) {
    return x < 0 || y < 0 || x >= maze.width || y >= maze.height || maze.at(x, y) == kPaper;
  };
  for (int y = 0; y < maze.height; ++y) {
    for (int x = 0; x < maze.width; ++x) {
      if (maze.at(x, y) != kWhite) continue;
      for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
          if (isPaper(x + dx, y + dy)) return true;
        }
      }
    }
  }
  return false;
}

std::vector<bool> paperOf(const Bitmap& picture) {
  std::vector<bool> paper(picture.pixels.size());
  std::transform(picture.pixels.begin(), picture.pixels.end(), paper.begin(),
                 [](Colour colour) { return colour == kPaper; });
  return paper;
}

struct Session {
  Session(const Bitmap& drawing, MazeKind kind, Item ends) : picture(drawing) {
    world.desktop.setClient({drawing.width, drawing.height});
    world.desktop.seed = 7;
    world.begin(drawing);
    world.desktop.menu(Item::changewallsize);
    world.desktop.enter(ControlId::Text2, "12");
    world.desktop.menu(Item::cgenerate);
    if (kind == MazeKind::threeD) world.desktop.menu(Item::create3d);
    if (kind == MazeKind::pipe) world.desktop.menu(Item::create3dpipe);
    world.desktop.menu(ends);
    world.desktop.menu(Item::newmaze);
    world.desktop.untilPhase(Phase::placing);
  }
  Bitmap picture;
  World world{Size{700, 560}};
};

class EveryPicture : public ::testing::TestWithParam<std::string> {};

TEST_P(EveryPicture, BecomesAMazeWithAnOuterWallThatIsSolved) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::threeD, MazeKind::pipe}) {
    const Bitmap picture = madeReady(GetParam(), kind);
    Session session(picture, kind, Item::largestsolution);
    World& w = session.world;
    Bitmap maze;
    w.desktop.look([&](Program& program) { maze = program.canvas.image(); });
    w.desktop.menu(Item::solvemaze);
    w.desktop.untilPhase(Phase::solved);
    ASSERT_EQ(w.run(), "") << static_cast<int>(kind);
    EXPECT_FALSE(touchesPaper(maze)) << static_cast<int>(kind);
    EXPECT_GT(std::count(maze.pixels.begin(), maze.pixels.end(), kWhite), 300);
    EXPECT_EQ(paperOf(maze), paperOf(picture)) << "no pixel of paper changes, none becomes paper";
  }
}

/// Squares from the start along the way to the furthest cell.
std::vector<Square> longestWay(const MazeReading& maze, const Square& start, const Bitmap& picture) {
  std::vector<int> longest;
  for (int y = 12; y + 12 < picture.height; y += 12) {
    for (int x = 12; x + 12 < picture.width; x += 12) {
      const auto way = maze.way(start, {x + 1, y + 1, x + 10, y + 10});
      if (way && way->size() > longest.size()) longest = *way;
    }
  }
  std::vector<Square> squares;
  squares.reserve(longest.size());
  for (const int cell : longest) squares.push_back(maze.squareAt(cell));
  return squares;
}

TEST_P(EveryPicture, BecomesAMazeThatAPersonPlaysToItsEnd) {
  const Bitmap picture = madeReady(GetParam(), MazeKind::regular);
  Session session(picture, MazeKind::regular, Item::userplace);
  World& w = session.world;
  ASSERT_EQ(w.run(), "");
  const MazeReading maze(picture, *w.desktop.file("drawing3.bmp"), PlainSets(w.program.colours), 12);
  EXPECT_EQ(maze.fault(), "");
  const std::vector<Square> way = longestWay(maze, w.state.start, picture);
  ASSERT_GE(way.size(), 3U);

  Session played(picture, MazeKind::regular, Item::userplace);
  World& p = played.world;
  p.desktop.pumpsPass(1);
  p.desktop.act([&](Program& program) { program.state.finish = way.back(); });
  p.desktop.menu(Item::easymode);
  p.desktop.menu(Item::solvemaze);
  p.desktop.pumpsPass(2);
  for (std::size_t i = 1; i < way.size(); ++i) {
    const int code = way[i].left < way[i - 1].left   ? key::left
                     : way[i].left > way[i - 1].left ? key::right
                     : way[i].top < way[i - 1].top   ? key::up
                                                     : key::down;
    p.desktop.act([code](Program& program) { input::keyDown(program, code); });
    p.desktop.pumpsPass(1);
  }
  p.desktop.untilPhase(Phase::solved);
  ASSERT_EQ(p.run(), "");
  EXPECT_EQ(p.program.controls.caption(), "Gridwright-(user has solved maze)");
}

TEST(LettersTooSmallForACell, AreMadeReadyAndNoMazeBeginsInThem) {
  const Bitmap picture = madeReady(kTooSmall, MazeKind::regular);
  EXPECT_GT(std::count(picture.pixels.begin(), picture.pixels.end(), kPalette[0]), 1000);
  EXPECT_EQ(countRegions(picture, startingSets(), gridOn({700, 560}, 12, MazeKind::regular)).cells, 0);
}

std::vector<std::string> allWithCells() {
  std::vector<std::string> names = allBrought();
  std::erase(names, kTooSmall);
  return names;
}

INSTANTIATE_TEST_SUITE_P(Brought, EveryPicture, ::testing::ValuesIn(allWithCells()),
                         [](const auto& one) { return asWord(one.param); });

}  // namespace
}  // namespace gridwright::test
