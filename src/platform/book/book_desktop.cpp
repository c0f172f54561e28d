#include "platform/book/book_desktop.h"

#include <algorithm>
#include <utility>

#include "menus/enable_table.h"
#include "platform/book/memory_folder.h"
#include "session/input.h"

namespace gridwright::book {

namespace {

/// Nobody sees the title: it is one pixel.
const Bitmap& titlePixel() {
  static const Bitmap title = plainBitmap(1, 1, qb::yellow);
  return title;
}

ControlId live(const Program& program, ControlId id) {
  if (!program.controls[id].visible || !program.controls[id].enabled) throw NotMade{"a panel did not open"};
  return id;
}

}  // namespace

void BookDesktop::settle() {
  look([this](Program&) { settling_ = true; });
}

void BookDesktop::click(ControlId button) {
  act([button](Program& p) { input::buttonClick(p, live(p, button)); });
}

void BookDesktop::menu(Item item) {
  act([item](Program& p) {
    applyEnableTableIfChanged(p);
    if (!p.menus.available(item)) throw NotMade{"the menu does not offer " + std::string(rowOf(item).name)};
    input::menuClick(p, item);
  });
}

void BookDesktop::answer(Item item, ControlId box, const std::string& text) {
  menu(item);
  act([box, text](Program& p) { input::textTyped(p, live(p, box), text); });
  act([box](Program& p) { input::enterPressed(p, live(p, box)); });
}

void BookDesktop::doEvents(Program& program, Pace pace) {
  if (stop_.load(std::memory_order_relaxed)) throw Stopped{};
  if (pace == Pace::housekeeping) return;
  while (!waits(program, pace)) {
    if (list_.empty()) throw ListDone{};
    Entry entry = std::move(list_.front());
    list_.pop_front();
    if (entry.reached) {
      awaited_ = std::move(entry.reached);
      patience_ = kPatience;
      continue;
    }
    entry.act(program);
    if (entry.takesPump) return;
  }
}

/// \returns whether this pump passes without anything being done.
bool BookDesktop::waits(Program& program, Pace pace) {
  if (awaited_) {
    if (awaited_(program)) {
      awaited_ = nullptr;
      return false;
    }
    if (pace == Pace::idle) throw NotMade{"it comes to no end"};
    if (--patience_ < 0) throw NotMade{"it takes too long"};
    return true;
  }
  if (settling_ && pace != Pace::idle) return true;
  settling_ = false;
  return false;
}

// What is awaited hangs on phases alone, which no wandering changes.
std::int64_t BookDesktop::quietPumps(const Program& program) {
  if (stop_.load(std::memory_order_relaxed)) return 0;
  constexpr std::int64_t kLookAgain = 10'000;  // so that an end that is asked for comes at once
  if (awaited_) return awaited_(program) ? 0 : std::min(patience_, kLookAgain);
  return settling_ ? kLookAgain : 0;
}

std::filesystem::path BookDesktop::contentFolder() { return kNowhere; }

Outcome<Picture> BookDesktop::readPicture(const std::filesystem::path& file, Size /*fit*/) {
  return Fault{Fault::Kind::notFound, file.string()};
}

Outcome<Done> BookDesktop::savePng(const BitmapView& /*picture*/, const FilePlace& place) {
  return Fault{Fault::Kind::notWritable, place.path().string()};
}

Outcome<Bitmap> BookDesktop::loadBitmap(const FilePlace& place) {
  if (place.filename() == "picture.bmp") return picture_;
  if (place.filename() == "title.bmp") return titlePixel();
  return Fault{Fault::Kind::notFound, place.path().string()};
}

Outcome<FileMark> BookDesktop::saveBitmap(const BitmapView& /*picture*/, const FilePlace& place,
                                          Overwrite /*how*/) {
  return Fault{Fault::Kind::notWritable, place.path().string()};
}

}  // namespace gridwright::book
