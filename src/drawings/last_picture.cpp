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
/// before, and where it cannot nothing is written.
template <class Save>
bool saveOver(const FilePlace& place, bool isFirst, const Save& save) {
  return isFirst && !isNoPlainFile(place) ? saveOverEarlier(place, save, false) : save();
}

/// \param place the folder where the name holds an earlier state of the same drawing; empty for none.
/// \returns the folder that the picture is in now; empty for nowhere.
fs::path keep(Program& program, std::string_view name, const BitmapView& picture, const fs::path& place) {
  const fs::path& here = program.files->path();
  program.files->tellIfMoved();
  if (program.pictures.holds(name, picture)) return here;
  if (saveOver(program.files->resolve(name), place != here,
               [&] { return program.pictures.save(name, picture, Overwrite::atOnce); })) {
    return here;
  }
  tellIfUnwritable(program);
  const fs::path data = otherPlace(program);
  if (data.empty()) return {};
  const bool isKept = saveOver(data / name, place != data, [&] {
    const auto kept = program.platform.saveBitmap(picture, data / name, Overwrite::atOnce);
    if (kept) return true;
    program.files->tellIfNoPlainFile(kept.fault());
    program.files->tell("Error: the drawing can be kept neither in this folder nor in " + data.string() +
                        "; it is lost.");
    return false;
  });
  return isKept ? data : fs::path();
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
  const BitmapView whole = program.canvas.wholeView();
  if (isOfOneColour(whole)) return {};
  return whole;
}

/// The drawing as it was left for the maze that stands over it; what a smaller window hides no maze covers.
Bitmap drawingBeneathMaze(Program& program) {
  Bitmap drawing = program.canvas.wholeView().copied();
  const BitmapView left = program.pictures.load("drawing1.bmp");
  const int columns = std::min(left.width, drawing.width);
  for (int y = 0; y < std::min(left.height, drawing.height); ++y) {
    const Colour* row = left.row(y);
    const auto to = drawing.pixels.begin() + static_cast<std::ptrdiff_t>(y) * drawing.width;
    std::transform(row, row + columns, to, Canvas::colourOf);
  }
  return drawing;
}

/// Where a run before left its picture: in the data folder when the working folder took nothing then.
fs::path placeOfRunBefore(const Program& program, std::string_view name) {
  if (!program.files->takesFiles()) return otherPlace(program);
  const auto other = changedAt(program.dataFolder / name);
  const auto own = changedAt(program.files->resolve(name));
  const bool isNewer = !program.dataFolder.empty() && other && own && *other > *own;
  return isNewer ? program.dataFolder : program.files->path();
}

Outcome<Bitmap> loadFrom(Program& program, const fs::path& place, std::string_view name, bool earlier) {
  if (place.empty()) return Fault{Fault::Kind::notFound, std::string(name)};
  const FilePlace file =
      place == program.files->path() ? program.files->resolve(name) : WorkFolder(place).resolve(name);
  return program.platform.loadBitmap(earlier ? earlierName(file) : file);
}

/// The picture under the name: this drawing's, or what the one before left.
Outcome<Bitmap> pictureInFile(Program& program, bool earlier) {
  const LastPicture& last = program.lastPicture;
  return loadFrom(program, last.inFile == 0 ? placeOfRunBefore(program, kLastDrawing) : last.place,
                  kLastDrawing, earlier);
}

/// \returns whether the picture is in a file. What is there already is not written again, and spends no
/// picture before it.
bool keepDrawing(Program& program, const BitmapView& picture) {
  LastPicture& last = program.lastPicture;
  const bool isFirst = last.inFile != last.drawing;
  if (isFirst) {
    const auto there = pictureInFile(program, false);
    if (there && picture.isSameAs(there.value())) return true;
  }
  const fs::path place = keep(program, kLastDrawing, picture, isFirst ? fs::path() : last.place);
  if (place.empty()) return false;
  last.inFile = last.drawing;
  last.place = place;
  return true;
}

/// What the drawing before left.
Outcome<Bitmap> pictureBefore(Program& program) {
  const LastPicture& last = program.lastPicture;
  if (last.before && last.beforeOf == last.drawing) return *last.before;
  return pictureInFile(program, last.inFile == last.drawing);
}

}  // namespace

void keepLastDrawing(Program& program) {
  if (const auto picture = pictureAtStake(program)) keepDrawing(program, *picture);
}

void giveUpDrawing(Program& program) {
  LastPicture& last = program.lastPicture;
  const bool wasKept = last.inFile == last.drawing;
  if (const auto picture = pictureAtStake(program)) {
    last.before = keepDrawing(program, *picture) ? std::nullopt : std::optional(picture->copied());
  } else if (wasKept || last.beforeOf != last.drawing) {
    last.before.reset();  // an empty one that was never more leaves what the one before it left
  }
  last.drawing = last.beforeOf = ++last.newest;
}

void autosaveDrawing(Program& program) {
  const Phase phase = program.state.phase;
  if (phase < Phase::making) return keepLastDrawing(program);
  const Bitmap drawing = drawingBeneathMaze(program);
  if (!isOfOneColour(drawing)) keepDrawing(program, drawing);
}

void lastpicture(Program& program) {
  const auto picture = pictureBefore(program);
  if (!picture) {
    program.notices.tell("Nothing to bring back: there is no drawing before this one");
    return;
  }
  const bool isBlank = !pictureAtStake(program);
  Bitmap here = program.canvas.image();
  takePicture(program, picture.value());
  if (isBlank) {
    program.lastPicture.before = std::move(here);  // no file is spent on it
  } else {
    keepLastDrawing(program);  // killed from here on, the program has left this one
  }
}

fs::path keepSheet(Program& program, const Bitmap& sheet, const fs::path& place) {
  return keep(program, kLastSheet, sheet, place);
}

std::optional<KeptSheet> keptSheet(Program& program) {
  fs::path place = placeOfRunBefore(program, kLastSheet);
  auto kept = loadFrom(program, place, kLastSheet, false);
  if (!kept) return {};
  return KeptSheet{std::move(kept.value()), std::move(place)};
}

void recoverLastPictures(const WorkFolder& folder) {
  for (const std::string_view name : {kLastDrawing, kLastSheet}) {
    const FilePlace place = folder.resolve(name);
    if (isHeld(place) && !isNoPlainFile(heldName(place))) recoverEarlier(place);
  }
}

void tellOfFolder(Program& program) {
  std::string words = std::exchange(program.wordsAtBegin, {});
  if (!words.empty()) program.files->tell(std::move(words));
  tellIfUnwritable(program);
  const FilePlace last = program.files->resolve(kLastDrawing);
  if (isNoPlainFile(last)) program.files->tellIfNoPlainFile({Fault::Kind::notPlain, last.path().string()});
  program.files->tellThrough(
      [&desktop = program.platform](std::string_view told) { desktop.messageBox(told); });
}

}  // namespace gridwright
