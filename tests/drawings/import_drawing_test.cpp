#include "drawings/import_drawing.h"

#include <gtest/gtest.h>

#include "session/input.h"
#include "session/main_loop.h"
#include "support/bitmap_files.h"
#include "support/bitmap_forms.h"
#include "support/disk_desktop.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

struct Importing {
  Importing() { desktop.setClient({300, 200}); }
  void import(const std::string& name) {
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.menu(Item::importdrawing);
    desktop.enter(ControlId::Text8, name);
    desktop.pumpsPass(2);
    try {
      runProgram(program);
    } catch (const ProgramEnd&) {
    }
    ASSERT_EQ(desktop.trouble, "");
  }

  TempFolder temp;
  DiskDesktop desktop;
  Program program{desktop, temp.path()};
};

void expectRefused(Importing& i) {
  EXPECT_EQ(i.desktop.messages, std::vector<std::string>{"Error: can't find bitmap."});
  EXPECT_FALSE(i.program.state.panelOpen);
  EXPECT_FALSE(i.program.controls[ControlId::Text8].visible);
  EXPECT_TRUE(samePicture(i.program.canvas.image(), plainBitmap(300, 200, kYellow)))
      << "the drawing is untouched";
  EXPECT_FALSE(i.program.state.mazeMadeOnce);
  EXPECT_FALSE(i.program.menus.visible(Item::changewallsize));
}

TEST(AnImportedBitmap, BecomesThePicture) {
  Importing i;
  i.temp.put("cat.bmp", fileOf(motley(40, 30, 16), {4}));
  i.import("cat");
  EXPECT_TRUE(i.desktop.messages.empty());
  Bitmap expected = plainBitmap(300, 200, kYellow);
  const Bitmap cat = motley(40, 30, 16);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) pixelAt(expected, x, y) = cat.at(x, y);
  }
  EXPECT_TRUE(samePicture(i.program.canvas.image(), expected));
  EXPECT_TRUE(i.program.state.mazeMadeOnce);
  EXPECT_TRUE(i.program.menus.visible(Item::create3dpipe));
  EXPECT_TRUE(i.program.menus.visible(Item::changewallsize));
  EXPECT_GE(i.desktop.maximised, 1);
}

TEST(AnyExtensionAndLeadingBlanks, AreDropped) {
  for (const char* name : {"  cat", "cat.bmp", "cat.jpeg", "CAT", " cAt.x.y"}) {
    Importing i;
    i.temp.put("cat.bmp", fileOf(motley(40, 30, 16), {24}));
    i.import(name);
    EXPECT_TRUE(i.desktop.messages.empty()) << name;
    EXPECT_TRUE(i.program.state.mazeMadeOnce);
  }
}

TEST(ANameThatIsNotThere, GetsTheMessageAndChangesNothing) {
  for (const char* name : {"cat", "", "   ", ".bmp", "no such name"}) {
    Importing i;
    i.import(name);
    expectRefused(i);
  }
}

TEST(AFolderATextAndACutOrLyingBitmap, GetTheMessageAndChangeNothing) {
  const std::string whole = fileOf(motley(40, 30, 16), {24});
  std::string lying = whole;
  poke(lying, 18, 4000);
  for (const std::string& bytes :
       {std::string("This is a text."), whole.substr(0, 400), lying, std::string()}) {
    Importing i;
    i.temp.put("cat.bmp", bytes);
    i.import("cat");
    expectRefused(i);
  }
  Importing folder;
  std::filesystem::create_directory(folder.temp.path() / "cat.bmp");
  folder.import("cat");
  expectRefused(folder);
}

TEST(ABitmapThatLiesInAnyWay, GetsTheMessageAndChangesNothing) {
  Importing i;
  std::size_t lies = 0;
  i.desktop.click(ControlId::Command2);
  i.desktop.untilPhase(Phase::drawing);
  for (BitmapFile form :
       {BitmapFile{1}, {4}, {8}, {16}, {24}, {32}, {8, false, true}, {8, false, false, true}}) {
    form.header = form.os2 ? 12 : 40;
    const Bitmap picture = heldBy(motley(13, 5, form.bits == 1 ? 2 : 11), form);
    for (const LyingBitmap& lie : liesAbout({"", form, picture, fileOf(picture, form)})) {
      const std::string name = "lie" + std::to_string(++lies);
      i.temp.put(name + ".bmp", lie.bytes);
      i.desktop.menu(Item::importdrawing);
      i.desktop.enter(ControlId::Text8, name);
      i.desktop.pumpsPass(2);
    }
  }
  try {
    runProgram(i.program);
  } catch (const ProgramEnd&) {
  }
  ASSERT_EQ(i.desktop.trouble, "");
  EXPECT_GT(lies, 300U);
  EXPECT_EQ(i.desktop.messages, std::vector<std::string>(lies, "Error: can't find bitmap."));
  EXPECT_TRUE(samePicture(i.program.canvas.image(), plainBitmap(300, 200, kYellow)));
  EXPECT_FALSE(i.program.state.panelOpen);
  EXPECT_FALSE(i.program.state.mazeMadeOnce);
}

TEST(APictureLargerThanTheCanvas, IsToldToBeCut) {
  Importing large;
  large.temp.put("cat.bmp", fileOf(motley(1203, 1100, 16), {4}));
  large.import("cat");
  EXPECT_EQ(large.program.notices.words(), "the picture is 1203x1100; the Canvas takes 300x200 of it");
  Importing wide;
  wide.temp.put("cat.bmp", fileOf(motley(301, 20, 16), {4}));
  wide.import("cat");
  EXPECT_EQ(wide.program.notices.words(), "the picture is 301x20; the Canvas takes 300x20 of it");
  Importing fitting;
  fitting.program.keysHintTold = true;
  fitting.temp.put("cat.bmp", fileOf(motley(300, 200, 16), {4}));
  fitting.import("cat");
  EXPECT_EQ(fitting.program.notices.revision(), 0U);
}

/// What is told of an import of `typed`, with this file in the folder.
std::string toldOf(const std::string& typed, const std::string& file, const std::string& bytes) {
  Importing i;
  i.program.keysHintTold = true;
  i.temp.put(file, bytes);
  i.import(typed);
  expectRefused(i);
  return i.program.notices.words();
}

TEST(APictureOfAnotherFormat, IsToldToBeNoBitmap) {
  const std::string png = "\x89PNG\r\n";
  EXPECT_EQ(toldOf("photo.png", "photo.png", png), "photo.png is no bitmap");
  EXPECT_EQ(toldOf("  photo.png", "Photo.PNG", png), "Photo.PNG is no bitmap");
  EXPECT_EQ(toldOf("photo", "photo.jpeg", "\xFF\xD8\xFF"), "photo.jpeg is no bitmap");
  EXPECT_EQ(toldOf("photo.bmp", "photo.png", png), "photo.png is no bitmap");
  EXPECT_EQ(toldOf("photo", "photo.bmp", png), "photo.bmp is no bitmap") << "whatever it is called";
  EXPECT_EQ(toldOf("notes.odt", "notes.odt", "PK"), "notes.odt is no bitmap");
  EXPECT_EQ(toldOf("photo", "other.png", png), "") << "the message says all";
  EXPECT_EQ(toldOf("photo", "photo.maze", "1,2"), "");
}

TEST(ABitmapThatCannotBeRead, IsToldWithTheReason) {
  const std::string whole = fileOf(motley(40, 30, 16), {24});
  EXPECT_EQ(toldOf("cat", "cat.bmp", whole.substr(0, 400)), "cat.bmp cannot be read: cut off");
  EXPECT_EQ(toldOf("my.cat.bmp", "my.cat.bmp", whole),
            "my.cat.bmp was looked for as my.bmp: a name ends at its first point");
}

TEST(ThePanel, ListsTheBitmapsAndOffersTheFirst) {
  World w;
  w.desktop.click(ControlId::Command2);
  w.desktop.untilPhase(Phase::drawing);
  w.desktop.menu(Item::importdrawing);
  w.desktop.look([](Program& p) {
    EXPECT_EQ(p.controls[ControlId::Label11].text, "Please choose the name of the drawing to import:");
    EXPECT_TRUE(p.controls[ControlId::File5].visible);
    EXPECT_TRUE(p.state.paused);
  });
  w.desktop.act([](Program& p) {
    p.controls.setEntries(ControlId::File5, {"a.bmp", "b.bmp"});
    input::listClick(p, ControlId::File5, 1);
    EXPECT_EQ(p.controls[ControlId::Text8].text, "b.bmp");
    EXPECT_EQ(p.controls.focus(), ControlId::Text8);
    input::listClick(p, ControlId::File5, 2);
    EXPECT_EQ(p.controls[ControlId::Text8].text, "b.bmp") << "there is no third entry";
  });
  w.desktop.act([](Program& p) { input::escapePressed(p, ControlId::Text8); });
  w.desktop.look([](Program& p) {
    EXPECT_FALSE(p.state.panelOpen);
    EXPECT_FALSE(p.state.mazeMadeOnce);
  });
  EXPECT_EQ(w.run(), "");
}

}  // namespace

}  // namespace gridwright::test
