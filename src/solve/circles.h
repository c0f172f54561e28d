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
    /// In a search for a finish, where a longer trail is something new, as long as the picture has cells for
    /// it.
    int pathLength = 0;
    friend bool operator==(const State&, const State&) = default;
  };
  State kept_;
  std::int64_t passes_ = 0, nextKept_ = 1;
};

}  // namespace gridwright
