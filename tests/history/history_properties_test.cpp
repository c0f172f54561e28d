// A person who does anything at all in the drawing: every step goes and comes back as it was.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "history/history.h"
#include "session/input.h"
#include "state/key_codes.h"
#include "support/disk_session.h"
#include "support/drawing_sitting.h"
#include "support/work_folders.h"

namespace gridwright::test {
namespace {

/// What is to be seen of the drawing, in a few words: ten thousand planes are too many to keep.
struct Print {
  std::uint64_t plane = 0;
  Seen rest;
};

Print printOf(const Program& p) {
  Print print;
  const auto add = [&print](Colour pixel) {
    print.plane = (print.plane ^ static_cast<std::uint32_t>(pixel)) * 0x9E3779B97F4A7C15U;
    print.plane ^= print.plane >> 29;
  };
  // Where nobody sees it the Canvas is filled as a whole or not at all.
  constexpr int kNearColumns = 112, kNearRows = 80, kApart = 509;
  const Colour* plane = p.canvas.keptRow(0);
  for (int y = 0; y < kNearRows; ++y) std::for_each_n(p.canvas.keptRow(y), kNearColumns, add);
  for (int i = 0; i < Canvas::kSide * Canvas::kSide; i += kApart) add(plane[i]);
  print.rest.values = keptValuesOf(p);
  print.rest.prev = p.state.prev;
  print.rest.gridRight = p.state.gridRight;
  print.rest.gridBottom = p.state.gridBottom;
  return print;
}

/// The names of the values that differ.
std::string differing(const KeptValues& a, const KeptValues& b) {
  std::string names;
  const auto compare = [&](const char* name, bool same) {
    if (!same) names += std::string(names.empty() ? "" : ", ") + name;
  };
  compare("cur", a.cur == b.cur);
  compare("mirror", a.mirror == b.mirror);
  compare("canvas", a.canvas == b.canvas);
  compare("drawColor", a.drawColor == b.drawColor);
  compare("backgroundDrawColor", a.backgroundDrawColor == b.backgroundDrawColor);
  compare("borderDrawColor", a.borderDrawColor == b.borderDrawColor);
  compare("drawingOff", a.drawingOff == b.drawingOff);
  compare("firstPaint", a.firstPaint == b.firstPaint);
  compare("wallWidth", a.wallWidth == b.wallWidth);
  compare("mazeKind", a.mazeKind == b.mazeKind);
  compare("symmetryMode", a.symmetryMode == b.symmetryMode);
  compare("swatches", a.swatches == b.swatches);
  compare("mazeColors", a.mazeColors == b.mazeColors);
  compare("individualMazeColors", a.individualMazeColors == b.individualMazeColors);
  compare("mazeColor", a.mazeColor == b.mazeColor);
  compare("keptMazeColor", a.keptMazeColor == b.keptMazeColor);
  compare("backColor", a.backColor == b.backColor);
  compare("mazeMadeOnce", a.mazeMadeOnce == b.mazeMadeOnce);
  return names;
}

bool isAtRest(const Program& p) { return p.state.phase == Phase::drawing && !p.state.panelOpen; }

/// Inputs of the drawing phase; one that begins no maze and leaves for no editor and no title.
class Draughtsman {
 public:
  explicit Draughtsman(std::uint32_t seed) : random_(seed) {}

  void operator()(Program& p) {
    if (p.state.panelOpen) return panel(p);
    const int what = below(100);
    if (what < 75) return key(p);
    if (what < 85) return input::menuClick(p, below(3) == 0 ? Item::redo : Item::undo);
    menu(p);
  }

  static void leavePanel(Program& p) {
    if (p.prepare.open) return input::preparationCancelled(p);
    for (const ControlId box : kBoxes) {
      if (p.controls[box].visible) return input::escapePressed(p, box);
    }
    const bool drawingPanel = p.controls[ControlId::Label6].visible;
    const bool mazePanel = p.controls[ControlId::Label7].visible;
    input::escapePressed(p, drawingPanel ? ControlId::Check17
                            : mazePanel  ? ControlId::Check35
                                         : ControlId::Check1);
  }

 private:
  static constexpr std::array kBoxes = {ControlId::Text2, ControlId::Text4, ControlId::Text8};

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  template <class Values>
  auto oneOf(const Values& values) {
    return values[static_cast<std::size_t>(below(static_cast<int>(values.size())))];
  }

  void key(Program& p) {
    static constexpr std::array kKeys = {key::J,     key::I,      key::L,     key::K,     key::left, key::up,
                                         key::right, key::down,   key::W,     key::S,     key::A,    key::D,
                                         key::T,     key::G,      key::F,     key::H,     key::Z,    key::X,
                                         key::comma, key::period, key::slash, key::quote, key::C,    key::N,
                                         key::M,     key::L,      key::K,     key::right, key::down};
    if (below(4) != 0) lastKey_ = oneOf(kKeys);
    input::keyDown(p, lastKey_, static_cast<KeyGo>(below(3)));
  }

  void menu(Program& p) {
    static constexpr std::array kItems = {
        Item::way4,     Item::horizontal, Item::vertical,    Item::turnsoff,       Item::drawingon,
        Item::choosew,  Item::choosew,    Item::selectcolor, Item::resetcolors,    Item::newwallsize,
        Item::rmazes,   Item::mazes3d,    Item::mazes3d1,    Item::changewallsize, Item::importdrawing,
        Item::ldrawing, Item::create3d,   Item::createreg,   Item::create3dpipe,   Item::preparepicture};
    const Item item = oneOf(kItems);
    const bool beginsMaze = (item == Item::createreg && p.state.mazeKind == MazeKind::regular) ||
                            (item == Item::create3d && p.state.mazeKind == MazeKind::threeD) ||
                            (item == Item::create3dpipe && p.state.mazeKind == MazeKind::pipe);
    if (!beginsMaze) input::menuClick(p, item);
  }

  void panel(Program& p) {
    if (p.prepare.open) return input::preparedAccepted(p);
    static constexpr std::array kSizes = {"5", "9", "10", "23", "50"};
    static constexpr std::array kNames = {"room", "none", "kept"};
    if (p.controls[ControlId::Text2].visible) return enter(p, ControlId::Text2, oneOf(kSizes));
    if (p.controls[ControlId::Text4].visible) return enter(p, ControlId::Text4, oneOf(kNames));
    if (p.controls[ControlId::Text8].visible) return enter(p, ControlId::Text8, oneOf(kNames));
    const int what = below(10);
    const int swatch = below(kSlots);
    if (p.controls[ControlId::Label6].visible) return input::swatchLeft(p, drawingSwatch(swatch));
    if (p.controls[ControlId::Label7].visible) return input::swatchLeft(p, mazeSwatch(swatch));
    if (what < 4) return input::swatchLeft(p, classifySwatch(swatch));
    if (what < 6) return input::swatchRight(p, classifySwatch(swatch));
    if (what < 7) return input::swatchLeft(p, below(2) == 0 ? ControlId::Check33 : ControlId::Check34);
    leavePanel(p);
  }

  static void enter(Program& p, ControlId box, const char* text) {
    input::textTyped(p, box, text);
    input::enterPressed(p, box);
  }

  std::mt19937 random_;
  int lastKey_ = key::L;
};

/// What was to be seen after each step, from the bottom up.
class Ladder {
 public:
  void look(Program& p) {
    if (!isAtRest(p)) return;
    const HistorySize size = historySize(p);
    ASSERT_LE(size.toUndo, prints_.size());
    EXPECT_LE(size.bytes, kHistoryBytes);
    const Print now = printOf(p);
    if (size.toRedo > 0) {  // some steps have gone or come back
      ASSERT_LT(size.toUndo, prints_.size());
      compare(prints_[size.toUndo], now, size.toUndo);
      return;
    }
    prints_.resize(size.toUndo);
    prints_.push_back(now);
  }
  [[nodiscard]] std::size_t height() const { return prints_.size() - 1; }
  [[nodiscard]] const Print& at(std::size_t step) const { return prints_.at(step); }
  [[nodiscard]] int compared() const { return compared_; }
  void compare(const Print& was, const Print& is, std::size_t step) {
    ++compared_;
    EXPECT_EQ(was.plane, is.plane) << "step " << step;
    EXPECT_EQ(differing(was.rest.values, is.rest.values), "") << "step " << step;
    EXPECT_TRUE(was.rest == is.rest) << "step " << step;
  }

 private:
  std::vector<Print> prints_;
  int compared_ = 0;
};

class AnyDrawing : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(AnyDrawing, GoesAndComesBackStepByStep) {
  constexpr int kInputs = 1250;
  const TempFolder folder;
  DiskSession s(folder.path(), drawing({"....##..", "..,,,,..", "..####..", ".......o"}));
  s.draw();
  s.save("kept");
  s.look([&](Program& p) {
    s.desktop.saveBitmap(s.picture, folder.path() / "room.bmp", Overwrite::atOnce);
    beginHistory(p);
  });
  s.desktop.pumpsPass(2);
  Draughtsman draws(GetParam());
  Ladder ladder;
  s.look([&](Program& p) { ladder.look(p); });
  for (int i = 0; i < kInputs; ++i) {
    s.desktop.act([&](Program& p) { draws(p); });
    s.desktop.pumpsPass(2);
    s.look([&](Program& p) { ladder.look(p); });
  }
  for (int i = 0; i < 3; ++i) {
    s.desktop.act([](Program& p) {
      if (p.state.panelOpen) Draughtsman::leavePanel(p);
    });
    s.desktop.pumpsPass(2);
  }
  std::size_t steps = 0;
  s.look([&](Program& p) { ladder.look(p); });
  for (const Item item : {Item::redo, Item::undo, Item::redo}) {
    for (int i = 0; i < kInputs; ++i) {
      s.desktop.act([item](Program& p) { input::menuClick(p, item); });
      s.desktop.pumpsPass(1);
      s.look([&](Program& p) {
        const HistorySize size = historySize(p);
        if (item == Item::undo && size.toUndo > 0 && size.toRedo == 0) ADD_FAILURE() << "nothing went";
        steps = std::max(steps, size.toUndo);
        ladder.compare(ladder.at(size.toUndo), printOf(p), size.toUndo);
      });
    }
  }
  s.run();
  EXPECT_GT(steps, std::size_t{kInputs} / 5);
  EXPECT_GT(ladder.compared(), 3 * kInputs);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyDrawing, ::testing::Range(1U, 9U));

}  // namespace
}  // namespace gridwright::test
