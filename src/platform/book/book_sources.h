// Everything that a book is made of, read once: its pictures, made ready where they have to be, and its sets
// of patterns.
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "canvas/outcome.h"
#include "platform/book/book_document.h"
#include "platform/book/book_record.h"
#include "platform/book/make_maze.h"
#include "platform/book/maze_counts.h"
#include "platform/book/source_picture.h"

namespace gridwright::book {

class BookSources {
 public:
  /// Reads all files of the plan. Pictures that are no bitmaps, and words, are made ready for the largest
  /// wall of their mazes, as many pictures at once as the run has jobs; names lie in its folder. Needs an
  /// application object, for fonts. \returns a Fault with one line that names the file: it is gone, no
  /// picture, no set of patterns, or no list of names; and with no words when it is stopped.
  static Outcome<BookSources> read(const BookPlan& plan, const BookRun& run, const IsStopped& isStopped);

  [[nodiscard]] std::size_t count() const { return pictures_.size(); }
  /// Sums of all files that were read, in the order in which the plan names them.
  [[nodiscard]] const std::vector<PictureSum>& sums() const { return sums_; }
  /// A line for each bitmap whose ground is of a corridor's colour.
  [[nodiscard]] const std::vector<std::string>& warnings() const { return warnings_; }

  /// What maze `index`, from 0, is ordered as.
  [[nodiscard]] MazeOrder orderOf(const BookPlan& plan, int index) const;
  /// For all mazes of the same picture.
  [[nodiscard]] RegionStarts& startsOf(const BookPlan& plan, int index) const;

 private:
  using SetName = std::pair<std::string, MazeKind>;
  void readAll(const BookPlan& plan, const BookRun& run, const IsStopped& isStopped);
  void readSets(const BookPlan& plan, const std::filesystem::path& folder);

  std::vector<SourcePicture> pictures_;
  std::vector<std::unique_ptr<RegionStarts>> starts_;  // one a picture
  std::map<SetName, std::string> sets_;
  std::vector<PictureSum> sums_;
  std::vector<std::string> warnings_;
};

}  // namespace gridwright::book
