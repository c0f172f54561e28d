#include "person/watch.h"

#include <algorithm>
#include <array>

#include "menus/enable_table.h"

namespace gridwright::person {

namespace {

/// The drawing alone stands on the Canvas: no maze, no editor's field, no title.
bool showsDrawing(const Program& program) {
  return program.state.phase == Phase::drawing && program.state.editedPattern == 0;
}

/// What tells that a deed came to nothing.
bool saysRefusal(std::string_view words) {
  constexpr auto kBeginnings = std::to_array<std::string_view>({"Not", "No ", "Error"});
  constexpr auto kWords =
      std::to_array<std::string_view>({"cannot", "can't", "could not", "is no ", "broken"});
  return std::any_of(kBeginnings.begin(), kBeginnings.end(),
                     [&](std::string_view w) { return words.starts_with(w); }) ||
         std::any_of(kWords.begin(), kWords.end(),
                     [&](std::string_view w) { return words.find(w) != std::string_view::npos; });
}

bool isAny(std::string_view deed, std::initializer_list<std::string_view> beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(),
                     [&](std::string_view b) { return deed.starts_with(b); });
}

/// The window may have another size by now, and a smaller one hides a part.
bool isSameWhereBothAre(const BitmapView& one, const Bitmap& other) {
  const int width = std::min(one.width, other.width);
  for (int y = 0; y < std::min(one.height, other.height); ++y) {
    const auto sameColour = [](Colour a, Colour b) { return (a & kColourBits) == (b & kColourBits); };
    if (!std::equal(one.row(y), one.row(y) + width, other.row(y), sameColour)) return false;
  }
  return true;
}

/// A key that was held: the first strokes may have come to something.
bool isManyKeys(std::string_view deed) {
  return deed.starts_with("key ") && std::count(deed.begin(), deed.end(), ' ') > 1;
}

}  // namespace

void Watch::before(const Program& program, std::string_view deed) {
  deed_ = deed;
  refusal_.clear();
  notices_ = program.notices.revision();
  drawing_.reset();
  number_ = program.lastPicture.drawing;
  if (showsDrawing(program)) drawing_ = program.canvas.image();
  sheet_.reset();
  if (program.workshop.sheet) sheet_ = program.workshop.sheet->picture();
  // Whoever puts another picture in the place of the one that was left gets that.
  if (isAny(deed, {"copyfile", "removefile"})) left_.reset();
}

std::string Watch::after(const Program& program) {
  if (program.notices.revision() != notices_ && saysRefusal(program.notices.words()))
    refusal_ = program.notices.words();
  if (std::string words = itemsAgainstTable(program); !words.empty()) return words;
  if (std::string words = lockedPanel(program); !words.empty()) return words;
  return drawingStays(program);
}

std::string Watch::drawingStays(const Program& program) {
  const bool shows = showsDrawing(program);
  const bool wasRefused = !refusal_.empty() && !isManyKeys(deed_);
  if (wasRefused && drawing_ && shows && !isSameWhereBothAre(program.canvas.imageView(), *drawing_))
    return "a command that failed has changed the drawing: " + refusal_;
  if (wasRefused && sheet_ && program.workshop.sheet && !(program.workshop.sheet->picture() == *sheet_))
    return "a command that failed has changed the sheet: " + refusal_;
  if (drawing_ && !shows) {
    left_ = drawing_;
    leftNumber_ = number_;
  }
  if (!shows || drawing_ || !left_) return {};
  const Bitmap left = std::move(*left_);
  left_.reset();
  if (program.lastPicture.drawing != leftNumber_) return {};
  if (!isSameWhereBothAre(program.canvas.imageView(), left))
    return "the drawing is another than it was left for the maze";
  return {};
}

std::string itemsAgainstTable(const Program& program) {
  if (program.state.editor.preparing) return {};  // the menus stay as they were before the maze was asked for
  for (std::size_t row = 0; row < kItemCount; ++row) {
    const Item item = itemAt(row);
    if (!tableLists(item) || program.menus.enabled(item) == tableEnables(program, item)) continue;
    return "an item is " + std::string(program.menus.enabled(item) ? "on" : "off") +
           " against the table: " + std::string(rowOf(item).name);
  }
  return {};
}

std::string lockedPanel(const Program& program) {
  const ProgramState& s = program.state;
  const bool hasOther = program.workshop.open || program.pages.open || program.exporting.open ||
                        program.book.open || s.editedPattern != 0;
  if (!s.panelOpen || hasOther) return {};
  for (std::size_t row = 0; row < kControlCount; ++row) {
    const ControlId id = controlAt(row);
    const bool closes = rowOf(id).kind == ControlKind::textBox || rowOf(id).kind == ControlKind::checkBox ||
                        rowOf(id).kind == ControlKind::button;
    if (closes && program.controls[id].visible && program.controls[id].enabled) return {};
  }
  return "a panel holds the window, and nothing closes it";
}

}  // namespace gridwright::person
