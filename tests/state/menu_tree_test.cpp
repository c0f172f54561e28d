#include "state/menu_tree.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

#include "session/menu_commands.h"

namespace gridwright::test {
namespace {

struct Spot {
  Item item;
  Item parent;
  const char* caption;
};

TEST(TheCaptions, AreLetterForLetterThoseOfTheProgram) {
  constexpr auto kSpots = std::to_array<Spot>({
      {Item::drawingt, Item::bar, "Options"},
      {Item::importdrawing, Item::drawingt, "Import Bitmap"},
      {Item::ndrawing, Item::drawingt, "New Gridwright Drawing"},
      {Item::newwallsize, Item::ndrawing, "New drawing and new wall size(in pixels)"},
      {Item::createreg, Item::drawingt, "Create regular 2-d mazes inside drawing"},
      {Item::create3dpipe, Item::drawingt, "Create 3d-pipe-mazes inside drawing"},
      {Item::multdrawing, Item::drawingt, "Symmetrical-drawing-mode"},
      {Item::horizontal, Item::multdrawing, "(1)-Horizontal "},
      {Item::quit2, Item::drawingt, "Quit to Main Menu"},
      {Item::printoptions, Item::bar, "Print-Options"},
      {Item::printfff, Item::printoptions, "print the window"},
      {Item::printwithsolutions, Item::printoptions, "print mazes(with answers)"},
      {Item::maze, Item::bar, "Maze Options"},
      {Item::newmaze, Item::maze, "New maze "},
      {Item::nrefresh, Item::maze, "New maze and refresh picture"},
      {Item::mpdrawing, Item::maze, "Make current maze part of every maze"},
      {Item::mazemodes, Item::bar, "Maze Settings"},
      {Item::playmodeoff, Item::playmode, "(0)-off (computer finds solutions)"},
      {Item::includeunderpasses, Item::answermode,
       "(2)-Computer finds largest solution (include underpasses)"},
      {Item::mode3, Item::mazemode1, "          3"},
      {Item::autominimize, Item::mazemodes, "Auto-minimize (Greatly speeds execution)"},
      {Item::maxrnd, Item::fgjjkhj, R"(Random patterns are allways size "5")"},
      {Item::usernd, Item::fgjjkhj, R"(Random patterns are any size from "1" to "5")"},
      {Item::stopfinish, Item::ghdfrjkg, "Make maze only until start and finish are reached"},
      {Item::patterns, Item::bar, "Patterns"},
      {Item::uppattern, Item::patterns, "Edit up pattern"},
      {Item::help, Item::bar, "Instructions"},
      {Item::menu4, Item::keysdrawing,
       R"(Press "I","k","J", or "l" to move in any direction in small steps)"},
      {Item::menu7, Item::keysdrawing,
       R"(Press "t",  "f", "g", and "h" to decrease the size of your square)"},
      {Item::keysmaze, Item::help, "Keys for making your maze "},
      {Item::ghgjjy, Item::keysanswer, "Use the numeric keypad to move (If playmode is on)"},
  });
  const MenuModel menus;
  for (const Spot& spot : kSpots) {
    EXPECT_EQ(menus.caption(spot.item), spot.caption);
    EXPECT_EQ(rowOf(spot.item).parent, spot.parent) << spot.caption;
  }
}

TEST(ATipWhereADrawingBegins, HasDrawingTurnedOffBeforeTheColourChanges) {
  const MenuModel menus;
  for (const Item item : {Item::rmazes, Item::mazes3d1, Item::mazes3d, Item::createreg})
    EXPECT_NE(menus.tip(item).find("press / and then ."), std::string::npos) << menus.tip(item);
}

TEST(TheTree, HasNoNameTwiceAndItsOwnTitleBeforeTheSixThatPeopleKnow) {
  std::set<std::string_view> names;
  std::vector<std::string_view> titles;
  for (const MenuRow& row : kMenuRows) {
    names.insert(row.name);
    if (row.parent == Item::bar) titles.push_back(row.caption);
  }
  EXPECT_EQ(names.size(), kItemCount);
  EXPECT_EQ(titles, (std::vector<std::string_view>{"File", "Options", "Print-Options", "Maze Options",
                                                   "Maze Settings", "Patterns", "Instructions"}));
}

TEST(OurItems, StandBesideTheOthersUnderATitleOfTheirOwn) {
  for (const MenuRow& row : kMenuRows) {
    const bool underFile = row.name == "filet" || row.parent == Item::filet;
    EXPECT_EQ(row.isOurs, underFile) << row.name;
  }
}

TEST(EveryName, LeadsToItsItem) {
  for (std::size_t i = 0; i < kItemCount; ++i) EXPECT_EQ(itemNamed(kMenuRows[i].name), itemAt(i));
  EXPECT_EQ(itemNamed("nosuchitem"), std::nullopt);
  EXPECT_EQ(itemNamed("bar"), std::nullopt);
}

TEST(AtTheStart, TheseItemsAreCheckedAndNoOthers) {
  const std::set<Item> checked = {Item::createreg,  Item::turnsoff,  Item::ugenerate,  Item::playmodeoff,
                                  Item::leavetrail, Item::userplace, Item::pnormal,    Item::mode4,
                                  Item::pthick,     Item::aoff,      Item::usepattern, Item::maxrnd,
                                  Item::gofinish,   Item::statusline};
  const MenuModel menus;
  for (std::size_t i = 0; i < kItemCount; ++i) {
    EXPECT_EQ(menus.checked(itemAt(i)), checked.count(itemAt(i)) == 1) << kMenuRows[i].name;
  }
}

TEST(AtTheStart, TheseItemsAreHiddenOrDisabled) {
  const MenuModel menus;
  for (std::size_t i = 0; i < kItemCount; ++i) {
    const Item item = itemAt(i);
    const bool hidden =
        item == Item::printing || item == Item::help || item == Item::fddf || item == Item::filet;
    const bool disabled = item == Item::printing || item == Item::nrefresh || item == Item::crpattern ||
                          item == Item::keyspattern || item == Item::undo || item == Item::redo;
    EXPECT_EQ(menus.visible(item), !hidden) << kMenuRows[i].name;
    EXPECT_EQ(menus.enabled(item), !disabled) << kMenuRows[i].name;
  }
}

TEST(AnItem, IsAvailableOnlyWhenAllAboveItAreShownAndEnabled) {
  MenuModel menus;
  EXPECT_TRUE(menus.available(Item::way4));
  menus.setEnabled(Item::multdrawing, false);
  EXPECT_FALSE(menus.available(Item::way4));
  EXPECT_TRUE(menus.enabled(Item::way4)) << "its own state is another matter";
  menus.setEnabled(Item::multdrawing, true);
  menus.setVisible(Item::drawingt, false);
  EXPECT_FALSE(menus.available(Item::way4));
}

TEST(AChange, MovesTheRevisionAndTheSameStateDoesNot) {
  MenuModel menus;
  const auto before = menus.revision();
  menus.setChecked(Item::aoff, true);
  menus.setCaption(Item::aon, "on");
  EXPECT_EQ(menus.revision(), before);
  menus.setChecked(Item::aoff, false);
  EXPECT_GT(menus.revision(), before);
}

TEST(ATitleOrAHelpLine, RunsNothing) {
  for (std::size_t i = 0; i < kItemCount; ++i) {
    EXPECT_TRUE(!hasChildren(itemAt(i)) || commandOf(itemAt(i)) == nullptr) << kMenuRows[i].name;
  }
  for (const Item line : {Item::menu4, Item::jkjk, Item::bd, Item::ghgjjy, Item::ghdfdf}) {
    EXPECT_EQ(commandOf(line), nullptr);
  }
}

}  // namespace
}  // namespace gridwright::test
