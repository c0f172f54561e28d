// A person's session over a real folder: draws, saves, loads.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "session/main_loop.h"
#include "state/program.h"
#include "support/disk_desktop.h"

namespace gridwright::test {

struct DiskSession {
  /// Stands in the drawing phase, in a window just as large as the picture that `draw` puts there.
  DiskSession(const std::filesystem::path& folder, Bitmap drawn)
      : picture(std::move(drawn)), program(desktop, folder) {
    desktop.setClient({picture.width, picture.height});
    desktop.click(ControlId::Command2);
    desktop.untilPhase(Phase::drawing);
    desktop.pumpsPass(2);
  }
  void draw() {
    desktop.act([this](Program& p) {
      p.canvas.setPicture(picture);
      p.state.drawing.skipPaintOnce = p.state.drawing.firstPaint = true;
    });
    desktop.pumpsPass(2);
  }
  void save(const std::string& name) {
    desktop.menu(Item::sdrawing);
    desktop.enter(ControlId::text1, name);
    desktop.pumpsPass(2);
  }
  void load(const std::string& name) {
    desktop.menu(Item::ldrawing);
    desktop.enter(ControlId::Text4, name);
    desktop.pumpsPass(2);
  }
  void look(BareDesktop::Action action) { desktop.look(std::move(action)); }
  void run() {
    try {
      runProgram(program);
    } catch (const ProgramEnd&) {
    }
    EXPECT_EQ(desktop.trouble, "");
  }

  Bitmap picture;
  DiskDesktop desktop;
  Program program;
};

}  // namespace gridwright::test
