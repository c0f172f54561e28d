#include "printing/page_setup.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "menus/panels.h"

namespace gridwright {

namespace {

/// The title is one line.
std::string inOneLine(const std::string& text) {
  std::istringstream in(text);
  std::string line;
  for (std::string word; in >> word;) line += line.empty() ? word : " " + word;
  return line;
}

int within(int margin) { return std::clamp(margin, 0, kMostMargin * kTenths); }

void closePanelOf(Program& program) {
  program.pages.open = false;
  ++program.pages.revision;
  releaseWindow(program);
}

}  // namespace

void pagesetup(Program& program) {
  PagePanel& panel = program.pages;
  panel.usual = program.platform.usualPaper();
  panel.open = true;
  ++panel.revision;
  holdWindowOverScreen(program);
}

void takePageSetup(Program& program, PageSetup setup) {
  if (!program.pages.open) return;
  setup.title = inOneLine(setup.title);
  if (setup.margins) {
    const Margins& m = *setup.margins;
    setup.margins = Margins{within(m.left), within(m.top), within(m.right), within(m.bottom)};
  }
  setup.tiles = {std::clamp(setup.tiles.columns, 1, kMostTiles), std::clamp(setup.tiles.rows, 1, kMostTiles)};
  program.pages.setup = std::move(setup);
  closePanelOf(program);
}

void leavePageSetup(Program& program) {
  if (program.pages.open) closePanelOf(program);
}

}  // namespace gridwright
