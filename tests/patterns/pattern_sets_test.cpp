#include "patterns/pattern_sets.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "session/main_loop.h"
#include "state/key_codes.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

const PatternSet kSet = {Steps{1, 3, 3}, Steps{2, 5}, Steps{3}, Steps{4, 4, 1}};
constexpr const char* kText =
    "1\r\n3\r\n3\r\n9999,88\r\n2\r\n5\r\n9999,88\r\n3\r\n9999,88\r\n4\r\n4\r\n1\r\n9999,88\r\n";

TEST(ASetFile, IsFourListsEachWithItsClosingLine) {
  EXPECT_EQ(formatSet(kSet), kText);
  const auto read = parseSet(kText);
  ASSERT_TRUE(read);
  EXPECT_EQ(read.value(), kSet);
}

TEST(TheEndingOfASet, FollowsTheKind) {
  EXPECT_EQ(setEnding(MazeKind::regular), ".pat");
  EXPECT_EQ(setEnding(MazeKind::threeD), ".3d-pat");
  EXPECT_EQ(setEnding(MazeKind::pipe), ".3d-pipe-pat");
}

TEST(ASetOfTheWrongLayout, IsRefusedWhole) {
  for (const char* text : {"", "1,2,3", "1,9999,88,2,9999,88,3,9999,88",
                           "1,9999,88,2,9999,88,6,9999,88,4,9999,88", "1,9999,2,9999,3,9999,4,9999",
                           "a,9999,88,2,9999,88,3,9999,88,4,9999,88", "1,9999,88,2,9999,88,3,9999,88,4,x"}) {
    EXPECT_FALSE(parseSet(text)) << text;
  }
}

TEST(TheEndOfASetFile, CountsAsTheEndOfItsLastList) {
  for (const char* text : {"1,9999,88,2,9999,88,3,9999,88,4,4", "1,9999,88,2,9999,88,3,9999,88,4,4,9999",
                           "1,9999,88\n2,9999,88\n3,9999,88\n4\n4\n9999,88\n"}) {
    const auto read = parseSet(text);
    ASSERT_TRUE(read) << text;
    EXPECT_EQ(read.value()[3], (Steps{4, 4})) << text;
  }
}

/// A session in the drawing phase over a real folder.
struct Session {
  explicit Session(MazeKind kind = MazeKind::regular) {
    desktop.setClient({610, 410});
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.look([kind](Program& p) { p.state.mazeKind = kind; });
  }
  void use(Item item, ControlId box, const std::string& name) {
    desktop.menu(item);
    desktop.enter(box, name);
    desktop.pumpsPass(3);
  }
  void save(const std::string& name) { use(Item::savepatterns, ControlId::Text5, name); }
  void load(const std::string& name) { use(Item::loadpatterns, ControlId::Text6, name); }
  void look(BareDesktop::Action action) { desktop.look(std::move(action)); }
  void writeSet(const PatternSet& set) {
    desktop.look([set](Program& p) {
      for (int d = 1; d <= 4; ++d) p.steps.write(p.state.mazeKind, d, set[static_cast<std::size_t>(d - 1)]);
    });
  }
  void run() {
    try {
      runProgram(program);
    } catch (const ProgramEnd&) {
    }
    ASSERT_EQ(desktop.trouble, "");
  }
  PatternSet present() {
    PatternSet set;
    for (int d = 1; d <= 4; ++d)
      set[static_cast<std::size_t>(d - 1)] = program.steps.steps(program.state.mazeKind, d);
    return set;
  }

  TempFolder temp;
  BareDesktop desktop;
  Program program{desktop, temp.path()};
};

TEST(ASavedSet, IsLoadedAgainInEveryKind) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    Session s(kind);
    s.writeSet(kSet);
    s.save("  waves.old.pat");
    s.writeSet({Steps{1}, Steps{1}, Steps{1}, Steps{1}});
    s.load("waves");
    s.run();
    EXPECT_EQ(s.present(), kSet);
    EXPECT_EQ(s.temp.get("waves" + std::string(setEnding(kind))), kText)
        << "the name ends at its first point";
    EXPECT_TRUE(s.desktop.messages.empty());
    EXPECT_FALSE(s.program.state.panelOpen || s.program.state.paused);
  }
}

TEST(ASetForA3dMaze, IsNotListedWhileARegularDrawingIsInWork) {
  Session s;
  s.temp.put("deep.3d-pat", kText);
  s.temp.put("Flat.PAT", kText);
  s.temp.put("tube.3d-pipe-pat", kText);
  s.desktop.menu(Item::loadpatterns);
  s.look([](Program& p) {
    EXPECT_EQ(p.controls[ControlId::File4].entries, std::vector<std::string>{"Flat.PAT"});
    EXPECT_EQ(p.controls[ControlId::Text6].text, "Flat.PAT");
    input::escapePressed(p, ControlId::Text6);
    p.state.mazeKind = MazeKind::threeD;
  });
  s.desktop.pumpsPass(1);
  s.desktop.menu(Item::savepatterns);
  s.look([](Program& p) {
    EXPECT_EQ(p.controls[ControlId::File3].entries, std::vector<std::string>{"deep.3d-pat"});
  });
  s.run();
}

TEST(LoadingASetDuringEditing, RewritesTheWorkingFilesAndRebuildsTheField) {
  Session s;
  s.temp.put("waves.pat", kText);
  s.desktop.menu(Item::editpatterns);
  s.desktop.untilPhase(Phase::patternEditing);
  s.desktop.act([](Program& p) { input::keyDown(p, key::down); });
  s.load("waves");
  s.look([](Program& p) {
    EXPECT_EQ(p.state.phase, Phase::patternEditing);
    EXPECT_EQ(p.state.editedPattern, step::left);
    EXPECT_EQ(p.state.editor.openSteps, (Steps{1, 3, 3}));
    EXPECT_TRUE(p.state.panelOpen) << "the editor still holds the window";
    EXPECT_FALSE(p.state.paused);
  });
  s.run();
  EXPECT_EQ(s.present(), kSet);
}

TEST(ThePatternShownInTheEditor, IsSavedWithAllThatWasTyped) {
  Session s;
  s.desktop.menu(Item::editpatterns);
  s.desktop.untilPhase(Phase::patternEditing);
  s.desktop.pumpsPass(1);
  for (int i = 0; i < 2; ++i) s.desktop.act([](Program& p) { input::keyDown(p, key::down); });
  s.desktop.pumpsPass(2);
  s.save("typed");
  s.look([](Program& p) { EXPECT_EQ(p.state.editor.openSteps, (Steps{1, 4, 4})); });
  s.run();
  EXPECT_EQ(s.temp.get("typed.pat"), formatSet({Steps{1, 4, 4}, Steps{2}, Steps{3}, Steps{4}}));
}

TEST(ABadName, IsRefusedOnSaveAndNotFoundOnLoad) {
  for (const char* name : {"", "   ", ".pat", "no/such", "no\\such"}) {
    Session s;
    s.writeSet(kSet);
    s.save(name);
    s.load(name);
    s.run();
    EXPECT_EQ(s.desktop.messages,
              (std::vector<std::string>{"Error: bad file name.", "Error: can't find file."}))
        << name;
    EXPECT_EQ(s.present(), kSet);
    EXPECT_FALSE(s.program.state.panelOpen || s.program.state.paused || s.program.state.drawingOff);
  }
}

TEST(ASetCutInTheMiddle, LeavesTheWorkingFilesAlone) {
  const std::string whole = kText;
  for (std::size_t length = 0; length < whole.find("4\r\n4"); ++length) {
    Session s;
    s.temp.put("cut.pat", whole.substr(0, length));
    s.writeSet({Steps{1, 1}, Steps{2, 2}, Steps{3, 3}, Steps{4, 4}});
    s.load("cut");
    s.run();
    EXPECT_EQ(s.desktop.messages, std::vector<std::string>{"Error: can't find file."}) << length;
    EXPECT_EQ(s.present(), (PatternSet{Steps{1, 1}, Steps{2, 2}, Steps{3, 3}, Steps{4, 4}}));
  }
}

TEST(ALoadedListWithoutAStep, BecomesTheDirectionsDefault) {
  Session s;
  s.temp.put("empty.pat", "9999,88,9999,88,9999,88,9999");
  s.writeSet(kSet);
  s.load("empty");
  s.run();
  EXPECT_EQ(s.present(), (PatternSet{Steps{1}, Steps{2}, Steps{3}, Steps{4}}));
}

TEST(TheSavePanel, HoldsTheBrushAndGivesItBackOnEnterOnEscapeAndOnErrors) {
  for (const bool off : {false, true}) {
    for (const char* name : {"good", "", "\x1b"}) {
      Session s;
      s.look([off](Program& p) { p.state.drawingOff = off; });
      s.desktop.menu(Item::savepatterns);
      s.look([](Program& p) {
        EXPECT_TRUE(p.state.drawingOff);
        EXPECT_FALSE(p.canvas.autoRedraw());
      });
      if (std::string(name) == "\x1b") {
        s.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text5); });
      } else {
        s.desktop.enter(ControlId::Text5, name);
      }
      s.run();
      EXPECT_EQ(s.program.state.drawingOff, off);
    }
  }
}

TEST(WhatIsChosenUnderTheSavePanel, StaysWhenItCloses) {
  for (const bool off : {false, true}) {
    Session s;
    s.look([off](Program& p) { p.state.drawingOff = !off; });
    s.desktop.menu(Item::savepatterns);
    s.desktop.menu(off ? Item::drawingoff : Item::drawingon);
    s.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text5); });
    s.run();
    EXPECT_EQ(s.program.state.drawingOff, off);
  }
}

TEST(TheLastSetName, IsOfferedAgain) {
  Session s;
  s.temp.put("a.pat", kText);
  s.temp.put("b.pat", kText);
  s.desktop.menu(Item::loadpatterns);
  s.desktop.act([](Program& p) { input::listClick(p, ControlId::File4, 1); });
  s.look([](Program& p) {
    EXPECT_EQ(p.controls[ControlId::Text6].text, "b.pat");
    EXPECT_EQ(p.controls.focus(), ControlId::Text6);
    EXPECT_EQ(p.state.files.lastSet, "b.pat");
    input::escapePressed(p, ControlId::Text6);
  });
  s.desktop.pumpsPass(1);
  s.desktop.menu(Item::loadpatterns);
  s.look([](Program& p) { EXPECT_EQ(p.controls[ControlId::Text6].text, "b.pat"); });
  s.run();
}

TEST(ALoadThatFindsNothing, StillEndsARandomRunAndKeepsWhatWasDrawn) {
  Session s;
  s.desktop.menu(Item::editpatterns);
  s.desktop.untilPhase(Phase::patternEditing);
  s.look([](Program& p) { p.state.randomPatterns.randomPatternSize = 90; });
  s.desktop.menu(Item::crpattern);
  s.desktop.pumpsPass(6);
  s.look([](Program& p) { EXPECT_TRUE(p.state.editor.randomRunning); });
  s.load("nobody");
  s.look([](Program& p) {
    EXPECT_FALSE(p.state.editor.randomRunning);
    EXPECT_EQ(p.state.randomPatterns.randomPatternSize, 90);
  });
  s.run();
  EXPECT_EQ(s.desktop.messages, std::vector<std::string>{"Error: can't find file."});
}

TEST(ASetWithNumbersThatAreNoSteps, IsSavedWithoutThem) {
  Session s;
  PatternSet odd = kSet;
  odd[0] = {1, 77, 3};
  s.writeSet(odd);
  s.save("odd");
  s.load("odd");
  s.look([](Program& p) { EXPECT_EQ(p.steps.steps(MazeKind::regular, step::left), (Steps{1, 3})); });
  s.run();
  EXPECT_TRUE(s.desktop.messages.empty());
}

}  // namespace
}  // namespace gridwright::test
