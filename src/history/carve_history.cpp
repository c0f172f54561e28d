#include "history/carve_history.h"

#include <iterator>
#include <utility>

#include "maze/finishmaking.h"
#include "maze/walk_paint.h"

namespace gridwright {

namespace {

/// Whether a pixel has become a corridor that was none. A walk back over corridors only moves the cursor.
bool carvesAnything(const ColourSets& sets, const Patches& patches) {
  const auto isCorridor = [&](Colour raw) {
    const Colour colour = Canvas::colourOf(raw);
    return sets.isMaze(colour) || colour == kCursorColour;
  };
  for (const KeptPatch& patch : patches) {
    const auto before = unpacked(patch.before);
    const auto after = unpacked(patch.after);
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (!isCorridor(before[i]) && isCorridor(after[i])) return true;
    }
  }
  return false;
}

CarveStep stepFrom(const ProgramState& s) {
  CarveStep step;
  step.cur = s.cur;
  step.lastStop = s.walker.lastStop;
  step.stopSeen = s.walker.stopSeen;
  step.mazeColor = s.mazeColor;
  step.coveredColor = s.walker.coveredColor;
  step.cellColorAtEntry = s.walker.cellColorAtEntry;
  step.previousMazeColor = s.walker.previousMazeColor;
  return step;
}

void addTo(CarveHistory& carving, Patches patches, std::size_t mostBytes) {
  Patches& all = carving.steps.back().patches;
  carving.bytes -= bytesOf(all);
  all.insert(all.end(), std::make_move_iterator(patches.begin()), std::make_move_iterator(patches.end()));
  carving.bytes += bytesOf(all);
  while (carving.bytes > mostBytes && !carving.steps.empty()) {
    carving.bytes -= bytesOf(carving.steps.front().patches);
    carving.steps.pop_front();
  }
}

/// A pattern that is being played ends; random steps go on where no patterns are used, and only there.
void endPattern(ProgramState& s) {
  s.walker.channelPosition = 0;
  s.stepCode = s.walker.lastStepCode = step::none;
  if (s.patternState == PatternState::random && !s.randomStepsTemporary) return;
  s.patternState = PatternState::choose;
  s.patternDirection = 0;
  s.randomStepsTemporary = false;
}

}  // namespace

void forgetCarving(CarveHistory& carving) {
  carving.follows = carving.keyCarves = false;
  carving.inHand.reset();
  carving.steps.clear();
  carving.bytes = 0;
}

void lookAtCarving(Program& program, CarveHistory& carving, std::size_t mostBytes) {
  if (!carving.follows) return;
  Patches patches = carving.picture.take(program.canvas);
  if (patches.empty()) return;
  if (!carving.inHand && !carving.keyCarves) return forgetCarving(carving);
  if (carving.inHand && carvesAnything(program.colours, patches)) {
    carving.steps.push_back(std::move(*carving.inHand));
    carving.inHand.reset();
    carving.keyCarves = true;
  }
  // A walk back that has carved nothing yet goes with the step before it.
  if (!carving.steps.empty()) addTo(carving, std::move(patches), mostBytes);
}

void noteArrow(Program& program, CarveHistory& carving) {
  if (!carving.follows) {
    carving.picture.follow(program.canvas);
    carving.follows = true;
  }
  carving.keyCarves = false;
  carving.inHand = stepFrom(program.state);
}

void undoCarving(Program& program, CarveHistory& carving) {
  if (carving.steps.empty()) return;
  const CarveStep step = std::move(carving.steps.back());
  carving.steps.pop_back();
  carving.bytes -= bytesOf(step.patches);
  carving.picture.putBefore(program.canvas, step.patches);
  carving.keyCarves = false;
  carving.inHand.reset();
  ProgramState& s = program.state;
  s.cur = s.prev = step.cur;
  s.walkMode = s.walker.lastWalkMode = WalkMode::carve;
  s.deltaX = s.deltaY = 0;
  s.walker.lastStop = step.lastStop;
  s.walker.stopSeen = step.stopSeen;
  s.walker.sweepActive = false;
  s.mazeColor = step.mazeColor;
  s.walker.coveredColor = step.coveredColor;
  s.walker.cellColorAtEntry = step.cellColorAtEntry;
  s.walker.previousMazeColor = step.previousMazeColor;
  noteCarved(s.walker);
  endPattern(s);
  resetfillcursor(s);
}

}  // namespace gridwright
