#include "files/import_drawing.h"

#include <gtest/gtest.h>

#include "core/input.h"
#include "core/main_loop.h"
#include "support/bitmap_files.h"
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
    for (int x = 0; x < 40; ++x) expected.pixels[static_cast<std::size_t>(y * 300 + x)] = cat.at(x, y);
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
