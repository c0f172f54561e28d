#include "maze/reach.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "maze/finishmaking.h"
#include "maze/stranded.h"
#include "maze/sweep_memory.h"
#include "state/grid.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A walker in the first cell that walks back and has waited long enough for any flood here.
struct Walk {
  explicit Walk(const Text& cells, MazeKind kind = MazeKind::regular) : w(drawing(cells)) {
    ProgramState& s = w.state;
    s.mazeKind = kind;
    pitchFromKind(s);
    measureGrid(w.program);
    s.creationMode = CreationMode::computer;
    s.walkMode = WalkMode::back;
    s.mazeColor = kWhite;
    s.cur = s.prev = s.walker.walkStart = squareOf(1, 1);
    s.finish = {-10, -10, -10, -10};
    s.walker.passesSinceCarved = 100;
  }
  bool canReach() {
    bringSweepMemoryInLine(w.program);
    return canReachFreeGround(w.program);
  }
  /// The full pass in which so many have gone by in vain.
  void pass(std::int64_t count) {
    w.state.walker.passesSinceCarved = count - 1;
    rescueIfStranded(w.program);
  }
  World w;
};

TEST(TheLook, FindsFreeGroundBesideCarvedGroundThatHangsTogether) {
  EXPECT_TRUE(Walk({"***#", "##*#", "##*."}).canReach());
  EXPECT_FALSE(Walk({"***#", "####", "####", "##*."}).canReach());
  EXPECT_TRUE(Walk({"*.##", "####"}).canReach());
  EXPECT_FALSE(Walk({"*#.#", "####"}).canReach()) << "only a cell of border lies between, but no carved one";
}

TEST(TheLook, GoesThroughWallsAsTheWalkBackDoes) {
  Walk walk({"**##", "#**.", "####"});
  walk.w.canvas.line(20, 11, 20, 20, kNavy);
  EXPECT_TRUE(walk.canReach());
}

TEST(TheLook, HopsOverOneCellAsTheWalkBackDoesInItsKind) {
  EXPECT_TRUE(Walk({"*#*.", "####"}).canReach());
  EXPECT_FALSE(Walk({"*##*.", "#####"}).canReach());
  EXPECT_TRUE(Walk({"*#*.", "####"}, MazeKind::threeD).canReach());
  EXPECT_FALSE(Walk({"*##*.", "#####"}, MazeKind::threeD).canReach());
  EXPECT_FALSE(Walk({"*####", "#####", "##*..", "#####"}, MazeKind::pipe).canReach());
  // A cell that is half carved and half background is no border, and nothing free.
  Walk ground({"*.*.", "####"});
  ground.w.canvas.fill(24, 14, 26, 16, kBlue);
  EXPECT_FALSE(ground.canReach());
  ground.w.state.mazeKind = MazeKind::threeD;
  EXPECT_TRUE(ground.canReach());
}

TEST(TheLook, KnowsThatTheFinishSendsTheWalkerToTheOrigin) {
  Walk walk({"***.", "####", "####", "*.##"});
  walk.w.state.finish = squareOf(3, 1);
  EXPECT_FALSE(walk.canReach()) << "nothing is entered from the finish";
  walk.w.state.walker.walkStart = squareOf(1, 4);
  EXPECT_TRUE(walk.canReach());
  walk.w.canvas.fill(20, 40, 29, 49, kBlue);
  EXPECT_FALSE(walk.canReach());
}

TEST(TheLook, AsksInPipesForTheCellBetween) {
  Walk open({"*...", "####", "####"}, MazeKind::pipe);
  EXPECT_TRUE(open.canReach());
  Walk shut({"*#..", "####", "####"}, MazeKind::pipe);
  EXPECT_FALSE(shut.canReach());
}

TEST(TheLook, AsksInThe3dKindWhetherACellCanBeEntered) {
  Walk walk({"*.*", "###"}, MazeKind::threeD);
  EXPECT_FALSE(walk.canReach()) << "carved on both sides";
  Walk open({"*.#", "###"}, MazeKind::threeD);
  EXPECT_TRUE(open.canReach());
}

TEST(AFloodOfMoreCellsThanPassesWereWaited, IsGivenUpWithYes) {
  Walk walk({"*****", "#####"});
  walk.w.state.walker.passesSinceCarved = 4;
  EXPECT_TRUE(walk.canReach());
  walk.w.state.walker.passesSinceCarved = 5;
  EXPECT_FALSE(walk.canReach());
}

TEST(AWalkerBesideTheGrid, IsNotLookedAfter) {
  Walk walk({"**##", "####"});
  walk.w.state.cur = walk.w.state.cur.moved(3, 0);
  EXPECT_TRUE(walk.canReach());
  walk.w.state.cur = squareOf(1, 1);
  walk.w.state.walker.walkStart = squareOf(1, 1).moved(0, 3);
  EXPECT_TRUE(walk.canReach());
}

TEST(TheLook, PaintsNothingAndDrawsNoNumber) {
  Walk walk({"***#", "##*#", "##*."});
  const Bitmap before = walk.w.canvas.image();
  Random draws = walk.w.program.random;
  walk.pass(100);
  EXPECT_TRUE(samePicture(walk.w.canvas.image(), before));
  EXPECT_EQ(walk.w.program.random.oneTo(1'000'000), draws.oneTo(1'000'000));
  EXPECT_EQ(walk.w.state.cur, squareOf(1, 1));
}

const Text kTwoRooms = {"**##..", "**##..", "######", "######"};

TEST(TheRescue, ComesInTheHundredthPassInVainAndEachTimeTwiceAsManyHaveGoneBy) {
  for (const std::int64_t count : {100, 200, 400, 800, 1600}) {
    Walk walk(kTwoRooms);
    walk.pass(count);
    EXPECT_EQ(walk.w.state.cur, squareOf(5, 1)) << count;
    EXPECT_EQ(walk.w.state.walker.passesSinceCarved, 0);
  }
  for (const std::int64_t count : {1, 50, 99, 101, 150, 300, 500, 1200, 2399}) {
    Walk walk(kTwoRooms);
    walk.pass(count);
    EXPECT_EQ(walk.w.state.cur, squareOf(1, 1)) << count;
    EXPECT_EQ(walk.w.state.walker.passesSinceCarved, count);
  }
}

TEST(TheRescue, DoesNotComeWhereTheWalkerCanGetToFreeGround) {
  for (const std::int64_t count : {100, 200, 400, 800, 1600}) {
    Walk walk({"***#..", "##*#..", "##*.##", "######"});
    walk.pass(count);
    EXPECT_EQ(walk.w.state.cur, squareOf(1, 1));
    EXPECT_EQ(walk.w.state.walker.passesSinceCarved, count);
  }
}

TEST(TheRescueAfterTheLongWait, AsksNoLook) {
  Walk walk({"***#..", "##*#..", "##*.##", "######"});
  walk.pass(2400);
  EXPECT_NE(walk.w.state.cur, squareOf(1, 1));
}

TEST(TheRescueOfALook, SetsTheWalkerBesideCarvedGroundBeforeAllElse) {
  Walk walk({"*####.", "####*.", "######"});
  walk.pass(100);
  EXPECT_EQ(walk.w.state.cur, squareOf(5, 2));
  EXPECT_EQ(walk.w.state.walkMode, WalkMode::back);
}

TEST(TheRescueOfALook, LeavesTheFinishWhereNothingElseLiesBesideFreeGround) {
  Walk walk({"*####.", "####*.", "######"});
  walk.w.state.finish = squareOf(5, 2);
  walk.pass(100);
  EXPECT_EQ(walk.w.state.prev, squareOf(5, 2));
  EXPECT_EQ(walk.w.state.cur, squareOf(6, 2));
  EXPECT_EQ(walk.w.state.walkMode, WalkMode::carve);
}

TEST(ALookThatFindsNothingToDo, LetsTheCountGoOn) {
  Walk full({"**##", "####"});
  full.pass(100);
  EXPECT_EQ(full.w.state.walker.passesSinceCarved, 100);
  EXPECT_EQ(full.w.state.cur, squareOf(1, 1));
  Walk cut({"**####", "###*.*", "######"}, MazeKind::threeD);
  cut.pass(100);
  EXPECT_EQ(cut.w.state.walker.passesSinceCarved, 100);
  EXPECT_EQ(cut.w.state.cur, squareOf(1, 1));
}

TEST(ANewTreeIn3d, BeginsOnAnIslandAloneAfterTheLongWaitToo) {
  for (const std::int64_t count : {100, 100 * 24}) {
    Walk walk({"**####", "###*.*", "######", "####.."}, MazeKind::threeD);
    walk.pass(count);
    EXPECT_EQ(walk.w.state.cur, squareOf(5, 4)) << "not in the cell that is left between two corridors";
    EXPECT_EQ(walk.w.state.walkMode, WalkMode::carve);
  }
}

TEST(AWalkerThatLostItsWay, IsHeldBesideItsCellBeforeThatIsGivenUp) {
  Walk walk({"**##..", "####*.", "######"});
  walk.w.canvas.fill(squareOf(5, 1), kBlue);
  walk.pass(100);
  ASSERT_EQ(walk.w.state.cur, squareOf(5, 2));
  const CellCorner cell = walk.w.state.walker.help->cell;
  walk.w.state.cur = squareOf(1, 1);
  walk.pass(100);
  EXPECT_EQ(walk.w.state.cur, squareOf(5, 2));
  EXPECT_TRUE(isFreeForMaze(walk.w.program, cell.left, cell.top));
  EXPECT_TRUE(walk.w.state.walker.help->held);
  walk.w.state.cur = squareOf(1, 1);
  walk.pass(100);
  EXPECT_FALSE(isFreeForMaze(walk.w.program, cell.left, cell.top));
}

TEST(TheSearchForTheNextTree, GoesOnWhereTheLastOneEndedUnlessItsGroundIsPainted) {
  Walk walk({"*##.##", "######", "######", "######", "######", "######", "######", ".#####"});
  walk.pass(100);
  ASSERT_EQ(walk.w.state.cur, squareOf(4, 1));
  walk.pass(100);
  ASSERT_EQ(walk.w.state.cur, squareOf(1, 8));
  EXPECT_GE(walk.w.state.walker.rescueMemory.treesFromRow, 4);
  walk.w.canvas.fill(50, 10, 59, 19, kNavy);
  walk.pass(100);
  EXPECT_EQ(walk.w.state.cur, squareOf(4, 1)) << "beside a cell that has become free again";
  walk.w.canvas.fill(60, 30, 69, 39, kNavy);
  walk.w.canvas.fill(50, 10, 59, 19, kBlue);
  walk.pass(100);
  EXPECT_EQ(walk.w.state.cur, squareOf(6, 3));
}

TEST(TheSearchForTheNextTree, ComesToTheBandAboveItAfterTheGrid) {
  Text cells(12, "####");
  cells[1] = "#*##";
  cells[10] = "###.";
  for (const char* band : {"along the top", "along the left"}) {
    Walk walk(cells);
    const bool top = std::string(band) == "along the top";
    walk.w.canvas.fill(top ? Square{20, 0, 29, 9} : Square{0, 20, 9, 29}, kNavy);
    walk.pass(100);
    ASSERT_EQ(walk.w.state.cur, squareOf(4, 11)) << "the grid comes first";
    walk.pass(100);
    EXPECT_EQ(walk.w.state.cur, top ? squareOf(2, 0) : squareOf(0, 2)) << band;
    EXPECT_EQ(walk.w.state.walkMode, WalkMode::carve);
  }
}

/// Whether free ground is reached, by sets instead of marks and in no order.
bool reachesByHand(const Program& program) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  using Place = std::pair<int, int>;
  std::set<Place> seen;
  std::vector<Place> next{{s.cur.left, s.cur.top}};
  while (!next.empty()) {
    const auto [x, y] = next.back();
    next.pop_back();
    if (!seen.insert({x, y}).second) continue;
    for (const auto& [dx, dy] :
         {Place{-s.stepX, 0}, Place{s.stepX, 0}, Place{0, -s.stepY}, Place{0, s.stepY}}) {
      const int nx = x + dx;
      const int ny = y + dy;
      const bool between = s.mazeKind != MazeKind::pipe || isFreeForMaze(program, nx - dx / 2, ny - dy / 2);
      if (stopsFillCursor(program, nx, ny) && between) return true;
      if (pixels.maze(nx, ny)) {
        const bool finish = nx == s.finish.left && ny == s.finish.top;
        next.push_back(finish ? Place{s.walker.walkStart.left, s.walker.walkStart.top} : Place{nx, ny});
      } else if (s.mazeKind != MazeKind::pipe &&
                 (s.mazeKind == MazeKind::threeD || !pixels.background(nx, ny)) &&
                 pixels.maze(nx + dx, ny + dy)) {
        next.emplace_back(nx + dx, ny + dy);
      }
    }
  }
  return static_cast<std::int64_t>(seen.size()) > s.walker.passesSinceCarved;
}

TEST(TheLook, AnswersAsAFloodWithoutAnyMemory) {
  std::mt19937 chance(3);
  int reached = 0;
  constexpr int kTimes = 600;
  for (int times = 0; times < kTimes; ++times) {
    Text cells;
    for (int y = 0; y < 7; ++y) {
      std::string row;
      for (int x = 0; x < 9; ++x) row += "****####."[chance() % 9];
      cells.push_back(row);
    }
    cells[0][0] = '*';
    Walk walk(cells, static_cast<MazeKind>(chance() % 3));
    const int stride = walk.w.state.mazeKind == MazeKind::pipe ? 2 : 1;
    const auto anyCell = [&] {
      return squareOf(1 + stride * static_cast<int>(chance() % 4),
                      1 + stride * static_cast<int>(chance() % 3));
    };
    walk.w.state.finish = anyCell();
    walk.w.state.walker.walkStart = anyCell();
    walk.w.state.walker.passesSinceCarved = chance() % 2 == 0 ? 10 : 100;
    for (int strokes = 0; strokes < 4; ++strokes) {  // what is remembered has to follow the strokes
      ASSERT_EQ(walk.canReach(), reachesByHand(walk.w.program)) << textOf(walk.w.canvas.image());
      reached += walk.canReach();
      const Colour paint = std::array{kWhite, kBlue, kNavy}[chance() % 3];
      walk.w.canvas.fill(anyCell(), paint);
    }
  }
  EXPECT_GT(reached, kTimes / 4);
  EXPECT_LT(reached, 4 * kTimes * 3 / 4);
}

}  // namespace
}  // namespace gridwright::test
