// The line of a script that says how pages look.
#include "platform/headless/headless_desktop.h"
#include "session/input.h"
#include "state/program.h"

namespace gridwright {

namespace {

constexpr std::string_view kAsUsual = "auto";  // what nobody has set

bool readPage(const ScriptSetting& setting, PageSetup& page) {
  const auto [name, value] = setting;
  if (name == "title") page.title = value;
  if (name == "title") return true;
  if (name == "nameline") return readFlag(value, page.nameLine);
  if (name == "endwords") return readFlag(value, page.endWords);
  const bool asUsual = value == kAsUsual;
  if (name == "paper") {
    page.paper = paperNamed(value);
    return asUsual || page.paper;
  }
  if (name == "landscape") {
    bool lies = false;
    const bool understood = readFlag(value, lies);
    page.landscape = understood ? std::optional(lies) : std::nullopt;
    return asUsual || understood;
  }
  if (name == "tiles") {
    const auto tiles = asUsual ? std::optional(PageTiles{}) : tilesNamed(value);
    page.tiles = tiles.value_or(page.tiles);
    return tiles.has_value();
  }
  int margin = 0;
  if (name != "margin") return false;
  const bool understood = readNumber(value, 0, kMostMargin, margin);
  page.margins = understood ? std::optional(allRound(margin)) : std::nullopt;
  return asUsual || understood;
}

}  // namespace

// All that a person does with the panel, or what is left of it when it is open already.
HeadlessDesktop::Turn HeadlessDesktop::pagesetup(Program& program, const ScriptLine& line) {
  if (!program.pages.open && !program.menus.available(Item::pagesetup))
    refuse("pagesetup is disabled or hidden");
  PageSetup setup = program.pages.setup;
  holdUnderstood(
      readAll(quotedWords(line.whole), 1, [&](const ScriptSetting& s) { return readPage(s, setup); }));
  if (!program.pages.open) input::menuClick(program, Item::pagesetup);
  input::pageSetupEntered(program, setup);
  return Turn::givePump;
}

}  // namespace gridwright
