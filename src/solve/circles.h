// Does the computer's walk go in a circle? It is steered by the picture and a few numbers of its own: once
// they come again they come for ever, and what was not met until then never will be.
#pragma once

#include <cstdint>

#include "state/program.h"

namespace gridwright {

/// Notes the walk's state while it is in the start cell. To be asked once a pass.
/// \returns whether it stood there like this before in this search.
bool standsInStartAsBefore(ProgramState& state);

/// The same for a walk that never comes back to the start. It is compared with the state kept at the last
/// power of two of passes, so that a circle of any length is found within a few rounds of it.
///
/// In a search for a finish a longer trail is something new. But round an island, where the ground beside the
/// maze counts as carved, the trail may be counted longer with every round: what has come as often as that,
/// but for the trail's length, comes for ever.
class Repetition {
 public:
  /// To be asked once a pass. \returns whether the state of an earlier pass has come back.
  bool isComplete(const ProgramState& state);

  /// For passes that are taken without asking: no more than so many, none with the probe where a circle may
  /// close, and they are counted.
  [[nodiscard]] std::int64_t passesBeforeKept() const { return nextKept_ - passes_ - 1; }
  [[nodiscard]] bool mayCloseAt(int probeX, int probeY) const {
    return kept_.walk.probeX == probeX && kept_.walk.probeY == probeY;
  }
  void passOver(std::int64_t passes) { passes_ += passes; }

 private:
  struct State {
    WalkMark walk;
    Square cur;
    int pathLength = 0;  ///< In a search for a finish.
    friend bool operator==(const State&, const State&) = default;
  };
  static constexpr int kRounds = 8;
  State kept_;
  int rounds_ = 0;  ///< How often the walk came again with another trail, since it was kept.
  std::int64_t passes_ = 0, nextKept_ = 1;
};

}  // namespace gridwright
