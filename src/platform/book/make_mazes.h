// All mazes of a book, made beside each other.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/book/book_document.h"
#include "platform/book/book_pages.h"
#include "platform/book/book_record.h"
#include "platform/book/book_sources.h"

namespace gridwright::book {

/// A maze that could not be made.
struct MissedMaze {
  int number = 0;
  std::string picture, why;
};

struct MadeMazes {
  std::vector<MazeRecord> records;  ///< By their numbers.
  std::vector<MissedMaze> missed;   ///< By their numbers; with `strict` the first one at most.
  std::optional<Fault> fault;       ///< The disk or the memory takes no more; the rest was not made.
  bool stopped = false;             ///< Somebody wanted it to end.
};

/// Told now and then, in the thread that called, while mazes are made.
using Progress = std::function<void(std::size_t done, std::size_t all)>;

/// Told of each maze whose page was taken, in the thread that made it: several may tell at once.
using MazeTaken = std::function<void(const MadeMaze&)>;

/// Makes the mazes of a plan, or of the run's part of it, in as many threads as the run has jobs and
/// the system gives, in the caller's where it gives none, and hands them to the pages. What comes of it hangs
/// neither on their number nor on who is done first.
MadeMazes makeMazes(const BookPlan& plan, const BookRun& run, const BookSources& sources, BookPages& pages,
                    const Progress& progress, const MazeTaken& mazeTaken, const IsStopped& isStopped);

}  // namespace gridwright::book
