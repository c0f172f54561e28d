// The lists of all parts of a book as the one list of the book.
#pragma once

#include <string>
#include <vector>

#include "canvas/outcome.h"
#include "platform/book/book_record.h"

namespace gridwright::book {

/// The list of a part, and what a person calls that part.
struct PartList {
  std::string name;
  BookList list;
};

/// \returns the list of the whole book, mazes in the order of the book, pages unknown yet; or a Fault in one
/// line that names the part that is missing, there twice, or of other options or pictures than the first.
Outcome<BookList> joinLists(const std::vector<PartList>& parts);

}  // namespace gridwright::book
