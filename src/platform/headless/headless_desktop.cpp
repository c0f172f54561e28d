#include "platform/headless/headless_desktop.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <utility>

#include "menus/enable_table.h"
#include "platform/shared/image_files.h"
#include "session/input.h"
#include "session/workshop.h"
#include "state/program.h"

namespace gridwright {

namespace {
constexpr int kRefused = 2;  // the status of a line that cannot be done
}  // namespace

HeadlessDesktop::HeadlessDesktop(std::string scriptName, std::string_view source, HeadlessOptions options)
    : scriptName_(std::move(scriptName)),
      lines_(readScript(source)),
      options_(std::move(options)),
      ink_(options_.contentFolder / "stamps") {}

Size HeadlessDesktop::maximise() {
  windowState_ = WindowState::maximised;
  return options_.size;
}

const ScriptLine* HeadlessDesktop::nextLine(Program&) {
  return next_ == lines_.size() ? nullptr : &lines_[next_++];
}

HeadlessDesktop::Turn HeadlessDesktop::lineTaken(Program& program) {
  line_ = nextLine(program);
  if (line_ == nullptr) throw ProgramEnd{};
  try {
    return runLine(program, *line_);
  } catch (const ScriptStop& stop) {
    if (stop.status != kRefused || !goesOnAfter(stop)) throw;
    return Turn::again;
  }
}

struct HeadlessDesktop::Verb {
  std::string_view name;
  Turn (HeadlessDesktop::*run)(Program&, const ScriptLine&);
};

HeadlessDesktop::Turn HeadlessDesktop::runLine(Program& program, const ScriptLine& line) {
  static constexpr auto kVerbs = std::to_array<Verb>({
      {"click", &HeadlessDesktop::click},
      {"menu", &HeadlessDesktop::menu},
      {"key", &HeadlessDesktop::key},
      {"rightclick", &HeadlessDesktop::rightclick},
      {"type", &HeadlessDesktop::type},
      {"pagesetup", &HeadlessDesktop::pagesetup},
      {"export", &HeadlessDesktop::exportPicture},
      {"book", &HeadlessDesktop::book},
      {"enter", &HeadlessDesktop::enter},
      {"escape", &HeadlessDesktop::escape},
      {"pick", &HeadlessDesktop::pick},
      {"mouse", &HeadlessDesktop::mouse},
      {"tick", &HeadlessDesktop::tick},
      {"resize", &HeadlessDesktop::resize},
      {"minimize", &HeadlessDesktop::minimize},
      {"restore", &HeadlessDesktop::restore},
      {"seed", &HeadlessDesktop::seed},
      {"pumps", &HeadlessDesktop::pumps},
      {"settle", &HeadlessDesktop::settle},
      {"until", &HeadlessDesktop::until},
      {"expect", &HeadlessDesktop::expect},
      {"show", &HeadlessDesktop::show},
      {"snapshot", &HeadlessDesktop::snapshot},
      {"image", &HeadlessDesktop::image},
      {"close", &HeadlessDesktop::close},
      {"open", &HeadlessDesktop::open},
      {"paste", &HeadlessDesktop::paste},
      {"prepare", &HeadlessDesktop::prepare},
      {"accept", &HeadlessDesktop::accept},
      {"asitis", &HeadlessDesktop::asitis},
      {"cancel", &HeadlessDesktop::cancel},
      {"newsheet", &HeadlessDesktop::newsheet},
      {"tool", &HeadlessDesktop::tool},
      {"press", &HeadlessDesktop::press},
      {"drag", &HeadlessDesktop::drag},
      {"release", &HeadlessDesktop::release},
      {"words", &HeadlessDesktop::words},
      {"stamp", &HeadlessDesktop::stamp},
      {"place", &HeadlessDesktop::place},
      {"undo", &HeadlessDesktop::undo},
      {"redo", &HeadlessDesktop::redo},
      {"sheet", &HeadlessDesktop::sheet},
      {"copyfile", &HeadlessDesktop::copyfile},
      {"editelsewhere", &HeadlessDesktop::editelsewhere},
      {"startat", &HeadlessDesktop::startat},
      {"removefile", &HeadlessDesktop::removefile},
  });
  applyEnableTableIfChanged(program);
  const auto* verb =
      std::find_if(kVerbs.begin(), kVerbs.end(), [&](const Verb& v) { return v.name == line.words[0]; });
  if (verb == kVerbs.end()) refuse("unknown command: " + line.words[0]);
  return (this->*verb->run)(program, line);
}

void HeadlessDesktop::refuse(const std::string& reason) const {
  throw ScriptStop{kRefused, scriptName_ + ":" + std::to_string(line_->number) + ": " + reason};
}

void HeadlessDesktop::fail(const std::string& reason) const {
  std::string line;
  for (const std::string& word : line_->words) line += word + " ";
  if (line_->hasText) line += "\"" + line_->text + "\" ";
  throw ScriptStop{1, scriptName_ + ":" + std::to_string(line_->number) + ": " + line + "failed: " + reason};
}

void HeadlessDesktop::compare(const std::string& what, std::string_view is, std::string_view wanted) const {
  if (is != wanted) fail(what + " is \"" + std::string(is) + "\"");
}

const std::string& HeadlessDesktop::word(std::size_t i) const {
  if (i >= line_->words.size()) refuse("a word is missing");
  return line_->words[i];
}

std::int64_t HeadlessDesktop::number(std::size_t i) const {
  const auto value = wholeNumber(word(i));
  if (!value) refuse(value.fault().words);
  return value.value();
}

const std::string& HeadlessDesktop::text() const {
  if (!line_->hasText) refuse("a text in double quotes is missing");
  return line_->text;
}

ControlId HeadlessDesktop::liveControl(const Program& program, ControlKind kind) const {
  const auto id = controlNamed(word(1));
  if (!id || rowOf(*id).kind != kind) refuse("no such control here: " + word(1));
  if (!program.controls[*id].visible || !program.controls[*id].enabled) refuse(word(1) + " is not shown");
  return *id;
}

HeadlessDesktop::Turn HeadlessDesktop::click(Program& program, const ScriptLine&) {
  const auto id = controlNamed(word(1));
  if (id && rowOf(*id).kind == ControlKind::checkBox) {
    input::swatchLeft(program, liveControl(program, ControlKind::checkBox));
  } else {
    input::buttonClick(program, liveControl(program, ControlKind::button));
  }
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::rightclick(Program& program, const ScriptLine&) {
  input::swatchRight(program, liveControl(program, ControlKind::checkBox));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::menu(Program& program, const ScriptLine&) {
  const auto item = itemNamed(word(1));
  if (!item) refuse("no such menu item: " + word(1));
  if (hasChildren(*item)) refuse(word(1) + " opens a submenu");
  if (!program.menus.available(*item)) refuse(word(1) + " is disabled or hidden");
  if (hasEntries(*item)) return menuEntry(program, *item);
  input::menuClick(program, *item);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::key(Program& program, const ScriptLine& line) {
  const std::int64_t code = number(1);
  keysLeft_ = line.words.size() > 2 ? number(2) : 1;
  if (code < 1 || code > 255) refuse("no key code from 1 to 255: " + word(1));
  if (keysLeft_ < 1) refuse("no count: " + word(2));
  keyCode_ = static_cast<int>(code);
  keyGo_ = KeyGo::fresh;
  return pressKey(program);
}

HeadlessDesktop::Turn HeadlessDesktop::pressKey(Program& program) {
  --keysLeft_;
  input::keyDown(program, keyCode_, std::exchange(keyGo_, KeyGo::held));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::type(Program& program, const ScriptLine&) {
  input::textTyped(program, liveControl(program, ControlKind::textBox), text());
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::enter(Program& program, const ScriptLine&) {
  input::enterPressed(program, liveControl(program, ControlKind::textBox));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::escape(Program& program, const ScriptLine&) {
  const auto id = controlNamed(word(1));
  const bool isSwatch = id && rowOf(*id).kind == ControlKind::checkBox;
  input::escapePressed(program,
                       liveControl(program, isSwatch ? ControlKind::checkBox : ControlKind::textBox));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::pick(Program& program, const ScriptLine&) {
  const ControlId list = liveControl(program, ControlKind::fileList);
  const auto& entries = program.controls[list].entries;
  const auto entry = std::find(entries.begin(), entries.end(), text());
  if (entry == entries.end()) refuse("no such entry: " + text());
  input::listClick(program, list, static_cast<int>(entry - entries.begin()));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::startat(Program& program, const ScriptLine&) {
  const auto pixel = [&](std::size_t i) {
    return static_cast<int>(std::clamp<std::int64_t>(number(i), -1, Canvas::kSide));
  };
  if (program.state.phase != Phase::drawing || program.state.panelOpen)
    refuse("the start is put in the drawing alone, not under a panel");
  if (!input::startPut(program, pixel(1), pixel(2)))
    refuse("no cell holds this pixel: " + word(1) + " " + word(2));
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::mouse(Program& program, const ScriptLine&) {
  if (word(1) != "left" && word(1) != "right") refuse("no such button: " + word(1));
  input::mouseDown(program, word(1) == "left" ? 1 : 2);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::tick(Program& program, const ScriptLine&) {
  if (word(1) == "sheetwatch") {
    watchSheetFile(program);
    return Turn::givePump;
  }
  if (word(1) == "autosave") {
    input::autosave(program);
    return Turn::givePump;
  }
  const auto id = controlNamed(word(1));
  if (!id || rowOf(*id).kind != ControlKind::timer) refuse("no such timer: " + word(1));
  if (!program.controls[*id].enabled || program.controls[*id].interval <= 0)
    refuse(word(1) + " does not run");
  input::timerTick(program, *id);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::resize(Program& program, const ScriptLine&) {
  const auto size = sizeWord(word(1));
  if (!size) refuse(size.fault().words);
  options_.size = {size.value().first, size.value().second};
  input::resized(program, options_.size);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::minimize(Program&, const ScriptLine&) {
  windowState_ = WindowState::minimised;
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::restore(Program& program, const ScriptLine&) {
  windowState_ = WindowState::normal;
  input::resized(program, options_.size);
  return Turn::givePump;
}

HeadlessDesktop::Turn HeadlessDesktop::seed(Program& program, const ScriptLine&) {
  const std::int64_t value = number(1);
  if (value < 0 || value > 0xFFFFFFFFLL) refuse("not a 32-bit number: " + word(1));
  seed_ = static_cast<std::uint32_t>(value);
  program.random.seed(seed_);
  return Turn::again;
}

HeadlessDesktop::Turn HeadlessDesktop::show(Program& program, const ScriptLine& line) {
  for (std::size_t i = 1; i < line.words.size(); ++i) {
    const FieldName* field = fieldNamed(line.words[i]);
    if (field == nullptr) refuse("no such field: " + line.words[i]);
    std::cout << field->name << ' ' << field->read(program) << '\n';
  }
  if (!std::cout.flush()) refuse("the standard output cannot be written");
  return Turn::again;
}

void HeadlessDesktop::savePicture(const Program& program, const BitmapView& picture) {
  if (!writeBitmapFile(picture, program.files->resolve(word(1)))) refuse("cannot be written: " + word(1));
}

HeadlessDesktop::Turn HeadlessDesktop::snapshot(Program& program, const ScriptLine&) {
  savePicture(program, program.canvas.shownView());
  return Turn::again;
}

HeadlessDesktop::Turn HeadlessDesktop::image(Program& program, const ScriptLine&) {
  savePicture(program, program.canvas.imageView());
  return Turn::again;
}

HeadlessDesktop::Turn HeadlessDesktop::close(Program&, const ScriptLine&) { throw ProgramEnd{}; }

Outcome<Bitmap> HeadlessDesktop::loadBitmap(const FilePlace& place) { return readBitmapFile(place); }

Outcome<FileMark> HeadlessDesktop::saveBitmap(const BitmapView& picture, const FilePlace& place,
                                              Overwrite how) {
  return writeBitmapFile(picture, place, how);
}

Outcome<Done> HeadlessDesktop::printForm(const BitmapView& picture, const PageLook& look) {
  keepPage(picture, look);
  return Done{};
}

/// The folder need not be one that a program works in: what a killed one left of its pages goes here.
void HeadlessDesktop::openPagesFolder() {
  pagesFolder_.emplace(*options_.pagesFolder);
  for (const std::string& name : pagesFolder_->names()) {
    if (targetOfBuilding(name).starts_with("page-")) removeLeftOver({*pagesFolder_, name});
  }
}

/// Nobody is there to read a message: pages that cannot be kept end the run.
void HeadlessDesktop::keepPage(const BitmapView& picture, const PageLook& look) {
  ++pages_;
  if (options_.pdfFile) {
    if (document_ == nullptr) document_ = std::make_unique<PdfDocument>(*options_.pdfFile);
    if (!document_->addPage(picture, look)) {
      document_.reset();
      throw ScriptStop{2, wordsOnLostPages(*options_.pdfFile)};
    }
  }
  if (!options_.pagesFolder) return;
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "page-%04lld.bmp", static_cast<long long>(pages_));
  if (!pagesFolder_) openPagesFolder();
  const FilePlace page(*pagesFolder_, name.data());
  if (!writeBitmapFile(picture, page)) throw ScriptStop{2, wordsOnLostPages(page.path())};
}

// All pages of a script are one document, those printed alone too.
Outcome<PagesWent> HeadlessDesktop::printAlone(const BitmapView& picture, const PageLook& look) {
  keepPage(picture, look);
  return PagesWent{};
}

Outcome<Done> HeadlessDesktop::writeDocument() {
  return document_ == nullptr ? Outcome<Done>(Done{}) : document_->finish();
}

std::string wordsOnLostPages(const std::filesystem::path& path) {
  return std::string(kPagesLost) + " (cannot be written: " + path.string() + ")";
}

}  // namespace gridwright
