// gridwright-book from its command line to its exit status.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace gridwright::book {

/// Exit statuses.
inline constexpr int kDone = 0, kNotAllDone = 1, kWrongUse = 2;

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
