#include "platform/book/progress_bar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ostream>

namespace gridwright::book {

namespace {

constexpr const char* kClearLine = "\r\x1b[K";

std::string timeWords(double seconds) {
  const auto whole = static_cast<long long>(std::ceil(seconds));
  std::array<char, 48> words{};
  if (whole < 60) {
    std::snprintf(words.data(), words.size(), "%lld s", whole);
  } else if (whole < 3600) {
    std::snprintf(words.data(), words.size(), "%lld:%02lld min", whole / 60, whole % 60);
  } else {
    std::snprintf(words.data(), words.size(), "%lld:%02lld h", whole / 3600, whole / 60 % 60);
  }
  return words.data();
}

}  // namespace

std::string progressLine(std::size_t done, std::size_t all, double seconds) {
  // A line of 80 would wrap in some terminals, and then only half of it goes away again.
  constexpr std::size_t kLine = 79, kWidest = 30, kBesides = 3;
  std::string told = std::to_string(done) + " of " + std::to_string(all) + " mazes";
  if (done > 0 && seconds > 0) {
    const double rate = static_cast<double>(done) / seconds;
    std::array<char, 48> words{};
    std::snprintf(words.data(), words.size(), ", %.1f a second, ", rate);
    told += words.data() + timeWords(static_cast<double>(all - done) / rate) + " left";
  }
  const std::size_t width = std::min(kWidest, kLine - std::min(kLine, told.size() + kBesides));
  const std::size_t filled = all == 0 ? width : width * done / all;
  return "[" + std::string(filled, '#') + std::string(width - filled, '.') + "] " + told;
}

ProgressBar::ProgressBar(std::ostream& terminal, bool isShown)
    : terminal_(terminal), isShown_(isShown), begin_(std::chrono::steady_clock::now()) {}

ProgressBar::~ProgressBar() {
  if (!last_.empty()) terminal_ << kClearLine << std::flush;
}

void ProgressBar::show(std::size_t done, std::size_t all) {
  if (!isShown_) return;
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin_;
  std::string line = progressLine(done, all, passed.count());
  if (line == last_) return;
  last_ = std::move(line);
  terminal_ << kClearLine << last_ << std::flush;
}

}  // namespace gridwright::book
