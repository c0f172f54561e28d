#include "solve/play.h"

#include "maze/makemaze2.h"
#include "menus/menu_rules.h"
#include "solve/finish_search.h"
#include "solve/firstnoxy.h"
#include "solve/trail.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

void markPlay(Program& program, Item item) {
  markOne(program.menus, {Item::playmodeoff, Item::easymode, Item::hardmode}, item);
}

/// During a search only the tick is set; the mode is taken from the menu when the search has ended.
void startPlay(Program& program, Item item, PlayMode mode) {
  ProgramState& s = program.state;
  markPlay(program, item);
  if (isSearching(s)) return;
  if (s.phase == Phase::solving) program.controls.setCaption("Gridwright-(user is solving maze)");
  if (s.paused && s.print.playModeAtPrint == PlayMode::off) s.solver.trailOffSeen = s.trailOff;
  s.playMode = s.chosenPlayMode = mode;
}

/// Hard play throws a person back to the start on any turn back.
void throwBack(Program& program) {
  ProgramState& s = program.state;
  paintWorkPicture(program, "drawing2.bmp");
  s.sweepX = s.sweepY = -1;
  s.cur = s.prev = s.start;
  s.solver.underpassLock = 0;
  if (s.mazeKind == MazeKind::threeD) firstnoxy(program);
}

void moveMarker(Program& program) {
  ProgramState& s = program.state;
  const bool trailChanged = s.trailOff != s.solver.trailOffSeen;
  if ((!s.trailOff && !trailChanged) || s.paused) return;
  const bool changed = cellChanged(s);
  if (changed || (s.trailOff && trailChanged)) {
    if (program.colours.isMaze(s.ends.underStart)) s.mazeColor = s.ends.underStart;
    const Colour corner = program.canvas.point(s.cur.left, s.cur.top);
    if (corner != s.startColor && corner != s.finishColor) s.ends.underStart = corner;
  }
  if (changed && !trailChanged) program.canvas.fill(s.prev, s.mazeColor);
  program.canvas.fill(s.cur, s.startColor);
  s.mazeColor = s.solver.markerGround;
}

}  // namespace

void easymode(Program& program) { startPlay(program, Item::easymode, PlayMode::easy); }
void hardmode(Program& program) { startPlay(program, Item::hardmode, PlayMode::hard); }

void keepWalkFromStart(Program& program) {
  program.canvas.setAutoRedraw(true);
  program.canvas.fill(program.state.start, program.state.startColor);
}

void endPlay(Program& program) {
  ProgramState& s = program.state;
  markPlay(program, Item::playmodeoff);
  s.playMode = s.chosenPlayMode = PlayMode::off;
  if (isSearching(s) || s.phase < Phase::solving) return;
  const bool fromStart = s.trailOff && !s.paused;
  if (fromStart) {
    s.cur = s.prev = s.start;
    if (s.phase == Phase::solving) keepWalkFromStart(program);
  }
  s.solver.probeX = s.cur.left + 1;
  s.solver.probeY = s.cur.top;
  if (fromStart) {
    s.solver.underpassLock = 0;
    if (s.mazeKind == MazeKind::threeD) firstnoxy(program);
  }
  s.deltaX = 1;
  s.deltaY = 0;
  if (!s.panelOpen) s.paused = false;
}

void playmodeoff(Program& program) {
  ProgramState& s = program.state;
  if (program.menus.checked(Item::playmodeoff)) return;
  if (s.phase == Phase::solving && !isSearching(s)) {
    program.controls.setCaption("Gridwright-(computer is solving maze)");
  }
  if (s.phase >= Phase::solving && s.autoMinimize) s.minimizedNow = false;
  endPlay(program);
}

void leavetrail(Program& program) {
  ProgramState& s = program.state;
  if (s.trailOff && s.paused && s.print.playModeAtPrint == PlayMode::off && s.playMode > PlayMode::off) {
    s.solver.trailOffSeen = false;
  }
  s.trailOff = !s.trailOff;
  program.menus.setChecked(Item::leavetrail, !s.trailOff);
}

void playUpdate(Program& program) {
  ProgramState& s = program.state;
  if (s.playMode == PlayMode::off) return;
  if (cellChanged(s)) ++s.solver.playSteps;
  if (s.playMode == PlayMode::hard && s.cur.left == s.sweepX && s.cur.top == s.sweepY) throwBack(program);
  moveMarker(program);
  // A crossing can only fire in the pass in which a key has put the probe on a wall.
  s.solver.probeX = s.solver.probeY = 0;
}

void loadthispic(Program& program) {
  ProgramState& s = program.state;
  if (s.paused || isSearching(s) || s.playMode == PlayMode::off) return;
  const bool trailChanged = s.trailOff != s.solver.trailOffSeen;
  const bool playBegan = s.trailOff && s.solver.playModeAtPause == PlayMode::off;
  if (!trailChanged && !playBegan) return;
  program.canvas.fill(s.cur, s.mazeColor);
  if (s.trailOff) {
    program.canvas.paintPicture(program.pictures.load("drawing2.bmp"));
    program.canvas.fill(s.start, s.mazeColor);
  } else {
    s.cur = s.prev = s.start;
    s.solver.probeX = s.cur.left + 1;
    s.solver.probeY = s.cur.top;
    s.deltaX = 1;  // the other delta is left as it stands, unlike at any other restart
    s.solver.underpassLock = 0;
    if (s.mazeKind == MazeKind::threeD) firstnoxy(program);
  }
}

}  // namespace gridwright
