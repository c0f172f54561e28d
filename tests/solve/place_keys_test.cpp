#include "solve/place_keys.h"

#include <gtest/gtest.h>

#include <array>

#include "colours/colour_repairs.h"
#include "state/grid.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Move {
  int code;
  bool finish;
  int dx, dy;
};
constexpr std::array kMoves = {
    Move{key::left, true, -1, 0}, Move{key::right, true, 1, 0}, Move{key::up, true, 0, -1},
    Move{key::down, true, 0, 1},  Move{key::J, false, -1, 0},   Move{key::L, false, 1, 0},
    Move{key::I, false, 0, -1},   Move{key::K, false, 0, 1},
};

/// The moved end in the middle of a field, the other one out of its way.
struct Placing : World {
  Placing(const Move& move, char besides, MazeKind kind = MazeKind::regular)
      : World(drawing(Text(9, std::string(9, '*')))) {
    state.phase = Phase::placing;
    state.mazeKind = kind;
    pitchFromKind(state);
    state.startColor = kFuchsia - 1;
    state.finishColor = kGrey + 1;
    own(move) = squareOf(5, 5);
    other(move) = squareOf(1, 1);
    const int cells = kind == MazeKind::pipe ? 2 : 1;
    const Square next = squareOf(5 + move.dx * cells, 5 + move.dy * cells);
    canvas.fill(next.left - 1, next.top - 1, next.right + 1, next.bottom + 1, colourOfLetter(besides));
  }
  Square& own(const Move& move) { return move.finish ? state.finish : state.start; }
  Square& other(const Move& move) { return move.finish ? state.start : state.finish; }
};

TEST(AnEnd, MovesOneCellOverCarvedGroundAndReadsWhatItCovers) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const Move& move : kMoves) {
      Placing w(move, '*', kind);
      placeKey(w.program, move.code);
      EXPECT_EQ(w.own(move), squareOf(5, 5).moved(move.dx * w.state.stepX, move.dy * w.state.stepY));
      EXPECT_EQ(move.finish ? w.state.ends.underFinish : w.state.ends.underStart, kWhite);
      EXPECT_EQ(w.other(move), squareOf(1, 1));
    }
  }
}

TEST(AnEnd, HopsOneCellOfAnythingButNotInPipes) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const char ground : {'.', '#'}) {
      for (const Move& move : kMoves) {
        Placing w(move, ground, kind);
        placeKey(w.program, move.code);
        const int by = kind == MazeKind::pipe ? 0 : 20;
        EXPECT_EQ(w.own(move), squareOf(5, 5).moved(move.dx * by, move.dy * by)) << move.code;
      }
    }
  }
}

TEST(AnEnd, NeverGoesOntoABorderOrAFreeCell) {
  for (const Move& move : kMoves) {
    Placing w(move, '#');
    const Square far = squareOf(5 + 2 * move.dx, 5 + 2 * move.dy);
    w.canvas.fill(far.left - 1, far.top - 1, far.right + 1, far.bottom + 1, kNavy);
    placeKey(w.program, move.code);
    EXPECT_EQ(w.own(move), squareOf(5, 5)) << move.code;
  }
}

TEST(AnEndInPipes, HopsOverTheOtherOneAndTheCoverGoesToTheFinishEitherWay) {
  for (const Move& move : kMoves) {
    Placing w(move, '*', MazeKind::pipe);
    w.other(move) = squareOf(5 + 2 * move.dx, 5 + 2 * move.dy);
    w.canvas.fill(w.other(move), move.finish ? w.state.startColor : w.state.finishColor);
    w.state.ends.underStart = w.state.ends.underFinish = 7;
    placeKey(w.program, move.code);
    EXPECT_EQ(w.own(move), squareOf(5, 5).moved(40 * move.dx, 40 * move.dy)) << move.code;
    EXPECT_EQ(w.state.ends.underFinish, kWhite);
    EXPECT_EQ(w.state.ends.underStart, 7);
  }
}

TEST(AMoveUp, IsMeasuredFromTheBottomEdge) {
  for (const Move& move : kMoves) {
    if (move.dy >= 0) continue;
    Placing w(move, '#');
    const Square next = squareOf(5, 4);
    // Carved at the square's bottom line alone: a probe from the top edge would miss it.
    w.canvas.fill(next.left, next.bottom, next.right, next.bottom, kWhite);
    placeKey(w.program, move.code);
    EXPECT_EQ(w.own(move), next);
  }
}

TEST(ColourKeys, StepThroughPlainBorderColoursWithTheNudgeAndStopAtTheEnds) {
  struct Row {
    int back, on;
    bool finish;
  };
  for (const Row& row : {Row{key::Z, key::X, false}, Row{key::N, key::M, true}}) {
    Placing w(kMoves[0], '*');
    std::vector<Colour> fit;
    for (const Colour c : w.program.colours.border()) {
      const bool unfit =
          (c >= 299 && c <= 401) || w.program.colours.isMaze(c) || w.program.colours.isBackground(c);
      if (!unfit) fit.push_back(c);
    }
    ASSERT_GT(fit.size(), 2U);
    Colour& colour = row.finish ? w.state.finishColor : w.state.startColor;
    const bool& moved = row.finish ? w.state.ends.finishColorMoved : w.state.ends.startColorMoved;
    colour = nudged(fit.front());
    placeKey(w.program, row.back);
    EXPECT_EQ(colour, nudged(fit.front())) << "no wrap-around";
    for (std::size_t i = 1; i < fit.size(); ++i) {
      placeKey(w.program, row.on);
      EXPECT_EQ(colour, nudged(fit[i]));
      EXPECT_NE(colour, fit[i]) << "never a palette colour";
    }
    placeKey(w.program, row.on);
    EXPECT_EQ(colour, nudged(fit.back()));
    placeKey(w.program, row.back);
    EXPECT_EQ(colour, nudged(fit[fit.size() - 2]));
    EXPECT_TRUE(moved);
    colour = 123456;
    placeKey(w.program, row.on);
    EXPECT_EQ(colour, 123456) << "in no slot";
  }
}

}  // namespace
}  // namespace gridwright::test
