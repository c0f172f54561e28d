#include "maze/entry_tests.h"

#include <gtest/gtest.h>

#include <array>

#include "support/world.h"

namespace gridwright::test {
namespace {

constexpr std::array kSides = {std::pair{0, 1}, std::pair{0, -1}, std::pair{1, 0}, std::pair{-1, 0}};

/// The cell under test in the middle of a free field, and one carved neighbour that lies further open.
struct Field : World {
  Field(int dx, int dy) : World(drawing(Text(7, "......."))), neighbour(squareOf(4 + dx, 4 + dy)) {
    state.mazeKind = MazeKind::threeD;
    state.start = state.walker.walkStart = squareOf(1, 1);
    state.finish = squareOf(7, 7);
    carve(neighbour);
  }
  void carve(const Square& q) { canvas.fill(q, kWhite); }
  void join(const Square& a, const Square& b) {
    canvas.fill(std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                std::max(a.bottom, b.bottom), kWhite);
  }
  [[nodiscard]] bool enters() const { return firstEntry(program, 41, 41).has_value(); }
  Square neighbour;
};

TEST(AFreeCellWithOneCarvedNeighbour, CanBeEnteredFromIt) {
  for (const auto& [dx, dy] : kSides) {
    Field f(dx, dy);
    const auto entry = firstEntry(f.program, 41, 41);
    ASSERT_TRUE(entry) << dx << ", " << dy;
    EXPECT_EQ(entry->x, f.neighbour.left);
    EXPECT_EQ(entry->y, f.neighbour.top);
  }
}

TEST(ACellCarvedOnBothOppositeSides, CannotBeEnteredFromEither) {
  for (const auto& [dx, dy] : kSides) {
    Field f(dx, dy);
    f.carve(squareOf(4 - dx, 4 - dy));
    EXPECT_FALSE(f.enters());
  }
}

TEST(ACellBesideTheFinishOrAStartThatIsNotTheOrigin, CannotBeEnteredFromIt) {
  for (const auto& [dx, dy] : kSides) {
    Field f(dx, dy);
    f.state.finish = f.neighbour;
    EXPECT_FALSE(f.enters());
    f.state.finish = squareOf(7, 7);
    f.state.start = f.neighbour;
    EXPECT_FALSE(f.enters());
    f.state.walker.walkStart = f.neighbour;
    EXPECT_TRUE(f.enters()) << "the origin itself is no hindrance";
  }
}

TEST(ANeighbourClosedAheadWithACorridorPastItsSide, CannotBeLeftIntoTheCell) {
  for (const auto& [dx, dy] : kSides) {
    for (const int side : {-1, 1}) {
      Field f(dx, dy);
      const Square past = f.neighbour.moved(side * 10 * (dy != 0), side * 10 * (dx != 0));
      f.carve(past);
      EXPECT_FALSE(f.enters()) << dx << ", " << dy << " side " << side;
      f.join(past, f.neighbour);
      EXPECT_TRUE(f.enters()) << "open to it";
    }
  }
}

TEST(TheWallBesideANeighbour, IsReadAtThePixelFarFromTheCellBeforeIt) {
  for (const auto& [dx, dy] : kSides) {
    for (const int side : {-1, 1}) {
      for (const bool isRead : {false, true}) {
        Field f(dx, dy);
        const int ex = side * (dy != 0);
        const int ey = side * (dx != 0);
        f.carve(f.neighbour.moved(10 * ex, 10 * ey));
        // Two pixels lie between both; going right or down the second is read, going left or up the first.
        const int away = side > 0 ? (isRead ? 7 + 2 : 7 + 1) : (isRead ? -1 : -2);
        const int x = f.neighbour.left + (ex != 0 ? away : 0);
        const int y = f.neighbour.top + (ey != 0 ? away : 0);
        f.canvas.fill(x, y, x, y, kWhite);
        EXPECT_EQ(f.enters(), isRead) << dx << ", " << dy << " side " << side;
      }
    }
  }
}

TEST(ANeighbourOpenAhead, IsNotAskedForItsSides) {
  for (const auto& [dx, dy] : kSides) {
    Field f(dx, dy);
    f.carve(f.neighbour.moved(10 * (dy != 0), 10 * (dx != 0)));
    f.join(f.neighbour, f.neighbour.moved(10 * dx, 10 * dy));
    EXPECT_TRUE(f.enters());
  }
}

TEST(ACellBesideOneClosedAllRound, CannotBeEntered) {
  for (const auto& [dx, dy] : kSides) {
    for (const int side : {-1, 1}) {
      Field f(dx, dy);
      const int ex = side * (dy != 0);
      const int ey = side * (dx != 0);
      f.carve(squareOf(4 + ex, 4 + ey));
      // Out of the neighbour's own way: it is open ahead.
      f.join(f.neighbour, f.neighbour.moved(10 * dx, 10 * dy));
      EXPECT_FALSE(f.enters()) << dx << ", " << dy << " side " << side;
      f.join(squareOf(4 + ex, 4 + ey), squareOf(4 + ex + dx, 4 + ey + dy));
      EXPECT_TRUE(f.enters()) << "it is open along the way in";
    }
  }
}

}  // namespace
}  // namespace gridwright::test
