// The lines of a script that work on the workshop's sheet.
#include <algorithm>
#include <array>
#include <system_error>

#include "pictures/stamps.h"
#include "platform/headless/headless_desktop.h"
#include "session/workshop.h"
#include "state/program.h"

namespace gridwright {

namespace {

template <class Value>
struct Named {
  std::string_view word;
  Value value;
};
constexpr auto kTools = std::to_array<Named<Tool>>({{"pencil", Tool::pencil},
                                                    {"line", Tool::line},
                                                    {"rectangle", Tool::rectangle},
                                                    {"ellipse", Tool::ellipse},
                                                    {"fill", Tool::fill},
                                                    {"eraser", Tool::eraser},
                                                    {"pick", Tool::pick}});
constexpr auto kMirrors = std::to_array<Named<Mirror>>(
    {{"none", Mirror::none}, {"lr", Mirror::leftRight}, {"tb", Mirror::topBottom}, {"both", Mirror::both}});

template <class Value, std::size_t kCount>
bool readNamed(const std::array<Named<Value>, kCount>& rows, std::string_view word, Value& value) {
  const auto* row = std::find_if(rows.begin(), rows.end(), [&](const auto& r) { return r.word == word; });
  if (row != rows.end()) value = row->value;
  return row != rows.end();
}

constexpr int kFurthest = 100'000;  // pixels, as far as a sheet knows places

bool readPair(std::string_view word, char between, int least, int& one, int& other) {
  const std::size_t by = word.find(between);
  return by != std::string_view::npos && readNumber(word.substr(0, by), least, kFurthest, one) &&
         readNumber(word.substr(by + 1), least, kFurthest, other);
}

bool readPlace(std::string_view word, std::optional<Corner>& at) {
  Corner place;
  if (!readPair(word, ',', -kFurthest, place.x, place.y)) return false;
  at = place;
  return true;
}

bool readTool(const ScriptSetting& setting, ToolSettings& tool) {
  const auto [name, value] = setting;
  if (name == "size") {
    tool.oneCell = value == "cell";
    return tool.oneCell || readNumber(value, 1, kThickest, tool.size);
  }
  if (name == "snap") return readFlag(value, tool.snap);
  if (name == "outline") return readFlag(value, tool.outline);
  if (name == "mirror") return readNamed(kMirrors, value, tool.mirror);
  if (name != "colour") return false;
  if (value != "paper") return readNumber(value, 0, kPaperInk - 1, tool.colour);
  tool.colour = kPaperInk;
  return true;
}

bool readWords(const ScriptSetting& setting, WordSettings& words, std::optional<Corner>& at) {
  const auto [name, value] = setting;
  int number = 0;
  if (name == "font") words.font = value;
  if (name == "font") return !value.empty();
  if (name == "bold") return readFlag(value, words.bold);
  if (name == "join") return readFlag(value, words.join);
  if (name == "frame") return readFlag(value, words.frame);
  if (name == "at") return readPlace(value, at);
  if (name == "height") {
    words.height.reset();
    if (value == "fit") return true;
    if (!readNumber(value, 1, kMostCellsHigh, number)) return false;
    words.height = number;
    return true;
  }
  if (name != "colour") return false;
  words.colour.reset();
  if (value == "turn") return true;
  if (!readNumber(value, 0, kPaperInk - 1, number)) return false;
  words.colour = number;
  return true;
}

bool readStamp(const ScriptSetting& setting, StampSettings& stamp, std::optional<Corner>& at) {
  const auto [name, value] = setting;
  if (name == "height") return readNumber(value, 1, kMostCellsHigh, stamp.height);
  if (name == "colour") return readNumber(value, 0, kPaperInk - 1, stamp.colour);
  return name == "at" && readPlace(value, at);
}

}  // namespace

InkWork& HeadlessDesktop::inkWork() {
  options_.beforePictures();
  return ink_;
}

void HeadlessDesktop::holdUnderstood(const std::string& word) const {
  if (!word.empty()) refuse("not understood: " + word);
}

HeadlessDesktop::Turn HeadlessDesktop::newsheet(Program& program, const ScriptLine&) {
  holdWorkshopOpen(program);
  gridwright::newsheet(program);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::tool(Program& program, const ScriptLine& line) {
  holdWorkshopOpen(program);
  ToolSettings tool = program.workshop.sheet->settings();
  if (!readNamed(kTools, word(1), tool.tool)) refuse("no such tool: " + word(1));
  holdUnderstood(readAll(line.words, 2, [&](const ScriptSetting& s) { return readTool(s, tool); }));
  onSheet(program, [&](Sheet& sheet) { sheet.choose(tool); });
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::atPlace(Program& program, void (*act)(Sheet&, Corner)) {
  holdWorkshopOpen(program);
  const auto within = [](std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, -kFurthest, kFurthest));
  };
  const Corner at{within(number(1)), within(number(2))};
  onSheet(program, [&](Sheet& sheet) { act(sheet, at); });
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::press(Program& program, const ScriptLine&) {
  return atPlace(program, [](Sheet& sheet, Corner at) { sheet.press(at.x, at.y); });
}

HeadlessDesktop::Turn HeadlessDesktop::drag(Program& program, const ScriptLine&) {
  return atPlace(program, [](Sheet& sheet, Corner at) { sheet.drag(at.x, at.y); });
}

HeadlessDesktop::Turn HeadlessDesktop::release(Program& program, const ScriptLine&) {
  return atPlace(program, [](Sheet& sheet, Corner at) { sheet.release(at.x, at.y); });
}

HeadlessDesktop::Turn HeadlessDesktop::words(Program& program, const ScriptLine& line) {
  holdWorkshopOpen(program);
  const std::vector<std::string> parts = quotedWords(line.whole);
  if (!line.hasText || line.words.size() != 1) refuse("a text in double quotes is missing");
  WordSettings words = program.workshop.words;
  words.text = parts[1];
  std::optional<Corner> at;
  holdUnderstood(readAll(parts, 2, [&](const ScriptSetting& s) { return readWords(s, words, at); }));
  putWords(program, words, at);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::stamp(Program& program, const ScriptLine& line) {
  holdWorkshopOpen(program);
  StampSettings stamp = program.workshop.stamp;
  stamp.name = word(1);
  if (std::find(kStamps.begin(), kStamps.end(), stamp.name) == kStamps.end())
    refuse("no such stamp: " + stamp.name);
  std::optional<Corner> at;
  holdUnderstood(readAll(line.words, 2, [&](const ScriptSetting& s) { return readStamp(s, stamp, at); }));
  putStamp(program, stamp, at);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::place(Program& program, const ScriptLine& line) {
  holdWorkshopOpen(program);
  std::optional<Corner> at;
  std::optional<Size> size;
  holdUnderstood(readAll(line.words, 1, [&](const ScriptSetting& setting) {
    if (setting.name == "at") return readPlace(setting.value, at);
    size.emplace();
    return setting.name == "size" && readPair(setting.value, 'x', 1, size->width, size->height);
  }));
  if (program.prepare.open) {
    placePrepared(program, at, size);
  } else if (const auto& placed = program.workshop.placed) {
    movePlaced(program, at.value_or(placed->at), size.value_or(placed->size));
  } else {
    refuse("there is no picture to place");
  }
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::undo(Program& program, const ScriptLine&) {
  holdWorkshopOpen(program);
  onSheet(program, [](Sheet& sheet) { sheet.undo(); });
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::redo(Program& program, const ScriptLine&) {
  holdWorkshopOpen(program);
  onSheet(program, [](Sheet& sheet) { sheet.redo(); });
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::sheet(Program& program, const ScriptLine&) {
  if (!program.workshop.sheet) refuse("there is no sheet yet");
  savePicture(program, program.workshop.sheet->picture());
  return Turn::again;
}

HeadlessDesktop::Turn HeadlessDesktop::editelsewhere(Program& program, const ScriptLine&) {
  holdWorkshopOpen(program);
  gridwright::editelsewhere(program);
  return Turn::givePump;
}

// As another program saves: under a name beside it first.
HeadlessDesktop::Turn HeadlessDesktop::copyfile(Program& program, const ScriptLine&) {
  const auto from = program.files->presentPath() / word(1);
  const auto to = program.files->presentPath() / word(2);
  const auto beside = std::filesystem::path(to) += ".copying";
  std::error_code failed;
  std::filesystem::copy_file(from, beside, std::filesystem::copy_options::overwrite_existing, failed);
  if (!failed) std::filesystem::rename(beside, to, failed);
  if (failed) refuse("could not be copied: " + word(1));
  return Turn::again;
}

// As another program, or a person, takes a file away.
HeadlessDesktop::Turn HeadlessDesktop::removefile(Program& program, const ScriptLine&) {
  std::error_code failed;
  if (!std::filesystem::remove(program.files->presentPath() / word(1), failed))
    refuse("could not be removed: " + word(1));
  return Turn::again;
}

}  // namespace gridwright
