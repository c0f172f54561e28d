#include "session/prepare_panel.h"

#include <algorithm>
#include <utility>

#include "colours/colour_editor.h"
#include "drawings/import_drawing.h"
#include "menus/panels.h"
#include "pictures/on_paper.h"
#include "session/arrivals.h"
#include "state/grid.h"

namespace gridwright {

namespace {

PrepareGround groundOf(Program& program) {
  return {canvasFor(program.platform.clientSize()), program.state.wallWidth, program.state.mazeKind};
}

void use(Program& program);

void made(Program& program, std::uint64_t asked, std::shared_ptr<const Prepared> prepared) {
  PreparePanel& panel = program.prepare;
  if (!panel.open || asked != panel.asked) return;
  panel.line = prepareLine(*prepared);
  panel.made = std::move(prepared);
  panel.working = false;
  ++panel.revision;
  if (panel.useWhenMade) use(program);
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

void close(Program& program) {
  PreparePanel& panel = program.prepare;
  panel.open = panel.working = panel.useWhenMade = false;
  panel.picture.reset();
  panel.preparation.reset();
  panel.made.reset();
  ++panel.asked;
  ++panel.revision;
  releaseWindow(program);
}

void use(Program& program) {
  const auto prepared = program.prepare.made;
  close(program);
  takeInDrawing(program, [prepared](Program& p) {
    resetcolors(p);
    takePicture(p, prepared->picture);
  });
}

}  // namespace

void openPreparePanel(Program& program, std::shared_ptr<const Picture> picture) {
  program.platform.maximise();
  holdWindowOverScreen(program);
  PreparePanel& panel = program.prepare;
  panel.open = true;
  panel.settings = {};
  panel.ground = groundOf(program);
  panel.preparation = std::make_shared<Preparation>(*picture, program.platform.pictureWork());
  panel.picture = std::move(picture);
  panel.made.reset();
  prepareAnew(program);
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

void usePrepared(Program& program) {
  PreparePanel& panel = program.prepare;
  if (!panel.open) return;
  panel.useWhenMade = panel.working;
  if (!panel.working) use(program);
}

void usePictureAsItIs(Program& program) {
  const PreparePanel& panel = program.prepare;
  if (!panel.open || !panel.fitsAsItIs()) return;
  const auto picture = panel.picture;
  close(program);
  takeInDrawing(program, [picture](Program& p) { takePicture(p, onPaper(picture->asItIs())); });
}

void cancelPreparation(Program& program) {
  if (program.prepare.open) close(program);
}

void preparationResized(Program& program) {
  PreparePanel& panel = program.prepare;
  if (!panel.open || groundOf(program) == panel.ground) return;
  panel.ground = groundOf(program);
  prepareAnew(program);
}

}  // namespace gridwright
