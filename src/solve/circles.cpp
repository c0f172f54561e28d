#include "solve/circles.h"

#include <algorithm>

#include "solve/finish_search.h"

namespace gridwright {

namespace {

WalkMark markOf(const ProgramState& s) {
  return {s.solver.probeX, s.solver.probeY, s.deltaX, s.deltaY, s.solver.underpassLock};
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
  const State now{markOf(state), state.cur, isSearching(state) ? state.solver.pathLength : 0};
  const bool cameAgain = passes_ > 0 && now.walk == kept_.walk && now.cur == kept_.cur;
  rounds_ += cameAgain;
  const bool again = cameAgain && (now.pathLength == kept_.pathLength || rounds_ == kRounds);
  if (++passes_ >= nextKept_ && !again) {
    kept_ = now;
    rounds_ = 0;
    nextKept_ = passes_ * 2;
  }
  return again;
}

}  // namespace gridwright
