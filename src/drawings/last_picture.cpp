#include "drawings/last_picture.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "drawings/import_drawing.h"
#include "files/earlier_one.h"
#include "files/plain_file.h"
#include "files/work_place.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kLastDrawing = "last-drawing.bmp", kLastSheet = "last-sheet.bmp";

/// Where a drawing can be kept that the working folder does not take; empty for nowhere.
fs::path otherPlace(const Program& program) {
  const fs::path& data = program.dataFolder;
  return !data.empty() && makePersonalFolder(data) && WorkFolder(data).takesFiles() ? data : fs::path();
}

void tellIfUnwritable(Program& program) {
  if (program.toldUnwritable || program.files->takesFiles()) return;
  program.toldUnwritable = true;
  program.files->tell(wordsOnUnwritableFolder(otherPlace(program)));
}

/// Writes over a picture by `save`, which says whether it did; one of another drawing stays as the one
/// before.
template <class Save>
bool saveOver(const fs::path& path, bool isFirst, const Save& save) {
  const bool holds = isFirst && !isNoPlainFile(path) && holdEarlier(path);
  const bool saved = save();
  if (!holds) return saved;
  if (saved) {
    keepEarlier(path);
  } else {
    dropEarlier(path);
  }
  return saved;
}

/// \param isFirst the name may hold another drawing's picture.
/// \returns whether the picture is in a file.
bool keep(Program& program, std::string_view name, const BitmapView& picture, bool isFirst) {
  if (program.pictures.holds(name, picture)) return true;
  if (saveOver(program.files->resolve(name), isFirst,
               [&] { return program.pictures.save(name, picture, Overwrite::atOnce); })) {
    return true;
  }
  tellIfUnwritable(program);
  const fs::path data = otherPlace(program);
  if (data.empty()) return false;
  return saveOver(data / name, isFirst, [&] {
    const auto kept = program.platform.saveBitmap(picture, data / name, Overwrite::atOnce);
    if (kept) return true;
    program.files->tellIfNoPlainFile(kept.fault());
    program.files->tell("Error: the drawing can be kept neither in this folder nor in " + data.string() +
                        "; it is lost.");
    return false;
  });
}

bool isOfOneColour(const BitmapView& picture) {
  if (picture.isEmpty()) return true;
  const Bitmap all = picture.copied();
  return std::all_of(all.pixels.begin(), all.pixels.end(), [&](Colour c) { return c == all.pixels.front(); });
}

/// What would be lost now; nothing where nothing shows. It stands until the next stroke.
std::optional<BitmapView> pictureAtStake(Program& program) {
  const Phase phase = program.state.phase;
  if (phase == Phase::title) return {};
  if (phase == Phase::patternEditing || phase == Phase::patternRequest) {
    // The editor's field lies over the picture.
    if (!program.state.editor.fieldCoversPicture) return {};
    return BitmapView(program.pictures.load("drawing4.bmp"));
  }
  if (!program.canvas.showsAnything()) return {};
  return program.canvas.imageView();
}

bool keepDrawing(Program& program, const BitmapView& picture) {
  LastPicture& last = program.lastPicture;
  const bool kept = keep(program, kLastDrawing, picture, last.inFile != last.drawing);
  if (kept) last.inFile = last.drawing;
  return kept;
}

/// The folder that a picture is kept in; empty for nowhere.
fs::path placeOfPictures(const Program& program) {
  return program.files->takesFiles() ? program.files->path() : otherPlace(program);
}

/// What the drawing before left.
Outcome<Bitmap> pictureBefore(Program& program) {
  const LastPicture& last = program.lastPicture;
  if (last.before) return *last.before;
  const fs::path place = placeOfPictures(program);
  if (place.empty()) return Fault{Fault::Kind::notFound, std::string(kLastDrawing)};
  const fs::path path = WorkFolder(place).resolve(kLastDrawing);
  return program.platform.loadBitmap(last.inFile == last.drawing ? earlierName(path) : path);
}

}  // namespace

void keepLastDrawing(Program& program) {
  if (const auto picture = pictureAtStake(program)) keepDrawing(program, *picture);
}

void giveUpDrawing(Program& program) {
  LastPicture& last = program.lastPicture;
  const auto picture = pictureAtStake(program);
  if (!picture && last.inFile != last.drawing) return;  // an empty one that was never more
  const bool kept = !picture || keepDrawing(program, *picture);
  last.before = kept ? std::nullopt : std::optional(picture->copied());
  last.drawing = ++last.newest;
}

void autosaveDrawing(Program& program) {
  const Phase phase = program.state.phase;
  if (phase < Phase::making) return keepLastDrawing(program);
  const Bitmap drawing = program.pictures.load("drawing1.bmp").copied();
  if (!isOfOneColour(drawing)) keepDrawing(program, drawing);
}

void lastpicture(Program& program) {
  const auto picture = pictureBefore(program);
  if (!picture) {
    program.notices.tell("Nothing to bring back: there is no drawing before this one");
    return;
  }
  LastPicture& last = program.lastPicture;
  const bool isBlank = !program.canvas.showsAnything();
  Bitmap here = program.canvas.image();
  takePicture(program, picture.value());
  if (isBlank) {
    last.before = std::move(here);  // no file is spent on it
  } else {
    keepLastDrawing(program);  // killed from here on, the program has left this one
  }
}

void keepSheet(Program& program, const Bitmap& sheet, bool isFirst) {
  keep(program, kLastSheet, sheet, isFirst);
}

std::optional<Bitmap> keptSheet(Program& program) {
  const fs::path place = placeOfPictures(program);
  if (place.empty()) return {};
  auto kept = program.platform.loadBitmap(WorkFolder(place).resolve(kLastSheet));
  return kept ? std::optional(std::move(kept.value())) : std::nullopt;
}

void recoverLastPictures(const WorkFolder& folder) {
  for (const std::string_view name : {kLastDrawing, kLastSheet}) {
    const fs::path path = folder.resolve(name);
    if (isHeld(path) && !isNoPlainFile(heldName(path))) recoverEarlier(path);
  }
}

void tellOfFolder(Program& program) {
  std::string words = std::exchange(program.wordsAtBegin, {});
  if (!words.empty()) program.files->tell(std::move(words));
  tellIfUnwritable(program);
  const fs::path last = program.files->resolve(kLastDrawing);
  if (isNoPlainFile(last)) program.files->tellIfNoPlainFile({Fault::Kind::notPlain, last.string()});
  program.files->tellThrough(
      [&desktop = program.platform](std::string_view told) { desktop.messageBox(told); });
}

}  // namespace gridwright
