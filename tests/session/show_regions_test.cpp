#include "session/show_regions.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// Two rooms and a niche too small for a cell.
struct Rooms : World {
  Rooms() : World(Size{80, 50}) {
    Bitmap picture = drawing({"..#...", "..#...", "######"});
    for (int x = 42; x < 47; ++x) pixelAt(picture, x, 33) = kNavy;
    begin(picture);
    desktop.pumpsPass(2);
    desktop.look([](Program& p) { p.notices.tell(""); });
    desktop.menu(Item::showregions);
    desktop.pumpsPass(1);
  }
};

constexpr auto kLine = "10 cells in 2 regions; 1 areas too small for a cell";

TEST(TheRegions, AreShownInColoursWithTheLineAndOnNoPlane) {
  Rooms w;
  Bitmap image, shown;
  w.desktop.look([&](Program& p) {
    image = p.canvas.image();
    EXPECT_TRUE(p.regions.shown);
    EXPECT_EQ(p.regions.line, kLine);
    const Bitmap& colours = p.regions.colours;
    EXPECT_EQ(colours.at(15, 15), colours.at(25, 25));
    EXPECT_NE(colours.at(15, 15), colours.at(45, 15));
    EXPECT_NE(colours.at(43, 33), kOutside) << "the niche is to be seen too";
    EXPECT_EQ(colours.at(5, 5), kOutside);
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(image.at(15, 15), kNavy);
  EXPECT_EQ(image.at(45, 15), kNavy);
  EXPECT_EQ(w.desktop.lines, std::vector<std::string>{kLine});
}

TEST(TheNextKey, ClosesThemAndDoesNothingElse) {
  Rooms w;
  Square before;
  w.desktop.look([&before](Program& p) { before = p.state.cur; });
  w.desktop.act([](Program& p) { input::keyDown(p, 76); });
  w.desktop.look([&before](Program& p) {
    EXPECT_FALSE(p.regions.shown);
    EXPECT_EQ(p.state.cur, before);
  });
  w.desktop.act([](Program& p) { input::keyDown(p, 76); });
  w.desktop.look([&before](Program& p) { EXPECT_NE(p.state.cur, before) << "and the one after it works"; });
  EXPECT_EQ(w.run(), "");
}

TEST(TheNextClick, ClosesThemAndChoosesNothing) {
  Rooms w;
  w.desktop.act([](Program& p) { input::menuClick(p, Item::rmazes); });
  w.desktop.look([](Program& p) {
    EXPECT_FALSE(p.regions.shown);
    EXPECT_TRUE(p.state.mazeMadeOnce) << "no new drawing";
  });
  w.desktop.menu(Item::showregions);
  w.desktop.act([](Program& p) { input::mouseDown(p, 1); });
  w.desktop.look([](Program& p) { EXPECT_FALSE(p.regions.shown); });
  EXPECT_EQ(w.run(), "");
}

TEST(AnotherWindowSize, ClosesThem) {
  Rooms w;
  w.desktop.act([](Program& p) { input::resized(p, {70, 50}); });
  EXPECT_EQ(w.run(), "");
  EXPECT_FALSE(w.program.regions.shown);
}

TEST(HowBig, IsOffWhereAMazeIsMade) {
  World w(drawing({"...", "..."}));
  w.program.menus.setVisible(Item::filet, true);
  input::menuClick(w.program, Item::showregions);
  EXPECT_FALSE(w.program.regions.shown);
}

}  // namespace
}  // namespace gridwright::test
