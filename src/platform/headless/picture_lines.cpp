// The lines of a script that bring pictures and make them ready.
#include <algorithm>
#include <charconv>

#include "platform/headless/headless_desktop.h"
#include "platform/pictures/read_picture.h"
#include "session/input.h"
#include "state/program.h"

namespace gridwright {

namespace {

struct OutlineWord {
  std::string_view word;
  Outlines outlines;
};
constexpr auto kOutlineWords = std::to_array<OutlineWord>(
    {{"none", Outlines::none}, {"thin", Outlines::thin}, {"thick", Outlines::thick}});

/// "1,3,4", and nothing for no colour at all; a Fault when it is no list of numbers.
Outcome<std::vector<int>> numberList(std::string_view word) {
  std::vector<int> numbers;
  while (!word.empty()) {
    const std::size_t comma = word.find(',');
    const auto number = wholeNumber(word.substr(0, comma));
    if (!number) return number.fault();
    numbers.push_back(static_cast<int>(std::clamp<std::int64_t>(number.value(), 0, 1000)));
    word.remove_prefix(comma == std::string_view::npos ? word.size() : comma + 1);
  }
  return numbers;
}

/// One of the words "colours=6" and its like. \returns whether it was understood.
bool readSetting(std::string_view word, PrepareSettings& settings) {
  const auto parts = settingIn(word);
  if (!parts) return false;
  const std::string_view name = parts->name;
  const std::string_view value = parts->value;
  const auto within = [&](int least, int most, int& setting) {
    const auto number = wholeNumber(value);
    if (!number || number.value() < least || number.value() > most) return false;
    setting = static_cast<int>(number.value());
    return true;
  };
  if (name == "colours") return within(kFewestColours, kMostColours, settings.colours);
  if (name == "detail") return within(kCoarsest, kFinest, settings.detail);
  if (name == "size") {
    settings.asItsSize = value == "asitis";
    return value == "asitis" || value == "window";
  }
  if (name == "outlines") {
    const auto* row = std::find_if(kOutlineWords.begin(), kOutlineWords.end(),
                                   [&](const OutlineWord& o) { return o.word == value; });
    if (row != kOutlineWords.end()) settings.outlines = row->outlines;
    return row != kOutlineWords.end();
  }
  if (name != "grow") return false;
  auto numbers = numberList(value);
  if (numbers) settings.grow = std::move(numbers.value());
  return static_cast<bool>(numbers);
}

/// An entry is called by its words, or by the name that they begin with, with its ending or without.
bool isCalled(std::string_view words, std::string_view name) {
  if (!words.starts_with(name)) return false;
  const std::string_view rest = words.substr(name.size());
  return rest.empty() || rest.front() == '.' || rest.front() == ',';
}

}  // namespace

/// A path of the script: absolute, or in the working folder.
std::filesystem::path HeadlessDesktop::pathWord(const Program& program) const {
  return program.files->path() / std::filesystem::path(line_->hasText ? line_->text : word(1));
}

Outcome<Picture> HeadlessDesktop::readPicture(const std::filesystem::path& file, Size fit) {
  options_.beforePictures();
  return gridwright::readPicture(file, fit);
}

Outcome<Pasted> HeadlessDesktop::pasted() {
  if (clipboard_.empty()) return Fault{Fault::Kind::notFound, "there is no picture to paste"};
  return Pasted{{}, [this, file = clipboard_](Size fit) { return readPicture(file, fit); }};
}

HeadlessDesktop::Turn HeadlessDesktop::menuEntry(Program& program, Item item) {
  input::menuLookedAt(program);
  const auto& entries = program.menus.entries(item);
  const auto count = static_cast<std::int64_t>(entries.size());
  std::int64_t entry = 0;
  if (line_->hasText) {
    const auto named = std::find_if(entries.begin(), entries.end(),
                                    [&](const std::string& words) { return isCalled(words, line_->text); });
    if (named == entries.end()) refuse("no such entry: " + line_->text);
    entry = named - entries.begin();
  } else {
    entry = number(2) - 1;
    if (entry < 0 || entry >= count) refuse("no such entry: " + word(2));
  }
  input::menuEntryClick(program, item, static_cast<int>(entry));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::open(Program& program, const ScriptLine&) {
  input::filesBrought(program, {pathWord(program)});
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::paste(Program& program, const ScriptLine&) {
  clipboard_ = pathWord(program);
  input::pasteAsked(program);
  return Turn::givePump;
}

void HeadlessDesktop::holdPictureOpen(const Program& program) const {
  if (!program.prepare.open) refuse("no picture is being prepared");
}

void HeadlessDesktop::holdWorkshopOpen(const Program& program) const {
  if (!program.workshop.open) refuse("the workshop is not open");
}

HeadlessDesktop::Turn HeadlessDesktop::prepare(Program& program, const ScriptLine& line) {
  holdPictureOpen(program);
  PrepareSettings settings = program.prepare.settings;
  settings.grow.reset();
  for (std::size_t i = 1; i < line.words.size(); ++i) {
    if (!readSetting(line.words[i], settings)) refuse("not understood: " + line.words[i]);
  }
  input::preparationChanged(program, settings);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::accept(Program& program, const ScriptLine&) {
  if (program.book.open) {
    input::bookAccepted(program, program.book.wish);
    return Turn::givePump;
  }
  holdWorkshopOpen(program);
  input::preparedAccepted(program);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::asitis(Program& program, const ScriptLine&) {
  holdPictureOpen(program);
  if (!program.prepare.fitsAsItIs()) refuse("the Canvas does not hold the picture as it is");
  input::pictureAcceptedAsItIs(program);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::cancel(Program& program, const ScriptLine&) {
  if (program.pages.open || program.book.open) {
    program.pages.open ? input::pageSetupEscaped(program) : input::bookEscaped(program);
    return Turn::givePump;
  }
  if (program.exporting.open) {
    input::exportEscaped(program);
    return Turn::givePump;
  }
  holdWorkshopOpen(program);
  input::preparationCancelled(program);
  return Turn::givePump;
}

}  // namespace gridwright
