// The workshop's sheet in another program: written as a picture, and looked at when that program saves it.
#include <algorithm>
#include <memory>

#include "files/earlier_one.h"
#include "files/plain_file.h"
#include "pictures/on_paper.h"
#include "session/prepare_panel.h"
#include "session/workshop.h"

namespace gridwright {

namespace {

constexpr std::string_view kSheetFile = "sheet.png";

/// Whether a sheet can hold the picture as it is.
bool isSheet(const Picture& picture) {
  if (!picture.isWholeAsItIs() || picture.own.width > Sheet::kSide || picture.own.height > Sheet::kSide)
    return false;
  return inInks(onPaper(picture.asItIs())).others == 0;
}

/// One that is half written has another mark when it is whole.
void cameBack(Program& program, const Outcome<Picture>& read) {
  if (!program.workshop.open || !read) return;
  if (!isSheet(read.value())) {
    openPreparePanel(program, std::make_shared<const Picture>(read.value()));
    return;
  }
  onSheet(program, [&](Sheet& sheet) { sheet.replace(onPaper(read.value().asItIs()), sheet.meaning()); });
  turnPage(program, WorkshopPage::sheet);
}

}  // namespace

void editelsewhere(Program& program) {
  Workshop& w = program.workshop;
  if (!w.open) return;
  w.sheet->endStroke();
  const FilePlace file = program.files->resolve(kSheetFile);
  // What this sheet or the other program left there gives way; a picture of somebody's own stays beside it.
  const bool isOurs = w.elsewhere && markOf(file) == w.mark;
  const auto save = [&] { return program.platform.savePng(w.sheet->picture(), file); };
  const Fault refused{Fault::Kind::notWritable, file.path().string()};
  if (const auto saved = isOurs ? save() : saveOverEarlier(file, save, refused); !saved) {
    program.notices.tell("sheet.png could not be written: " + saved.fault().words);
    return;
  }
  w.elsewhere = file;
  w.mark = markOf(file);
  ++w.revision;
  if (!program.platform.openElsewhere(file.path()))
    program.notices.tell("no program on this desktop opens sheet.png");
}

void watchSheetFile(Program& program) {
  Workshop& w = program.workshop;
  if (!w.open || !w.elsewhere) return;
  if (program.prepare.open && program.prepare.working) return;  // of work beside, only the newest counts
  const auto mark = markOf(*w.elsewhere);
  if (!mark || mark == w.mark) return;
  w.mark = mark;
  program.platform.workBeside(
      program, [&door = program.platform, file = w.elsewhere->path(), size = w.sheet->size()]() -> Finish {
        auto read = std::make_shared<Outcome<Picture>>(door.readPicture(file, size));
        return [read](Program& p) { cameBack(p, *read); };
      });
}

}  // namespace gridwright
