#include "printing/export_maze.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>

#include "files/earlier_one.h"
#include "files/plain_file.h"
#include "menus/enable_table.h"
#include "menus/panels.h"
#include "printing/page.h"
#include "printing/svg.h"
#include "printing/taken_picture.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFirstName = "maze-1.png";
constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

struct Ending {
  std::string_view ending;
  PictureFormat format;
};
constexpr auto kEndings = std::to_array<Ending>(
    {{".png", PictureFormat::png}, {".svg", PictureFormat::svg}, {".pdf", PictureFormat::pdf}});

std::optional<PictureFormat> formatOf(const fs::path& file) {
  std::string ending = file.extension().string();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  const auto* row =
      std::find_if(kEndings.begin(), kEndings.end(), [&](const Ending& e) { return e.ending == ending; });
  if (row == kEndings.end()) return std::nullopt;
  return row->format;
}

/// A name lies in the working folder, whatever that is called by now; a path lies where it leads.
FilePlace placeOf(const Program& program, const std::string& file) {
  if (staysInFolder(file)) return program.files->at(file);
  return FilePlace(program.files->presentPath() / file).held();
}

/// The name, or the one with the next higher number at its end that is free.
std::string freeName(const Program& program, const std::string& name) {
  fs::path path(name);
  const std::string ending = path.extension().string();
  std::string stem = path.stem().string();
  const std::size_t digits = stem.find_last_not_of("0123456789") + 1;
  constexpr std::size_t kMostDigits = 6;
  int number = 1;
  if (digits > 0 && digits < stem.size() && stem.size() - digits <= kMostDigits) {
    number = std::stoi(stem.substr(digits));
    stem.resize(digits);
  } else {
    stem += '-';
  }
  while (isThere(placeOf(program, path.string())))
    path.replace_filename(std::string(stem).append(std::to_string(++number)).append(ending));
  return path.string();
}

bool isSolved(const Program& program) { return program.state.phase == Phase::solved; }

/// What no file can be made of; empty when one can.
std::string whyNoFile(const Program& program, const ExportWish& wish, const FilePlace& place) {
  const std::string name = place.filename();
  if (name.empty()) return "Nothing is exported: the file has no name";
  if (!formatOf(name)) return "Nothing is exported: a name ends in .png, .svg or .pdf, not so " + name;
  if (wish.answer == true && !isSolved(program))
    return "Nothing is exported: no solved maze is on the Canvas";
  if (!place.heldFolder())
    return "Nothing is exported: there is no folder " + place.path().parent_path().string();
  if (isNoPlainFile(place)) return "Nothing is exported: " + name + " is no plain file";
  return "";
}

/// What a picture calls itself.
std::string_view titleOf(const Program& program) {
  const std::string& title = program.pages.setup.title;
  return title.empty() ? std::string_view("Gridwright") : title;
}

std::string svgOfTaken(const Program& program, const Bitmap& picture) {
  const auto layers = layersOfTaken(picture, kAnyNumber);
  return svgOf(*layers, {picture.width, picture.height}, titleOf(program));
}

Outcome<Done> write(Program& program, const ExportWish& wish, const FilePlace& place) {
  const Bitmap picture = takenPicture(program, wish.answer == false, wish.clear);
  const PictureFormat format = *formatOf(place.filename());
  if (format == PictureFormat::svg) {
    removeLeftOversOf(place);  // the others' way of growing does that itself
    const auto written = replacePlainFile(place, svgOfTaken(program, picture));
    if (!written) return written.fault();
    return Done{};
  }
  PageLook look = pageOf(program).look();
  look.ends.clear();
  look.setup.title.clear();
  look.setup.nameLine = look.setup.endWords = false;
  look.setup.tiles = {};  // one page, however pages are spread
  const UsualPaper usual = program.platform.usualPaper();
  const int scale = scaleOnPage({picture.width, picture.height}, look.setup, usual, wish.dpi);
  return program.platform.writePicture({picture, format, scale, wish.dpi, look, usual}, place);
}

/// \returns why the file is not there; empty when it is.
std::string exported(Program& program, const ExportWish& wish, const FilePlace& place) {
  if (std::string why = whyNoFile(program, wish, place); !why.empty()) return why;
  const std::string refused = "Nothing is exported: " + place.path().string() + " can't be written";
  // What a killed program left of it, also where it does not work.
  if (isHeld(place)) recoverEarlier(place);
  const bool saved = saveOverEarlier(
      place, [&] { return static_cast<bool>(write(program, wish, place)); }, false);
  return saved ? "" : refused;
}

void tell(Program& program, const std::string& words, const fs::path& opens = {}) {
  program.platform.told(words);
  program.notices.tell(words, opens);
}

}  // namespace

std::string_view whyNotTaken(const Program& program) {
  const ProgramState& s = program.state;
  if (const std::string_view why = whyHeld(program); !why.empty()) return why;
  if (s.phase == Phase::making) return "Not now: a maze is being made";
  if (s.phase < Phase::drawing) return "Not now: there is no drawing yet";
  return tableEnables(program, Item::exportmaze) ? "" : "Not now: the finish is being looked for";
}

void tellNotTaken(Program& program) {
  const std::string why(whyNotTaken(program));
  if (!why.empty() && program.state.phase != Phase::title) tell(program, why);
}

void exportmaze(Program& program) {
  ExportPanel& panel = program.exporting;
  const Phase phase = program.state.phase;
  panel.wish.file = freeName(program, panel.wish.file.empty() ? std::string(kFirstName) : panel.wish.file);
  panel.answerStands = isSolved(program);
  panel.mazeStands = phase == Phase::solving || phase == Phase::solved;
  panel.line.clear();
  panel.open = true;
  ++panel.revision;
  holdWindowOverScreen(program);
}

void takeExport(Program& program, const ExportWish& wish) {
  ExportPanel& panel = program.exporting;
  const std::string held(panel.open ? std::string_view() : whyNotTaken(program));
  if (!held.empty()) return tell(program, held);
  const FilePlace place = placeOf(program, wish.file);
  panel.line = exported(program, wish, place);
  ++panel.revision;
  if (!panel.line.empty()) return tell(program, panel.line);
  panel.wish = wish;
  leaveExport(program);
  const fs::path path = place.path();
  const fs::path folder = path.parent_path();
  tell(program, "the picture is exported to " + path.filename().string() + ", in " + folder.string(), path);
}

void leaveExport(Program& program) {
  ExportPanel& panel = program.exporting;
  if (!panel.open) return;
  panel.open = false;
  ++panel.revision;
  releaseWindow(program);
}

void copymaze(Program& program) {
  const Bitmap picture = takenPicture(program, false, false);
  if (!program.platform.copyPicture(picture, svgOfTaken(program, picture)))
    return tell(program, "Nothing is copied: it can't be pasted here");
  tell(program, "The picture is copied");
}

}  // namespace gridwright
