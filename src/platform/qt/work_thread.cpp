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
    isThere_ = false;
  }
  asked_.notify_one();
}

std::optional<Finish> WorkThread::takeOutcome() {
  if (!hasOutcome()) return std::nullopt;
  const std::lock_guard lock(mutex_);
  isThere_ = false;
  return std::exchange(outcome_, std::nullopt);
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
    isThere_ = true;
    lock.unlock();
    onDone_();
    lock.lock();
  }
}

}  // namespace gridwright
