#include "maze/maze_settings.h"

#include "menus/menu_rules.h"

namespace gridwright {

namespace {

void setDifficulty(Program& program, int level) {
  program.state.difficultyLevel = level;
  mazemenus(program);
}

void setPathSize(Program& program, int size) {
  program.state.pathSize = size;
  markSettings(program);
}

}  // namespace

void mode1(Program& program) { setDifficulty(program, 1); }
void mode2(Program& program) { setDifficulty(program, 2); }
void mode3(Program& program) { setDifficulty(program, 3); }
void mode4(Program& program) { setDifficulty(program, 4); }
void mode5(Program& program) { setDifficulty(program, 5); }
void mode6(Program& program) { setDifficulty(program, 6); }
void pnormal(Program& program) { setPathSize(program, 1); }
void plarge(Program& program) { setPathSize(program, 2); }

// Only the mark: it is read when a maze starts.
void pthick(Program& program) { markOne(program.menus, {Item::pthick, Item::pthin}, Item::pthick); }
void pthin(Program& program) { markOne(program.menus, {Item::pthick, Item::pthin}, Item::pthin); }

void setCreationMode(Program& program, CreationMode mode) {
  ProgramState& s = program.state;
  if (mode == CreationMode::user && s.creationMode != mode && s.phase == Phase::making) {
    const Pixels pixels = program.pixels();
    const Square& q = s.cur;
    const int open = pixels.maze(q.left - 1, q.top) + pixels.maze(q.right + 1, q.top) +
                     pixels.maze(q.left, q.top - 1) + pixels.maze(q.left, q.bottom + 1);
    if (open >= 2) s.walkMode = WalkMode::back;
  }
  s.creationMode = mode;
  program.menus.setChecked(Item::ugenerate, mode == CreationMode::user);
  program.menus.setChecked(Item::cgenerate, mode == CreationMode::computer);
}

void ugenerate(Program& program) { setCreationMode(program, CreationMode::user); }
void cgenerate(Program& program) { setCreationMode(program, CreationMode::computer); }

void usepattern(Program& program) {
  ProgramState& s = program.state;
  if (program.menus.checked(Item::usepattern)) return;
  s.randomPatterns.randomPatternMode = 0;
  s.patternState = PatternState::choose;
  s.patternDirection = 0;
  markOne(program.menus, {Item::dontusepattern, Item::usepattern, Item::crnd1}, Item::usepattern);
}

void dontusepattern(Program& program) {
  ProgramState& s = program.state;
  if (program.menus.checked(Item::dontusepattern)) return;
  s.randomStepsTemporary = false;
  s.patternState = PatternState::random;
  s.patternDirection = step::up;
  s.randomPatterns.randomPatternMode = 0;
  markOne(program.menus, {Item::dontusepattern, Item::usepattern, Item::crnd1}, Item::dontusepattern);
}

void gofinish(Program& program) {
  program.state.stopAtFinish = false;
  markOne(program.menus, {Item::gofinish, Item::stopfinish}, Item::gofinish);
}

void stopfinish(Program& program) {
  program.state.stopAtFinish = true;
  markOne(program.menus, {Item::gofinish, Item::stopfinish}, Item::stopfinish);
}

}  // namespace gridwright
