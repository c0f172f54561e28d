// The command line of gridwright-book.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "canvas/outcome.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// What a command line asks for.
struct BookLine {
  BookPlan plan;
  BookRun run;
  bool hasSeed = false;  ///< Else the clock gives one.
};

/// What is against the file of answers that a run names, or names none of, for a book whose options come from
/// a list or from its parts; nothing when they fit.
std::optional<std::string> whyNotAnswersFile(const BookPlan& plan, const BookRun& run);

/// What `--help` says.
std::string bookUsage();

/// What is said in place of making a book: that, or the version, where one of both options stands anywhere in
/// a command line, whatever else is in it. Nothing where none does: the value of an option is no option.
std::optional<std::string> saidInstead(const std::vector<std::string>& words);

/// \param words without the program's name. \returns a Fault with one line on what is allowed: an option that
/// is unknown, out of range or without its value, or two that contradict each other.
Outcome<BookLine> readBookLine(const std::vector<std::string>& words);

}  // namespace gridwright::book
