#include "session/main_loop.h"

#include "drawings/last_picture.h"
#include "menus/pump.h"
#include "session/book_panel.h"
#include "session/remembered.h"
#include "session/stages.h"
#include "session/workshop.h"

namespace gridwright {

void endProgram() { throw ProgramEnd{}; }

void runProgram(Program& program) {
  try {
    for (Stage stage = Stage::processStart;;) stage = runStage(program, stage);
  } catch (const ProgramEnd&) {
    finishProgram(program);
    throw;
  }
}

void finishProgram(Program& program) {
  program.files->tellThrough({});  // nobody is there to read it any more
  giveUpBook(program);
  keepLastDrawing(program);
  keepLastSheet(program);
  rememberSettings(program);
  program.platform.endOfPages();
}

Stage stageOf(Phase phase) {
  switch (phase) {
    case Phase::quitToTitle:
    case Phase::title:
      return Stage::title;
    case Phase::drawing:
      return Stage::drawing;
    case Phase::making:
      return Stage::making;
    case Phase::placing:
      return Stage::ends;
    default:
      return Stage::solving;
  }
}

Stage runStage(Program& program, Stage stage) {
  switch (stage) {
    case Stage::processStart:
      return processStartStage(program);
    case Stage::title:
      return titleStage(program);
    case Stage::leaveTitle:
      return leaveTitleStage(program);
    case Stage::drawing:
      return drawingStage(program);
    case Stage::checks:
      return checksStage(program);
    case Stage::making:
      return makingStage(program);
    case Stage::ends:
      return endsStage(program);
    case Stage::solving:
      return solvingStage(program);
  }
  return Stage::title;
}

}  // namespace gridwright
