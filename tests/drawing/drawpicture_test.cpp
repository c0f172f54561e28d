#include "drawing/drawpicture.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>

#include "session/input.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

/// A person at a blank Canvas, in navy.
struct Person : World {
  explicit Person(Size client = {200, 150}, Item kind = Item::rmazes, int wall = 10) : World(client) {
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.menu(kind);
    if (wall != 10) {
      desktop.menu(Item::newwallsize);
      desktop.enter(ControlId::Text2, std::to_string(wall));
    }
    desktop.pumpsPass(2);
    desktop.act([](Program& p) {
      p.state.drawColor = p.state.drawing.lastColor = kNavy;
      p.state.drawing.firstPaint = false;
    });
  }
  void key(int code) {
    desktop.act([code](Program& p) { input::keyDown(p, code); });
  }
};

std::set<std::pair<int, int>> painted(const Bitmap& picture, Colour colour) {
  std::set<std::pair<int, int>> cells;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (picture.at(x, y) == colour) cells.insert({x, y});
    }
  }
  return cells;
}

void addBox(std::set<std::pair<int, int>>& cells, int x1, int y1, int x2, int y2, Size size) {
  for (int y = std::max(0, std::min(y1, y2)); y <= std::min(size.height - 1, std::max(y1, y2)); ++y) {
    for (int x = std::max(0, std::min(x1, x2)); x <= std::min(size.width - 1, std::max(x1, x2)); ++x)
      cells.insert({x, y});
  }
}

TEST(AMove, SweepsTheOldPlaceTheNewOneAndAllBetween) {
  Person p;
  p.key(key::L);
  p.key(key::K);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  std::set<std::pair<int, int>> expected;
  addBox(expected, 10, 10, 29, 19, {200, 150});
  addBox(expected, 20, 10, 29, 29, {200, 150});
  EXPECT_EQ(painted(p.canvas.image(), kNavy), expected) << "two quick keys paint an L";
}

TEST(ASecondKeyInTheSamePump, IsLost) {
  Person p;
  p.desktop.act([](Program& q) {
    input::keyDown(q, key::L);
    input::keyDown(q, key::L);
  });
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.state.cur.left, 20);
}

TEST(WithDrawingOff, TheSquareMovesWithoutATrace) {
  Person p;
  p.key(key::slash);
  for (const int code : {key::L, key::L, key::K, key::left, key::D}) p.key(code);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  EXPECT_TRUE(painted(p.canvas.image(), kNavy).empty());
}

TEST(TheFirstStrokeWithAChangedColour, PaintsNothingUntilAPassWithTheSameColour) {
  Person p;
  p.desktop.act([](Program& q) {
    q.state.drawing.firstPaint = true;
    q.state.drawColor = kMaroon;
  });
  p.desktop.pumpsPass(1);
  p.desktop.look([](Program& q) { EXPECT_TRUE(painted(q.canvas.image(), kMaroon).empty()); });
  p.key(key::L);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  EXPECT_FALSE(painted(p.canvas.image(), kMaroon).empty());
}

TEST(TheOutline, IsLightRedOnTheScreenAloneAndRenewed) {
  Person p;
  p.key(key::L);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.canvas.point(20, 10), kRed);
  EXPECT_NE(p.canvas.image().at(20, 10), kRed);
  EXPECT_NE(p.canvas.point(10, 10), kRed) << "the old outline is gone";
}

TEST(AnIdleDrawing, WaitsForAPerson) {
  Person p;
  p.desktop.pumpsPass(5);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.desktop.lastPace, Pace::idle);
}

TEST(AResizedWindow, PutsASquareLeftOutsideOnTheFirstCellAndKeepsTheDrawing) {
  Person p;
  for (int i = 0; i < 15; ++i) p.key(key::L);
  p.desktop.act([](Program& q) { input::resized(q, {100, 80}); });
  p.desktop.pumpsPass(3);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.state.cur, (Square{10, 10, 19, 19}));
  EXPECT_EQ(p.canvas.image().at(55, 15), kNavy);
}

TEST(ABrushWhoseColourBecomesAMazeColour, TakesAnotherWhenThePanelHasGoneAndPaintsNothing) {
  Person p;
  p.key(key::L);
  p.desktop.pumpsPass(1);
  Bitmap before;
  p.desktop.look([&](Program& q) { before = q.canvas.image(); });
  p.desktop.menu(Item::choosew);
  p.desktop.pumpsPass(1);
  p.desktop.act([](Program& q) { input::swatchRight(q, classifySwatch(1)); });
  p.desktop.pumpsPass(3);
  p.desktop.look([&](Program& q) {
    EXPECT_TRUE(samePicture(q.canvas.image(), before)) << "nothing is painted under a panel";
    EXPECT_EQ(q.state.drawColor, kNavy);
  });
  p.desktop.click(ControlId::Command1);
  p.desktop.pumpsPass(3);
  p.desktop.look([&](Program& q) {
    EXPECT_EQ(q.state.drawColor, kBlack) << "the first background left";
    EXPECT_TRUE(samePicture(q.canvas.image(), before)) << "nobody has asked for a stroke";
  });
  p.key(key::L);
  p.desktop.pumpsPass(1);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.canvas.image().at(35, 15), kBlack) << "the next stroke has the new colour";
}

TEST(ResetAllColors, ChangesABrushOfWhiteWithoutABlot) {
  Person p;
  p.desktop.act([](Program& q) {
    q.colours.setAllMaze(kBlue);
    q.state.drawColor = q.state.drawing.lastColor = kWhite;
  });
  p.key(key::L);
  p.desktop.pumpsPass(1);
  Bitmap before;
  p.desktop.look([&](Program& q) { before = q.canvas.image(); });
  p.desktop.menu(Item::resetcolors);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.state.drawColor, kGrey);
  EXPECT_TRUE(samePicture(p.canvas.image(), before));
}

TEST(AColourPickedInSelectColor, PaintsTheSquareAsTheColourKeysDo) {
  for (const bool byKey : {false, true}) {
    Person p;
    p.key(key::L);
    if (byKey) {
      p.key(key::X);
    } else {
      p.desktop.menu(Item::selectcolor);
      p.desktop.act([](Program& q) { input::swatchLeft(q, drawingSwatch(2)); });
    }
    p.desktop.pumpsPass(2);
    EXPECT_EQ(p.run(), "");
    EXPECT_EQ(p.canvas.image().at(25, 15), kGreen);
  }
}

/// A person leaves the pattern editor in a window that has become another under it.
struct Returning : Person {
  explicit Returning(Size size) {
    for (int i = 0; i < 17; ++i) key(key::L);  // as far as it goes
    desktop.menu(Item::editpatterns);
    desktop.untilPhase(Phase::patternEditing);
    desktop.act([this, size](Program& q) {
      desktop.setClient(size);
      input::resized(q, size);
    });
    desktop.menu(Item::exitpattern);
    desktop.untilPhase(Phase::drawing);
  }
};

TEST(AWindowThatGrewUnderThePatternEditor, HasItsNewLimitsForTheFirstKey) {
  Returning p({400, 300});
  p.desktop.until([](const Program& q) { return q.state.editor.openDirection == 0; });
  int column = 0;
  p.desktop.look([&](Program& q) { column = q.state.cur.left; });
  for (int i = 0; i < 3; ++i) p.key(key::L);
  p.desktop.look([&](Program& q) {
    EXPECT_EQ(q.state.cur.left, column + 30) << "no key is lost at the old edge";
    EXPECT_EQ(q.state.canvasWidth, 400);
    EXPECT_EQ(q.state.canvasHeight, 300);
  });
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(column, 180) << "it stood at the old edge";
}

TEST(AWindowThatShrankUnderThePatternEditor, HasTheSquareInsideAtOnce) {
  Returning p({100, 80});
  p.desktop.until([](const Program& q) { return q.state.editor.openDirection == 0; });
  p.desktop.look([](Program& q) {
    EXPECT_EQ(q.state.cur, (Square{10, 10, 19, 19})) << "without any input";
    EXPECT_EQ(q.canvas.scaleWidth(), 100);
  });
  p.desktop.pumpsPass(1);
  p.desktop.look([](Program& q) { EXPECT_EQ(q.canvas.point(10, 10), kRed) << "and outlined there"; });
  EXPECT_EQ(p.run(), "");
}

/// Symmetry told afresh: the mirror is worked out from the square's first place alone, and then goes
/// against every move.
struct SlowTwin {
  Size canvas;
  int wall, pitch;
  bool pipe;
  Square square, mirror;
  std::set<std::pair<int, int>> cells;

  SlowTwin(Size size, int wallSize, bool isPipe)
      : canvas(size), wall(wallSize), pitch(isPipe ? 2 * wallSize : wallSize), pipe(isPipe) {
    square = {wall, wall, 2 * wall - 1, 2 * wall - 1};
    const auto last = [&](int extent) {
      int at = wall;
      while (at + pitch <= extent - pitch) at += pitch;
      return at;
    };
    const int w = wall - 1;
    // From the last column and row back by the square's own number, which is 1.
    const int left = last(size.width) - pitch + wall - w - 1 + (pipe ? pitch : 0);
    int top = last(size.height) + (pipe ? 0 : pitch) - pitch + wall - w - 1;
    if (wall != 5) top -= pitch;
    if (pipe) top += 2 * pitch;
    mirror = {left, top, left + w, top + w};
  }

  void stroke(const Square& from, const Square& to) {
    addBox(cells, from.left, from.top, to.right, to.bottom, canvas);
    addBox(cells, from.right, from.bottom, to.left, to.top, canvas);
  }
  void move(int dx, int dy, Symmetry mode) {
    const Square q = square;
    const Square m = mirror;
    square = square.moved(dx * pitch, dy * pitch);
    mirror = mirror.moved(-dx * pitch, -dy * pitch);
    stroke(q, square);
    const bool across = mode == Symmetry::horizontal || mode == Symmetry::fourWay;
    const bool down = mode == Symmetry::vertical || mode == Symmetry::fourWay;
    if (across)
      stroke({m.left, q.top, m.right, q.bottom}, {mirror.left, square.top, mirror.right, square.bottom});
    if (down)
      stroke({q.left, m.top, q.right, m.bottom}, {square.left, mirror.top, square.right, mirror.bottom});
    if (across && down) stroke(m, mirror);
  }
};

TEST(Strokes, AreMirroredAsTheSlowTwinMirrorsThem) {
  constexpr std::array kModes = {
      std::pair{Item::turnsoff, Symmetry::off}, std::pair{Item::horizontal, Symmetry::horizontal},
      std::pair{Item::vertical, Symmetry::vertical}, std::pair{Item::way4, Symmetry::fourWay}};
  std::mt19937 random(5);
  for (const bool pipe : {false, true}) {
    for (const int wall : {5, 6, 7, 10, 13, 25, 50}) {
      for (const int odd : {0, 1, wall / 2}) {
        for (const auto& [item, mode] : kModes) {
          const Size size{9 * wall + odd, 8 * wall + odd};
          Person p(size, pipe ? Item::mazes3d : Item::rmazes, wall);
          p.desktop.menu(item);
          SlowTwin twin(size, wall, pipe);
          for (int i = 0; i < 12; ++i) {
            const bool right = random() % 2 == 0;
            const int end = right ? twin.square.right + twin.pitch : twin.square.bottom + twin.pitch;
            if (end > (right ? size.width : size.height) - wall) continue;
            p.key(right ? key::L : key::K);
            twin.move(right, !right, mode);
          }
          p.desktop.pumpsPass(2);
          ASSERT_EQ(p.run(), "");
          ASSERT_EQ(painted(p.canvas.image(), kNavy), twin.cells)
              << "wall " << wall << " odd " << odd << " mode " << static_cast<int>(mode) << " pipe " << pipe;
        }
      }
    }
  }
}

TEST(ARegularDrawing, IsSymmetricAboutTheMiddleOfItsCells) {
  Person p({210, 160});
  p.desktop.menu(Item::way4);
  for (const int code : {key::L, key::K, key::L, key::L, key::K}) p.key(code);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  const Bitmap picture = p.canvas.image();
  const auto cells = painted(picture, kNavy);
  ASSERT_FALSE(cells.empty());
  for (const auto& [x, y] : cells) {
    EXPECT_TRUE(cells.contains({209 - x, y})) << x << ", " << y;
    EXPECT_TRUE(cells.contains({x, 159 - y})) << x << ", " << y;
  }
}

int outlinePixels(const Canvas& canvas) {
  int count = 0;
  for (int y = 0; y < canvas.scaleHeight(); ++y) {
    for (int x = 0; x < canvas.scaleWidth(); ++x) count += canvas.shownPoint(x, y) == kRed;
  }
  return count;
}

TEST(ASquareThatIsPutElsewhere, LeavesNoOutlineBehind) {
  constexpr int kOutline = 36;  // of a square of ten pixels
  Person resized;
  for (int i = 0; i < 15; ++i) resized.key(key::L);
  resized.desktop.act([](Program& p) { input::resized(p, {165, 150}); });
  resized.desktop.pumpsPass(2);
  EXPECT_EQ(resized.run(), "");
  EXPECT_EQ(resized.state.cur, (Square{10, 10, 19, 19}));
  EXPECT_EQ(outlinePixels(resized.canvas), kOutline);

  World piped;
  piped.begin(drawing(Text(10, ",,,,,,,,,,,,")));
  piped.desktop.look([](Program& p) { p.state.cur = p.state.prev = {20, 10, 29, 19}; });
  piped.desktop.pumpsPass(2);
  piped.desktop.menu(Item::create3dpipe);
  piped.desktop.pumpsPass(3);
  EXPECT_EQ(piped.run(), "");
  EXPECT_EQ(piped.state.cur.left, 10);
  EXPECT_EQ(outlinePixels(piped.canvas), kOutline);
}

TEST(TheOutline, IsLightRedOverALightRedDrawingToo) {
  Person p;
  p.desktop.act([](Program& q) { q.state.drawColor = q.state.drawing.lastColor = kRed; });
  p.key(key::L);
  p.key(key::K);
  p.desktop.pumpsPass(2);
  EXPECT_EQ(p.run(), "");
  EXPECT_EQ(p.canvas.image().at(20, 20), kRed) << "drawn";
  for (int i = 0; i < 10; ++i) EXPECT_EQ(p.canvas.shownPoint(p.state.cur.left + i, p.state.cur.top), kRed);
}

TEST(TheKeyC, JumpsToTheMiddleWithoutAStripeAndMeasuresTheMirrorAnew) {
  Person p(Size{400, 300});
  p.desktop.act([](Program& q) { q.state.symmetryMode = Symmetry::horizontal; });
  p.key(key::C);
  p.desktop.pumpsPass(3);
  EXPECT_EQ(p.run(), "");
  std::set<std::pair<int, int>> square;
  addBox(square, 10, 10, 19, 19, {400, 300});
  EXPECT_EQ(painted(p.canvas.image(), kNavy), square) << "the old place alone, and no mirror";
  EXPECT_EQ(p.state.cur.left, 18 * 10) << "38 columns: 37 lines between, half of them, less the wall size";
  EXPECT_EQ(p.state.cur.top, 13 * 10) << "28 rows";
  EXPECT_EQ(p.state.drawing.mirror.left, 380 - 180 + 10);
}

}  // namespace
}  // namespace gridwright::test
