#include "history/history.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "drawings/drawing_values.h"
#include "history/carve_history.h"
#include "history/steps.h"
#include "state/key_codes.h"

namespace gridwright {

namespace {

/// In the drawing itself, where a change is a step. What panels do waits until they are closed.
bool isAtRest(const ProgramState& s) {
  return s.phase == Phase::drawing && !s.panelOpen && s.editedPattern == 0;
}

void mark(Program& program) {
  const History& history = *program.history;
  program.undoMarks = {!history.done.empty(), !history.undone.empty()};
}

std::size_t bytesOf(const DrawingStep& step) {
  std::size_t bytes = sizeof(DrawingStep) + bytesOf(step.patches);
  if (!step.load) return bytes;
  bytes += sizeof(LoadedValues);
  for (const DrawingRecord* record : {&step.load->before, &step.load->after}) {
    for (const Steps& list : record->lists) bytes += list.capacity() * sizeof(int);
  }
  return bytes;
}

void forgetUndone(History& history) {
  for (const DrawingStep& step : history.undone) history.bytes -= step.bytes;
  history.undone.clear();
}

void holdToLimit(History& history) {
  while (history.bytes > history.mostBytes && !history.done.empty()) {
    history.bytes -= history.done.front().bytes;
    history.done.pop_front();
    if (history.done.empty()) history.stepBegun = false;
  }
}

/// The two records, when something was loaded indeed.
std::unique_ptr<LoadedValues> loadedSince(Program& program, std::optional<DrawingRecord>& before) {
  if (!before) return nullptr;
  auto load = std::make_unique<LoadedValues>(LoadedValues{std::move(*before), recordOf(program)});
  before.reset();
  return load->before == load->after ? nullptr : std::move(load);
}

void add(History& history, Patches patches, const KeptValues& now, std::unique_ptr<LoadedValues> load) {
  if (!history.stepBegun) {
    forgetUndone(history);
    history.done.emplace_back();
    history.done.back().before = history.values;
    history.stepBegun = true;
  }
  DrawingStep& step = history.done.back();
  history.bytes -= step.bytes;
  step.after = now;
  step.patches.insert(step.patches.end(), std::make_move_iterator(patches.begin()),
                      std::make_move_iterator(patches.end()));
  if (load) step.load = std::move(load);
  step.bytes = bytesOf(step);
  history.bytes += step.bytes;
  if (step.patches.empty() && !step.load && step.before == step.after) {  // it went there and back
    history.bytes -= step.bytes;
    history.done.pop_back();
    history.stepBegun = false;
  }
  holdToLimit(history);
}

/// Where a window that changes under a panel drives the square to, the panel has not put it.
void leaveToWindow(History& history, const KeptValues& now) {
  KeptValues& values = history.values;
  if (now.wallWidth != values.wallWidth || now.mazeKind != values.mazeKind) return;
  values.cur = now.cur;
  values.mirror = now.mirror;
  values.canvas = now.canvas;
}

void look(Program& program) {
  if (program.history == nullptr || !isAtRest(program.state)) return;
  History& history = *program.history;
  Patches patches = history.picture.take(program.canvas);
  const KeptValues now = keptValuesOf(program);
  auto load = loadedSince(program, history.beforeLoad);
  if (history.windowMoved && patches.empty() && !load) leaveToWindow(history, now);
  const bool changed = !patches.empty() || load || now != history.values;
  if (changed && history.stepAwaited) add(history, std::move(patches), now, std::move(load));
  history.values = now;
  mark(program);
}

void endStep(History& history) {
  history.stepAwaited = history.stepBegun = history.windowMoved = false;
  history.lastKey.reset();
}

/// A step of its own in any case but that the key is held.
bool standsAlone(int code) { return code == key::C || code == key::N || code == key::M; }

bool goesOn(const History& history, int code, KeyGo go) {
  if (!history.stepAwaited || !history.lastKey) return false;
  if (go == KeyGo::held) return code == *history.lastKey;
  return go == KeyGo::soon && !standsAlone(code) && !standsAlone(*history.lastKey);
}

/// Items after which the maze on the Canvas is another one, or another's.
bool endsCarving(Item item) {
  constexpr std::array kItems = {Item::mpdrawing, Item::newmaze,      Item::nrefresh,  Item::createreg,
                                 Item::create3d,  Item::create3dpipe, Item::ugenerate, Item::cgenerate};
  return std::find(kItems.begin(), kItems.end(), item) != kItems.end();
}

void noteCarveKey(Program& program, int code) {
  History& history = *program.history;
  const ProgramState& s = program.state;
  lookAtCarving(program, history.carving, history.mostBytes);
  if (code == key::J) return forgetCarving(history.carving);
  const bool waits = s.creationMode == CreationMode::user && s.patternState != PatternState::reading;
  if (waits && stepOfArrow(code) != step::none) noteArrow(program, history.carving);
}

/// What a load has brought comes or goes with everything, the window's place too; a file does not hold quite
/// all the values that stood before.
void changeAll(Program& program, const KeptValues& from, const KeptValues& to, const DrawingRecord* loaded) {
  if (loaded == nullptr) return changeValues(program, from, to);
  takeValues(program, *loaded);
  changeValues(program, keptValuesOf(program), to);
}

/// What a maze leaves on the shown plane alone, and the outline at the old place, go.
void showAnew(Canvas& canvas) {
  canvas.setAutoRedraw(false);
  canvas.cls();
}

}  // namespace

void beginHistory(Program& program, std::size_t mostBytes) {
  program.history = std::make_shared<History>();
  program.history->mostBytes = mostBytes;
  program.history->picture.follow(program.canvas);
  program.history->values = keptValuesOf(program);
  program.lookOn = look;
  mark(program);
}

void comeBackToDrawing(Program& program) {
  if (program.history == nullptr) return;
  History& history = *program.history;
  forgetCarving(history.carving);
  endStep(history);
  const KeptValues now = keptValuesOf(program);
  if (now.wallWidth != history.values.wallWidth || now.mazeKind != history.values.mazeKind) {
    add(history, history.picture.takeAll(program.canvas), now, nullptr);
  } else {
    history.picture.follow(program.canvas);
  }
  endStep(history);
  history.values = now;
  mark(program);
}

void beginStep(Program& program) {
  if (program.history == nullptr) return;
  const ProgramState& s = program.state;
  look(program);
  if (s.phase == Phase::drawing && s.panelOpen) return;  // the panel's own step goes on
  endStep(*program.history);
  program.history->stepAwaited = isAtRest(s);
}

void noteKey(Program& program, int code, KeyGo go) {
  if (program.history == nullptr) return;
  History& history = *program.history;
  if (program.state.phase == Phase::making) return noteCarveKey(program, code);
  look(program);
  if (goesOn(history, code, go)) {
    history.lastKey = code;
    return;
  }
  beginStep(program);
  if (isAtRest(program.state)) history.lastKey = code;
}

void noteItem(Program& program, Item item) {
  if (program.history == nullptr) return;
  History& history = *program.history;
  if (program.state.phase != Phase::making) return beginStep(program);
  lookAtCarving(program, history.carving, history.mostBytes);
  if (endsCarving(item)) forgetCarving(history.carving);
}

void noteResize(Program& program) {
  if (program.history == nullptr) return;
  if (program.state.panelOpen) {  // whose own step goes on
    program.history->windowMoved = true;
    return;
  }
  look(program);
  endStep(*program.history);
}

void noteLoad(Program& program) {
  if (program.history != nullptr) program.history->beforeLoad = recordOf(program);
}

void beginCarving(Program& program) {
  if (program.history != nullptr) forgetCarving(program.history->carving);
}

namespace {

enum class Way { back, on };

/// Crosses the next step of `from`, which goes over to `to`.
void cross(Program& program, std::deque<DrawingStep>& from, std::deque<DrawingStep>& to, Way way) {
  History& history = *program.history;
  endStep(history);
  if (from.empty()) return;
  to.push_back(std::move(from.back()));
  from.pop_back();
  const DrawingStep& step = to.back();
  if (way == Way::back) {
    changeAll(program, step.after, step.before, step.load ? &step.load->before : nullptr);
    history.picture.putBefore(program.canvas, step.patches);
  } else {
    changeAll(program, step.before, step.after, step.load ? &step.load->after : nullptr);
    history.picture.putAfter(program.canvas, step.patches);
  }
  showAnew(program.canvas);
  history.values = keptValuesOf(program);
  mark(program);
}

}  // namespace

void undo(Program& program) {
  if (program.history == nullptr) return;
  History& history = *program.history;
  if (program.state.phase == Phase::making) return undoCarving(program, history.carving);
  cross(program, history.done, history.undone, Way::back);
}

void redo(Program& program) {
  if (program.history == nullptr) return;
  cross(program, program.history->undone, program.history->done, Way::on);
}

HistorySize historySize(const Program& program) {
  if (program.history == nullptr) return {};
  const History& history = *program.history;
  return {history.done.size(), history.undone.size(), history.bytes};
}

}  // namespace gridwright
