#include "session/prepare_panel.h"

#include <gtest/gtest.h>

#include "pictures/ready.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Bitmap kRoom = drawing({"......", "......", "......", "......"});

/// A maroon box on white.
Bitmap boxOnWhite() {
  Bitmap picture = plainBitmap(70, 50, kWhite);
  for (int y = 10; y < 40; ++y)
    for (int x = 10; x < 60; ++x) pixelAt(picture, x, y) = kMaroon;
  return picture;
}

/// A room is drawn, and the panel is opened on a picture that came.
struct Panel : World {
  explicit Panel(Phase phase = Phase::drawing) : World(Size{kRoom.width, kRoom.height}) {
    const Bitmap box = boxOnWhite();
    desktop.picturesElsewhere["/box.png"] = {{box, {}}, {}, {box.width, box.height}};
    begin(kRoom);
    desktop.pumpsPass(2);
    if (phase != Phase::drawing) {
      desktop.menu(Item::cgenerate);
      desktop.menu(Item::createreg);
      desktop.untilPhase(phase);
    }
    desktop.act([](Program& p) { input::filesBrought(p, {"/box.png"}); });
    desktop.pumpsPass(1);
  }
  void act(BareDesktop::Action action) {
    desktop.act(std::move(action));
    desktop.pumpsPass(2);
  }
  void finish() { ASSERT_EQ(run(), ""); }
};

bool holdsOnlyPreparedColours(const Bitmap& picture) {
  for (const Colour pixel : picture.pixels) {
    const bool ofPalette = std::find(kPalette.begin(), kPalette.end(), pixel) != kPalette.end();
    if (pixel == kWhite || (!ofPalette && pixel != kPaper)) return false;
  }
  return true;
}

TEST(ThePanel, BeginsWithTheSettingsOfTheStartAndMaximisesTheWindow) {
  Panel p;
  p.finish();
  const PreparePanel& panel = p.program.prepare;
  EXPECT_TRUE(panel.open);
  EXPECT_EQ(panel.settings, PrepareSettings{});
  EXPECT_FALSE(panel.settings.asItsSize);
  EXPECT_EQ(panel.settings.colours, 6);
  EXPECT_EQ(panel.settings.detail, 3);
  EXPECT_EQ(p.desktop.windowState(), WindowState::maximised);
  ASSERT_NE(panel.made, nullptr);
  EXPECT_EQ(panel.line, prepareLine(*panel.made));
}

TEST(Use, MakesADrawingOfWhatCameOfItByTheRulesOfAnImport) {
  Panel p;
  Bitmap made;
  p.desktop.look([&made](Program& program) {
    made = program.prepare.made->picture;
    program.state.mazeMadeOnce = false;
    program.controls.setValue(classifySwatch(4), 0);
  });
  p.act(input::preparedAccepted);
  p.desktop.look([](Program& program) {
    EXPECT_FALSE(program.state.panelOpen || program.state.paused || program.prepare.open);
    EXPECT_TRUE(program.state.mazeMadeOnce);
    EXPECT_TRUE(program.menus.visible(Item::create3dpipe));
    EXPECT_TRUE(program.colours.isBackground(kMaroon)) << "all colours are reset";
  });
  p.finish();
  EXPECT_TRUE(samePicture(p.canvas.image(), made));
  EXPECT_TRUE(holdsOnlyPreparedColours(p.canvas.image()));
  EXPECT_EQ(p.canvas.image().at(1, 1), kPaper);
}

TEST(Use, KeepsWhatWasDrawn) {
  Panel p;
  p.act(input::preparedAccepted);
  p.desktop.look([&p](Program&) {
    ASSERT_NE(p.desktop.file("last-drawing.bmp"), nullptr);
    EXPECT_TRUE(samePicture(*p.desktop.file("last-drawing.bmp"), kRoom));
  });
  p.finish();
}

TEST(UseOverAMaze, GoesBackToTheDrawingFirst) {
  for (const Phase phase : {Phase::making, Phase::placing}) {
    Panel p(phase);
    p.desktop.look([phase](Program& program) { EXPECT_EQ(program.state.phase, phase); });
    p.act(input::preparedAccepted);
    p.desktop.look([&p](Program& program) {
      EXPECT_EQ(program.state.phase, Phase::drawing);
      EXPECT_TRUE(samePicture(*p.desktop.file("last-drawing.bmp"), kRoom)) << "the drawing, without its maze";
    });
    p.finish();
    EXPECT_TRUE(holdsOnlyPreparedColours(p.canvas.image()));
  }
}

TEST(Cancel, LeavesEverythingAsItWas) {
  Panel p;
  p.desktop.look([](Program& program) { program.controls.setValue(classifySwatch(4), 0); });
  p.act(input::preparationCancelled);
  p.finish();
  EXPECT_TRUE(samePicture(p.canvas.image(), kRoom));
  EXPECT_FALSE(p.program.colours.isBackground(kMaroon));
  EXPECT_FALSE(p.state.panelOpen || p.state.paused || p.program.prepare.open);
}

TEST(AsItIs, TakesThePictureUnchangedAndLeavesTheColours) {
  Panel p;
  p.desktop.look([](Program& program) { program.controls.setValue(classifySwatch(4), 0); });
  p.act(input::pictureAcceptedAsItIs);
  p.finish();
  const Bitmap box = boxOnWhite();
  for (int y = 0; y < kRoom.height; ++y) {
    for (int x = 0; x < kRoom.width; ++x) {
      const bool inside = x < box.width && y < box.height;
      ASSERT_EQ(p.canvas.image().at(x, y), inside ? box.at(x, y) : kYellow) << x << ", " << y;
    }
  }
  EXPECT_FALSE(p.program.colours.isBackground(kMaroon));
}

TEST(AsItIs, DoesNothingWhenTheCanvasDoesNotHoldThePicture) {
  World w(Size{kRoom.width, kRoom.height});
  const Bitmap wide = plainBitmap(kRoom.width + 1, 10, 0x123456);
  w.desktop.picturesElsewhere["/wide.png"] = {{wide, {}}, {}, {wide.width, wide.height}};
  w.begin(kRoom);
  w.desktop.pumpsPass(2);
  w.desktop.act([](Program& p) { input::filesBrought(p, {"/wide.png"}); });
  w.desktop.act(input::pictureAcceptedAsItIs);
  w.desktop.pumpsPass(1);
  ASSERT_EQ(w.run(), "");
  EXPECT_TRUE(w.program.prepare.open);
  EXPECT_TRUE(samePicture(w.canvas.image(), kRoom));
}

TEST(ChangedSettings, ComeOutInTheDrawing) {
  Panel p;
  p.act([](Program& program) {
    PrepareSettings settings = program.prepare.settings;
    settings.grow = std::vector<int>{};
    input::preparationChanged(program, settings);
  });
  p.desktop.look([](Program& program) {
    EXPECT_EQ(program.prepare.line, prepareLine(*program.prepare.made));
    EXPECT_EQ(program.prepare.made->count.cells, 0) << "no colour is ticked";
  });
  p.act(input::preparedAccepted);
  p.finish();
  for (const Colour pixel : p.canvas.image().pixels) ASSERT_FALSE(p.program.colours.isBackground(pixel));
}

TEST(UseWhileWorkIsUnderWay, WaitsForTheLastSettings) {
  Panel p;
  p.act([&p](Program& program) {
    p.desktop.worksLater = true;
    PrepareSettings settings = program.prepare.settings;
    settings.grow = std::vector<int>{};
    input::preparationChanged(program, settings);
    input::preparedAccepted(program);
  });
  p.desktop.look([](Program& program) {
    EXPECT_TRUE(program.prepare.open);
    EXPECT_TRUE(samePicture(program.canvas.image(), kRoom));
  });
  p.act([&p](Program& program) { (*p.desktop.workUnderWay)()(program); });
  p.finish();
  EXPECT_FALSE(p.program.prepare.open);
  for (const Colour pixel : p.canvas.image().pixels) ASSERT_FALSE(p.program.colours.isBackground(pixel));
}

TEST(WorkThatComesAfterTheCancel, ChangesNothing) {
  Panel p;
  p.act([&p](Program& program) {
    p.desktop.worksLater = true;
    PrepareSettings settings = program.prepare.settings;
    settings.colours = 2;
    input::preparationChanged(program, settings);
    input::preparedAccepted(program);
    input::preparationCancelled(program);
  });
  p.act([&p](Program& program) { (*p.desktop.workUnderWay)()(program); });
  p.finish();
  EXPECT_TRUE(samePicture(p.canvas.image(), kRoom));
  EXPECT_FALSE(p.program.prepare.open);
}

TEST(AResizeUnderThePanel, PreparesAnewForTheNewSize) {
  Panel p;
  p.act([&p](Program& program) {
    p.desktop.setClient({90, 80});
    input::resized(program, {90, 80});
  });
  p.finish();
  ASSERT_NE(p.program.prepare.made, nullptr);
  EXPECT_EQ(p.program.prepare.made->picture.width, 90);
  EXPECT_EQ(p.program.prepare.made->picture.height, 80);
}

TEST(PrepareThisPicture, OpensThePanelOnWhatIsOnTheCanvas) {
  World w(Size{kRoom.width, kRoom.height});
  w.begin(kRoom);
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::preparepicture);
  w.desktop.pumpsPass(1);
  ASSERT_EQ(w.run(), "");
  ASSERT_TRUE(w.program.prepare.open);
  EXPECT_TRUE(samePicture(w.program.prepare.picture->whole.colours, kRoom));
}

TEST(PrepareThisPicture, IsOffWhereThereIsNoDrawing) {
  World w(drawing({"...", "..."}));  // a maze is made
  w.program.menus.setVisible(Item::filet, true);
  input::menuClick(w.program, Item::preparepicture);
  EXPECT_FALSE(w.program.prepare.open);
  EXPECT_FALSE(w.state.panelOpen);
}

TEST(AKeyUnderThePanel, IsLost) {
  Panel p;
  Square before;
  p.desktop.look([&before](Program& program) { before = program.state.cur; });
  p.act([](Program& program) { input::keyDown(program, 76); });
  p.desktop.look([&before](Program& program) { EXPECT_EQ(program.state.cur, before); });
  p.finish();
}

}  // namespace
}  // namespace gridwright::test
