#include "maze/maze_settings.h"

#include <gtest/gtest.h>

#include <array>

#include "support/world.h"

namespace gridwright::test {
namespace {

TEST(EachDifficulty, IsTakenAndMarkedAloneByItsOwnItem) {
  constexpr std::array kItems = {Item::mode1, Item::mode2, Item::mode3,
                                 Item::mode4, Item::mode5, Item::mode6};
  constexpr std::array kModes = {mode1, mode2, mode3, mode4, mode5, mode6};
  World w(drawing({"..", ".."}));
  for (std::size_t i = 0; i < kModes.size(); ++i) {
    kModes.at(i)(w.program);
    EXPECT_EQ(w.state.difficultyLevel, static_cast<int>(i) + 1);
    for (const Item item : kItems) EXPECT_EQ(w.program.menus.checked(item), item == kItems.at(i));
  }
}

TEST(ThePathSize, IsOneOfTwo) {
  World w(drawing({"..", ".."}));
  plarge(w.program);
  EXPECT_EQ(w.state.pathSize, 2);
  pnormal(w.program);
  EXPECT_EQ(w.state.pathSize, 1);
}

TEST(TheLengthOfUnderpasses, IsOnlyMarked) {
  World w(drawing({"..", ".."}));
  const bool before = w.state.shortUnderpasses;
  pthin(w.program);
  EXPECT_TRUE(w.program.menus.checked(Item::pthin));
  EXPECT_FALSE(w.program.menus.checked(Item::pthick));
  pthick(w.program);
  EXPECT_FALSE(w.program.menus.checked(Item::pthin));
  EXPECT_TRUE(w.program.menus.checked(Item::pthick));
  EXPECT_EQ(w.state.shortUnderpasses, before) << "it is read when a maze starts";
}

}  // namespace
}  // namespace gridwright::test
