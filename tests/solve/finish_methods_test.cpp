#include "solve/finish_methods.h"

#include <gtest/gtest.h>

#include <array>

#include "support/world.h"

namespace gridwright::test {
namespace {

struct Option {
  void (*choose)(Program&);
  FinishMethod method;
  Item item;
};
constexpr std::array kOptions = {
    Option{userplace, FinishMethod::user, Item::userplace},
    Option{largestsolution, FinishMethod::largest, Item::largestsolution},
    Option{includeunderpasses, FinishMethod::includeUnderpasses, Item::includeunderpasses},
    Option{mostunderpasses, FinishMethod::mostUnderpasses, Item::mostunderpasses}};

/// A maze whose finish was found and shows at (2, 2).
struct Shown : World {
  Shown(FinishMethod method, Phase phase) : World(drawing({"***", "***", "***"})) {
    state.phase = phase;
    state.finishMethod = method;
    state.finishFound = true;
    state.finishColor = kRed;
    state.ends.finishMazeColor = kWhite;
    state.finish = state.ends.lastFinish = squareOf(2, 2);
    canvas.fill(state.finish, kRed);
  }
  [[nodiscard]] bool showsFinish() const { return canvas.point(21, 21) == kRed; }
};

TEST(AnEndPointOption, TicksItselfAlone) {
  for (const Option& option : kOptions) {
    Shown w(FinishMethod::user, Phase::drawing);
    option.choose(w.program);
    EXPECT_EQ(w.state.finishMethod, option.method);
    for (const Option& other : kOptions) {
      EXPECT_EQ(w.program.menus.checked(other.item), other.item == option.item);
    }
  }
}

TEST(AnotherSearchChosenWhilePlacing, TakesTheOldFinishOffTheCanvas) {
  for (const Option& option : kOptions) {
    if (option.method == FinishMethod::user) continue;
    for (const Option& before : kOptions) {
      for (const Phase phase : {Phase::drawing, Phase::making, Phase::placing, Phase::solved}) {
        Shown w(before.method, phase);
        option.choose(w.program);
        const bool begins = before.method != option.method && phase == Phase::placing;
        EXPECT_EQ(w.showsFinish(), !begins);
        EXPECT_EQ(w.state.finishFound, !begins);
      }
    }
  }
}

TEST(TheUsersOwnFinish, FillsNothing) {
  for (const Option& before : kOptions) {
    Shown w(before.method, Phase::placing);
    userplace(w.program);
    EXPECT_TRUE(w.showsFinish());
    EXPECT_FALSE(w.state.finishFound);
    EXPECT_EQ(w.state.finishMethod, FinishMethod::user);
  }
}

TEST(ARegularMaze, HasNoOptionThatCountsUnderpasses) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const Option& option : kOptions) {
      Shown w(option.method, Phase::drawing);
      w.state.mazeKind = kind;
      keepFinishMethodPossible(w.program);
      const bool becomesLargest = kind == MazeKind::regular && option.method > FinishMethod::largest;
      EXPECT_EQ(w.state.finishMethod, becomesLargest ? FinishMethod::largest : option.method);
    }
  }
}

}  // namespace
}  // namespace gridwright::test
