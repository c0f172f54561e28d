#include "session/stages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "session/input.h"
#include "session/main_loop.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const Text kRoom = {".....", ".....", "....."};

TEST(EachPhase, HasItsStage) {
  EXPECT_EQ(stageOf(Phase::quitToTitle), Stage::title);
  EXPECT_EQ(stageOf(Phase::title), Stage::title);
  EXPECT_EQ(stageOf(Phase::drawing), Stage::drawing);
  EXPECT_EQ(stageOf(Phase::making), Stage::making);
  EXPECT_EQ(stageOf(Phase::placing), Stage::ends);
  EXPECT_EQ(stageOf(Phase::solving), Stage::solving);
}

/// The jump table: from a stage, left with a phase, to a stage.
struct Jump {
  Stage from;
  Phase phase;
  Stage to;
};

Stage after(Stage from, Phase phase) {
  World w(drawing(kRoom));
  ProgramState& s = w.state;
  s.phase = from == Stage::drawing   ? Phase::drawing
            : from == Stage::making  ? Phase::making
            : from == Stage::ends    ? Phase::placing
            : from == Stage::solving ? Phase::solving
                                     : Phase::title;
  s.creationMode = CreationMode::computer;
  s.start = s.walker.walkStart = squareOf(1, 1);
  s.finish = squareOf(4, 3);
  s.cur = s.prev = squareOf(1, 1);
  if (from == Stage::ends || from == Stage::solving)
    w.canvas.paintPicture(drawing({"*****", "*****", "*****"}));
  w.program.pictures.save("drawing1.bmp", drawing(kRoom));
  w.program.pictures.save("drawing1b.bmp", drawing(kRoom));
  w.desktop.act([phase](Program& p) { p.state.phase = phase; });
  w.desktop.pumpsPass(1000);
  return runStage(w.program, from);
}

TEST(TheJumps, AreThoseOfTheTable) {
  const std::vector<Jump> table = {
      {Stage::title, Phase::drawing, Stage::leaveTitle},  {Stage::title, Phase::quitToTitle, Stage::title},
      {Stage::drawing, Phase::making, Stage::checks},     {Stage::drawing, Phase::quitToTitle, Stage::title},
      {Stage::making, Phase::placing, Stage::ends},       {Stage::making, Phase::drawing, Stage::drawing},
      {Stage::making, Phase::quitToTitle, Stage::title},  {Stage::ends, Phase::solving, Stage::solving},
      {Stage::ends, Phase::making, Stage::making},        {Stage::ends, Phase::drawing, Stage::drawing},
      {Stage::ends, Phase::quitToTitle, Stage::title},    {Stage::solving, Phase::placing, Stage::ends},
      {Stage::solving, Phase::making, Stage::making},     {Stage::solving, Phase::drawing, Stage::drawing},
      {Stage::solving, Phase::quitToTitle, Stage::title},
  };
  for (const Jump& jump : table) {
    EXPECT_EQ(after(jump.from, jump.phase), jump.to)
        << "from stage " << static_cast<int>(jump.from) << " with phase " << static_cast<int>(jump.phase);
  }
}

TEST(AfterTheTitle, ComesTheDrawing) {
  World w;
  EXPECT_EQ(runStage(w.program, Stage::processStart), Stage::title);
  EXPECT_EQ(runStage(w.program, Stage::leaveTitle), Stage::drawing);
}

TEST(APanel, HoldsAStageThatIsEnteredAndAnotherPhaseThenGoesWhereItBelongs) {
  for (const Stage stage : {Stage::drawing, Stage::making, Stage::ends}) {
    World w(drawing(kRoom));
    w.state.phase = stage == Stage::drawing  ? Phase::drawing
                    : stage == Stage::making ? Phase::making
                                             : Phase::placing;
    w.state.panelOpen = true;
    w.desktop.pumpsPass(50);
    w.desktop.act([](Program& p) {
      p.state.panelOpen = false;
      p.state.phase = Phase::quitToTitle;
    });
    w.desktop.pumpsPass(50);
    EXPECT_EQ(runStage(w.program, stage), Stage::title);
    EXPECT_EQ(w.desktop.lastPace, Pace::idle);
  }
}

TEST(APhaseThatNoStageWaitsFor, KeepsTheCommandsWorkingUntilOneDoes) {
  World w(drawing({"**...", ".....", "....."}));
  w.state.phase = Phase::solving;
  w.state.start = squareOf(1, 1);
  w.state.finish = squareOf(4, 3);
  w.desktop.act([](Program& p) { p.state.phase = Phase::patternEditing; });
  w.desktop.pumpsPass(20);
  w.desktop.act([](Program& p) { p.state.phase = Phase::making; });
  w.desktop.pumpsPass(5);
  EXPECT_EQ(runStage(w.program, Stage::solving), Stage::making);
}

TEST(TheChecks, SendADrawingWithFewerThanThreeFreeCellsBackAndSayWhy) {
  for (const Text& cells : {Text{"####", "####"}, Text{".###", "###."}}) {
    World w(drawing(cells));
    w.state.phase = Phase::making;
    w.state.cur = squareOf(2, 2);
    EXPECT_EQ(runStage(w.program, Stage::checks), Stage::drawing);
    EXPECT_EQ(w.state.phase, Phase::drawing);
    EXPECT_EQ(w.state.drawing.savedCur, squareOf(2, 2));
    EXPECT_TRUE(w.canvas.autoRedraw());
    EXPECT_TRUE(w.desktop.saves.empty()) << "no picture is written";
    EXPECT_TRUE(w.desktop.messages.empty()) << "nothing that holds a person up";
    EXPECT_EQ(w.program.notices.words(),
              "Nothing to fill: fewer than three cells of a background colour are free");
  }
  World three(drawing({"..##", "###."}));
  three.state.phase = Phase::making;
  EXPECT_EQ(runStage(three.program, Stage::checks), Stage::making);
}

TEST(TheChecks, CountTheLastColumnAndRow) {
  World w(drawing({"###.", "###.", "###."}));
  w.state.phase = Phase::making;
  EXPECT_EQ(runStage(w.program, Stage::checks), Stage::making);
}

TEST(TheChecks, WriteBothPicturesOfTheDrawingWithoutTheBrush) {
  World w(drawing(kRoom));
  w.canvas.setAutoRedraw(false);
  w.canvas.outline(10, 10, 19, 19, kRed);
  w.state.phase = Phase::making;
  EXPECT_EQ(runStage(w.program, Stage::checks), Stage::making);
  EXPECT_TRUE(samePicture(*w.desktop.file("drawing1.bmp"), drawing(kRoom)));
  EXPECT_TRUE(samePicture(*w.desktop.file("drawing1b.bmp"), drawing(kRoom)));
  EXPECT_EQ(w.canvas.point(10, 10), kNavy);
}

TEST(ADrawing, IsTightForPipesWhenFewerThanThreeCellsAreFreeAtTheirPitch) {
  for (const bool tight : {false, true}) {
    World w(drawing(tight ? Text{".....", "#####", "....."} : Text{".....", ".....", "....."}));
    if (tight) w.canvas.fill(squareOf(1, 1), kBlue);
    if (tight) w.canvas.fill(squareOf(3, 1), kBlue);
    if (tight) w.canvas.fill(squareOf(5, 1), kBlue);
    if (tight) w.canvas.fill(squareOf(1, 3), kBlue);
    w.program.menus.setVisible(Item::create3dpipe, true);
    w.state.phase = Phase::making;
    EXPECT_EQ(runStage(w.program, Stage::checks), Stage::making);
    EXPECT_EQ(w.state.session.tightForPipes, tight);
  }
}

TEST(TheWorkPictures, AreWrittenAtTheirMoments) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::cgenerate);
  w.desktop.look([&](Program&) { EXPECT_EQ(w.desktop.saves, std::vector<std::string>{"title.bmp"}); });
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.desktop.saves, (std::vector<std::string>{"title.bmp", "drawing1.bmp", "drawing1b.bmp",
                                                       "drawing3.bmp", "drawing2.bmp", "last-drawing.bmp"}))
      << "the close keeps what is drawn";
}

TEST(TheMazeStage, TellsHowFarThePresentMazeHasCome) {
  World w;
  w.begin(drawing(kRoom));
  w.desktop.menu(Item::cgenerate);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.mazeStage, Phase::drawing); });
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.mazeStage, Phase::making); });
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solved);
  w.desktop.pumpsPass(1);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.state.mazeStage, Phase::solving); });
  EXPECT_EQ(w.run(), "");
}

TEST(TheWindowsCaption, TellsWhatTheProgramDoes) {
  World w;
  w.desktop.look([](Program& p) { EXPECT_EQ(p.controls.caption(), "Gridwright-by Orrin Vale"); });
  w.begin(drawing(kRoom));
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.controls.caption(), "Gridwright-(drawing picture for 'Regular mazes')");
  });
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.look([](Program& p) { EXPECT_EQ(p.controls.caption(), "Gridwright-(creating 2d-maze)"); });
  w.desktop.untilPhase(Phase::placing);
  w.desktop.look(
      [](Program& p) { EXPECT_EQ(p.controls.caption(), "Gridwright-(placing start and finish)"); });
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(Phase::solving);
  w.desktop.pumpsPass(1);
  w.desktop.look(
      [](Program& p) { EXPECT_EQ(p.controls.caption(), "Gridwright-(computer is solving maze)"); });
  w.desktop.untilPhase(Phase::solved);
  w.desktop.look(
      [](Program& p) { EXPECT_EQ(p.controls.caption(), "Gridwright-(computer has solved maze)"); });
  EXPECT_EQ(w.run(), "");
}

/// Takes a session into a phase, from the title on.
void bringTo(World& w, Phase phase) {
  if (phase == Phase::title) return;
  w.begin(drawing(Text(10, std::string(12, '.'))));
  w.desktop.menu(Item::cgenerate);
  if (phase == Phase::drawing) return;
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  if (phase == Phase::making) return;
  w.desktop.untilPhase(Phase::placing);
  if (phase == Phase::placing) return;
  w.desktop.menu(Item::solvemaze);
  w.desktop.untilPhase(phase);
}

TEST(AQuitToTheTitle, StartsFromNothingWhicheverPhaseItComesIn) {
  for (const Phase phase : {Phase::drawing, Phase::making, Phase::placing, Phase::solving, Phase::solved}) {
    SCOPED_TRACE(static_cast<int>(phase));
    World w;
    bringTo(w, phase);
    w.desktop.act([](Program& p) {
      p.state.wallWidth = p.state.wallHeight = 20;
      p.state.mazeKind = MazeKind::threeD;
      p.state.difficultyLevel = 6;
      p.state.stopAtFinish = true;
      p.state.pathSize = 2;
      p.state.playMode = PlayMode::hard;
      p.state.drawingOff = true;
      p.state.symmetryMode = Symmetry::fourWay;
      p.state.randomPatterns.randomPatternSize = 77;
      p.state.randomPatterns.randomSizeVaries = true;
      p.state.autoMinimize = true;
      p.state.trailOff = true;
      p.state.finishMethod = FinishMethod::largest;
    });
    w.desktop.menu(Item::quit2);
    w.desktop.untilPhase(Phase::title);
    w.desktop.pumpsPass(2);
    w.desktop.look([](Program& p) {
      EXPECT_EQ(p.controls.caption(), "Gridwright-by Orrin Vale");
      EXPECT_TRUE(p.controls[ControlId::Command2].visible);
      EXPECT_FALSE(p.menus.available(Item::newmaze));
      EXPECT_EQ(p.state.randomPatterns.randomPatternSize, 5);
      EXPECT_FALSE(p.state.randomPatterns.randomSizeVaries);
      EXPECT_FALSE(p.state.stopAtFinish);
      EXPECT_FALSE(p.state.autoMinimize);
      EXPECT_FALSE(p.state.drawingOff);
      EXPECT_FALSE(p.state.trailOff);
      EXPECT_EQ(p.state.symmetryMode, Symmetry::off);
      EXPECT_EQ(p.state.finishMethod, FinishMethod::user);
      EXPECT_EQ(p.state.startColor, kFuchsia);
    });
    w.desktop.click(ControlId::Command2);
    w.desktop.untilPhase(Phase::drawing);
    w.desktop.pumpsPass(2);
    w.desktop.look([](Program& p) {
      EXPECT_EQ(p.state.wallWidth, 10);
      EXPECT_EQ(p.state.stepX, 10);
      EXPECT_EQ(p.state.mazeKind, MazeKind::regular);
      EXPECT_EQ(p.state.difficultyLevel, 4);
      EXPECT_EQ(p.state.pathSize, 1);
      EXPECT_EQ(p.state.creationMode, CreationMode::user);
      EXPECT_EQ(p.state.playMode, PlayMode::off);
      EXPECT_FALSE(p.state.mazeMadeOnce);
      EXPECT_EQ(p.state.drawColor, kYellow);
      EXPECT_EQ(p.state.backgroundDrawColor, kNavy);
      EXPECT_EQ(p.state.borderDrawColor, kYellow);
      EXPECT_EQ(p.state.mazeColor, kWhite);
      EXPECT_EQ(p.state.finishColor, 0);
      EXPECT_FALSE(p.menus.visible(Item::changewallsize));
      EXPECT_EQ(p.canvas.image().pixels[0], kYellow) << "the picture is empty";
    });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(ClosingTheWindow, EndsTheProgramFromEveryPhase) {
  for (const Phase phase :
       {Phase::title, Phase::drawing, Phase::making, Phase::placing, Phase::solving, Phase::solved}) {
    World w;
    bringTo(w, phase);
    w.desktop.act([](Program&) { endProgram(); });
    w.desktop.act([](Program&) { FAIL() << "nothing runs after the end"; });
    EXPECT_EQ(w.run(), "");
  }
}

TEST(TheLastTitleButton, EndsTheProgram) {
  World w;
  w.desktop.click(ControlId::Command7);
  w.desktop.act([](Program&) { FAIL(); });
  EXPECT_EQ(w.run(), "");
}

TEST(TheTwelveStepFiles, HoldTheirDefaultsAfterTheTitle) {
  World w;
  w.folder.texts["Left.pt"] = "4\r\n9999,88\r\n";
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(1);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.folder.texts.size(), 12U);
  EXPECT_EQ(w.folder.texts["Left.pt"], "1,9999,88\r\n");
}

TEST(AtTheTitle, OnlyTheStepFilesOfThePresentKindAreWritten) {
  World w;
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.folder.writes, (std::vector<std::string>{"Left.pt", "Right.pt", "up.pt", "down.pt"}));
}

TEST(DarkGreen, IsABackgroundFromTheVeryFirst) {
  World w;
  w.desktop.look([](Program& p) { EXPECT_EQ(p.colours.extraBackground(), 31744); });
  EXPECT_EQ(w.run(), "");
}

TEST(TheTitle, IsAnEightHundredBySixHundredPicture) {
  World w;
  w.desktop.pumpsPass(1);
  EXPECT_EQ(w.run(), "");
  ASSERT_NE(w.desktop.file("title.bmp"), nullptr);
  EXPECT_EQ(w.desktop.file("title.bmp")->width, 800);
  EXPECT_EQ(w.desktop.file("title.bmp")->height, 600);
  EXPECT_TRUE(samePicture(w.canvas.image(), *w.desktop.file("title.bmp")));
}

TEST(ADrawingAfterASecondTitle, IsMeasuredLikeTheFirst) {
  World w(Size{260, 180});
  std::vector<std::array<int, 7>> measures;
  const auto note = [&](Program& p) {
    const DrawingState& d = p.state.drawing;
    measures.push_back({d.mirror.left, d.mirror.top, d.centreLeft, d.centreTop, p.state.gridRight,
                        p.state.gridColumns, p.state.gridRows});
  };
  for (int visit = 0; visit < 2; ++visit) {
    w.desktop.click(ControlId::Command2);
    w.desktop.untilPhase(Phase::drawing);
    w.desktop.pumpsPass(3);
    w.desktop.look(note);
    w.desktop.menu(Item::newwallsize);
    w.desktop.enter(ControlId::Text2, "8");
    w.desktop.pumpsPass(3);
    w.desktop.menu(Item::quit2);
    w.desktop.untilPhase(Phase::title);
    w.desktop.pumpsPass(2);
  }
  EXPECT_EQ(w.run(), "");
  ASSERT_EQ(measures.size(), 2U);
  EXPECT_EQ(measures[0], measures[1]);
  EXPECT_GT(measures[0][0], 130) << "the mirror lies in the other half";
}

TEST(ADrawingSentBackByTheChecks, IsMeasuredInTheWindowItIsIn) {
  World w(Size{800, 600});
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(3);
  w.desktop.act([](Program& p) { p.state.cur = squareOf(60, 1); });
  w.desktop.pumpsPass(2);
  w.desktop.setClient({400, 300});  // it comes to light when the maze is asked for
  w.desktop.menu(Item::newmaze);
  w.desktop.until(
      [](const Program& p) { return p.state.phase == Phase::drawing && p.state.canvasWidth == 400; });
  w.desktop.pumpsPass(3);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.phase, Phase::drawing);
  EXPECT_EQ(w.state.cur, (Square{10, 10, 19, 19})) << "not outside, where it was";
  EXPECT_EQ(w.state.drawing.centreLeft, 180);
}

TEST(APrintJobLeftOver, IsGoneWhenTheTitleIsLeft) {
  World w;
  w.desktop.act([](Program& p) {
    p.state.print.printMode = PrintMode::withAnswers;
    p.state.print.printTotal = 5;
    p.state.print.printedCount = 2;
    input::buttonClick(p, ControlId::Command2);
  });
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.print.printMode, PrintMode::none);
  EXPECT_EQ(w.state.print.printTotal + w.state.print.printedCount, 0);
}

TEST(TheBrush, ComesBackFromTheMazeWhereItWasInItsColour) {
  World w;
  w.begin(drawing({"......", "......", "......"}));
  w.desktop.menu(Item::cgenerate);
  w.desktop.act([](Program& p) {
    p.state.cur = p.state.prev = {30, 20, 49, 29};
    p.state.drawColor = p.state.drawing.lastColor = kMaroon;
  });
  w.desktop.pumpsPass(2);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::placing);
  w.desktop.menu(Item::backtodrawing);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.pumpsPass(3);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.cur, (Square{30, 20, 49, 29}));
  EXPECT_EQ(w.state.drawColor, kMaroon);
}

TEST(ASearch, IsToldInTheCaption) {
  World w;
  std::vector<std::string> captions;
  w.begin(drawing({"......", "......", "......"}));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::largestsolution);
  w.desktop.menu(Item::newmaze);
  w.desktop.until([&](const Program& p) {
    const std::string caption(p.controls.caption());
    if (captions.empty() || captions.back() != caption) captions.push_back(caption);
    return p.state.finishFound;
  });
  EXPECT_EQ(w.run(), "");
  EXPECT_NE(std::find(captions.begin(), captions.end(), "Gridwright-(searching for finish)"), captions.end());
}

}  // namespace
}  // namespace gridwright::test
