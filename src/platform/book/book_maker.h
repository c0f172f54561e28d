// A book that is made beside a program: what gridwright-book does with a command line, told in news that the
// program takes when it has time.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

#include "canvas/outcome.h"
#include "platform/book/run_book.h"
#include "state/book_panel.h"

namespace gridwright::book {

class BookMaker {
 public:
  /// \param onNews called from other threads when there is something that nobody was told of yet, to wake up
  /// who waits for events.
  explicit BookMaker(std::function<void()> onNews) : onNews_(std::move(onNews)) {}
  /// A book that is not made yet ends, and leaves no file.
  ~BookMaker();
  BookMaker(const BookMaker&) = delete;
  BookMaker& operator=(const BookMaker&) = delete;

  /// Begins a book. Needs an application object while it is made.
  /// \returns a Fault with one line, and nothing was begun: words that are wrong, a file that cannot be
  /// there, or a book that is being made.
  Outcome<Done> begin(const BookOrder& order);

  /// The book ends soon, and leaves no file unless it is there already.
  void stop() { isStopped_ = true; }
  /// Waits for its end, which is among the news then.
  void wait();

  /// Costs next to nothing: a busy loop asks in every pass.
  [[nodiscard]] bool hasNews() const { return hasNews_.load(std::memory_order_acquire); }
  BookNews takeNews();

 private:
  void make(const BookLine& line);
  void keepSmall(const MadeMaze& made);
  void tell();

  std::function<void()> onNews_;
  std::atomic<bool> isStopped_ = false, hasNews_ = false;
  std::mutex mutex_;  // of all that follows
  BookNews news_;
  bool isBusy_ = false;
  std::thread thread_;  // the program's own thread begins and joins it
};

/// A picture made smaller, so that no side is longer; each pixel the mean of what it covers. A small one
/// stays.
Bitmap smallPicture(const Bitmap& picture, int longest);

}  // namespace gridwright::book
