#include "support/bare_desktop.h"

#include "session/input.h"

namespace gridwright::test {

namespace {
constexpr int kPatience = 10'000;  // idle pumps in a row; nothing can change in them
}

void BareDesktop::untilPhase(Phase phase) {
  until([phase](const Program& p) { return p.state.phase == phase; });
}

void BareDesktop::pumpsPass(int count) {
  until([count](const Program&) mutable { return count-- == 0; });
}

void BareDesktop::click(ControlId button) {
  act([button](Program& p) { input::buttonClick(p, button); });
}

void BareDesktop::menu(Item item) {
  act([this, item](Program& p) {
    if (!p.menus.available(item)) stop("not to be chosen: " + std::string(rowOf(item).name));
    input::menuClick(p, item);
  });
}

void BareDesktop::enter(ControlId box, const std::string& text) {
  act([box, text](Program& p) { input::textTyped(p, box, text); });
  act([box](Program& p) { input::enterPressed(p, box); });
}

void BareDesktop::stop(std::string why) {
  trouble = std::move(why);
  throw ProgramEnd{};
}

void BareDesktop::doEvents(Program& program, Pace pace) {
  if (pace == Pace::housekeeping) {
    ++housekeeping;
    return;
  }
  lastPace = pace;
  if (++pumps > limit) stop("too many pumps");
  if (everyPump) everyPump(program);
  while (!todo_.empty()) {
    if (todo_.front().condition) {
      const bool holds = todo_.front().condition(program);
      if (!holds && pace == Pace::idle && ++idlePumps_ > kPatience) stop("nothing more happens");
      if (pace != Pace::idle) idlePumps_ = 0;
      if (!holds) return;
      todo_.pop_front();
      continue;
    }
    const Todo todo = std::move(todo_.front());
    todo_.pop_front();
    todo.action(program);
    if (todo.takesPump) return;
  }
  throw ProgramEnd{};
}

void BareDesktop::passOver(std::int64_t count) {
  pumps += count;
  passed += count;
  if (everyPassingOver) everyPassingOver(count);
}

Size BareDesktop::maximise() {
  ++maximised;
  state_ = WindowState::maximised;
  return client_;
}

Outcome<Bitmap> BareDesktop::loadBitmap(const FilePlace& target) {
  const Bitmap* found = file(target.filename());
  if (found == nullptr) return Fault{Fault::Kind::notFound, target.path().string()};
  return *found;
}

Outcome<FileMark> BareDesktop::saveBitmap(const BitmapView& picture, const FilePlace& target,
                                          Overwrite /*how*/) {
  if (savesFail) return Fault{Fault::Kind::notWritable, target.path().string()};
  saves.push_back(target.filename());
  bitmaps[saves.back()] = picture.copied();
  return FileMark{};
}

Outcome<Done> BareDesktop::savePng(const BitmapView& picture, const FilePlace& target) {
  const auto saved = saveBitmap(picture, target, Overwrite::atOnce);
  if (!saved) return saved.fault();
  return Done{};
}

void BareDesktop::workBeside(Program& program, Work asked) {
  if (worksLater) {
    workUnderWay = std::move(asked);
  } else {
    asked()(program);
  }
}

Outcome<Picture> BareDesktop::readPicture(const std::filesystem::path& path, Size /*fit*/) {
  const auto found = picturesElsewhere.find(path);
  if (found == picturesElsewhere.end())
    return Fault{Fault::Kind::notFound, path.filename().string() + " is not there"};
  return found->second;
}

const Bitmap* BareDesktop::file(const std::string& name) const {
  const auto found = bitmaps.find(name);
  return found == bitmaps.end() ? nullptr : &found->second;
}

}  // namespace gridwright::test
