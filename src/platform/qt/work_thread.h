// Work beside the window: one thread that does the newest work and forgets what was asked for before it.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "state/platform.h"

namespace gridwright {

class WorkThread {
 public:
  /// \param onDone called from the thread when there is an outcome: to wake up who waits for events.
  explicit WorkThread(std::function<void()> onDone);
  /// Waits for the work in hand.
  ~WorkThread();
  WorkThread(const WorkThread&) = delete;
  WorkThread& operator=(const WorkThread&) = delete;

  /// Work that waits is replaced; the outcome of the one in hand will be dropped.
  void ask(Work work);

  /// The outcome of the newest work, once; nothing while that is under way.
  std::optional<Finish> takeOutcome();
  /// Costs next to nothing, since a busy loop asks in every pass.
  [[nodiscard]] bool hasOutcome() const { return isThere_.load(std::memory_order_acquire); }

 private:
  void run();

  std::function<void()> onDone_;
  std::mutex mutex_;
  std::condition_variable asked_;
  std::optional<Work> waiting_;
  std::optional<Finish> outcome_;
  std::atomic<bool> isThere_ = false;  // whether `outcome_` is
  bool ending_ = false;
  std::thread thread_;  // last: it begins when all the others stand
};

}  // namespace gridwright
