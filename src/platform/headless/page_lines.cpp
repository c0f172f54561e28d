// The lines of a script that say how pages look, and that take the picture elsewhere.
#include "platform/headless/headless_desktop.h"
#include "platform/shared/picture_files.h"
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

bool readExport(const ScriptSetting& setting, ExportWish& wish) {
  const auto [name, value] = setting;
  if (name == "dpi") return readNumber(value, kLeastDpi, kMostDpi, wish.dpi);
  if (name == "clear") return readFlag(value, wish.clear);
  bool answer = false;
  if (name != "answer" || !readFlag(value, answer)) return false;
  wish.answer = answer;
  return true;
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

// What a person does with the panel, whether it is open or not: what is against it is told in a line.
HeadlessDesktop::Turn HeadlessDesktop::exportPicture(Program& program, const ScriptLine& line) {
  const std::vector<std::string> words = quotedWords(line.whole);
  if (words.size() < 2 || words[1].empty()) refuse("a word is missing");
  ExportWish wish;
  wish.file = words[1];
  holdUnderstood(readAll(words, 2, [&](const ScriptSetting& s) { return readExport(s, wish); }));
  input::exportEntered(program, wish);
  return Turn::givePump;
}

Outcome<Done> HeadlessDesktop::writePicture(const PictureFile& wanted, const std::filesystem::path& path) {
  if (wanted.format == PictureFormat::pdf) options_.beforePictures();
  return writePictureFile(wanted, path);
}

bool HeadlessDesktop::copyPicture(const BitmapView& picture, const std::string& /*svg*/) {
  copied_ = {picture.width, picture.height};
  return true;
}

}  // namespace gridwright
