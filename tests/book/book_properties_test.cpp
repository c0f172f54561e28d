// What holds of every maze of a book, whatever its picture and its settings: it is solved, both its ends lie
// in one region, and its list is true. A slow twin counts again, from nothing but the pixels.
//
// GRIDWRIGHT_BOOK_MAZES says how many mazes are looked at.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <set>
#include <string>

#include "pictures/ready.h"
#include "platform/book/make_maze.h"
#include "support/tunnel_reading.h"

namespace gridwright::test {
namespace {

using namespace book;

constexpr Colour kStartColour = 16711934, kOtherCorridor = 12632256;  // one off light magenta; silver

/// The mazes that chance orders: rooms of several colours with walls, pillars and holes.
class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  int from(int least, int most) {
    return least + static_cast<int>(random_() % static_cast<unsigned>(most - least + 1));
  }
  bool oneIn(int count) { return from(1, count) == 1; }

  SourcePicture picture() {
    Bitmap bitmap = plainBitmap(from(50, 420), from(50, 420), kPalette[9]);
    const int rooms = from(1, 6);
    for (int i = 0; i < rooms; ++i) block(bitmap, kPalette.at(static_cast<std::size_t>(from(1, 3))), 200);
    const int pillars = from(0, 8);
    for (int i = 0; i < pillars; ++i) block(bitmap, kPalette[10], 30);
    SourcePicture picture;
    picture.name = "chance";
    picture.picture = PackedPicture(bitmap);
    return picture;
  }

  MazeWish wish() {
    MazeWish wish;
    wish.kind = static_cast<MazeKind>(from(0, 2));
    wish.wall = from(5, 18);
    wish.difficulty = from(1, 6);
    wish.largePaths = oneIn(2);
    wish.shortUnderpasses = oneIn(2);
    if (oneIn(3)) wish.patterns = PatternWish{};
    if (oneIn(3)) wish.patterns = PatternWish{PatternWish::Kind::random, from(2, 12), {}};
    if (!oneIn(4)) wish.ends = static_cast<Ends>(from(0, 3));
    if (oneIn(4)) wish.mazeColours = {{1, 7}};
    return wish;
  }

 private:
  void block(Bitmap& bitmap, Colour colour, int largest) {
    const int left = from(0, bitmap.width - 1), top = from(0, bitmap.height - 1);
    const int right = std::min(bitmap.width, left + from(3, largest));
    const int bottom = std::min(bitmap.height, top + from(3, largest));
    for (int y = top; y < bottom; ++y) {
      for (int x = left; x < right; ++x) pixelAt(bitmap, x, y) = colour;
    }
  }
  std::mt19937 random_;
};

/// The slow twin.
class Recount {
 public:
  explicit Recount(const MadeMaze& made)
      : made_(made),
        wall_(made.record.settings.wall),
        maze_(made.maze, sets(), wall_, kind() != MazeKind::regular, 0) {
    findEnds();
  }

  /// What is wrong; empty when nothing is.
  std::string fault() {
    const MazeRecord& r = made_.record;
    if (start_ == -1 || finish_ == -1) return "an end is not there";
    reach_ = maze_.reachFrom(start_);
    if (!reach_[at(finish_)].reached) return "no way leads to the finish";
    for (int cell = finish_; cell != -1; cell = reach_[at(cell)].from) way_.insert(cell);
    int cells = 0, length = 0, deadEnds = 0, junctions = 0, mouths = 0;
    for (const int cell : maze_.carvedCells()) {
      cells += isOfKind(cell);
      if (!reach_[at(cell)].reached) continue;
      const auto& ways = maze_.waysFrom(cell);
      deadEnds += ways.size() == 1 && cell != start_ && cell != finish_;
      for (const auto& way : ways) mouths += way.span > 0;
      if (way_.count(cell) == 0) continue;
      length += isOfKind(cell);
      junctions +=
          std::any_of(ways.begin(), ways.end(), [&](const auto& way) { return way_.count(way.to) == 0; });
    }
    const auto compare = [](const char* what, int is, int counted) {
      return is == counted
                 ? std::string()
                 : std::string(what) + " " + std::to_string(is) + ", not " + std::to_string(counted) + "; ";
    };
    return compare("cells", r.cells, cells) + compare("way", r.wayLength, length) +
           compare("dead ends", r.deadEnds, deadEnds) + compare("junctions", r.junctions, junctions) +
           compare("underpasses", r.underpasses, mouths / 2) +
           compare("hundredths of difficulty", hundredths(r.difficulty), hundredths(difficulty())) +
           trailFault();
  }

 private:
  [[nodiscard]] MazeKind kind() const { return made_.record.settings.kind; }
  static std::size_t at(int cell) { return static_cast<std::size_t>(cell); }
  static int hundredths(double number) { return static_cast<int>(std::lround(number * 100)); }

  /// Whatever is no colour of the palette is an end.
  PlainSets sets() {
    PlainSets sets{startingSets()};
    sets.maze.push_back(kOtherCorridor);
    sets.maze.push_back(kStartColour);
    for (const Colour pixel : made_.maze.pixels) {
      const bool isPlain = std::find(kPalette.begin(), kPalette.end(), pixel) != kPalette.end();
      if (!isPlain && pixel != kStartColour) finishColour_ = pixel;
    }
    sets.maze.push_back(finishColour_);
    return sets;
  }

  void findEnds() {
    for (const int cell : maze_.carvedCells()) {
      const Square q = maze_.squareAt(cell);
      if (made_.maze.at(q.left, q.top) == kStartColour) start_ = cell;
      if (made_.maze.at(q.left, q.top) == finishColour_) finish_ = cell;
    }
  }

  [[nodiscard]] bool isOfKind(int cell) const {
    return kind() != MazeKind::pipe || (cell % maze_.columns() % 2 == 1 && cell / maze_.columns() % 2 == 1);
  }

  /// Which way a step between two cells goes: 0 along a row, 1 along a column, with its sign.
  [[nodiscard]] int direction(int from, int to) const {
    const int rows = to / maze_.columns() - from / maze_.columns();
    return rows == 0 ? (to > from ? 1 : -1) : (rows > 0 ? 2 : -2);
  }

  /// The weight of the step to a cell, and of all beyond it that leads away from the start.
  int weightBeyond(int first, bool onWay) {
    int weight = 0;
    std::vector<int> open{first};
    while (!open.empty()) {
      const int cell = open.back();
      open.pop_back();
      weight += weightOf(cell);
      for (const auto& way : maze_.waysFrom(cell)) {
        if (reach_[at(way.to)].from == cell && (way_.count(way.to) != 0) == onWay) open.push_back(way.to);
      }
    }
    return weight;
  }

  [[nodiscard]] int weightOf(int cell) const {
    int weight = isOfKind(cell);
    const int from = reach_[at(cell)].from;
    if (from == -1) return weight;
    const int before = reach_[at(from)].from;
    if (before != -1 && direction(before, from) != direction(from, cell)) ++weight;
    for (const auto& way : maze_.waysFrom(from)) {
      if (way.to == cell && way.span > 0) weight += 2;
    }
    return weight;
  }

  double difficulty() {
    double sum = std::log2(1 + weightBeyond(start_, true));
    for (const int cell : way_) {
      for (const auto& way : maze_.waysFrom(cell)) {
        if (way_.count(way.to) == 0 && reach_[at(way.to)].from == cell)
          sum += std::log2(1 + weightBeyond(way.to, false));
      }
    }
    return sum;
  }

  /// The trail runs through the cells of the way and through no others, and beside it nothing has changed.
  std::string trailFault() {
    for (const int cell : maze_.carvedCells()) {
      const Square q = maze_.squareAt(cell);
      bool any = false;
      for (int y = q.top; y <= q.bottom; ++y) {
        for (int x = q.left; x <= q.right; ++x) any = any || made_.answer.at(x, y) == kStartColour;
      }
      if (cell != finish_ && any != (way_.count(cell) != 0))
        return any ? "a stub of the trail" : "a gap in the trail";
    }
    // Where the trail was taken back a corridor may have another of its colours.
    const auto isCorridor = [](Colour pixel) { return pixel == kPalette[15] || pixel == kOtherCorridor; };
    for (std::size_t i = 0; i < made_.maze.pixels.size(); ++i) {
      const Colour is = made_.answer.pixels[i], was = made_.maze.pixels[i];
      if (is != was && is != kStartColour && !(isCorridor(is) && isCorridor(was)))
        return "a pixel beside the trail has changed";
    }
    return {};
  }

  const MadeMaze& made_;
  int wall_;
  Colour finishColour_ = kOutside;
  TunnelReading maze_;
  int start_ = -1, finish_ = -1;
  std::vector<TunnelReading::Reach> reach_;
  std::set<int> way_;
};

int howMany() {
  const char* said = std::getenv("GRIDWRIGHT_BOOK_MAZES");
  return said == nullptr ? 60 : std::atoi(said);
}

TEST(EveryMazeOfABook, IsSolvedWithinOneRegionAndItsListIsTrue) {
  Chance chance(19);
  int made = 0;
  for (int i = 0; i < howMany(); ++i) {
    const SourcePicture picture = chance.picture();
    const MazeWish wish = chance.wish();
    RegionStarts starts;
    const std::atomic<bool> stop = false;
    const auto seed = static_cast<std::uint32_t>(i) * 2654435761U;
    const auto maze = makeMaze({i + 1, seed, wish, picture, {}}, starts, stop);
    if (!maze) {
      EXPECT_TRUE(maze.fault().words == "fewer than three free cells" ||
                  maze.fault().words == "no two free cells hang together")
          << "maze " << i << ": " << maze.fault().words;
      continue;
    }
    ++made;
    EXPECT_EQ(Recount(maze.value()).fault(), "") << "maze " << i << ", seed " << seed;
    EXPECT_EQ(maze.value().record.settings.wall, wish.wall);
    EXPECT_EQ(maze.value().record.settings.kind, wish.kind);
  }
  EXPECT_GT(made, howMany() * 2 / 3);
}

}  // namespace
}  // namespace gridwright::test
