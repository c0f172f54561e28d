#include "solve/follow.h"

#include "menus/enable_table.h"
#include "menus/menu_rules.h"
#include "solve/finish_search.h"
#include "solve/probe.h"
#include "solve/trail.h"

namespace gridwright {

namespace {

/// Whether a pass does nothing but follow the walls, as far as the values tell.
bool onlyFollows(const Program& program) {
  const ProgramState& s = program.state;
  const SolverState& solver = s.solver;
  const bool computer = s.playMode == PlayMode::off && solver.playModeSeen == PlayMode::off &&
                        solver.playModeAtPause == PlayMode::off;
  const bool sameWalk = s.phase == Phase::solving && s.mazeStage == Phase::solving &&
                        solver.activeFinishMethod == s.finishMethod;
  const bool hasMarker = s.trailOff != solver.trailOffSeen || (s.trailOff && !isSearching(s));
  const bool hasMore =
      s.paused || s.editor.preparing || (s.autoMinimize && !s.minimizedNow) || !program.canvas.autoRedraw();
  return s.mazeKind == MazeKind::regular && computer && sameWalk && !hasMarker && !hasMore &&
         loopRulesStand(program) && enableTableStands(program);
}

class Following {
 public:
  Following(Program& program, Repetition& repetition)
      : program_(program), s_(program.state), repetition_(repetition) {}

  /// \returns whether a pass is over but for its yield, which the desktop has to see.
  bool run() {
    const ProgramState& s = s_;
    probe_ = {s.solver.probeX, s.solver.probeY, s.deltaX, s.deltaY};
    lookAt(s.cur);
    std::int64_t pumps = program_.platform.quietPumps(program_);  // most desktops that count say 0
    bool stroke = false;
    while (passes_ < pumps && passes_ < repetition_.passesBeforeKept() && !isForTheFullPass()) {
      stroke = cellChanged(s);
      if (stroke) {
        enterCell();
        tell();
        pumps = program_.platform.quietPumps(program_);
        if (pumps <= 0) {
          repetition_.passOver(1);
          return true;
        }
      }
      ++passes_;
      probe_ = onePixelOn(probe_, [this](int x, int y) { return goesOver(x, y); });
      const Square cell = cellOfProbe(s, s.cur, probe_.x, probe_.y);
      if (!cell.sameCorner(s.cur)) lookAt(cell);
    }
    // A pass within a cell looks again what a stroke would be painted in there.
    if (passes_ > 0 && !stroke)
      s_.solver.trailPaint = showsTrail(program_, s.prev) ? s.mazeColor : s.startColor;
    tell();
    return false;
  }

 private:
  /// The probe is in this cell from now on: what of it holds as long as nothing else is painted.
  void lookAt(const Square& cell) {
    s_.cur = cell;
    const Colour corner = program_.canvas.point(cell.left, cell.top);
    isAnEnd_ = cell.sameCorner(s_.start) || isEndColour(s_, corner);
    ground_ = program_.colours.isMaze(corner) ? corner : s_.startColor;
  }

  /// Most pixels are of the cell's own colour.
  [[nodiscard]] bool goesOver(int x, int y) const {
    return program_.canvas.point(x, y) == ground_ || isWay(program_, x, y);
  }

  /// Where something happens that is not plainly a walk: an end, a circle that may close, the edge.
  [[nodiscard]] bool isForTheFullPass() const {
    if (isAnEnd_ || (s_.cur.sameCorner(s_.finish) && !isSearching(s_))) return true;
    if (!program_.canvas.inside(probe_.x, probe_.y) || repetition_.mayCloseAt(probe_.x, probe_.y))
      return true;
    return probe_.x == s_.start.left && probe_.y == s_.start.top;
  }

  void enterCell() {
    updateTrail(program_);
    s_.sweepX = s_.prev.left;
    s_.sweepY = s_.prev.top;
    s_.prev = s_.cur;
  }

  /// Writes down where the probe is, and says how many passes were left out.
  void tell() {
    s_.solver.probeX = probe_.x;
    s_.solver.probeY = probe_.y;
    s_.deltaX = probe_.dx;
    s_.deltaY = probe_.dy;
    if (passes_ == 0) return;
    s_.keyBusy = false;
    repetition_.passOver(passes_);
    program_.platform.passOver(passes_);
    passes_ = 0;
  }

  Program& program_;
  ProgramState& s_;
  Repetition& repetition_;
  Probe probe_{};
  bool isAnEnd_ = false;
  Colour ground_ = 0;        // a colour that is a way: that of the present cell, if it is carved
  std::int64_t passes_ = 0;  // over, and not told yet
};

}  // namespace

bool follow(Program& program, Repetition& repetition) {
  return onlyFollows(program) && Following(program, repetition).run();
}

}  // namespace gridwright
