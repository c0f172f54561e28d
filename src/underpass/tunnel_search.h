// The search for a tunnel, once for the walker and once for the pattern preview.
//
// A probe square goes forward along the step, position by position. What the two uses look at
// differently stands in their Ground, one method a difference:
//
//   bool maze(x, y), free(x, y)   what counts as path and as ground
//   int margin()                  pixels that Long pipes keep further off
//   Position past(n)              the pixel n steps past the probe
//   bool trapPastProbe()          whether a tunnel that surfaced past the probe could not go on
//   bool probeScanPasses()        whether the probe's whole square is ground
//   void moveProbe()              one step on
//   bool stoppedByBorder()        whether the probe has come onto the picture's border
//   bool nextIsGround()           whether the square one step on is ground
//   bool endsAtCrossings          whether a corridor across the exit refuses the tunnel in the end
#pragma once

#include "state/program.h"
#include "underpass/nocrosses.h"

namespace gridwright {

struct Position {
  int x = 0, y = 0;
};

template <class Ground>
class TunnelSearch {
 public:
  TunnelSearch(Program& program, Ground& ground)
      : program_(program), s_(program.state), u_(program.state.underpass), ground_(ground) {}

  void run() {
    while (onePosition() == Trial::goesOn) {
    }
  }

 private:
  enum class Trial { goesOn, ended };

  [[nodiscard]] bool mazeAt(Position p) const { return ground_.maze(p.x, p.y); }
  [[nodiscard]] bool here() const { return ground_.maze(u_.probe.left, u_.probe.top); }
  [[nodiscard]] bool ahead() const { return mazeAt(ground_.past(1)); }
  [[nodiscard]] bool behind() const {
    return ground_.maze(u_.probe.left - s_.deltaX, u_.probe.top - s_.deltaY);
  }
  [[nodiscard]] bool isThreeD() const { return s_.mazeKind == MazeKind::threeD; }

  Trial refuse() {
    u_.underpassOk = false;
    return Trial::ended;
  }

  Trial crossesNothing() {
    nocrosses(program_);
    return u_.underpassOk ? Trial::goesOn : Trial::ended;
  }

  /// An island of corridor that leads nowhere cannot be tunnelled under.
  [[nodiscard]] bool onIsland() const {
    const Square& p = u_.probe;
    return here() && !ground_.maze(p.left - 1, p.top) && !ground_.maze(p.right + 1, p.top) &&
           !ground_.maze(p.left, p.top - 1) && !ground_.maze(p.left, p.bottom + 1);
  }

  /// What the 3-d kind asks of each position before anything else.
  Trial threeDTests() {
    if (!isThreeD()) return Trial::goesOn;
    if (onIsland()) return refuse();
    if (!ahead() && ground_.trapPastProbe()) return refuse();
    return crossesNothing();
  }

  /// A gap of one cell between two corridors: skipped over, refused or left alone, by difficulty.
  Trial gapTest() {
    const bool gap = ground_.free(u_.probe.left, u_.probe.top) && ground_.probeScanPasses() && !here() &&
                     ahead() && behind();
    if (!gap || s_.difficultyLevel >= 6) return Trial::goesOn;
    if (s_.difficultyLevel != 2 && s_.difficultyLevel != 4) return refuse();
    u_.crossCount = 0;
    ground_.moveProbe();
    return isThreeD() ? crossesNothing() : Trial::goesOn;
  }

  /// The corridor under the probe must open on a side, or run across on both; one that ends beside
  /// free ground counts as a side crossing.
  void acrossTest() {
    if (!here()) return;
    const Square& p = u_.probe;
    const bool horizontal = s_.stepCode == step::left || s_.stepCode == step::right;
    // Beside the corridor, at distance 1 whatever the margin: one further out the end of another
    // tunnel would pass for an opening.
    const bool opens = horizontal ? ground_.maze(p.left, p.top - 1) || ground_.maze(p.left, p.bottom + 1)
                                  : ground_.maze(p.left - 1, p.top) || ground_.maze(p.right + 1, p.top);
    if (opens) return;
    const bool onward =
        horizontal ? ground_.maze(p.left + s_.wallWidth, p.top) : ground_.maze(p.left, p.top + s_.wallHeight);
    const bool backward = horizontal ? ground_.maze(p.right - s_.wallWidth, p.top)
                                     : ground_.maze(p.left, p.bottom - s_.wallHeight);
    if (!onward || !backward) u_.underpassOk = false;
    const int beyond = 1 + ground_.margin();
    const bool endsBesideGround =
        (s_.stepCode == step::left && backward && ground_.free(p.left - beyond, p.top)) ||
        (s_.stepCode == step::right && onward && ground_.free(p.right + beyond, p.top)) ||
        (s_.stepCode == step::up && backward && ground_.free(p.left, p.top - beyond)) ||
        (s_.stepCode == step::down && onward && ground_.free(p.left, p.bottom + beyond));
    if (endsBesideGround) u_.crossCount += beyond;
  }

  /// Where the probe stands after its step, and whether free ground has come.
  Trial groundTest() {
    if (ground_.stoppedByBorder()) return here() ? Trial::goesOn : refuse();
    if (!ground_.nextIsGround() || here() || ahead() || mazeAt(ground_.past(2))) return Trial::goesOn;
    if (Ground::endsAtCrossings) nocrosses(program_);
    return Trial::ended;
  }

  Trial onePosition() {
    if (threeDTests() == Trial::ended) return Trial::ended;
    if (s_.difficultyLevel <= 2 && here() && ahead()) u_.underpassOk = false;
    if (gapTest() == Trial::ended) return Trial::ended;
    acrossTest();
    ground_.moveProbe();
    if (groundTest() == Trial::ended) return Trial::ended;
    if (s_.difficultyLevel <= 4 && u_.crossCount > 0) u_.underpassOk = false;
    return u_.underpassOk ? Trial::goesOn : Trial::ended;
  }

  Program& program_;
  ProgramState& s_;
  UnderpassState& u_;
  Ground& ground_;
};

}  // namespace gridwright
