// The mazes made in prepared pictures: solved by the computer and by a person's keys, and walled off from the
// paper.
#include <gtest/gtest.h>

#include "pictures/brought.h"
#include "pictures/prepare.h"
#include "pictures/ready.h"
#include "platform/pictures/leptonica_work.h"
#include "support/maze_reading.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

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
  Session(const Bitmap& drawing, MazeKind kind) : picture(drawing) {
    world.desktop.setClient({drawing.width, drawing.height});
    world.desktop.seed = 7;
    world.begin(drawing);
    world.desktop.menu(Item::changewallsize);
    world.desktop.enter(ControlId::Text2, "12");
    world.desktop.menu(Item::cgenerate);
    if (kind == MazeKind::threeD) world.desktop.menu(Item::create3d);
    if (kind == MazeKind::pipe) world.desktop.menu(Item::create3dpipe);
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
    Session session(picture, kind);
    World& w = session.world;
    Bitmap maze;
    w.desktop.look([&](Program& program) { maze = program.canvas.image(); });
    w.desktop.menu(Item::largestsolution);
    w.desktop.menu(Item::solvemaze);
    w.desktop.untilPhase(Phase::solved);
    ASSERT_EQ(w.run(), "") << static_cast<int>(kind);
    EXPECT_FALSE(touchesPaper(maze)) << static_cast<int>(kind);
    EXPECT_GT(std::count(maze.pixels.begin(), maze.pixels.end(), kWhite), 300);
    EXPECT_EQ(paperOf(maze), paperOf(picture)) << "no pixel of paper changes, none becomes paper";
  }
}

INSTANTIATE_TEST_SUITE_P(Brought, EveryPicture, ::testing::ValuesIn(allBrought()),
                         [](const auto& one) { return asWord(one.param); });

}  // namespace
}  // namespace gridwright::test
