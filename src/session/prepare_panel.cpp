#include "session/prepare_panel.h"

#include <utility>

#include "drawings/import_drawing.h"
#include "pictures/on_paper.h"
#include "session/arrivals.h"
#include "session/workshop.h"
#include "state/grid.h"

namespace gridwright {

namespace {

/// The first picture is made as large as the window; another one may be as large as the sheet that it comes
/// onto, and its colours mean what they mean there.
PrepareGround groundOf(Program& program) {
  const Workshop& w = program.workshop;
  const ProgramState& s = program.state;
  if (w.firstFills)
    return {canvasFor(program.platform.clientSize()), s.wallWidth, s.mazeKind, startingSets()};
  return {w.sheet->size(), s.wallWidth, s.mazeKind, w.sets()};
}

void made(Program& program, std::uint64_t asked, std::shared_ptr<const Prepared> prepared) {
  PreparePanel& panel = program.prepare;
  if (!panel.open || asked != panel.asked) return;
  panel.line = prepareLine(*prepared);
  panel.made = std::move(prepared);
  panel.working = false;
  ++panel.revision;
  if (panel.useWhenMade) useWorkshop(program);
}

void prepareAnew(Program& program) {
  PreparePanel& panel = program.prepare;
  panel.working = true;
  ++panel.revision;
  program.platform.workBeside(
      program,
      [asked = ++panel.asked, picture = panel.picture, preparation = panel.preparation,
       settings = panel.settings, ground = panel.ground]() -> Finish {
        auto prepared = std::make_shared<const Prepared>(preparation->make(settings, ground));
        return [asked, prepared](Program& p) { made(p, asked, prepared); };
      });
}

}  // namespace

void openPreparePanel(Program& program, std::shared_ptr<const Picture> picture) {
  openWorkshop(program, true);
  PreparePanel& panel = program.prepare;
  closePreparation(program);
  panel.open = true;
  panel.settings = {};
  panel.settings.asItsSize = !program.workshop.firstFills && !isPaperAlone(program.workshop.sheet->picture());
  panel.ground = groundOf(program);
  panel.preparation = std::make_shared<Preparation>(*picture, program.platform.pictureWork());
  panel.picture = std::move(picture);
  prepareAnew(program);
  turnPage(program, WorkshopPage::prepare);
}

void preparepicture(Program& program) {
  Bitmap shown = program.canvas.image();
  const Size own{shown.width, shown.height};
  openPreparePanel(program, std::make_shared<const Picture>(Picture{{std::move(shown), {}}, {}, own}));
}

void changePreparation(Program& program, PrepareSettings settings) {
  PreparePanel& panel = program.prepare;
  if (!panel.open || settings == panel.settings) return;
  panel.settings = std::move(settings);
  prepareAnew(program);
}

void usePictureAsItIs(Program& program) {
  const PreparePanel& panel = program.prepare;
  if (!panel.open || !panel.fitsAsItIs()) return;
  const auto picture = panel.picture;
  leaveWorkshop(program);
  takeInDrawing(program, [picture](Program& p) { takePicture(p, onPaper(picture->asItIs())); });
}

void closePreparation(Program& program) {
  PreparePanel& panel = program.prepare;
  if (!panel.open) return;
  panel.open = panel.working = panel.useWhenMade = false;
  panel.picture.reset();
  panel.preparation.reset();
  panel.made.reset();
  ++panel.asked;
  ++panel.revision;
}

void preparationResized(Program& program) {
  PreparePanel& panel = program.prepare;
  if (!panel.open || groundOf(program) == panel.ground) return;
  panel.ground = groundOf(program);
  prepareAnew(program);
}

}  // namespace gridwright
