// Words, stamps and pictures put down on the workshop's sheet.
#include <algorithm>
#include <utility>

#include "pictures/on_paper.h"
#include "pictures/pixel_walk.h"
#include "session/prepare_panel.h"
#include "session/workshop.h"

namespace gridwright {

namespace {

constexpr auto kNoInk = "paper paints no words and no stamps: choose a colour";
constexpr int kFrameFirst = 9;  // blue, of the borders at the start the one that goes with most

/// An ink that a maze does not fill; paper where there is none.
int frameInkOf(const ColourSets& sets) {
  for (int i = 0; i < kPaperInk; ++i) {
    const int ink = (kFrameFirst + i) % kPaperInk;
    if (roleOf(ink, sets) == InkRole::border) return ink;
  }
  return kPaperInk;
}

WordGround wordGroundOf(const Workshop& w, std::optional<Corner> at) {
  const ColourSets sets = w.sets();
  WordGround ground;
  ground.size = w.sheet->size();
  ground.pitch = w.sheet->pitch();
  for (int ink = 0; ink < kPaperInk; ++ink) {
    if (roleOf(ink, sets) == InkRole::grows) ground.turns.push_back(ink);
  }
  ground.frameInk = frameInkOf(sets);
  ground.place = at;
  return ground;
}

Corner inTheMiddle(Size sheet, Size ink) {
  return {(sheet.width - ink.width) / 2, (sheet.height - ink.height) / 2};
}

Bitmap inkOfPlane(const BitPlane& plane, int ink) {
  Bitmap picture = plainBitmap(plane.width(), plane.height(), kPaper);
  forRuns(plane, [&](int y, int left, int right) {
    const auto begin = picture.pixels.begin() + static_cast<std::ptrdiff_t>(placeOf(plane.size(), left, y));
    std::fill_n(begin, right - left + 1, colourOfInk(ink));
  });
  return picture;
}

/// The smallest square of all ink; right less than left for none.
Square inkBox(const Bitmap& picture) {
  Square box{picture.width, picture.height, -1, -1};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      if (picture.at(x, y) == kPaper) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  }
  return box;
}

Bitmap cut(const Bitmap& picture, const Square& box) {
  Bitmap part = plainBitmap(box.right - box.left + 1, box.bottom - box.top + 1, kPaper);
  for (int y = 0; y < part.height; ++y)
    std::copy_n(picture.row(box.top + y) + box.left, part.width,
                part.pixels.begin() + std::ptrdiff_t{y} * part.width);
  return part;
}

/// Exact colours stay exact: each pixel is the one that lies nearest.
Bitmap scaled(const Bitmap& picture, Size size) {
  if (Size{picture.width, picture.height} == size) return picture;
  Bitmap made = plainBitmap(size.width, size.height, kPaper);
  for (int y = 0; y < size.height; ++y) {
    const Colour* const row = picture.row((2 * y + 1) * picture.height / (2 * size.height));
    for (int x = 0; x < size.width; ++x)
      made.pixels[placeOf(size, x, y)] = row[(2 * x + 1) * picture.width / (2 * size.width)];
  }
  return made;
}

Size held(Size size) {
  return {std::clamp(size.width, 1, Sheet::kSide), std::clamp(size.height, 1, Sheet::kSide)};
}

/// Puts down a picture that a person can go on to move.
void lay(Program& program, PlacedPicture placed) {
  Workshop& w = program.workshop;
  Sheet& sheet = *w.sheet;
  const Bitmap ink = scaled(placed.ink, placed.size);
  const Bitmap before = sheet.picture();
  sheet.setNote({});
  if (placed.alone) {
    Sheet alone(*placed.alone);
    alone.placeInk(ink, placed.at);
    sheet.replace(alone.picture());
  } else {
    sheet.placeInk(ink, placed.at);
  }
  placed.isStep = sheet.picture() != before;
  w.filled = placed.alone.has_value();
  w.note.clear();
  placed.revision = sheet.revision();
  w.placed = std::move(placed);
  ++w.revision;
}

}  // namespace

void putWords(Program& program, const WordSettings& settings, std::optional<Corner> at) {
  Workshop& w = program.workshop;
  if (!w.open) return;
  w.words = settings;
  onSheet(program, [&](Sheet& sheet) {
    const WordInk ink = makeWords(settings, wordGroundOf(w, at), program.platform.inkWork());
    if (!ink.picture.pixels.empty()) sheet.placeInk(ink.picture, ink.at, sheet.settings().mirror);
    sheet.setNote(settings.colour == kPaperInk ? kNoInk : ink.note);
  });
  ++w.revision;
}

void putStamp(Program& program, const StampSettings& settings, std::optional<Corner> at) {
  Workshop& w = program.workshop;
  if (!w.open) return;
  w.stamp = settings;
  w.stamp.height = std::clamp(settings.height, 1, kMostCellsHigh);
  onSheet(program, [&](Sheet& sheet) {
    const int height = std::min(w.stamp.height * sheet.pitch().stepY, Sheet::kSide);
    const BitPlane plane = program.platform.inkWork().stamp(w.stamp.name, height);
    const Bitmap ink = inkOfPlane(plane, w.stamp.colour);
    const Corner place = at.value_or(inTheMiddle(sheet.size(), {ink.width, ink.height}));
    if (!ink.pixels.empty()) sheet.placeInk(ink, place, sheet.settings().mirror);
    sheet.setNote(ink.pixels.empty()            ? "there is no stamp of that name"
                  : w.stamp.colour == kPaperInk ? kNoInk
                                                : "");
  });
  ++w.revision;
}

void placePrepared(Program& program, std::optional<Corner> at, std::optional<Size> size) {
  Workshop& w = program.workshop;
  if (!w.open || !program.prepare.open || program.prepare.working || !program.prepare.made) return;
  const Bitmap picture = program.prepare.made->picture;
  const bool fills = std::exchange(w.firstFills, false);
  if (fills) giveUpSheet(program);
  closePreparation(program);
  w.page = WorkshopPage::sheet;
  w.sheet->endStroke();
  const Square box = inkBox(picture);
  if (box.right < box.left) {
    if (fills) w.sheet->replace(picture);
    w.filled = fills;
    w.sheet->setNote("there is nothing to place");
    ++w.revision;
    return;
  }
  PlacedPicture placed;
  placed.ink = cut(picture, box);
  placed.at = {box.left, box.top};
  if (fills) placed.alone = Size{picture.width, picture.height};
  placed.size = held(size.value_or(Size{placed.ink.width, placed.ink.height}));
  const bool isFirst = fills || isPaperAlone(w.sheet->picture());
  if (at) {
    placed.at = *at;
  } else if (!isFirst || size) {
    placed.at = inTheMiddle(placed.alone.value_or(w.sheet->size()), placed.size);
  }
  lay(program, std::move(placed));
}

void movePlaced(Program& program, Corner at, Size size) {
  Workshop& w = program.workshop;
  if (!w.open || !w.placed || w.placed->revision != w.sheet->revision()) return;
  PlacedPicture placed = std::move(*w.placed);
  placed.at = at;
  placed.size = held(size);
  if (placed.isStep) w.sheet->undo();
  lay(program, std::move(placed));
}

void putPictureAway(Program& program) {
  if (!program.workshop.open || !program.prepare.open) return;
  closePreparation(program);
  stopFilling(program);
  turnPage(program, WorkshopPage::sheet);
}

}  // namespace gridwright
