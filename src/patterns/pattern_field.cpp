#include "patterns/pattern_field.h"

#include <algorithm>
#include <utility>

#include "canvas/cell_grid.h"
#include "patterns/makeunderpasses.h"
#include "patterns/open_pattern.h"
#include "state/work_picture.h"
#include "underpass/preview_pixels.h"

namespace gridwright {

namespace {

constexpr int kCell = 5;        // wall size of the field
constexpr int kHalfField = 50;  // cells from the middle to an edge
constexpr int kHalfPipeField = 24;

/// The middle of the field along one axis.
int fieldCentre(int pitch, int extent) {
  int lines = 1;
  for (int line = kCell; line + pitch <= extent - pitch; line += pitch) ++lines;
  return (lines - 1) / 2 * pitch - kCell;
}

void layField(Program& program, int cx, int cy, int inset) {
  const ProgramState& s = program.state;
  Canvas& canvas = program.canvas;
  // What a smaller window hides of the drawing stays: it is in no picture that comes back.
  const int right = canvas.scaleWidth() - 1;
  const int bottom = canvas.scaleHeight() - 1;
  canvas.fill(0, 0, right, bottom, preview::outside);
  const int x = cx - inset;
  const int y = cy - inset;
  const auto fillField = [&](int left, int top, int fieldRight, int fieldBottom) {
    canvas.fill(left, top, std::min(fieldRight, right), std::min(fieldBottom, bottom), preview::field);
  };
  if (s.mazeKind == MazeKind::pipe) {
    fillField(x - kHalfPipeField * s.stepX, y - kHalfPipeField * s.stepY,
              x + (kHalfPipeField + 1) * s.stepX - s.wallWidth,
              y + (kHalfPipeField + 1) * s.stepY - s.wallHeight);
  } else {
    fillField(x - kHalfField * s.wallWidth, y - kHalfField * s.wallHeight,
              x + kHalfField * s.wallWidth + s.stepX, y + kHalfField * s.wallHeight + s.stepY);
  }
}

/// Two boxes that join the previous square and the current one.
void joinSquares(Program& program) {
  const Square& q = program.state.cur;
  const Square& p = program.state.prev;
  program.canvas.fill(q.left, q.top, p.right, p.bottom, preview::path);
  program.canvas.fill(p.left, p.top, q.right, q.bottom, preview::path);
}

bool onField(const Program& program, int dx = 0, int dy = 0) {
  const Square& q = program.state.cur;
  return program.canvas.point(q.left + dx, q.top + dy) == preview::field;
}

void replayStep(Program& program, int code) {
  ProgramState& s = program.state;
  s.prev = s.cur;
  s.stepCode = code;
  fieldStepFromCode(s);
  makeunderpasses(program);
  if (s.mazeKind == MazeKind::regular) {
    if (onField(program)) s.walkMode = WalkMode::carve;
    s.cur = s.cur.moved(s.deltaX, s.deltaY);
    if (onField(program)) s.walkMode = WalkMode::carve;  // so that the field equals the one drawn
  }
  if (s.walkMode == WalkMode::carve || onField(program)) joinSquares(program);
}

void forgetSweep(ProgramState& s) {
  s.walker.sweepActive = false;
  s.walker.sweepCode = 0;
}

}  // namespace

void enterField(Program& program) {
  ProgramState& s = program.state;
  s.randomPatterns.randomUsesGo = false;
  s.editor.randomRunning = false;
  s.editor.fieldCoversPicture = program.canvas.showsAnything();
  program.pictures.save("drawing4.bmp", program.canvas.imageView());
  s.editor.kept = {s.cur,      s.prev,      s.wallWidth,  s.wallHeight,  s.stepX,
                   s.stepY,    s.gridRight, s.gridBottom, s.gridColumns, s.gridRows,
                   s.walkMode, s.mazeColor, s.deltaX,     s.deltaY,      s.stepCode};
  s.editor.phaseBeforePatterns = s.phase;
}

void leaveField(Program& program) {
  ProgramState& s = program.state;
  paintWorkPicture(program, "drawing4.bmp");
  const EditorState::Kept& k = s.editor.kept;
  s.cur = k.cur;
  s.prev = k.prev;
  s.wallWidth = k.wallWidth;
  s.wallHeight = k.wallHeight;
  s.stepX = k.stepX;
  s.stepY = k.stepY;
  s.gridRight = k.gridRight;
  s.gridBottom = k.gridBottom;
  s.gridColumns = k.gridColumns;
  s.gridRows = k.gridRows;
  s.walkMode = k.walkMode;
  s.mazeColor = k.mazeColor;
  s.deltaX = k.deltaX;
  s.deltaY = k.deltaY;
  s.stepCode = k.stepCode;
  forgetSweep(s);
  if (s.patternState != PatternState::random) {
    s.patternState = PatternState::choose;
    s.patternDirection = 0;
  }
}

void fieldStepFromCode(ProgramState& state) {
  state.deltaX = state.deltaY = 0;
  switch (state.stepCode) {
    case step::left:
      state.deltaX = -state.wallWidth;
      break;
    case step::right:
      state.deltaX = state.wallWidth;
      break;
    case step::up:
      state.deltaY = -state.wallHeight;
      break;
    case step::down:
      state.deltaY = state.wallHeight;
      break;
    case step::walkBack:
      state.walkMode = WalkMode::back;
      break;
    default:
      break;
  }
}

void setUpField(Program& program, FieldPlace place) {
  ProgramState& s = program.state;
  EditorState& e = s.editor;
  program.canvas.setAutoRedraw(true);
  s.phase = Phase::patternEditing;
  s.wallWidth = s.wallHeight = kCell;
  s.stepX = s.stepY = s.mazeKind == MazeKind::pipe ? 2 * kCell : kCell;
  s.gridRight = lastGridLine(s.wallWidth, s.stepX, program.canvas.scaleWidth());
  s.gridBottom = lastGridLine(s.wallHeight, s.stepY, program.canvas.scaleHeight());
  const int cx = fieldCentre(s.stepX, program.canvas.scaleWidth());
  const int cy = fieldCentre(s.stepY, program.canvas.scaleHeight());
  const bool byChance = place == FieldPlace::byChance;
  layField(program, cx, cy, byChance ? 0 : 1);
  const int left = cx + (byChance ? 1 : 0);
  const int top = cy + (byChance ? 1 : 0);
  s.cur = {left, top, left + s.wallWidth - 2, top + s.wallHeight - 2};
  e.patternRewriting = e.patternRecording = false;
  forgetSweep(s);
  const Steps steps = program.steps.steps(s.mazeKind, s.editedPattern);
  program.steps.writeScratch(s.mazeKind, s.editedPattern, steps);
  for (const int code : steps) replayStep(program, code);
  forgetSweep(s);
  e.openDirection = s.editedPattern;
  e.openSteps = steps;
  e.patternRewriting = e.patternRecording = true;
}

void fieldSweep(Program& program) {
  ProgramState& s = program.state;
  if (!s.walker.sweepActive) return;
  if (!s.paused) ++s.walker.sweepCode;
  const bool exhausted = s.walker.sweepCode > step::walkBack;
  if (s.cur.left != s.sweepX || s.cur.top != s.sweepY || exhausted) s.walker.sweepActive = false;
  if (exhausted) {
    s.walkMode = WalkMode::back;
    appendToOpenPattern(program, step::walkBack);
  }
  if (s.walker.sweepActive && !s.paused) s.stepCode = s.walker.sweepCode;
}

bool fieldStep(Program& program) {
  ProgramState& s = program.state;
  Canvas& canvas = program.canvas;
  const Square before = s.cur;
  fieldStepFromCode(s);
  makeunderpasses(program);
  if (s.mazeKind == MazeKind::regular) {
    const Colour ahead = canvas.point(s.cur.left + s.deltaX, s.cur.top + s.deltaY);
    if (ahead == preview::field) s.walkMode = WalkMode::carve;
    const bool carves = ahead == preview::field && s.walkMode == WalkMode::carve;
    const bool walksBack = ahead == preview::path && s.walkMode == WalkMode::back;
    if (carves || walksBack) {
      s.cur = s.cur.moved(s.deltaX, s.deltaY);
      if (s.walkMode == WalkMode::carve) ++s.randomPatterns.randomStepsDone;
    }
  }
  const bool moved = !s.cur.sameCorner(s.prev);
  if (moved || s.stepCode == step::walkBack) appendToOpenPattern(program, s.stepCode);
  if (moved) canvas.fill(s.prev, preview::path);
  if (moved && !s.paused && (s.walkMode == WalkMode::carve || onField(program))) joinSquares(program);
  if (!s.paused) canvas.fill(s.cur, preview::marker);
  canvas.setAutoRedraw(!s.paused);
  return s.stepCode != step::none || before != s.cur;
}

}  // namespace gridwright
