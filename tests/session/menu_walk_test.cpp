// Every command in every phase, with and without a panel, against a table of its own; and a person
// who does anything at all, a hundred thousand times.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <set>

#include "menus/enable_table.h"
#include "menus/panels.h"
#include "session/book_panel.h"
#include "session/input.h"
#include "session/workshop.h"
#include "support/world.h"

namespace gridwright::test {
namespace {

// Phases -1, 0, 1, 2, 3, 4, from left to right: `x` on, `.` off.
struct Row {
  Item item;
  const char* phases;
  bool inEditor = false;
  bool underTextPanel = false;
  bool inARun = !rowOf(item).isOurs;
};
const std::array kRows = {
    Row{Item::importdrawing, ".x...."},
    Row{Item::ndrawing, ".x...."},
    Row{Item::sdrawing, ".x...."},
    Row{Item::ldrawing, ".x...."},
    Row{Item::choosew, ".x...."},
    Row{Item::selectcolor, ".x...."},
    Row{Item::resetcolors, ".x...."},
    Row{Item::drawingon, ".x....", false, true},
    Row{Item::drawingoff, ".x....", false, true},
    Row{Item::multdrawing, ".x....", false, true},
    Row{Item::changewallsize, ".xx..."},
    Row{Item::createreg, ".xxxxx"},
    Row{Item::create3d, ".xxxxx"},
    Row{Item::create3dpipe, ".xxxxx"},
    Row{Item::newmaze, ".xxxxx"},
    Row{Item::backtodrawing, "..xxxx"},
    Row{Item::backtomaze, "...xxx"},
    Row{Item::sandf, "..x.xx"},
    Row{Item::solvemaze, "...x.."},
    Row{Item::rfinish, ".xxx.."},
    Row{Item::mpdrawing, "..x...", false, true},
    Row{Item::srndpatterns, ".xxx.."},
    Row{Item::printwithsolutions, ".xxxxx"},
    Row{Item::printnosolutions, ".xxxxx"},
    Row{Item::printfff, "xxxxxx", true},
    Row{Item::editpatterns, "xxx...", true},
    Row{Item::rightpattern, "xxx...", true},
    Row{Item::uppattern, "xxx...", true},
    Row{Item::downpattern, "xxx...", true},
    Row{Item::savepatterns, "xxx...", true},
    Row{Item::loadpatterns, "xxx...", true},
    Row{Item::resetpatterns, "xxx...", true},
    Row{Item::exitpattern, "x.....", true},
    Row{Item::crpattern, "x.....", true},
    Row{Item::resetpattern, "x.....", true},
    Row{Item::makeidentical, "x.....", true},
    Row{Item::quit2, "xxxxxx", true},
    Row{Item::openpicture, ".xxxxx"},
    Row{Item::openrecent, ".xxxxx"},
    Row{Item::openexample, ".xxxxx"},
    Row{Item::pastepicture, ".xxxxx"},
    Row{Item::lastpicture, ".x....", false, false, true},
    Row{Item::workshop, ".x...."},
    Row{Item::preparepicture, ".x...."},
    Row{Item::whiteground, ".xxxxx"},
    Row{Item::pagesetup, ".xxxxx", false, false, true},
    Row{Item::printpreview, ".xxxxx", false, false, true},
    Row{Item::exportmaze, ".x.xxx", false, false, true},
    Row{Item::copymaze, ".x.xxx", false, false, true},
    Row{Item::makebook, ".x...."},
    Row{Item::showregions, ".x...."},
    Row{Item::undo, ".xx..."},
    Row{Item::redo, ".x...."},
    Row{Item::markcolours, ".xxxxx", false, false, true},
    Row{Item::statusline, "xxxxxx", true, false, true},
    Row{Item::wholescreen, "xxxxxx", true, false, true},
    Row{Item::showkeys, "xxxxxx", true, false, true},
    Row{Item::surroundings, "xxxxxx", true, false, true},
};

bool colourPanel(const Program& p) {
  return p.controls[ControlId::Check1].visible || p.controls[ControlId::Check17].visible;
}

bool wanted(const Program& p, const Row& row) {
  const ProgramState& s = p.state;
  const int phase = static_cast<int>(s.phase);
  if (phase < -1 || phase > 4) return false;
  if (row.phases[phase + 1] != 'x') return false;
  if (s.editedPattern != 0 && !row.inEditor) return false;
  if (s.paused && (!row.underTextPanel || colourPanel(p))) return false;
  if (row.item == Item::undo && phase == 0 && !p.undoMarks.canUndo) return false;
  if (row.item == Item::undo && phase == 1 && s.creationMode != CreationMode::user) return false;
  if (row.item == Item::redo && !p.undoMarks.canRedo) return false;
  const bool takesPicture = row.item == Item::exportmaze || row.item == Item::copymaze;
  const bool searches = phase == 3 && s.finishMethod != FinishMethod::user && !s.finishFound;
  if (takesPicture && searches) return false;
  const bool setsUpARun = row.item == Item::printwithsolutions || row.item == Item::printnosolutions;
  return (row.inARun && !setsUpARun) || s.print.printTotal == 0;
}

/// The first item on which model and table differ, or nothing.
std::string disagreement(const Program& p) {
  const int phase = static_cast<int>(p.state.phase);
  if (phase < -1 || phase > 4) return {};
  if (p.state.editor.preparing) return {};  // the menus stay as they were before the maze was asked for
  const auto differs = [&](Item item, bool want) {
    if (p.menus.enabled(item) == want) return std::string();
    return std::string(rowOf(item).name) + (want ? " should be on" : " should be off") + " in phase " +
           std::to_string(phase) + (p.state.paused ? ", paused" : "") +
           (p.state.editedPattern != 0 ? ", editing" : "");
  };
  for (const Row& row : kRows) {
    if (std::string fault = differs(row.item, wanted(p, row)); !fault.empty()) return fault;
  }
  const bool refresh = phase >= 0 && p.state.nrefreshDue && !p.state.paused && p.state.editedPattern == 0;
  if (std::string fault = differs(Item::nrefresh, refresh); !fault.empty()) return fault;
  return differs(Item::stopallprintings, p.state.print.printMode != PrintMode::none);
}

TEST(EveryCommand, IsOnExactlyWhereItsRowSaysSo) {
  World w(drawing({"...", "..."}));
  for (int phase = -1; phase <= 4; ++phase) {
    for (int bits = 0; bits < 128; ++bits) {
      w.state.phase = static_cast<Phase>(phase);
      w.state.editedPattern = (bits & 1) != 0 || phase == -1 ? 1 : 0;
      w.state.print.printTotal = (bits & 2) != 0 ? 3 : 0;
      w.state.print.printMode = (bits & 2) != 0 ? PrintMode::withAnswers : PrintMode::none;
      w.state.nrefreshDue = (bits & 4) != 0;
      w.program.undoMarks = {(bits & 16) != 0, (bits & 32) != 0};
      w.state.creationMode = (bits & 64) != 0 ? CreationMode::computer : CreationMode::user;
      if ((bits & 8) != 0) openPanel(w.program, kWallSizePanel, "10");
      applyEnableTableIfChanged(w.program);
      EXPECT_EQ(disagreement(w.program), "");
      if ((bits & 8) != 0) closePanel(w.program, kWallSizePanel);
      applyEnableTableIfChanged(w.program);
      EXPECT_EQ(disagreement(w.program), "") << "after the panel";
    }
  }
}

TEST(EveryItemThatIsOff, DoesNothingWhenItIsChosen) {
  for (int phase = 0; phase <= 4; ++phase) {
    World w(drawing({"...", "..."}));
    w.state.phase = static_cast<Phase>(phase);
    applyEnableTable(w.program);
    for (std::size_t row = 0; row < kItemCount; ++row) {
      if (w.program.menus.available(itemAt(row))) continue;
      w.state.keyBusy = false;
      input::menuClick(w.program, itemAt(row));
      EXPECT_FALSE(w.state.keyBusy) << rowOf(itemAt(row)).name;
      EXPECT_EQ(w.state.phase, static_cast<Phase>(phase)) << rowOf(itemAt(row)).name;
      EXPECT_FALSE(w.state.panelOpen);
    }
  }
}

TEST(AClickWhileKeyBusyIsSet, HasNoEffectAndIsNotQueued) {
  World w(drawing({"...", "..."}));
  w.state.phase = Phase::drawing;
  for (const Item item : {Item::drawingoff, Item::way4, Item::mode2, Item::plarge, Item::pthin,
                          Item::stopfinish, Item::usernd, Item::leavetrail, Item::easymode, Item::cgenerate,
                          Item::quit2, Item::newmaze, Item::largestsolution, Item::changewallsize}) {
    w.state.keyBusy = true;
    const bool checked = w.program.menus.checked(item);
    input::menuClick(w.program, item);
    EXPECT_EQ(w.program.menus.checked(item), checked) << rowOf(item).name;
    EXPECT_EQ(w.state.phase, Phase::drawing);
    EXPECT_FALSE(w.state.panelOpen);
  }
}

TEST(TheWallSizePanel, TakesNumbersFromFiveToFiftyAndAnEmptyBoxAsFive) {
  for (const auto& [text, size] : {std::pair{"", 5}, std::pair{"4", 5}, std::pair{"5", 5},
                                   std::pair{"50", 50}, std::pair{"51", 50}, std::pair{"  12", 12}}) {
    World w(Size{400, 300});
    w.desktop.click(ControlId::Command2);
    w.desktop.menu(Item::newwallsize);
    w.desktop.enter(ControlId::Text2, text);
    w.desktop.pumpsPass(2);
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(w.state.wallWidth, size) << text;
    EXPECT_EQ(w.state.cur, (Square{size, size, 2 * size - 1, 2 * size - 1}));
    EXPECT_EQ(w.state.phase, Phase::drawing);
  }
}

TEST(TheRandomSizePanel, TakesTwoToNinetyNineAndSaysSoInBothCaptions) {
  for (const auto& [text, size] :
       {std::pair{"1", "2"}, std::pair{"", "2"}, std::pair{"7", "7"}, std::pair{"100", "99"}}) {
    World w(Size{400, 300});
    w.desktop.click(ControlId::Command2);
    w.desktop.menu(Item::srndpatterns);
    w.desktop.look([](Program& p) {
      EXPECT_EQ(p.controls[ControlId::Text7].text, std::to_string(p.state.randomPatterns.randomPatternSize));
    });
    w.desktop.enter(ControlId::Text7, text);
    EXPECT_EQ(w.run(), "");
    EXPECT_EQ(std::to_string(w.state.randomPatterns.randomPatternSize), size);
    const std::string quoted = "\"" + std::string(size) + "\"";
    EXPECT_EQ(w.program.menus.caption(Item::maxrnd), "Random patterns are allways size " + quoted);
    EXPECT_EQ(w.program.menus.caption(Item::usernd), "Random patterns are any size from \"1\" to " + quoted);
  }
}

TEST(ANewWallSizeWhileAMazeIsMade, ForgetsTheMazeThatWasPartOfEveryMaze) {
  World w;
  w.begin(drawing({"......", "......", "......", "......"}));
  w.desktop.menu(Item::cgenerate);
  w.desktop.menu(Item::newmaze);
  w.desktop.untilPhase(Phase::making);
  w.desktop.pumpsPass(5);
  w.desktop.menu(Item::mpdrawing);
  w.desktop.menu(Item::changewallsize);
  w.desktop.enter(ControlId::Text2, "7");
  w.desktop.pumpsPass(2);
  EXPECT_EQ(w.run(), "");
  EXPECT_EQ(w.state.phase, Phase::drawing);
  EXPECT_FALSE(w.state.nrefreshDue) << "its stops lie on another grid";
}

/// Somebody who presses, clicks, types and resizes at random, and looks at the menus each time.
class Fidget {
 public:
  explicit Fidget(std::uint32_t seed) : random_(seed) {}

  void operator()(Program& p, BareDesktop& desktop) {
    seen_.insert(p.state.phase);
    fault_ = fault_.empty() ? disagreement(p) : fault_;
    if (p.workshop.open && below(8) == 0) return atWorkshop(p);
    if (p.book.open && below(2) == 0) return atBook(p);
    if (p.book.making.underWay && below(80) == 0) return bookGoesOn(p);
    switch (below(12)) {
      case 0:
      case 1:
      case 2:
      case 3:
      case 4:
        return key(p);
      case 5:
      case 6:
      case 7:
        return input::menuClick(p, item());
      case 8:
        if (p.exporting.open) return atExport(p);
        return p.pages.open ? atPageSetup(p) : box(p);
      case 9:
        return swatch(p);
      case 10:
        return below(40) == 0 ? arrival(p, desktop) : button(p);
      default:
        if (below(20) != 0) return key(p);
        desktop.setClient({60 + below(140), 50 + below(110)});
        return input::resized(p, desktop.clientSize());
    }
  }

  [[nodiscard]] const std::string& fault() const { return fault_; }
  [[nodiscard]] bool hasSeen(Phase phase) const { return seen_.contains(phase); }

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  /// Any item, and every second time one that leads on.
  Item item() {
    static constexpr std::array kOnward = {
        Item::newmaze,       Item::cgenerate,  Item::solvemaze,       Item::solvemaze,    Item::create3d,
        Item::create3dpipe,  Item::createreg,  Item::mpdrawing,       Item::nrefresh,     Item::sandf,
        Item::backtomaze,    Item::rfinish,    Item::changewallsize,  Item::easymode,     Item::hardmode,
        Item::backtodrawing, Item::stopfinish, Item::largestsolution, Item::editpatterns, Item::exitpattern};
    if (below(2) == 0) return itemAt(static_cast<std::size_t>(below(static_cast<int>(kItemCount))));
    return kOnward[static_cast<std::size_t>(below(static_cast<int>(kOnward.size())))];
  }
  void key(Program& p) {
    static constexpr std::array kKeys = {37, 38, 39, 40, 65, 67, 68, 70, 71,  72,  73,  74,  75, 76,
                                         77, 78, 83, 84, 87, 88, 90, 13, 188, 190, 191, 222, 1,  999};
    input::keyDown(p, kKeys[static_cast<std::size_t>(below(static_cast<int>(kKeys.size())))]);
  }
  void box(Program& p) {
    static constexpr std::array kBoxes = {ControlId::Text2, ControlId::Text7, ControlId::text1,
                                          ControlId::Text4, ControlId::Text5, ControlId::Text6,
                                          ControlId::Text3, ControlId::Text8};
    static constexpr std::array kTexts = {"", "5", "2", "9", "13", "x", "begin", "-1"};
    for (const ControlId id : kBoxes) {
      if (!p.controls[id].visible) continue;
      input::textTyped(p, id, kTexts[static_cast<std::size_t>(below(static_cast<int>(kTexts.size())))]);
      if (below(2) == 0) return input::enterPressed(p, id);
      return input::escapePressed(p, id);
    }
  }
  void atExport(Program& p) {
    static constexpr std::array kFiles = {"a.png", "a.svg", "a.pdf", "a", "", "none/a.png"};
    ExportWish wish{kFiles[static_cast<std::size_t>(below(static_cast<int>(kFiles.size())))]};
    if (below(2) == 0) wish.answer = below(2) == 0;
    wish.clear = below(2) == 0;
    if (below(3) == 0) return input::exportEscaped(p);
    input::exportEntered(p, wish);
  }
  void atPageSetup(Program& p) {
    PageSetup setup = p.pages.setup;
    setup.endWords = below(2) == 0;
    setup.title = below(2) == 0 ? "a title" : "";
    if (below(2) == 0) setup.margins = allRound(below(99));
    if (below(3) == 0) return input::pageSetupEscaped(p);
    input::pageSetupEntered(p, setup);
  }
  void atBook(Program& p) {
    BookWish wish = p.book.wish;
    wish.drawing = below(3) != 0;
    wish.sheet = below(3) == 0;
    if (below(3) == 0) return input::bookEscaped(p);
    if (below(3) == 0) return input::bookFilled(p, wish);
    input::bookAccepted(p, wish);
  }
  void bookGoesOn(Program& p) {
    if (below(3) == 0) return input::bookCancelled(p);
    BookNews news{1, 2, {{1, plainBitmap(3, 3, 0)}}, {}};
    if (below(3) == 0) news.end = BookEnd{static_cast<std::size_t>(below(2)), below(2) == 0, {}};
    bookNews(p, news);
  }
  void preparation(Program& p) {
    PrepareSettings settings = p.prepare.settings;
    switch (below(4)) {
      case 0:
        return input::preparedAccepted(p);
      case 1:
        return input::pictureAcceptedAsItIs(p);
      case 2:
        return input::preparationCancelled(p);
      default:
        settings.colours = below(20);
        settings.detail = below(7);
        settings.outlines = static_cast<Outlines>(below(4));
        settings.asItsSize = below(2) == 0;
        if (below(2) == 0) settings.grow = {below(4), below(4)};
        return input::preparationChanged(p, settings);
    }
  }
  void atWorkshop(Program& p) {
    if (p.prepare.open && below(2) == 0) return preparation(p);
    const auto place = [&] { return below(400) - 100; };
    const std::optional<Corner> at = below(2) == 0 ? std::optional(Corner{place(), place()}) : std::nullopt;
    const int x = place();
    const int y = place();
    switch (below(12)) {
      case 0:
        return onSheet(p, [&](Sheet& sheet) { sheet.press(x, y); });
      case 1:
        return onSheet(p, [&](Sheet& sheet) { sheet.drag(x, y, below(2) == 0); });
      case 2:
        return onSheet(p, [&](Sheet& sheet) { sheet.release(x, y); });
      case 3:
        return onSheet(p, [&](Sheet& sheet) { sheet.undo(); });
      case 4:
        return onSheet(p, [&](Sheet& sheet) { sheet.redo(); });
      case 5:
        return putStamp(p, {"star", below(20), below(15)}, at);
      case 6:
        return putWords(p, {}, at);
      case 7:
        return placePrepared(p, at,
                             below(2) == 0 ? std::optional(Size{below(300), below(300)}) : std::nullopt);
      case 8:
        return movePlaced(p, {x, y}, {below(300), below(300)});
      case 9:
        return newsheet(p);
      case 10:
        return below(3) != 0 ? leaveWorkshop(p) : putPictureAway(p);
      default:
        return below(2) == 0 ? useWorkshop(p) : onSheet(p, [&](Sheet& sheet) { choose(sheet); });
    }
  }
  void choose(Sheet& sheet) {
    ToolSettings tool;
    tool.tool = static_cast<Tool>(below(7));
    tool.size = below(60);
    tool.oneCell = below(4) == 0;
    tool.snap = below(4) == 0;
    tool.outline = below(2) == 0;
    tool.mirror = static_cast<Mirror>(below(4));
    tool.colour = below(17);
    sheet.choose(tool);
  }
  void arrival(Program& p, BareDesktop& desktop) {
    if (desktop.picturesElsewhere.empty()) {
      const Bitmap ready = drawing({"....", "...."});
      const Bitmap other = plainBitmap(70, 40, 0x123456);
      desktop.picturesElsewhere["/ready.png"] = {{ready, {}}, {}, {ready.width, ready.height}};
      desktop.picturesElsewhere["/other.png"] = {{other, {}}, {}, {other.width, other.height}};
      desktop.clipboard = Pasted{"/other.png", {}};
    }
    const auto entry = [&] { return below(12); };
    switch (below(7)) {
      case 0:
        return input::filesBrought(p, {"/ready.png"});
      case 6:
        return input::autosave(p);
      case 1:
        return input::filesBrought(p, {"/other.png", "/ready.png"});
      case 2:
        return input::pasteAsked(p);
      case 3:
        return input::nothingBrought(p);
      case 4:
        return input::menuEntryClick(p, Item::openexample, entry());
      default:
        return input::menuEntryClick(p, Item::openrecent, entry());
    }
  }
  void swatch(Program& p) {
    const int first = static_cast<int>(ControlId::Check1);
    const int last = static_cast<int>(ControlId::Check17);
    const auto id = static_cast<ControlId>(first + below(std::max(1, last - first + 1)));
    if (below(3) == 0) return input::swatchRight(p, id);
    input::swatchLeft(p, id);
  }
  void button(Program& p) {
    static constexpr std::array kButtons = {ControlId::Command1, ControlId::Command2, ControlId::Command4,
                                            ControlId::Command5, ControlId::Command6};
    input::buttonClick(p, kButtons[static_cast<std::size_t>(below(static_cast<int>(kButtons.size())))]);
  }

  std::mt19937 random_;
  std::string fault_;
  std::set<Phase> seen_;
};

bool isAtRest(const Program& p) {
  return p.state.phase == Phase::drawing && !p.state.paused && p.state.editedPattern == 0;
}

/// The way back to a drawing that is open to everybody: out of panels, to the title, and on.
void leadBack(Program& p, int turn) {
  if (p.workshop.open) return leaveWorkshop(p);
  if (p.pages.open) return input::pageSetupEscaped(p);
  if (p.exporting.open) return input::exportEscaped(p);
  if (p.book.open) return input::bookEscaped(p);
  for (const ControlId id : {ControlId::Text2, ControlId::Text7, ControlId::text1, ControlId::Text4,
                             ControlId::Text5, ControlId::Text6, ControlId::Text3, ControlId::Text8}) {
    if (p.controls[id].visible) return input::escapePressed(p, id);
  }
  if (p.state.paused && p.controls[ControlId::Command1].visible)
    return input::buttonClick(p, ControlId::Command1);
  if (p.state.paused) {
    const auto id = static_cast<ControlId>(static_cast<int>(ControlId::Check1) + turn % 20);
    return input::swatchLeft(p, id);
  }
  if (p.menus.available(Item::quit2)) return input::menuClick(p, Item::quit2);
  input::buttonClick(p, ControlId::Command2);
}

class AnyOrderOfInputs : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(AnyOrderOfInputs, NeverCrashesNeverLeavesAnItemOffAndEndsInADrawing) {
  World w;
  w.begin(drawing({"..........", "..,,,,....", "..........", "...####...", "..........", ".........."}));
  Fidget fidget(GetParam());
  for (int i = 0; i < 12'500; ++i) {
    w.desktop.act([&](Program& p) { fidget(p, w.desktop); });
    for (int wait = 0; i % 250 == 0 && wait < 500; ++wait) w.desktop.act([](Program&) {});  // a maze may end
  }
  for (int i = 0; i < 400; ++i) {
    w.desktop.act([i](Program& p) {
      if (!isAtRest(p)) leadBack(p, i);
    });
  }
  w.desktop.pumpsPass(3);
  bool rested = false;
  w.desktop.look([&](Program& p) { rested = isAtRest(p); });
  ASSERT_EQ(w.run(), "");
  EXPECT_TRUE(rested) << "phase " << static_cast<int>(w.state.phase) << " paused " << w.state.paused;
  EXPECT_EQ(fidget.fault(), "");
  for (const Phase phase :
       {Phase::title, Phase::patternEditing, Phase::drawing, Phase::making, Phase::placing, Phase::solving}) {
    EXPECT_TRUE(fidget.hasSeen(phase)) << static_cast<int>(phase);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyOrderOfInputs, ::testing::Range(1U, 9U));

}  // namespace
}  // namespace gridwright::test
