#include "platform/book/make_mazes.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <limits>
#include <mutex>
#include <thread>
#include <utility>

namespace gridwright::book {

namespace {

/// The threads that make mazes, and what they have in common.
class Makers {
 public:
  Makers(const BookPlan& plan, const BookRun& run, const BookSources& sources, BookPages& pages)
      : plan_(plan), run_(run), sources_(sources), pages_(pages) {
    const Part part = run.part.value_or(Part{});
    for (int i = part.number - 1; i < mazesAsked(plan, sources.count()); i += part.of) indices_.push_back(i);
  }

  MadeMazes run(const Progress& progress, const IsStopped& isStopped) {
    const auto useful = std::clamp(indices_.size(), std::size_t{1}, static_cast<std::size_t>(run_.jobs));
    std::vector<std::thread> threads;
    threads.reserve(useful);
    atWork_ = useful;
    for (std::size_t i = 0; i < useful; ++i) threads.emplace_back([this] { work(); });
    watch(progress, isStopped);
    for (std::thread& thread : threads) thread.join();
    return inOrder();
  }

 private:
  void work() {
    for (std::size_t i = next_++; i < indices_.size() && !stop_; i = next_++) {
      if (indices_[i] > last_) break;
      makeOne(indices_[i]);
    }
    const std::scoped_lock lock(mutex_);
    --atWork_;
    changed_.notify_one();
  }

  void makeOne(int index) {
    const MazeOrder order = sources_.orderOf(plan_, index);
    auto made = makeMaze(order, sources_.startsOf(plan_, index), stop_);
    if (!made && made.fault().words.empty()) return;  // stopped
    const auto taken = made ? pages_.take(made.value()) : Outcome<Done>(Done{});
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

  /// Until the last thread is done.
  void watch(const Progress& progress, const IsStopped& isStopped) {
    constexpr std::chrono::milliseconds kLookAgain{100};
    std::unique_lock lock(mutex_);
    while (atWork_ > 0) {
      changed_.wait_for(lock, kLookAgain);
      const std::size_t done = done_;
      lock.unlock();
      if (isStopped()) {
        stop_ = true;
        stopped_ = true;
      }
      progress(done, indices_.size());
      lock.lock();
    }
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
  std::vector<int> indices_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<int> last_ = std::numeric_limits<int>::max();  // no maze after this one is begun
  std::atomic<bool> stop_ = false;
  bool stopped_ = false;

  std::mutex mutex_;  // of all that follows
  std::condition_variable changed_;
  std::size_t atWork_ = 0, done_ = 0;
  MadeMazes result_;
};

}  // namespace

MadeMazes makeMazes(const BookPlan& plan, const BookRun& run, const BookSources& sources, BookPages& pages,
                    const Progress& progress, const IsStopped& isStopped) {
  return Makers(plan, run, sources, pages).run(progress, isStopped);
}

}  // namespace gridwright::book
