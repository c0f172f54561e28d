#include "drawings/drawing_files.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <vector>

#include "drawings/drawing_record.h"
#include "drawings/drawing_values.h"
#include "drawings/last_picture.h"
#include "files/earlier_one.h"
#include "files/plain_file.h"
#include "files/saved_pair.h"
#include "menus/panels.h"
#include "patterns/pattern_sets.h"

namespace gridwright {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kRecordEnding = ".maze";
constexpr std::string_view kBitmapEnding = ".bmp";

bool isOwnPicture(std::string_view base) {
  constexpr auto kNames =
      std::to_array<std::string_view>({"title", "drawing1", "drawing1b", "drawing2", "drawing3", "drawing4",
                                       "credit1", "credit2", "last-drawing", "last-sheet"});
  if (std::any_of(kNames.begin(), kNames.end(),
                  [&](std::string_view n) { return equalButForCase(n, base); })) {
    return true;
  }
  for (int slide = 1; slide <= 11; ++slide) {
    if (equalButForCase("example" + std::to_string(slide), base)) return true;
  }
  return false;
}

std::string nameOf(const FilePlace& record) { return fs::path(record.filename()).stem().string(); }

bool endsIn(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && equalButForCase(name.substr(name.size() - ending.size()), ending);
}

PairPaths pairOf(const WorkFolder& folder, const std::string& base) {
  // An existing spelling of the record wins for both files.
  const FilePlace record = folder.resolve(base + std::string(kRecordEnding));
  const std::string spelt = nameOf(record);
  return {record, folder.resolve(spelt + std::string(kBitmapEnding))};
}

/// What the files that a save is about to replace will be called; empty where there are none.
std::string namesOfEarlier(const PairPaths& paths) {
  std::string names;
  for (const FilePlace& place : {paths.record, paths.bitmap}) {
    if (isThere(place)) names += (names.empty() ? "" : " and ") + earlierName(place).filename();
  }
  return names;
}

Outcome<Done> savePair(Program& program, const std::string& base) {
  const PairPaths paths = pairOf(*program.files, base);
  for (const FilePlace& place : {paths.record, paths.bitmap}) {
    if (isNoPlainFile(place)) return Fault{Fault::Kind::notPlain, place.path().string()};
  }
  recoverPair(paths);
  // An older save whose record can't take its name would be taken for this one's, were this one cut off.
  if (isThere(paths.readyRecord())) return Fault{Fault::Kind::notWritable, paths.record.path().string()};
  if (auto written = replacePlainFile(paths.buildingRecord(), formatDrawing(recordOf(program))); !written) {
    recoverPair(paths);
    return written.fault();
  }
  if (auto written =
          program.platform.saveBitmap(program.canvas.imageView(), paths.buildingBitmap(), Overwrite::atOnce);
      !written) {
    recoverPair(paths);
    return written.fault();
  }
  const std::string earlier = namesOfEarlier(paths);
  auto taken = takePairOver(paths);
  if (taken && !earlier.empty()) {
    program.notices.tell(nameOf(paths.record) + " is saved; the one before it stays as " + earlier);
  }
  return taken;
}

/// What a save can have left behind; a link is none of its files.
std::vector<std::string> plainFiles(const WorkFolder& folder, const std::string& ending) {
  std::vector<std::string> names = folder.list(ending);
  std::erase_if(names, [&](const std::string& name) { return isNoPlainFile(folder.at(name)); });
  return names;
}

Outcome<DrawingRecord> readRecord(const WorkFolder& folder, const std::string& base) {
  const auto text = isNameForDrawing(base) ? folder.readText(base + std::string(kRecordEnding))
                                           : Outcome<std::string>(Fault{Fault::Kind::notFound, base});
  return text ? parseDrawing(text.value()) : Outcome<DrawingRecord>(text.fault());
}

void refreshLists(Program& program) {
  for (const ControlId list : {ControlId::File1, ControlId::File2}) refreshList(program, list, kRecordEnding);
}

}  // namespace

bool isNameForDrawing(std::string_view base) { return staysInFolder(base) && !isOwnPicture(base); }

void recoverSaves(const WorkFolder& folder) {
  recoverLastPictures(folder);
  // What was cut off before it got its building name.
  for (const std::string& name : plainFiles(folder, ".building")) {
    const std::string target = targetOfBuilding(targetOfBuilding(name));
    if (endsIn(target, kBitmapEnding) || endsIn(target, kRecordEnding)) removeLeftOver(folder.at(name));
  }
  // The bitmap's name may be spelt unlike the record's: a pair is found by its name without case.
  std::map<std::string, PairPaths> pairs;
  struct Ending {
    std::string_view target, added;
  };
  for (const Ending ending : {Ending{kBitmapEnding, ".building"}, Ending{kRecordEnding, ".building"},
                              Ending{kRecordEnding, ".ready"}, Ending{kBitmapEnding, "~.building"},
                              Ending{kRecordEnding, "~.building"}}) {
    for (const std::string& name :
         plainFiles(folder, std::string(ending.target) + std::string(ending.added))) {
      const std::string target = name.substr(0, name.size() - ending.added.size());
      const std::string base = target.substr(0, target.rfind('.'));
      PairPaths& pair = pairs.try_emplace(inLowerCase(base), pairOf(folder, base)).first->second;
      (ending.target == kBitmapEnding ? pair.bitmap : pair.record) = folder.at(target);
    }
  }
  for (const auto& [base, pair] : pairs) recoverPair(pair);
  const std::string held = "~.building";
  // Exports, and the sheet that another program has.
  for (const std::string_view ending : {".png", ".svg", ".pdf"}) {
    for (const std::string& name : plainFiles(folder, std::string(ending) + held))
      recoverEarlier(folder.at(name.substr(0, name.size() - held.size())));
  }
  for (const MazeKind kind : {MazeKind::regular, MazeKind::pipe, MazeKind::threeD}) {
    for (const std::string& name : plainFiles(folder, std::string(setEnding(kind)) + held))
      recoverEarlier(folder.at(name.substr(0, name.size() - held.size())));
  }
}

Outcome<Done> saveDrawing(Program& program, const std::string& base) { return savePair(program, base); }

void sdrawing(Program& program) {
  ProgramState& s = program.state;
  s.finishFound = false;
  recoverSaves(*program.files);
  refreshLists(program);
  openPanel(program, kSavePanel, "");
}

void saveEntered(Program& program) {
  program.state.finishFound = false;
  const std::string base = baseName(program.controls[ControlId::text1].text);
  closePanel(program, kSavePanel);
  program.files->tellIfMoved();
  const auto saved =
      isNameForDrawing(base) ? savePair(program, base) : Outcome<Done>(Fault{Fault::Kind::notWritable, base});
  if (!saved) {
    if (!program.files->tellIfNoPlainFile(saved.fault()))
      program.platform.messageBox("Error: bad file name.");
    return;
  }
  refreshLists(program);
  const bool redraw = program.canvas.autoRedraw();
  program.canvas.setAutoRedraw(false);
  program.canvas.cls();
  program.canvas.setAutoRedraw(redraw);
}

void saveEscaped(Program& program) { closePanel(program, kSavePanel); }

void ldrawing(Program& program) {
  recoverSaves(*program.files);
  refreshLists(program);
  std::string& last = program.state.files.lastDrawing;
  last = nameToOffer(program, ControlId::File2, last);
  openPanel(program, kLoadPanel, last);
}

void loadEntered(Program& program) {
  const std::string base = baseName(program.controls[ControlId::Text4].text);
  closePanel(program, kLoadPanel);
  const auto drawing = readRecord(*program.files, base);
  if (!drawing) {
    program.platform.messageBox("Error: can't find file.");
    return;
  }
  const auto picture = program.platform.loadBitmap(pairOf(*program.files, base).bitmap);
  if (!picture) {
    program.platform.messageBox("Error: can't find bitmap.");
    return;
  }
  takeDrawing(program, {drawing.value(), picture.value()});
}

Outcome<SavedDrawing> readDrawing(Program& program, const fs::path& record) {
  const WorkFolder folder(record.parent_path());
  const std::string name = record.filename().string();
  const std::string base = record.stem().string();
  const auto drawing = readRecord(folder, base);
  if (!drawing) {
    const bool broken = drawing.fault().kind == Fault::Kind::malformed;
    return Fault{drawing.fault().kind, name + (broken ? " is no Gridwright drawing" : " cannot be opened")};
  }
  const FilePlace bitmap = pairOf(folder, base).bitmap;
  auto picture = program.platform.loadBitmap(bitmap);
  if (!picture)
    return Fault{picture.fault().kind,
                 name + " has no picture: " + bitmap.filename() + " beside it cannot be read"};
  return SavedDrawing{drawing.value(), std::move(picture.value())};
}

void takeDrawing(Program& program, const SavedDrawing& drawing) {
  giveUpDrawing(program);
  install(program, drawing.record, drawing.picture);
}

void loadEscaped(Program& program) { closePanel(program, kLoadPanel); }

}  // namespace gridwright
