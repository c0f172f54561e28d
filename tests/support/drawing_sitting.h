// A person who draws, and what there is to be seen of the drawing between two inputs.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "history/history.h"
#include "history/kept_values.h"
#include "session/input.h"
#include "support/world.h"

namespace gridwright::test {

/// The drawing: its picture to the last mark of what is covered, and its values.
struct Seen {
  std::vector<Colour> plane;
  KeptValues values;
  Square prev;
  int gridRight = 0, gridBottom = 0;
  // What is not compared.
  Bitmap image, shown;
  std::string caption;
  HistorySize size;

  friend bool operator==(const Seen& a, const Seen& b) {
    return a.plane == b.plane && a.values == b.values && a.prev == b.prev && a.gridRight == b.gridRight &&
           a.gridBottom == b.gridBottom;
  }
};

inline Seen seenOf(const Program& p) {
  Seen seen;
  const Colour* plane = p.canvas.keptRow(0);
  seen.plane.assign(plane, plane + static_cast<std::ptrdiff_t>(Canvas::kSide) * Canvas::kSide);
  seen.values = keptValuesOf(p);
  seen.prev = p.state.prev;
  seen.gridRight = p.state.gridRight;
  seen.gridBottom = p.state.gridBottom;
  seen.image = p.canvas.image();
  seen.shown = p.canvas.shownImage();
  seen.caption = p.controls.caption();
  seen.size = historySize(p);
  return seen;
}

/// Stands in the drawing phase; what it does waits until `run`.
struct Sitting : World {
  explicit Sitting(Size client = {200, 150}) : World(client) {
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.pumpsPass(2);
  }
  void act(BareDesktop::Action action) {
    desktop.act(std::move(action));
    pump(2);
  }
  void look(BareDesktop::Action action) { desktop.look(std::move(action)); }
  void pump(int count) { desktop.pumpsPass(count); }
  void key(int code, KeyGo go = KeyGo::fresh) {
    act([code, go](Program& p) { input::keyDown(p, code, go); });
  }
  /// \param first what is done to the program before, in the same pump.
  void menu(Item item, const BareDesktop::Action& first = {}) {
    if (first) look(first);
    desktop.menu(item);
    pump(2);
  }
  void click(ControlId button) {
    desktop.click(button);
    pump(2);
  }
  void enter(ControlId box, const std::string& text) {
    desktop.enter(box, text);
    pump(2);
  }
  /// What is to be seen when its turn comes.
  std::shared_ptr<Seen> see() {
    auto seen = std::make_shared<Seen>();
    look([seen](Program& p) { *seen = seenOf(p); });
    return seen;
  }
  void run() { EXPECT_EQ(World::run(), ""); }
};

}  // namespace gridwright::test
