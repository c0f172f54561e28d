// The list of a book: JSON that says how it was made and what is in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "canvas/outcome.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// What is against a list of this book, in one line: it is UTF-8, and a name of a file need not be. Nothing
/// where the list says all that makes the book.
std::optional<std::string> whyNoList(const BookPlan& plan);

/// The list as text, the same bytes for the same list: it holds no time, no number of threads and no name of
/// what is written.
std::string formatList(const BookList& list);

/// Reads what `formatList` has written. \returns a Fault with one line: the text is no list of a book, is
/// cut, or comes from another version of the program, which would make other mazes.
Outcome<BookList> parseList(std::string_view text);

}  // namespace gridwright::book
