#include "files/import_drawing.h"

#include "core/menu_rules.h"
#include "core/panels.h"
#include "files/drawing_files.h"

namespace gridwright {

void importdrawing(Program& program) {
  refreshList(program, ControlId::File5, ".bmp");
  openPanel(program, kImportPanel, nameToOffer(program, ControlId::File5, ""));
}

void importEntered(Program& program) {
  ProgramState& s = program.state;
  const std::string base = baseName(program.controls[ControlId::Text8].text);
  closePanel(program, kImportPanel);
  const auto picture = staysInFolder(base)
                           ? program.platform.loadBitmap(program.files->resolve(base + ".bmp"))
                           : Outcome<Bitmap>(Fault{Fault::Kind::notFound, base});
  if (!picture) {
    program.platform.messageBox("Error: can't find bitmap.");
    return;
  }
  keepLastDrawing(program);
  program.canvas.setPicture(picture.value());
  s.drawing.skipPaintOnce = s.drawing.firstPaint = true;
  program.platform.maximise();
  s.mazeMadeOnce = true;
  showCreateItems(program);
}

void importEscaped(Program& program) { closePanel(program, kImportPanel); }

}  // namespace gridwright
