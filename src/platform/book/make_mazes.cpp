#include "platform/book/make_mazes.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <limits>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

#include "platform/book/worker_threads.h"

namespace gridwright::book {

namespace {

/// The threads that make mazes, and what they have in common.
class Makers {
 public:
  Makers(const BookPlan& plan, const BookRun& run, const BookSources& sources, BookPages& pages,
         const MazeTaken& mazeTaken)
      : plan_(plan), run_(run), sources_(sources), pages_(pages), mazeTaken_(mazeTaken) {
    const Part part = run.part.value_or(Part{});
    for (int i = part.number - 1; i < mazesAsked(plan, sources.count()); i += part.of) indices_.push_back(i);
  }

  MadeMazes run(const Progress& progress, const IsStopped& isStopped) {
    const auto useful = std::clamp(indices_.size(), std::size_t{1}, static_cast<std::size_t>(run_.jobs));
    const std::function<void()> work = [this] { makeAll(); };
    std::vector<std::jthread> threads = beginThreads(useful, work);
    if (threads.empty()) {
      makeAlone(progress, isStopped);
    } else {
      watch(threads.size(), progress, isStopped);
    }
    threads.clear();  // they are joined
    return inOrder();
  }

 private:
  void makeAll() {
    while (makeNext()) continue;
    const std::scoped_lock lock(mutex_);
    ++ended_;
    changed_.notify_one();
  }

  /// In the thread that called, where there is no other.
  void makeAlone(const Progress& progress, const IsStopped& isStopped) {
    do {
      look(progress, isStopped, done_);
    } while (makeNext());
  }

  /// \returns false when no maze is left to be begun.
  bool makeNext() {
    const std::size_t next = next_++;
    if (next >= indices_.size() || stop_ || indices_[next] > last_) return false;
    try {
      makeOne(indices_[next]);
    } catch (const std::bad_alloc&) {
      const std::scoped_lock lock(mutex_);
      result_.fault = Fault{Fault::Kind::notReadable, kNoMemory};
      stop_ = true;
    }
    return true;
  }

  void makeOne(int index) {
    const MazeOrder order = sources_.orderOf(plan_, index);
    auto made = makeMaze(order, sources_.startsOf(plan_, index), stop_);
    if (!made && made.fault().words.empty()) return;  // stopped
    const auto taken = made ? pages_.take(made.value()) : Outcome<Done>(Done{});
    if (made && taken && mazeTaken_) mazeTaken_(made.value());
    const std::scoped_lock lock(mutex_);
    ++done_;
    if (!made) {
      result_.missed.push_back({order.number, order.picture.name, made.fault().words});
      if (run_.strict)
        last_ = std::min(last_.load(), index);  // those before it are made, so that the first is told
    } else if (!taken) {
      result_.fault = taken.fault();
      stop_ = true;
    } else {
      result_.records.push_back(std::move(made.value().record));
    }
  }

  /// Until the last of so many threads is done.
  void watch(std::size_t threads, const Progress& progress, const IsStopped& isStopped) {
    constexpr std::chrono::milliseconds kLookAgain{100};
    std::unique_lock lock(mutex_);
    while (ended_ < threads) {
      changed_.wait_for(lock, kLookAgain);
      const std::size_t done = done_;
      lock.unlock();
      look(progress, isStopped, done);
      lock.lock();
    }
  }

  void look(const Progress& progress, const IsStopped& isStopped, std::size_t done) {
    if (isStopped()) {
      stop_ = true;
      stopped_ = true;
    }
    progress(done, indices_.size());
  }

  MadeMazes inOrder() {
    const auto byNumber = [](const auto& a, const auto& b) { return a.number < b.number; };
    std::sort(result_.records.begin(), result_.records.end(), byNumber);
    std::sort(result_.missed.begin(), result_.missed.end(), byNumber);
    if (run_.strict && result_.missed.size() > 1) result_.missed.resize(1);
    result_.stopped = stopped_;
    return std::move(result_);
  }

  const BookPlan& plan_;
  const BookRun& run_;
  const BookSources& sources_;
  BookPages& pages_;
  const MazeTaken& mazeTaken_;
  std::vector<int> indices_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<int> last_ = std::numeric_limits<int>::max();  // no maze after this one is begun
  std::atomic<bool> stop_ = false;
  bool stopped_ = false;

  std::mutex mutex_;  // of all that follows
  std::condition_variable changed_;
  std::size_t ended_ = 0, done_ = 0;
  MadeMazes result_;
};

}  // namespace

MadeMazes makeMazes(const BookPlan& plan, const BookRun& run, const BookSources& sources, BookPages& pages,
                    const Progress& progress, const MazeTaken& mazeTaken, const IsStopped& isStopped) {
  return Makers(plan, run, sources, pages, mazeTaken).run(progress, isStopped);
}

}  // namespace gridwright::book
