#include "platform/qt/status_meter.h"

#include "menus/growth.h"

namespace gridwright {

namespace {

/// While a maze grows, and while a person solves it.
bool timeRuns(const Program& program) {
  const ProgramState& s = program.state;
  if (s.paused || s.panelOpen || program.keys.shown) return false;
  if (s.phase == Phase::making) return true;
  return statusOf(s).tells == Status::Tells::player;
}

}  // namespace

const Counted& StatusMeter::look(const Program& program, bool seen, Clock::time_point now) {
  const bool anew = begun_ != program.state.session.begun;
  begun_ = program.state.session.begun;
  if (anew) elapsed_ = {};
  if (runs_ && !anew) elapsed_ += now - last_;
  last_ = now;
  runs_ = timeRuns(program);
  counted_.seconds = static_cast<int>(std::chrono::duration_cast<std::chrono::seconds>(elapsed_).count());
  count(program, seen, now, anew);
  return counted_;
}

void StatusMeter::skip(Clock::time_point now) { last_ = now; }

void StatusMeter::count(const Program& program, bool seen, Clock::time_point now, bool anew) {
  if (program.state.phase != Phase::making) {
    counted_.growth.reset();
    countDue_ = false;
    return;
  }
  const std::uint64_t painted = program.canvas.changes();
  if (anew) counted_.growth.reset();  // of a maze that is not there any more
  countDue_ = seen && (!counted_.growth || painted != countedAt_);
  const bool soon = counts_ > 0 && now - lastCount_ < kBetweenCounts;
  if (!countDue_ || soon) return;
  counted_.growth = growthOfMaze(program);
  countedAt_ = painted;
  lastCount_ = now;
  countDue_ = false;
  ++counts_;
}

}  // namespace gridwright
