#include "platform/qt/work_thread.h"

#include <utility>

namespace gridwright {

WorkThread::WorkThread(std::function<void()> onDone)
    : onDone_(std::move(onDone)), thread_([this] { run(); }) {}

WorkThread::~WorkThread() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  asked_.notify_one();
  thread_.join();
}

void WorkThread::ask(Work work) {
  {
    const std::lock_guard lock(mutex_);
    waiting_ = std::move(work);
    outcome_.reset();
  }
  asked_.notify_one();
}

std::optional<Finish> WorkThread::takeOutcome() {
  const std::lock_guard lock(mutex_);
  return std::exchange(outcome_, std::nullopt);
}

bool WorkThread::hasOutcome() {
  const std::lock_guard lock(mutex_);
  return outcome_.has_value();
}

void WorkThread::run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    asked_.wait(lock, [this] { return ending_ || waiting_; });
    if (ending_) return;
    const Work work = *std::exchange(waiting_, std::nullopt);
    lock.unlock();
    Finish outcome = work();
    lock.lock();
    if (waiting_ || ending_) continue;
    outcome_ = std::move(outcome);
    lock.unlock();
    onDone_();
    lock.lock();
  }
}

}  // namespace gridwright
