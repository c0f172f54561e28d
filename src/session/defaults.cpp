#include "session/defaults.h"

#include "colours/colour_editor.h"
#include "colours/colour_repairs.h"
#include "menus/menu_rules.h"
#include "menus/panels.h"
#include "printing/print_job.h"
#include "solve/play.h"

namespace gridwright {

void resetsettings(Program& program) {
  ProgramState& s = program.state;
  MenuModel& menus = program.menus;
  s.finishMethod = FinishMethod::user;
  s.finishFound = false;
  s.creationMode = CreationMode::user;
  s.pathSize = 1;
  s.difficultyLevel = 4;
  s.autoMinimize = false;
  s.minimizedNow = false;
  s.patternState = PatternState::choose;
  s.patternDirection = 0;
  s.randomStepsTemporary = false;
  s.randomPatterns.randomPatternMode = 0;
  s.stopAtFinish = false;
  s.randomPatterns.randomSizeVaries = false;
  s.trailOff = false;
  endPlay(program);
  markOne(menus, {Item::pthick, Item::pthin}, Item::pthick);
  markOne(menus, {Item::aon, Item::aoff}, Item::aoff);
  markOne(menus, {Item::usepattern, Item::dontusepattern, Item::crnd1}, Item::usepattern);
  markOne(menus, {Item::maxrnd, Item::usernd}, Item::maxrnd);
  markOne(menus, {Item::gofinish, Item::stopfinish}, Item::gofinish);
  markSettings(program);
  mazemenus(program);
}

void mbsub(Program& program) {
  ProgramState& s = program.state;
  resetsettings(program);
  s.randomPatterns.randomPatternSize = 5;
  captionRandomSizes(program);
  s.walker.channelPosition = 0;
  s.symmetryMode = Symmetry::off;
  s.drawingOff = false;
  endJob(program);
  program.steps.resetKind(s.mazeKind);
  markSettings(program);
  printStatus(program);
}

void forgetEverything(Program& program) {
  ProgramState& s = program.state;
  s.panelOpen = s.paused = false;
  s.editedPattern = 0;
  s.mazeMadeOnce = s.session.resumeMaze = s.keepPicture = s.nrefreshDue = false;
  s.savedStartColorValid = s.savedFinishColorValid = false;
  s.finishColor = 0;
  s.patternState = PatternState::choose;
  s.patternDirection = 0;
  s.randomStepsTemporary = false;
  s.randomPatterns.randomPatternMode = 0;
  s.randomPatterns.randomFlagLeft = s.randomPatterns.randomFlagRight = s.randomPatterns.randomFlagUp =
      s.randomPatterns.randomFlagDown = false;
  s.session.tightForPipes = false;
  s.walker = {};
  s.ends = {};
  s.solver = {};
  s.print = {};
  program.menus.setChecked(Item::whiteground, false);
  s.drawing = {};
  s.editor = {};
  s.files = {};
  s.randomPatterns.randomPatternsWanted = false;
  hideTextPanels(program);
  hideColourPanels(program);
  defaultColours(program);
}

}  // namespace gridwright
