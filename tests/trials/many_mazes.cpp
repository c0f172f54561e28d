// Mazes by the thousand, made beside each other: each must end and each pair of ends that is joined must be
// solved.
//
//   many_mazes [--mazes N] [--seed S] [--jobs J] [--largest SIDE] [--only NUMBER]
//
// Says how many there were of each drawing and how many passes they took, and names each that has a fault.
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/pictures.h"
#include "trials/maze_trial.h"
#include "trials/thirty_drawings.h"

namespace gridwright::test {
namespace {

struct Wish {
  int mazes = 20'000, jobs = 2, largest = 1000, only = -1;
  std::uint32_t seed = 21;
};

/// Of the mazes of one drawing.
struct Count {
  int mazes = 0, refused = 0, joined = 0;
  double mostOfACell = 0;      ///< Passes of the making, of those with a hundred cells and more.
  double mostSolving = 0;      ///< Of search and answer.
  std::int64_t mostSmall = 0;  ///< Passes of a maze with fewer cells, all told.
};

class Trials {
 public:
  explicit Trials(const Wish& wish) : wish_(wish) {}

  bool run() {
    std::vector<std::jthread> threads;
    for (int i = 0; i < wish_.jobs; ++i) threads.emplace_back([this] { work(); });
    threads.clear();
    tell();
    return faults_ == 0;
  }

 private:
  void work() {
    for (int number = next_++; number < wish_.mazes; number = next_++) {
      const MazeTrial trial = trialOf(wish_.seed, number, wish_.largest);
      const TrialOutcome outcome = runTrial(trial);
      const std::scoped_lock lock(mutex_);
      note(number, trial, outcome);
    }
  }

  void note(int number, const MazeTrial& trial, const TrialOutcome& outcome) {
    Count& count = counts_[trial.drawing];
    ++count.mazes;
    count.refused += outcome.refused;
    count.joined += outcome.joined;
    const double cells = std::max(outcome.cells, 1);
    if (outcome.cells >= 100) {
      count.mostOfACell = std::max(count.mostOfACell, static_cast<double>(outcome.making) / cells);
      count.mostSolving =
          std::max(count.mostSolving, static_cast<double>(outcome.searching + outcome.solving) / cells);
    } else {
      count.mostSmall = std::max(count.mostSmall, outcome.making);
    }
    if (!outcome.fault.empty()) {
      ++faults_;
      std::cout << "maze " << number << ": " << outcome.fault << " (" << trial.words() << ")" << std::endl;
    }
    // One line a hundredth, as the steps of ./test count them.
    if (++done_ % std::max(wish_.mazes / 100, 1) == 0)
      std::cout << "[" << done_ << "/" << wish_.mazes << "] mazes" << std::endl;
  }

  void tell() const {
    std::cout << "drawing; mazes; with fewer than three cells; solved; most passes a cell, of a small one; "
                 "passes of search and answer a cell\n";
    Count all;
    for (const auto& [drawing, c] : counts_) {
      tellOne(drawingKind(drawing).name, c);
      all.mazes += c.mazes, all.refused += c.refused, all.joined += c.joined;
      all.mostOfACell = std::max(all.mostOfACell, c.mostOfACell);
      all.mostSolving = std::max(all.mostSolving, c.mostSolving);
      all.mostSmall = std::max(all.mostSmall, c.mostSmall);
    }
    tellOne("all", all);
    std::cout << faults_ << " faults" << std::endl;
  }
  static void tellOne(const char* name, const Count& c) {
    std::cout << std::fixed << std::setprecision(0) << name << "; " << c.mazes << "; " << c.refused << "; "
              << c.joined << "; " << c.mostOfACell << ", " << c.mostSmall << "; " << c.mostSolving << "\n";
  }

  const Wish wish_;
  std::atomic<int> next_ = 0;
  std::mutex mutex_;  // of all that follows
  std::map<int, Count> counts_;
  int faults_ = 0, done_ = 0;
};

int runOne(const Wish& wish) {
  const MazeTrial trial = trialOf(wish.seed, wish.only, wish.largest);
  const TrialOutcome o = runTrial(trial);
  std::cout << trial.words() << ": " << o.cells << " cells, passes " << o.making << ", " << o.searching
            << " and " << o.solving
            << (o.refused  ? ", refused"
                : o.joined ? ", joined"
                           : ", not joined")
            << (o.fault.empty() ? "" : ", " + o.fault) << "\n";
  return o.fault.empty() ? 0 : 1;
}

}  // namespace
}  // namespace gridwright::test

int main(int count, char** words) {
  gridwright::test::Wish wish;
  const std::map<std::string, int*> numbers = {
      {"--mazes", &wish.mazes}, {"--jobs", &wish.jobs}, {"--largest", &wish.largest}, {"--only", &wish.only}};
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string word = words[i];
    const int number = std::atoi(words[i + 1]);
    if (word == "--seed") {
      wish.seed = static_cast<std::uint32_t>(number);
    } else if (numbers.count(word) != 0) {
      *numbers.at(word) = number;
    } else {
      std::cerr << "unknown: " << word << "\n";
      return 2;
    }
  }
  if (wish.only >= 0) return gridwright::test::runOne(wish);
  return gridwright::test::Trials(wish).run() ? 0 : 1;
}
