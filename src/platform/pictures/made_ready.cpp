#include "platform/pictures/made_ready.h"

#include <algorithm>

#include "canvas/free_cell.h"
#include "pictures/on_paper.h"
#include "pictures/ready.h"
#include "pictures/sheet.h"
#include "platform/pictures/leptonica_work.h"
#include "platform/pictures/qt_ink.h"

namespace gridwright {

MadeReady pictureMadeReady(const Picture& picture, const PrepareSettings& settings,
                           const ReadyGround& ground) {
  if (isReady(picture, startingSets())) {
    const Bitmap asItIs = onPaper(picture.whole);
    const CellGrid grid = gridOn({asItIs.width, asItIs.height}, ground.wallSize, ground.kind);
    return {asItIs, regionLine(countRegions(asItIs, startingSets(), grid))};
  }
  LeptonicaWork work;
  const PrepareGround asked{ground.size.value_or(picture.whole.size()), ground.wallSize, ground.kind};
  const Prepared prepared = prepare(picture, settings, asked, work);
  return {prepared.picture, prepareLine(prepared)};
}

Outcome<MadeReady> wordsMadeReady(const WordSettings& settings, const ReadyGround& ground) {
  constexpr int kPaperCells = 2, kFills = 8;  // the first eight inks are filled at the start
  const int pitch = pitchOf(ground.wallSize, ground.kind);
  const int around = kPaperCells * pitch;
  WordGround place;
  place.size = {kLongestSide, kLongestSide};
  place.pitch = {pitch, pitch, ground.wallSize};
  for (int ink = 0; ink < kFills; ++ink) place.turns.push_back(ink);
  place.margin = kPaperCells;
  place.place = Corner{around, around};
  QtInk ink({});
  const WordInk words = makeWords(settings, place, ink);
  if (words.picture.pixels.empty()) return Fault{Fault::Kind::malformed, words.note};
  const Size size{std::min(words.at.x + words.picture.width + around, kLongestSide),
                  std::min(words.at.y + words.picture.height + around, kLongestSide)};
  Sheet sheet(size);
  sheet.placeInk(words.picture, words.at);
  const RegionCount count =
      countRegions(sheet.picture(), startingSets(), gridOn(size, ground.wallSize, ground.kind));
  return MadeReady{sheet.picture(), regionLine(count) + (words.note.empty() ? "" : "; " + words.note)};
}

}  // namespace gridwright
