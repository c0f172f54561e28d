// Each maze of a book and its answer as a picture file of its own, beside the book: `--svg` and `--png`.
//
//   BookPictures pictures(plan, run);
//   pictures.begin(asked);        // before the first maze is made
//   pictures.take(made);          // by any thread, whenever a maze is made
//   pictures.takeNames();         // once, when all files of the book are whole
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "canvas/outcome.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// A folder that a run writes pictures into.
struct PictureFolder {
  std::filesystem::path path;
  std::string ending;  ///< `.svg` or `.png`.
};

/// Those that a run names; none for most runs.
std::vector<PictureFolder> pictureFoldersOf(const BookRun& run);

class BookPictures {
 public:
  BookPictures(BookPlan plan, const BookRun& run);
  /// What has no name yet goes, and so does a folder that was made.
  ~BookPictures();
  BookPictures(const BookPictures&) = delete;
  BookPictures& operator=(const BookPictures&) = delete;

  /// Makes folders that are not there, in a folder that is. Until all is done the pictures grow in a folder
  /// without a name for anybody else; what a killed run left of such goes.
  /// \param asked how many mazes the whole book is to have.
  /// \returns a Fault in one line: a folder can't be made or takes no files, a picture is there already and
  /// may not be replaced.
  Outcome<Done> begin(int asked);

  /// Writes the maze, and its answer unless the book has none. Threads may do so at once.
  /// \returns a Fault where the disk takes no more.
  Outcome<Done> take(const MadeMaze& made) const;

  /// All pictures take their names. \returns a Fault when one could not: then all are as they were.
  Outcome<Done> takeNames();

  /// All are as they were before `takeNames`: something else of the run could not be done.
  void giveBack();

 private:
  class Folder;
  const BookPlan plan_;
  const BookRun run_;
  std::vector<std::unique_ptr<Folder>> folders_;
};

}  // namespace gridwright::book
