#include "pictures/sheet.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "pictures/flood.h"
#include "pictures/lab.h"
#include "pictures/pixel_walk.h"

namespace gridwright {

namespace {

constexpr int kFurthest = 100'000;
constexpr Square kNothing{Sheet::kSide, Sheet::kSide, -1, -1};

bool isEmpty(const Square& part) { return part.left > part.right; }

Square joined(const Square& one, const Square& other) {
  return {std::min(one.left, other.left), std::min(one.top, other.top), std::max(one.right, other.right),
          std::max(one.bottom, other.bottom)};
}

Square wholeOf(const Bitmap& picture) { return {0, 0, picture.width - 1, picture.height - 1}; }

Bitmap ofPaper(Size size) {
  return plainBitmap(std::clamp(size.width, 1, Sheet::kSide), std::clamp(size.height, 1, Sheet::kSide),
                     kPaper);
}

void copyPart(const Bitmap& from, Bitmap& to, const Square& part) {
  for (int y = part.top; y <= part.bottom; ++y) {
    const auto begin = static_cast<std::ptrdiff_t>(placeOf({to.width, to.height}, part.left, y));
    std::copy_n(from.pixels.begin() + begin, part.right - part.left + 1, to.pixels.begin() + begin);
  }
}

int nearestInk(Colour colour) {
  if (colour == kPaper) return kPaperInk;
  const auto* const own = std::find(kPalette.begin(), kPalette.end(), colour);
  if (own != kPalette.end()) return static_cast<int>(own - kPalette.begin());
  const Lab lab = labOf(colour);
  const auto* const nearest = std::min_element(
      kPalette.begin(), kPalette.end(),
      [&](Colour one, Colour other) { return apart(labOf(one), lab) < apart(labOf(other), lab); });
  return static_cast<int>(nearest - kPalette.begin());
}

Pen penOf(const ToolSettings& tool, const CellPitch& pitch) {
  if (!tool.oneCell) return {tool.size, tool.size, true};
  if (tool.snap) return {};  // a pen of one cell, snapped, is the cell under the pointer
  return {pitch.stepX, pitch.stepY, false};
}

}  // namespace

InkPicture inInks(const Bitmap& picture) {
  InkPicture made{picture, 0};
  std::unordered_map<Colour, int> known;
  for (Colour& pixel : made.picture.pixels) {
    auto [ink, isNew] = known.try_emplace(pixel, 0);
    if (isNew) ink->second = nearestInk(pixel);
    const Colour becomes = colourOfInk(ink->second);
    made.others += pixel != becomes ? 1 : 0;
    pixel = becomes;
  }
  return made;
}

Sheet::Sheet(Size size, std::size_t mostBytes)
    : picture_(ofPaper(size)),
      settled_(picture_),
      steps_(mostBytes),
      dirty_(kNothing),
      shown_(wholeOf(picture_)) {}

Sheet Sheet::asKept(const Bitmap& kept) {
  Sheet sheet(Size{kept.width, kept.height});
  sheet.picture_ = inInks(resized(kept, sheet.size())).picture;
  sheet.settled_ = sheet.picture_;
  return sheet;
}

std::optional<int> Sheet::inkAt(int x, int y) const {
  if (x < 0 || y < 0 || x >= picture_.width || y >= picture_.height) return std::nullopt;
  return inkOf(picture_.at(x, y));
}

void Sheet::choose(const ToolSettings& settings) {
  settings_ = settings;
  settings_.size = std::clamp(settings.size, 1, kThickest);
  settings_.colour = std::clamp(settings.colour, 0, kPaperInk);
}

Corner Sheet::held(int x, int y) {
  return {std::clamp(x, -kFurthest, kFurthest), std::clamp(y, -kFurthest, kFurthest)};
}

void Sheet::press(int x, int y) {
  if (pressed_) return;
  note_.clear();
  inHand_ = settings_;
  if (inHand_.tool == Tool::eraser) inHand_.colour = kPaperInk;
  if (inHand_.tool == Tool::pick) {
    pick(x, y);
  } else if (inHand_.tool == Tool::fill) {
    fill(held(x, y));
  } else {
    pressed_ = true;
    from_ = last_ = held(x, y);
    strokeTo(from_, false);
  }
}

void Sheet::drag(int x, int y, bool straight) {
  if (pressed_) strokeTo(held(x, y), straight);
}

void Sheet::release(int x, int y, bool straight) {
  drag(x, y, straight);
  endStroke();
}

void Sheet::endStroke() {
  if (!pressed_) return;
  pressed_ = false;
  finishStep();
}

void Sheet::pick(int x, int y) {
  if (const auto ink = inkAt(x, y)) settings_.colour = *ink;
}

void Sheet::strokeTo(Corner to, bool straight) {
  const bool isShape = inHand_.tool != Tool::pencil && inHand_.tool != Tool::eraser;
  if (isShape) giveBack();
  const Pen pen = penOf(inHand_, pitch_);
  const Size cell =
      inHand_.snap ? Size{1, 1} : Size{pitch_.stepX, pitch_.stepY};  // one that is snapped grows
  const Size thick = inHand_.oneCell ? cell : Size{inHand_.size, inHand_.size};
  const Size edge = inHand_.outline ? thick : Size{};
  switch (inHand_.tool) {
    case Tool::line:
      paint(lineFigure(from_, straight ? straightened(from_, to) : to, pen, picture_.height));
      break;
    case Tool::rectangle:
      paint(rectangleFigure(from_, straight ? squared(from_, to) : to, edge, picture_.height));
      break;
    case Tool::ellipse:
      paint(ellipseFigure(from_, straight ? squared(from_, to) : to, edge, picture_.height));
      break;
    default:
      paint(lineFigure(last_, to, pen, picture_.height));
  }
  last_ = to;
}

void Sheet::paint(const Spans& figure) {
  const Size sheet = size();
  const Spans all = mirrored(figure, inHand_.mirror, sheet);
  paintSpans(inHand_.snap ? snappedToCells(all, pitch_, sheet) : all);
}

void Sheet::paintSpans(const Spans& spans) {
  const Colour colour = colourOfInk(inHand_.colour);
  Square part = kNothing;
  for (const Span& span : spans) {
    const int left = std::max(span.left, 0);
    const int right = std::min(span.right, picture_.width - 1);
    if (span.y < 0 || span.y >= picture_.height || left > right) continue;
    const auto begin = picture_.pixels.begin() + static_cast<std::ptrdiff_t>(placeOf(size(), left, span.y));
    std::fill(begin, begin + (right - left + 1), colour);
    part = joined(part, {left, span.y, right, span.y});
  }
  changed(part);
}

void Sheet::fill(Corner at) {
  const Size sheet = size();
  std::string told;
  bool painted = false;
  for (const Span& seed : mirrored({{at.y, at.x, at.x}}, inHand_.mirror, sheet)) {
    const auto ink = inkAt(seed.left, seed.y);
    if (!ink || *ink == inHand_.colour) continue;
    const Flood flood = floodOf(picture_, seed.left, seed.y, {pitch_.stepX, pitch_.stepY});
    Spans spans;
    forRuns(flood.pixels, [&](int y, int left, int right) { spans.push_back({y, left, right}); });
    paintSpans(spans);
    painted = true;
    if (flood.gap && told.empty()) {
      told = "the fill ran out through a gap at " + std::to_string(flood.gap->x) + ", " +
             std::to_string(flood.gap->y);
    }
  }
  if (!painted) return;
  finishStep();
  note_ = std::move(told);
}

void Sheet::newsheet(Size size) {
  endStroke();
  picture_ = ofPaper(size);
  meaning_ = Meaning::ofTheStart;
  changed(wholeOf(picture_));
  finishStep();
}

void Sheet::placeInk(const Bitmap& ink, Corner at, Mirror mirror) {
  endStroke();
  const Bitmap inks = inInks(ink).picture;
  at = held(at.x, at.y);
  for (const bool topDown : {true, false}) {
    for (const bool leftRight : {true, false}) {
      if (!leftRight && mirror != Mirror::leftRight && mirror != Mirror::both) continue;
      if (!topDown && mirror != Mirror::topBottom && mirror != Mirror::both) continue;
      layInk(inks, at, leftRight, topDown);
    }
  }
  finishStep();
}

/// Puts ink down as it is, or mirrored about the sheet's middle.
void Sheet::layInk(const Bitmap& inks, Corner at, bool leftRight, bool topDown) {
  Square part = kNothing;
  for (int row = 0; row < inks.height; ++row) {
    const int y = topDown ? at.y + row : picture_.height - 1 - at.y - row;
    for (int column = 0; y >= 0 && y < picture_.height && column < inks.width; ++column) {
      const int x = leftRight ? at.x + column : picture_.width - 1 - at.x - column;
      if (x < 0 || x >= picture_.width || inks.at(column, row) == kPaper) continue;
      picture_.pixels[placeOf(size(), x, y)] = inks.at(column, row);
      part = joined(part, {x, y, x, y});
    }
  }
  changed(part);
}

int Sheet::replace(const Bitmap& picture, Meaning meaning) {
  endStroke();
  if (picture.pixels.empty()) return 0;
  InkPicture made =
      inInks(resized(picture, {std::min(picture.width, kSide), std::min(picture.height, kSide)}));
  picture_ = std::move(made.picture);
  meaning_ = meaning;
  changed(wholeOf(picture_));
  finishStep();
  return made.others;
}

void Sheet::setMeaning(Meaning meaning) {
  endStroke();
  meaning_ = settledMeaning_ = meaning;
  steps_.setMeaning(meaning);
}

bool Sheet::undo() {
  endStroke();
  if (!steps_.canUndo()) return false;
  crossed(steps_.undo(picture_, meaning_));
  return true;
}

bool Sheet::redo() {
  endStroke();
  if (!steps_.canRedo()) return false;
  crossed(steps_.redo(picture_, meaning_));
  return true;
}

void Sheet::crossed(const Square& part) {
  changed(part);
  settle();
}

void Sheet::changed(const Square& part) {
  if (isEmpty(part)) return;
  dirty_ = joined(dirty_, part);
  shown_ = joined(shown_, part);
  ++revision_;
}

void Sheet::giveBack() {
  if (isEmpty(dirty_)) return;
  copyPart(settled_, picture_, dirty_);
  shown_ = joined(shown_, dirty_);
  dirty_ = kNothing;
  ++revision_;
}

void Sheet::finishStep() {
  if (Size{settled_.width, settled_.height} == size() && isEmpty(dirty_) && settledMeaning_ == meaning_)
    return;
  if (!steps_.add(settled_, picture_, dirty_, settledMeaning_, meaning_)) {
    dirty_ = kNothing;
    return;
  }
  settle();
}

/// What is on the sheet stands, and has nothing more to say.
void Sheet::settle() {
  if (Size{settled_.width, settled_.height} == size()) {
    copyPart(picture_, settled_, dirty_);
  } else {
    settled_ = picture_;
  }
  settledMeaning_ = meaning_;
  dirty_ = kNothing;
  note_.clear();
}

Square Sheet::takeChanged() {
  const Square part = std::exchange(shown_, kNothing);
  return {part.left, part.top, std::min(part.right, picture_.width - 1),
          std::min(part.bottom, picture_.height - 1)};
}

}  // namespace gridwright
