// How far a book is, in one line of a terminal.
#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>

namespace gridwright::book {

/// The line: a bar, mazes done of all, mazes a second, and the time left, where something is known of it. It
/// fits into 79 columns: the bar has what the words leave of them.
std::string progressLine(std::size_t done, std::size_t all, double seconds);

class ProgressBar {
 public:
  /// \param isShown nothing at all is written without.
  ProgressBar(std::ostream& terminal, bool isShown);
  /// The line is gone.
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void show(std::size_t done, std::size_t all);

 private:
  std::ostream& terminal_;
  bool isShown_;
  std::chrono::steady_clock::time_point begin_;
  std::string last_;
};

}  // namespace gridwright::book
