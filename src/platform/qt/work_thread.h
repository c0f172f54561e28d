// Work beside the window: one thread that does the newest work and forgets what was asked for before it.
#pragma once

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
  [[nodiscard]] bool hasOutcome();

 private:
  void run();

  std::function<void()> onDone_;
  std::mutex mutex_;
  std::condition_variable asked_;
  std::optional<Work> waiting_;
  std::optional<Finish> outcome_;
  bool ending_ = false;
  std::thread thread_;  // last: it begins when all the others stand
};

}  // namespace gridwright
