// Stages A to C: the process starts, the title waits, a drawing begins.
#include <utility>

#include "colours/colour_repairs.h"
#include "drawings/drawing_files.h"
#include "drawings/last_picture.h"
#include "history/history.h"
#include "maze/finishmaking.h"
#include "menus/enable_table.h"
#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "printing/page.h"
#include "printing/print_job.h"
#include "session/defaults.h"
#include "session/remembered.h"
#include "session/stages.h"
#include "session/title.h"
#include "state/grid.h"

namespace gridwright {

namespace {

void enableTitles(Program& program, bool on) {
  for (const Item title :
       {Item::drawingt, Item::printoptions, Item::maze, Item::mazemodes, Item::patterns, Item::help}) {
    program.menus.setEnabled(title, on);
    if (on) program.menus.setVisible(title, true);
  }
  program.menus.setVisible(Item::filet, on);
}

/// The title picture, 800 by 600: the one beside the installed program, else painted here.
Bitmap titlePicture(Program& program) {
  if (auto picture = loadContent(program, "title.bmp")) {
    return std::move(picture.value());
  }
  program.canvas.resize({800, 600});
  paintTitle(program);
  return program.canvas.image();
}

}  // namespace

Stage processStartStage(Program& program) {
  ProgramState& s = program.state;
  program.colours.setExtraBackground(kDarkGreen);
  s.session.bookMode = 0;
  s.panelOpen = s.paused = false;
  recoverSaves(*program.files);
  program.files->removeLeftOvers();
  recallSettings(program);
  program.pictures.save("title.bmp", titlePicture(program));
  return Stage::title;
}

Stage titleStage(Program& program) {
  ProgramState& s = program.state;
  program.controls.setCaption("Gridwright-by Orrin Vale");
  program.whenDrawing = nullptr;
  s.startColor = qb::lightMagenta;
  s.cur = s.start = s.finish = {};
  markOne(program.menus, {Item::usepattern, Item::dontusepattern, Item::crnd1}, Item::usepattern);
  s.walker.channelPosition = 0;
  s.drawing.reloadDrawing = false;
  program.canvas.setBackColor(qb::yellow);
  mbsub(program);
  enableTitles(program, false);
  for (const Item item : {Item::create3dpipe, Item::changewallsize}) program.menus.setVisible(item, false);
  s.phase = Phase::title;
  followWindow(program, program.platform.clientSize());
  program.canvas.setPicture(program.pictures.load("title.bmp"));
  showTitleButtons(program);
  program.controls.runTimer(ControlId::Timer2, true);
  program.controls.runTimer(ControlId::Timer1, false);
  while (s.phase == Phase::title) yield(program, Pace::idle);
  return s.phase == Phase::drawing ? Stage::leaveTitle : Stage::title;
}

Stage leaveTitleStage(Program& program) {
  ProgramState& s = program.state;
  program.canvas.clearPicture();
  enableTitles(program, true);
  const bool whiteGround = program.state.print.whiteGround;
  forgetEverything(program);
  setWhiteGround(program, whiteGround);  // it is of the paper, not of the drawing
  endJob(program);
  tellOfFolder(program);
  program.steps.resetAll();
  program.random.seed(program.platform.clockSeed());
  s.mazeKind = MazeKind::regular;
  s.difficultyLevel = 4;
  s.pathSize = 1;
  s.creationMode = CreationMode::user;
  s.playMode = PlayMode::off;
  s.walkMode = WalkMode::carve;
  s.start.left = s.start.right;
  s.mazeColor = s.keptMazeColor = program.colours.border()[15];
  s.drawColor = kPalette[14];
  s.backgroundDrawColor = program.colours.background()[1];
  s.borderDrawColor = s.drawColor;
  s.wallWidth = s.wallHeight = 10;
  pitchFromKind(s);
  s.cur = firstCell(s);
  resetfillcursor(s);
  program.platform.maximise();
  beginHistory(program);
  applyEnableTable(program);
  return Stage::drawing;
}

}  // namespace gridwright
