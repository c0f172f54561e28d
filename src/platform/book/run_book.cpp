#include "platform/book/run_book.h"

#include <chrono>
#include <new>
#include <optional>
#include <ostream>
#include <utility>

#include "files/plain_file.h"
#include "platform/book/book_list.h"
#include "platform/book/book_pages.h"
#include "platform/book/book_pictures.h"
#include "platform/book/make_mazes.h"
#include "platform/book/new_files.h"
#include "platform/book/progress_bar.h"
#include "platform/book/worker_threads.h"
#include "platform/shared/end_signals.h"

namespace gridwright::book {

namespace fs = std::filesystem;

namespace {

constexpr int kEndedBySignal = 128;  // and the signal's number, as shells say it

std::uint32_t seedOfClock() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto ticks =
      static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(now).count());
  return static_cast<std::uint32_t>(ticks ^ ticks >> 32);
}

/// The picture that is not what it was; empty where all are.
std::string changedSince(const std::vector<PictureSum>& then, const std::vector<PictureSum>& now) {
  for (std::size_t i = 0; i < then.size(); ++i) {
    if (i >= now.size() || now[i] != then[i]) return then[i].name;
  }
  return now.size() > then.size() ? now[then.size()].name : "";
}

class Run {
 public:
  Run(BookLine line, const BookEars& ears) : line_(std::move(line)), ears_(ears) {}

  BookEnd run() {
    try {
      end_.status = runAll();
    } catch (const std::bad_alloc&) {
      end_.status = complain(kNoMemory);
    }
    return end_;
  }

 private:
  int runAll() {
    if (!line_.run.join.empty()) return join();
    if (!line_.run.from.empty() && !takeList()) return kNotAllDone;
    const bool fromClock = !line_.hasSeed && !list_;
    if (fromClock) line_.plan.seed = seedOfClock();
    if (const auto may = mayWrite(line_.run); !may) return complain(may.fault().words);
    if (line_.run.part || !line_.run.list.empty()) {
      if (const auto why = whyNoList(line_.plan)) return complain(*why);
    }
    const auto sources = BookSources::read(line_.plan, line_.run, ears_.isStopped);
    if (!sources) return ears_.isStopped() ? ended() : complain(sources.fault().words);
    if (list_) {
      const std::string changed = changedSince(list_->sums, sources.value().sums());
      if (!changed.empty()) return complain(changed + " has changed since the list was written");
    }
    for (const std::string& warning : sources.value().warnings()) complain(warning);
    if (fromClock && !ears_.say("seed " + std::to_string(line_.plan.seed)))
      return complain("the seed can't be told: standard output takes no more");
    return make(sources.value());
  }

  int complain(const std::string& words) {
    ears_.complain(words);
    return kNotAllDone;
  }

  /// Nothing was written.
  int ended() {
    end_.stopped = true;
    return kNotAllDone;
  }

  void sayWritten(std::size_t mazes) {
    end_.mazes = mazes;
    if (line_.run.quiet) return;
    ears_.say(line_.run.output.string() + ": " + std::to_string(mazes) + (mazes == 1 ? " maze" : " mazes") +
              ", seed " + std::to_string(line_.plan.seed));
  }

  /// The options of the list take the place of those of the command line.
  bool takeList() {
    const auto bytes = readPlainFile(line_.run.from);
    if (!bytes) return refuseList("it cannot be read");
    auto list = parseList(bytes.value());
    if (!list) return refuseList(list.fault().words);
    list_ = std::move(list.value());
    line_.plan = list_->plan;
    if (!line_.run.part) line_.run.part = list_->part;
    if (const auto why = whyNotAnswersFile(line_.plan, line_.run)) return refuseList(*why);
    return true;
  }

  bool refuseList(const std::string& why) {
    complain(line_.run.from.string() + ": " + why);
    return false;
  }

  int make(const BookSources& sources) {
    BookPictures pictures(line_.plan, line_.run);
    if (const auto begun = pictures.begin(mazesAsked(line_.plan, sources.count())); !begun)
      return complain(begun.fault().words);
    BookPages pages(line_.plan, line_.run, &pictures);
    MadeMazes made =
        makeMazes(line_.plan, line_.run, sources, pages, ears_.progress, ears_.mazeTaken, ears_.isStopped);
    ears_.mazesEnd();
    if (made.stopped) return ended();
    for (const MissedMaze& missed : made.missed)
      complain(missed.picture + ": maze " + std::to_string(missed.number) + " can't be made: " + missed.why);
    if (made.fault) return complain(made.fault->words);
    if (!made.missed.empty() && line_.run.strict) return kNotAllDone;
    BookList list{line_.plan,
                  line_.run.part,
                  sources.sums(),
                  mazesAsked(line_.plan, sources.count()),
                  std::move(made.records),
                  {}};
    for (const MissedMaze& missed : made.missed) list.notMade.push_back(missed.number);
    const auto done = pages.finish(list, line_.run, ears_.isStopped);
    if (ears_.isStopped() && !done) return ended();
    if (!done) return complain(done.fault().words);
    sayWritten(list.mazes.size());
    return made.missed.empty() ? kDone : kNotAllDone;
  }

  int join() {
    if (const auto may = mayWrite(line_.run); !may) return complain(may.fault().words);
    const auto list = joinBook(line_.run, ears_.isStopped);
    if (!list) return ears_.isStopped() ? ended() : complain(list.fault().words);
    line_.plan.seed = list.value().plan.seed;
    sayWritten(list.value().mazes.size());
    for (const int number : list.value().notMade)
      complain("maze " + std::to_string(number) + " is not in the book: its part could not make it");
    return list.value().notMade.empty() ? kDone : kNotAllDone;
  }

  BookLine line_;
  const BookEars& ears_;
  BookEnd end_;
  std::optional<BookList> list_;  ///< What the book is made from again.
};

}  // namespace

void placeFiles(BookRun& run) {
  for (fs::path* path : {&run.output, &run.answersFile, &run.list, &run.from, &run.svgFolder, &run.pngFolder})
    if (!path->empty()) *path = run.folder / *path;
  for (fs::path& path : run.join) path = run.folder / path;
}

BookEnd makeBook(BookLine line, const BookEars& ears) { return Run(std::move(line), ears).run(); }

std::optional<std::string> whyNoBook(const Outcome<BookLine>& line) {
  return line ? whyOneFile(line.value().run) : line.fault().words;
}

int runBook(const std::vector<std::string>& words, const BookTalk& talk) {
  auto line = readBookLine(words);
  const auto complain = [&](const std::string& told) {
    talk.err << "gridwright-book: " << told << std::endl;
  };
  if (const auto wrong = whyNoBook(line)) {
    complain(*wrong);
    return kWrongUse;
  }
  const EndSignals asked;
  std::optional<ProgressBar> bar;
  BookEars ears;
  ears.say = [&](const std::string& told) { return static_cast<bool>(talk.out << told << std::endl); };
  ears.complain = complain;
  ears.progress = [&, shown = talk.errIsTerminal && !line.value().run.quiet](std::size_t done,
                                                                             std::size_t all) {
    if (!bar) bar.emplace(talk.err, shown);
    bar->show(done, all);
  };
  ears.mazesEnd = [&] { bar.reset(); };
  ears.isStopped = [] { return endSignal() != 0; };
  const BookEnd end = makeBook(line.value(), ears);
  return end.stopped ? kEndedBySignal + endSignal() : end.status;
}

}  // namespace gridwright::book
