#include "patterns/pattern_editor.h"

#include <gtest/gtest.h>

#include <optional>

#include "session/input.h"
#include "state/grid.h"
#include "state/key_codes.h"
#include "support/world.h"
#include "underpass/preview_pixels.h"

namespace gridwright::test {
namespace {

const Bitmap kPicture = drawing(Text(40, std::string(60, '.')));

/// A session that stands in the editor of one direction, over a drawing of one kind.
struct Editing : World {
  explicit Editing(MazeKind kind, Item direction = Item::editpatterns, const Bitmap& picture = kPicture)
      : World(Size{picture.width, picture.height}) {
    begin(picture);
    desktop.pumpsPass(2);
    desktop.look([kind](Program& p) {
      p.state.mazeKind = kind;
      pitchFromKind(p.state);
    });
    desktop.menu(direction);
    desktop.untilPhase(Phase::patternEditing);
    desktop.pumpsPass(2);
  }
  void key(int code, int count = 1) {
    for (int i = 0; i < count; ++i) desktop.act([code](Program& p) { input::keyDown(p, code); });
    desktop.pumpsPass(1);
  }
  void rebuild() {
    desktop.menu(Item::makeidentical);
    desktop.untilPhase(Phase::patternEditing);
    desktop.pumpsPass(2);
  }
  Steps saved(int direction) { return program.steps.steps(state.mazeKind, direction); }
  void leave() {
    desktop.menu(Item::exitpattern);
    desktop.until([](const Program& p) { return p.state.editor.openDirection == 0; });
    desktop.pumpsPass(2);
  }
};

class InEveryKind : public ::testing::TestWithParam<MazeKind> {};
INSTANTIATE_TEST_SUITE_P(Kinds, InEveryKind,
                         ::testing::Values(MazeKind::regular, MazeKind::pipe, MazeKind::threeD));

/// The field's picture is its cells: a dead end's black and the walked white are one path.
Bitmap pathsOf(Bitmap picture) {
  for (Colour& pixel : picture.pixels) {
    if (pixel == preview::marker) pixel = preview::path;
  }
  return picture;
}

TEST_P(InEveryKind, ThePatternOnTheFieldEqualsItsReplay) {
  Editing w(GetParam());
  constexpr int kRuns = 1000;
  int checked = 0;
  Bitmap live;
  Square at;
  for (int run = 0; run < kRuns; ++run) {
    w.desktop.look([run](Program& p) { p.state.randomPatterns.randomPatternSize = 2 + run % 60; });
    w.desktop.menu(Item::crpattern);
    w.desktop.until([](const Program& p) { return !p.state.editor.randomRunning; });
    w.desktop.pumpsPass(1);
    w.desktop.until([](const Program& p) { return !p.state.walker.sweepActive; });
    w.desktop.pumpsPass(1);
    w.desktop.look([&](Program& p) {
      live = p.canvas.image();
      at = p.state.cur;
    });
    w.rebuild();
    w.desktop.look([&, run](Program& p) {
      ASSERT_TRUE(samePicture(pathsOf(p.canvas.image()), pathsOf(live))) << "run " << run;
      EXPECT_TRUE(p.state.cur.sameCorner(at)) << "run " << run;
      ++checked;
    });
  }
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(checked, kRuns);
}

TEST_P(InEveryKind, LeavingGivesBackPictureGridWalkerAndMode) {
  Editing w(GetParam());
  w.key(key::left, 3);
  w.leave();
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.wallWidth, 10);
    EXPECT_EQ(p.state.stepX, p.state.mazeKind == MazeKind::pipe ? 20 : 10);
    EXPECT_EQ(p.state.editedPattern, 0);
    EXPECT_FALSE(p.state.panelOpen);
    EXPECT_EQ(static_cast<int>(p.state.editor.editorCallerPhase), -10);
    EXPECT_EQ(p.state.phase, Phase::drawing);
    EXPECT_FALSE(p.state.walker.sweepActive);
  });
  EXPECT_EQ(w.run(), "");
  const Bitmap image = w.canvas.image();
  for (int y = 100; y < 400; y += 7) {
    for (int x = 100; x < 600; x += 7) ASSERT_EQ(image.at(x, y), kNavy);
  }
}

TEST(AKeyIntoAFieldEdge, NeitherMovesNorRecords) {
  Editing w(MazeKind::regular);
  w.key(key::left, 60);  // 50 cells lie to the left, one of them walked
  Square edge;
  std::size_t written = 0;
  w.desktop.look([&](Program& p) {
    edge = p.state.cur;
    written = p.state.editor.openSteps.size();
    const Colour beyond = p.canvas.point(edge.left - 5, edge.top);
    EXPECT_EQ(beyond, preview::outside);
    EXPECT_EQ(written, 50U);
  });
  w.key(key::left, 3);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.state.cur.sameCorner(edge));
    EXPECT_EQ(p.state.editor.openSteps.size(), written);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheKeyG, DoesNothingWhileTheWalkerWalksBack) {
  Editing w(MazeKind::regular);
  w.key(key::up);
  w.key(key::G);
  std::size_t written = 0;
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(p.state.walkMode, WalkMode::back);
    EXPECT_EQ(p.state.editor.openSteps.back(), step::walkBack);
    written = p.state.editor.openSteps.size();
  });
  w.key(key::G);
  w.desktop.look([&](Program& p) { EXPECT_EQ(p.state.editor.openSteps.size(), written); });
  EXPECT_EQ(w.run(), "");
}

TEST(AfterG, TheWalkerGoesOverPathAndCarvesAgainOnFreshField) {
  Editing w(MazeKind::regular);  // the default is one step to the left
  w.key(key::up, 2);
  w.key(key::G);
  Square at;
  w.desktop.look([&](Program& p) { at = p.state.cur; });
  w.key(key::down);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.state.cur.sameCorner(at.moved(0, 5))) << "over path";
    EXPECT_EQ(p.state.walkMode, WalkMode::back);
  });
  w.key(key::left);
  w.desktop.look([&](Program& p) {
    EXPECT_TRUE(p.state.cur.sameCorner(at.moved(-5, 5))) << "onto fresh field";
    EXPECT_EQ(p.state.walkMode, WalkMode::carve);
    EXPECT_EQ(p.state.editor.openSteps, (Steps{1, 3, 3, 5, 4, 1}));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(AReplayLongerThanTheField, AddsEveryStepWithoutATest) {
  Editing w(MazeKind::regular);
  Square centre;
  w.desktop.look([&](Program& p) { centre = p.state.cur.moved(5, 0); });
  w.desktop.look([](Program& p) { p.state.editor.openSteps = Steps(70, step::right); });
  w.rebuild();
  w.desktop.look([&](Program& p) { EXPECT_TRUE(p.state.cur.sameCorner(centre.moved(350, 0))); });
  EXPECT_EQ(w.run(), "");
}

TEST(SwitchingFromLeftToUp, ClosesTheLeftPatternAndOpensTheFieldForUp) {
  Editing w(MazeKind::regular);
  w.key(key::down, 2);
  w.desktop.menu(Item::uppattern);
  w.desktop.pumpsPass(3);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.state.editedPattern, step::up);
    EXPECT_EQ(p.state.editor.openDirection, step::up);
    EXPECT_EQ(p.state.editor.openSteps, Steps{step::up});
    EXPECT_EQ(p.steps.steps(MazeKind::regular, step::left), (Steps{1, 4, 4}));
  });
  w.leave();
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(parseSteps(w.folder.texts["Left.pt"]), (Steps{1, 4, 4})) << "closed on disk too";
}

TEST(ChoosingTheDirectionAlreadyEdited, ChangesNothing) {
  Editing w(MazeKind::regular);
  w.key(key::up);
  int maximised = 0;
  w.desktop.look([&](Program&) { maximised = w.desktop.maximised; });
  w.desktop.menu(Item::editpatterns);
  w.desktop.pumpsPass(2);
  w.desktop.look([&](Program& p) {
    EXPECT_EQ(w.desktop.maximised, maximised);
    EXPECT_EQ(p.state.editor.openSteps, (Steps{1, 3}));
    EXPECT_EQ(p.state.editor.editorCallerPhase, Phase::drawing);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheField, HasItsPlaceByTheRule) {
  Editing w(MazeKind::regular);
  w.desktop.look([](Program& p) {
    // 610 wide: lines at 5, 10 ... while x + 5 <= 605, that is 120; the count begins at 1, so n = 121
    // and cx = 60 * 5 - 5. 410 high: 80 lines, n = 81, cy = 40 * 5 - 5.
    const int cx = 295;
    const int cy = 195;
    EXPECT_TRUE(p.state.cur.sameCorner(Square{cx - 5, cy, cx - 2, cy + 3})) << "after one step to the left";
    EXPECT_EQ(p.canvas.point(cx - 1 - 250, cy), preview::field);
    EXPECT_EQ(p.canvas.point(cx - 2 - 250, cy), preview::outside);
    EXPECT_EQ(p.canvas.point(cx - 1 + 255, cy), preview::field);
    EXPECT_EQ(p.canvas.point(cx + 255, cy), preview::outside);
    EXPECT_EQ(p.canvas.point(cx - 5, cy), preview::marker);
    EXPECT_EQ(p.canvas.point(cx, cy), preview::path);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheFieldInATallWindow, ReachesAsFarUpAndDownAsToTheSides) {
  Editing w(MazeKind::regular, Item::editpatterns, drawing(Text(70, std::string(40, '.'))));
  w.desktop.look([](Program& p) {
    // 140 lines of 5 pixels, n = 141, cy = 70 * 5 - 5.
    const int cx = 195;
    const int cy = 345;
    EXPECT_EQ(p.canvas.point(cx + 20, cy - 1 - 250), preview::field);
    EXPECT_EQ(p.canvas.point(cx + 20, cy - 2 - 250), preview::outside);
    EXPECT_EQ(p.canvas.point(cx + 20, cy - 1 + 255), preview::field);
    EXPECT_EQ(p.canvas.point(cx + 20, cy + 255), preview::outside);
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheFieldOfPipes, EndsTwentyFourPitchesFromTheMiddle) {
  Editing w(MazeKind::pipe);
  w.desktop.look([](Program& p) {
    // Lines at 5, 15 ... while x + 10 <= 600: 59, n = 60, cx = 29 * 10 - 5; 39, n = 40, cy = 19 * 10 - 5.
    const int cx = 285;
    const int cy = 185;
    EXPECT_EQ(p.canvas.point(cx - 1 - 240, cy + 40), preview::field);
    EXPECT_EQ(p.canvas.point(cx - 2 - 240, cy + 40), preview::outside);
    EXPECT_EQ(p.canvas.point(cx - 1 + 250 - 5, cy + 40), preview::field);
    EXPECT_EQ(p.canvas.point(cx + 250 - 5, cy + 40), preview::outside);
    EXPECT_TRUE(p.state.cur.sameCorner(Square{cx - 10, cy, 0, 0})) << "a pipe step is two cells";
  });
  EXPECT_EQ(w.run(), "");
}

TEST(TheEditorsCaption, NamesTheKindAndGivesTheDrawingsBack) {
  const std::map<MazeKind, std::pair<std::string, std::string>> captions = {
      {MazeKind::regular,
       {"Gridwright-(Editing '2d-maze' patterns)", "Gridwright-(drawing picture for 'Regular mazes')"}},
      {MazeKind::pipe,
       {"Gridwright-(Editing '3d-pipe-maze' patterns)", "Gridwright-(drawing picture for '3d-pipe-mazes')"}},
      {MazeKind::threeD,
       {"Gridwright-(Editing '3d-maze' patterns)", "Gridwright-(drawing picture for '3d-mazes')"}}};
  for (const auto& [kind, texts] : captions) {
    Editing w(kind);
    w.desktop.look([caption = texts.first](Program& p) { EXPECT_EQ(p.controls.caption(), caption); });
    w.leave();
    w.desktop.look([caption = texts.second](Program& p) { EXPECT_EQ(p.controls.caption(), caption); });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(WhileAPanelHoldsTheEditor, NoStepIsDrawnAndThePatternIsKept) {
  Editing w(MazeKind::regular);
  w.key(key::up);
  w.desktop.menu(Item::loadpatterns);
  w.desktop.pumpsPass(2);
  w.key(key::up, 2);
  w.desktop.look([](Program& p) {
    EXPECT_TRUE(p.state.paused);
    EXPECT_EQ(p.state.editor.openSteps, (Steps{1, 3}));
    EXPECT_FALSE(p.canvas.autoRedraw());
    input::escapePressed(p, ControlId::Text6);
  });
  w.desktop.pumpsPass(2);
  w.key(key::up);
  w.desktop.look([](Program& p) {
    EXPECT_TRUE(p.canvas.autoRedraw());
    EXPECT_EQ(p.state.editor.openSteps, (Steps{1, 3, 3}));
  });
  EXPECT_EQ(w.run(), "");
}

TEST(PatternsOfEveryLength, AreReplayedAndSaved) {
  for (const Steps& steps : {Steps{}, Steps(3000, step::walkBack), Steps(10000, step::left)}) {
    for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
      Editing w(kind);
      w.desktop.look([&](Program& p) { p.state.editor.openSteps = steps; });
      w.rebuild();
      w.leave();
      EXPECT_EQ(w.run(), "");
      EXPECT_EQ(w.saved(step::left), steps);
    }
  }
}

TEST(AQuitOutOfTheEditor, KeepsTheDrawingAndNotTheField) {
  Editing w(MazeKind::regular);
  w.desktop.menu(Item::quit2);
  w.desktop.untilPhase(Phase::title);
  EXPECT_EQ(w.run(), "");
  const Bitmap* kept = w.desktop.file("last-drawing.bmp");
  ASSERT_NE(kept, nullptr);
  EXPECT_TRUE(samePicture(*kept, kPicture));
}

TEST(AQuitOutOfTheEditorOverABlankPicture, LeavesTheLastDrawingAlone) {
  World w(Size{610, 410});
  w.desktop.putFile("last-drawing.bmp", kPicture);
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.act([](Program& p) { p.canvas.clearPicture(); });
  bool blank = false;
  w.desktop.look([&](Program& p) { blank = !p.canvas.showsAnything(); });
  w.desktop.menu(Item::editpatterns);
  w.desktop.untilPhase(Phase::patternEditing);
  w.desktop.menu(Item::quit2);
  w.desktop.untilPhase(Phase::title);
  EXPECT_EQ(w.run(), "");
  ASSERT_TRUE(blank);
  EXPECT_TRUE(samePicture(*w.desktop.file("last-drawing.bmp"), kPicture));
}

TEST(TheEditorsKeyHelp, LeavesThatOfTheMazeUnderneathAlone) {
  World w(Size{610, 410});
  w.begin(drawing(Text(40, std::string(60, ','))));
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(3);
  const auto helps = [&](bool pattern, bool drawingHelp) {
    w.desktop.look([=](Program& p) {
      EXPECT_TRUE(p.menus.enabled(Item::keysmaze));
      EXPECT_EQ(p.menus.enabled(Item::keyspattern), pattern);
      EXPECT_EQ(p.menus.enabled(Item::keysdrawing), drawingHelp);
    });
  };
  helps(false, false);
  w.desktop.menu(Item::editpatterns);
  w.desktop.untilPhase(Phase::patternEditing);
  w.desktop.pumpsPass(2);
  helps(true, false);
  w.desktop.menu(Item::exitpattern);
  w.desktop.until([](const Program& p) { return p.state.editor.openDirection == 0; });
  helps(false, true);
  EXPECT_EQ(w.run(), "");
}

TEST(WhatAWindowHides, ComesBackAfterTheEditor) {
  World w(Size{610, 410});
  w.begin(kPicture);
  w.desktop.pumpsPass(2);
  Colour hidden = 0;
  w.desktop.look([&](Program& p) { hidden = p.canvas.point(580, 390); });
  w.desktop.act([&](Program& p) {
    w.desktop.setClient({300, 200});
    input::resized(p, {300, 200});
  });
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::editpatterns);
  w.desktop.untilPhase(Phase::patternEditing);
  w.desktop.pumpsPass(2);
  w.desktop.act([&](Program& p) {
    w.desktop.setClient({610, 410});
    input::resized(p, {610, 410});  // too early: the field stands
  });
  w.desktop.look([](Program& p) { EXPECT_EQ(p.canvas.scaleWidth(), 300); });
  w.desktop.menu(Item::exitpattern);
  w.desktop.pumpsPass(4);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.canvas.scaleWidth(), 610) << "the drawing follows the window again";
  EXPECT_EQ(w.canvas.point(580, 390), hidden);
}

}  // namespace
}  // namespace gridwright::test
