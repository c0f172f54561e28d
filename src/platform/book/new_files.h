// The files that a run leaves: all of them are written before the first takes its name.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "canvas/outcome.h"
#include "files/file_place.h"
#include "platform/book/book_record.h"

class QIODevice;

namespace gridwright {
class GrowingFile;
}

namespace gridwright::book {

/// The names of a run's files: the book or part, its answers where they are a file of their own, its list.
std::vector<std::filesystem::path> filesOf(const BookRun& run);

/// What is against the names of a run's files, in one line: one of them leads to the same file as another.
/// Nothing when each is a file of its own.
std::optional<std::string> whyOneFile(const BookRun& run);

/// Whether a run can write its files, asked before the first maze is made.
/// \returns a Fault in one line: a file is there and may not be replaced, a name is no plain file's, a
/// folder is not there or takes no files.
Outcome<Done> mayWrite(const BookRun& run);

/// Where a run's files will lie, by their names: each in the folder that the name leads to now, which is
/// held.
using HeldFiles = std::map<std::filesystem::path, FilePlace>;
HeldFiles holdFiles(const BookRun& run);

class NewFiles {
 public:
  /// \param places of all that will be begun; they stay as long as this.
  /// \param mayReplace whether a file that is there may give way.
  NewFiles(const HeldFiles& places, bool mayReplace);
  ~NewFiles();
  NewFiles(const NewFiles&) = delete;
  NewFiles& operator=(const NewFiles&) = delete;

  /// Begins a file; it has no name of its target's yet. \returns where to write, or a Fault.
  Outcome<QIODevice*> begin(const std::filesystem::path& target);

  /// All that was begun takes its name. \returns a Fault where a byte of any was refused, and nothing has
  /// changed; or where a name could not be taken, and files before that one have theirs.
  Outcome<Done> takeNames();

 private:
  struct Begun {
    std::filesystem::path name;  ///< As it was told.
    FilePlace target;            ///< In the folder that it led to at the beginning.
    std::unique_ptr<GrowingFile> file;
  };
  const HeldFiles& places_;
  bool mayReplace_;
  std::vector<Begun> begun_;
};

}  // namespace gridwright::book
