#include "maze/wander.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "colours/mixcolors.h"
#include "maze/regular_step.h"
#include "maze/stranded.h"
#include "maze/sweep_memory.h"
#include "maze/underpass_step.h"
#include "menus/enable_table.h"
#include "menus/menu_rules.h"
#include "state/grid.h"

namespace gridwright {

namespace {

constexpr int kLongest = 500;  // passes in one go, of each of which the corner is kept

struct Corner {
  int left, top;
  friend bool operator==(const Corner&, const Corner&) = default;
};

/// A step's offset, and its leading edge from the square's corner.
struct Step {
  int dx, dy, leadX, leadY;
};

enum class Ahead { stays, moves, movesTwice, isForTheFullPass };

/// Whether a pass does nothing but wander, as far as the values tell.
bool onlyWanders(const Program& program) {
  const ProgramState& s = program.state;
  const WalkerState& w = s.walker;
  const bool walksBack = w.lastWalkMode == WalkMode::back && s.patternState == PatternState::random &&
                         !w.sweepActive && s.mazeMadeOnce;
  const bool computer =
      s.creationMode == CreationMode::computer && w.lastCreationMode == CreationMode::computer;
  const bool held = s.paused || s.panelOpen || s.editedPattern != 0 || s.editor.preparing;
  const bool ends = s.phase != Phase::making || w.stopMaking || s.randomPatterns.randomPatternsWanted;
  const bool hasMore = (s.autoMinimize && !s.minimizedNow) || !w.stopSeen || !program.canvas.autoRedraw();
  return walksBack && computer && !held && !ends && !hasMore &&
         !program.colours.isMaze(kCursorColour);  // the colour of a cursor to be wiped
}

class Wandering {
 public:
  Wandering(Program& program, std::int64_t pumps)
      : program_(program),
        s_(program.state),
        pixels_(program.pixels()),
        cursor_(program),
        pumpsGiven_(pumps),
        pumpsLeft_(pumps),
        passes_(static_cast<int>(std::min<std::int64_t>(kLongest, passesBeforeLook(s_)))),
        at_{s_.cur.left, s_.cur.top},
        here_(pixels_.at(at_.left, at_.top)),
        code_(s_.stepCode),
        kept_{s_.deltaX, s_.deltaY, s_.walker.leadX, s_.walker.leadY},
        keptCode_(s_.stepCode),
        keptSide_(s_.underpass.sideState) {
    const int w = s_.wallWidth;
    const int h = s_.wallHeight;
    steps_ = {{{}, {-w, 0, 0, 0}, {w, 0, w - 3, 0}, {0, -h, 0, 0}, {0, h, 0, h - 3}}};
    corners_[0] = {s_.prev.left, s_.prev.top};
    corners_[1] = at_;
    result_.metFreeCell = s_.walker.freeCellMetSinceStep;
  }

  Wandered run() {
    switch (s_.mazeKind) {
      case MazeKind::regular:
        result_.end = walk<MazeKind::regular>();
        break;
      case MazeKind::pipe:
        result_.end = walk<MazeKind::pipe>();
        break;
      case MazeKind::threeD:
        result_.end = walk<MazeKind::threeD>();
        break;
    }
    settle();
    return result_;
  }

 private:
  [[nodiscard]] Square squareAt(Corner c) const { return normalised(s_, {c.left, c.top, 0, 0}); }
  [[nodiscard]] Colour colourAt(Corner c) const { return pixels_.at(c.left, c.top); }

  /// A draw and its pump. \returns whether there was one left.
  bool draw() {
    if (pumpsLeft_ == 0 || !cursor_.goesOn()) return false;
    --pumpsLeft_;
    result_.drawn = program_.random.oneToFour();
    if (cursor_.pump()) result_.metFreeCell = true;
    return true;
  }

  template <MazeKind kind>
  Wandered::End walk() {
    bool moved = true;
    for (;;) {
      if (result_.tried == passes_ || !draw()) return Wandered::End::beforePass;
      while (!moved && result_.drawn == code_) {  // a step that has just failed is drawn again
        if (!draw()) return Wandered::End::beforeDraw;
      }
      const Step step = steps_[static_cast<std::size_t>(result_.drawn)];
      const Ahead ahead = look<kind>(step);
      if (ahead == Ahead::isForTheFullPass) return Wandered::End::stepDrawn;
      moved = ahead != Ahead::stays;
      if (moved && !goOn(step, ahead == Ahead::moves ? 1 : 2)) return Wandered::End::stepDrawn;
      noteStep();
      if (moved && at_.left == s_.finish.left && at_.top == s_.finish.top) return Wandered::End::beforePass;
    }
  }

  /// Goes so many steps on, unless what lies there is no plain corridor. \returns whether it did.
  bool goOn(const Step& step, int times) {
    const Corner target{at_.left + times * step.dx, at_.top + times * step.dy};
    const Colour there = colourAt(target);
    if (!isCarved(there) || pixels_.at(target.left + 1, target.top + 1) != there) return false;
    at_ = target;
    here_ = there;
    return true;
  }

  void noteStep() {
    corners_[static_cast<std::size_t>(++result_.tried) + 1] = at_;
    codeBefore_ = code_;
    code_ = result_.drawn;
    result_.metFreeCell = false;
  }

  [[nodiscard]] bool isCarved(Colour pixel) const { return pixel == here_ || program_.colours.isMaze(pixel); }
  /// The pixel so many steps past the leading edge.
  [[nodiscard]] Colour past(const Step& step, int times) const {
    return pixels_.at(at_.left + step.leadX + times * step.dx, at_.top + step.leadY + times * step.dy);
  }

  template <MazeKind kind>
  Ahead look(const Step& step) {
    if constexpr (kind == MazeKind::regular) return lookRegular(step);
    if constexpr (kind == MazeKind::pipe) return lookPipe(step);
    return lookThreeD(step);
  }

  Ahead lookRegular(const Step& step) {
    const Colour near = pixels_.at(at_.left + step.dx, at_.top + step.dy);
    if (near != here_ && program_.colours.isNoGround(near) &&
        pixels_.maze(at_.left + 2 * step.dx, at_.top + 2 * step.dy)) {
      return Ahead::movesTwice;
    }
    const Colour ahead = step.leadX + step.leadY == 0 ? near : past(step, 1);
    if (isCarved(ahead)) return Ahead::moves;
    if (!program_.colours.isBackground(ahead)) return Ahead::stays;
    beginStep(step);
    return wholeCellIsFree(program_, step.dx, step.dy) ? Ahead::isForTheFullPass : Ahead::stays;
  }

  Ahead lookPipe(const Step& step) {
    const Colour two = past(step, 2);
    if (isCarved(two)) return Ahead::movesTwice;
    if (!program_.colours.isBackground(two) || !program_.colours.isFree(past(step, 1))) return Ahead::stays;
    beginStep(step);
    const bool isFree =
        wholeCellIsFree(program_, 2 * step.dx, 2 * step.dy) && wholeCellIsFree(program_, step.dx, step.dy);
    return isFree ? Ahead::isForTheFullPass : Ahead::stays;
  }

  Ahead lookThreeD(const Step& step) {
    const Colour one = past(step, 1);
    if (isCarved(one)) return Ahead::moves;
    if (isCarved(past(step, 2))) return Ahead::movesTwice;
    if (!program_.colours.isBackground(one)) return Ahead::stays;
    beginStep(step);
    if (!wholeCellIsFree(program_, step.dx, step.dy)) return Ahead::stays;
    declaremmb(program_);
    return s_.underpass.sideState == 1 ? Ahead::stays : Ahead::isForTheFullPass;
  }

  /// The record as the tests of a full pass find it.
  void beginStep(const Step& step) {
    s_.cur = squareAt(at_);
    s_.stepCode = result_.drawn;
    s_.deltaX = step.dx;
    s_.deltaY = step.dy;
    leadFromDelta(s_);
  }

  void settle() {
    cursor_.writeBack(s_);
    if (pumpsLeft_ < pumpsGiven_) s_.keyBusy = false;
    program_.platform.passOver(pumpsGiven_ - pumpsLeft_);
    s_.walker.passesSinceCarved += result_.tried;
    if (result_.tried > 0) return settleColours();
    s_.cur = squareAt(corners_[1]);
    s_.deltaX = kept_.dx;
    s_.deltaY = kept_.dy;
    s_.walker.leadX = kept_.leadX;
    s_.walker.leadY = kept_.leadY;
    s_.stepCode = keptCode_;
    s_.underpass.sideState = keptSide_;
  }

  // Each pass mixes the colours of the square left behind, and takes the corridor's colour where it has
  // moved. So the last pass counts, but that the base found stands until another is found.
  void settleColours() {
    const auto last = static_cast<std::size_t>(result_.tried);
    s_.mazeColor = s_.walker.coveredColor = colourAt(corners_[last]);
    mixAt(last - 1);
    const bool known = s_.walker.cellBaseKnown;
    const bool moved = corners_[last] != corners_[last - 1];
    const Colour mixed = moved ? s_.walker.coveredColor : s_.mazeColor;
    for (std::size_t i = last - 1; !s_.walker.cellBaseKnown && i-- > 0;) mixAt(i);
    s_.walker.cellBaseKnown = known;
    s_.mazeColor = mixed;
    s_.walker.cellColorAtEntry = s_.walker.coveredColor;
    s_.walker.lastStepCode = codeBefore_;
    s_.stepCode = code_;
    s_.cur = squareAt(corners_[last]);
    s_.prev = squareAt(corners_[last - 1]);
  }

  void mixAt(std::size_t i) {
    s_.prev = squareAt(corners_[i]);
    s_.walker.cellColorAtEntry = colourAt(corners_[i]);
    mixcolors2(program_);
  }

  Program& program_;
  ProgramState& s_;
  Pixels pixels_;
  FillCursor cursor_;
  std::int64_t pumpsGiven_, pumpsLeft_;
  int passes_;
  Corner at_;
  Colour here_;                // the corridor's colour at `at_`
  int code_, codeBefore_ = 0;  // of the last step tried, and of the one before
  Step kept_;
  int keptCode_, keptSide_;
  Wandered result_;
  std::array<Step, 5> steps_{};  // by step code
  // Where the walker stood before the stretch, at its beginning, and after each pass.
  std::array<Corner, kLongest + 2> corners_;
};

/// Whether the squares are such that `settle` writes what full passes leave behind.
bool standsWell(const Program& program) {
  const ProgramState& s = program.state;
  const Pixels pixels = program.pixels();
  const Colour here = pixels.at(s.cur.left, s.cur.top);
  return !s.cur.sameCorner(s.prev) && !s.cur.sameCorner(s.finish) && s.cur == normalised(s, s.cur) &&
         s.prev == normalised(s, s.prev) && program.colours.isMaze(here) &&
         pixels.at(s.cur.left + 1, s.cur.top + 1) == here &&
         pixels.at(s.prev.left, s.prev.top) == s.walker.cellColorAtEntry &&
         pixels.at(s.prev.left + 1, s.prev.top + 1) != kCursorColour;
}

}  // namespace

Wandered wander(Program& program) {
  if (program.state.walkMode != WalkMode::back) return {};
  const std::int64_t pumps = program.platform.quietPumps(program);  // most desktops that count say 0
  if (pumps <= 0 || !onlyWanders(program) || !standsWell(program)) return {};
  if (!loopRulesStand(program) || !enableTableStands(program)) return {};
  if (passesBeforeLook(program.state) <= 0) return {};
  bringSweepMemoryInLine(program);
  if (!FillCursor(program).standsOnItsWay()) return {};
  return Wandering(program, pumps).run();
}

}  // namespace gridwright
