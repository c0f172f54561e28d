#include "patterns/random_patterns.h"

#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "patterns/open_pattern.h"
#include "patterns/pattern_commands.h"
#include "patterns/pattern_editor.h"
#include "patterns/pattern_field.h"

namespace gridwright {

namespace {

/// Size and first step of a run; the pattern begins as its direction's default.
void beginRandomRun(Program& program) {
  ProgramState& s = program.state;
  s.editor.randomSizeSaved = s.randomPatterns.randomPatternSize;
  if (s.mazeKind != MazeKind::regular) ++s.randomPatterns.randomPatternSize;  // their first step costs one
  if (s.randomPatterns.randomSizeVaries)
    s.randomPatterns.randomPatternSize = program.random.oneTo(s.randomPatterns.randomPatternSize);
  dropOpenPattern(s);
  program.steps.reset(s.mazeKind, s.editedPattern);
  s.editor.randomRunning = true;
  s.randomPatterns.randomStepsDone = 0;
}

/// \returns false at a quit to the title.
bool walkByChance(Program& program) {
  ProgramState& s = program.state;
  RandomRunWatch watch;
  for (;;) {
    s.prev = s.cur;
    s.stepCode = step::none;
    yield(program, Pace::working);
    if (s.phase == Phase::quitToTitle) return false;
    if (watch.isOver(program)) return true;
    s.stepCode = program.random.oneTo(s.randomPatterns.randomUsesGo ? 5 : 4);
    fieldSweep(program);
    fieldStep(program);
  }
}

}  // namespace

void crpattern(Program& program) {
  ProgramState& s = program.state;
  if (s.editedPattern == 0) return;
  endRandomRun(s);
  beginRandomRun(program);
  s.phase = Phase::patternRequest;
}

void crnd1(Program& program) {
  ProgramState& s = program.state;
  if (program.menus.checked(Item::crnd1)) return;
  s.randomPatterns.randomPatternMode = 5;
  markOne(program.menus, {Item::dontusepattern, Item::usepattern, Item::crnd1}, Item::crnd1);
  if (s.patternState == PatternState::random && !s.randomStepsTemporary) {
    s.patternState = PatternState::choose;
    s.patternDirection = 0;
  }
}

void editrandompat(Program& program) {
  ProgramState& s = program.state;
  const bool redraw = program.canvas.autoRedraw();
  s.editedPattern = step::left;  // whatever the caller set: every run rewrites the left pattern
  s.editor.preparing = true;
  enterField(program);
  beginRandomRun(program);
  setUpField(program, FieldPlace::byChance);
  const bool complete = walkByChance(program);
  endRandomRun(s);
  s.editor.preparing = false;
  s.editedPattern = 0;
  if (!complete) return dropOpenPattern(s);
  closeOpenPattern(program);
  leaveField(program);
  program.canvas.setAutoRedraw(redraw);
  s.phase = Phase::making;
  s.randomPatterns.randomStepsDone = 0;
}

bool makeRandomPatterns(Program& program) {
  ProgramState& s = program.state;
  const bool forEveryMaze = s.randomPatterns.randomPatternMode == 5;
  if (!forEveryMaze && !s.randomPatterns.randomFlagLeft) return true;
  // One run for the mode, and one for each flag of the other directions.
  const std::array<bool, 4> runs = {forEveryMaze, s.randomPatterns.randomFlagRight,
                                    s.randomPatterns.randomFlagUp, s.randomPatterns.randomFlagDown};
  for (const bool run : runs) {
    if (!run) continue;
    editrandompat(program);
    if (s.phase == Phase::quitToTitle) return false;
  }
  s.editedPattern = step::left;
  mkidentical(program);
  s.editedPattern = 0;
  return true;
}

}  // namespace gridwright
