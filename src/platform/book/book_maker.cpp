#include "platform/book/book_maker.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/book/book_options.h"
#include "platform/book/new_files.h"
#include "platform/book/worker_threads.h"
#include "platform/shared/end_signals.h"

namespace gridwright::book {

namespace {

/// The mean colour of a box of pixels.
Colour meanOf(const Bitmap& picture, int left, int top, int right, int bottom) {
  constexpr int kChannels = 3, kBits = 8;
  std::array<unsigned long, kChannels> sums{};
  for (int y = top; y < bottom; ++y) {
    const Colour* row = picture.row(y);
    for (int x = left; x < right; ++x) {
      for (int c = 0; c < kChannels; ++c)
        sums.at(static_cast<std::size_t>(c)) += static_cast<unsigned long>(row[x] >> (kBits * c) & 255);
    }
  }
  const auto count = static_cast<unsigned long>(right - left) * static_cast<unsigned long>(bottom - top);
  unsigned long mean = 0;
  for (int c = 0; c < kChannels; ++c)
    mean |= ((sums.at(static_cast<std::size_t>(c)) + count / 2) / count) << (kBits * c);
  return static_cast<Colour>(mean);
}

/// A line that is told in the window says nothing of options that nobody has there.
std::string withoutOptions(const std::string& words) { return words.substr(0, words.find("; ")); }

}  // namespace

Bitmap smallPicture(const Bitmap& picture, int longest) {
  const int side = std::max(picture.width, picture.height);
  if (side <= longest) return picture;
  const auto scaled = [&](int length) { return std::max(1, length * longest / side); };
  Bitmap small = plainBitmap(scaled(picture.width), scaled(picture.height), 0);
  for (int y = 0; y < small.height; ++y) {
    const int top = y * picture.height / small.height, bottom = (y + 1) * picture.height / small.height;
    for (int x = 0; x < small.width; ++x) {
      const int left = x * picture.width / small.width, right = (x + 1) * picture.width / small.width;
      small.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(small.width) +
                   static_cast<std::size_t>(x)] = meanOf(picture, left, top, right, bottom);
    }
  }
  return small;
}

BookMaker::~BookMaker() {
  stop();
  wait();
}

void BookMaker::wait() {
  if (thread_.joinable()) thread_.join();
}

Outcome<Done> BookMaker::begin(const BookOrder& order) {
  {
    const std::scoped_lock lock(mutex_);
    if (isBusy_) return Fault{Fault::Kind::notWritable, "a book is being made"};
  }
  auto line = readBookLine(order.words);
  if (!line) return line.fault();
  line.value().run.folder = order.folder;
  placeFiles(line.value().run);
  if (const auto wrong = whyNoBook(line)) return Fault{Fault::Kind::malformed, *wrong};
  if (const auto may = mayWrite(line.value().run); !may)
    return Fault{may.fault().kind, withoutOptions(may.fault().words)};
  wait();
  isStopped_ = false;
  news_ = {};
  isBusy_ = true;
  try {
    thread_ = std::thread([this, made = std::move(line.value())] { make(made); });
  } catch (const std::system_error&) {
    isBusy_ = false;
    return Fault{Fault::Kind::notReadable, kNoMemory};
  }
  return Done{};
}

void BookMaker::make(const BookLine& line) {
  // It takes what the window leaves; the threads that it begins are like it.
  constexpr int kBehindAWindow = 10;
  ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kBehindAWindow);
  gridwright::BookEnd end;
  BookEars ears;
  ears.say = [](const std::string&) { return true; };
  ears.complain = [&](const std::string& words) { end.complaints.push_back(words); };
  ears.progress = [this](std::size_t done, std::size_t all) {
    {
      const std::scoped_lock lock(mutex_);
      if (news_.done == done && news_.all == all) return;
      news_.done = done;
      news_.all = all;
    }
    tell();
  };
  ears.mazeTaken = [this](const MadeMaze& made) { keepSmall(made); };
  ears.mazesEnd = [] {};
  ears.isStopped = [this] { return isStopped_ || endSignal() != 0; };
  try {
    const book::BookEnd ended = makeBook(line, ears);
    end.mazes = ended.mazes;
    end.stopped = ended.stopped;
  } catch (const std::exception& wrong) {
    end.complaints.emplace_back(wrong.what());  // a program with a drawing in it must not end for a book
  }
  {
    const std::scoped_lock lock(mutex_);
    news_.end = std::move(end);
    isBusy_ = false;
  }
  tell();
}

void BookMaker::keepSmall(const MadeMaze& made) {
  SmallPage page{made.record.number, smallPicture(made.maze, kSmallPageSide)};
  const std::scoped_lock lock(mutex_);
  if (news_.pages.size() == kMostSmallPages) news_.pages.erase(news_.pages.begin());
  news_.pages.push_back(std::move(page));
}

void BookMaker::tell() {
  if (!hasNews_.exchange(true, std::memory_order_acq_rel)) onNews_();
}

BookNews BookMaker::takeNews() {
  hasNews_.store(false, std::memory_order_release);
  const std::scoped_lock lock(mutex_);
  BookNews news{news_.done, news_.all, std::exchange(news_.pages, {}),
                std::exchange(news_.end, std::nullopt)};
  return news;
}

}  // namespace gridwright::book
