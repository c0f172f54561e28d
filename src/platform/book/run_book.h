// gridwright-book from its command line to its exit status.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "platform/book/book_options.h"
#include "platform/book/make_mazes.h"

namespace gridwright::book {

/// Exit statuses.
inline constexpr int kDone = 0, kNotAllDone = 1, kWrongUse = 2;

/// Who follows a run. All are called in the thread of the run but `mazeTaken`, and `isStopped`, which is
/// asked in any; all but that one must be there.
struct BookEars {
  std::function<bool(const std::string&)> say;       ///< What was done; \returns whether it could be told.
  std::function<void(const std::string&)> complain;  ///< What was not.
  Progress progress;
  MazeTaken mazeTaken;
  std::function<void()> mazesEnd;  ///< No more progress: the files are written.
  IsStopped isStopped;
};

/// How a run ended.
struct BookEnd {
  int status = kDone;
  std::size_t mazes = 0;  ///< In what was written; 0 also where nothing was.
  bool stopped = false;   ///< Somebody wanted it to end, and nothing was written.
};

/// What is against a command line that was read, or could not be; nothing when `makeBook` may have it.
std::optional<std::string> whyNoBook(const Outcome<BookLine>& line);

/// Gives what a run writes, and reads besides its pictures, the paths that its names have in its folder.
void placeFiles(BookRun& run);

/// Makes, joins or parts a book as a command line says that nothing is against. Needs an application object;
/// may be called in any thread.
BookEnd makeBook(BookLine line, const BookEars& ears);

/// Where a run says what; on a terminal it shows how far it is.
struct BookTalk {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;
};

/// Does what a command line asks. Needs an application object; files are read and written as it says.
/// \param words without the program's name. \returns the exit status; 128 and more says which signal ended
/// it.
int runBook(const std::vector<std::string>& words, const BookTalk& talk);

}  // namespace gridwright::book
