#include "solve/circles.h"

#include <algorithm>

#include "solve/finish_search.h"

namespace gridwright {

namespace {

WalkMark markOf(const ProgramState& s) {
  return {s.solver.probeX, s.solver.probeY, s.deltaX, s.deltaY, s.solver.underpassLock};
}

/// No trail is longer: each cell of the picture twice, over and under, and those that its edges cut.
int longestTrail(const ProgramState& s) {
  const auto cells = [](int pixels, int cell) { return pixels / std::max(cell, 1) + 2; };
  return 2 * cells(s.canvasWidth, s.wallWidth) * cells(s.canvasHeight, s.wallHeight);
}

/// What a search has found, as far as that can be something new. Along the edge of the picture the cells
/// reach beyond it and keep no trail, so that a walk round and round there counts each of them again and
/// again.
int trailSearched(const ProgramState& s) {
  if (!isSearching(s)) return 0;
  const int longest = longestTrail(s);
  return std::clamp(s.solver.pathLength, -longest, longest);
}

}  // namespace

bool standsInStartAsBefore(ProgramState& state) {
  if (!state.cur.sameCorner(state.start)) return false;
  const WalkMark mark = markOf(state);
  auto& seen = state.solver.seenInStart;
  if (std::find(seen.begin(), seen.end(), mark) != seen.end()) return true;
  seen.push_back(mark);
  return false;
}

bool Repetition::isComplete(const ProgramState& state) {
  const State now{markOf(state), state.cur, trailSearched(state)};
  const bool again = passes_ > 0 && now == kept_;
  if (++passes_ >= nextKept_ && !again) {
    kept_ = now;
    nextKept_ = passes_ * 2;
  }
  return again;
}

}  // namespace gridwright
