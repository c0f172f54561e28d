#include "drawings/import_drawing.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "canvas/size_words.h"
#include "drawings/last_picture.h"
#include "files/plain_file.h"
#include "menus/menu_rules.h"
#include "menus/panels.h"

namespace gridwright {

namespace {

namespace fs = std::filesystem;

/// Pictures that people have in place of a bitmap.
constexpr std::array<std::string_view, 8> kOtherEndings = {".png",  ".jpg", ".jpeg", ".gif",
                                                           ".webp", ".tif", ".tiff", ".svg"};

std::string bitmapName(const std::string& base) { return base + ".bmp"; }

/// The name of the picture of another format that was meant: the file typed, else one of the base name; empty
/// if none.
std::string otherPicture(const Program& program, std::string_view typed, const std::string& base) {
  typed.remove_prefix(std::min(typed.find_first_not_of(' '), typed.size()));
  if (!staysInFolder(base)) return {};
  if (staysInFolder(typed) && typed != base) {
    if (const FilePlace place = program.files->resolve(typed); leadsToFile(place)) return place.filename();
  }
  for (const std::string_view ending : kOtherEndings) {
    const FilePlace place = program.files->resolve(base + std::string(ending));
    if (leadsToFile(place)) return place.filename();
  }
  return {};
}

void tellWhyNot(Program& program, const Fault& fault, const std::string& typed, const std::string& base) {
  const bool isThere = fault.kind != Fault::Kind::notFound;
  const std::string name =
      isThere ? program.files->resolve(bitmapName(base)).filename() : otherPicture(program, typed, base);
  if (name.empty()) return;  // nothing lies there: the message says all
  if (fault.kind == Fault::Kind::malformed) {
    program.notices.tell(name + " cannot be read: " + fault.words);
  } else if (fault.kind == Fault::Kind::notReadable) {
    program.notices.tell(name + " cannot be opened");
  } else if (fault.kind == Fault::Kind::notFound &&
             equalButForCase(fs::path(name).extension().string(), ".bmp")) {
    program.notices.tell(name + " was looked for as " + bitmapName(base) +
                         ": a name ends at its first point");
  } else {
    program.notices.tell(name + " is no bitmap");
  }
}

/// The Canvas is as large as the window allows.
void tellCut(Program& program, const Bitmap& picture, Size client) {
  const Size whole = picture.cutFrom == Size{} ? Size{picture.width, picture.height} : picture.cutFrom;
  const Size taken = {std::min({whole.width, client.width, Canvas::kSide}),
                      std::min({whole.height, client.height, Canvas::kSide})};
  if (taken == whole) return;
  program.notices.tell("the picture is " + sizeWords(whole) + "; the Canvas takes " + sizeWords(taken) +
                       " of it");
}

}  // namespace

void importdrawing(Program& program) {
  refreshList(program, ControlId::File5, ".bmp");
  openPanel(program, kImportPanel, nameToOffer(program, ControlId::File5, ""));
}

void importEntered(Program& program) {
  const std::string typed = program.controls[ControlId::Text8].text;
  const std::string base = baseName(typed);
  closePanel(program, kImportPanel);
  const auto picture = staysInFolder(base)
                           ? program.platform.loadBitmap(program.files->resolve(bitmapName(base)))
                           : Outcome<Bitmap>(Fault{Fault::Kind::notFound, base});
  if (!picture) {
    program.platform.messageBox("Error: can't find bitmap.");
    tellWhyNot(program, picture.fault(), typed, base);
    return;
  }
  takePicture(program, picture.value());
}

void takePicture(Program& program, const Bitmap& picture) {
  ProgramState& s = program.state;
  giveUpDrawing(program);
  program.canvas.setPicture(picture);
  s.drawing.skipPaintOnce = s.drawing.firstPaint = true;
  tellCut(program, picture, program.platform.maximise());
  s.mazeMadeOnce = true;
  showCreateItems(program);
}

void importEscaped(Program& program) { closePanel(program, kImportPanel); }

}  // namespace gridwright
