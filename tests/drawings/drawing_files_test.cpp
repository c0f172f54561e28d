#include "drawings/drawing_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "drawings/drawing_record.h"
#include "drawings/drawing_values.h"
#include "session/input.h"
#include "state/field_names.h"
#include "support/bitmap_files.h"
#include "support/disk_session.h"
#include "support/unlike_the_defaults.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

const Bitmap kPicture = drawing(Text(19, ".,,.o.k==.,,.o.k==.,,.o.k==.."));

struct Session : DiskSession {
  explicit Session(const fs::path& folder) : DiskSession(folder, kPicture) {}
};

class InEveryKind : public ::testing::TestWithParam<MazeKind> {};
INSTANTIATE_TEST_SUITE_P(Kinds, InEveryKind,
                         ::testing::Values(MazeKind::regular, MazeKind::pipe, MazeKind::threeD));

TEST_P(InEveryKind, ADrawingSurvivesSaveQuitAndLoadWithEveryValueEqual) {
  TempFolder temp;
  DrawingRecord saved;
  {
    Session s(temp.path());
    s.draw();
    s.desktop.act([](Program& p) { unlikeTheDefaults(p, GetParam()); });
    s.desktop.act([&](Program& p) {
      input::menuClick(p, Item::sdrawing);
      saved = recordOf(p);
      input::textTyped(p, ControlId::text1, "mine");
      input::enterPressed(p, ControlId::text1);
    });
    s.run();
    EXPECT_TRUE(s.desktop.messages.empty());
  }
  Session s(temp.path());
  DrawingRecord loaded;
  s.desktop.menu(Item::ldrawing);
  s.desktop.act([&](Program& p) {
    EXPECT_EQ(p.controls[ControlId::Text4].text, "mine.maze");
    input::enterPressed(p, ControlId::Text4);
    loaded = recordOf(p);
    EXPECT_TRUE(samePicture(p.canvas.image(), kPicture));
    EXPECT_EQ(p.state.prev, p.state.cur);
    EXPECT_FALSE(p.state.paused || p.state.panelOpen);
  });
  s.run();
  EXPECT_TRUE(s.desktop.messages.empty());
  EXPECT_EQ(loaded.lists, saved.lists);
  for (std::size_t i = 0; i < record::count; ++i) {
    if (i == record::windowState) continue;  // always maximised after a load
    EXPECT_EQ(loaded.values[i], saved.values[i]) << "value " << i + 1;
  }
  EXPECT_EQ(s.desktop.windowState(), WindowState::maximised);
}

TEST(TheRecordOfAFreshDrawing, HasEachValueInItsPlace) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.desktop.act([](Program& p) {
    unlikeTheDefaults(p, MazeKind::pipe);
    const DrawingRecord drawing = recordOf(p);
    const auto no = [&](std::size_t number) { return drawing.values[number - 1]; };
    EXPECT_EQ(no(1), 37);
    EXPECT_EQ(no(4), 58);
    EXPECT_EQ(no(5), 8388608);
    EXPECT_EQ(no(6), 13);
    EXPECT_EQ(no(10), 32768);
    EXPECT_EQ(no(11), 85);
    EXPECT_EQ(no(15), 65280);
    EXPECT_EQ(no(16), 12);
    EXPECT_EQ(no(18), 24);
    EXPECT_EQ(no(20), 1);
    EXPECT_EQ(no(21), 3);
    EXPECT_EQ(no(22), 0);
    EXPECT_EQ(no(23), 1);
    EXPECT_EQ(no(24), 16777215);
    EXPECT_EQ(no(25), 2);
    EXPECT_EQ(no(26), 1);
    EXPECT_EQ(no(27), 1);
    EXPECT_EQ(no(28), 1);
    EXPECT_EQ(no(29), 2);
    EXPECT_EQ(no(30), 1);
    EXPECT_EQ(no(31), kPicture.width);
    EXPECT_EQ(no(32), kPicture.height);
    EXPECT_EQ(no(38), 2);
    EXPECT_EQ(no(39), 1);
    EXPECT_EQ(no(41), 0) << "Check3";
    EXPECT_EQ(no(52), 1) << "Check14";
    EXPECT_EQ(no(54), 0);
    EXPECT_EQ(no(55), 255);
    EXPECT_EQ(no(56), 1);
    EXPECT_EQ(no(57), 16777215);
    EXPECT_EQ(no(72), 65535);
    EXPECT_EQ(no(73), 0);
    EXPECT_EQ(no(74), 1);
    EXPECT_EQ(no(75), 0);
    EXPECT_EQ(no(76), 17);
    EXPECT_EQ(no(77), 4);
    EXPECT_EQ(no(78), 5);
    EXPECT_EQ(no(79), 1);
    EXPECT_EQ(no(80), 0);
    EXPECT_EQ(no(81), 1);
    EXPECT_EQ(no(82), 0);
    EXPECT_EQ(no(83), 1);
    EXPECT_EQ(no(84), 1);
    EXPECT_EQ(no(85), 1);
    EXPECT_EQ(no(86), 128);
    EXPECT_EQ(no(87), 255);
    EXPECT_EQ(no(88), p.menus.checked(Item::pthick) ? 0 : 1);
  });
  s.run();
}

TEST(ANameTypedWithAnExtension, IsSavedUnderThePartBeforeItsFirstPoint) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.save("  cat.v2.maze");
  s.run();
  EXPECT_TRUE(fs::exists(temp.path() / "cat.maze"));
  EXPECT_TRUE(fs::exists(temp.path() / "cat.bmp"));
  EXPECT_TRUE(s.desktop.messages.empty());
}

TEST(LoadingADrawingOfAnotherKind, ReplacesAllTwelveWorkingFilesOfAllKinds) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.desktop.act([](Program& p) { unlikeTheDefaults(p, MazeKind::threeD); });
  s.save("deep");
  s.look([](Program& p) {
    p.steps.resetAll();
    p.state.mazeKind = MazeKind::regular;
  });
  s.load("deep");
  s.run();
  for (std::size_t list = 0; list < 12; ++list) {
    const ListPlace place = listPlace(list);
    EXPECT_EQ(parseSteps(temp.get(std::string(stepFileName(place.kind, place.direction)))),
              Steps(list + 1, static_cast<int>(list % 5) + 1));
  }
  EXPECT_EQ(s.program.controls.caption(), "Gridwright-(drawing picture for '3d-mazes')");
}

TEST(SavingDuringPlacing, HasTheFinishSoughtAgain) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.desktop.act([](Program& p) {
    p.state.finishFound = true;
    p.controls.setText(ControlId::text1, "anything");
    saveEntered(p);
    EXPECT_FALSE(p.state.finishFound);
  });
  s.run();
}

/// The whole record as a person would notice it, the picture, and the working files.
struct Everything {
  DrawingRecord record;
  Bitmap picture;
  std::string caption;
  friend bool operator==(const Everything&, const Everything&) = default;
};
Everything everythingOf(Program& p) { return {recordOf(p), p.canvas.image(), p.controls.caption()}; }

void expectNotLoaded(const TempFolder& temp, const std::string& name, const std::string& message,
                     const std::string& what) {
  Session s(temp.path());
  s.draw();
  Everything before, after;
  s.look([&](Program& p) { before = everythingOf(p); });
  s.load(name);
  s.look([&](Program& p) {
    after = everythingOf(p);
    EXPECT_FALSE(p.state.paused || p.state.panelOpen) << what;
    EXPECT_FALSE(p.controls[ControlId::Text4].visible) << what;
  });
  s.run();
  EXPECT_EQ(s.desktop.messages, std::vector<std::string>{message}) << what;
  EXPECT_TRUE(before == after) << what;
}

TEST(ADamagedDrawing, ChangesNothing) {
  TempFolder temp;
  {
    Session s(temp.path());
    s.draw();
    s.desktop.act([](Program& p) { unlikeTheDefaults(p, MazeKind::pipe); });
    s.save("good");
    s.run();
  }
  const std::string record = temp.get("good.maze");
  const std::string bitmap = temp.get("good.bmp");
  const std::map<std::string, std::string> records = {
      {"empty", ""},
      {"cut", record.substr(0, record.size() / 2)},
      {"no number", "x" + record},
      {"binary", std::string("\0\1\2\377", 4) + record},
      {"a code of 9", record.substr(0, record.find("9999")) + "9\r\n" + record.substr(record.find("9999"))},
      {"no end marks", record.substr(0, record.find("\r\n") + 2)}};
  for (const auto& [what, text] : records) {
    temp.put("bad.maze", text);
    temp.put("bad.bmp", bitmap);
    expectNotLoaded(temp, "bad", "Error: can't find file.", what);
  }
  temp.put("bad.maze", record);
  for (const auto& [what, bytes] : std::map<std::string, std::string>{
           {"empty", ""}, {"cut", bitmap.substr(0, bitmap.size() / 2)}, {"no bitmap", "GIF89a"}}) {
    temp.put("bad.bmp", bytes);
    expectNotLoaded(temp, "bad", "Error: can't find bitmap.", what);
  }
  fs::remove(temp.path() / "bad.bmp");
  expectNotLoaded(temp, "bad", "Error: can't find bitmap.", "bitmap missing");
  for (const char* name :
       {"none", "", "a/b", "a\\b", "title", "Drawing1", "last-drawing", "EXAMPLE11", "credit2"})
    expectNotLoaded(temp, name, "Error: can't find file.", name);
}

TEST(ABadNameOnSave, WritesNothing) {
  for (const char* name :
       {"", "   ", ".maze", "a/b", "a\\b", "title", "TITLE", "drawing1", "drawing1b", "drawing2", "drawing3",
        "drawing4", "example1", "example11", "credit1", "Credit2", "last-drawing", "no/such/folder"}) {
    TempFolder temp;
    Session s(temp.path());
    s.draw();
    s.save(name);
    s.run();
    EXPECT_EQ(s.desktop.messages, std::vector<std::string>{"Error: bad file name."}) << name;
    EXPECT_FALSE(s.program.controls[ControlId::text1].visible);
    EXPECT_FALSE(s.program.state.paused || s.program.state.panelOpen);
    for (const auto& entry : fs::directory_iterator(temp.path()))
      EXPECT_NE(entry.path().extension(), ".maze");
  }
}

TEST(AnExistingSpelling, Wins) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.save("foo");
  s.save("FOO");
  s.run();
  EXPECT_TRUE(fs::exists(temp.path() / "foo.maze"));
  EXPECT_FALSE(fs::exists(temp.path() / "FOO.maze"));
  EXPECT_FALSE(fs::exists(temp.path() / "FOO.bmp"));
}

TEST(AFailedSave, LeavesTheOldPairAndNothingElse) {
  TempFolder temp;
  temp.put("old.maze", "old record");
  fs::create_directory(temp.path() / "old.bmp");  // no bitmap can take its place
  Session s(temp.path());
  s.draw();
  s.save("old");
  s.run();
  EXPECT_EQ(s.desktop.messages,
            std::vector<std::string>{"Error: old.bmp is not a plain file; nothing is written to it."});
  EXPECT_EQ(temp.get("old.maze"), "old record");
  for (const auto& entry : fs::directory_iterator(temp.path())) {
    EXPECT_NE(entry.path().extension(), ".building");
    EXPECT_NE(entry.path().extension(), ".ready");
  }
}

TEST(SettingsOutsideTheirValues, TakeTheirDefaultsAndABrushOffTheCanvasTheFirstCell) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.save("odd");
  s.look([&](Program&) {
    DrawingRecord drawing = parseDrawing(temp.get("odd.maze")).value();
    for (std::size_t i = 0; i < record::count; ++i) {
      if (i != record::wallWidth && i != record::wallHeight && i != record::mazeKind)
        drawing.values[i] = 2000000000;
    }
    temp.put("odd.maze", formatDrawing(drawing));
  });
  s.load("odd");
  s.look([](Program& p) {
    const ProgramState& st = p.state;
    const Square first{10, 10, 19, 19};
    EXPECT_EQ(st.cur, first);
    EXPECT_EQ(st.start, Square{}) << "not placed";
    EXPECT_EQ(st.finish, Square{});
    EXPECT_EQ(st.stepX, 10);
    EXPECT_EQ(st.difficultyLevel, 4);
    EXPECT_EQ(st.playMode, PlayMode::off);
    EXPECT_EQ(st.finishMethod, FinishMethod::user);
    EXPECT_EQ(st.creationMode, CreationMode::user);
    EXPECT_EQ(st.pathSize, 1);
    EXPECT_EQ(st.symmetryMode, Symmetry::off);
    EXPECT_EQ(st.randomPatterns.randomPatternSize, 5);
    EXPECT_EQ(st.randomPatterns.randomPatternMode, 0);
    EXPECT_EQ(st.patternState, PatternState::choose);
    EXPECT_EQ(st.phase, Phase::drawing);
    EXPECT_EQ(p.colours.maze()[3], 16777215);
    EXPECT_EQ(p.controls[ControlId::Check1].value, 1);
    EXPECT_EQ(p.controls[ControlId::Check16].value, 0);
    EXPECT_TRUE(p.menus.checked(Item::usepattern));
    EXPECT_TRUE(p.menus.checked(Item::mode4));
  });
  s.run();
  EXPECT_TRUE(s.desktop.messages.empty());
}

TEST(EndsThatAreUnset, StayUnsetThroughSaveAndLoad) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.look([](Program& p) {
    p.state.start = {0, 0, -5, -3};
    p.state.finish = {-10, -10, -10, -10};
  });
  s.save("unset");
  s.load("unset");
  s.look([](Program& p) {
    EXPECT_EQ(p.state.start, (Square{0, 0, -5, -3}));
    EXPECT_EQ(p.state.finish, (Square{-10, -10, -10, -10}));
  });
  s.run();
}

TEST(TheTickOfThePattern, FollowsStateAndMode) {
  struct Row {
    int state, mode;
    Item ticked;
    int direction;
  };
  for (const Row& row :
       {Row{3, 0, Item::dontusepattern, 3}, Row{0, 0, Item::usepattern, 0}, Row{0, 5, Item::crnd1, 0},
        Row{1, 0, Item::usepattern, 0}, Row{3, 5, Item::crnd1, 0}}) {
    TempFolder temp;
    Session s(temp.path());
    s.draw();
    s.save("ticks");
    s.look([&](Program&) {
      DrawingRecord drawing = parseDrawing(temp.get("ticks.maze")).value();
      drawing.values[record::patternState] = row.state;
      drawing.values[record::randomPatternMode] = row.mode;
      temp.put("ticks.maze", formatDrawing(drawing));
    });
    s.load("ticks");
    s.look([&](Program& p) {
      for (const Item item : {Item::usepattern, Item::dontusepattern, Item::crnd1})
        EXPECT_EQ(p.menus.checked(item), item == row.ticked) << row.state << " " << row.mode;
      EXPECT_EQ(p.state.patternDirection, row.direction);
    });
    s.run();
  }
}

TEST(TheKindsAfterALoad, AreShownByWhetherAMazeWasMade) {
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const bool made : {false, true}) {
      TempFolder temp;
      Session s(temp.path());
      s.draw();
      s.desktop.act([&](Program& p) {
        unlikeTheDefaults(p, kind);
        p.state.mazeMadeOnce = made;
      });
      s.save("kinds");
      s.load("kinds");
      s.look([&](Program& p) {
        EXPECT_EQ(p.menus.visible(Item::create3dpipe), made);
        EXPECT_EQ(p.menus.visible(Item::changewallsize), made);
        EXPECT_EQ(p.menus.visible(Item::createreg), made || kind != MazeKind::pipe);
        EXPECT_EQ(p.menus.visible(Item::create3d), made || kind != MazeKind::pipe);
      });
      s.run();
    }
  }
}

TEST(Escape, ReadsAndWritesNothing) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.desktop.menu(Item::sdrawing);
  s.desktop.act([](Program& p) { input::textTyped(p, ControlId::text1, "gone"); });
  s.desktop.act([](Program& p) { input::escapePressed(p, ControlId::text1); });
  s.desktop.menu(Item::ldrawing);
  s.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text4); });
  s.desktop.pumpsPass(1);
  s.look([](Program& p) {
    EXPECT_FALSE(p.state.paused || p.state.panelOpen);
    EXPECT_TRUE(samePicture(p.canvas.image(), kPicture));
  });
  s.run();
  EXPECT_FALSE(fs::exists(temp.path() / "gone.maze"));
}

TEST(ALoad, KeepsThePictureThatWasThere) {
  TempFolder temp;
  Session s(temp.path());
  s.draw();
  s.save("one");
  s.desktop.act([](Program& p) {
    p.canvas.setAutoRedraw(true), p.canvas.fill(0, 0, 50, 50, kRed), p.canvas.setAutoRedraw(false);
  });
  Bitmap drawn;
  s.look([&](Program& p) { drawn = p.canvas.image(); });
  s.load("one");
  s.look([&](Program& p) { EXPECT_TRUE(samePicture(p.pictures.load("last-drawing.bmp").copied(), drawn)); });
  s.run();
}

/// What a slip and its end leave of a picture in last-drawing.bmp.
Bitmap rescuedAfter(const std::vector<Item>& slips) {
  const TempFolder temp;
  Session s(temp.path());
  s.draw();
  for (const Item item : slips) {
    s.desktop.menu(item);
    s.desktop.pumpsPass(3);
  }
  s.run();
  const auto kept = readBitmapFile(temp.path() / "last-drawing.bmp");
  return kept ? kept.value() : Bitmap{};
}

TEST(APictureLostByASlip, IsNotOverwrittenByTheBlankOneAfterIt) {
  for (const Item slip : {Item::rmazes, Item::mazes3d1, Item::mazes3d}) {
    EXPECT_TRUE(samePicture(rescuedAfter({slip, Item::quit2}), kPicture));
    EXPECT_TRUE(samePicture(rescuedAfter({slip, slip}), kPicture));
    EXPECT_TRUE(
        samePicture(rescuedAfter({slip, Item::editpatterns, Item::exitpattern, Item::quit2}), kPicture));
  }
}

}  // namespace
}  // namespace gridwright::test
