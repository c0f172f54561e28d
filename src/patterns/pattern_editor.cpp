#include "patterns/pattern_editor.h"

#include <array>
#include <cstddef>
#include <string>

#include "menus/menu_rules.h"
#include "menus/pump.h"
#include "patterns/open_pattern.h"
#include "patterns/pattern_field.h"
#include "state/grid.h"
#include "state/key_codes.h"
#include "state/work_picture.h"

namespace gridwright {

namespace {

void captionEditing(Program& program) {
  constexpr std::array kCaptions = {"Gridwright-(Editing '2d-maze' patterns)",
                                    "Gridwright-(Editing '3d-pipe-maze' patterns)",
                                    "Gridwright-(Editing '3d-maze' patterns)"};
  program.controls.setCaption(kCaptions.at(static_cast<std::size_t>(program.state.mazeKind)));
}

/// The help of the phase underneath stays as it is.
void enableEditorKeyHelp(Program& program, bool editing) {
  program.menus.setEnabled(Item::keyspattern, editing);
  program.menus.setEnabled(Item::keysdrawing, !editing);
  program.menus.setEnabled(Item::fddf, !editing);
}

/// `editorCallerPhase` while no editor is open.
constexpr auto kNoCaller = static_cast<Phase>(-10);

/// How the loop over the field was left.
enum class Left { rebuild, end, quit };

void chooseStep(Program& program) {
  ProgramState& s = program.state;
  if (s.editor.randomRunning && !s.paused)
    s.stepCode = program.random.oneTo(s.randomPatterns.randomUsesGo ? 5 : 4);
  fieldSweep(program);
}

/// The edit loop: one step of work, one yield, one look at what was chosen in it.
Left editLoop(Program& program) {
  ProgramState& s = program.state;
  bool changed = true;
  RandomRunWatch watch;
  for (;;) {
    s.prev = s.cur;
    s.stepCode = step::none;
    const int seen = s.editedPattern;
    const bool waits = !changed && !s.editor.randomRunning && !s.walker.sweepActive;
    yield(program, waits || s.paused ? Pace::idle : Pace::working);
    if (s.phase == Phase::quitToTitle) return Left::quit;
    if (s.editor.randomRunning && watch.isOver(program)) {
      endRandomRun(s);
      watch = {};  // the next run is looked at from its own beginning
    }
    if (s.phase == Phase::patternRequest) return Left::rebuild;
    if (s.editedPattern != 0 && s.editedPattern != seen) {
      closeOpenPattern(program);
      return Left::rebuild;
    }
    chooseStep(program);
    if (s.phase == Phase::drawing || s.phase == Phase::making) return Left::end;
    changed = fieldStep(program);
  }
}

void editPattern(Program& program, int direction) {
  ProgramState& s = program.state;
  if (s.editedPattern == direction) {
    constexpr std::array kNames = {"left", "right", "up", "down"};
    program.notices.tell("The " + std::string(kNames.at(static_cast<std::size_t>(direction) - 1)) +
                         " pattern is being edited already");
    return;
  }
  program.platform.maximise();
  if (s.editedPattern == 0) {
    s.editor.editorCallerPhase = s.phase;
    s.editor.editorAutoRedraw = program.canvas.autoRedraw();
  }
  endRandomRun(s);
  s.editedPattern = direction;
  s.panelOpen = true;
}

void endEditor(Program& program) {
  const ProgramState& s = program.state;
  closeOpenPattern(program);
  leaveField(program);
  program.canvas.setAutoRedraw(s.editor.editorAutoRedraw);
  enableEditorKeyHelp(program, false);
  if (s.phase == Phase::making) {
    captionMaking(program);
  } else {
    captionDrawing(program);
    followWindow(program, program.platform.clientSize());  // it may be another than before the editor
  }
}

}  // namespace

bool RandomRunWatch::isOver(const Program& program) {
  constexpr std::int64_t kPassesOfACell = 1000;
  const ProgramState& s = program.state;
  const int done = s.randomPatterns.randomStepsDone;
  if (done >= s.randomPatterns.randomPatternSize - 1) return true;
  if (done != stepsSeen_) passesInVain_ = 0;
  stepsSeen_ = done;
  if (s.paused) return false;
  const std::int64_t columns = program.canvas.scaleWidth() / s.stepX;
  const std::int64_t rows = program.canvas.scaleHeight() / s.stepY;
  return ++passesInVain_ > kPassesOfACell * (columns * rows + 1);
}

void endRandomRun(ProgramState& state) {
  if (!state.editor.randomRunning) return;
  state.editor.randomRunning = false;
  state.randomPatterns.randomPatternSize = state.editor.randomSizeSaved;
}

void editpat(Program& program) {
  ProgramState& s = program.state;
  enterField(program);
  for (Left left = Left::rebuild; left == Left::rebuild;) {
    if (s.editedPattern == 0) break;
    enableEditorKeyHelp(program, true);
    captionEditing(program);
    setUpField(program, FieldPlace::editor);
    left = editLoop(program);
    if (left == Left::quit) {
      endRandomRun(s);
      dropOpenPattern(s);
      return;
    }
  }
  endEditor(program);
}

void editpatterns(Program& program) { editPattern(program, step::left); }
void rightpattern(Program& program) { editPattern(program, step::right); }
void uppattern(Program& program) { editPattern(program, step::up); }
void downpattern(Program& program) { editPattern(program, step::down); }

void exitpattern(Program& program) {
  ProgramState& s = program.state;
  if (s.editedPattern == 0) return;
  endRandomRun(s);
  paintWorkPicture(program, "drawing4.bmp");
  s.editor.editorCallerPhase = kNoCaller;
  s.phase = s.editor.phaseBeforePatterns;
  s.editedPattern = 0;
  s.panelOpen = false;
}

void patternKey(Program& program, int code) {
  ProgramState& s = program.state;
  if (s.editor.randomRunning || s.walker.sweepActive || s.editor.preparing) return;
  if (code == key::G) {
    if (s.walkMode != WalkMode::carve) return;
    s.stepCode = step::walkBack;
    s.walkMode = WalkMode::back;
  } else if (const int arrow = stepOfArrow(code); arrow != step::none) {
    s.stepCode = arrow;
  }
}

}  // namespace gridwright
