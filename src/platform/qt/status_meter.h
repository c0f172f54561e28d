// What the status line tells and the record does not hold: how far a maze has grown, counted over the grid,
// and how long it takes.
#pragma once

#include <chrono>
#include <cstdint>

#include "menus/status_words.h"
#include "state/program.h"

namespace gridwright {

class StatusMeter {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kBetweenCounts{500};

  /// To be called whenever the window shows what changed. The grid is counted anew only when `seen`, when
  /// something was painted since, and at most twice a second. Time stands still under a panel and under the
  /// sheet of keys.
  const Counted& look(const Program& program, bool seen, Clock::time_point now);

  /// What has passed since the last look does not count: a dialog stood over everything.
  void skip(Clock::time_point now);

  /// Whether another look is worth something, though nothing happens.
  [[nodiscard]] bool isRunning() const { return runs_ || countDue_; }

  /// How often the grid was counted.
  [[nodiscard]] int counts() const { return counts_; }

 private:
  void count(const Program& program, bool seen, Clock::time_point now, bool anew);

  Counted counted_;
  Clock::time_point last_, lastCount_;
  Clock::duration elapsed_{};
  std::uint64_t countedAt_ = 0;  // of the Canvas
  int begun_ = -1;
  int counts_ = 0;
  bool runs_ = false, countDue_ = false;
};

}  // namespace gridwright
