#include "drawings/last_picture.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "session/input.h"
#include "session/workshop.h"
#include "support/as_nobody.h"
#include "support/disk_session.h"
#include "support/pictures.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

namespace fs = std::filesystem;

const Bitmap kOld = plainBitmap(70, 50, kMaroon);
const Bitmap kRoom = drawing({"......", ".####.", "......", "......"});  // 70 by 50

Bitmap withBox(Bitmap picture, int left) {
  for (int y = 0; y < 5; ++y)
    for (int x = left; x < left + 5; ++x) pixelAt(picture, x, y) = kNavy;
  return picture;
}
const Bitmap kA = withBox(kOld, 5), kB = withBox(kOld, 15), kC = withBox(kOld, 25);

/// A session in a folder where earlier runs have left pictures.
struct Sitting : DiskSession {
  explicit Sitting(const fs::path& folder) : DiskSession(folder, kRoom), place(folder) {}
  /// The drawing is changed into this one.
  void paint(const Bitmap& changed) {
    desktop.act([changed](Program& p) {
      p.canvas.setAutoRedraw(true);
      p.canvas.paintPicture(changed);
      p.canvas.setAutoRedraw(false);
      p.state.drawing.skipPaintOnce = true;
    });
    desktop.pumpsPass(2);
  }
  void autosave() {
    desktop.act(input::autosave);
    desktop.pumpsPass(1);
  }
  void resize(Size size) {
    desktop.act([this, size](Program& p) {
      desktop.setClient(size);
      input::resized(p, size);
    });
    desktop.pumpsPass(3);
  }
  void choose(Item item) {
    desktop.menu(item);
    desktop.pumpsPass(3);
  }
  void onCanvas(const Bitmap& wanted, const char* when) {
    look([=](Program& p) { EXPECT_TRUE(samePicture(p.canvas.image(), wanted)) << when; });
  }
  void inFiles(const Bitmap& last, const Bitmap& before, const char* when) {
    look([=, this](Program&) { expectFiles(last, before, when); });
  }
  void expectFiles(const Bitmap& last, const Bitmap& before, const char* when) const {
    const auto kept = readBitmapFile(place / "last-drawing.bmp");
    const auto earlier = readBitmapFile(place / "last-drawing.bmp~");
    ASSERT_TRUE(kept && earlier) << when;
    EXPECT_TRUE(samePicture(kept.value(), last)) << when;
    EXPECT_TRUE(samePicture(earlier.value(), before)) << when;
  }
  fs::path place;
};

void leave(const TempFolder& folder, const std::string& name, const Bitmap& picture) {
  ASSERT_TRUE(writeBitmapFile(picture, folder.path() / name));
}

TEST(ADrawing, IsKeptWhileItIsDrawnAndCoversNoOther) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kOld);
  leave(temp, "last-drawing.bmp~", kRoom);
  Sitting s(temp.path());
  s.autosave();
  s.inFiles(kOld, kRoom, "an empty drawing is none");
  s.paint(kA);
  s.inFiles(kOld, kRoom, "not at once");
  s.autosave();
  s.inFiles(kA, kOld, "the first write of this drawing");
  s.paint(kB);
  s.autosave();
  s.inFiles(kB, kOld, "the second");
  s.run();
  s.expectFiles(kB, kOld, "at the end");
}

TEST(ADrawing, ThatGoesOnAfterAnotherWasLoadedKeepsThatOneToo) {
  const TempFolder temp;
  Sitting s(temp.path());
  s.paint(kA);
  s.save("one");
  s.paint(kB);
  s.autosave();
  s.load("one");
  s.paint(kC);
  s.autosave();
  s.inFiles(kC, kB, "after a load");
  s.choose(Item::rmazes);
  s.paint(kA);
  s.autosave();
  s.inFiles(kA, kC, "after a new drawing");
  s.choose(Item::quit2);
  s.desktop.click(ControlId::Command2);
  s.desktop.untilPhase(Phase::drawing);
  s.desktop.pumpsPass(2);
  s.paint(kB);
  s.autosave();
  s.inFiles(kB, kA, "after the title");
  s.run();
}

TEST(ADrawing, ThatAMazeStandsOverIsKeptWithoutIt) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kOld);
  Sitting s(temp.path());
  s.draw();
  s.choose(Item::createreg);
  s.desktop.untilPhase(Phase::making);
  s.autosave();
  s.inFiles(kRoom, kOld, "beneath the maze");
  s.run();
}

TEST(LastPicture, ChangesPlacesWithTheDrawing) {
  for (const bool isKept : {false, true}) {
    const TempFolder temp;
    leave(temp, "last-drawing.bmp", kA);
    Sitting s(temp.path());
    s.paint(kB);
    if (isKept) s.autosave();
    s.choose(Item::lastpicture);
    s.onCanvas(kA, "of the run before");
    s.inFiles(kA, kB, "killed now, the program has left the one on the Canvas");
    s.choose(Item::lastpicture);
    s.onCanvas(kB, "chosen again");
    s.inFiles(kB, kA, "chosen again");
    s.paint(kC);
    s.choose(Item::lastpicture);
    s.onCanvas(kA, "what was drawn since does not come between");
    s.inFiles(kA, kC, "a third time");
    s.run();
  }
}

TEST(LastPicture, ChangesPlacesWithAnEmptyDrawingThatNoFileIsSpentOn) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kA);
  Sitting s(temp.path());
  Bitmap empty;
  s.look([&](Program& p) { empty = p.canvas.image(); });
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "of the run before");
  s.choose(Item::lastpicture);
  s.look([&](Program& p) { EXPECT_TRUE(samePicture(p.canvas.image(), empty)); });
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "a third time");
  s.run();
  const auto kept = readBitmapFile(temp.path() / "last-drawing.bmp");
  ASSERT_TRUE(kept);
  EXPECT_TRUE(samePicture(kept.value(), kA));
}

TEST(LastPicture, ThatIsTakenBackIsNotLost) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kA);
  Sitting s(temp.path());
  s.paint(kB);
  s.choose(Item::lastpicture);
  s.choose(Item::undo);
  s.onCanvas(kB, "taken back");
  s.paint(kC);
  s.autosave();
  s.inFiles(kC, kA, "the drawing goes on where it was");
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "once more");
  s.run();
}

TEST(LastPicture, ThatIsTakenBackToAnEmptyDrawingIsNotLost) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kA);
  Sitting s(temp.path());
  s.choose(Item::lastpicture);
  s.choose(Item::undo);
  s.look([](Program& p) { EXPECT_FALSE(p.canvas.showsAnything()); });
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "once more");
  s.run();
}

TEST(LastPicture, ThatIsKeptAgainSpendsNoPictureBeforeIt) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kA);
  leave(temp, "last-drawing.bmp~", kOld);
  Sitting s(temp.path());
  s.choose(Item::lastpicture);
  s.autosave();
  s.inFiles(kA, kOld, "as it was brought back");
  s.paint(kC);
  s.autosave();
  s.inFiles(kC, kA, "changed");
  s.run();
}

TEST(ADrawing, ThatASmallerWindowCutsIsKeptWhole) {
  const Bitmap cut = drawing({"..#", "###"});
  for (const bool byNewDrawing : {false, true}) {
    const TempFolder temp;
    leave(temp, "last-drawing.bmp", kOld);
    Sitting s(temp.path());
    s.paint(kA);
    s.autosave();
    s.resize({cut.width, cut.height});
    if (byNewDrawing) s.choose(Item::rmazes);
    s.run();
    s.expectFiles(kA, kOld, "at the end");
  }
}

TEST(ADrawing, ThatASmallerWindowCutsIsKeptWholeBeneathItsMazeToo) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kOld);
  Sitting s(temp.path());
  s.draw();
  s.autosave();
  s.resize({60, 40});
  s.choose(Item::createreg);
  s.desktop.untilPhase(Phase::making);
  s.desktop.pumpsPass(3);
  s.autosave();
  s.inFiles(kRoom, kOld, "beneath the maze");
  s.run();
}

TEST(LastPicture, OfALargerWindowIsNotCutByASmallerOne) {
  const TempFolder temp;
  const Bitmap large = withBox(plainBitmap(300, 200, kMaroon), 200);
  leave(temp, "last-drawing.bmp", large);
  Sitting s(temp.path());
  s.paint(kB);
  s.choose(Item::lastpicture);
  s.inFiles(large, kB, "in a window of 70 by 50");
  s.choose(Item::lastpicture);
  s.inFiles(kB, large, "and back");
  s.run();
}

TEST(LastPicture, IsWhatADrawingGivenUpLeft) {
  const TempFolder temp;
  leave(temp, "last-drawing.bmp", kOld);
  Sitting s(temp.path());
  s.paint(kA);
  s.choose(Item::rmazes);
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "after a new drawing");
  s.choose(Item::quit2);
  s.desktop.click(ControlId::Command2);
  s.desktop.untilPhase(Phase::drawing);
  s.desktop.pumpsPass(2);
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "after the title");
  s.run();
}

TEST(WithoutALastPicture, AWordIsSaidAndTheDrawingStays) {
  const TempFolder temp;
  Sitting s(temp.path());
  s.paint(kA);
  s.autosave();
  s.choose(Item::lastpicture);
  s.onCanvas(kA, "the same");
  s.look([](Program& p) {
    EXPECT_EQ(p.notices.words(), "Nothing to bring back: there is no drawing before this one");
  });
  s.run();
}

TEST(AFolderThatTakesNoFiles, HasItsLastPicturesInTheDataFolder) {
  const TempFolder temp, home;
  ReadOnly::giveAway(home.path());
  {
    Sitting s(temp.path());
    s.program.dataFolder = s.place = home.path() / "gridwright";
    s.paint(kA);
    s.choose(Item::rmazes);
    s.paint(kB);
    s.choose(Item::lastpicture);
    s.onCanvas(kA, "in the same run");
    s.inFiles(kA, kB, "in the data folder");
    const ReadOnly readOnly(temp.path());
    s.run();
  }
  Sitting next(temp.path());
  next.program.dataFolder = home.path() / "gridwright";
  next.choose(Item::lastpicture);
  next.onCanvas(kA, "in the next run");
  const ReadOnly readOnly(temp.path());
  next.run();
}

TEST(ADiskThatFillsUp, HasItsLastPictureWhereItCouldBeKept) {
  const TempFolder temp, home;
  leave(temp, "last-drawing.bmp", kOld);
  const fs::path data = home.path() / "gridwright";
  {
    Sitting s(temp.path());
    s.program.dataFolder = data;
    s.paint(kA);
    s.desktop.act([&](Program&) { s.desktop.full = temp.path(); });
    s.choose(Item::rmazes);
    s.paint(kB);
    s.choose(Item::lastpicture);
    s.onCanvas(kA, "in the same run");
    s.choose(Item::lastpicture);
    s.onCanvas(kB, "and back");
    s.run();
  }
  fs::last_write_time(temp.path() / "last-drawing.bmp",
                      fs::last_write_time(data / "last-drawing.bmp") - std::chrono::seconds(1));
  Sitting next(temp.path());
  next.program.dataFolder = data;
  next.choose(Item::lastpicture);
  next.onCanvas(kB, "in the next run");
  next.run();
}

TEST(ASheet, ThatCouldNotBeKeptCoversNoOtherLater) {
  const TempFolder temp;
  leave(temp, "last-sheet.bmp", kOld);
  Sitting s(temp.path());
  s.choose(Item::workshop);
  s.desktop.act(newsheet);
  const auto dab = [](int x) {
    return [x](Program& p) {
      onSheet(p, [x](Sheet& sheet) {
        sheet.press(x, 10);
        sheet.release(x, 10);
      });
    };
  };
  s.desktop.act(dab(10));
  s.desktop.act([&](Program&) { s.desktop.full = temp.path(); });
  s.autosave();
  s.desktop.act([&](Program&) { s.desktop.full.clear(); });
  s.desktop.act(dab(30));
  s.autosave();
  s.desktop.act([&](Program&) { s.desktop.full = temp.path(); });
  s.desktop.act(dab(50));
  s.autosave();
  s.desktop.act([&](Program&) { s.desktop.full.clear(); });
  s.desktop.act(dab(70));
  s.autosave();
  s.look([&](Program&) {
    EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "last-sheet.bmp~").value(), kOld));
  });
  s.run();
}

TEST(AProgramThatIsKilledWhileItKeepsADrawing, LosesNoneOfThem) {
  for (const bool isWritten : {false, true}) {
    const TempFolder temp;
    leave(temp, "last-drawing.bmp~", kOld);
    leave(temp, "last-drawing.bmp~.building", kA);
    leave(temp, "last-drawing.bmp", isWritten ? kB : kA);
    Sitting s(temp.path());
    s.inFiles(isWritten ? kB : kA, isWritten ? kA : kOld, isWritten ? "written" : "not yet written");
    s.run();
    EXPECT_FALSE(fs::exists(temp.path() / "last-drawing.bmp~.building"));
  }
}

TEST(ASheet, IsKeptWhileItIsPaintedAndOpensInTheNextRun) {
  const TempFolder temp;
  leave(temp, "last-sheet.bmp", kOld);
  const auto dab = [](Program& p) {
    onSheet(p, [](Sheet& sheet) {
      sheet.press(10, 10);
      sheet.release(10, 10);
    });
  };
  Bitmap sheet;
  {
    Sitting s(temp.path());
    s.choose(Item::workshop);
    s.look([](Program& p) {
      EXPECT_TRUE(samePicture(p.workshop.sheet->picture(), kOld));
      EXPECT_FALSE(p.workshop.sheet->canUndo());
    });
    s.desktop.act(newsheet);
    s.desktop.act(dab);
    s.look([&](Program& p) { sheet = p.workshop.sheet->picture(); });
    s.autosave();
    s.look([&](Program&) {
      EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "last-sheet.bmp").value(), sheet));
      EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "last-sheet.bmp~").value(), kOld));
    });
    s.run();
  }
  Sitting next(temp.path());
  next.choose(Item::workshop);
  next.look([&](Program& p) { EXPECT_TRUE(samePicture(p.workshop.sheet->picture(), sheet)); });
  next.desktop.act(useWorkshop);
  next.desktop.pumpsPass(2);
  next.onCanvas(sheet, "it can be used as it is");
  next.run();
}

TEST(ASheet, ThatADrawingCoversIsNotLost) {
  const TempFolder temp;
  leave(temp, "last-sheet.bmp", kOld);
  Sitting s(temp.path());
  s.draw();
  s.choose(Item::workshop);
  s.autosave();
  s.look([&](Program& p) {
    EXPECT_TRUE(
        samePicture(readBitmapFile(temp.path() / "last-sheet.bmp").value(), p.workshop.sheet->picture()));
    EXPECT_TRUE(samePicture(readBitmapFile(temp.path() / "last-sheet.bmp~").value(), kOld));
  });
  s.run();
}

}  // namespace
}  // namespace gridwright::test
