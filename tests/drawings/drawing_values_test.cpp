#include "drawings/drawing_values.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <map>
#include <vector>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/disk_session.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

/// A session that loads records in which some values were changed, one record after the other.
struct ChangedRecords : DiskSession {
  explicit ChangedRecords(const TempFolder& folder)
      : DiskSession(folder.path(), drawing(Text(8, std::string(28, '.')))), temp(folder) {
    save("odd");
    look([this](Program& p) { fresh = recordOf(p).values; });
  }
  /// Loads a record with these changes and looks at what became of it.
  void change(const std::map<std::size_t, int>& changes,
              const std::function<void(const DrawingRecord&)>& then) {
    look([this, changes](Program&) {
      DrawingRecord drawing = parseDrawing(temp.get("odd.maze")).value();
      drawing.values = fresh;
      for (const auto& [place, value] : changes) drawing.values[place] = value;
      temp.put("odd.maze", formatDrawing(drawing));
    });
    load("odd");
    look([then](Program& p) { then(recordOf(p)); });
  }
  const TempFolder& temp;
  std::array<int, record::count> fresh{};
};

/// Values that cannot be, and the places where they cannot.
struct Impossible {
  std::vector<std::size_t> places;
  std::vector<int> values;
};

/// What needs no range of its own is left out: places that are read and not applied, wall sizes and the
/// kind, for which a record is refused, and squares.
std::vector<Impossible> impossibleValues() {
  namespace r = record;
  constexpr int kMost = std::numeric_limits<int>::max();
  constexpr int kLeast = std::numeric_limits<int>::min();
  const std::vector<int> noFlag = {kLeast, -1, 2, kMost};
  const std::vector<int> noColour = {kLeast, -1, 300, 331, 400, 0x1000000, kMost};
  std::vector<Impossible> rows = {{{r::difficultyLevel}, {kLeast, 0, 7, kMost}},
                                  {{r::playMode}, {kLeast, -1, 3, kMost}},
                                  {{r::finishMethod}, {kLeast, -1, 4, kMost}},
                                  {{r::creationMode}, {kLeast, -2, 0, 2, kMost}},
                                  {{r::pathSize}, {kLeast, 0, 3, kMost}},
                                  {{r::symmetryMode}, {kLeast, -1, 4, kMost}},
                                  {{r::patternState}, {kLeast, -1, 1, 2, 4, kMost}},
                                  {{r::randomPatternSize}, {kLeast, 1, 100, kMost}},
                                  {{r::randomStepsDone}, {kLeast, -1, 1000001, kMost}},
                                  {{r::randomPatternMode}, {kLeast, -1, 4, 6, kMost}},
                                  {{r::windowLeft}, {kLeast, -40000, 40000, kMost}},
                                  {{r::windowTop}, {kLeast, -40000, 40000, kMost}},
                                  {{r::windowHeight}, {kLeast, -1, 0, 40000, kMost}},
                                  {{r::windowWidth}, {kLeast, -1, 0, 40000, kMost}},
                                  {{r::phase}, {kLeast, -6, 1, kMost}}};
  for (const std::size_t flag :
       {r::drawingOff, r::trailOff, r::autoMinimize, r::individualMazeColors, r::stopAtFinish, r::reserved,
        r::randomFlagLeft, r::randomFlagRight, r::randomFlagUp, r::randomFlagDown, r::randomSizeVaries,
        r::randomUsesGo, r::mazeMadeOnce, r::pipeWidth}) {
    rows.push_back({{flag}, noFlag});
  }
  for (const std::size_t colour : {r::drawColor, r::startColor, r::finishColor, r::mazeColor, r::backColor,
                                   r::backgroundDrawColor, r::borderDrawColor}) {
    rows.push_back({{colour}, noColour});
  }
  Impossible swatches{{}, noFlag};
  Impossible mazeColors{{}, noColour};
  for (std::size_t i = 0; i < 16; ++i) {
    swatches.places.push_back(r::swatches + i);
    mazeColors.places.push_back(r::mazeColors + i);
  }
  rows.push_back(swatches);
  rows.push_back(mazeColors);
  return rows;
}

TEST(AValueThatCannotBe, TakesItsDefaultAndLeavesTheOthersAlone) {
  const TempFolder temp;
  ChangedRecords s(temp);
  for (const Impossible& row : impossibleValues()) {
    for (const int value : row.values) {
      std::map<std::size_t, int> changes;
      for (const std::size_t place : row.places) changes[place] = value;
      s.change(changes, [&s, first = row.places[0], value](const DrawingRecord& loaded) {
        for (std::size_t i = 0; i < record::count; ++i) {
          if (i == record::windowState) continue;  // always maximised after a load
          EXPECT_EQ(loaded.values[i], s.fresh[i]) << value << " as " << first + 1 << ": value " << i + 1;
        }
      });
    }
  }
  s.run();
  EXPECT_TRUE(s.desktop.messages.empty());
}

TEST(TheCountOfStepsInAPattern, GoesOnFromTheLargestThatARecordMayHold) {
  const TempFolder temp;
  ChangedRecords s(temp);
  s.change({{record::randomStepsDone, 1'000'000}},
           [](const DrawingRecord& loaded) { EXPECT_EQ(loaded.values[record::randomStepsDone], 1'000'000); });
  s.desktop.menu(Item::editpatterns);
  s.desktop.pumpsPass(3);
  s.desktop.act([](Program& p) { input::keyDown(p, key::down); });
  s.desktop.pumpsPass(2);
  s.look([](Program& p) { EXPECT_EQ(p.state.randomPatterns.randomStepsDone, 1'000'001); });
  s.run();
}

TEST(AnEndSquare, IsThatOfACellElseItIsNotPlaced) {
  const TempFolder temp;
  ChangedRecords s(temp);
  for (const std::size_t end : {record::start, record::finish}) {
    int kind = 0;
    const auto become = [&](const Square& square, const Square& wanted) {
      s.change({{record::mazeKind, kind},
                {end, square.left},
                {end + 1, square.top},
                {end + 2, square.right},
                {end + 3, square.bottom}},
               [end, square, wanted, kind](const DrawingRecord& loaded) {
                 const auto side = [&](std::size_t i) { return loaded.values[end + i]; };
                 EXPECT_EQ((Square{side(0), side(1), side(2), side(3)}), wanted)
                     << "kind " << kind << ": " << square.left << "," << square.top << " to " << square.right
                     << "," << square.bottom;
               });
    };
    for (kind = 0; kind <= 2; ++kind) {
      for (const Square& possible :
           {Square{11, 11, 18, 18}, Square{71, 31, 78, 38}, Square{0, 0, 0, 0}, Square{0, 0, -5, -5},
            Square{-10, -10, -10, -10}, Square{40, 40, 40, 40}})
        become(possible, possible);
      for (const Square& impossible :
           {Square{11, 11, 118, 18}, Square{11, 11, 18, 118}, Square{12, 11, 19, 18}, Square{11, 20, 18, 27},
            Square{18, 18, 11, 11}, Square{10, 10, 19, 19}, Square{311, 11, 318, 18},
            Square{-19, 11, -12, 18}, Square{-11, 0, 0, 0}, Square{-100, -100, -100, 0}})
        become(impossible, Square{});
      for (const Square& besidePipes :
           {Square{71, 21, 78, 28}, Square{61, 31, 68, 38}, Square{1, 11, 8, 18}, Square{41, 41, 48, 48}})
        become(besidePipes, kind == 1 ? Square{} : besidePipes);
    }
  }
  s.change({{record::finish, -100},
            {record::finish + 1, -100},
            {record::finish + 2, -100},
            {record::finish + 3, -100}},
           [](const DrawingRecord& loaded) { EXPECT_EQ(loaded.values[record::finish], -100); });
  s.run();
}

TEST(ADrawingWhoseEndsLieBesideTheGrid, HasAMazeThatIsSolved) {
  const Bitmap room = drawing(Text(8, "............"));
  struct Beside {
    int kind;
    Square square;
  };
  for (const std::size_t end : {record::start, record::finish}) {
    for (const Beside& beside :
         {Beside{0, {5000, 5000, 5000, 5000}}, Beside{0, {55, 51, 62, 58}}, Beside{0, {50, 50, 52, 52}},
          Beside{1, {41, 31, 48, 38}}, Beside{1, {31, 41, 38, 48}}}) {
      const Square& square = beside.square;
      SCOPED_TRACE(square.left);
      const TempFolder temp;
      DiskSession s(temp.path(), room);
      s.draw();
      s.save("odd");
      s.look([&](Program&) {
        DrawingRecord drawing = parseDrawing(temp.get("odd.maze")).value();
        drawing.values[record::mazeKind] = beside.kind;
        drawing.values[end] = square.left;
        drawing.values[end + 1] = square.top;
        drawing.values[end + 2] = square.right;
        drawing.values[end + 3] = square.bottom;
        temp.put("odd.maze", formatDrawing(drawing));
      });
      s.load("odd");
      s.desktop.menu(Item::cgenerate);
      s.desktop.menu(Item::newmaze);
      s.desktop.untilPhase(Phase::placing);
      s.desktop.pumpsPass(2);
      s.desktop.menu(Item::solvemaze);
      s.desktop.limit = 3'000'000;
      s.desktop.untilPhase(Phase::solved);
      s.run();
    }
  }
}

}  // namespace
}  // namespace gridwright::test
