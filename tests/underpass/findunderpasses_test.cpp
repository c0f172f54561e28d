#include "underpass/findunderpasses.h"

#include <gtest/gtest.h>

#include <array>

#include "support/world.h"
#include "underpass/nocrosses.h"

namespace gridwright::test {
namespace {

/// A field with corridors in it: `O` a carved cell, `-` and `|` the joins between cells, `#` border.
/// The walker stands in the second column of the third row and steps right, or in a turned field.
struct Field : World {
  Field(const Text& map, MazeKind kind, int step, bool isShort = true)
      : World(drawing(cellsOf(map, isVertical(step)))) {
    state.mazeKind = kind;
    state.shortUnderpasses = isShort;
    const bool vertical = isVertical(step);
    const bool back = step == step::left || step == step::up;
    const int columns = (static_cast<int>(map[0].size()) + 1) / 2;
    const int rows = (static_cast<int>(map.size()) + 1) / 2;
    const auto place = [&](int along, int across) {
      const int a = back ? columns + 1 - along : along;
      return vertical ? squareOf(across, a) : squareOf(a, across);
    };
    for (int y = 0; y < static_cast<int>(map.size()); ++y) {
      for (int x = 0; x < static_cast<int>(map[0].size()); ++x) {
        const char letter = map[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
        const Square here = place(x / 2 + 1, y / 2 + 1);
        if (letter == 'O') canvas.fill(here, kWhite);
        if (letter == '#') {
          canvas.fill(here.left - 1, here.top - 1, here.right + 1, here.bottom + 1, kBlue);
        }
        if (letter != '-' && letter != '|') continue;
        const Square next = place(x / 2 + 1 + (letter == '-'), y / 2 + 1 + (letter == '|'));
        canvas.fill(std::min(here.left, next.left), std::min(here.top, next.top),
                    std::max(here.right, next.right), std::max(here.bottom, next.bottom), kWhite);
      }
    }
    state.stepCode = step;
    const int by = back ? -10 : 10;
    state.deltaX = vertical ? 0 : by;
    state.deltaY = vertical ? by : 0;
    state.cur = place(2, std::min(3, rows));
    canvas.fill(state.cur, kWhite);
    putProbe(state, state.cur.moved(2 * state.deltaX, 2 * state.deltaY));
    state.underpass.underpassOk = true;
    state.underpass.crossCount = 0;
  }

  static bool isVertical(int step) { return step == step::up || step == step::down; }
  static Text cellsOf(const Text& map, bool vertical) {
    std::size_t columns = (map[0].size() + 1) / 2;
    std::size_t rows = (map.size() + 1) / 2;
    if (vertical) std::swap(columns, rows);
    Text cells(rows, std::string(columns, '.'));
    return cells;
  }
  bool allows(int level) {
    state.difficultyLevel = level;
    findunderpasses(program);
    return state.underpass.underpassOk;
  }
};

/// One field, and for the difficulties 1 to 6 whether a tunnel may start there.
struct Row {
  const char* name;
  Text map;
  const char* answers;
};

const Row kOneCorridor = {"under one corridor",
                          {". . . O . . . . . .",  //
                           "      |            ",  //
                           ". . . O . . . . . .",  //
                           "      |            ",  //
                           ". . . O . . . . . .",  //
                           "      |            ",  //
                           ". . . O . . . . . .",  //
                           "      |            ",  //
                           ". . . O . . . . . ."},
                          "yyyyyy"};
const Row kAlong = {"along a corridor: two side by side",
                    {". . . O O . . . . .",  //
                     "      | |          ",  //
                     ". . . O O . . . . .",  //
                     "      | |          ",  //
                     ". . . O O . . . . .",  //
                     "      | |          ",  //
                     ". . . O O . . . . .",  //
                     "      | |          ",  //
                     ". . . O O . . . . ."},
                    "nnyyyy"};
const Row kGap = {"with a gap of one cell between corridors",
                  {". . . O . O . . . .",  //
                   "      |   |        ",  //
                   ". . . O . O . . . .",  //
                   "      |   |        ",  //
                   ". . . O . O . . . .",  //
                   "      |   |        ",  //
                   ". . . O . O . . . .",  //
                   "      |   |        ",  //
                   ". . . O . O . . . ."},
                  "nynyny"};
const Row kWideGap = {"with a gap of two cells between corridors",
                      {". . . O . . O . . .",  //
                       "      |     |      ",  //
                       ". . . O . . O . . .",  //
                       "      |     |      ",  //
                       ". . . O . . O . . .",  //
                       "      |     |      ",  //
                       ". . . O . . O . . .",  //
                       "      |     |      ",  //
                       ". . . O . . O . . ."},
                      "yyyyyy"};
const Row kBeside = {"beside a side corridor that ends under it",
                     {". . . O . O . . . .",  //
                      "      |   |        ",  //
                      ". . . O . O . . . .",  //
                      "      |   |        ",  //
                      ". . . O-O O . . . .",  //
                      "      |   |        ",  //
                      ". . . O . O . . . .",  //
                      "      |   |        ",  //
                      ". . . O . O . . . ."},
                     "nnnnyy"};
const Row kDeadEnd = {"under a dead end that nothing runs on from",
                      {". . . . . . . . . .",  //
                       "                   ",  //
                       ". . . . . . . . . .",  //
                       "                   ",  //
                       ". . . O . . . . . .",  //
                       "                   ",  //
                       ". . . . . . . . . .",  //
                       "                   ",  //
                       ". . . . . . . . . ."},
                      "nnnnnn"};
const Row kWalled = {"into a border",
                     {". . . O # # # # # #",  //
                      "      |            ",  //
                      ". . . O # # # # # #",  //
                      "      |            ",  //
                      ". . . O # # # # # #",  //
                      "      |            ",  //
                      ". . . O # # # # # #",  //
                      "      |            ",  //
                      ". . . O # # # # # #"},
                     "nnnnnn"};
const Row kEdge = {"out of the Canvas",
                   {". . . O",  //
                    "      |",  //
                    ". . . O",  //
                    "      |",  //
                    ". . . O",  //
                    "      |",  //
                    ". . . O",  //
                    "      |",  //
                    ". . . O"},
                   "nnnnnn"};

TEST(TheTrialSquare, HasItsLeadingEdgeWhereTheStepGoes) {
  const Square q{21, 31, 28, 38};
  for (const auto& [dx, dy] : {std::pair{10, 0}, std::pair{-10, 0}, std::pair{0, 10}, std::pair{0, -10}}) {
    ProgramState s;
    s.deltaX = dx;
    s.deltaY = dy;
    putProbe(s, q);
    EXPECT_EQ(s.underpass.probe, q);
    EXPECT_EQ(s.underpass.probeLeadX, dx > 0 ? 28 : 21) << dx << ", " << dy;
    EXPECT_EQ(s.underpass.probeLeadY, dy > 0 ? 38 : 31) << dx << ", " << dy;
  }
}

TEST(TheTableOfDifficulties, SaysForEachFieldInEachDirectionWhetherATunnelMayStart) {
  for (const Row* row : {&kOneCorridor, &kAlong, &kGap, &kWideGap, &kBeside, &kDeadEnd, &kWalled, &kEdge}) {
    for (const MazeKind kind : {MazeKind::pipe, MazeKind::threeD}) {
      for (const int step : {step::right, step::left, step::down, step::up}) {
        std::string answers;
        for (int level = 1; level <= 6; ++level) {
          Field field(row->map, kind, step);
          answers += field.allows(level) ? 'y' : 'n';
        }
        EXPECT_EQ(answers, row->answers)
            << row->name << ", kind " << static_cast<int>(kind) << ", step " << step;
      }
    }
  }
}

TEST(TheSearch, PaintsNothingAndMovesNothingButTheProbe) {
  Field field(kGap.map, MazeKind::threeD, step::right);
  const Bitmap before = field.canvas.image();
  const Square cur = field.state.cur;
  field.allows(4);
  EXPECT_TRUE(samePicture(field.canvas.image(), before));
  EXPECT_EQ(field.state.cur, cur);
}

TEST(LongPipes, CountTwoForACorridorBesideTheTunnelWhereShortOnesCountOne) {
  for (const bool isShort : {true, false}) {
    Field field(kBeside.map, MazeKind::pipe, step::right, isShort);
    EXPECT_TRUE(field.allows(6) || !isShort);
    EXPECT_EQ(field.state.underpass.crossCount, isShort ? 1 : 2);
  }
}

/// The probe stands where a tunnel would surface next.
bool surfacesFreely(const Text& map, int step) {
  Field field(map, MazeKind::threeD, step);
  nocrosses(field.program);
  return field.state.underpass.underpassOk;
}

const Text kAcrossBesideExit = {". . . . . . .",  //
                                "             ",  //
                                ". . . . O . .",  //
                                "             ",  //
                                ". . . . . . ."};
const Text kParallelBesideExit = {". . . . . . .",  //
                                  "             ",  //
                                  ". . . . O-O .",  //
                                  "             ",  //
                                  ". . . . . . ."};
const Text kMazeAhead = {". . . . . . .",  //
                         "             ",  //
                         ". . . . O . .",  //
                         "             ",  //
                         ". . . . O . ."};

TEST(ACorridorAcrossBesideTheExit, RefusesTheTunnelInEachDirection) {
  for (const int step : {step::right, step::left, step::down, step::up})
    EXPECT_FALSE(surfacesFreely(kAcrossBesideExit, step)) << step;
}

TEST(ACorridorParallelToTheTunnel, Passes) {
  for (const int step : {step::right, step::left, step::down, step::up})
    EXPECT_TRUE(surfacesFreely(kParallelBesideExit, step)) << step;
}

TEST(AMazePixelDirectlyAhead, RefusesNothingWhateverTheNeighboursAre) {
  for (const int step : {step::right, step::left, step::down, step::up})
    EXPECT_TRUE(surfacesFreely(kMazeAhead, step)) << step;
}

}  // namespace
}  // namespace gridwright::test
